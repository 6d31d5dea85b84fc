// The quick action list opened by a long press.
#include "pages/page_ids.h"
#include "pages/shortcut_page_widget.h"
#include "shortcut_list_rows.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using nlohmann::json;

json listOf(std::initializer_list<const char*> functions)
{
    json list = json::array();
    for (const char* f : functions)
        list.push_back({{"function", f}});
    return {{"list", list}};
}

json listOfSize(int n)
{
    json list = json::array();
    const char* names[] = {"LockLcd", "Standby", "ShutDown", "Restart"};
    for (int i = 0; i < n; ++i)
        list.push_back({{"function", names[i % 4]}});
    return {{"list", list}};
}

class QuickPageTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    ShortcutPageWidget page{texts.get(), nullptr};

    void SetUp() override { pagetest::showAndSettle(&page); }
    void show(const json& config)
    {
        ShortcutVM vm;
        vm.config = config;
        page.updateFromVm(vm);
    }
    int activeDots() const
    {
        int n = 0;
        for (QLabel* dot : page.dots())
            n += dot->styleSheet().contains(QLatin1String("#4080FF")) ? 1 : 0;
        return n;
    }
    QLabel* iconOf(int row) const
    {
        return pagetest::firstByClass<QLabel>(page.rowButton(row), "v2-shortcut-status");
    }
};

TEST_F(QuickPageTest, KnownFunctionsGetTheirIconAndText)
{
    show(listOf({"LockLcd", "Standby", "ShutDown", "Restart"}));
    ASSERT_EQ(page.rowCount(), 4);
    const char* keys[] = {"camera_settings.lcd_lock", "system_settings.standby",
                          "system_settings.shutdown", "system_settings.reboot"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(page.rowLabel(i)->text(), texts->getTextWithFallback(keys[i]));
        EXPECT_EQ(page.rowButton(i)->geometry(), QRect(i * 180, 0, 160, 110));
        EXPECT_EQ(page.rowButton(i)->property("class").toString(), "v2-shurtcut-btn");
        EXPECT_EQ(iconOf(i)->geometry(), QRect(42, 10, 76, 76));
    }
}

TEST_F(QuickPageTest, UnknownFunctionRowIsBlankButReportsItsName)
{
    QSignalSpy spy(&page, &ShortcutPageWidget::shortcutKeyClicked);
    show(listOf({"Standby", "lockLcd", "Teleport"}));
    ASSERT_EQ(page.rowCount(), 3);
    EXPECT_TRUE(page.rowLabel(1)->text().isEmpty()); // case matters
    EXPECT_TRUE(page.rowLabel(2)->text().isEmpty());
    page.rowButton(2)->click();
    page.rowButton(1)->click();
    page.rowButton(0)->click();
    ASSERT_EQ(spy.count(), 3);
    EXPECT_EQ(spy.at(0).at(0).toString(), "Teleport");
    EXPECT_EQ(spy.at(1).at(0).toString(), "lockLcd");
    EXPECT_EQ(spy.at(2).at(0).toString(), "Standby");
}

TEST_F(QuickPageTest, DotsAppearFromFourRows)
{
    show(listOfSize(3));
    EXPECT_TRUE(page.dotStrip()->isHidden());
    EXPECT_EQ(page.contentWidget()->width(), 3 * 160 + 2 * 20);

    show(listOfSize(4));
    EXPECT_FALSE(page.dotStrip()->isHidden());
    EXPECT_EQ(page.dots().size(), 4);
    EXPECT_EQ(activeDots(), 3);
    EXPECT_TRUE(page.dots().at(0)->styleSheet().contains("#4080FF"));
    EXPECT_TRUE(page.dots().at(3)->styleSheet().contains("#cce0ff"));
}

TEST_F(QuickPageTest, TwelveOrMoreRowsAreCapped)
{
    show(listOfSize(15));
    EXPECT_EQ(page.rowCount(), 12);
    EXPECT_EQ(page.dots().size(), 12);
    EXPECT_EQ(page.contentWidget()->size(), QSize(2140, 110));
}

TEST_F(QuickPageTest, SwipesScrollByOneStepAndDotsFollow)
{
    show(listOfSize(6)); // 1060 wide: 520 to scroll
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(pagetest::scrollValue(page.scrollArea()), 170);
    // (170 + 20) / 180 = 1: rows 1 to 3 are in view.
    EXPECT_FALSE(page.dots().at(0)->styleSheet().contains("#4080FF"));
    EXPECT_TRUE(page.dots().at(3)->styleSheet().contains("#4080FF"));
    page.onSwipeLeft(0);
    page.onSwipeLeft(0);
    page.onSwipeLeft(0);
    EXPECT_EQ(pagetest::scrollValue(page.scrollArea()), 520);
    EXPECT_EQ(activeDots(), 3);
    EXPECT_TRUE(page.dots().at(5)->styleSheet().contains("#4080FF"));
    EXPECT_EQ(page.onSwipeRight(0), -1);
    EXPECT_EQ(pagetest::scrollValue(page.scrollArea()), 350);
}

TEST_F(QuickPageTest, RowsInViewCanBeChanged)
{
    page.setShortcut_num(2);
    show(listOfSize(5));
    EXPECT_EQ(activeDots(), 2);
}

TEST_F(QuickPageTest, UnchangedListKeepsRowsAndScrollPosition)
{
    show(listOfSize(6));
    page.onSwipeLeft(0);
    QPushButton* first = page.rowButton(0);
    show(listOfSize(6));
    EXPECT_EQ(page.rowButton(0), first);
    EXPECT_EQ(pagetest::scrollValue(page.scrollArea()), 170);

    show(listOfSize(5));
    EXPECT_NE(page.rowButton(0), nullptr);
    EXPECT_EQ(page.rowCount(), 5);
}

TEST_F(QuickPageTest, MissingOrEmptyListHidesTheArea)
{
    show(listOfSize(2));
    EXPECT_FALSE(page.scrollArea()->isHidden());
    show(json::object());
    EXPECT_TRUE(page.scrollArea()->isHidden());
    EXPECT_EQ(page.rowCount(), 0);
    show(listOfSize(2));
    EXPECT_FALSE(page.scrollArea()->isHidden());
    show({{"list", json::array()}});
    EXPECT_TRUE(page.scrollArea()->isHidden());
}

TEST_F(QuickPageTest, LeavingGoesToTheReturnPageOrHome)
{
    EXPECT_EQ(page.onSwipeUp(0), PAGE_STATUS_1);
    page.onReturnPage(PAGE_STATUS_2);
    EXPECT_EQ(page.onSwipeUp(0), PAGE_STATUS_2);
    EXPECT_EQ(page.onSwipeDown(0), PAGE_STATUS_2);
    EXPECT_EQ(page.onEdgeSwipeToCenter(0), PAGE_STATUS_2);
    page.onReturnPage(-1);
    EXPECT_EQ(page.onSwipeUp(0), PAGE_STATUS_1);
    EXPECT_EQ(page.onLongPress(0), -1);
    EXPECT_EQ(page.onAutoSwitch(0), -1);
    show(listOfSize(2));
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(page.onSwipeRight(0), -1);
}

TEST_F(QuickPageTest, Snapshots)
{
    show(listOf({"LockLcd", "Standby", "Restart"}));
    pagetest::saveThemedScreenshots(&page, "shortcut_list_3");
    show(listOf({"LockLcd", "Standby", "ShutDown", "Restart", "LockLcd"}));
    pagetest::saveThemedScreenshots(&page, "shortcut_list_5");
    EXPECT_EQ(page.rowCount(), 5);
}

} // namespace
