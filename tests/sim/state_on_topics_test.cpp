// What requests and control commands change comes back on the topics and in
// the reads, as the panel sees it. The record rules are tests of the API, and
// the device states that the end-to-end tests cause (standby, a lost Wi-Fi,
// a pulled disk) are seen there.
#include "sim_harness.h"

#include <gtest/gtest.h>

using namespace simtest;

namespace {

// The element of a topic list whose `key` is `value`, or an empty object.
json entry(const json& list, const char* key, const json& value)
{
    for (const json& item : list)
        if (item.is_object() && item.value(key, json()) == value)
            return item;
    return json::object();
}

TEST(SimState, ChangesComeBackOnTheirTopics)
{
    Harness sim;
    const int language = (sim.stateAt("/system/language_id").get<int>() + 1) % 5;
    const json layout = sim.stateAt("/osd/osd_layout/1");
    const int layout_switch = 1 - layout["switch"].get<int>();
    struct Case {
        json request; // or else the command
        const char* command;
        const char* topic;
        std::function<bool(const json&)> shows;
    };
    const Case cases[] = {
        {request("system_api", "sys_attr", "set_sys_attr_info", {{"language_id", language}}),
         nullptr, "topic_system_state_info",
         [&](const json& p) { return p["language_id"] == language; }},
        {request("osd_api", "osd_layout", "set_layout_switch",
                 {{"id", layout["id"]}, {"switch", layout_switch}}),
         nullptr, "topic_osd_state_info",
         [&](const json& p) {
             return entry(p, "id", layout["id"])
                    == json{{"id", layout["id"]},
                            {"name", layout["name"]},
                            {"switch", layout_switch},
                            {"status", layout_switch}};
         }},
        {request("record_api", "", "set_task_enable", {{"index", "sdcard_0"}, {"enable", 1}}),
         nullptr, "topic_record_state_info",
         [](const json& p) {
             const json task = entry(p, "taskId", "sdcard_0");
             return task.is_object() && task["status"] == 1 && task["duration"] >= 2;
         }},
        // The box lists no push streams in decode mode.
        {nullptr, "workmode 1", "topic_net_stream_info",
         [](const json& p) { return p.is_array() && p.empty(); }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.command ? c.command : c.request.dump());
        const std::string result = c.command ? sim.control(c.command) : sim.status(c.request);
        ASSERT_EQ(result, c.command ? "ok" : "00000");
        EXPECT_TRUE(sim.topics.waitFor(c.topic, c.shows));
    }
    const json read = sim.web(request("system_api", "sys_language", "get_sys_language_info"));
    EXPECT_EQ(read["data"]["language_id"], language);
}

TEST(SimState, UnknownRequestsAreRefusedNamingWhatIsWrong)
{
    Harness sim;
    const json unknown = sim.web(request("system_api", "lcd", "no_such_opt"));
    EXPECT_EQ(unknown["rsp"], "failed");
    EXPECT_EQ(unknown["status"], "1");
    EXPECT_NE(unknown["msg"].get<std::string>().find("no_such_opt"), std::string::npos);
    EXPECT_NE(sim.web("not an object")["msg"].get<std::string>().find("no JSON object"),
              std::string::npos);
}

} // namespace
