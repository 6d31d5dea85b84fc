// The decoder's operations through AppManager against the simulator: one
// source plays at a time, the NDI search discovers sources over a few ticks,
// USB devices are checked by the panel before it asks, and the media server
// reports what plays.
#include "sim_backend.h"

namespace apitest {
namespace {

class SimDecoderTest : public SimBackendTest {
protected:
    void SetUp() override { ASSERT_EQ(app->setWorkMode(1), 0); }

    std::string playingName()
    {
        json report;
        EXPECT_EQ(worker().getDecoderInfo(report), 0);
        return report.value("name", std::string());
    }
};

TEST_F(SimDecoderTest, NdiSearchDiscoversSourcesToReceive)
{
    std::vector<DecNdiInfo> sources;
    EXPECT_EQ(app->getDecNdiList(sources), 0);
    EXPECT_TRUE(sources.empty());
    EXPECT_EQ(app->findDecNdi(), 0);
    ASSERT_TRUE(testsupport::waitUntil(
        [&] { return app->getDecNdiList(sources) == 0 && sources.size() == 3; }));

    const std::string name = sources[1].name.toStdString();
    EXPECT_EQ(app->setDecNdiRecv(name), 0);
    EXPECT_EQ(app->getDecNdiList(sources), 0);
    EXPECT_EQ(sources[1].streamplay_status, 1);
    EXPECT_EQ(playingName(), name);
    EXPECT_EQ(app->setDecNdiRecv("NOBODY (Cam 9)"), -2);

    EXPECT_EQ(app->setDecNdiClose(), 0);
    EXPECT_EQ(app->getDecNdiList(sources), 0);
    EXPECT_EQ(sources[1].streamplay_status, 0);
    EXPECT_EQ(playingName(), "");
}

TEST_F(SimDecoderTest, NetworkPullsPlayOneAtATime)
{
    EXPECT_EQ(app->setDecNetStreamSwitch(0, 1), 0);
    EXPECT_EQ(app->setDecNetStreamSwitch(1, 1), 0);
    std::vector<DecNetStreamInfo> pulls;
    EXPECT_EQ(app->getDecNetStreamList(pulls), 0);
    ASSERT_EQ(pulls.size(), 2u);
    EXPECT_EQ(pulls[0], (DecNetStreamInfo{0, "Camera A", 0, 0}));
    EXPECT_EQ(pulls[1], (DecNetStreamInfo{1, "Camera B", 1, 1}));
    EXPECT_EQ(playingName(), "Camera B");

    json state;
    EXPECT_EQ(worker().getDecoderState(state), 0);
    EXPECT_EQ(state, json({{"decoder_state", 1}}));
}

TEST_F(SimDecoderTest, ServersSwitchTogetherWithTheirPlayback)
{
    EXPECT_EQ(app->setDecSrtServerSwitch(1), 0);
    json srt;
    EXPECT_EQ(worker().getDecSrtServerInfo(srt), 0);
    EXPECT_EQ(srt["server_switch"], 1);
    EXPECT_EQ(srt["play_switch"], 1);
    DecSrtServerInfo nothing;
    EXPECT_EQ(app->getDecSrtServerInfo(nothing), 0);

    EXPECT_EQ(app->setDecRtmpServerSwitch(0, 1), 0);
    json rtmp;
    EXPECT_EQ(worker().getDecRtmpServerInfo(rtmp), 0);
    EXPECT_EQ(rtmp["switch"], 1);
}

TEST_F(SimDecoderTest, UsbDevicesOpenOnlyWhenTheirChecksPass)
{
    std::vector<UvcDevInfo> devices;
    EXPECT_EQ(app->getDecUvcList(devices), 0);
    ASSERT_EQ(devices.size(), 2u);
    EXPECT_EQ(devices[0].name, "USB"); // the device gave no name of its own
    EXPECT_EQ(devices[1].name, "Capture HD");
    EXPECT_EQ(devices[1].format_check, 0);

    // The panel's own check refuses, and the device is never asked.
    EXPECT_EQ(app->setDecUvcOpen(1), -2);
    EXPECT_EQ(webRequestsOf("uvc_open"), 0);

    EXPECT_EQ(app->setDecUvcOpen(0), 0);
    EXPECT_EQ(app->getDecUvcList(devices), 0);
    EXPECT_EQ(devices[0].play_status, 1);
    EXPECT_EQ(playingName(), "USB");
    EXPECT_EQ(app->setDecUvcClose(0), 0);
    EXPECT_EQ(app->getDecUvcList(devices), 0);
    EXPECT_EQ(devices[0].play_status, 0);

    // Behind a hub the first entry is the hub itself.
    control("set /decoder/uvc_list/0/usbhub_check 1");
    EXPECT_EQ(app->getDecUvcList(devices), 0);
    ASSERT_EQ(devices.size(), 1u);
    EXPECT_EQ(devices[0].id, 1);
}

TEST_F(SimDecoderTest, DecoderSourcesNeedDecodeMode)
{
    EXPECT_EQ(app->setWorkMode(0), 0);
    EXPECT_EQ(app->setDecNetStreamSwitch(0, 1), -2);
    EXPECT_EQ(app->setDecSrtServerSwitch(1), -2);
    EXPECT_EQ(app->setDecUvcOpen(0), -2);
    EXPECT_EQ(simAt("/decoder/net_streams/0/switch"), 0);
}

} // namespace
} // namespace apitest
