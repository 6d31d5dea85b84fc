// Fault injection through the control channel, judged by what the panel's
// transport and subscriber would see.
#include "sim_harness.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace simtest;
using Clock = std::chrono::steady_clock;

namespace {

const json kGetLcd = request("system_api", "lcd", "get_lcd_info");

class SimFaults : public ::testing::Test {
protected:
    Harness sim;
    TopicListener topics{sim.config.endpoints.topics_sub};
};

TEST_F(SimFaults, HeldReplyTimesTheClientOutAndTheNextRequestWorks)
{
    ASSERT_EQ(sim.control("hang get_lcd_info"), "ok");
    std::string reply;
    const auto begin = Clock::now();
    EXPECT_EQ(sim.web_client->send(kGetLcd, reply, 300), -1);
    EXPECT_LT(Clock::now() - begin, std::chrono::milliseconds(1000));

    ASSERT_EQ(sim.control("clear get_lcd_info"), "ok");
    EXPECT_EQ(sim.web(kGetLcd)["rsp"], "succeed");
}

TEST_F(SimFaults, DelayedReplyArrivesLate)
{
    ASSERT_EQ(sim.control("delay get_lcd_info 300"), "ok");
    const auto begin = Clock::now();
    EXPECT_EQ(sim.web(kGetLcd)["rsp"], "succeed");
    EXPECT_GE(Clock::now() - begin, std::chrono::milliseconds(300));
    std::string reply;
    EXPECT_EQ(sim.web_client->send(kGetLcd, reply, 100), -1);
}

TEST_F(SimFaults, ChosenStatusCodeIsAnsweredAndNothingChanges)
{
    ASSERT_EQ(sim.control("status set_lcd_info 80011"), "ok");
    const json reply = sim.web(request("system_api", "lcd", "set_lcd_info", {{"lock_stat", 1}}));
    EXPECT_EQ(statusOf(reply), "80011");
    EXPECT_EQ(sim.stateAt("/lcd/lock_stat"), 0);

    ASSERT_EQ(sim.control("status * 2"), "ok");
    EXPECT_EQ(statusOf(sim.web(request("storage_api", "get_present_storage", ""))), "2");
}

TEST_F(SimFaults, EmptyReplyReachesTheClientAsTheTransportsEmptyReply)
{
    ASSERT_EQ(sim.control("empty power_off"), "ok");
    std::string reply;
    sim.web_client->send(request("system_api", "syscontrol", "power_off"), reply);
    EXPECT_EQ(reply, "{\"error\":\"empty reply\"}");
    EXPECT_EQ(sim.stateAt("/system/run_status"), 1);
}

TEST_F(SimFaults, MalformedAndWronglyShapedTopicPayloads)
{
    // A one-shot message reaches only a subscription that is already in place.
    ASSERT_TRUE(topics.waitForJson("topic_network_info", [](const json&) { return true; }));
    ASSERT_EQ(sim.control("topic-malformed network"), "ok");
    EXPECT_TRUE(topics.waitFor("topic_network_info", [](const std::string& content) {
        return json::parse(content, nullptr, false).is_discarded();
    }));
    ASSERT_EQ(sim.control("topic-wrong-shape topic_storage_info"), "ok");
    EXPECT_TRUE(
        topics.waitForJson("topic_storage_info", [](const json& p) { return p.is_object(); }));
    ASSERT_EQ(sim.control("topic-raw system {\"workmode_id\": \"x\"}"), "ok");
    EXPECT_TRUE(topics.waitForJson("topic_system_state_info",
                                   [](const json& p) { return p["workmode_id"] == "x"; }));
}

TEST_F(SimFaults, SilencedTopicStopsWhileOthersGoOn)
{
    ASSERT_EQ(sim.control("silence cpu"), "ok");
    // Whatever was already on its way has arrived once a full round has.
    ASSERT_TRUE(topics.waitForJson("topic_system_state_info", [](const json&) { return true; }));
    topics.forget();
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return topics.count("topic_system_state_info") >= 3; }));
    EXPECT_EQ(topics.count("topic_cpu_memory_info"), 0);

    ASSERT_EQ(sim.control("unsilence cpu"), "ok");
    EXPECT_TRUE(topics.waitForJson("topic_cpu_memory_info",
                                   [](const json& p) { return p.contains("data"); }));
}

TEST_F(SimFaults, OutsideEventsShowOnTheTopicsAndReads)
{
    ASSERT_EQ(sim.control("unplug-disk nas"), "ok");
    EXPECT_TRUE(topics.waitForJson("topic_storage_info",
                                   [](const json& p) { return p[2]["status"] == 0; }));
    ASSERT_EQ(sim.control("wifi-drop"), "ok");
    EXPECT_TRUE(topics.waitForJson("topic_network_info",
                                   [](const json& p) { return p["data"]["wifi"]["status"] == 0; }));
    ASSERT_EQ(sim.control("standby"), "ok");
    EXPECT_TRUE(topics.waitForJson("topic_system_state_info",
                                   [](const json& p) { return p["run_status"] == 0; }));
    ASSERT_EQ(sim.control("app-status 2"), "ok");
    EXPECT_EQ(sim.web(request("system_api", "app",
                              "get_app_connection_status"))["data"]["connect_status"],
              2);
    ASSERT_EQ(sim.control("workmode 1"), "ok");
    EXPECT_TRUE(topics.waitForJson("topic_system_state_info",
                                   [](const json& p) { return p["workmode_id"] == 1; }));
}

TEST_F(SimFaults, UpgradeClimbsToAHundredAndIsSilentBefore)
{
    EXPECT_EQ(topics.count("topic_upgrade_progress_info"), 0);
    ASSERT_EQ(sim.control("upgrade 25"), "ok");
    EXPECT_TRUE(topics.waitForJson("topic_upgrade_progress_info",
                                   [](const json& p) { return p["upgrade_progress"] == 50; }));
    EXPECT_TRUE(topics.waitForJson("topic_upgrade_progress_info",
                                   [](const json& p) { return p["upgrade_progress"] == 100; }));
}

TEST_F(SimFaults, BadControlInputIsAnsweredWithAnErrorAndChangesNothing)
{
    const json before = sim.simulator->state().snapshot()["lcd"];
    for (const char* line :
         {"", "frobnicate", "delay get_lcd_info", "delay get_lcd_info soon", "delay no_such_op 10",
          "set /lcd/lock_stat \"on\"", "set /lcd/nokey 1", "set /lcd/lock_stat {broken",
          "silence nosuchtopic", "unplug-disk 2", "workmode 5", "get /no/such"}) {
        const std::string reply = sim.control(line);
        EXPECT_EQ(reply.rfind("error: ", 0), 0u) << line << " -> " << reply;
    }
    EXPECT_EQ(sim.simulator->state().snapshot()["lcd"], before);
    EXPECT_EQ(sim.control("faults"), "ok {\"replies\":{},\"silenced\":[]}");
    EXPECT_EQ(sim.control("get /lcd/lock_stat"), "ok 0");
}

} // namespace
