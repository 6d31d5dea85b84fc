// The chrome around the pages: the page dots, the arrows of the settings
// groups, and the look states of a card.
#include "page_test_support.h"

#include "model/view_models/shell_view_models.h"
#include "ui/components/nav_dots_component.h"
#include "ui/components/submenu_arrows_component.h"
#include "ui/components/submenu_button_group_component.h"

#include <QPushButton>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

TEST(NavDots, ShowTheGroupWithTheCurrentPageWideAndCentred)
{
    QWidget window;
    window.resize(640, 172);
    NavDotsComponent dots(&window);
    const std::tuple<bool, int, int, int, int> cases[] = {
        // visible, count, current: dots shown, the wide one (-1: none)
        {true, 3, 1, 3, 1},
        {true, 3, 0, 3, 0},
        {true, 7, 6, 6, -1},
        {true, 1, 0, 0, -1},
        {false, 3, 0, 0, -1}};
    for (const auto& [visible, count, current, shown, wide] : cases) {
        dots.updateState(NavDotsState{visible, 0, current, count});
        SCOPED_TRACE(testing::Message() << count << "/" << current);
        EXPECT_EQ(dots.isHidden(), shown == 0) << "a single page has no dots";
        if (shown == 0)
            continue;
        QRect row;
        for (int i = 0; i < dots.dots().size(); ++i) {
            QLabel* dot = dots.dots()[i];
            EXPECT_EQ(dot->isHidden(), i >= shown) << "at most six";
            if (i >= shown)
                continue;
            row |= dot->geometry();
            EXPECT_EQ(dot->property("class").toString(), i == wide ? "navdot-active" : "navdot");
            EXPECT_EQ(dot->width() > dot->height(), i == wide);
        }
        // Centred, with room kept for the wide dot.
        EXPECT_TRUE(wide < 0 || row.left() == dots.width() - 1 - row.right()) << row.left();
    }
}

// The arrows stay tappable at a group's ends; only their drawing tells.
TEST(SubmenuArrows, DrawTheGroupsEndsAndReportTaps)
{
    QWidget window;
    SubmenuArrowsComponent arrows(&window);
    QPushButton* left = arrows.leftButton();
    QPushButton* right = arrows.rightButton();
    auto draws = [](QPushButton* button, const char* file) {
        const QSize size = button->iconSize();
        return button->icon().pixmap(size).toImage()
               == QIcon(QStringLiteral(":/icons/general/%1.svg").arg(file)).pixmap(size).toImage();
    };
    arrows.updateState(true, true, false);
    EXPECT_TRUE(draws(left, "left_out") && draws(right, "right"));
    left->setIcon(QIcon());
    arrows.updateState(true, true, false);
    EXPECT_TRUE(left->icon().isNull()) << "unchanged ends set no icon";
    arrows.updateState(true, false, true);
    EXPECT_TRUE(draws(left, "left") && draws(right, "right_out"));
    const auto leftTaps = spyOn(&arrows, "leftClicked");
    const auto rightTaps = spyOn(&arrows, "rightClicked");
    right->click();
    left->click();
    left->click();
    EXPECT_EQ(QVector<int>({leftTaps->count(), rightTaps->count()}), QVector<int>({2, 1}));
    arrows.hideArrows(); // forgets what was drawn
    left->setIcon(QIcon());
    arrows.updateState(true, false, true);
    EXPECT_TRUE(draws(left, "left"));
    arrows.updateState(false, false, false);
    EXPECT_TRUE(left->isHidden() && right->isHidden());
}

TEST(CardLook, StateRestylesButtonIconAndTextAndMayChangeTheTapping)
{
    QWidget page;
    applyTheme(&page, "black");
    const auto item = SubmenuButtonGroupComponent::createButton(&page, ":/icons/general/left.svg");
    item.label->ensurePolished();
    QColor previous = textColour(item.label);
    // Enabled: 0 no, 1 yes, -1 as it was.
    const std::tuple<const char*, int, bool> cases[] = {
        {"disabled", 0, false}, {"active", -1, false}, {"normal", 1, true}};
    for (const auto& [state, enabled, tappable] : cases) {
        SubmenuButtonGroupComponent::setItemState(item, state, enabled);
        EXPECT_EQ(item.button->isEnabled(), tappable) << state;
        EXPECT_EQ(stateOf(item.button, "btn-state"), state);
        EXPECT_EQ(stateOf(item.icon, "icon-state"), state);
        EXPECT_EQ(stateOf(item.label, "text-state"), state);
        EXPECT_NE(textColour(item.label), previous) << "the sheet's rule for " << state;
        previous = textColour(item.label);
    }
}

} // namespace
