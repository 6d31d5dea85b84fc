#include "page_test_support.h"

#include "model/view_models/shell_view_models.h"
#include "ui/components/main_menu_button_group_component.h"
#include "ui/components/nav_dots_component.h"
#include "ui/components/shortcut_list_component.h"
#include "ui/components/submenu_arrows_component.h"
#include "ui/components/submenu_button_group_component.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

class ComponentsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        texts(); // resources
        page.setFixedSize(640, 142);
        window.setFixedSize(640, 172);
    }
    QWidget page;
    QWidget window;
};

} // namespace

TEST_F(ComponentsTest, MainMenuButtonsAreCentredSixtyApart)
{
    QVector<MainMenuButtonItem> items;
    for (int i = 0; i < 3; ++i)
        items << MainMenuButtonGroupComponent::createButton(&page, ":/icons/mainmenu/video.svg");
    MainMenuButtonGroupComponent::layoutButtons(&page, items);
    EXPECT_EQ(items[0].button->geometry(), QRect(50, 10, 140, 110));
    EXPECT_EQ(items[1].button->pos(), QPoint(250, 10));
    EXPECT_EQ(items[2].button->pos(), QPoint(450, 10));
    EXPECT_EQ(items[0].icon->geometry(), QRect(46, 15, 48, 48));
    EXPECT_EQ(items[0].label->geometry(), QRect(0, 71, 140, 24));
    EXPECT_EQ(items[0].icon->parentWidget(), items[0].button);
    EXPECT_EQ(items[0].icon->property("class").toString(), "v2-menu-icon");
    EXPECT_EQ(items[0].icon->property("icon-state").toString(), "normal");

    // Two buttons: (640 - 340) / 2.
    MainMenuButtonGroupComponent::layoutButtons(&page, {items[0], items[1]});
    EXPECT_EQ(items[0].button->x(), 150);
    EXPECT_EQ(items[1].button->x(), 350);
}

TEST_F(ComponentsTest, SubmenuCardsAreCentredTenApart)
{
    QPushButton* button = nullptr;
    QLabel* icon = nullptr;
    QLabel* label = nullptr;
    const SubmenuButtonItem first = SubmenuButtonGroupComponent::createButton(
        &page, ":/icons/system_settings/time.svg", &button, &icon, &label);
    EXPECT_EQ(button, first.button);
    EXPECT_EQ(icon, first.icon);
    EXPECT_EQ(label, first.label);
    EXPECT_EQ(first.icon->size(), QSize(28, 28));
    EXPECT_EQ(first.icon->pos(), QPoint(63, 22));
    EXPECT_EQ(first.label->geometry(), QRect(0, 66, 155, 24));

    const auto second = SubmenuButtonGroupComponent::createButton(
        &page, ":/icons/system_settings/theme.svg", QSize(32, 32));
    EXPECT_EQ(second.icon->size(), QSize(32, 32));
    const auto third = SubmenuButtonGroupComponent::createButton(&page, "");
    SubmenuButtonGroupComponent::layoutButtons(&page, {first, second, third});
    EXPECT_EQ(first.button->geometry(), QRect(77, 10, 155, 110));
    EXPECT_EQ(second.button->pos(), QPoint(242, 10));
    EXPECT_EQ(third.button->pos(), QPoint(407, 10));
}

TEST_F(ComponentsTest, ItemStateDrivesAllThreeLooksAndOptionallyEnabled)
{
    applyTheme(&page, "black");
    const auto item = SubmenuButtonGroupComponent::createButton(&page, ":/icons/general/left.svg");
    item.label->ensurePolished();
    const QColor normalLabel = item.label->palette().color(QPalette::WindowText);

    SubmenuButtonGroupComponent::setItemState(item, "disabled", 0);
    EXPECT_FALSE(item.button->isEnabled());
    EXPECT_EQ(item.button->property("btn-state").toString(), "disabled");
    EXPECT_EQ(item.icon->property("icon-state").toString(), "disabled");
    EXPECT_EQ(item.label->property("text-state").toString(), "disabled");
    // The re-polish makes the sheet's rule for the new state take effect.
    EXPECT_EQ(item.label->palette().color(QPalette::WindowText), QColor("#6b7280"));

    // -1 changes the look only.
    SubmenuButtonGroupComponent::setItemState(item, "active", -1);
    EXPECT_FALSE(item.button->isEnabled());
    EXPECT_EQ(item.button->property("btn-state").toString(), "active");
    EXPECT_EQ(item.label->palette().color(QPalette::WindowText), QColor("#3b82f6"));

    SubmenuButtonGroupComponent::setItemState(item, "normal", 1);
    EXPECT_TRUE(item.button->isEnabled());
    EXPECT_EQ(item.label->palette().color(QPalette::WindowText), normalLabel);
}

TEST_F(ComponentsTest, ArrowsShowOutIconsAtTheEndsAndSkipUnchangedIcons)
{
    SubmenuArrowsComponent arrows(&window);
    QPushButton* left = arrows.leftButton();
    QPushButton* right = arrows.rightButton();
    ASSERT_TRUE(left && right);
    EXPECT_EQ(left->geometry(), QRect(8, 49, 80, 80));
    EXPECT_EQ(right->geometry(), QRect(552, 49, 80, 80));
    EXPECT_EQ(left->iconSize(), QSize(48, 48));
    EXPECT_TRUE(left->isHidden());

    auto looksLike = [](const QIcon& icon, const char* path) {
        const QImage expected = QIcon(path).pixmap(48, 48).toImage();
        return !expected.isNull() && icon.pixmap(48, 48).toImage() == expected;
    };
    arrows.updateState(true, true, false);
    EXPECT_FALSE(left->isHidden());
    EXPECT_FALSE(right->isHidden());
    EXPECT_TRUE(left->isEnabled());
    EXPECT_TRUE(looksLike(left->icon(), ":/icons/general/left_out.svg"));
    EXPECT_TRUE(looksLike(right->icon(), ":/icons/general/right.svg"));
    const qint64 shownLeft = left->icon().cacheKey();
    const qint64 shownRight = right->icon().cacheKey();

    // Same flags: the icons are not set again.
    left->setIcon(QIcon());
    arrows.updateState(true, true, false);
    EXPECT_TRUE(left->icon().isNull());

    // A changed flag sets only that side.
    arrows.updateState(true, false, false);
    EXPECT_TRUE(looksLike(left->icon(), ":/icons/general/left.svg"));
    EXPECT_NE(left->icon().cacheKey(), shownLeft);
    EXPECT_EQ(right->icon().cacheKey(), shownRight);

    // Hiding forgets what was shown, so the next update sets both again.
    arrows.hideArrows();
    EXPECT_TRUE(left->isHidden());
    left->setIcon(QIcon());
    arrows.updateState(true, false, false);
    EXPECT_FALSE(left->icon().isNull());

    arrows.updateState(false, false, false);
    EXPECT_TRUE(left->isHidden());
    EXPECT_TRUE(right->isHidden());
}

TEST_F(ComponentsTest, ArrowClicksRaiseSignals)
{
    SubmenuArrowsComponent arrows(&window);
    QSignalSpy leftSpy(&arrows, &SubmenuArrowsComponent::leftClicked);
    QSignalSpy rightSpy(&arrows, &SubmenuArrowsComponent::rightClicked);
    arrows.updateState(true, true, true);
    arrows.rightButton()->click();
    arrows.rightButton()->click();
    arrows.leftButton()->click();
    EXPECT_EQ(leftSpy.count(), 1);
    EXPECT_EQ(rightSpy.count(), 2);
}

TEST_F(ComponentsTest, NavDotsCentreTheRowWithAWideCurrentDot)
{
    NavDotsComponent dots(&window);
    EXPECT_EQ(dots.geometry(), QRect(0, 156, 640, 12));
    EXPECT_TRUE(dots.testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_TRUE(dots.isHidden());

    NavDotsState state;
    state.visible = true;
    state.count = 3;
    state.current = 1;
    dots.updateState(state);
    EXPECT_FALSE(dots.isHidden());
    const auto& d = dots.dots();
    ASSERT_EQ(d.size(), 6);
    // (640 - (2*6 + 4*8)) / 2 = 298; 8 + 6, then 16 + 6.
    EXPECT_EQ(d[0]->geometry(), QRect(298, 2, 8, 8));
    EXPECT_EQ(d[1]->geometry(), QRect(312, 2, 16, 8));
    EXPECT_EQ(d[2]->geometry(), QRect(334, 2, 8, 8));
    EXPECT_EQ(d[1]->property("class").toString(), "navdot-active");
    EXPECT_EQ(d[0]->property("class").toString(), "navdot");
    for (int i = 3; i < 6; ++i)
        EXPECT_TRUE(d[i]->isHidden());

    // The current dot moves and the former one narrows again.
    state.current = 0;
    dots.updateState(state);
    EXPECT_EQ(d[0]->width(), 16);
    EXPECT_EQ(d[1]->property("class").toString(), "navdot");
    EXPECT_EQ(d[1]->geometry(), QRect(320, 2, 8, 8));
}

TEST_F(ComponentsTest, NavDotsHideForOnePageAndCapAtSix)
{
    NavDotsComponent dots(&window);
    NavDotsState state;
    state.visible = true;
    state.count = 7;
    state.current = 6;
    dots.updateState(state);
    int shown = 0;
    for (QLabel* dot : dots.dots())
        shown += dot->isHidden() ? 0 : 1;
    EXPECT_EQ(shown, 6);
    // No current dot among the six: all are narrow, row (640 - (30 + 56)) / 2.
    EXPECT_EQ(dots.dots()[0]->x(), 277);

    state.count = 1;
    dots.updateState(state);
    EXPECT_TRUE(dots.isHidden());

    state.count = 3;
    dots.updateState(state);
    EXPECT_FALSE(dots.isHidden());
    state.visible = false;
    dots.updateState(state);
    EXPECT_TRUE(dots.isHidden());
}

TEST_F(ComponentsTest, ShortcutListPlacesAreaHintAndRows)
{
    QWidget* content = nullptr;
    QScrollArea* area = ShortcutListComponent::createScrollArea(&page, &content);
    QLabel* hint = ShortcutListComponent::createEmptyHint(&page);
    ShortcutListComponent::layoutList(&page, area, hint);
    ASSERT_NE(content, nullptr);
    EXPECT_EQ(area->widget(), content);
    EXPECT_EQ(area->geometry(), QRect(50, 16, 540, 110));
    EXPECT_EQ(hint->geometry(), QRect(50, 16, 540, 100));
    EXPECT_EQ(hint->property("class").toString(), "v2-shortcut-empty-hint");
    EXPECT_TRUE(hint->isHidden());

    ShortcutListComponent::setEmptyState(area, hint, "Nothing here", true);
    EXPECT_FALSE(hint->isHidden());
    EXPECT_EQ(hint->text(), "Nothing here");

    const QString longStatus(60, QLatin1Char('W'));
    const SubmenuButtonItem row = ShortcutListComponent::createStatusItem(
        content, 2, "Studio A", longStatus, "mounted", "active");
    ASSERT_NE(row.button, nullptr);
    EXPECT_EQ(row.button->geometry(), QRect(340, 0, 160, 100));
    EXPECT_EQ(row.button->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(row.button->property("btn-state").toString(), "active");
    EXPECT_EQ(row.label->text(), "Studio A");
    EXPECT_EQ(row.label->geometry(), QRect(0, 20, 160, 24));
    QLabel* status = oneByClass(row.button, "v2-shortcut-status");
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(status->geometry(), QRect(0, 48, 160, 18));
    EXPECT_EQ(status->property("state").toString(), "mounted");
    EXPECT_TRUE(status->text().endsWith(QChar(0x2026)));
    EXPECT_LE(QFontMetrics(status->font()).horizontalAdvance(status->text()), 148);

    EXPECT_EQ(ShortcutListComponent::createStatusItem(nullptr, 0, "x", "y", "", "").button,
              nullptr);
}

TEST_F(ComponentsTest, ShortcutListScrollsOneRowPerStep)
{
    QWidget* content = nullptr;
    QScrollArea* area = ShortcutListComponent::createScrollArea(&page, &content);
    ShortcutListComponent::layoutList(&page, area, nullptr);
    page.show();

    // Three rows fit the area: nothing to scroll.
    content->resize(2 * 170 + 160, 100);
    EXPECT_FALSE(ShortcutListComponent::canScrollLeft(area));
    EXPECT_FALSE(ShortcutListComponent::canScrollRight(area));
    EXPECT_FALSE(ShortcutListComponent::scrollRight(area));
    EXPECT_EQ(area->horizontalScrollBar()->value(), 0);

    // Five rows: 840 wide, range 0..300.
    content->resize(4 * 170 + 160, 100);
    QScrollBar* bar = area->horizontalScrollBar();
    ASSERT_EQ(bar->maximum(), 300);
    EXPECT_TRUE(ShortcutListComponent::canScrollRight(area));
    EXPECT_TRUE(ShortcutListComponent::scrollRight(area));
    EXPECT_EQ(bar->value(), 170);
    EXPECT_FALSE(ShortcutListComponent::scrollRight(area));
    EXPECT_EQ(bar->value(), 300);
    EXPECT_TRUE(ShortcutListComponent::canScrollLeft(area));
    EXPECT_TRUE(ShortcutListComponent::scrollLeft(area));
    EXPECT_EQ(bar->value(), 130);
    EXPECT_FALSE(ShortcutListComponent::scrollLeft(area));
    EXPECT_EQ(bar->value(), 0);

    EXPECT_FALSE(ShortcutListComponent::canScrollLeft(nullptr));
    EXPECT_FALSE(ShortcutListComponent::scrollRight(nullptr));
}
