// The poller's typed groups end to end: read through AppManager's decoding
// getters from the device simulator over the real sockets, stored in the get
// cache, and kept as they were when a read fails.
#include "link/zmq_get_cache.h"
#include "link/zmq_get_worker.h"
#include "support/sim/sim_fixture.h"

#include <gtest/gtest.h>

namespace modeltest {
namespace {

using nlohmann::json;

QString simText(const testsupport::SimFixture& backend, const std::string& pointer)
{
    return QString::fromStdString(backend.at(pointer).get<std::string>());
}

int simInt(const testsupport::SimFixture& backend, const std::string& pointer)
{
    return backend.at(pointer).get<int>();
}

class PollerSimRefreshTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        app = backend.bareAppManager();
        poller = std::make_unique<ZmqGetWorker>(app.get(), app->subWorker());
    }

    ZmqGetCache cache() const { return app->subWorker()->getGetCache(); }
    void control(const std::string& line) { backend.require(line); }

    testsupport::SimFixture backend;
    std::unique_ptr<AppManager> app;
    std::unique_ptr<ZmqGetWorker> poller;
};

TEST_F(PollerSimRefreshTest, DeviceGroupsCarryTheDevicesValues)
{
    ASSERT_TRUE(poller->refreshSystemInfo());
    ASSERT_TRUE(poller->refreshDashboardInfo());
    ASSERT_TRUE(poller->refreshPtzctrlInfo());
    ASSERT_TRUE(poller->refreshTallyInfo());
    const ZmqGetCache c = cache();
    EXPECT_TRUE(c.version_valid && c.dashboard_valid && c.ptz_valid && c.tally_valid);
    EXPECT_EQ(c.version.device_name, simText(backend, "/system/version/device_name"));
    EXPECT_EQ(c.version.firmware_version, simText(backend, "/system/version/firmware_version"));
    EXPECT_EQ(c.version.SN, simText(backend, "/system/version/SN"));
    EXPECT_EQ(c.dashboard.persistent_time, simText(backend, "/system/dashboard/persistent_time"));
    EXPECT_EQ(c.dashboard.device_strat_time,
              simText(backend, "/system/dashboard/device_strat_time"));
    EXPECT_EQ(c.ptz.protocol, simInt(backend, "/ptz/protocol"));
    EXPECT_EQ(c.ptz.usb2serial, simInt(backend, "/ptz/usb2serial"));
    EXPECT_EQ(c.tally.switch_on, simInt(backend, "/system/tally/switch"));
    EXPECT_EQ(c.tally.mode_id, simInt(backend, "/system/tally/mode_id"));
}

TEST_F(PollerSimRefreshTest, EncoderGroupsCarryTheDevicesValues)
{
    control("set /ai/matting/im_enable 1");
    control("set /ai/tracking/nn_type 2");
    control("set /stream/srt_local/switch 1");
    ASSERT_TRUE(poller->refreshVideoOutInfo());
    ASSERT_TRUE(poller->refreshAudioAllInfo());
    ASSERT_TRUE(poller->refreshAiTrackingInfo());
    ASSERT_TRUE(poller->refreshGskInfo());
    ASSERT_TRUE(poller->refreshVideoEncParams());
    ASSERT_TRUE(poller->refreshEncLocalServerList());
    const ZmqGetCache c = cache();
    EXPECT_EQ(c.video_out.format, simText(backend, "/video/output/format"));
    EXPECT_EQ(c.video_out.audio_switch, simInt(backend, "/video/output/audio_switch"));
    EXPECT_EQ(c.audio.volume, simInt(backend, "/audio/all/volume"));
    EXPECT_EQ(c.audio.ao_volume, simInt(backend, "/audio/all/ao_volume"));
    EXPECT_EQ(c.ai_tracking.nn_type, 2);
    EXPECT_EQ(c.gsk.im_enable, 1);
    EXPECT_EQ(c.gsk.user_bgfile_count,
              static_cast<int>(backend.at("/ai/matting/user_bgfile_list").size()));
    const json venc = backend.at("/video/venc");
    ASSERT_EQ(c.venc_list.size(), venc.size());
    EXPECT_EQ(c.venc_list[0].width, venc[0]["width"].get<int>());
    EXPECT_EQ(c.venc_list[1].bitrate, venc[1]["bitrate"].get<int>());
    EXPECT_TRUE(c.local_server_valid);
    EXPECT_EQ(c.enc_srt.switch_on, 1);
}

TEST_F(PollerSimRefreshTest, DecoderListsCarryTheDevicesSources)
{
    control(
        R"cmd(set /decoder/ndi/sources [{"index":4,"name":"STUDIO (Cam 1)","streamplay_status":1}])cmd");
    ASSERT_TRUE(poller->refreshDecNetStreamList());
    ASSERT_TRUE(poller->refreshDecNdiList());
    ASSERT_TRUE(poller->refreshDecUvcList());
    const ZmqGetCache c = cache();
    const json pulls = backend.at("/decoder/net_streams");
    ASSERT_EQ(c.dec_net_stream_list.size(), pulls.size());
    EXPECT_EQ(c.dec_net_stream_list[1].name,
              QString::fromStdString(pulls[1]["name"].get<std::string>()));
    ASSERT_EQ(c.dec_ndi_list.size(), 1u);
    EXPECT_EQ(c.dec_ndi_list[0], (DecNdiInfo{4, "STUDIO (Cam 1)", 1}));
    EXPECT_EQ(c.dec_uvc_list.size(), backend.at("/decoder/uvc_list").size());
}

TEST_F(PollerSimRefreshTest, LaterReadsFollowTheDeviceAndFailuresKeepTheLastValues)
{
    ASSERT_TRUE(poller->refreshPtzctrlInfo());
    control("set /ptz/protocol 7");
    ASSERT_TRUE(poller->refreshPtzctrlInfo());
    EXPECT_EQ(cache().ptz.protocol, 7);

    control("status get_client_info 1");
    control("set /ptz/protocol 9");
    EXPECT_FALSE(poller->refreshPtzctrlInfo());
    EXPECT_TRUE(cache().ptz_valid);
    EXPECT_EQ(cache().ptz.protocol, 7);

    control("status get_tally_led_info 1");
    EXPECT_FALSE(poller->refreshTallyInfo());
    EXPECT_FALSE(cache().tally_valid) << "a group that never succeeded stays invalid";
}

} // namespace
} // namespace modeltest
