// Start-up of the window: its surfaces, the splash hand-over, the first page
// and the theme it starts with.
#include "panel_window.h"

#include "input/touch_event_handler.h"
#include "pages/splash_overlay_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/upgrade_widget.h"

#include <gtest/gtest.h>

using namespace shelltest;

TEST(ShellStartup, SplashGivesWayToTheFirstStatusPageOnceDataIsReady)
{
    PanelWindow panel;
    Widget& w = panel.w();
    if (w.isSplashVisible()) {
        EXPECT_EQ(w.touchHandler()->attachedTarget(), nullptr) << "no touch behind the splash";
    }
    // Standby is a surface of the whole window above the chrome, and the
    // upgrade screen covers even standby.
    const QObjectList& layers = w.children();
    EXPECT_LT(layers.indexOf(w.chromeContainer()), layers.indexOf(w.standbyPage()));
    EXPECT_LT(layers.indexOf(w.standbyPage()), layers.indexOf(w.upgradePage()));

    ASSERT_TRUE(panel.waitForMainUi());
    EXPECT_TRUE(w.isDataReadyReported());
    EXPECT_FALSE(w.splashOverlay()->isVisible());
    EXPECT_TRUE(w.chromeContainer()->isVisible());
    EXPECT_EQ(w.touchHandler()->attachedTarget(), &w);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
}

TEST(ShellStartup, ThemeComesFromTheBackendAndUnknownOnesFallBackToBlack)
{
    QStringList sheets;
    for (const auto& [stored, expected] : std::vector<std::pair<int, int>>{{1, 1}, {2, 0}}) {
        PanelOptions options;
        options.prepare = [stored = stored](testsupport::SimFixture& sim) {
            sim.require("set /lcd/lcd_theme_id " + std::to_string(stored));
        };
        PanelWindow panel(options);
        EXPECT_EQ(panel.w().themeIndex(), expected) << "stored " << stored;
        sheets << panel.w().styleSheet();
    }
    EXPECT_FALSE(sheets.front().isEmpty());
    EXPECT_NE(sheets.front(), sheets.back());
}
