// Topic faults and the control channel's own rules, judged by what a raw
// subscriber sees. Reply faults as the panel's API layer sees them are tested
// in tests/api.
#include "sim_harness.h"

#include <gtest/gtest.h>

using namespace simtest;

namespace {

class SimFaults : public ::testing::Test {
protected:
    Harness sim;
    TopicListener topics{sim.endpoints().topics_sub};
};

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
    const json before = sim.fixture.simulator().state().snapshot()["lcd"];
    for (const char* line :
         {"", "frobnicate", "delay get_lcd_info", "delay get_lcd_info soon", "delay no_such_op 10",
          "set /lcd/lock_stat \"on\"", "set /lcd/nokey 1", "set /lcd/lock_stat {broken",
          "silence nosuchtopic", "unplug-disk 2", "workmode 5", "get /no/such"}) {
        const std::string reply = sim.control(line);
        EXPECT_EQ(reply.rfind("error: ", 0), 0u) << line << " -> " << reply;
    }
    EXPECT_EQ(sim.fixture.simulator().state().snapshot()["lcd"], before);
    EXPECT_EQ(sim.control("faults"), "ok {\"replies\":{},\"silenced\":[]}");
    EXPECT_EQ(sim.control("get /lcd/lock_stat"), "ok 0");
}

} // namespace
