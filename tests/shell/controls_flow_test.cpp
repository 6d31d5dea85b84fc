// The controls of the pages as the running panel carries them out: a tap on
// a page of the window changes the simulated device and the operation card
// tells how it went, for the quick switches, the slow ones on the thread
// pool, the lists of the shortcut pages and the record button.
#include "panel_controls.h"

#include "control/async_control_runner.h"
#include "model/app_manager.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/network_settings_page_widget.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

class ShellControls : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.waitForMainUi()); }
    Widget& w() { return rig.panel(); }

    // Shows a settings page once its card `key` shows `look`.
    void showCard(int page, const char* key, const char* look)
    {
        ASSERT_TRUE(
            showPageWhen(rig, page, [&] { return settingsCardLook(w(), page, key) == look; }))
            << key << " never showed " << look;
    }
    void expectCard(OperationStateType state, const char* key)
    {
        EXPECT_EQ(cardState(w()), state) << cardText(w()).toStdString();
        EXPECT_EQ(cardText(w()).toStdString(), text(w(), key).toStdString());
    }
    void enterDecodeMode()
    {
        rig.control("workmode 1");
        ASSERT_TRUE(rig.tickUntil([&] { return w().workMode() == 1; }));
    }

    PanelRig rig;
};

} // namespace

TEST_F(ShellControls, QuickSwitchesChangeTheDeviceAndShowSuccess)
{
    showCard(PAGE_CAMERA_SETTINGS_2, "camera_settings.tally_enable", "active");
    tap(w(), settingsCard(w(), PAGE_CAMERA_SETTINGS_2, "camera_settings.tally_enable"));
    EXPECT_EQ(deviceInt(rig, "/system/tally/switch"), 0);
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
    rig.screenshot("card_success");
    // The page learns the new state from the model, not from the tap.
    EXPECT_TRUE(rig.tickUntil([&] {
        return settingsCardLook(w(), PAGE_CAMERA_SETTINGS_2, "camera_settings.tally_enable")
               == "normal";
    }));

    touch(w());
    EXPECT_FALSE(cardVisible(w())) << "a touch takes the result card away";

    showCard(PAGE_VIDEO_SETTINGS_1, "video_settings.loop_out", "normal");
    QPushButton* loop = settingsCard(w(), PAGE_VIDEO_SETTINGS_1, "video_settings.loop_out");
    tap(w(), loop);
    EXPECT_EQ(deviceInt(rig, "/video/output/loop_out_switch"), 1);
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
    // While the card stands a tap doesn't reach the page.
    tap(w(), loop);
    EXPECT_EQ(deviceInt(rig, "/video/output/loop_out_switch"), 1);

    touch(w());
    ASSERT_TRUE(showPageWhen(rig, PAGE_ENCODER_SHORTCUT_2,
                             [&] { return listRow(w(), PAGE_ENCODER_SHORTCUT_2, 2) != nullptr; }));
    tap(w(), listRow(w(), PAGE_ENCODER_SHORTCUT_2, 1));
    EXPECT_EQ(deviceInt(rig, "/osd/osd_layout/1/switch"), 1);
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
}

TEST_F(ShellControls, RefusalsShowTheirMappedTextAndConflictsWarnWithoutARequest)
{
    rig.control("status set_layout_switch 120002");
    ASSERT_TRUE(showPageWhen(rig, PAGE_ENCODER_SHORTCUT_2,
                             [&] { return listRow(w(), PAGE_ENCODER_SHORTCUT_2, 2) != nullptr; }));
    tap(w(), listRow(w(), PAGE_ENCODER_SHORTCUT_2, 2));
    expectCard(OPERATION_FAILED, "point_info.invalid_param");
    EXPECT_EQ(deviceInt(rig, "/osd/osd_layout/2/switch"), 0);
    rig.screenshot("card_failed");
    touch(w());

    // NDI and push streams exclude each other: the panel says so and sends
    // nothing.
    rig.control("set /stream/publish/0/switch 1");
    showCard(PAGE_MEDIA_SETTINGS_2, "media_settings.ndi_switch", "normal");
    ASSERT_TRUE(rig.tickUntil([&] {
        const EncoderShortcutPageVM vm = w().appManager()->buildEncoderShortcutPageVm(nullptr);
        return !vm.push_streams.isEmpty() && vm.push_streams.front().switch_on;
    }));
    tap(w(), settingsCard(w(), PAGE_MEDIA_SETTINGS_2, "media_settings.ndi_switch"));
    expectCard(OPERATION_WARNING, "point_info.stream_ndi_conflict");
    EXPECT_EQ(deviceInt(rig, "/video/ndi/switch"), 0);
    rig.screenshot("card_warning");
}

TEST_F(ShellControls, GreenScreenAbove1080pWarnsAfterTheSwitchWentThrough)
{
    rig.control("set /video/venc/0/width 3840");
    rig.control("set /video/venc/0/height 2160");
    showCard(PAGE_VIDEO_SETTINGS_2, "video_settings.green_screen", "normal");
    ASSERT_TRUE(rig.tickUntil([&] {
        const auto venc = w().appManager()->getVencDataCached();
        return !venc.empty() && venc.front().width == 3840;
    }));
    tap(w(), settingsCard(w(), PAGE_VIDEO_SETTINGS_2, "video_settings.green_screen"));
    ASSERT_TRUE(waitUntilSettled(w()));
    expectCard(OPERATION_WARNING, "video_settings.gsk_resolution_invalid");
    EXPECT_EQ(deviceInt(rig, "/ai/matting/im_enable"), 1);
}

TEST_F(ShellControls, SlowSwitchShowsLoadingAndDropsTheTapsThatFollow)
{
    enterDecodeMode();
    rig.control("delay server_switch 600");
    showCard(PAGE_DECODING_SETTINGS, "decoding_settings.srt_server", "normal");
    QPushButton* srt = settingsCard(w(), PAGE_DECODING_SETTINGS, "decoding_settings.srt_server");
    QPushButton* rtmp = settingsCard(w(), PAGE_DECODING_SETTINGS, "decoding_settings.rtmp_server");
    // Two quick taps pass the window's gates before either click has run.
    w().button_tap(srt);
    w().button_tap(rtmp);
    QCoreApplication::processEvents();
    EXPECT_TRUE(w().isOperationInProgress());
    expectCard(OPERATION_LOADING, "point_info.loading");
    rig.screenshot("card_loading");
    // While the card stands, taps and swipes don't reach the page.
    tap(w(), rtmp);
    w().swipe_left();
    EXPECT_EQ(rig.shownPageId(), PAGE_DECODING_SETTINGS);

    ASSERT_TRUE(waitUntilSettled(w()));
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
    EXPECT_EQ(deviceInt(rig, "/decoder/srt_server/server_switch"), 1);
    EXPECT_EQ(deviceInt(rig, "/decoder/rtmp_server/switch"), 0) << "the second tap sent nothing";
    EXPECT_TRUE(rig.tickUntil([&] {
        return settingsCardLook(w(), PAGE_DECODING_SETTINGS, "decoding_settings.srt_server")
               == "active";
    }));
}

TEST_F(ShellControls, TimeOutShowsTheFailureText)
{
    rig.control("hang play_switch 5000");
    showCard(PAGE_DECODING_SETTINGS, "decoding_settings.rtmp_server", "normal");
    tap(w(), settingsCard(w(), PAGE_DECODING_SETTINGS, "decoding_settings.rtmp_server"));
    EXPECT_TRUE(w().isOperationInProgress());
    ASSERT_TRUE(waitUntilSettled(w(), std::chrono::milliseconds(9000)));
    expectCard(OPERATION_FAILED, "point_info.failed");
}

TEST_F(ShellControls, NetworkSwitchLosesItsPendingMarkWhenRefused)
{
    rig.control("status wifi_switch 70016");
    showCard(PAGE_NETWORK_SETTINGS_2, "network_settings.wlan", "active");
    auto* page =
        static_cast<NetworkSettingsPage2Widget*>(w().pageid_to_widget(PAGE_NETWORK_SETTINGS_2));
    tap(w(), settingsCard(w(), PAGE_NETWORK_SETTINGS_2, "network_settings.wlan"));
    EXPECT_TRUE(page->isWlanPending());
    ASSERT_TRUE(waitUntilSettled(w()));
    expectCard(OPERATION_FAILED, "point_info.network_no_wifi_module");
    EXPECT_FALSE(page->isWlanPending());
    EXPECT_EQ(deviceInt(rig, "/network/wifi/switch"), 1);
}

TEST_F(ShellControls, PushStreamCardWaitsUntilTheStreamTopicShowsTheChange)
{
    ASSERT_TRUE(showPageWhen(rig, PAGE_ENCODER_SHORTCUT_3,
                             [&] { return listRow(w(), PAGE_ENCODER_SHORTCUT_3, 2) != nullptr; }));
    rig.control("silence stream");
    tap(w(), listRow(w(), PAGE_ENCODER_SHORTCUT_3, 1));
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return !w().controlRunner()->isControlRequestActive(); }));
    EXPECT_EQ(deviceInt(rig, "/stream/publish/1/switch"), 1);
    EXPECT_EQ(w().controlRunner()->pendingPushIndex(), 1);
    // The device accepted, but until the stream reports its new state the
    // card goes on saying that the operation runs.
    EXPECT_FALSE(rig.tickUntil([&] { return !w().isOperationInProgress(); },
                               std::chrono::milliseconds(800)));

    rig.control("unsilence stream");
    ASSERT_TRUE(rig.tickUntil([&] { return !w().isOperationInProgress(); }));
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
    EXPECT_EQ(w().controlRunner()->pendingPushIndex(), -1);
}

TEST_F(ShellControls, PushStreamResultShowsAtOnceWhenItsPageWasLeft)
{
    rig.control("delay update_publish_switch 400");
    rig.control("silence stream");
    ASSERT_TRUE(showPageWhen(rig, PAGE_ENCODER_SHORTCUT_3,
                             [&] { return listRow(w(), PAGE_ENCODER_SHORTCUT_3, 0) != nullptr; }));
    tap(w(), listRow(w(), PAGE_ENCODER_SHORTCUT_3, 0));
    w().goto_page(PAGE_STATUS_1);
    ASSERT_TRUE(waitUntilSettled(w()));
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
    EXPECT_EQ(deviceInt(rig, "/stream/publish/0/switch"), 1);
}

TEST_F(ShellControls, DecoderListsSwitchSourcesOnTheirOwnPages)
{
    enterDecodeMode();
    ASSERT_TRUE(showPageWhen(rig, PAGE_DECODER_SHORTCUT_1,
                             [&] { return listRow(w(), PAGE_DECODER_SHORTCUT_1, 1) != nullptr; }));
    tap(w(), listRow(w(), PAGE_DECODER_SHORTCUT_1, 0));
    ASSERT_TRUE(waitUntilSettled(w()));
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
    EXPECT_EQ(deviceInt(rig, "/decoder/net_streams/0/switch"), 1);
    touch(w());

    rig.control("set /decoder/uvc_list/1/switch 1");
    ASSERT_TRUE(showPageWhen(rig, PAGE_DECODER_SHORTCUT_2, [&] {
        const auto items = w().appManager()->getDecoderShortcutPageVm().uvc_items;
        return items.size() == 2 && items[1].is_on;
    }));
    tap(w(), listRow(w(), PAGE_DECODER_SHORTCUT_2, 1));
    ASSERT_TRUE(waitUntilSettled(w()));
    expectCard(OPERATION_SUCCESS, "point_info.succeed");
    EXPECT_EQ(deviceInt(rig, "/decoder/uvc_list/1/switch"), 0);
}

TEST(ShellRecordButton, StartsBeforeTheRecordTopicHasReported)
{
    RigOptions options;
    options.prepare = [](sim::Simulator& simulator) { simulator.control("silence record"); };
    PanelRig rig(options);
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    ASSERT_TRUE(showPageWhen(rig, PAGE_ENCODER_SHORTCUT_1, [&] {
        return w.appManager()->buildEncoderShortcutPageVm(nullptr).disk_type == 0;
    }));
    EXPECT_EQ(w.appManager()->getEncoderShortcutPageVm().record_task_id, "sdcard_0")
        << "the disk's own task stands in for the one the topic would report";
    auto* page =
        static_cast<EncoderShortcutPage1Widget*>(w.pageid_to_widget(PAGE_ENCODER_SHORTCUT_1));
    tap(w, page->recordButton());
    ASSERT_TRUE(waitUntilSettled(w));
    EXPECT_EQ(cardState(w), OPERATION_SUCCESS) << cardText(w).toStdString();
    EXPECT_EQ(deviceInt(rig, "/record/tasks/0/status"), 1);
}
