// The poller's groups that are read through the model's typed getters: what
// a success stores, that a failure stores nothing, which page and work mode
// ask for which group, and how a stop before the loop is honoured.
#include "get_worker_fake_model.h"
#include "link/zmq_get_cache.h"
#include "link/zmq_get_worker.h"
#include "link_env.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace linktest {
namespace {

using Counts = std::map<std::string, int>;

class TypedRefreshTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        env.start();
        poller = std::make_unique<ZmqGetWorker>(&model, env.worker.get());
    }

    ZmqGetCache cache() const { return env.worker->getGetCache(); }

    void setWorkMode(int mode)
    {
        env.worker->v2_parseSystemStateInfo(json({{"workmode_id", mode}}).dump());
    }

    // A failure before any success leaves the group at its start state, a
    // success stores the model's record with the flag, and a later failure
    // (with a half-filled record) keeps what the success stored.
    template <class Record>
    void expectStoreRules(ZmqGetWorker::Refresh refresh, ScriptedRead<Record>& script, Record value,
                          Record garbage, Record ZmqGetCache::*field, bool ZmqGetCache::*valid)
    {
        const Record start = ZmqGetCache().*field;
        script.status = -3;
        script.garbage = garbage;
        EXPECT_FALSE((poller.get()->*refresh)());
        EXPECT_FALSE(cache().*valid);
        EXPECT_TRUE(cache().*field == start) << "a failed read stored its partial record";

        script.status = 0;
        script.value = value;
        EXPECT_TRUE((poller.get()->*refresh)());
        EXPECT_TRUE(cache().*valid);
        EXPECT_TRUE(cache().*field == value);

        script.status = -101;
        EXPECT_FALSE((poller.get()->*refresh)());
        EXPECT_TRUE(cache().*valid) << "a flag never goes back";
        EXPECT_TRUE(cache().*field == value) << "a failed read replaced stored data";
    }

    // The typed reads that one tick on `page` makes.
    Counts tickTypedReads(int page)
    {
        model.clearCounts();
        poller->setCurrentPage(page, -1);
        poller->tickOnce();
        return model.callCounts();
    }

    LinkEnv env;
    FakeModel model;
    std::unique_ptr<ZmqGetWorker> poller;
};

TEST_F(TypedRefreshTest, DeviceRecordsFollowTheStoreRules)
{
    {
        SCOPED_TRACE("system info");
        expectStoreRules(&ZmqGetWorker::refreshSystemInfo, model.system,
                         VersionInfo{"HW 2", "FW 9", "Studio Box", "SN1"},
                         VersionInfo{"junk", "", "", ""}, &ZmqGetCache::version,
                         &ZmqGetCache::version_valid);
    }
    {
        SCOPED_TRACE("dashboard");
        expectStoreRules(&ZmqGetWorker::refreshDashboardInfo, model.dashboard,
                         DashBoardInfo{"12h", "1h 2m"}, DashBoardInfo{"junk", ""},
                         &ZmqGetCache::dashboard, &ZmqGetCache::dashboard_valid);
    }
    {
        SCOPED_TRACE("ptz");
        expectStoreRules(&ZmqGetWorker::refreshPtzctrlInfo, model.ptz, PtzctrlInfo{7, 1},
                         PtzctrlInfo{9, 9}, &ZmqGetCache::ptz, &ZmqGetCache::ptz_valid);
    }
    {
        SCOPED_TRACE("tally");
        expectStoreRules(&ZmqGetWorker::refreshTallyInfo, model.tally, TallyInfo{1, 2, 3},
                         TallyInfo{5, 5, 5}, &ZmqGetCache::tally, &ZmqGetCache::tally_valid);
    }
}

TEST_F(TypedRefreshTest, MediaRecordsFollowTheStoreRules)
{
    {
        SCOPED_TRACE("video out");
        expectStoreRules(&ZmqGetWorker::refreshVideoOutInfo, model.video_out,
                         VideoOutInfo{"1080p60", 1, 0}, VideoOutInfo{"junk", 1, 1},
                         &ZmqGetCache::video_out, &ZmqGetCache::video_out_valid);
    }
    {
        SCOPED_TRACE("audio");
        expectStoreRules(&ZmqGetWorker::refreshAudioAllInfo, model.audio,
                         AudioAllInfo{1, 2, 1, 128, 48000, 70, 30}, AudioAllInfo{9},
                         &ZmqGetCache::audio, &ZmqGetCache::audio_valid);
    }
    {
        SCOPED_TRACE("green screen");
        expectStoreRules(&ZmqGetWorker::refreshGskInfo, model.gsk, GskInfo{1, 4}, GskInfo{1, 0},
                         &ZmqGetCache::gsk, &ZmqGetCache::gsk_valid);
    }
    {
        SCOPED_TRACE("ai tracking");
        expectStoreRules(&ZmqGetWorker::refreshAiTrackingInfo, model.ai_tracking,
                         AiTrackingInfo{1, 3}, AiTrackingInfo{1, 0}, &ZmqGetCache::ai_tracking,
                         &ZmqGetCache::ai_tracking_valid);
    }
}

TEST_F(TypedRefreshTest, ListsFollowTheStoreRulesAndReplaceAsAWhole)
{
    VideoEncInfo main_stream;
    main_stream.width = 1920;
    main_stream.bitrate = 8000;
    VideoEncInfo sub_stream;
    sub_stream.width = 640;
    sub_stream.stream_id = 1;
    {
        SCOPED_TRACE("encoder streams");
        expectStoreRules(&ZmqGetWorker::refreshVideoEncParams, model.venc,
                         std::vector<VideoEncInfo>{main_stream, sub_stream},
                         std::vector<VideoEncInfo>{sub_stream}, &ZmqGetCache::venc_list,
                         &ZmqGetCache::venc_valid);
    }
    {
        SCOPED_TRACE("network streams");
        expectStoreRules(&ZmqGetWorker::refreshDecNetStreamList, model.dec_net_stream,
                         std::vector<DecNetStreamInfo>{{1, "rtmp cam", 1, 2}, {2, "srt", 0, 0}},
                         std::vector<DecNetStreamInfo>{{9, "junk", 1, 1}},
                         &ZmqGetCache::dec_net_stream_list, &ZmqGetCache::dec_net_stream_valid);
    }
    {
        SCOPED_TRACE("ndi sources");
        expectStoreRules(&ZmqGetWorker::refreshDecNdiList, model.dec_ndi,
                         std::vector<DecNdiInfo>{{0, "STUDIO (cam 1)", 1}},
                         std::vector<DecNdiInfo>{{5, "junk", 0}}, &ZmqGetCache::dec_ndi_list,
                         &ZmqGetCache::dec_ndi_valid);
    }
    {
        SCOPED_TRACE("usb cameras");
        UvcDevInfo camera;
        camera.id = 2;
        camera.name = "hub1";
        camera.present = true;
        expectStoreRules(&ZmqGetWorker::refreshDecUvcList, model.dec_uvc,
                         std::vector<UvcDevInfo>{camera}, std::vector<UvcDevInfo>(3),
                         &ZmqGetCache::dec_uvc_list, &ZmqGetCache::dec_uvc_valid);
    }

    model.dec_ndi.status = 0;
    model.dec_ndi.value = {};
    EXPECT_TRUE(poller->refreshDecNdiList());
    EXPECT_TRUE(cache().dec_ndi_list.empty()) << "an empty list is a valid answer";
    EXPECT_TRUE(cache().dec_ndi_valid);
}

TEST_F(TypedRefreshTest, LocalServersStoreListAndSrtRecordTogether)
{
    model.local_srt = {-3, EncSrtInfo{1}, EncSrtInfo{1}};
    EXPECT_FALSE(poller->refreshEncLocalServerList());
    EXPECT_FALSE(cache().local_server_valid);
    EXPECT_EQ(cache().enc_srt.switch_on, 0);

    model.local_srt = {0, EncSrtInfo{1}, {}};
    model.local_rtsp = {0, std::vector<EncRtspInfo>(2), {}};
    EXPECT_TRUE(poller->refreshEncLocalServerList());
    EXPECT_TRUE(cache().local_server_valid);
    EXPECT_EQ(cache().enc_srt.switch_on, 1);
    EXPECT_EQ(cache().enc_rtsp_list.size(), 2u);

    model.local_srt = {-3, {}, EncSrtInfo{0}};
    EXPECT_FALSE(poller->refreshEncLocalServerList());
    EXPECT_EQ(cache().enc_srt.switch_on, 1);
}

TEST_F(TypedRefreshTest, AiTrackingReadStartsFromTrackingOffWithTheDefaultNetwork)
{
    model.ai_tracking.status = 0;
    model.ai_tracking.value = AiTrackingInfo{1, 2};
    model.ai_tracking_start = AiTrackingInfo{7, 7};
    poller->refreshAiTrackingInfo();
    EXPECT_EQ(model.ai_tracking_start, (AiTrackingInfo{0, 1}));
}

TEST_F(TypedRefreshTest, EachPageAsksForItsTypedGroups)
{
    struct Case {
        int page;
        int mode;
        Counts reads;
    };
    const Case cases[] = {
        {0, 0, {{"system", 1}}},
        {1, 0, {{"video_out", 1}, {"venc", 1}}},
        {1, 1, {{"video_out", 1}, {"audio", 1}}},
        {2, 0, {{"audio", 1}}},
        {3, 0, {}},
        {3, 1, {{"audio", 1}}},
        {8, 0, {{"system", 1}, {"dashboard", 1}}},
        {12, 0, {{"ptz", 1}}},
        {13, 1, {{"tally", 1}}},
        {15, 0, {{"video_out", 1}}},
        {16, 0, {{"venc", 1}, {"ai_tracking", 1}, {"gsk", 1}}},
        {16, 1, {}},
        {17, 1, {{"audio", 1}}},
        {18, 0, {{"local_server", 1}}},
        {19, 0, {{"local_server", 1}}},
        {24, 1, {{"dec_net_stream", 1}}},
        {25, 1, {{"dec_uvc", 1}}},
        {26, 1, {{"dec_ndi", 1}}},
        {27, 0, {}},
        {30, 0, {}},
        {32, 0, {}},
    };
    for (const Case& c : cases) {
        setWorkMode(c.mode);
        EXPECT_EQ(tickTypedReads(c.page), c.reads) << "page " << c.page << " mode " << c.mode;
    }
}

TEST_F(TypedRefreshTest, PreheatReadsTheGroupsOfTheWorkMode)
{
    const Counts common = {{"system", 1}, {"dashboard", 1}, {"video_out", 1},
                           {"audio", 1},  {"ptz", 1},       {"tally", 1}};
    Counts encoder = common;
    encoder.insert({{"venc", 1}, {"ai_tracking", 1}, {"gsk", 1}, {"local_server", 1}});
    Counts decoder = common;
    decoder.insert({{"dec_net_stream", 1}, {"dec_uvc", 1}, {"dec_ndi", 1}});

    setWorkMode(0);
    poller->preheatAll();
    EXPECT_EQ(model.callCounts(), encoder);

    model.clearCounts();
    setWorkMode(1);
    poller->preheatAll();
    EXPECT_EQ(model.callCounts(), decoder);

    model.clearCounts();
    setWorkMode(2);
    poller->preheatAll();
    EXPECT_EQ(model.callCounts(), common);
}

TEST_F(TypedRefreshTest, StopBeforeTheLoopStartsEndsItWithoutReading)
{
    env.web.clearRequests();
    poller->stop();
    poller->process();
    EXPECT_FALSE(poller->isRunning());
    EXPECT_TRUE(model.callCounts().empty());
    EXPECT_TRUE(env.web.requests().empty());
}

} // namespace
} // namespace linktest
