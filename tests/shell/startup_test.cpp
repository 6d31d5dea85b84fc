// Start-up of the whole panel: the surfaces, the page table, the splash
// hand-over with and without a backend, and the first page it chooses.
#include "shell_rig.h"

#include "input/touch_event_handler.h"
#include "pages/connect_app_widget.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/splash_overlay_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/status_bar_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/upgrade_widget.h"
#include "ui/components/nav_dots_component.h"

#include <QLabel>
#include <QStackedWidget>
#include <QTimer>
#include <gtest/gtest.h>

#include <atomic>

using shelltest::PanelRig;
using shelltest::RigOptions;

namespace {

RigOptions firstUse()
{
    RigOptions options;
    options.prepare = [](sim::Simulator& s) { s.control("set /system/app_first_use_flag 0"); };
    return options;
}

} // namespace

TEST(ShellStartup, SurfacesStackAndPageTableAreBuiltOnce)
{
    PanelRig rig;
    Widget& w = rig.panel();
    EXPECT_EQ(w.size(), QSize(640, 172));
    EXPECT_EQ(w.cursor().shape(), Qt::BlankCursor);
    EXPECT_EQ(w.pageStack()->count(), 32);
    EXPECT_EQ(w.pageStack()->geometry(), QRect(0, 30, 640, 142));
    EXPECT_EQ(w.chromeContainer()->property("class").toString(), "widget1");

    // The stack order differs from the ids from 27 on.
    EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(PAGE_SHORTCUT)), 27);
    EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(PAGE_CONNECT_APP)), 28);
    EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(PAGE_GENERAL_EDIT)), 29);
    EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(PAGE_GENERAL_CONFIRM)), 31);
    for (int id = 0; id <= PAGE_DECODER_SHORTCUT_3; ++id)
        EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(id)), id) << id;

    EXPECT_EQ(w.pageid_to_widget(31), nullptr);
    EXPECT_EQ(w.pageid_to_widget(33), nullptr);
    EXPECT_EQ(w.pageid_to_widget(35), nullptr);
    EXPECT_EQ(w.pageid_to_widget(-1), nullptr);
    // Standby is a full-window surface, never part of the stack.
    ASSERT_NE(w.pageid_to_widget(PAGE_STANDBY), nullptr);
    EXPECT_EQ(w.pageStack()->indexOf(w.pageid_to_widget(PAGE_STANDBY)), -1);
    EXPECT_EQ(w.pageid_to_widget(PAGE_STANDBY)->parentWidget(), &w);

    // Bottom to top: splash, chrome, standby, upgrade, screensaver.
    const QObjectList& layers = w.children();
    const auto position = [&](QObject* o) { return layers.indexOf(o); };
    EXPECT_LT(position(w.splashOverlay()), position(w.chromeContainer()));
    EXPECT_LT(position(w.chromeContainer()), position(w.standbyPage()));
    EXPECT_LT(position(w.standbyPage()), position(w.upgradePage()));
    EXPECT_LT(position(w.upgradePage()), position(w.screensaverPage()));

    for (QPushButton* button : w.findChildren<QPushButton*>())
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
}

TEST(ShellStartup, SplashGivesWayToStatusPageOnceDataIsReady)
{
    RigOptions options;
    options.manual_ticks = false;
    PanelRig rig(options);
    Widget& w = rig.panel();
    // The refresh cycle already runs behind the splash.
    EXPECT_TRUE(w.pageRefreshTimer()->isActive());
    EXPECT_EQ(w.pageRefreshTimer()->interval(), 1000);
    // Until the hand-over no touch is wired.
    if (w.isSplashVisible()) {
        EXPECT_EQ(w.touchHandler()->attachedTarget(), nullptr);
    }

    ASSERT_TRUE(rig.waitForMainUi());
    EXPECT_TRUE(w.isDataReadyReported());
    EXPECT_TRUE(w.isSplashWaitFinished());
    EXPECT_FALSE(w.dataReadyTimer()->isActive());
    EXPECT_FALSE(w.splashOverlay()->isVisible());
    EXPECT_TRUE(w.chromeContainer()->isVisible());
    EXPECT_TRUE(w.statusBar()->isVisible());
    EXPECT_EQ(w.touchHandler()->attachedTarget(), &w);
    EXPECT_TRUE(w.testAttribute(Qt::WA_AcceptTouchEvents));

    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(w.get_current_pageid(), PAGE_STATUS_1);
    // The simulated device's name arrives on the first status page.
    EXPECT_TRUE(rig.tickUntil([&] { return shelltest::showsText(rig.shownPage(), "Vantor Box"); }));
    rig.screenshot("startup_status_page1");
}

TEST(ShellStartup, FirstUseOpensTheConnectPage)
{
    PanelRig rig(firstUse());
    ASSERT_TRUE(rig.waitForMainUi());
    EXPECT_EQ(rig.shownPageId(), PAGE_CONNECT_APP);
    EXPECT_FALSE(rig.panel().isFirstUseConnectBypass());
    rig.screenshot("startup_connect_app");
}

TEST(ShellStartup, FirstUseWithLockedLcdKeepsTheConnectPage)
{
    RigOptions options = firstUse();
    options.prepare = [](sim::Simulator& s) {
        s.control("set /system/app_first_use_flag 0");
        s.control("set /lcd/lock_stat 1");
    };
    PanelRig rig(options);
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    // A lock otherwise sends every page home; the phone must still pair.
    EXPECT_TRUE(w.is_lcd_touch_locked());
    EXPECT_TRUE(w.isFirstUseConnectBypass());
    rig.tick();
    rig.tick();
    EXPECT_EQ(rig.shownPageId(), PAGE_CONNECT_APP);
    // Asking for another page ends the exception.
    w.goto_page(PAGE_MAIN_MENU_1);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_FALSE(w.isFirstUseConnectBypass());
    w.goto_page(PAGE_CONNECT_APP);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
}

TEST(ShellStartup, WithoutBackendTheSplashWaitsOutItsTimeLimit)
{
    RigOptions options;
    options.with_backend = false;
    PanelRig rig(options);
    Widget& w = rig.panel();
    std::atomic<qint64> now{0};
    w.setSplashClock([&now] { return now.load(); });

    now = 4900;
    w.checkDataReady();
    EXPECT_TRUE(w.isSplashVisible());
    EXPECT_FALSE(w.isSplashWaitFinished());

    now = 5000;
    ASSERT_TRUE(rig.waitForMainUi());
    EXPECT_FALSE(w.isDataReadyReported());
    EXPECT_TRUE(w.isSplashWaitFinished());
    // The first-use flag can't be read, so the device is taken as new.
    EXPECT_EQ(rig.shownPageId(), PAGE_CONNECT_APP);
    EXPECT_EQ(w.touchHandler()->attachedTarget(), &w);
    rig.screenshot("startup_no_backend");
}

TEST(ShellStartup, ThemeComesFromTheBackend)
{
    struct Case {
        int stored;
        int expected;
    };
    for (const Case c : {Case{1, 1}, Case{0, 0}, Case{2, 0}, Case{-1, 0}}) {
        RigOptions options;
        options.prepare = [c](sim::Simulator& s) {
            s.control("set /lcd/lcd_theme_id " + std::to_string(c.stored));
        };
        PanelRig rig(options);
        EXPECT_EQ(rig.panel().themeIndex(), c.expected) << "stored " << c.stored;
        EXPECT_FALSE(rig.panel().styleSheet().isEmpty());
    }
}

TEST(ShellStartup, ThemesDifferAndAMissingOneKeepsTheCurrentSheet)
{
    PanelRig rig;
    Widget& w = rig.panel();
    w.apply_stylesheet("black");
    const QString black = w.styleSheet();
    w.apply_stylesheet("blue");
    const QString blue = w.styleSheet();
    EXPECT_FALSE(black.isEmpty());
    EXPECT_NE(black, blue);
    w.apply_stylesheet("no-such-theme");
    EXPECT_EQ(w.styleSheet(), blue);
}
