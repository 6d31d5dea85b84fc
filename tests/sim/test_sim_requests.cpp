// Raw requests over the real sockets, for what the panel's API layer can't
// show: a paused recording holds its duration, the configuration sections
// carry their keys, and a request the device doesn't know gets a clear error.
// The API's own view of the simulator is tested in tests/api.
#include "sim_harness.h"

#include <gtest/gtest.h>

using namespace simtest;

namespace {

const char* const kRecordTopic = "topic_record_state_info";

class SimRequests : public ::testing::Test {
protected:
    Harness sim;
    TopicListener topics{sim.endpoints().topics_sub};

    json recordEnable(const std::string& index, int enable)
    {
        return sim.web(
            request("record_api", "", "set_task_enable", {{"index", index}, {"enable", enable}}));
    }
};

TEST_F(SimRequests, RecordingCountsUpPausesAndBlocksADiskChange)
{
    EXPECT_EQ(statusOf(recordEnable("sdcard_0", 1)), "00000");
    auto sdStatus = [](int status, int min_duration) {
        return [=](const json& p) {
            for (const json& task : p)
                if (task["taskId"] == "sdcard_0")
                    return task["status"] == status && task["duration"] >= min_duration;
            return false;
        };
    };
    EXPECT_TRUE(topics.waitForJson(kRecordTopic, sdStatus(1, 2)));
    EXPECT_EQ(
        statusOf(sim.web(request("storage_api", "choose_storage_path", "", {{"storage_id", 1}}))),
        "100017");
    EXPECT_EQ(statusOf(recordEnable("sdcard_0", 1)), "110001");

    EXPECT_EQ(statusOf(recordEnable("sdcard_0", 2)), "00000");
    const int held = sim.stateAt("/record/tasks/0/duration");
    topics.forget();
    ASSERT_TRUE(topics.waitForJson(kRecordTopic, sdStatus(2, 0)));
    ASSERT_TRUE(topics.waitForJson(kRecordTopic, sdStatus(2, 0)));
    EXPECT_EQ(sim.stateAt("/record/tasks/0/duration"), held);

    EXPECT_EQ(statusOf(recordEnable("sdcard_0", 0)), "00000");
    EXPECT_EQ(
        statusOf(sim.web(request("storage_api", "choose_storage_path", "", {{"storage_id", 1}}))),
        "00000");
    EXPECT_EQ(sim.web(request("storage_api", "get_present_storage", ""))["data"]["storage_id"], 1);
}

TEST_F(SimRequests, ConfigurationSectionsCarryWhatThePanelReads)
{
    const json network = sim.web({{"group", "get_json_cfg"}, {"opt", "get_networkdom"}});
    EXPECT_TRUE(network["data"]["ports"]["http"].is_number_integer());
    const json osd = sim.web({{"group", "get_json_cfg"}, {"opt", "get_osddom"}});
    EXPECT_TRUE(osd["data"]["osd_layout"].is_array());
    EXPECT_FALSE(osd["data"]["osd_layout"].empty());
    const json hardware = sim.web({{"group", "get_json_cfg"}, {"opt", "get_hardwaredom"}});
    EXPECT_TRUE(hardware["data"]["app_first_use_flag"].is_number_integer());
}

TEST_F(SimRequests, UnknownOperationGetsAClearError)
{
    const json reply = sim.web(request("system_api", "lcd", "no_such_opt"));
    EXPECT_EQ(reply["rsp"], "failed");
    EXPECT_EQ(statusOf(reply), "1");
    EXPECT_NE(reply["msg"].get<std::string>().find("no_such_opt"), std::string::npos);

    std::string raw;
    ASSERT_GT(Client(sim.endpoints().webserver).send(json("not an object"), raw), 0);
    EXPECT_NE(raw.find("no JSON object"), std::string::npos);
}

} // namespace
