// The one-second cycle against a live simulator: deliveries only when the
// model changed, the forced redraw after a language change, and the connect
// page closing itself after the phone paired.
#include "shell_rig.h"

#include "pages/basic_page.h"
#include "pages/status_bar_widget.h"
#include "ui/text_manager.h"

#include <QSignalSpy>
#include <QTimer>
#include <gtest/gtest.h>

using shelltest::PanelRig;

namespace {

class ShellRefresh : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.waitForMainUi()); }
    Widget& w() { return rig.panel(); }

    // Ticks until one passes without a delivery on `spy`.
    bool settle(QSignalSpy& spy)
    {
        return rig.tickUntil([&] {
            const int before = spy.count();
            rig.tick();
            return spy.count() == before;
        });
    }

    PanelRig rig;
};

} // namespace

TEST_F(ShellRefresh, OnlyAChangedModelReachesThePage)
{
    QSignalSpy deliveries(&w(), &Widget::requestStatusPage1Update);
    // CPU load and rates move all the time on the simulated device.
    ASSERT_TRUE(rig.tickUntil([&] { return deliveries.count() >= 2; }));

    rig.control("silence topic_cpu_memory_info");
    ASSERT_TRUE(settle(deliveries));
    deliveries.clear();
    for (int i = 0; i < 3; ++i)
        rig.tick();
    EXPECT_EQ(deliveries.count(), 0) << "unchanged data must not repaint";

    rig.control("unsilence topic_cpu_memory_info");
    EXPECT_TRUE(rig.tickUntil([&] { return deliveries.count() >= 1; }));
}

TEST_F(ShellRefresh, ALanguageChangeRedrawsThePageOnScreenAndMarksTheOthers)
{
    w().goto_page(PAGE_MAIN_MENU_2);
    w().goto_page(PAGE_SYSTEM_SETTINGS_1);
    QSignalSpy deliveries(&w(), &Widget::requestSystemSettingsPage1Update);
    QSignalSpy bar(&w(), &Widget::requestStatusBarUpdate);
    ASSERT_TRUE(settle(deliveries));
    auto* menu2 = dynamic_cast<BasicPage*>(w().pageid_to_widget(PAGE_MAIN_MENU_2));
    ASSERT_NE(menu2, nullptr);
    EXPECT_FALSE(menu2->isDirty()) << "a visited page has its texts";

    const QString english_title = w().textManager()->getTextWithFallback("mainmenu.system");
    rig.control("set /system/language_id 3");
    // The switch itself arrives on a topic, between ticks.
    ASSERT_TRUE(testsupport::waitUntil(
        [&] { return w().textManager()->getCurrentLanguage() == 3 && w().isForcePageRefresh(); }));
    // The next tick delivers although the data is the same.
    deliveries.clear();
    bar.clear();
    rig.tick();
    EXPECT_FALSE(w().isForcePageRefresh());
    EXPECT_EQ(deliveries.count(), 1);
    EXPECT_EQ(bar.count(), 1);
    const QString french_title = w().textManager()->getTextWithFallback("mainmenu.system");
    EXPECT_NE(french_title, english_title);
    EXPECT_TRUE(shelltest::showsText(w().statusBar(), french_title));
    // Pages not on screen renew their texts when they are next shown.
    EXPECT_TRUE(menu2->isDirty());
    w().goto_page(PAGE_MAIN_MENU_2);
    EXPECT_FALSE(menu2->isDirty());
    rig.screenshot("language_french_menu2");
}

TEST_F(ShellRefresh, TheConnectPageClosesOnceThePhoneHasPaired)
{
    w().goto_page(PAGE_CONNECT_APP);
    ASSERT_EQ(rig.shownPageId(), PAGE_CONNECT_APP);
    QTimer* exit_timer = w().appConnectExitTimer();
    rig.tick();
    EXPECT_FALSE(exit_timer->isActive());

    rig.control("app-status 4");
    ASSERT_TRUE(rig.tickUntil([&] { return exit_timer->isActive(); }));
    rig.screenshot("connect_app_paired");
    // Further ticks don't restart it: the first start stands.
    const int remaining = exit_timer->remainingTime();
    rig.tick();
    EXPECT_LE(exit_timer->remainingTime(), remaining);

    ASSERT_TRUE(testsupport::waitUntil([&] { return rig.shownPageId() == PAGE_STATUS_1; },
                                       std::chrono::milliseconds(4000)));
    EXPECT_EQ(rig.simulator().state().at("/system/app_connection_status").get<int>(), 0);
}

TEST_F(ShellRefresh, LeavingTheConnectPageResetsThePairingState)
{
    w().goto_page(PAGE_CONNECT_APP);
    rig.control("app-status 2");
    w().swipe_up();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(rig.simulator().state().at("/system/app_connection_status").get<int>(), 0);
}

TEST_F(ShellRefresh, ModalPagesKeepTheirOwnStateBetweenTicks)
{
    w().enterSliderMode(0, PAGE_CAMERA_SETTINGS_3, 40);
    ASSERT_EQ(rig.shownPageId(), PAGE_GENERAL_SLIDER);
    QSignalSpy deliveries(&w(), &Widget::requestSliderModePageUpdate);
    QSignalSpy beneath(&w(), &Widget::requestCameraSettingsPage3Update);
    for (int i = 0; i < 3; ++i)
        rig.tick();
    EXPECT_EQ(deliveries.count(), 0);
    EXPECT_EQ(beneath.count(), 0);
}

TEST_F(ShellRefresh, RefreshOfUnusedIdsDeliversNothing)
{
    QSignalSpy anyPage(&w(), &Widget::requestStatusPage1Update);
    w().doPageRefresh(31);
    w().doPageRefresh(33);
    w().doPageRefresh(99);
    EXPECT_EQ(anyPage.count(), 0);
    w().doPageRefresh(PAGE_STATUS_1);
    EXPECT_EQ(anyPage.count(), 1);
}
