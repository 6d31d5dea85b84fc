// Operations that read the backend's state before they write: what they send
// back, the rules they apply on the way, and that a failed or unusable read
// sends nothing.
#include "scripted_backend.h"

namespace apitest {
namespace {

using A = AppManager;
using W = ZmqSubWorker;

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
    // What `operation` sent as `write`, having read `reply` from `read`.
    json written(const char* read, const json& reply, const std::function<int(A&)>& operation,
                 const char* write)
    {
        web.reply(read, reply);
        web.clearRequests();
        operation(*app);
        return sent(write);
    }
};

// The encoder settings go back as the whole stream array with one change; the
// NDI bitrate preset follows the bitrate inside 50..125.
TEST_F(ReadModifyWriteTest, VencSettersSendTheWholeArrayWithOneChange)
{
    const json state = json::parse(R"({"venc":[
        {"codec":{"selected_id":0},"profile":{"selected_id":1},"ratecontrol":{"selected_id":0},
         "bitrate":8000,"ndi_bitrate_pre":100,"width":1920,"height":1080,"framerate":60,"keyinterval":60,"stream_id":0},
        {"bitrate":2000,"ndi_bitrate_pre":80,"stream_id":1}],"vi":{"kept":true}})");
    VideoEncInfo third;
    std::tie(third.stream_id, third.codec, third.profile, third.ratecontrol, third.bitrate,
             third.ndi_bitrate_pre, third.width, third.height, third.framerate, third.keyinterval) =
        std::make_tuple(2, 1, 2, 1, 4000, 90, 640, 360, 30, 15);
    VideoEncInfo outOfRange = third;
    outOfRange.stream_id = 0;
    outOfRange.ndi_bitrate_pre = 200;
    const std::tuple<std::function<int(A&)>, int, const char*> cases[] = {
        {call(&W::setVideoEncCodecId, 1, 2), 1, R"({"codec":{"selected_id":2}})"},
        {call(&W::setVideoEncProfileId, 0, 3), 0, R"({"profile":{"selected_id":3}})"},
        {call(&W::setVideoEncRes, 1, 1280, 720), 1, R"({"width":1280,"height":720})"},
        {call(&W::setVideoEncRateControlId, 0, 1), 0, R"({"ratecontrol":{"selected_id":1}})"},
        {call(&W::setVideoEncFps, 1, 25), 1, R"({"framerate":25})"},
        {call(&W::setVideoEncKeyFrameInterval, 0, 30), 0, R"({"keyinterval":30})"},
        {call(&W::setVideoEncBitrate, 1, 49), 1, R"({"bitrate":49})"},
        {call(&W::setVideoEncBitrate, 1, 50), 1, R"({"bitrate":50,"ndi_bitrate_pre":50})"},
        {call(&W::setVideoEncBitrate, 0, 125), 0, R"({"bitrate":125,"ndi_bitrate_pre":125})"},
        {call(&W::setVideoEncBitrate, 0, 126), 0, R"({"bitrate":126})"},
        // A stream the array lacks is made; a preset out of range is not taken.
        {call(&W::setVideoEncParams, third), 2,
         R"({"codec":{"selected_id":1},"profile":{"selected_id":2},"ratecontrol":{"selected_id":1},
            "bitrate":4000,"ndi_bitrate_pre":90,"width":640,"height":360,"framerate":30,"keyinterval":15})"},
        {call(&W::setVideoEncParams, outOfRange), 0,
         R"({"codec":{"selected_id":1},"profile":{"selected_id":2},"ratecontrol":{"selected_id":1},
            "bitrate":4000,"width":640,"height":360,"framerate":30,"keyinterval":15})"}};
    for (const auto& [operation, stream, change] : cases) {
        json venc = state["venc"];
        venc[stream].merge_patch(json::parse(change));
        EXPECT_EQ(written("all", succeedWith("all", state), operation, "venc"),
                  json({{"func_module", "video_api"}, {"group", "venc"}, {"venc", venc}}))
            << change;
    }
}

// The state read goes back as the request's data with one key changed.
TEST_F(ReadModifyWriteTest, StateGoesBackWithOneKeyChanged)
{
    const char* output = R"({"format":"1080p60","audio_switch":0,"loop_out_switch":1})";
    const char* ndi = R"({"switch":1,"mode_id":2,"machinename":"BOX","discovery_enable":0})";
    const char* hdmi = R"({"func_module":"video_api","group":"hdmi","opt":"set_output_info"})";
    const char* ndiSet = R"({"func_module":"video_api","group":"ndi","opt":"set_ndi_info"})";
    // Read, state, operation, write, the write's envelope, the change.
    const std::tuple<const char*, const char*, std::function<int(A&)>, const char*, const char*,
                     const char*>
        cases[] = {{"get_output_info", output, call(&A::setVideoOutMuteSwitch, 1),
                    "set_output_info", hdmi, R"({"audio_switch":1})"},
                   {"get_output_info", output, call(&A::setVideoOutFormat, "720p50"),
                    "set_output_info", hdmi, R"({"format":"720p50"})"},
                   {"get_ndi_info", ndi, call(&A::setEncNdiQuality, 4), "set_ndi_info", ndiSet,
                    R"({"mode_id":4})"},
                   {"get_ndi_info", ndi, call(&W::setEncNdiDiscoverSwitch, 1), "set_ndi_info",
                    ndiSet, R"({"discovery_enable":1})"},
                   {"get_lan_info", R"({"ip":"10.0.0.2","ip_dhcp_switch":0})",
                    call(&W::setLanDhcpMode, 1), "set_lan_info",
                    R"({"func_module":"network_api","group":"lan","opt":"set_lan_info"})",
                    R"({"ip_dhcp_switch":1})"},
                   {"get_rtsp_auth", R"({"switch":0,"user":"admin"})", call(&W::setRtspAuthInfo, 1),
                    "rtsp_auth", R"({"func_module":"stream_api","group":"rtsp_auth"})",
                    R"({"switch":1})"}};
    for (const auto& [read, state, operation, write, envelope, change] : cases) {
        json expected = json::parse(envelope);
        expected["data"] = json::parse(state);
        expected["data"].merge_patch(json::parse(change));
        EXPECT_EQ(written(read, succeedWith("data", json::parse(state)), operation, write),
                  expected)
            << write << " " << change;
    }
}

// A read that fails returns its status, and the write never goes out.
TEST_F(ReadModifyWriteTest, FailedReadSendsNothing)
{
    const std::tuple<const char*, const char*, std::function<int(A&)>, int> cases[] = {
        {"all", R"({"rsp":"fail","all":{}})", call(&W::setVideoEncBitrate, 0, 60), -3},
        {"get_output_info", R"({"rsp":"fail"})", call(&A::setVideoOutFormat, "x"), -3},
        {"get_ndi_info", R"({"rsp":"succeed"})", call(&A::setEncNdiQuality, 1), -3},
        {"get_lan_info", "garbage", call(&W::setLanDhcpMode, 1), -3},
        {"get_rtsp_auth", R"({"rsp":"fail"})", call(&W::setRtspAuthInfo, 1), -3},
        {"all", "90001", call(&A::setAudioEncVolume, 5), -501},
        {"all", R"({"rsp":"failed"})", call(&A::setAudioEncSource, 1), -3},
        {"get_dcout_status", R"({"rsp":"fail"})", call(&A::setDcOutSwitch, 1), -3},
        {"get_client_info", "invalid_protocol", call(&A::setPtzProtocol, 1), -2},
        {"get_client_info", R"({"rsp":"succeed","data":{}})", call(&A::setPtzProtocol, 1), -3},
        {"/ai/ai_tracking/get_tracking_info", R"({"rsp":"succeed","data":{}})",
         call(&A::setAiEnable, 1), -3},
        {"/ai/ai_tracking/get_tracking_info", R"({"rsp":"success","data":{"nn_type":null}})",
         call(&A::setAiEnable, 1), -3},
        {"/ai/ai_tracking/get_tracking_info", R"({"rsp":"fail"})", call(&W::setAiTrackingMode, 1),
         -3},
        {"/ai/image_matting/get_matting_info", R"({"rsp":"succeed","data":{}})",
         call(&W::setGskBgColor, 2), -3},
        {"get_list_info", R"({"data":{}})", call(&A::setDecUvcOpen, 1), -3}};
    for (const auto& [read, reply, operation, status] : cases) {
        web.clearRequests();
        web.replyRaw(read, reply);
        EXPECT_EQ(operation(*app), status) << read << " " << reply;
        EXPECT_EQ(web.requests().size(), 1u)
            << read << " " << reply << ": only the read may go out";
    }
}

// The audio object goes back whole. Switching on pulls a sample rate outside
// the list back to 3; a new source fits the channels, the sample rate and the
// bitrate to what it can do.
TEST_F(ReadModifyWriteTest, AudioFitsTheDependentSettings)
{
    struct Case {
        const char* what;
        std::function<int(A&)> operation;
        const char* state;
        const char* change; // merged into the state
    };
    const auto source = [](int id) { return call(&A::setAudioEncSource, id); };
    const auto on = call(&A::setAudioEncSwitch, 1);
    const Case cases[] = {
        {"rate 9 back to 3", on, R"({"switch":0,"sample_rate":{"selected_id":9}})",
         R"({"switch":1,"sample_rate":{"selected_id":3}})"},
        {"rate 8 kept", on, R"({"switch":0,"sample_rate":{"selected_id":8}})", R"({"switch":1})"},
        {"rate -1 back to 3", on, R"({"switch":0,"sample_rate":{"selected_id":-1}})",
         R"({"switch":1,"sample_rate":{"selected_id":3}})"},
        {"rate 0 kept", on, R"({"sample_rate":{"selected_id":0}})", R"({"switch":1})"},
        {"a wide source keeps four channels", source(2),
         R"({"ai_type":{"selected_id":0},"ai_chnnum_real":4,"ai_chnnum_id":3,"ai_chnsel_id":2,"sample_rate":{"selected_id":3}})",
         R"({"ai_type":{"selected_id":2},"ai_chnsel_id":0})"},
        {"a wide source keeps the channel choice", source(2),
         R"({"ai_chnnum_real":4,"ai_chnnum_id":1,"ai_chnsel_id":2,"sample_rate":{"selected_id":3}})",
         R"({"ai_type":{"selected_id":2}})"},
        {"a narrow source falls back to stereo", source(1),
         R"({"ai_type":{"selected_id":2},"ai_chnnum_real":4,"ai_chnnum_id":3,"ai_chnsel_id":2,"sample_rate":{"selected_id":3}})",
         R"({"ai_type":{"selected_id":1},"ai_chnnum_id":1,"ai_chnsel_id":0})"},
        {"source 2 with two real channels is narrow", source(2),
         R"({"ai_chnnum_real":2,"ai_chnnum_id":3,"ai_chnsel_id":1,"sample_rate":{"selected_id":3}})",
         R"({"ai_type":{"selected_id":2},"ai_chnnum_id":1,"ai_chnsel_id":0})"},
        {"rate 6 refused with codec 1", source(0),
         R"({"codec":{"selected_id":1},"ai_chnnum_id":1,"sample_rate":{"selected_id":6}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0,"sample_rate":{"selected_id":4}})"},
        {"rate 6 kept with codec 0", source(0),
         R"({"codec":{"selected_id":0},"ai_chnnum_id":1,"sample_rate":{"selected_id":6}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0})"},
        {"rate 5 falls back", source(0), R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":5}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0,"sample_rate":{"selected_id":4}})"},
        {"rate 0 falls back", source(0),
         R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":0},"bitrate":{"selected_id":9}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0,"sample_rate":{"selected_id":4}})"},
        {"a missing rate decides as 4 and writes none", source(0),
         R"({"ai_chnnum_id":1,"bitrate":{"selected_id":9}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0})"},
        {"rate 1 sets bitrate 4", source(0),
         R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":1},"bitrate":{"selected_id":9}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0,"bitrate":{"selected_id":4}})"},
        {"rate 2 sets bitrate 5", source(0),
         R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":2},"bitrate":{"selected_id":9}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0,"bitrate":{"selected_id":5}})"},
        {"no bitrate object, none is made", source(0),
         R"({"ai_chnnum_id":1,"sample_rate":{"selected_id":2}})",
         R"({"ai_type":{"selected_id":0},"ai_chnsel_id":0})"}};
    for (const Case& c : cases) {
        json audio = json::parse(c.state);
        audio.merge_patch(json::parse(c.change));
        EXPECT_EQ(written("all", succeedWith("all", json::parse(c.state)), c.operation, "audio"),
                  json({{"func_module", "audio_api"}, {"group", "audio"}, {"audio", audio}}))
            << c.what;
    }
}

// Only a voltage the panel knows (1 or 2) is sent back, with the switch.
TEST_F(ReadModifyWriteTest, DcOutSendsOnlyAKnownVoltage)
{
    web.reply("set_dcout_status", {{"rsp", "succeed"}});
    for (const char* state : {R"({"switch":0,"voltage":1})", R"({"switch":0,"voltage":2})",
                              R"({"switch":0,"voltage":3})", R"({"switch":0})",
                              R"({"voltage":"2"})", "{}", "[]", "null"}) {
        web.replyRaw("get_dcout_status", std::string(R"({"rsp":"succeed","data":)") + state + "}");
        web.clearRequests();
        const json voltage =
            json::parse(state).is_object() ? json::parse(state).value("voltage", json()) : json();
        const bool known = voltage == 1 || voltage == 2;
        EXPECT_EQ(app->setDcOutSwitch(1), known ? 0 : -3) << state;
        const std::vector<json> writes = web.requestsOf("set_dcout_status");
        ASSERT_EQ(writes.size(), known ? 1u : 0u) << state;
        if (known)
            EXPECT_EQ(writes[0], json({{"func_module", "system_api"},
                                       {"group", "set_dcout_status"},
                                       {"data", {{"switch", 1}, {"voltage", voltage}}}}));
    }
}

// The protocol goes as its whole entry of the list on offer (an empty object
// where there is none), with the serial adapter's flag when it was read.
TEST_F(ReadModifyWriteTest, PtzSendsTheWholeProtocolEntry)
{
    const json list =
        json::parse(R"([{"name":"none"},{"name":"visca-ip","port":52381},"odd",{"name":"visca"}])");
    const std::tuple<int, json, json> cases[] = {
        {1,
         {{"protocol", 3}, {"usb2serial", 1}, {"protocol_list", list}},
         {{"protocol", list[1]}, {"usb2serial", 1}}},
        {3, {{"protocol", 1}, {"protocol_list", list}}, {{"protocol", list[3]}}},
        {2, {{"protocol_list", list}}, {{"protocol", json::object()}}},
        {9,
         {{"protocol_list", list}, {"usb2serial", 0}},
         {{"protocol", json::object()}, {"usb2serial", 0}}},
        {-1, {{"protocol_list", list}}, {{"protocol", json::object()}}},
        {1, {{"protocol", 1}}, {{"protocol", json::object()}}}};
    for (const auto& [protocol, state, data] : cases)
        EXPECT_EQ(written("get_client_info", succeedWith("data", state),
                          call(&A::setPtzProtocol, protocol), "set_client_info"),
                  json({{"func_module", "ptzctrl_api"},
                        {"group", "client"},
                        {"opt", "set_client_info"},
                        {"data", data}}))
            << protocol << " on " << state.dump();
}

TEST_F(ReadModifyWriteTest, AiSettersCarryTheServiceState)
{
    web.reply("/ai/ai_tracking/get_tracking_info",
              json::parse(R"({"rsp":"success","data":{"nn_enable":0,"nn_type":2,
        "object_tracking":{"configure":{"class_id":1,"figure_id":2,"placement_id":3,"mode_id":4,"speed_id":5,"control_enable":0,"extra":9}}}})"));
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
    EXPECT_EQ(sent("/ai/ai_tracking/update_tracking_info").value("class_id", 0), 7);
    EXPECT_EQ(sent("/ai/ai_tracking/update_tracking_info").value("speed_id", 0), 5);

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

// The panel opens a USB device only when the device's own checks passed.
TEST_F(ReadModifyWriteTest, UvcOpenChecksTheDeviceFirst)
{
    const json good =
        json::parse(R"({"id":5,"dev_check":1,"format_check":1,"resolution_check":1,"fps_check":1,
        "format":{"format_type":"mjpeg"},"resolution":{"width":1920,"height":1080},"fps":{"num":30,"den":1}})");
    auto with = [&](const char* patch) {
        json device = good;
        device.merge_patch(json::parse(patch));
        return device;
    };
    web.reply("uvc_open", {{"rsp", "succeed"}});
    const std::tuple<const char*, json, int> cases[] = {
        {"all checks pass", json::array({json{{"id", 1}}, good}), 0},
        {"the first matching id counts", json::array({with(R"({"fps_check":0})"), good}), -2},
        {"fps check 2", json::array({with(R"({"fps_check":2})")}), -2},
        {"device check missing", json::array({with(R"({"dev_check":null})")}), -2},
        {"no fps den", json::array({with(R"({"fps":{"den":null}})")}), -3},
        {"resolution not an object", json::array({with(R"({"resolution":1080})")}), -3},
        {"not listed", json::array({json{{"id", 4}}}), -3},
        {"list not an array", good, -3}};
    for (const auto& [what, list, status] : cases) {
        web.reply("get_list_info", {{"data", {{"uvc_list", list}}}});
        web.clearRequests();
        EXPECT_EQ(app->setDecUvcOpen(5), status) << what;
        const std::vector<json> opens = web.requestsOf("uvc_open");
        ASSERT_EQ(opens.size(), status == 0 ? 1u : 0u) << what;
        if (status == 0)
            EXPECT_EQ(
                opens[0],
                json::parse(
                    R"({"func_module":"mediaplayer_api","group":"uvc","opt":"uvc_open","data":{"id":5}})"));
    }
}

// The listener and its playback move together; the play switch goes out even
// after the listener failed, and the first failure is the result.
TEST_F(ReadModifyWriteTest, SrtServerSwitchSendsBothSwitches)
{
    web.reply("server_switch", {{"status", "140005"}});
    web.reply("play_switch", {{"status", "140006"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(0), -901);
    EXPECT_EQ(
        web.requests(),
        std::vector<json>(
            {json::parse(
                 R"({"func_module":"streamplay_api","group":"set_streamplay_srtserver_info","opt":"server_switch","data":{"server_switch":0}})"),
             json::parse(
                 R"({"func_module":"streamplay_api","group":"set_streamplay_srtserver_info","opt":"play_switch","data":{"play_switch":0}})")}));
    web.reply("server_switch", {{"rsp", "succeed"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(1), -902);
    web.reply("play_switch", {{"rsp", "succeed"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(1), 0);
}

} // namespace
} // namespace apitest
