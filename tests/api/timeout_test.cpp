// How long operations wait for the backend, and which silences count as
// success. A peer that answers after kLateMs is in time for the long waits
// and too late for the default one.
#include "scripted_backend.h"

#include <functional>

namespace apitest {
namespace {

constexpr milliseconds kLateMs(1200);
constexpr milliseconds kDefaultWait(1000);
// Good in every dialect, the AI service's included.
constexpr const char* kGoodReply = R"({"rsp":"succeed","status":"00000"})";

struct WaitCase {
    const char* label;
    const char* operation;
    std::function<int(AppManager&)> call;
    int status; // with the late answer kGoodReply
};

class TimeoutTest : public ApiTest {};

TEST_F(TimeoutTest, LongOperationsOutwaitALateAnswerOthersDoNot)
{
    for (
        const WaitCase& c : std::vector<WaitCase>{
            {"work mode waits 3 s", "change_workmode",
             [](AppManager& a) { return a.setWorkMode(1); }, 0},
            {"usb otg waits 1 s", "set_usb_otg_id",
             [](AppManager& a) { return a.setUsbOtgMode(1); }, -3},
            {"record enable waits 10 s", "set_task_enable",
             [](AppManager& a) { return a.setRecordTaskEnable("r", 1); }, 0},
            {"record name waits 1 s", "set_task_info",
             [](AppManager& a) { return a.subWorker()->setRecordTaskName("r", "n"); }, -3},
            {"ai enable waits 3 s", "/ai/ai_tracking/tracking_enable",
             [](AppManager& a) {
                 return a.subWorker()->sendAiControl({{"path", "/ai/ai_tracking/tracking_enable"}});
             },
             0},
            {"ai select waits 1 s", "/ai/ai_tracking/select_obj",
             [](AppManager& a) { return a.subWorker()->setAiTrackingSelectObj(1); }, -3},
        }) {
        SCOPED_TRACE(c.label);
        web.replyRaw(c.operation, kGoodReply, kLateMs);
        EXPECT_EQ(c.call(*app), c.status);
    }
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

} // namespace
} // namespace apitest
