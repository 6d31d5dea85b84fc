// The gesture guide as the window offers it: once per guided kind and run,
// counted in the simulated backend up to its limit, and not over a card.
#include "shell_rig.h"

#include <QTimer>
#include <gtest/gtest.h>

using shelltest::PanelRig;
using shelltest::RigOptions;

namespace {

RigOptions guided(const std::string& record)
{
    RigOptions options;
    options.guides = true;
    options.prepare = [record](sim::Simulator& s) {
        s.control("set /lcd/gesture_guide " + record);
    };
    return options;
}

int shownCount(PanelRig& rig, int type)
{
    return rig.simulator()
        .state()
        .at("/lcd/gesture_guide/shown_counts/" + std::to_string(type))
        .get<int>();
}

} // namespace

TEST(ShellGuide, EachKindShowsOncePerRunAndIsCounted)
{
    PanelRig rig(guided(R"({"force_show":0,"shown_counts":[0,0,0,0,0,0,0],"max_count":3})"));
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    GestureGuideOverlayComponent* guide = w.gestureGuideOverlay();
    ASSERT_TRUE(testsupport::waitUntil([&] { return guide->isVisible(); }));
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_HOME), 1);
    EXPECT_EQ(guide->autoHideTimer()->interval(), 6000);

    // A change of page takes the guide away; the menu has its own.
    w.goto_page(PAGE_MAIN_MENU_1);
    ASSERT_TRUE(guide->isVisible());
    EXPECT_EQ(guide->itemWidgets().size(), 4);
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_MAIN_MENU), 1);
    rig.screenshot("guide_menu");
    w.hideGestureGuideOverlay();

    // Seen in this run: no second showing, no second count.
    w.goto_page(PAGE_STATUS_2);
    w.goto_page(PAGE_MAIN_MENU_2);
    EXPECT_FALSE(guide->isVisible());
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_HOME), 1);
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_MAIN_MENU), 1);
    EXPECT_TRUE(w.guidesSeen().contains(GESTURE_GUIDE_HOME));

    // Pages without a guide show none.
    w.goto_page(PAGE_SYSTEM_SETTINGS_1);
    EXPECT_FALSE(guide->isVisible());
}

TEST(ShellGuide, AKindAtItsLimitStaysAwayWhileOthersStillShow)
{
    PanelRig rig(guided(R"({"force_show":0,"shown_counts":[3,0,0,0,0,0,0],"max_count":3})"));
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    GestureGuideOverlayComponent* guide = w.gestureGuideOverlay();
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return w.guidesSeen().contains(GESTURE_GUIDE_HOME); }));
    EXPECT_FALSE(guide->isVisible());
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_HOME), 3);
    w.goto_page(PAGE_MAIN_MENU_1);
    EXPECT_TRUE(guide->isVisible());
}

TEST(ShellGuide, ForcedGuidesShowWithoutCounting)
{
    PanelRig rig(guided(R"({"force_show":1,"shown_counts":[9,9,0,0,0,0,0],"max_count":3})"));
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    ASSERT_TRUE(testsupport::waitUntil([&] { return w.gestureGuideOverlay()->isVisible(); }));
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_HOME), 9);
}

TEST(ShellGuide, NoGuideOverTheOperationCardButOneAfterAnUnlock)
{
    RigOptions options = guided(R"({"force_show":0,"shown_counts":[0,0,0,0,0,0,0],"max_count":3})");
    options.prepare = [](sim::Simulator& s) {
        s.control("set /lcd/gesture_guide/max_count 3");
        s.control("set /lcd/lock_stat 1");
    };
    PanelRig rig(options);
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    GestureGuideOverlayComponent* guide = w.gestureGuideOverlay();
    ASSERT_TRUE(w.is_lcd_touch_locked());
    // While locked the only guide is the unlock hint, and only on request.
    rig.tick();
    EXPECT_FALSE(guide->isVisible());
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_HOME), 0);

    w.long_press(QPointF(320, 86));
    ASSERT_TRUE(w.isOperationOverlayActive());
    w.goto_page(PAGE_STATUS_1);
    EXPECT_FALSE(guide->isVisible()) << "the card comes first";
    // When the card goes, the page's own guide follows.
    w.hideOperationOverlay();
    EXPECT_TRUE(guide->isVisible());
    EXPECT_EQ(guide->itemWidgets().size(), 5);
    EXPECT_EQ(shownCount(rig, GESTURE_GUIDE_HOME), 1);
}
