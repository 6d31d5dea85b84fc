// Topic faults and the control channel's own rules, judged by what a raw
// subscriber sees. Reply faults as the panel's API layer sees them are tested
// with the API.
#include "sim_harness.h"

#include <gtest/gtest.h>

using namespace simtest;

namespace {

TEST(SimFaults, BrokenPayloadsGoOutOnceOnTheNamedTopic)
{
    Harness sim;
    // A one-shot message reaches only a subscription that is already in place.
    ASSERT_TRUE(sim.topics.waitFor("topic_network_info", [](const json&) { return true; }));
    ASSERT_EQ(sim.control("topic-malformed network"), "ok");
    EXPECT_TRUE(sim.topics.waitForRaw("topic_network_info", [](const std::string& content) {
        return json::parse(content, nullptr, false).is_discarded();
    }));
    ASSERT_EQ(sim.control("topic-wrong-shape topic_storage_info"), "ok");
    EXPECT_TRUE(
        sim.topics.waitFor("topic_storage_info", [](const json& p) { return p.is_object(); }));
    ASSERT_EQ(sim.control("topic-raw system {\"workmode_id\": \"x\"}"), "ok");
    EXPECT_TRUE(sim.topics.waitFor("topic_system_state_info",
                                   [](const json& p) { return p["workmode_id"] == "x"; }));
}

TEST(SimFaults, ReplyFaultsHitOnlyTheirOperationUntilCleared)
{
    Harness sim;
    const json fan = request("system_api", "fan", "get_fan_mode");
    const json lcd = request("system_api", "lcd", "get_lcd_info");
    const json answer = sim.web(fan);
    ASSERT_EQ(answer["rsp"], "succeed");
    struct Case {
        const char* command;
        json reply; // without its message text
        bool late;  // comes only after the fault's 300 ms
    };
    const Case cases[] = {
        {"status get_fan_mode 80011", {{"rsp", "failed"}, {"status", "80011"}}, false},
        {"empty get_fan_mode", {{"error", "empty reply"}}, false},
        {"hang get_fan_mode 300", {{"rsp", "failed"}, {"status", "1"}}, true},
        {"delay get_fan_mode 300", answer, true},
    };
    for (const Case& c : cases) {
        ASSERT_EQ(sim.control(c.command), "ok");
        const auto start = std::chrono::steady_clock::now();
        json reply = sim.web(fan);
        const auto took = std::chrono::steady_clock::now() - start;
        reply.erase("msg");
        EXPECT_EQ(reply, c.reply) << c.command;
        if (c.late) {
            EXPECT_GE(took, std::chrono::milliseconds(300)) << c.command;
        }
        EXPECT_EQ(sim.web(lcd)["rsp"], "succeed") << "another operation, during " << c.command;
        ASSERT_EQ(sim.control("clear get_fan_mode"), "ok");
        EXPECT_EQ(sim.web(fan), answer) << "after " << c.command;
    }
}

TEST(SimFaults, BadControlInputIsAnsweredWithAnErrorAndChangesNothing)
{
    Harness sim;
    const json before = sim.fixture.simulator().state().snapshot();
    for (const char* line :
         {"", "frobnicate", "delay get_lcd_info", "delay get_lcd_info soon", "delay no_such_op 10",
          "set /lcd/lock_stat \"on\"", "set /lcd/nokey 1", "set /lcd/lock_stat {broken",
          "silence nosuchtopic", "unplug-disk 2", "workmode 5", "upgrade 0", "get /no/such"}) {
        const std::string reply = sim.control(line);
        EXPECT_EQ(reply.rfind("error: ", 0), 0u) << line << " -> " << reply;
    }
    EXPECT_EQ(sim.fixture.simulator().state().snapshot()["lcd"], before["lcd"]);
    EXPECT_EQ(sim.control("faults"), R"(ok {"replies":{},"silenced":[]})");
    EXPECT_EQ(sim.control("get /lcd/lock_stat"), "ok " + before["lcd"]["lock_stat"].dump());
}

} // namespace
