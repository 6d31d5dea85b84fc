// Operations that read the backend's state before they write: what they
// send back, the rules they apply on the way, and that a failed or
// unusable read sends nothing.
#include "scripted_backend.h"

#include <functional>

namespace apitest {
namespace {

json succeedWith(const char* key, const json& value)
{
    return {{"rsp", "succeed"}, {key, value}};
}

class ReadModifyWriteTest : public ApiTest {
protected:
    // The last request named `operation`; fails the test when there is none.
    json sent(const std::string& operation)
    {
        const std::vector<json> requests = web.requestsOf(operation);
        EXPECT_FALSE(requests.empty()) << operation << " was not sent";
        return requests.empty() ? json() : requests.back();
    }
};

const json kVencState = json::parse(R"({"venc":[
    {"codec":{"selected_id":0,"list":[0,1]},"profile":{"selected_id":1},"ratecontrol":{"selected_id":0},
     "bitrate":8000,"ndi_bitrate_pre":100,"width":1920,"height":1080,"framerate":60,"keyinterval":60,"stream_id":0},
    {"bitrate":2000,"ndi_bitrate_pre":80,"stream_id":1}],"vi":{"kept":true}})");

TEST_F(ReadModifyWriteTest, VencSettersSendTheWholeArrayWithOneChange)
{
    web.reply("all", succeedWith("all", kVencState));
    struct VencCase {
        const char* label;
        std::function<int(ZmqSubWorker&)> call;
        int stream;
        json entry_change;
    };
    for (const VencCase& c : std::vector<VencCase>{
             {"codec",
              [](ZmqSubWorker& w) { return w.setVideoEncCodecId(1, 2); },
              1,
              {{"codec", {{"selected_id", 2}}}}},
             {"profile",
              [](ZmqSubWorker& w) { return w.setVideoEncProfileId(0, 3); },
              0,
              {{"profile", {{"selected_id", 3}}}}},
             {"resolution",
              [](ZmqSubWorker& w) { return w.setVideoEncRes(1, 1280, 720); },
              1,
              {{"width", 1280}, {"height", 720}}},
             {"rate control",
              [](ZmqSubWorker& w) { return w.setVideoEncRateControlId(0, 1); },
              0,
              {{"ratecontrol", {{"selected_id", 1}}}}},
             {"fps",
              [](ZmqSubWorker& w) { return w.setVideoEncFps(1, 25); },
              1,
              {{"framerate", 25}}},
             {"key interval",
              [](ZmqSubWorker& w) { return w.setVideoEncKeyFrameInterval(0, 30); },
              0,
              {{"keyinterval", 30}}},
             {"bitrate below ndi range",
              [](ZmqSubWorker& w) { return w.setVideoEncBitrate(1, 49); },
              1,
              {{"bitrate", 49}}},
             {"bitrate at ndi low end",
              [](ZmqSubWorker& w) { return w.setVideoEncBitrate(1, 50); },
              1,
              {{"bitrate", 50}, {"ndi_bitrate_pre", 50}}},
             {"bitrate at ndi high end",
              [](ZmqSubWorker& w) { return w.setVideoEncBitrate(0, 125); },
              0,
              {{"bitrate", 125}, {"ndi_bitrate_pre", 125}}},
             {"bitrate above ndi range",
              [](ZmqSubWorker& w) { return w.setVideoEncBitrate(0, 126); },
              0,
              {{"bitrate", 126}}},
         }) {
        SCOPED_TRACE(c.label);
        web.clearRequests();
        c.call(worker());
        json venc = kVencState["venc"];
        venc[c.stream].merge_patch(c.entry_change);
        EXPECT_EQ(sent("venc"),
                  json({{"func_module", "video_api"}, {"group", "venc"}, {"venc", venc}}));
    }
}

TEST_F(ReadModifyWriteTest, VencParamsSetEveryFieldAndMakeMissingStreams)
{
    web.reply("all", succeedWith("all", kVencState));
    VideoEncInfo info;
    info.stream_id = 2;
    info.codec = 1;
    info.profile = 2;
    info.ratecontrol = 1;
    info.bitrate = 4000;
    info.ndi_bitrate_pre = 90;
    info.width = 640;
    info.height = 360;
    info.framerate = 30;
    info.keyinterval = 15;
    worker().setVideoEncParams(info);
    json venc = kVencState["venc"];
    venc[2] = json::parse(
        R"({"codec":{"selected_id":1},"profile":{"selected_id":2},"ratecontrol":{"selected_id":1},
        "bitrate":4000,"ndi_bitrate_pre":90,"width":640,"height":360,"framerate":30,"keyinterval":15})");
    EXPECT_EQ(sent("venc")["venc"], venc);

    info.stream_id = 0;
    info.ndi_bitrate_pre = 200;
    worker().setVideoEncParams(info);
    EXPECT_EQ(sent("venc")["venc"][0]["ndi_bitrate_pre"], 100);
}

TEST_F(ReadModifyWriteTest, StateBecomesDataWithOneKeyChanged)
{
    const json output = {{"format", "1080p60"}, {"audio_switch", 0}, {"loop_out_switch", 1}};
    const json ndi = {
        {"switch", 1}, {"mode_id", 2}, {"machinename", "BOX"}, {"discovery_enable", 0}};
    const json lan = {{"ip", "10.0.0.2"}, {"ip_dhcp_switch", 0}};
    const json rtsp = {{"switch", 0}, {"user", "admin"}};
    web.reply("get_output_info", succeedWith("data", output));
    web.reply("get_ndi_info", succeedWith("data", ndi));
    web.reply("get_lan_info", succeedWith("data", lan));
    web.reply("get_rtsp_auth", succeedWith("data", rtsp));

    struct StateCase {
        const char* label;
        std::function<void(AppManager&)> call;
        const char* operation;
        json expected;
    };
    auto with = [](json state, const char* key, json value) {
        state[key] = std::move(value);
        return state;
    };
    for (const StateCase& c : std::vector<StateCase>{
             {"mute",
              [](AppManager& a) { a.setVideoOutMuteSwitch(1); },
              "set_output_info",
              {{"func_module", "video_api"},
               {"group", "hdmi"},
               {"opt", "set_output_info"},
               {"data", with(output, "audio_switch", 1)}}},
             {"format",
              [](AppManager& a) { a.setVideoOutFormat("720p50"); },
              "set_output_info",
              {{"func_module", "video_api"},
               {"group", "hdmi"},
               {"opt", "set_output_info"},
               {"data", with(output, "format", "720p50")}}},
             {"ndi quality",
              [](AppManager& a) { a.setEncNdiQuality(4); },
              "set_ndi_info",
              {{"func_module", "video_api"},
               {"group", "ndi"},
               {"opt", "set_ndi_info"},
               {"data", with(ndi, "mode_id", 4)}}},
             {"ndi discovery",
              [](AppManager& a) { a.subWorker()->setEncNdiDiscoverSwitch(1); },
              "set_ndi_info",
              {{"func_module", "video_api"},
               {"group", "ndi"},
               {"opt", "set_ndi_info"},
               {"data", with(ndi, "discovery_enable", 1)}}},
             {"dhcp",
              [](AppManager& a) { a.subWorker()->setLanDhcpMode(1); },
              "set_lan_info",
              {{"func_module", "network_api"},
               {"group", "lan"},
               {"opt", "set_lan_info"},
               {"data", with(lan, "ip_dhcp_switch", 1)}}},
             {"rtsp auth",
              [](AppManager& a) { a.subWorker()->setRtspAuthInfo(1); },
              "rtsp_auth",
              {{"func_module", "stream_api"},
               {"group", "rtsp_auth"},
               {"data", with(rtsp, "switch", 1)}}},
         }) {
        SCOPED_TRACE(c.label);
        web.clearRequests();
        c.call(*app);
        EXPECT_EQ(sent(c.operation), c.expected);
    }
}

// A read that fails returns its status, and the write never goes out.
TEST_F(ReadModifyWriteTest, FailedReadSendsNothing)
{
    struct FailCase {
        const char* label;
        const char* read_operation;
        const char* read_reply;
        std::function<int(AppManager&)> call;
        int status;
    };
    for (const FailCase& c : std::vector<FailCase>{
             {"venc", "all", R"({"rsp":"fail","all":{}})",
              [](AppManager& a) { return a.subWorker()->setVideoEncBitrate(0, 60); }, -3},
             {"hdmi", "get_output_info", R"({"rsp":"fail"})",
              [](AppManager& a) { return a.setVideoOutFormat("x"); }, -3},
             {"ndi", "get_ndi_info", R"({"rsp":"succeed"})",
              [](AppManager& a) { return a.setEncNdiQuality(1); }, -3},
             {"lan", "get_lan_info", "garbage",
              [](AppManager& a) { return a.subWorker()->setLanDhcpMode(1); }, -3},
             {"rtsp", "get_rtsp_auth", R"({"rsp":"fail"})",
              [](AppManager& a) { return a.subWorker()->setRtspAuthInfo(1); }, -3},
             {"audio code", "all", "90001", [](AppManager& a) { return a.setAudioEncVolume(5); },
              -501},
             {"audio source", "all", R"({"rsp":"failed"})",
              [](AppManager& a) { return a.setAudioEncSource(1); }, -3},
             {"dc out", "get_dcout_status", R"({"rsp":"fail"})",
              [](AppManager& a) { return a.setDcOutSwitch(1); }, -3},
             {"ptz", "get_client_info", "invalid_protocol",
              [](AppManager& a) { return a.setPtzProtocol(1); }, -2},
             {"ai enable", "/ai/ai_tracking/get_tracking_info", R"({"rsp":"succeed","data":{}})",
              [](AppManager& a) { return a.setAiEnable(1); }, -3},
             {"ai tracking", "/ai/ai_tracking/get_tracking_info", R"({"rsp":"fail"})",
              [](AppManager& a) { return a.subWorker()->setAiTrackingMode(1); }, -3},
             {"matting", "/ai/image_matting/get_matting_info", R"({"rsp":"succeed","data":{}})",
              [](AppManager& a) { return a.subWorker()->setGskBgColor(2); }, -3},
             {"uvc", "get_list_info", R"({"data":{}})",
              [](AppManager& a) { return a.setDecUvcOpen(1); }, -3},
         }) {
        SCOPED_TRACE(c.label);
        web.clearRequests();
        web.replyRaw(c.read_operation, c.read_reply);
        EXPECT_EQ(c.call(*app), c.status);
        EXPECT_EQ(web.requests().size(), 1u) << "only the read may go out";
    }
}

TEST_F(ReadModifyWriteTest, AudioSwitchPullsAnOutOfListRateBack)
{
    for (const auto& [rate, sent_rate] :
         std::vector<std::pair<int, int>>{{9, 3}, {8, 8}, {-1, 3}, {0, 0}}) {
        SCOPED_TRACE(rate);
        const json state = {{"switch", 0}, {"sample_rate", {{"selected_id", rate}}}, {"volume", 5}};
        web.reply("all", succeedWith("all", state));
        web.clearRequests();
        app->setAudioEncSwitch(1);
        json expected = state;
        expected["switch"] = 1;
        expected["sample_rate"]["selected_id"] = sent_rate;
        EXPECT_EQ(sent("audio"),
                  json({{"func_module", "audio_api"}, {"group", "audio"}, {"audio", expected}}));
    }
}

TEST_F(ReadModifyWriteTest, AudioSourceFitsTheDependentSettings)
{
    struct SourceCase {
        const char* label;
        int source;
        json state;    // the encoder's state before
        json expected; // the object sent back
    };
    const std::vector<SourceCase> cases = {
        {"wide source keeps four channels", 2,
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_real":4,"ai_chnnum_id":3,"ai_chnsel_id":2,"sample_rate":{"selected_id":3}})"),
         json::parse(
             R"({"ai_type":{"selected_id":2},"ai_chnnum_real":4,"ai_chnnum_id":3,"ai_chnsel_id":0,"sample_rate":{"selected_id":3}})")},
        {"wide source keeps the channel choice", 2,
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_real":4,"ai_chnnum_id":1,"ai_chnsel_id":2,"sample_rate":{"selected_id":3}})"),
         json::parse(
             R"({"ai_type":{"selected_id":2},"ai_chnnum_real":4,"ai_chnnum_id":1,"ai_chnsel_id":2,"sample_rate":{"selected_id":3}})")},
        {"narrow source falls back to stereo", 1,
         json::parse(
             R"({"ai_type":{"selected_id":2},"ai_chnnum_real":4,"ai_chnnum_id":3,"ai_chnsel_id":2,"sample_rate":{"selected_id":3}})"),
         json::parse(
             R"({"ai_type":{"selected_id":1},"ai_chnnum_real":4,"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":3}})")},
        {"source 2 with two real channels is narrow", 2,
         json::parse(
             R"({"ai_chnnum_real":2,"ai_chnnum_id":3,"ai_chnsel_id":1,"sample_rate":{"selected_id":3}})"),
         json::parse(
             R"({"ai_type":{"selected_id":2},"ai_chnnum_real":2,"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":3}})")},
        {"rate 6 is refused with codec 1", 0,
         json::parse(
             R"({"codec":{"selected_id":1},"ai_chnnum_id":1,"sample_rate":{"selected_id":6}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"codec":{"selected_id":1},"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":4}})")},
        {"rate 6 stays with codec 0", 0,
         json::parse(
             R"({"codec":{"selected_id":0},"ai_chnnum_id":1,"sample_rate":{"selected_id":6}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"codec":{"selected_id":0},"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":6}})")},
        {"rate 5 falls back", 0,
         json::parse(R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":5}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":4}})")},
        {"rate 0 falls back", 0,
         json::parse(
             R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":0},"bitrate":{"selected_id":9}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":4},"bitrate":{"selected_id":9}})")},
        {"missing rate decides as 4 and writes nothing", 0,
         json::parse(R"({"ai_chnnum_id":1,"bitrate":{"selected_id":9}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_id":1,"ai_chnsel_id":0,"bitrate":{"selected_id":9}})")},
        {"rate 1 sets bitrate 4", 0,
         json::parse(
             R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":1},"bitrate":{"selected_id":9}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":1},"bitrate":{"selected_id":4}})")},
        {"rate 2 sets bitrate 5, only if there is a bitrate", 0,
         json::parse(
             R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":2},"bitrate":{"selected_id":9}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":2},"bitrate":{"selected_id":5}})")},
        {"no bitrate object, none is made", 0,
         json::parse(R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":2}})"),
         json::parse(
             R"({"ai_type":{"selected_id":0},"ai_chnnum_id":1,"ai_chnsel_id":0,"sample_rate":{"selected_id":2}})")},
    };
    for (const SourceCase& c : cases) {
        SCOPED_TRACE(c.label);
        web.reply("all", succeedWith("all", c.state));
        web.clearRequests();
        app->setAudioEncSource(c.source);
        EXPECT_EQ(sent("audio"),
                  json({{"func_module", "audio_api"}, {"group", "audio"}, {"audio", c.expected}}));
    }
}

TEST_F(ReadModifyWriteTest, DcOutSendsOnlyAKnownVoltage)
{
    struct VoltageCase {
        const char* state;
        int status_if_refused; // 0: the request goes out
    };
    web.reply("set_dcout_status", {{"rsp", "succeed"}});
    for (const VoltageCase& c : std::vector<VoltageCase>{
             {R"({"switch":0,"voltage":1})", 0},
             {R"({"switch":0,"voltage":2})", 0},
             {R"({"switch":0,"voltage":3})", -3},
             {R"({"switch":0})", -3},
             {R"({"voltage":"2"})", -3},
             {"{}", -3},
             {"[]", -3},
             {"null", -3},
         }) {
        SCOPED_TRACE(c.state);
        web.replyRaw("get_dcout_status",
                     std::string(R"({"rsp":"succeed","data":)") + c.state + "}");
        web.clearRequests();
        const int status = app->setDcOutSwitch(1);
        if (c.status_if_refused != 0) {
            EXPECT_EQ(status, c.status_if_refused);
            EXPECT_TRUE(web.requestsOf("set_dcout_status").empty());
            continue;
        }
        EXPECT_EQ(status, 0);
        json expected = {{"func_module", "system_api"},
                         {"group", "set_dcout_status"},
                         {"data", {{"switch", 1}, {"voltage", json::parse(c.state)["voltage"]}}}};
        EXPECT_EQ(sent("set_dcout_status"), expected);
    }
}

TEST_F(ReadModifyWriteTest, PtzSendsTheWholeProtocolEntry)
{
    const json list =
        json::parse(R"([{"name":"none"},{"name":"visca-ip","port":52381},"odd",{"name":"visca"}])");
    struct PtzCase {
        int protocol;
        json state;
        json data;
    };
    for (const PtzCase& c : std::vector<PtzCase>{
             {1,
              {{"protocol", 3}, {"usb2serial", 1}, {"protocol_list", list}},
              {{"protocol", list[1]}, {"usb2serial", 1}}},
             {3, {{"protocol", 1}, {"protocol_list", list}}, {{"protocol", list[3]}}},
             {2, {{"protocol_list", list}}, {{"protocol", json::object()}}},
             {9,
              {{"protocol_list", list}, {"usb2serial", 0}},
              {{"protocol", json::object()}, {"usb2serial", 0}}},
             {-1, {{"protocol_list", list}}, {{"protocol", json::object()}}},
             {1, {{"protocol", 1}}, {{"protocol", json::object()}}},
         }) {
        SCOPED_TRACE(c.protocol);
        web.reply("get_client_info", succeedWith("data", c.state));
        web.clearRequests();
        app->setPtzProtocol(c.protocol);
        EXPECT_EQ(sent("set_client_info"), json({{"func_module", "ptzctrl_api"},
                                                 {"group", "client"},
                                                 {"opt", "set_client_info"},
                                                 {"data", c.data}}));
    }
    web.reply("get_client_info", succeedWith("data", json::object()));
    web.clearRequests();
    EXPECT_EQ(app->setPtzProtocol(1), -3);
    EXPECT_TRUE(web.requestsOf("set_client_info").empty());
}

TEST_F(ReadModifyWriteTest, AiSettersCarryTheServiceState)
{
    const json tracking = json::parse(R"({"rsp":"success","data":{"nn_enable":0,"nn_type":2,
        "object_tracking":{"configure":{"class_id":1,"figure_id":2,"placement_id":3,"mode_id":4,"speed_id":5,"control_enable":0,"extra":9}}}})");
    web.reply("/ai/ai_tracking/get_tracking_info", tracking);

    app->setAiEnable(1);
    EXPECT_EQ(
        sent("/ai/ai_tracking/tracking_enable"),
        json::parse(
            R"({"func_module":"ai_api","path":"/ai/ai_tracking/tracking_enable","nn_enable":1,"nn_type":2})"));

    worker().setAiTrackingSpeed(1);
    EXPECT_EQ(sent("/ai/ai_tracking/update_tracking_info"),
              json::parse(R"({"func_module":"ai_api","path":"/ai/ai_tracking/update_tracking_info",
                  "class_id":1,"figure_id":2,"placement_id":3,"mode_id":4,"speed_id":1,"control_enable":0})"));
    worker().setAiTrackingClass(7);
    EXPECT_EQ(sent("/ai/ai_tracking/update_tracking_info")["class_id"], 7);
    EXPECT_EQ(sent("/ai/ai_tracking/update_tracking_info")["speed_id"], 5);

    web.reply("/ai/ai_tracking/get_tracking_info",
              json::parse(R"({"rsp":"success","data":{"nn_enable":0,"nn_type":null}})"));
    web.clearRequests();
    EXPECT_EQ(app->setAiEnable(1), -3);
    EXPECT_TRUE(web.requestsOf("/ai/ai_tracking/tracking_enable").empty());

    // A matting update only checks that the service answers.
    web.reply("/ai/image_matting/get_matting_info",
              json::parse(R"({"rsp":"success","data":{"im_enable":1}})"));
    web.reply("/ai/image_matting/update_im_info", json::object());
    EXPECT_EQ(worker().setGskMaxBgCf(40), 0);
    EXPECT_EQ(
        sent("/ai/image_matting/update_im_info"),
        json::parse(
            R"({"func_module":"ai_api","path":"/ai/image_matting/update_im_info","max_bg_cf":40})"));
}

TEST_F(ReadModifyWriteTest, UvcOpenChecksTheDeviceFirst)
{
    const json good =
        json::parse(R"({"id":5,"dev_check":1,"format_check":1,"resolution_check":1,"fps_check":1,
        "format":{"format_type":"mjpeg"},"resolution":{"width":1920,"height":1080},"fps":{"num":30,"den":1}})");
    auto with = [&](const char* key, json value) {
        json device = good;
        device[key] = std::move(value);
        return device;
    };
    auto without = [&](const char* key, const char* inner) {
        json device = good;
        device[key].erase(inner);
        return device;
    };
    struct UvcCase {
        const char* label;
        json list;
        int status;
    };
    web.reply("uvc_open", {{"rsp", "succeed"}});
    for (const UvcCase& c : std::vector<UvcCase>{
             {"all checks pass", json::array({json{{"id", 1}}, good}), 0},
             {"first matching id wins", json::array({with("fps_check", 0), good}), -2},
             {"fps check 2", json::array({with("fps_check", 2)}), -2},
             {"device check missing", json::array({[&] {
                  json d = good;
                  d.erase("dev_check");
                  return d;
              }()}),
              -2},
             {"no fps den", json::array({without("fps", "den")}), -3},
             {"resolution not an object", json::array({with("resolution", 1080)}), -3},
             {"not listed", json::array({json{{"id", 4}}}), -3},
             {"list not an array", json{{"id", 5}}, -3},
         }) {
        SCOPED_TRACE(c.label);
        web.reply("get_list_info", {{"data", {{"uvc_list", c.list}}}});
        web.clearRequests();
        EXPECT_EQ(app->setDecUvcOpen(5), c.status);
        if (c.status == 0) {
            EXPECT_EQ(
                sent("uvc_open"),
                json::parse(
                    R"({"func_module":"mediaplayer_api","group":"uvc","opt":"uvc_open","data":{"id":5}})"));
        } else {
            EXPECT_TRUE(web.requestsOf("uvc_open").empty());
        }
    }
}

} // namespace
} // namespace apitest
