// Every operation the API can send reaches an operation the simulator knows,
// with the body the API builds: a new operation on either side that the
// other lacks shows up here.
#include "sim_backend.h"
#include "support/scripted_daemon.h"
#include "wire_operations.h"

#include "handlers/replies.h"

namespace apitest {
namespace {

struct StatefulOperation {
    const char* wire_name; // the request's opt, else group, else path
    std::function<void(ZmqSubWorker&)> call;
};

// The operations whose request depends on what they read first, so that
// their exact bodies are tested against scripted states instead.
std::vector<StatefulOperation> statefulOperations()
{
    using W = ZmqSubWorker;
    VideoEncInfo stream;
    stream.stream_id = 1;
    stream.bitrate = 3000;
    stream.width = 1280;
    stream.height = 720;
    stream.framerate = 30;
    stream.keyinterval = 30;
    return {
        {"set_lan_info", [](W& w) { w.setLanDhcpMode(0); }},
        {"set_ndi_info", [](W& w) { w.setEncNdiDiscoverSwitch(1); }},
        {"set_ndi_info", [](W& w) { w.setEncNdiQuality(3); }},
        {"set_output_info", [](W& w) { w.setVideoOutMuteSwitch(0); }},
        {"set_output_info", [](W& w) { w.setVideoOutFormat("1080p50"); }},
        {"venc", [stream](W& w) { w.setVideoEncParams(stream); }},
        {"venc", [](W& w) { w.setVideoEncCodecId(0, 1); }},
        {"venc", [](W& w) { w.setVideoEncProfileId(0, 2); }},
        {"venc", [](W& w) { w.setVideoEncRes(0, 1280, 720); }},
        {"venc", [](W& w) { w.setVideoEncRateControlId(0, 1); }},
        {"venc", [](W& w) { w.setVideoEncBitrate(0, 100); }},
        {"venc", [](W& w) { w.setVideoEncFps(0, 30); }},
        {"venc", [](W& w) { w.setVideoEncKeyFrameInterval(0, 30); }},
        {"audio", [](W& w) { w.setAudioEncSwitch(1); }},
        {"audio", [](W& w) { w.setAudioEncCodecId(1); }},
        {"audio", [](W& w) { w.setAudioEncChannel(1); }},
        {"audio", [](W& w) { w.setAudioEncSampleRate(3); }},
        {"audio", [](W& w) { w.setAudioEncBitrate(3); }},
        {"audio", [](W& w) { w.setAudioEncVolume(60); }},
        {"audio", [](W& w) { w.setAudioEncSource(1); }},
        {"rtsp_auth", [](W& w) { w.setRtspAuthInfo(1); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskBgColor(1); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskBgLf(40); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskMaxBgCf(70); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskMinBgCf(10); }},
        {"/ai/ai_tracking/tracking_enable", [](W& w) { w.setAiEnable(1); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingEnable(1); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingClass(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingFigure(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingPlacement(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingMode(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingSpeed(2); }},
        {"set_client_info", [](W& w) { w.setPtzProtocol(3); }},
        {"set_dcout_status", [](W& w) { w.setDcOutSwitch(1); }},
        {"server_switch", [](W& w) { w.setDecSrtServerSwitch(1); }},
        {"uvc_open", [](W& w) { w.setDecUvcOpen(0); }},
        {"get_hardwaredom", readInt<&W::getConnectAppFirstUseFlag>},
        {"get_osddom", [](W& w) { w.initSubCacheFromApi(); }},
    };
}

class SimCoverageTest : public SimBackendTest {
protected:
    void expectReachesTheSimulator(const char* wire_name, const std::function<void()>& call)
    {
        SCOPED_TRACE(wire_name);
        const int before = webRequestsOf(wire_name);
        call();
        EXPECT_GT(webRequestsOf(wire_name), before) << "the operation never reached the simulator";
    }
};

TEST_F(SimCoverageTest, EveryApiOperationIsAnOperationOfTheSimulator)
{
    for (const StatefulOperation& operation : statefulOperations())
        expectReachesTheSimulator(operation.wire_name, [&] { operation.call(worker()); });
    for (const WireOperation& operation : wireOperations()) {
        const std::string wire_name = testsupport::operationOf(operation.expected);
        expectReachesTheSimulator(wire_name.c_str(), [&] { operation.call(*app); });
    }
    for (const sim::HandledRequest& request : sim.simulator().webRequests()) {
        EXPECT_TRUE(request.known) << request.operation << " is unknown to the simulator";
        // The simulator's answer to a body its handler could not read.
        EXPECT_NE(request.status, sim::code::kUnknownOperation) << request.operation;
    }

    json report;
    EXPECT_EQ(worker().getDecoderInfo(report), 0);
    const std::vector<sim::HandledRequest> media = sim.simulator().mediaRequests();
    ASSERT_EQ(media.size(), 1u);
    EXPECT_EQ(media.front().operation, "get_decoder_info");
    EXPECT_TRUE(media.front().known);
}

} // namespace
} // namespace apitest
