// AppManager's typed getters: which keys fill which fields, what a missing
// key, a wrong type or a failed read leaves alone, and how lists are rebuilt.
#include "scripted_backend.h"

namespace apitest {
namespace {

using A = AppManager;

std::string ok(const std::string& data)
{
    return R"({"rsp":"succeed","data":)" + data + "}";
}

std::string aiOk(const std::string& data)
{
    return R"({"rsp":"success","data":)" + data + "}";
}

class TypedGetterTest : public ApiTest {
protected:
    // Reads `record` through `get` from `reply`, then compares.
    template <class R>
    void expectRead(const char* operation, const std::string& reply, int (A::*get)(R&), R record,
                    int status, const R& expected)
    {
        SCOPED_TRACE(std::string(operation) + " " + reply);
        web.replyRaw(operation, reply);
        EXPECT_EQ((app.get()->*get)(record), status);
        EXPECT_TRUE(record == expected);
    }
};

TEST_F(TypedGetterTest, RecordsTakeThePresentKeysUpToAWrongType)
{
    const VersionInfo kept{"H1", "F1", "Name", "SN1"};
    const char* attr = "get_sys_attr_info";
    expectRead(attr, ok(R"({"hardware_version":"H2","device_name":"Box"})"), &A::getSystemInfo,
               kept, 0, VersionInfo{"H2", "F1", "Box", "SN1"});
    expectRead(attr, ok(R"({"hardware_version":"H3","firmware_version":7,"SN":"X"})"),
               &A::getSystemInfo, kept, -3, VersionInfo{"H3", "F1", "Name", "SN1"});
    expectRead(attr, R"({"rsp":"fail","data":{"SN":"X"}})", &A::getSystemInfo, kept, -3, kept);
    expectRead(attr, ok("[1]"), &A::getSystemInfo, kept, 0, kept);
    expectRead("get_dashboard_info", ok(R"({"persistent_time":"12h","device_strat_time":"08:00"})"),
               &A::getDashboardInfo, DashBoardInfo{}, 0, DashBoardInfo{"12h", "08:00"});
    expectRead("get_tally_led_info", ok(R"({"switch":1,"mode_id":2})"), &A::getTallyInfo,
               TallyInfo{0, 0, 9}, 0, TallyInfo{1, 2, 9});
    expectRead("get_ap_info", ok(R"({"ssid":"Panel-AP","psk":"12345678"})"), &A::getApInfo,
               ApInfo{}, 0, ApInfo{"Panel-AP", "12345678"});
    expectRead("get_output_info",
               ok(R"({"format":"1080p50","audio_switch":1,"loop_out_switch":0})"),
               &A::getVideoOutInfo, VideoOutInfo{"x", 5, 5}, 0, VideoOutInfo{"1080p50", 1, 0});
    expectRead("get_ndi_info", ok(R"({"switch":true,"mode_id":3})"), &A::getEncNdiInfo,
               EncNdiInfo{}, 0, EncNdiInfo{1});
    // Booleans and fractions count as numbers; text does not.
    expectRead("get_client_info", ok(R"({"protocol":4.7,"usb2serial":true})"), &A::getPtzctrlInfo,
               PtzctrlInfo{}, 0, PtzctrlInfo{4, 1});
    expectRead("get_client_info", ok(R"({"protocol":"4"})"), &A::getPtzctrlInfo, PtzctrlInfo{}, -3,
               PtzctrlInfo{});
    expectRead(
        "all",
        R"({"rsp":"succeed","all":{"switch":1,"ai_type":{"selected_id":2},"codec":{"selected_id":1},
                  "bitrate":{"selected_id":5},"sample_rate":{"list":[1]},"volume":30}})",
        &A::getAudioAllInfo, AudioAllInfo{0, 0, 0, 0, 9, 0, 77}, 0,
        AudioAllInfo{1, 2, 1, 5, 9, 30, 77});

    // Single numbers: a missing key reads as 0, a wrong type fails.
    const std::tuple<const char*, std::string, std::function<int(A&)>, int> numbers[] = {
        {"get_fan_mode", ok(R"({"mode":2})"), &A::getFanMode, 2},
        {"get_fan_mode", ok("{}"), &A::getFanMode, 0},
        {"get_fan_mode", ok(R"({"mode":"2"})"), &A::getFanMode, -3},
        {"get_lcd_theme", ok(R"({"lcd_theme_id":1})"), &A::getThemeID, 1}};

    for (const auto& [operation, reply, get, value] : numbers) {
        web.replyRaw(operation, reply);
        EXPECT_EQ(get(*app), value) << operation << " " << reply;
    }
}

TEST_F(TypedGetterTest, AiRecordsReadMissingKeysAsZero)
{
    const char* matting = "/ai/image_matting/get_matting_info";
    const GskInfo old{5, 5};
    expectRead(matting, aiOk(R"({"im_enable":1,"user_bgfile_list":["a.png","b.png"]})"),
               &A::getGskInfo, old, 0, GskInfo{1, 2});
    expectRead(matting, aiOk(R"({"im_enable":0.9,"user_bgfile_list":null})"), &A::getGskInfo, old,
               0, GskInfo{0, 0});
    const char* tracking = "/ai/ai_tracking/get_tracking_info";
    expectRead(tracking, aiOk(R"({"nn_type":3})"), &A::getAiTrackingInfo, AiTrackingInfo{1, 1}, 0,
               AiTrackingInfo{0, 3});
    expectRead(tracking, ok(R"({"nn_type":4})"), &A::getAiTrackingInfo, AiTrackingInfo{1, 1}, -3,
               AiTrackingInfo{1, 1});
}

TEST_F(TypedGetterTest, ListsAreRebuiltOrLeftWhole)
{
    // Encoder streams are appended, entries that are no object skipped.
    const VideoEncInfo one{7, 7, 7, 7, 7, 7, 7, 7, 7, 7};
    expectRead(
        "all",
        R"({"rsp":"succeed","all":{"venc":[{"codec":{"selected_id":1},"profile":{},"bitrate":500,
                  "ndi_bitrate_pre":60,"width":1280,"height":720,"framerate":30,"keyinterval":30,"stream_id":1},
                  "skipped",{"ratecontrol":{"selected_id":2}}]}})",
        &A::getVideoEncParams, std::vector<VideoEncInfo>{one}, 0,
        {one, {1, 0, 0, 500, 60, 1280, 720, 30, 30, 1}, {0, 0, 2, 0, 0, 0, 0, 0, 0, 0}});
    expectRead("all", R"({"rsp":"succeed","all":{"venc":{"bitrate":1}}})", &A::getVideoEncParams,
               std::vector<VideoEncInfo>{one}, 0, {one});

    using Tasks = std::vector<RecordTaskInfo>;
    const Tasks old{{"old", 0, 0, ""}, {"old", 0, 0, ""}};
    expectRead("get_task_list",
               ok(R"([{"index":"rec0","storage_id":1,"status":2,"storageInfo":{"name":"USB"}},
        {"storage_id":3,"storageInfo":"NAS"},{"index":"rec2","storageInfo":{"size":1}}])"),
               &A::getRecordTaskList, old, 0,
               Tasks{{"rec0", 1, 2, "USB"}, {"", 3, 0, ""}, {"rec2", 0, 0, ""}});
    expectRead("get_task_list", ok(R"({"index":"rec0"})"), &A::getRecordTaskList, old, -3, Tasks{});
    expectRead("get_task_list", ok(R"([{"index":"a"},{"index":5}])"), &A::getRecordTaskList, old,
               -3, Tasks{{"a", 0, 0, ""}});
    expectRead("get_task_list", R"({"rsp":"fail","data":[]})", &A::getRecordTaskList, old, -3, old);

    using Pulls = std::vector<DecNetStreamInfo>;
    const Pulls pulls{{9, "old", 0, 0}};
    expectRead("streamplay_get_all",
               ok(R"([{"index":2,"name":"Cam","switch":1,"streamplay_status":3},{"index":4}])"),
               &A::getDecNetStreamList, pulls, 0, Pulls{{2, "Cam", 1, 3}, {4, "", 0, 0}});
    expectRead("streamplay_get_all", ok(R"({"index":1})"), &A::getDecNetStreamList, pulls, -3,
               Pulls{});
    expectRead("ndi_get_all", ok(R"([{"index":1,"name":"BOX-CAM","streamplay_status":1}])"),
               &A::getDecNdiList, std::vector<DecNdiInfo>{}, 0, {{1, "BOX-CAM", 1}});
    DecSrtServerInfo nothing; // the switches are read as JSON by the poller
    web.replyRaw("get_srt_server_info", ok(R"({"server_switch":1})"));
    EXPECT_EQ(app->getDecSrtServerInfo(nothing), 0);
    web.replyRaw("get_srt_server_info", R"({"rsp":"succeed"})");
    EXPECT_EQ(app->getDecSrtServerInfo(nothing), -3);
}

// Behind a USB hub the first entry is the hub; the devices behind it are
// named after their place, the others "USB" unless they have a name.
TEST_F(TypedGetterTest, UsbDevicesAreNamedByTheirPlace)
{
    using Devices = std::vector<UvcDevInfo>;
    const Devices old(1);
    auto list = [](const char* devices) {
        return std::string(R"({"data":{"uvc_list":)") + devices + "}}";
    };
    expectRead(
        "get_list_info",
        list(
            R"([{"id":0,"usbhub_check":1,"name":"hub"},{"id":3,"dev_check":1},{"id":4,"switch":1,"fps_check":1}])"),
        &A::getDecUvcList, old, 0,
        Devices{{3, "hub1", true, 0, 0, 1, 0, 0, 0}, {4, "hub2", false, 1, 1, 0, 0, 0, 1}});
    expectRead("get_list_info", list(R"([{"id":0,"usbhub_check":1}])"), &A::getDecUvcList, old, 0,
               Devices{});
    expectRead(
        "get_list_info",
        list(
            R"([{"id":1,"usbhub_check":0,"play_status":2,"switch":1},{"id":2,"name":"Capture","format_check":1,"resolution_check":1}])"),
        &A::getDecUvcList, old, 0,
        Devices{{1, "USB", false, 1, 2, 0, 0, 0, 0}, {2, "Capture", true, 0, 0, 0, 1, 1, 0}});
    expectRead("get_list_info", list(R"({"id":1})"), &A::getDecUvcList, old, -3, old);
    expectRead("get_list_info", list(R"([{"id":"1"}])"), &A::getDecUvcList, old, -3, Devices{});
}

// The local servers: the RTSP list is always emptied; the SRT switch is the
// first entry's.
TEST_F(TypedGetterTest, LocalServersReadTheFirstSrtSwitch)
{
    const std::tuple<std::string, int, int, std::size_t> cases[] = {
        {ok(R"({"srt":[{"switch":true},{"switch":0}]})"), 0, 1, 0},
        {ok(R"({"srt":[{"switch":0}]})"), 0, 0, 0},
        {ok(R"({"srt":[{"switch":"1"}]})"), -3, 7, 0},
        {ok(R"({"srt":[]})"), 0, 7, 0},
        {R"({"rsp":"fail"})", -3, 7, 2}};
    for (const auto& [reply, status, srt_switch, rtsp_left] : cases) {
        web.replyRaw("get_local_server", reply);
        std::vector<EncRtspInfo> rtsp(2);
        EncSrtInfo srt{7};
        EXPECT_EQ(app->getEncLocalServerList(rtsp, srt), status) << reply;
        EXPECT_EQ(srt.switch_on, srt_switch) << reply;
        EXPECT_EQ(rtsp.size(), rtsp_left) << reply;
    }
}

} // namespace
} // namespace apitest
