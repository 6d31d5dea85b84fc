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
    const json state = json::parse(R"({"venc":[{"codec":{"selected_id":0},"bitrate":8000,
        "ndi_bitrate_pre":100,"stream_id":0},{"bitrate":2000,"stream_id":1}],"vi":{"kept":true}})");
    // Codec, profile, rate control, bitrate, preset, size, rate, key interval, stream.
    const VideoEncInfo third{1, 2, 1, 4000, 90, 640, 360, 30, 15, 2};
    VideoEncInfo outOfRange = third;
    outOfRange.stream_id = 0;
    outOfRange.ndi_bitrate_pre = 200;
    const char* params = R"({"codec":{"selected_id":1},"profile":{"selected_id":2},
        "ratecontrol":{"selected_id":1},"bitrate":4000,"width":640,"height":360,"framerate":30,
        "keyinterval":15})";
    json withPreset = json::parse(params);
    withPreset["ndi_bitrate_pre"] = 90;
    const std::tuple<std::function<int(A&)>, int, json> cases[] = {
        {call(&W::setVideoEncCodecId, 1, 2), 1, {{"codec", {{"selected_id", 2}}}}},
        {call(&W::setVideoEncBitrate, 1, 49), 1, {{"bitrate", 49}}},
        {call(&W::setVideoEncBitrate, 1, 50), 1, {{"bitrate", 50}, {"ndi_bitrate_pre", 50}}},
        {call(&W::setVideoEncBitrate, 0, 125), 0, {{"bitrate", 125}, {"ndi_bitrate_pre", 125}}},
        {call(&W::setVideoEncBitrate, 0, 126), 0, {{"bitrate", 126}}},
        // A stream the array lacks is made; a preset out of range is not taken.
        {call(&W::setVideoEncParams, third), 2, withPreset},
        {call(&W::setVideoEncParams, outOfRange), 0, json::parse(params)}};
    for (const auto& [operation, stream, change] : cases) {
        json venc = state["venc"];
        venc[stream].merge_patch(change);
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
                   {"get_ndi_info", ndi, call(&A::setEncNdiQuality, 4), "set_ndi_info", ndiSet,
                    R"({"mode_id":4})"},
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
        {"all", "90001", call(&A::setAudioEncVolume, 5), -501},
        {"get_client_info", "invalid_protocol", call(&A::setPtzProtocol, 1), -2},
        {"get_client_info", R"({"rsp":"succeed","data":{}})", call(&A::setPtzProtocol, 1), -3},
        {"/ai/ai_tracking/get_tracking_info", R"({"rsp":"success","data":{"nn_type":null}})",
         call(&A::setAiEnable, 1), -3},
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
    auto expectAudio = [&](const json& state, const std::function<int(A&)>& operation,
                           const json& change, const std::string& what) {
        json audio = state;
        audio.merge_patch(change);
        EXPECT_EQ(written("all", succeedWith("all", state), operation, "audio"),
                  json({{"func_module", "audio_api"}, {"group", "audio"}, {"audio", audio}}))
            << what;
    };
    // Switching on: the sample rate read, and the one written.
    const std::pair<int, int> switchRates[] = {{9, 3}, {8, 8}, {-1, 3}};
    for (const auto& [rate, after] : switchRates)
        expectAudio({{"switch", 0}, {"sample_rate", {{"selected_id", rate}}}},
                    call(&A::setAudioEncSwitch, 1),
                    {{"switch", 1}, {"sample_rate", {{"selected_id", after}}}},
                    "switch on at rate " + std::to_string(rate));

    // A new source's channels: the source, the real channels, the channel
    // count and choice read, and the change.
    const std::tuple<int, int, int, const char*> channels[] = {
        {2, 4, 3, R"({"ai_chnsel_id":0})"},                   // a wide source keeps four channels
        {2, 4, 1, "{}"},                                      // and the channel choice
        {1, 4, 3, R"({"ai_chnnum_id":1,"ai_chnsel_id":0})"},  // a narrow one is stereo
        {2, 2, 3, R"({"ai_chnnum_id":1,"ai_chnsel_id":0})"}}; // two real channels are narrow
    for (const auto& [source, real, count, change] : channels) {
        json patch = json::parse(change);
        patch["ai_type"]["selected_id"] = source;
        expectAudio({{"ai_chnnum_real", real}, {"ai_chnnum_id", count}, {"ai_chnsel_id", 2}},
                    call(&A::setAudioEncSource, source), patch,
                    "source " + std::to_string(source) + " with " + std::to_string(real));
    }

    // A new source's sample rate (null: none) with codec 1 or 0: the rate
    // written (null: none), and the bitrate written over 9.
    const std::tuple<int, json, json, int> rates[] = {
        {1, 6, 4, 9},       {0, 6, nullptr, 9},       {0, 5, 4, 9},
        {0, 0, 4, 9},       {0, nullptr, nullptr, 9}, // read as 4
        {0, 1, nullptr, 4}, {0, 2, nullptr, 5}};
    for (const auto& [codec, rate, rateWritten, bitrate] : rates) {
        json state = {{"codec", {{"selected_id", codec}}}, {"ai_chnnum_id", 1}};
        state["bitrate"]["selected_id"] = 9;
        if (!rate.is_null())
            state["sample_rate"]["selected_id"] = rate;
        json change = {{"ai_type", {{"selected_id", 0}}}, {"ai_chnsel_id", 0}};
        change["bitrate"]["selected_id"] = bitrate;
        if (!rateWritten.is_null())
            change["sample_rate"]["selected_id"] = rateWritten;
        expectAudio(state, call(&A::setAudioEncSource, 0), change,
                    "rate " + rate.dump() + " with codec " + std::to_string(codec));
    }
    expectAudio({{"ai_chnnum_id", 1}, {"sample_rate", {{"selected_id", 2}}}},
                call(&A::setAudioEncSource, 0),
                {{"ai_type", {{"selected_id", 0}}}, {"ai_chnsel_id", 0}},
                "no bitrate object, none is made");
}

// Only a voltage the panel knows (1 or 2) is sent back, with the switch.
TEST_F(ReadModifyWriteTest, DcOutSendsOnlyAKnownVoltage)
{
    web.reply("set_dcout_status", {{"rsp", "succeed"}});
    for (const char* state :
         {R"({"switch":0,"voltage":1})", R"({"switch":0,"voltage":2})",
          R"({"switch":0,"voltage":3})", R"({"switch":0})", R"({"voltage":"2"})", "[]"}) {
        web.replyRaw("get_dcout_status", std::string(R"({"rsp":"succeed","data":)") + state + "}");
        web.clearRequests();
        const json voltage =
            json::parse(state).is_object() ? json::parse(state).value("voltage", json()) : json();
        const bool known = voltage == 1 || voltage == 2;
        EXPECT_EQ(app->setDcOutSwitch(1), known ? 0 : -3) << state;
        const std::vector<json> writes = web.requestsOf("set_dcout_status");
        ASSERT_EQ(writes.size(), known ? 1u : 0u) << state;
        if (known) {
            EXPECT_EQ(writes[0], json({{"func_module", "system_api"},
                                       {"group", "set_dcout_status"},
                                       {"data", {{"switch", 1}, {"voltage", voltage}}}}));
        }
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
        {"device check missing", json::array({with(R"({"dev_check":null})")}), -2},
        {"no fps den", json::array({with(R"({"fps":{"den":null}})")}), -3},
        {"not listed", json::array({json{{"id", 4}}}), -3},
        {"list not an array", good, -3}};
    for (const auto& [what, list, status] : cases) {
        web.reply("get_list_info", {{"data", {{"uvc_list", list}}}});
        web.clearRequests();
        EXPECT_EQ(app->setDecUvcOpen(5), status) << what;
        const std::vector<json> opens = web.requestsOf("uvc_open");
        EXPECT_EQ(opens.size(), status == 0 ? 1u : 0u) << what;
    }
}

// The listener and its playback move together; the play switch goes out even
// after the listener failed, and the first failure is the result.
TEST_F(ReadModifyWriteTest, SrtServerSwitchSendsBothSwitches)
{
    web.reply("server_switch", {{"status", "140005"}});
    web.reply("play_switch", {{"status", "140006"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(0), -901);
    std::vector<std::string> opts;
    for (const json& request : web.requests())
        opts.push_back(request.value("opt", ""));
    EXPECT_EQ(opts, (std::vector<std::string>{"server_switch", "play_switch"}));
    web.reply("server_switch", {{"rsp", "succeed"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(1), -902);
    web.reply("play_switch", {{"rsp", "succeed"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(1), 0);
}

} // namespace
} // namespace apitest
