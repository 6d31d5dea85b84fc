// What the window does with the controls of its pages: taps reach the
// control layer only through its gates, and the page marks of dropped or
// refused taps go. The controls' effects on the device are end-to-end tests.
#include "panel_window.h"

#include "control/async_control_runner.h"
#include "pages/network_settings_page_widget.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

class ShellControls : public PanelTest {
protected:
    // Shows `page` once the model has delivered the device's state to it.
    void show(
        int page, const std::function<bool()>& ready = [] { return true; })
    {
        w().goto_page(page);
        ASSERT_EQ(panel.shownPageId(), page);
        ASSERT_TRUE(panel.tickUntil(ready));
    }
    bool settled()
    {
        return testsupport::waitUntil([&] {
            return !w().controlRunner()->isControlRequestActive() && !w().isOperationInProgress();
        });
    }
};

} // namespace

TEST_F(ShellControls, TapChangesTheDeviceAndTheCardHoldsTheNextTap)
{
    const int before = panel.deviceInt("/video/output/loop_out_switch");
    show(PAGE_VIDEO_SETTINGS_1,
         [&] { return w().appManager()->getVideoSettingsPageVm().loop_out_on == (before == 1); });
    QPushButton* loop = settingsCard(w(), PAGE_VIDEO_SETTINGS_1, "video_settings.loop_out");
    panel.tap(loop);
    EXPECT_EQ(panel.deviceInt("/video/output/loop_out_switch"), 1 - before);
    EXPECT_TRUE(panel.cardShows("point_info.succeed"));
    panel.tap(loop);
    EXPECT_EQ(panel.deviceInt("/video/output/loop_out_switch"), 1 - before)
        << "while the card stands a tap doesn't reach the page";
}

TEST_F(ShellControls, DroppedOrRefusedNetworkSwitchLosesItsPendingMark)
{
    auto* page =
        static_cast<NetworkSettingsPage2Widget*>(w().pageid_to_widget(PAGE_NETWORK_SETTINGS_2));
    show(PAGE_NETWORK_SETTINGS_2);
    QPushButton* ap = settingsCard(w(), PAGE_NETWORK_SETTINGS_2, "network_settings.ap");
    QPushButton* wlan = settingsCard(w(), PAGE_NETWORK_SETTINGS_2, "network_settings.wlan");
    const int wifi = panel.deviceInt("/network/wifi/switch");
    panel.sim().require("delay ap_switch 600");
    // Two quick taps pass the window's gates before either click has run.
    w().button_tap(ap);
    w().button_tap(wlan);
    QCoreApplication::processEvents();
    EXPECT_TRUE(panel.cardShows("point_info.loading"));
    EXPECT_FALSE(page->isWlanPending()) << "the dropped tap's mark is gone";
    ASSERT_TRUE(settled());
    EXPECT_EQ(panel.deviceInt("/network/wifi/switch"), wifi) << "the dropped tap sent nothing";
    w().onTouchBeginReq();

    panel.sim().require("status wifi_switch 70016");
    panel.tap(wlan);
    EXPECT_TRUE(page->isWlanPending());
    ASSERT_TRUE(settled());
    EXPECT_TRUE(panel.cardShows("point_info.network_no_wifi_module"));
    EXPECT_FALSE(page->isWlanPending());
}
