// AppManager's typed getters: which keys fill which fields, what a missing
// key or a failed read leaves alone, and how the lists are rebuilt.
#include "scripted_backend.h"

namespace apitest {
namespace {

json succeedData(const json& data)
{
    return {{"rsp", "succeed"}, {"data", data}};
}

class DecodingGetterTest : public ApiTest {};

TEST_F(DecodingGetterTest, RecordsTakeOnlyTheKeysThatArePresent)
{
    VersionInfo version;
    version.SN = "kept";
    web.reply("get_sys_attr_info", succeedData({{"hardware_version", "H2"},
                                                {"firmware_version", "F9"},
                                                {"device_name", "Studio"}}));
    EXPECT_EQ(app->getSystemInfo(version), 0);
    EXPECT_EQ(version.hardware_version, "H2");
    EXPECT_EQ(version.firmware_version, "F9");
    EXPECT_EQ(version.device_name, "Studio");
    EXPECT_EQ(version.SN, "kept");

    // A wrong type stops the decoding; what came before it stays.
    web.reply("get_sys_attr_info",
              succeedData({{"hardware_version", "H3"}, {"firmware_version", 7}}));
    EXPECT_EQ(app->getSystemInfo(version), -3);
    EXPECT_EQ(version.hardware_version, "H3");
    EXPECT_EQ(version.firmware_version, "F9");

    // A failed read leaves the record as the caller had it.
    web.reply("get_sys_attr_info", {{"rsp", "fail"}, {"data", {{"SN", "X"}}}});
    EXPECT_EQ(app->getSystemInfo(version), -3);
    EXPECT_EQ(version.SN, "kept");

    // Data that is no object leaves the record, and counts as a good read.
    web.reply("get_sys_attr_info", succeedData(json::array({1})));
    EXPECT_EQ(app->getSystemInfo(version), 0);
    EXPECT_EQ(version.hardware_version, "H3");

    DashBoardInfo dashboard;
    web.reply("get_dashboard_info",
              succeedData({{"persistent_time", "12h"}, {"device_strat_time", "08:00"}}));
    EXPECT_EQ(app->getDashboardInfo(dashboard), 0);
    EXPECT_EQ(dashboard.persistent_time, "12h");
    EXPECT_EQ(dashboard.device_strat_time, "08:00");

    TallyInfo tally;
    tally.color_id = 9;
    web.reply("get_tally_led_info", succeedData({{"switch", 1}, {"mode_id", 2}}));
    EXPECT_EQ(app->getTallyInfo(tally), 0);
    EXPECT_EQ(tally, (TallyInfo{1, 2, 9}));

    ApInfo ap;
    web.reply("get_ap_info", succeedData({{"ssid", "Panel-AP"}, {"psk", "12345678"}}));
    EXPECT_EQ(app->getApInfo(ap), 0);
    EXPECT_EQ(ap, (ApInfo{"Panel-AP", "12345678"}));

    VideoOutInfo out;
    web.reply("get_output_info",
              succeedData({{"format", "1080p50"}, {"audio_switch", 1}, {"loop_out_switch", 0}}));
    EXPECT_EQ(app->getVideoOutInfo(out), 0);
    EXPECT_EQ(out, (VideoOutInfo{"1080p50", 1, 0}));

    EncNdiInfo ndi;
    web.reply("get_ndi_info", succeedData({{"switch", true}, {"mode_id", 3}}));
    EXPECT_EQ(app->getEncNdiInfo(ndi), 0);
    EXPECT_EQ(ndi.switch_on, 1);

    PtzctrlInfo ptz;
    web.reply("get_client_info", succeedData({{"protocol", 4.7}, {"usb2serial", true}}));
    EXPECT_EQ(app->getPtzctrlInfo(ptz), 0);
    EXPECT_EQ(ptz, (PtzctrlInfo{4, 1}));
    web.reply("get_client_info", succeedData({{"protocol", "4"}}));
    EXPECT_EQ(app->getPtzctrlInfo(ptz), -3);
}

TEST_F(DecodingGetterTest, AudioReadsSelectedIds)
{
    AudioAllInfo audio;
    audio.ao_volume = 77;
    web.reply(
        "all",
        {{"rsp", "succeed"},
         {"all", json::parse(R"({"switch":1,"ai_type":{"selected_id":2},"codec":{"selected_id":1},
                          "bitrate":{"selected_id":5},"sample_rate":{"list":[1]},"volume":30})")}});
    EXPECT_EQ(app->getAudioAllInfo(audio), 0);
    EXPECT_EQ(audio, (AudioAllInfo{1, 2, 1, 5, 0, 30, 77}));
}

TEST_F(DecodingGetterTest, NumbersReadFromTheirOwnValues)
{
    web.reply("get_fan_mode", succeedData({{"mode", 2}}));
    EXPECT_EQ(app->getFanMode(), 2);
    web.reply("get_fan_mode", succeedData(json::object()));
    EXPECT_EQ(app->getFanMode(), 0);
    web.reply("get_fan_mode", succeedData({{"mode", "2"}}));
    EXPECT_EQ(app->getFanMode(), -3);

    web.reply("get_lcd_theme", succeedData({{"lcd_theme_id", 1}}));
    EXPECT_EQ(app->getThemeID(), 1);
    web.reply("get_lcd_theme", succeedData({{"other", 1}}));
    EXPECT_EQ(app->getThemeID(), 0);
    web.reply("get_lcd_theme", {{"rsp", "fail"}});
    EXPECT_EQ(app->getThemeID(), -3);
}

TEST_F(DecodingGetterTest, AiRecordsReadMissingKeysAsZero)
{
    GskInfo gsk{5, 5};
    struct GskCase {
        json data;
        GskInfo expected;
    };
    for (const GskCase& c : std::vector<GskCase>{
             {{{"im_enable", 1}, {"user_bgfile_list", {"a.png", "b.png"}}}, {1, 2}},
             {{{"im_enable", true}, {"user_bgfile_list", {{"a", 1}}}}, {1, 1}},
             {{{"im_enable", 0.9}, {"user_bgfile_list", nullptr}}, {0, 0}},
             {json::object(), {0, 0}},
         }) {
        SCOPED_TRACE(c.data.dump());
        web.reply("/ai/image_matting/get_matting_info", {{"rsp", "success"}, {"data", c.data}});
        EXPECT_EQ(app->getGskInfo(gsk), 0);
        EXPECT_EQ(gsk, c.expected);
    }

    AiTrackingInfo tracking{1, 1};
    web.reply("/ai/ai_tracking/get_tracking_info",
              {{"rsp", "success"}, {"data", {{"nn_type", 3}}}});
    EXPECT_EQ(app->getAiTrackingInfo(tracking), 0);
    EXPECT_EQ(tracking, (AiTrackingInfo{0, 3}));
    web.reply("/ai/ai_tracking/get_tracking_info",
              {{"rsp", "succeed"}, {"data", {{"nn_type", 4}}}});
    EXPECT_EQ(app->getAiTrackingInfo(tracking), -3);
    EXPECT_EQ(tracking.nn_type, 3);
}

TEST_F(DecodingGetterTest, VencListIsAppended)
{
    std::vector<VideoEncInfo> list(1);
    web.reply(
        "all",
        {{"rsp", "succeed"},
         {"all", json::parse(R"({"venc":[{"codec":{"selected_id":1},"profile":{},"bitrate":500,
                          "ndi_bitrate_pre":60,"width":1280,"height":720,"framerate":30,"keyinterval":30,"stream_id":1},
                          "skipped",{"ratecontrol":{"selected_id":2}}]})")}});
    EXPECT_EQ(app->getVideoEncParams(list), 0);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[1], (VideoEncInfo{1, 0, 0, 500, 60, 1280, 720, 30, 30, 1}));
    EXPECT_EQ(list[2], (VideoEncInfo{0, 0, 2, 0, 0, 0, 0, 0, 0, 0}));

    web.reply("all", {{"rsp", "succeed"}, {"all", {{"venc", {{"bitrate", 1}}}}}});
    EXPECT_EQ(app->getVideoEncParams(list), 0);
    EXPECT_EQ(list.size(), 3u);
}

TEST_F(DecodingGetterTest, LocalServerReadsTheFirstSrtSwitch)
{
    struct SrtCase {
        json srt;
        int status;
        int switch_on;
    };
    for (const SrtCase& c : std::vector<SrtCase>{
             {json::array({{{"switch", true}}, {{"switch", 0}}}), 0, 1},
             {json::array({{{"switch", 1.9}}}), 0, 1},
             {json::array({{{"switch", 0}}}), 0, 0},
             {json::array({{{"switch", "1"}}}), -3, 7},
             {json::array(), 0, 7},
             {nullptr, 0, 7},
         }) {
        SCOPED_TRACE(c.srt.dump());
        std::vector<EncRtspInfo> rtsp(2);
        EncSrtInfo srt{7};
        web.reply("get_local_server",
                  succeedData(c.srt.is_null() ? json::object() : json{{"srt", c.srt}}));
        EXPECT_EQ(app->getEncLocalServerList(rtsp, srt), c.status);
        EXPECT_TRUE(rtsp.empty());
        EXPECT_EQ(srt.switch_on, c.switch_on);
    }
    std::vector<EncRtspInfo> rtsp(2);
    EncSrtInfo srt{7};
    web.reply("get_local_server", {{"rsp", "fail"}});
    EXPECT_EQ(app->getEncLocalServerList(rtsp, srt), -3);
    EXPECT_EQ(rtsp.size(), 2u);
}

TEST_F(DecodingGetterTest, RecordTaskList)
{
    std::vector<RecordTaskInfo> list(1);
    web.reply("get_task_list", succeedData(json::parse(R"([
        {"index":"rec0","storage_id":1,"status":2,"storageInfo":{"name":"USB"}},
        {"storage_id":3,"storageInfo":"NAS"},
        {"index":"rec2","storageInfo":{"size":1}}])")));
    EXPECT_EQ(app->getRecordTaskList(list), 0);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0], (RecordTaskInfo{"rec0", 1, 2, "USB"}));
    EXPECT_EQ(list[1], (RecordTaskInfo{"", 3, 0, ""}));
    EXPECT_EQ(list[2], (RecordTaskInfo{"rec2", 0, 0, ""}));

    web.reply("get_task_list", succeedData(json::array()));
    EXPECT_EQ(app->getRecordTaskList(list), 0);
    EXPECT_TRUE(list.empty());

    list.resize(1);
    web.reply("get_task_list", succeedData({{"index", "rec0"}}));
    EXPECT_EQ(app->getRecordTaskList(list), -3);
    EXPECT_TRUE(list.empty());

    list.resize(1);
    web.reply("get_task_list", succeedData(json::parse(R"([{"index":"a"},{"index":5}])")));
    EXPECT_EQ(app->getRecordTaskList(list), -3);
    EXPECT_EQ(list.size(), 1u);

    list.resize(4);
    web.reply("get_task_list", {{"rsp", "fail"}, {"data", json::array()}});
    EXPECT_EQ(app->getRecordTaskList(list), -3);
    EXPECT_EQ(list.size(), 4u);
}

TEST_F(DecodingGetterTest, DecoderLists)
{
    std::vector<DecNetStreamInfo> streams(2);
    web.reply("streamplay_get_all", {{"rsp", "failed"}, {"data", json::array()}});
    EXPECT_EQ(app->getDecNetStreamList(streams), 0);
    EXPECT_TRUE(streams.empty());

    web.reply("streamplay_get_all",
              succeedData(json::parse(
                  R"([{"index":2,"name":"Cam","switch":1,"streamplay_status":3},{"index":4}])")));
    EXPECT_EQ(app->getDecNetStreamList(streams), 0);
    ASSERT_EQ(streams.size(), 2u);
    EXPECT_EQ(streams[0], (DecNetStreamInfo{2, "Cam", 1, 3}));
    EXPECT_EQ(streams[1], (DecNetStreamInfo{4, "", 0, 0}));

    web.reply("streamplay_get_all", succeedData({{"index", 1}}));
    EXPECT_EQ(app->getDecNetStreamList(streams), -3);
    EXPECT_TRUE(streams.empty());

    std::vector<DecNdiInfo> sources;
    web.reply("ndi_get_all",
              succeedData(json::parse(R"([{"index":1,"name":"BOX-CAM","streamplay_status":1}])")));
    EXPECT_EQ(app->getDecNdiList(sources), 0);
    ASSERT_EQ(sources.size(), 1u);
    EXPECT_EQ(sources[0], (DecNdiInfo{1, "BOX-CAM", 1}));
    web.reply("ndi_get_all", succeedData(json::parse(R"([{"index":"1"}])")));
    EXPECT_EQ(app->getDecNdiList(sources), -3);

    DecSrtServerInfo info;
    web.reply("get_srt_server_info", succeedData({{"server_switch", 1}}));
    EXPECT_EQ(app->getDecSrtServerInfo(info), 0);
    web.reply("get_srt_server_info", {{"rsp", "succeed"}});
    EXPECT_EQ(app->getDecSrtServerInfo(info), -3);
}

TEST_F(DecodingGetterTest, UvcListNamesDevicesBehindAHub)
{
    struct UvcCase {
        const char* label;
        const char* list;
        std::vector<UvcDevInfo> expected;
    };
    for (
        const UvcCase& c : std::vector<UvcCase>{
            {"hub with two devices",
             R"([{"id":0,"usbhub_check":1,"name":"hub"},{"id":3,"dev_check":1},{"id":4,"switch":1,"fps_check":1}])",
             {{3, "hub1", true, 0, 0, 1, 0, 0, 0}, {4, "hub2", false, 1, 1, 0, 0, 0, 1}}},
            {"hub alone", R"([{"id":0,"usbhub_check":1}])", {}},
            {"no hub",
             R"([{"id":1,"usbhub_check":0,"play_status":2,"switch":1},{"id":2,"name":"Capture","format_check":1,"resolution_check":1}])",
             {{1, "USB", false, 1, 2, 0, 0, 0, 0}, {2, "Capture", true, 0, 0, 0, 1, 1, 0}}},
            {"empty", "[]", {}},
        }) {
        SCOPED_TRACE(c.label);
        std::vector<UvcDevInfo> list(1);
        web.replyRaw("get_list_info", std::string(R"({"data":{"uvc_list":)") + c.list + "}}");
        EXPECT_EQ(app->getDecUvcList(list), 0);
        EXPECT_EQ(list, c.expected);
    }
    std::vector<UvcDevInfo> list(1);
    web.reply("get_list_info", {{"data", {{"uvc_list", {{"id", 1}}}}}});
    EXPECT_EQ(app->getDecUvcList(list), -3);
    EXPECT_EQ(list.size(), 1u);
    web.reply("get_list_info", {{"data", {{"uvc_list", {{{"id", "1"}}}}}}});
    EXPECT_EQ(app->getDecUvcList(list), -3);
}

} // namespace
} // namespace apitest
