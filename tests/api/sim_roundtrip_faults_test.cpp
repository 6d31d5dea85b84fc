// Faults injected into the simulator, as the panel's API layer sees them: a
// chosen status code arrives as the domain's mapped value, a reply that never
// comes is the time-out failure except where silence is success, and a
// zero-length reply is a failure everywhere.
#include "sim_backend.h"

#include <algorithm>

namespace apitest {
namespace {

struct FaultCase {
    const char* label;
    const char* command;
    std::function<int(AppManager&)> call;
    int status;
};

class SimFaultTest : public SimBackendTest {
protected:
    void expectStatuses(const std::vector<FaultCase>& cases)
    {
        for (const FaultCase& c : cases) {
            SCOPED_TRACE(c.label);
            control(c.command);
            EXPECT_EQ(c.call(*app), c.status);
            control("clear all");
        }
    }
};

// Each domain's map is tested against scripted replies; here the injected
// code comes from the simulator's own fault table.
TEST_F(SimFaultTest, InjectedCodesArriveAsTheDomainsValues)
{
    expectStatuses({
        {"system", "status set_fan_mode 80011", [](AppManager& a) { return a.setFanMode(2); },
         -401},
        {"stream", "status update_publish_switch 60007",
         [](AppManager& a) { return a.setEncNetStreamSwitch(0, 1); }, -201},
        {"ai", "status /ai/image_matting/im_enable 9",
         [](AppManager& a) { return a.setGskEnable(1); }, -1},
        {"every operation", "status * 2", [](AppManager& a) { return a.setTallySwitch(0); }, -101},
    });
    // An injected answer stands in for the device: nothing changed.
    EXPECT_EQ(simAt("/system/fan_mode"), 1);
    EXPECT_EQ(simAt("/stream/publish/0/switch"), 0);
}

// A held reply is silence to the panel: it waits out its time-out, which
// counts as success only where the daemon may go away.
TEST_F(SimFaultTest, HeldReplyIsSilence)
{
    expectStatuses({
        {"standby", "hang power_off 1100", [](AppManager& a) { return a.setStandby(); }, 0},
        {"fan", "hang set_fan_mode 1100", [](AppManager& a) { return a.setFanMode(2); }, -3},
    });
}

TEST_F(SimFaultTest, ZeroLengthReplyIsAFailureEvenWhereSilenceIsForgiven)
{
    expectStatuses({
        {"standby", "empty power_off", [](AppManager& a) { return a.setStandby(); }, -3},
        {"fan", "empty set_fan_mode", [](AppManager& a) { return a.setFanMode(2); }, -3},
        {"ai", "empty /ai/image_matting/im_enable", [](AppManager& a) { return a.setGskEnable(1); },
         -3},
    });
    EXPECT_EQ(simAt("/system/run_status"), 1);
}

// A late answer is in time for the operations with a long wait only.
TEST_F(SimFaultTest, DelayedAnswersAndTheLongWaits)
{
    expectStatuses({
        {"work mode waits 3 s", "delay change_workmode 1200",
         [](AppManager& a) { return a.setWorkMode(1); }, 0},
        {"usb otg waits 1 s", "delay set_usb_otg_id 1200",
         [](AppManager& a) { return a.setUsbOtgMode(1); }, -3},
    });
    // The late answers were carried out all the same; the panel just didn't wait.
    EXPECT_TRUE(testsupport::waitUntil([&] { return simAt("/system/usb_otg_id") == 1; }));
    EXPECT_EQ(simAt("/system/workmode_id"), 1);
}

// A read that fails before a write sends nothing.
TEST_F(SimFaultTest, FailedReadBeforeAWriteSendsNothing)
{
    control("status get_dcout_status 80003");
    EXPECT_EQ(app->setDcOutSwitch(1), -3);
    control("status all 90001");
    EXPECT_EQ(app->setAudioEncVolume(10), -3);
    control("empty get_list_info");
    EXPECT_EQ(app->setDecUvcOpen(0), -3);
    EXPECT_EQ(webRequestsOf("set_dcout_status"), 0);
    EXPECT_EQ(webRequestsOf("audio"), 0);
    EXPECT_EQ(webRequestsOf("uvc_open"), 0);
}

// Changes made to the device from outside reach the panel by its topics.
TEST_F(SimFaultTest, OutsideEventsReachThePanelsCache)
{
    struct EventCase {
        const char* command;
        std::function<bool(const ZmqSubCache&)> seen;
    };
    for (const EventCase& c : std::vector<EventCase>{
             {"unplug-disk usb", [](const ZmqSubCache& s) { return s.disk_status[1] == 0; }},
             {"wifi-drop", [](const ZmqSubCache& s) { return s.wifi_status == 0; }},
             {"standby", [](const ZmqSubCache& s) { return s.run_status == 0; }},
             {"wake", [](const ZmqSubCache& s) { return s.run_status == 1; }},
             {"workmode 1", [](const ZmqSubCache& s) { return s.workmode_id == 1; }},
             {"upgrade 50", [](const ZmqSubCache& s) { return s.upgrade_progress == 100; }},
         }) {
        SCOPED_TRACE(c.command);
        control(c.command);
        EXPECT_TRUE(waitForTopics(c.seen));
    }
    control("app-status 2");
    int connect_status = 0;
    EXPECT_EQ(worker().getAppConnectionStatus(connect_status), 0);
    EXPECT_EQ(connect_status, 2);
}

// A silenced topic leaves the panel with what it last heard; a malformed
// payload changes nothing, and the next good one is taken.
TEST_F(SimFaultTest, TopicFaultsLeaveThePanelWithItsLastGoodState)
{
    ASSERT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.system_state_ready; }));
    control("silence system");
    control("standby");
    // The OSD topic goes out after the system topic in every round, so once
    // the layout shows, a system message of that round would have shown too.
    EXPECT_EQ(app->setOsdLayoutSwitch(2, 1), 0);
    ASSERT_TRUE(waitForTopics([](const ZmqSubCache& c) {
        return std::any_of(c.osd_items.begin(), c.osd_items.end(),
                           [](const OsdItemInfo& o) { return o.id == 2 && o.switch_on; });
    }));
    EXPECT_EQ(worker().getSubCache().run_status, 1);
    control("unsilence system");
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.run_status == 0; }));

    control("silence system");
    control("topic-malformed system");
    control("wake");
    control("topic-raw system {\"workmode_id\":1,\"language_id\":2,\"run_status\":0}");
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.language_id == 2; }));
    control("unsilence system");
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) {
        return c.run_status == 1 && c.language_id == 0 && c.workmode_id == 0;
    }));
}

} // namespace
} // namespace apitest
