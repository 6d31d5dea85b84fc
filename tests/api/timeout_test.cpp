// How long operations wait for the backend, and which silences count as
// success. Every case runs on a backend of its own, side by side with the
// others, as each one waits out a real time-out.
#include "scripted_backend.h"

#include <functional>

namespace apitest {
namespace {

using A = AppManager;
using W = ZmqSubWorker;

// In time for the long waits, too late for the default one of 1000 ms.
constexpr milliseconds kLate(1200);
// Too late for the waits of 3000 ms and 7000 ms.
constexpr milliseconds kPastThreeSeconds(3300);
constexpr milliseconds kPastSevenSeconds(7300);
// Good in every dialect, the AI service's included.
constexpr const char* kGoodReply = R"({"rsp":"succeed","status":"00000"})";

const json kOpenableDevice = json::parse(
    R"({"id":2,"dev_check":1,"format_check":1,"resolution_check":1,"fps_check":1,
        "format":{"format_type":1},"resolution":{"width":1920,"height":1080},"fps":{"num":30,"den":1}})");

struct LateCase {
    const char* label;
    const char* operation; // answered after `delay`
    std::function<int(AppManager&)> call;
    int status;
    const char* reply = kGoodReply;
    milliseconds delay = kLate;
};

// Runs the cases side by side. Each backend answers the case's operation late
// and at once what the read-before-write operations read first; the panel's
// SRT switch is followed by its play switch, answered at once with a refusal
// of its own unless the case's operation is the play switch.
void expectStatuses(const std::vector<LateCase>& cases)
{
    std::vector<std::function<int(ScriptedBackend&)>> runs;
    for (const LateCase& c : cases) {
        runs.push_back([&c](ScriptedBackend& backend) {
            backend.web.reply("/ai/ai_tracking/get_tracking_info",
                              {{"rsp", "success"}, {"data", {{"nn_type", 1}}}});
            backend.web.reply("get_list_info",
                              {{"data", {{"uvc_list", json::array({kOpenableDevice})}}}});
            backend.web.reply("server_switch", {{"rsp", "succeed"}});
            backend.web.reply("play_switch", {{"rsp", "failed"}, {"status", "140008"}});
            backend.web.replyRaw(c.operation, c.reply, c.delay);
            return c.call(*backend.app);
        });
    }
    const std::vector<int> statuses = runSideBySide(runs);
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(statuses[i], cases[i].status) << cases[i].label;
}

TEST(Timeout, LongOperationsOutwaitALateAnswerOthersDoNot)
{
    expectStatuses({
        {"work mode waits 3 s", "change_workmode", call(&A::setWorkMode, 1), 0},
        {"usb otg waits 1 s", "set_usb_otg_id", call(&A::setUsbOtgMode, 1), -3},
        {"wifi waits 3 s", "wifi_switch", call(&A::setWifiSwitch, 0), 0},
        {"ap waits 3 s", "ap_switch", call(&A::setApSwitch, 0), 0},
        {"publish switch waits 10 s", "update_publish_switch",
         call(&A::setEncNetStreamSwitch, 1, 1), 0},
        {"record enable waits 10 s", "set_task_enable", call(&A::setRecordTaskEnable, "r", 1), 0},
        {"ai enable waits 3 s", "/ai/ai_tracking/tracking_enable", call(&A::setAiEnable, 1), 0},
        {"matting enable waits 3 s", "/ai/image_matting/im_enable", call(&A::setGskEnable, 1), 0},
        {"ai select waits 1 s", "/ai/ai_tracking/select_obj", call(&W::setAiTrackingSelectObj, 1),
         -3},
        {"pull switch waits 7 s", "streamplay_switch", call(&A::setDecNetStreamSwitch, 0, 1), 0},
        {"ndi receive waits 7 s", "ndi_recv", call(&A::setDecNdiRecv, "CAM"), 0},
        {"ndi close waits 7 s", "ndi_close", call(&A::setDecNdiClose), 0},
        {"srt listener waits 7 s", "server_switch", call(&W::setDecSrtServerSwitch, 0), 0},
        {"uvc open waits 7 s", "uvc_open", call(&A::setDecUvcOpen, 2), 0},
        {"uvc close waits 7 s", "uvc_close", call(&A::setDecUvcClose, 2), 0},
        // The SRT listener's play switch has the RTMP switch's `opt` but not its wait.
        {"rtmp play switch waits 7 s", "play_switch", call(&A::setDecRtmpServerSwitch, 0, 1), 0},
        {"srt play switch waits 1 s", "play_switch", call(&A::setDecSrtPlaySwitch, 1), -3},
    });
}

// The daemon may go away while it carries these out, so an answer that comes
// only after the wait is success; switching off is never forgiven, and the
// AI service never.
TEST(Timeout, SilenceIsSuccessOnlyWhereTheDaemonMayGoAway)
{
    expectStatuses({
        {"standby", "power_off", call(&A::setStandby), 0, "{}"},
        {"wake", "power_on", call(&A::exitStandby), 0, "{}"},
        {"reboot", "set_reboot_info", call(&A::setReboot), -3, "{}"},
        {"fan", "set_fan_mode", call(&A::setFanMode, 2), -3, "{}"},
        // A zero-length reply is no silence.
        {"standby answered empty", "power_off", call(&A::setStandby), -3, "", milliseconds(0)},
        {"srt local on", "set_srt_local_switch", call(&A::setEncSrtServerSwitch, 1), 0, "{}"},
        {"srt local off", "set_srt_local_switch", call(&A::setEncSrtServerSwitch, 0), -3, "{}"},
        {"wifi on", "wifi_switch", call(&A::setWifiSwitch, 1), 0, "{}", kPastThreeSeconds},
        {"wifi off", "wifi_switch", call(&A::setWifiSwitch, 0), -3, "{}", kPastThreeSeconds},
        {"ap on", "ap_switch", call(&A::setApSwitch, 1), -3, "{}", kPastThreeSeconds},
        {"ai select", "/ai/ai_tracking/select_obj", call(&W::setAiTrackingSelectObj, 1), -3, "{}"},
        // The panel's SRT switch: a silent listener is forgiven when switched
        // on, and the play switch still goes out with its short wait.
        {"silent srt listener", "server_switch", call(&A::setDecSrtServerSwitch, 1), -903, "{}",
         kPastSevenSeconds},
        {"silent srt playback", "play_switch", call(&A::setDecSrtServerSwitch, 1), -3, kGoodReply},
    });
}

} // namespace
} // namespace apitest
