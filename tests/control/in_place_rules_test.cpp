// The decisions of the in-place controls: what each one asks for given the
// state its page shows, and, run against the simulator, that the operation
// it picked really moves the device the way the user meant.
#include "control/in_place_control_rules.h"
#include "control/record_button_rules.h"
#include "control_sim_backend.h"

#include <gtest/gtest.h>

using namespace controltest;
using Kind = ControlAction::Kind;
using nlohmann::json;

namespace {

struct CallCase {
    const char* name;
    ControlAction action;
    Kind kind;
    int refresh_page; // -1 for a call at once
    std::string pointer;
    json expected;
};

EncoderShortcutPageVM encoderWithPushStreams(bool secondOn)
{
    EncoderShortcutPageVM vm;
    vm.push_streams = {PushStreamItemInfo{0, "YouTube Live", false, 0, 0},
                       PushStreamItemInfo{1, "Twitch", secondOn, secondOn ? 1 : 0, 0}};
    vm.osd_items = {OsdItemInfo{1, "Logo", true, 1}, OsdItemInfo{2, "Lower third", false, 0}};
    return vm;
}

NetworkSettingsPageVM networkWithNas(bool firstMounted, bool secondMounted)
{
    NetworkSettingsPageVM vm;
    vm.nas_list = {NasMountInfo{"Archive NAS", firstMounted, firstMounted ? 1 : 0},
                   NasMountInfo{"Backup NAS", secondMounted, secondMounted ? 1 : 0}};
    return vm;
}

DecoderShortcutItemInfo item(int id, const char* name, bool on)
{
    DecoderShortcutItemInfo info;
    info.id = id;
    info.name = name;
    info.is_on = on;
    info.aux = 1;
    return info;
}

VideoSettingsPageVM videoWithBackdrops(int count)
{
    VideoSettingsPageVM vm;
    vm.gsk_bg_count = count;
    return vm;
}

VideoEncInfo picture(int width, int height)
{
    VideoEncInfo info;
    info.width = width;
    info.height = height;
    return info;
}

class InPlaceCalls : public ::testing::Test {
protected:
    void runAll(const std::vector<CallCase>& cases)
    {
        for (const CallCase& c : cases) {
            SCOPED_TRACE(c.name);
            EXPECT_EQ(c.action.kind, c.kind);
            EXPECT_EQ(c.action.refresh_page, c.refresh_page);
            ASSERT_TRUE(c.action.call);
            EXPECT_GE(c.action.call(*app), 0);
            EXPECT_EQ(backend.at(c.pointer), c.expected) << c.pointer;
        }
    }

    SimBackend backend;
    std::unique_ptr<AppManager> app = backend.bareAppManager();
};

} // namespace

TEST_F(InPlaceCalls, EncoderSwitchesTurnTheShownStateAround)
{
    backend.control("set /system/dc_out/switch 1");
    runAll({
        {"dc out off", dcOutClickedAction(true, 1), Kind::Sync, -1, "/system/dc_out/switch", 0},
        {"tally off", tallyEnableClickedAction(true), Kind::Sync, -1, "/system/tally/switch", 0},
        {"output muted", muteOutClickedAction(true), Kind::Sync, -1, "/video/output/audio_switch",
         0},
        {"loop out on", loopOutClickedAction(false), Kind::Sync, -1,
         "/video/output/loop_out_switch", 1},
        {"tracking on", aiTrackingClickedAction(false), Kind::Async, 16, "/ai/tracking/nn_enable",
         1},
        {"green screen on",
         greenScreenClickedAction(videoWithBackdrops(2), {picture(1920, 1080)}, false), Kind::Async,
         16, "/ai/matting/im_enable", 1},
        {"audio as given", audioSwClickedAction(false), Kind::Sync, -1, "/audio/all/switch", 0},
        {"srt server on", srtSwitchClickedAction(false), Kind::Sync, -1, "/stream/srt_local/switch",
         1},
        {"ndi on", ndiSwitchClickedAction(encoderWithPushStreams(false), false), Kind::Sync, -1,
         "/video/ndi/switch", 1},
        {"ndi off", ndiSwitchClickedAction(encoderWithPushStreams(true), true), Kind::Sync, -1,
         "/video/ndi/switch", 0},
        {"wifi off", wlanClickedAction(false), Kind::Async, 10, "/network/wifi/switch", 0},
        {"ap on", apClickedAction(true), Kind::Async, 10, "/network/ap/switch", 1},
        {"nas unmount", nasClickedAction(networkWithNas(true, false), 0, true), Kind::Sync, -1,
         "/storage/nas/0/switch", 0},
        {"nas mount", nasClickedAction(networkWithNas(false, false), 1, false), Kind::Sync, -1,
         "/storage/nas/1/switch", 1},
        {"osd layout on", osdItemClickedAction(encoderWithPushStreams(false), 2, false), Kind::Sync,
         -1, "/osd/osd_layout/1/switch", 1},
    });
}

TEST_F(InPlaceCalls, DecoderSwitchesAndSources)
{
    backend.control("workmode 1");
    backend.control(
        R"js(set /decoder/ndi/sources [{"name": "STUDIO (Cam 1)", "streamplay_status": 0}])js");
    DecoderShortcutPageVM vm;
    vm.net_items = {item(0, "Camera A", false), item(1, "Camera B", false)};
    vm.uvc_items = {item(0, "USB cam", false)};
    vm.ndi_items = {item(3, "STUDIO (Cam 1)", false)};
    runAll({
        {"rtmp on", rtmpServerClickedAction(false), Kind::Async, 20, "/decoder/rtmp_server/switch",
         1},
        {"srt listener on", srtServerClickedAction(false), Kind::Async, 20,
         "/decoder/srt_server/server_switch", 1},
        {"srt play on", srtPlayClickedAction(false), Kind::Async, 20,
         "/decoder/srt_server/play_switch", 1},
        {"pull on", pullItemClickedAction(vm, 1, false), Kind::Async, 24,
         "/decoder/net_streams/1/switch", 1},
        {"uvc open", uvcItemClickedAction(vm, 0, true), Kind::Async, 25,
         "/decoder/uvc_list/0/switch", 1},
        {"ndi receive", ndiItemClickedAction(vm, 3, false), Kind::Async, 26,
         "/decoder/ndi/receiving", "STUDIO (Cam 1)"},
    });
    vm.uvc_items[0].is_on = true;
    vm.ndi_items[0].is_on = true;
    runAll({
        {"uvc close", uvcItemClickedAction(vm, 0, true), Kind::Async, 25,
         "/decoder/uvc_list/0/switch", 0},
        {"ndi close", ndiItemClickedAction(vm, 3, true), Kind::Async, 26, "/decoder/ndi/receiving",
         ""},
    });
}

TEST_F(InPlaceCalls, PushStreamWaitsForItsIndexAndPauseTogglesTheRecording)
{
    const ControlAction push =
        pushStreamItemClickedAction(MediaSettingsPageVM{}, encoderWithPushStreams(false), 1, false);
    EXPECT_EQ(push.kind, Kind::PushStream);
    EXPECT_EQ(push.push_index, 1);
    EXPECT_EQ(push.push_target, 1);
    EXPECT_EQ(push.refresh_page, 23);
    ASSERT_GE(push.call(*app), 0);
    EXPECT_EQ(backend.at("/stream/publish/1/switch"), 1);

    ASSERT_GE(app->setRecordTaskEnable("sdcard_0", 1), 0);
    EncoderShortcutPageVM recording;
    recording.record_task_id = "sdcard_0";
    recording.record_status = 1;
    runAll(
        {{"pause", pauseClickedAction(recording), Kind::Async, 21, "/record/tasks/0/status", 2}});
    recording.record_status = 2;
    runAll(
        {{"resume", pauseClickedAction(recording), Kind::Async, 21, "/record/tasks/0/status", 1}});
    recording.record_status = 0;
    EXPECT_EQ(pauseClickedAction(recording).kind, Kind::Nothing);
}

TEST(InPlaceRules, ChecksThatStopARequestBeforeItGoesOut)
{
    struct Case {
        const char* name;
        ControlAction action;
        Kind kind;
        QString text;
    };
    MediaSettingsPageVM ndiOn;
    ndiOn.ndi_on = true;
    DecoderShortcutPageVM decoder;
    decoder.uvc_items = {item(1, "Capture HD", false)};
    decoder.uvc_items[0].format_check = 0;
    decoder.net_items = {item(0, "Camera A", false)};
    const std::vector<Case> cases = {
        {"nas: another one is mounted", nasClickedAction(networkWithNas(true, false), 1, false),
         Kind::Warning, "point_info.nas_already_opened"},
        {"nas: already in that state", nasClickedAction(networkWithNas(false, true), 1, false),
         Kind::Nothing, ""},
        {"nas: index outside the list", nasClickedAction(networkWithNas(false, false), 2, false),
         Kind::Nothing, ""},
        {"nas: negative index", nasClickedAction(networkWithNas(false, false), -1, true),
         Kind::Nothing, ""},
        {"green screen without backdrop",
         greenScreenClickedAction(videoWithBackdrops(0), {picture(1280, 720)}, false),
         Kind::FailedCard, "video_settings.no_backdrop"},
        {"ndi while streaming", ndiSwitchClickedAction(encoderWithPushStreams(true), false),
         Kind::Warning, "point_info.stream_ndi_conflict"},
        {"stream while ndi is on",
         pushStreamItemClickedAction(ndiOn, encoderWithPushStreams(false), 0, false), Kind::Warning,
         "point_info.close_ndi_before_stream"},
        {"unknown push stream",
         pushStreamItemClickedAction(MediaSettingsPageVM{}, encoderWithPushStreams(false), 9,
                                     false),
         Kind::Nothing, ""},
        {"unknown osd layout", osdItemClickedAction(encoderWithPushStreams(false), 7, false),
         Kind::Nothing, ""},
        {"unknown pull stream", pullItemClickedAction(decoder, 5, false), Kind::Nothing, ""},
        {"unknown ndi source", ndiItemClickedAction(decoder, 5, false), Kind::Nothing, ""},
        {"unknown uvc device", uvcItemClickedAction(decoder, 5, true), Kind::Nothing, ""},
        {"uvc device that fails a check", uvcItemClickedAction(decoder, 1, true), Kind::FailedCard,
         "point_info.invalid_param"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.action.kind, c.kind);
        EXPECT_EQ(c.action.text.key, c.text);
    }
    // A row that the page shows as unusable fails without a call.
    const ControlAction disabled = uvcItemClickedAction(decoder, 1, false);
    EXPECT_EQ(disabled.kind, Kind::StatusCard);
    EXPECT_LT(disabled.status, 0);
}

TEST(InPlaceRules, ClosingSkipsTheChecksOfOpening)
{
    // Turning NDI off or a stream off never meets a conflict.
    MediaSettingsPageVM ndiOn;
    ndiOn.ndi_on = true;
    EXPECT_EQ(pushStreamItemClickedAction(ndiOn, encoderWithPushStreams(true), 1, true).kind,
              Kind::PushStream);
    EXPECT_EQ(ndiSwitchClickedAction(encoderWithPushStreams(true), true).kind, Kind::Sync);
    // A device that is open may fail its checks now and still be closed.
    DecoderShortcutPageVM decoder;
    decoder.uvc_items = {item(1, "Capture HD", true)};
    decoder.uvc_items[0].fps_check = 0;
    EXPECT_EQ(uvcItemClickedAction(decoder, 1, true).kind, Kind::Async);
    // Unmounting is allowed with another share mounted.
    EXPECT_EQ(nasClickedAction(networkWithNas(true, true), 1, true).kind, Kind::Sync);
}

TEST(InPlaceRules, GreenScreenWarnsAbove1080pOnlyWhenTurningOn)
{
    const VideoSettingsPageVM vm = videoWithBackdrops(1);
    struct Case {
        VideoEncInfo main;
        bool enabled;
        bool warned;
    };
    for (const Case& c :
         {Case{picture(1920, 1080), false, false}, Case{picture(1920, 1200), false, true},
          Case{picture(3840, 2160), false, true}, Case{picture(3840, 2160), true, false}}) {
        SCOPED_TRACE(testing::Message()
                     << c.main.width << "x" << c.main.height << " enabled " << c.enabled);
        const ControlAction action = greenScreenClickedAction(vm, {c.main}, c.enabled);
        EXPECT_EQ(action.kind, Kind::Async);
        EXPECT_EQ(action.text.key,
                  c.warned ? QString("video_settings.gsk_resolution_invalid") : QString());
    }
    EXPECT_TRUE(greenScreenClickedAction(vm, {}, false).text.isEmpty())
        << "no picture size known, no warning";
}

TEST(InPlaceRules, DcOutTurnsOffAtOnceButAsksBeforeTurningOn)
{
    const ControlAction on12 = dcOutClickedAction(false, 2);
    EXPECT_EQ(on12.kind, Kind::ConfirmDialog);
    EXPECT_EQ(on12.confirm, (ConfirmDialogPageVM{4, 5, 0, 2}));
    EXPECT_EQ(dcOutClickedAction(false, 7).confirm.param, 1)
        << "unknown voltages ask for the low one";
    EXPECT_EQ(dcOutClickedAction(true, 2).kind, Kind::Sync);
}

TEST(InPlaceRules, ShortcutKeys)
{
    EXPECT_EQ(shortcutKeyFor("LockLcd"), ShortcutKey::LockLcd);
    EXPECT_EQ(shortcutKeyFor("lockLcd"), ShortcutKey::Ignored);
    EXPECT_EQ(shortcutKeyFor(""), ShortcutKey::Ignored);
    EXPECT_EQ(shortcutKeyAction(shortcutKeyFor("Standby")).confirm,
              (ConfirmDialogPageVM{3, 34, 0, 1}));
    EXPECT_EQ(shortcutKeyAction(shortcutKeyFor("Restart")).confirm,
              (ConfirmDialogPageVM{1, 34, 0, 1}));
    EXPECT_EQ(shortcutKeyAction(ShortcutKey::LockLcd).kind, Kind::Nothing);
    EXPECT_EQ(shortcutKeyAction(shortcutKeyFor("Snapshot")).kind, Kind::Nothing);
}
