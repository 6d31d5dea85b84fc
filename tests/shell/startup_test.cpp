// Start-up of the window: its surfaces, the splash hand-over, the first page
// it chooses and the theme it starts with.
#include "panel_window.h"

#include "input/touch_event_handler.h"
#include "pages/splash_overlay_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/upgrade_widget.h"

#include <QStackedWidget>
#include <gtest/gtest.h>

using namespace shelltest;

TEST(ShellStartup, SplashGivesWayToTheFirstStatusPageOnceDataIsReady)
{
    PanelWindow panel;
    Widget& w = panel.w();
    if (w.isSplashVisible()) {
        EXPECT_EQ(w.touchHandler()->attachedTarget(), nullptr) << "no touch behind the splash";
    }
    // The stack order differs from the ids from the shortcut list on; standby
    // is a surface of the whole window, above the chrome.
    for (int id = 0; id <= PAGE_DECODER_SHORTCUT_3; ++id)
        EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(id)), id) << id;
    EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(PAGE_SHORTCUT)), 27);
    EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(PAGE_GENERAL_CONFIRM)), 31);
    for (int unused : {31, 33, 35, -1})
        EXPECT_EQ(w.pageid_to_widget(unused), nullptr) << unused;
    EXPECT_EQ(w.pageid_to_widget(PAGE_STANDBY)->parentWidget(), &w);
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

TEST(ShellStartup, FirstUseOpensTheConnectPageEvenWithTheLcdLocked)
{
    PanelOptions options;
    options.prepare = [](testsupport::SimFixture& sim) {
        sim.require("set /system/app_first_use_flag 0");
        sim.require("set /lcd/lock_stat 1");
    };
    PanelWindow panel(options);
    ASSERT_TRUE(panel.waitForMainUi());
    Widget& w = panel.w();
    // A lock otherwise sends every page home; the phone must still pair.
    EXPECT_TRUE(w.is_lcd_touch_locked());
    panel.tick();
    EXPECT_EQ(panel.shownPageId(), PAGE_CONNECT_APP);
    // Asking for another page ends the exception.
    w.goto_page(PAGE_MAIN_MENU_1);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
    w.goto_page(PAGE_CONNECT_APP);
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
