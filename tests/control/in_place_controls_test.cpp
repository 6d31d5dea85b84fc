// The in-place controls as the window wires them, on the panel's full model
// link against the simulator: each tap changes the device and shows its card.
#include "control/in_place_controls.h"
#include "control/manual_time_source.h"
#include "control_sim_backend.h"
#include "control_test_kit.h"

#include <QLabel>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace controltest;
using testsupport::waitUntil;

namespace {

class PanelControls : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(waitUntil([&] { return app->isDataReady(); }));
    }

    void showPage(int page)
    {
        page_on_screen = page;
        app->setCurrentPageContext(page, -1);
    }
    // The card that ends a tap: after a slow job, once the job is done.
    bool settled() const
    {
        return !runner.isControlRequestActive() && !feedback.isOperationInProgress();
    }
    QString shownText() const { return host.overlay->textLabel()->text(); }
    OperationStateType cardState() const { return host.overlay->state(); }

    SimBackend backend;
    std::unique_ptr<AppManager> app = backend.fullAppManager();
    OverlayHost host;
    ManualTimeSource time;
    OperationFeedback feedback{host.overlay, englishTranslate(), time};
    int page_on_screen = 0;
    AsyncControlRunner runner{feedback, [this] { return page_on_screen; }};
    InPlaceControls controls{app.get(), feedback, runner};
};

} // namespace

TEST_F(PanelControls, GreenScreenAbove1080pWarnsAfterSuccessAndAt1080pJustSucceeds)
{
    showPage(16);
    ASSERT_TRUE(waitUntil([&] {
        const auto venc = app->getVencDataCached();
        return !venc.empty() && venc.front().width == 1920
               && app->buildVideoSettingsPageVm(nullptr).gsk_bg_count > 0;
    }));
    controls.greenScreenClicked(false);
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(cardState(), OPERATION_SUCCESS);
    EXPECT_EQ(backend.at("/ai/matting/im_enable"), 1);

    controls.greenScreenClicked(true);
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(backend.at("/ai/matting/im_enable"), 0);

    backend.control("set /video/venc/0/width 3840");
    backend.control("set /video/venc/0/height 2160");
    ASSERT_TRUE(waitUntil([&] { return app->getVencDataCached().front().width == 3840; }));
    controls.greenScreenClicked(false);
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(cardState(), OPERATION_WARNING);
    EXPECT_EQ(shownText(), english("video_settings.gsk_resolution_invalid"));
    EXPECT_EQ(backend.at("/ai/matting/im_enable"), 1)
        << "the warning doesn't hold the request back";
}

TEST_F(PanelControls, GreenScreenWithoutBackdropFailsWithoutARequest)
{
    backend.control("set /ai/matting/user_bgfile_list []");
    showPage(16);
    ASSERT_TRUE(waitUntil([&] {
        bool changed = false;
        app->buildVideoSettingsPageVm(&changed);
        return app->getVideoSettingsPageVm().gsk_bg_count == 0 && !app->getVencDataCached().empty();
    }));
    const int before = backend.requestsOf("/ai/image_matting/im_enable");
    controls.greenScreenClicked(false);
    EXPECT_EQ(cardState(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("video_settings.no_backdrop"));
    EXPECT_EQ(backend.requestsOf("/ai/image_matting/im_enable"), before);
}

TEST_F(PanelControls, NasMountIsRefusedWhileAnotherShareIsMounted)
{
    showPage(11);
    ASSERT_TRUE(
        waitUntil([&] { return app->buildNetworkSettingsPageVm(nullptr).nas_list.size() == 2; }));
    controls.nasClicked(1, false);
    EXPECT_EQ(cardState(), OPERATION_WARNING);
    EXPECT_EQ(shownText(), english("point_info.nas_already_opened"));
    EXPECT_EQ(backend.requestsOf("nas_mount"), 0);

    controls.nasClicked(0, true);
    EXPECT_EQ(cardState(), OPERATION_SUCCESS);
    EXPECT_EQ(backend.at("/storage/nas/0/switch"), 0);
    ASSERT_TRUE(
        waitUntil([&] { return !app->buildNetworkSettingsPageVm(nullptr).nas_list[0].switch_on; }));
    controls.nasClicked(1, false);
    EXPECT_EQ(cardState(), OPERATION_SUCCESS);
    EXPECT_EQ(backend.at("/storage/nas/1/switch"), 1);
    EXPECT_EQ(backend.requestsOf("nas_mount"), 1);
}

TEST_F(PanelControls, StreamAndNdiExcludeEachOther)
{
    backend.control("set /video/ndi/switch 1");
    ASSERT_TRUE(waitUntil([&] { return app->buildMediaSettingsPageVm(nullptr).ndi_on; }));
    ASSERT_TRUE(waitUntil(
        [&] { return app->buildEncoderShortcutPageVm(nullptr).push_streams.size() == 3; }));
    controls.pushStreamItemClicked(0, false);
    EXPECT_EQ(cardState(), OPERATION_WARNING);
    EXPECT_EQ(shownText(), english("point_info.close_ndi_before_stream"));
    EXPECT_EQ(runner.pendingPushIndex(), -1);

    controls.ndiSwitchClicked(true);
    EXPECT_EQ(backend.at("/video/ndi/switch"), 0);
    ASSERT_TRUE(waitUntil([&] { return !app->buildMediaSettingsPageVm(nullptr).ndi_on; }));

    showPage(23);
    controls.pushStreamItemClicked(0, false);
    ASSERT_TRUE(waitUntil([&] {
        return runner.finishPendingPushStreamSwitchIfReady(
            app->buildEncoderShortcutPageVm(nullptr));
    }));
    EXPECT_EQ(cardState(), OPERATION_SUCCESS);

    controls.ndiSwitchClicked(false);
    EXPECT_EQ(cardState(), OPERATION_WARNING);
    EXPECT_EQ(shownText(), english("point_info.stream_ndi_conflict"));
    EXPECT_EQ(backend.at("/video/ndi/switch"), 0);
}

TEST_F(PanelControls, SecondSlowTapWhileOneRunsIsDroppedAndReported)
{
    QSignalSpy dropped(&controls, &InPlaceControls::asyncRequestDropped);
    backend.control("delay ap_switch 300");
    controls.apClicked(true);
    EXPECT_TRUE(feedback.isOperationInProgress());
    controls.wlanClicked(false);
    ASSERT_EQ(dropped.count(), 1);
    EXPECT_EQ(dropped.at(0).at(0).toInt(), 10);
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(backend.at("/network/ap/switch"), 1);
    EXPECT_EQ(backend.at("/network/wifi/switch"), 1) << "the dropped tap sent nothing";
}

TEST_F(PanelControls, RecordButtonStartsAndStopsTheRecording)
{
    showPage(21);
    ASSERT_TRUE(waitUntil([&] {
        const EncoderShortcutPageVM vm = app->buildEncoderShortcutPageVm(nullptr);
        return vm.disk_type == 0 && vm.record_task_id == "sdcard_0" && app->getDiskStatus(0) == 1;
    }));
    controls.recordClicked();
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(cardState(), OPERATION_SUCCESS) << shownText().toStdString();
    EXPECT_EQ(backend.at("/record/tasks/0/status"), 1);

    ASSERT_TRUE(
        waitUntil([&] { return app->buildEncoderShortcutPageVm(nullptr).record_status == 1; }));
    controls.pauseClicked();
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(backend.at("/record/tasks/0/status"), 2);

    controls.recordClicked();
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(backend.at("/record/tasks/0/status"), 0);
}

TEST_F(PanelControls, RecordButtonExplainsAFullDisk)
{
    showPage(21);
    backend.control("fill-disk 0");
    ASSERT_TRUE(waitUntil([&] { return app->getDiskStatus(0) == 2; }));
    controls.recordClicked();
    EXPECT_EQ(cardState(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.disk_full"));
    EXPECT_EQ(backend.requestsOf("set_task_enable"), 0);
    backend.control("set /storage/disks/0/freespace 1000");
    backend.control("set /storage/disks/0/status 1");
    ASSERT_TRUE(waitUntil([&] { return app->getDiskStatus(0) == 1; }));
    controls.recordClicked();
    ASSERT_TRUE(waitUntil([&] { return settled(); }));
    EXPECT_EQ(backend.requestsOf("set_task_enable"), 1);
}

TEST_F(PanelControls, DeviceRefusalShowsItsMappedText)
{
    backend.control("status set_layout_switch 120002");
    ASSERT_TRUE(
        waitUntil([&] { return app->buildEncoderShortcutPageVm(nullptr).osd_items.size() == 3; }));
    controls.osdItemClicked(2, false);
    EXPECT_EQ(cardState(), OPERATION_FAILED);
    EXPECT_EQ(shownText(), english("point_info.invalid_param"));
    EXPECT_EQ(backend.at("/osd/osd_layout/1/switch"), 0);
}

TEST_F(PanelControls, ShortcutKeysAskForConfirmationOrTheLock)
{
    QSignalSpy dialogs(&controls, &InPlaceControls::confirmDialogRequested);
    QSignalSpy locks(&controls, &InPlaceControls::lcdLockKeyPressed);
    controls.shortcutKeyClicked("Standby");
    controls.shortcutKeyClicked("Restart");
    controls.shortcutKeyClicked("LockLcd");
    controls.shortcutKeyClicked("Unknown");
    ASSERT_EQ(dialogs.count(), 2);
    EXPECT_EQ(dialogs.at(0), (QList<QVariant>{3, 34, 0, 1}));
    EXPECT_EQ(dialogs.at(1), (QList<QVariant>{1, 34, 0, 1}));
    EXPECT_EQ(locks.count(), 1);
    EXPECT_FALSE(feedback.isOperationOverlayActive());
}

TEST(PanelControlsWithoutModel, TapsDoNothing)
{
    OverlayHost host;
    OperationFeedback feedback(host.overlay, englishTranslate());
    AsyncControlRunner runner(feedback, [] { return 0; });
    InPlaceControls controls(nullptr, feedback, runner);
    controls.tallyEnableClicked(true);
    controls.recordClicked();
    controls.apClicked(true);
    controls.nasClicked(0, true);
    EXPECT_FALSE(feedback.isOperationOverlayActive());
    EXPECT_FALSE(runner.isControlRequestActive());
}
