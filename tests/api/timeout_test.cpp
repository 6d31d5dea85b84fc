// How long operations wait for the backend, and which silences count as
// success. A peer that answers after kLateMs is in time for the long waits
// and too late for the default one.
#include "scripted_backend.h"

#include <functional>

namespace apitest {
namespace {

constexpr milliseconds kLateMs(1200);
constexpr milliseconds kDefaultWait(1000);
// Just past the longest wait of the stream play and media player domains.
constexpr milliseconds kPastLongWait(7300);
// Good in every dialect, the AI service's included.
constexpr const char* kGoodReply = R"({"rsp":"succeed","status":"00000"})";

struct WaitCase {
    const char* label;
    const char* operation;
    std::function<int(AppManager&)> call;
    int status; // with the late answer kGoodReply
};

class TimeoutTest : public ApiTest {
protected:
    void SetUp() override
    {
        // What the read-before-write operations read first, answered at once.
        web.reply("/ai/ai_tracking/get_tracking_info",
                  {{"rsp", "success"}, {"data", {{"nn_type", 1}}}});
        web.reply("get_list_info", {{"data", {{"uvc_list", json::array({kOpenableDevice})}}}});
    }

    static inline const json kOpenableDevice = json::parse(
        R"({"id":2,"dev_check":1,"format_check":1,"resolution_check":1,"fps_check":1,
            "format":{"format_type":1},"resolution":{"width":1920,"height":1080},"fps":{"num":30,"den":1}})");
};

TEST_F(TimeoutTest, LongOperationsOutwaitALateAnswerOthersDoNot)
{
    for (const WaitCase& c : std::vector<WaitCase>{
             {"work mode waits 3 s", "change_workmode",
              [](AppManager& a) { return a.setWorkMode(1); }, 0},
             {"usb otg waits 1 s", "set_usb_otg_id",
              [](AppManager& a) { return a.setUsbOtgMode(1); }, -3},
             {"wifi waits 3 s", "wifi_switch", [](AppManager& a) { return a.setWifiSwitch(0); }, 0},
             {"ap waits 3 s", "ap_switch", [](AppManager& a) { return a.setApSwitch(0); }, 0},
             {"publish switch waits 10 s", "update_publish_switch",
              [](AppManager& a) { return a.setEncNetStreamSwitch(1, 1); }, 0},
             {"publish delete waits 1 s", "del_publish_info",
              [](AppManager& a) { return a.subWorker()->deleteEncNetStream(1); }, -3},
             {"record enable waits 10 s", "set_task_enable",
              [](AppManager& a) { return a.setRecordTaskEnable("r", 1); }, 0},
             {"record name waits 1 s", "set_task_info",
              [](AppManager& a) { return a.subWorker()->setRecordTaskName("r", "n"); }, -3},
             {"ai enable waits 3 s", "/ai/ai_tracking/tracking_enable",
              [](AppManager& a) { return a.setAiEnable(1); }, 0},
             {"matting enable waits 3 s", "/ai/image_matting/im_enable",
              [](AppManager& a) { return a.setGskEnable(1); }, 0},
             {"ai select waits 1 s", "/ai/ai_tracking/select_obj",
              [](AppManager& a) { return a.subWorker()->setAiTrackingSelectObj(1); }, -3},
             {"speed test waits 1 s", "test_storage_speed",
              [](AppManager& a) { return a.setStorageSpeedTest(0); }, -3},
             {"pull switch waits 7 s", "streamplay_switch",
              [](AppManager& a) { return a.setDecNetStreamSwitch(0, 1); }, 0},
             {"pull delete waits 1 s", "streamplay_del",
              [](AppManager& a) { return a.subWorker()->setDecNetStreamDel(0); }, -3},
             {"ndi receive waits 7 s", "ndi_recv",
              [](AppManager& a) { return a.setDecNdiRecv("CAM"); }, 0},
             {"ndi close waits 7 s", "ndi_close", [](AppManager& a) { return a.setDecNdiClose(); },
              0},
             {"ndi search waits 1 s", "ndi_find", [](AppManager& a) { return a.findDecNdi(); }, -3},
             {"srt listener waits 7 s", "server_switch",
              [](AppManager& a) { return a.subWorker()->setDecSrtServerSwitch(0); }, 0},
             {"uvc open waits 7 s", "uvc_open", [](AppManager& a) { return a.setDecUvcOpen(2); },
              0},
             {"uvc close waits 7 s", "uvc_close", [](AppManager& a) { return a.setDecUvcClose(2); },
              0},
         }) {
        SCOPED_TRACE(c.label);
        web.replyRaw(c.operation, kGoodReply, kLateMs);
        EXPECT_EQ(c.call(*app), c.status);
    }
}

// The SRT listener's play switch has the RTMP switch's `opt` but not its wait.
TEST_F(TimeoutTest, PlaySwitchWaitDependsOnTheGroup)
{
    web.replyRaw("play_switch", kGoodReply, kLateMs);
    EXPECT_EQ(app->setDecRtmpServerSwitch(0, 1), 0);
    EXPECT_EQ(app->setDecSrtPlaySwitch(1), -3);
}

// The daemon may go away while it carries these out, so silence is success;
// switching off is never forgiven, and the AI service never.
TEST_F(TimeoutTest, SilenceIsSuccessOnlyWhereTheDaemonMayGoAway)
{
    for (const WaitCase& c : std::vector<WaitCase>{
             {"standby", "power_off", [](AppManager& a) { return a.setStandby(); }, 0},
             {"reboot", "set_reboot_info", [](AppManager& a) { return a.setReboot(); }, -3},
             {"srt local on", "set_srt_local_switch",
              [](AppManager& a) { return a.setEncSrtServerSwitch(1); }, 0},
             {"srt local off", "set_srt_local_switch",
              [](AppManager& a) { return a.setEncSrtServerSwitch(0); }, -3},
             {"ai select", "/ai/ai_tracking/select_obj",
              [](AppManager& a) { return a.subWorker()->setAiTrackingSelectObj(1); }, -3},
         }) {
        SCOPED_TRACE(c.label);
        web.replyRaw(c.operation, "{}", kLateMs);
        milliseconds took{};
        int status = 0;
        took = timed([&] { status = c.call(*app); });
        EXPECT_EQ(status, c.status);
        EXPECT_GE(took, kDefaultWait - milliseconds(50));
    }
}

// The panel's SRT switch: a silent listener is forgiven when it is switched
// on, and the play switch, with its short wait, still goes out.
TEST_F(TimeoutTest, SrtListenerSilenceIsForgivenButNotItsPlayback)
{
    web.replyRaw("server_switch", kGoodReply, kPastLongWait);
    web.reply("play_switch", {{"rsp", "succeed"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(1), 0);
    EXPECT_EQ(web.requestsOf("play_switch").size(), 1u);

    web.reply("server_switch", {{"rsp", "succeed"}});
    web.replyRaw("play_switch", kGoodReply, kLateMs);
    EXPECT_EQ(app->setDecSrtServerSwitch(1), -3);
}

} // namespace
} // namespace apitest
