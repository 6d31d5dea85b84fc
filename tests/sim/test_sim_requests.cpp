// Requests over the real sockets, as the panel sends them: settings read
// back and reach their topic, and the device's rules refuse with the codes
// the panel maps.
#include "sim_harness.h"

#include <gtest/gtest.h>

using namespace simtest;

namespace {

const char* const kSystemTopic = "topic_system_state_info";
const char* const kRecordTopic = "topic_record_state_info";
const char* const kStorageTopic = "topic_storage_info";
const char* const kStreamTopic = "topic_net_stream_info";
const char* const kOsdTopic = "topic_osd_state_info";

class SimRequests : public ::testing::Test {
protected:
    Harness sim;
    TopicListener topics{sim.config.endpoints.topics_sub};

    json recordEnable(const std::string& index, int enable)
    {
        return sim.web(
            request("record_api", "", "set_task_enable", {{"index", index}, {"enable", enable}}));
    }
};

TEST_F(SimRequests, LanguageWriteReadsBackAndReachesTheSystemTopic)
{
    const json set =
        sim.web(request("system_api", "sys_attr", "set_sys_attr_info", {{"language_id", 3}}));
    EXPECT_EQ(statusOf(set), "00000");

    const json get = sim.web(request("system_api", "sys_language", "get_sys_language_info"));
    EXPECT_EQ(get["rsp"], "succeed");
    EXPECT_EQ(get["data"]["language_id"], 3);
    EXPECT_TRUE(
        topics.waitForJson(kSystemTopic, [](const json& p) { return p["language_id"] == 3; }));
}

TEST_F(SimRequests, LcdSettingsReadBackAndOutOfRangeIsRefused)
{
    EXPECT_EQ(statusOf(sim.web(request("system_api", "lcd", "set_lcd_info",
                                       {{"lock_stat", 1}, {"lcd_bright", 40}}))),
              "00000");
    const json lcd = sim.web(request("system_api", "lcd", "get_lcd_info"));
    EXPECT_EQ(lcd["data"]["lock_stat"], 1);
    EXPECT_EQ(lcd["data"]["lcd_bright"], 40);
    EXPECT_TRUE(lcd["data"].contains("LCD_sleep"));

    EXPECT_EQ(
        statusOf(sim.web(request("system_api", "lcd", "set_lcd_info", {{"lcd_bright", 400}}))),
        "80006");
    EXPECT_EQ(sim.stateAt("/lcd/lcd_bright"), 40);
}

TEST_F(SimRequests, StandbyAndWakeShowOnTheRunStatus)
{
    EXPECT_EQ(statusOf(sim.web(request("system_api", "syscontrol", "power_off"))), "00000");
    EXPECT_TRUE(
        topics.waitForJson(kSystemTopic, [](const json& p) { return p["run_status"] == 0; }));
    EXPECT_EQ(statusOf(sim.web(request("system_api", "syscontrol", "power_on"))), "00000");
    EXPECT_TRUE(
        topics.waitForJson(kSystemTopic, [](const json& p) { return p["run_status"] == 1; }));
}

TEST_F(SimRequests, WorkModeSwitchChangesWhatIsPublishedAndRefusesARepeat)
{
    ASSERT_TRUE(topics.waitForJson(kOsdTopic, [](const json& p) { return !p.empty(); }));
    const json change = request("system_api", "workmode", "change_workmode", {{"workmode_id", 1}});
    EXPECT_EQ(statusOf(sim.web(change)), "00000");
    EXPECT_TRUE(
        topics.waitForJson(kSystemTopic, [](const json& p) { return p["workmode_id"] == 1; }));
    topics.forget();
    EXPECT_TRUE(topics.waitForJson(kOsdTopic, [](const json& p) { return p.empty(); }));
    EXPECT_TRUE(topics.waitForJson(kStreamTopic, [](const json& p) { return p.empty(); }));
    EXPECT_EQ(sim.web(request("system_api", "workmode", "get_workmode_id"))["workmode_id"], 1);

    EXPECT_EQ(statusOf(sim.web(change)), "80012");
}

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

TEST_F(SimRequests, RecordingIsRefusedOnAMissingOrFullDisk)
{
    ASSERT_EQ(sim.control("unplug-disk usb"), "ok");
    EXPECT_EQ(statusOf(recordEnable("usb1_0", 1)), "100002");
    ASSERT_EQ(sim.control("fill-disk sd"), "ok");
    EXPECT_EQ(statusOf(recordEnable("sdcard_0", 1)), "100001");
    EXPECT_EQ(statusOf(recordEnable("nosuch_0", 1)), "110002");

    const json list = sim.web(request("record_api", "", "get_task_list"));
    ASSERT_TRUE(list["data"].is_array());
    EXPECT_EQ(list["data"][0]["status"], 3); // disk full
    EXPECT_EQ(list["data"][1]["status"], 4); // no disk
}

TEST_F(SimRequests, PushStreamIsRefusedWhileNdiIsOn)
{
    ASSERT_EQ(statusOf(sim.web(request("video_api", "ndi", "ndi_switch", {{"switch", 1}}))),
              "00000");
    const json push =
        request("stream_api", "publish", "update_publish_switch", {{"index", 0}, {"switch", 1}});
    EXPECT_EQ(statusOf(sim.web(push)), "60007");

    ASSERT_EQ(statusOf(sim.web(request("video_api", "ndi", "ndi_switch", {{"switch", 0}}))),
              "00000");
    EXPECT_EQ(statusOf(sim.web(push)), "00000");
    EXPECT_TRUE(topics.waitForJson(kStreamTopic, [](const json& p) {
        return !p.empty() && p[0]["switch"] == 1 && p[0]["status"] == 1;
    }));
}

TEST_F(SimRequests, SpeedTestResultAppearsAfterAFewTicks)
{
    ASSERT_EQ(
        statusOf(sim.web(request("storage_api", "test_storage_speed", "", {{"storage_id", 1}}))),
        "00000");
    EXPECT_EQ(sim.stateAt("/storage/disks/1/write_speed"), 0.0);
    EXPECT_TRUE(topics.waitForJson(kStorageTopic, [](const json& p) {
        return p[1]["index"] == 1 && p[1]["write_speed"].get<double>() > 0;
    }));
    ASSERT_EQ(sim.control("unplug-disk usb"), "ok");
    EXPECT_EQ(
        statusOf(sim.web(request("storage_api", "test_storage_speed", "", {{"storage_id", 1}}))),
        "100016");
}

TEST_F(SimRequests, NdiSearchDiscoversSourcesThatCanBeReceivedInDecodeMode)
{
    const json list = request("streamplay_api", "get_streamplay_ndi_info", "ndi_get_all");
    EXPECT_TRUE(sim.web(list)["data"].empty());
    ASSERT_EQ(statusOf(sim.web(request("streamplay_api", "set_streamplay_ndi_info", "ndi_find"))),
              "00000");
    ASSERT_TRUE(testsupport::waitUntil([&] { return !sim.web(list)["data"].empty(); }));
    const std::string name = sim.web(list)["data"][0]["name"];

    const json receive =
        request("streamplay_api", "set_streamplay_ndi_info", "ndi_recv", {{"ndi_name", name}});
    EXPECT_EQ(statusOf(sim.web(receive)), "140001"); // encode mode
    ASSERT_EQ(sim.control("workmode 1"), "ok");
    EXPECT_EQ(statusOf(sim.web(receive)), "00000");
    EXPECT_EQ(sim.web(list)["data"][0]["streamplay_status"], 1);

    const json report =
        sim.media_client->ask({{"group", "mediaplayer_module"}, {"opt", "get_decoder_info"}});
    EXPECT_EQ(report["msg"], "success");
    EXPECT_EQ(report["data"]["name"], name);
    EXPECT_EQ(report["data"]["streamplay_status"], 1);
}

TEST_F(SimRequests, UvcOpenNeedsEveryCheckFlag)
{
    ASSERT_EQ(sim.control("workmode 1"), "ok");
    const json devices =
        sim.web(request("mediaplayer_api", "uvc", "get_list_info"))["data"]["uvc_list"];
    ASSERT_EQ(devices.size(), 2u);
    EXPECT_EQ(statusOf(sim.web(request("mediaplayer_api", "uvc", "uvc_open", {{"id", 1}}))),
              "190006");
    EXPECT_EQ(statusOf(sim.web(request("mediaplayer_api", "uvc", "uvc_open", {{"id", 0}}))),
              "00000");
    EXPECT_EQ(sim.stateAt("/decoder/uvc_list/0/play_status"), 1);
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

TEST_F(SimRequests, DomainDialectsAnswerInTheirOwnForms)
{
    const json ai =
        sim.web({{"func_module", "ai_api"}, {"path", "/ai/image_matting/get_matting_info"}});
    EXPECT_EQ(ai["rsp"], "success");
    EXPECT_TRUE(ai["data"]["user_bgfile_list"].is_array());
    const json venc = sim.web(request("video_api", "all", ""));
    EXPECT_TRUE(venc["all"]["venc"].is_array());
    const json audio = sim.web(request("audio_api", "all", ""));
    EXPECT_TRUE(audio["all"]["ai_type"].contains("selected_id"));
    const json ptz = sim.web(request("ptzctrl_api", "client", "set_client_info",
                                     {{"protocol", {{"protocol", 7}, {"name", "NDI"}}}}));
    EXPECT_EQ(statusOf(ptz), "invalid_protocol"); // NDI control only when decoding
}

TEST_F(SimRequests, UnknownOperationGetsAClearError)
{
    const json reply = sim.web(request("system_api", "lcd", "no_such_opt"));
    EXPECT_EQ(reply["rsp"], "failed");
    EXPECT_EQ(statusOf(reply), "1");
    EXPECT_NE(reply["msg"].get<std::string>().find("no_such_opt"), std::string::npos);

    std::string raw;
    ASSERT_GT(Client(sim.config.endpoints.webserver).send(json("not an object"), raw), 0);
    EXPECT_NE(raw.find("no JSON object"), std::string::npos);
}

} // namespace
