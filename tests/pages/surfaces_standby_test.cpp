// The standby page and the Bluetooth pairing page.
#include "page_test_support.h"
#include "pages/auto_bt_page_widget.h"
#include "pages/page_ids.h"
#include "pages/standby_page_widget.h"

#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using pagetest::firstByClass;

class StandbyPageTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    StandbyPageWidget page{texts.get(), nullptr};

    QString labelText(const char* className) const
    {
        return firstByClass<QLabel>(&page, className)->text();
    }
};

TEST_F(StandbyPageTest, EmptyFieldsShowPlaceholders)
{
    StandbyPageVM vm;
    vm.ip_text = "";
    vm.date_text = "";
    vm.time_text = "";
    page.updateFromVm(vm);
    EXPECT_EQ(labelText("standby-ip-value"), QStringLiteral("---.---.---.---"));
    EXPECT_EQ(labelText("standby-date"), QStringLiteral("----.--.--"));
    EXPECT_EQ(labelText("standby-time"), QStringLiteral("--:--:--"));
    EXPECT_EQ(labelText("standby-ip-prefix"), QStringLiteral("IP:"));

    vm.ip_text = "192.168.1.9";
    vm.date_text = "2024-05-06";
    vm.time_text = "07:08:09";
    page.updateFromVm(vm);
    EXPECT_EQ(labelText("standby-ip-value"), QStringLiteral("192.168.1.9"));
    EXPECT_EQ(labelText("standby-date"), QStringLiteral("2024-05-06"));
    EXPECT_EQ(labelText("standby-time"), QStringLiteral("07:08:09"));
}

TEST_F(StandbyPageTest, TextsComeFromTheLanguageAtTheNextUpdateWhenDirty)
{
    auto* wake = firstByClass<QPushButton>(&page, "standby-wake-button");
    EXPECT_EQ(wake->text(), QStringLiteral("  WAKEUP"));
    EXPECT_EQ(labelText("standby-title"), QStringLiteral("STANDBY"));

    page.updateFromVm(StandbyPageVM());
    EXPECT_EQ(wake->text(), "  " + texts->getTextWithFallback("standby_page.wake"));

    texts->switchLanguage(pagetest::kChinese);
    page.updateFromVm(StandbyPageVM()); // not dirty: keeps its texts
    EXPECT_EQ(wake->text(), "  "
                                + pagetest::makeTextManager(pagetest::kEnglish)
                                      ->getTextWithFallback("standby_page.wake"));
    page.setDirty(true);
    page.updateFromVm(StandbyPageVM());
    EXPECT_EQ(labelText("standby-title"), texts->getTextWithFallback("standby_page.standby"));
    EXPECT_FALSE(page.isDirty());
}

TEST_F(StandbyPageTest, IconAndTitleAreCentredAsAPair)
{
    page.updateFromVm(StandbyPageVM());
    auto* title = firstByClass<QLabel>(&page, "standby-title");
    auto* icon = firstByClass<QLabel>(&page, "standby-icon");
    const int tw = QFontMetrics(title->font()).horizontalAdvance(title->text());
    ASSERT_LT(tw + 4, 138);
    EXPECT_EQ(icon->geometry(), QRect(page.width() - 213 + (134 - tw) / 2, 31, 34, 34));
    EXPECT_EQ(title->geometry(), QRect(icon->x() + 42, 24, tw + 4, 48));
}

TEST_F(StandbyPageTest, WakeButtonRaisesWakeRequestedAndNoGestureIsAnswered)
{
    QSignalSpy spy(&page, &StandbyPageWidget::wakeRequested);
    firstByClass<QPushButton>(&page, "standby-wake-button")->click();
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(page.onSwipeDown(0), -1);
    EXPECT_EQ(page.onEdgeSwipeToCenter(0), -1);
}

TEST_F(StandbyPageTest, Snapshot)
{
    StandbyPageVM vm;
    vm.ip_text = "192.168.10.42";
    vm.date_text = "2024-05-06";
    vm.time_text = "12:34:56";
    page.updateFromVm(vm);
    pagetest::saveThemedScreenshots(&page, "standby");
    EXPECT_EQ(page.size(), QSize(640, 172));
}

TEST(AutoBtPageTest, StatusTextsGesturesAndExit)
{
    auto texts = pagetest::makeTextManager(pagetest::kEnglish);
    AutoBtPageWidget page(texts.get(), nullptr);
    auto* title = firstByClass<QLabel>(&page, "bt_title");
    ASSERT_NE(title, nullptr);

    const std::pair<int, const char*> cases[] = {
        {5, "bt.bt pair error"}, {6, "bt.bt pair timeout"}, {7, "bt.bt auto"},
        {2, "bt.bt pair"},       {3, "bt.bt pair"},
    };
    for (const auto& [status, key] : cases) {
        page.btConnectHint(status);
        EXPECT_EQ(title->text(), texts->getTextWithFallback(key)) << status;
    }
    page.btConnectHint(1); // no text of its own: the last one stays
    EXPECT_EQ(title->text(), texts->getTextWithFallback("bt.bt pair"));

    EXPECT_EQ(page.onSwipeDown(0), PAGE_NETWORK_SETTINGS_2);
    EXPECT_EQ(page.onEdgeSwipeToCenter(0), PAGE_STATUS_1);
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(page.onSwipeUp(0), -1);

    QSignalSpy exit(&page, &AutoBtPageWidget::exitbtRequested);
    auto* button = firstByClass<QPushButton>(&page, "standby-wake-button");
    EXPECT_EQ(button->text(), QStringLiteral("EXIT"));
    button->click();
    EXPECT_EQ(exit.count(), 1);
    pagetest::saveThemedScreenshots(&page, "auto_bt");
}

} // namespace
