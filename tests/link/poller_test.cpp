// The polling worker: what the preheat and each tick read for the page and
// work mode, what a read stores, and how a slow daemon and a stop are met.
#include "link/zmq_get_cache.h"
#include "link/zmq_get_worker.h"
#include "link_env.h"
#include "poller_fake_model.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>

namespace linktest {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Reads = std::set<std::string>;

json succeed(const json& data)
{
    return {{"rsp", "succeed"}, {"data", data}};
}

Reads with(Reads base, const Reads& extra)
{
    base.insert(extra.begin(), extra.end());
    return base;
}

class PollerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        env.start();
        poller = std::make_unique<ZmqGetWorker>(&model, env.worker.get());
        takeReads();
    }

    void setWorkMode(int mode)
    {
        env.worker->v2_parseSystemStateInfo(json({{"workmode_id", mode}}).dump());
    }

    // What was read since the last call: the model's typed reads by name, the
    // JSON reads by the operation they sent to either daemon.
    Reads takeReads()
    {
        Reads reads;
        for (const auto& read : model.takeReads())
            reads.insert(read.first);
        for (testsupport::ScriptedDaemon* daemon : {&env.web, &env.media}) {
            for (const json& request : daemon->requests())
                reads.insert(testsupport::operationOf(request));
            daemon->clearRequests();
        }
        return reads;
    }

    Reads tick(int page)
    {
        takeReads();
        poller->setCurrentPage(page, -1);
        poller->tickOnce();
        return takeReads();
    }

    ZmqGetCache cache() const { return env.worker->getGetCache(); }

    // A failure before any success leaves the group as it started, a success
    // stores the record with its flag, a later failure keeps what was stored.
    template <class Record>
    void expectStoreRules(const char* what, ZmqGetWorker::Refresh refresh,
                          Record ZmqGetCache::*field, bool ZmqGetCache::*valid, Record value,
                          Record other)
    {
        SCOPED_TRACE(what);
        Script<Record>& script = model.script<Record>();
        script = {-3, value};
        EXPECT_FALSE((poller.get()->*refresh)());
        EXPECT_FALSE(cache().*valid) << "a failed read was stored";
        script.status = 0;
        EXPECT_TRUE((poller.get()->*refresh)());
        EXPECT_TRUE(cache().*valid && cache().*field == value) << "a good read was not stored";
        script = {-101, other};
        EXPECT_FALSE((poller.get()->*refresh)());
        EXPECT_TRUE(cache().*valid && cache().*field == value) << "a failed read replaced data";
    }

    LinkEnv env;
    FakeModel model;
    std::unique_ptr<ZmqGetWorker> poller;
};

TEST_F(PollerTest, EachTickReadsTheAlwaysOnPartOfItsWorkModeAndWhatThePageShows)
{
    const std::map<int, Reads> always = {
        {0, {"get_lcd_info", "get_ndi_info", "get_present_storage"}},
        {1, {"get_lcd_info", "get_ndi_info", "get_decoder_info"}},
        {2, {"get_lcd_info", "get_ndi_info"}},
    };
    struct Case {
        int page;
        int mode;
        Reads extra;
    };
    const Case cases[] = {
        {0, 0, {"system"}},
        {1, 0, {"video_out", "venc"}},
        {1, 1, {"video_out", "audio"}},
        {3, 0, {}},
        {3, 1, {"audio"}},
        {6, 0, {"get_usb_otg_id"}},
        {8, 0, {"system", "dashboard"}},
        {10, 1, {"get_ap_info"}},
        {16, 0, {"venc", "ai_tracking", "gsk"}},
        {16, 1, {}},
        {18, 0, {"local_server"}},
        {20, 1, {"get_srt_server_info", "get_servers_info"}},
        {25, 1, {"get_usb_otg_id", "dec_uvc"}},
        {32, 0, {"get_ap_info", "get_app_connection_status"}},
    };
    for (const Case& c : cases) {
        setWorkMode(c.mode);
        EXPECT_EQ(tick(c.page), with(always.at(c.mode), c.extra))
            << "page " << c.page << ", mode " << c.mode;
    }
    // Standby, the modal pages, the pages without data and ids beyond the table.
    setWorkMode(2);
    for (const int page : {-1, 4, 27, 28, 29, 30, 31, 33, 34})
        EXPECT_EQ(tick(page), always.at(2)) << "page " << page;
}

TEST_F(PollerTest, PreheatReadsAllOfTheWorkModeFromTheTopicOrElseFromTheModel)
{
    const Reads common = {"get_lcd_info",
                          "get_dcout_status",
                          "get_usb_otg_id",
                          "get_ap_info",
                          "get_nas_info_list",
                          "get_app_connection_status",
                          "system",
                          "dashboard",
                          "video_out",
                          "audio",
                          "ptz",
                          "tally"};
    const Reads encoder = with(common, {"get_ndi_info", "get_present_storage", "venc",
                                        "ai_tracking", "gsk", "local_server"});
    const Reads decoder =
        with(common, {"get_decoder_info", "get_srt_server_info", "get_servers_info",
                      "dec_net_stream", "dec_uvc", "dec_ndi"});
    struct Case {
        int published; // -1: no system state yet
        int model_mode;
        Reads reads;
    };
    for (const Case& c : {Case{-1, 1, decoder}, Case{-1, 0, encoder}, Case{0, 1, encoder},
                          Case{1, 0, decoder}, Case{2, 0, common}}) {
        if (c.published >= 0)
            setWorkMode(c.published);
        model.mode = c.model_mode;
        poller->preheatAll();
        EXPECT_EQ(takeReads(), c.reads)
            << "published " << c.published << ", model " << c.model_mode;
    }
}

// The groups of the cache that JSON reads fill, by the read, each with its
// valid flag first.
json jsonGroups(const ZmqGetCache& c)
{
    json nas = json::array();
    for (const NasMountInfo& n : c.nas_list)
        nas.push_back({n.name.toStdString(), n.switch_on, n.status});
    return {
        {"get_lcd_info", {c.lcd_valid, c.lcd_lock_stat, c.lcd_bright, c.lcd_sleep}},
        {"get_ndi_info",
         {c.enc_ndi_valid, c.enc_ndi_switch, c.enc_ndi_mode_id, c.enc_ndi_machinename}},
        {"get_present_storage", {c.present_storage_valid, c.present_storage_id}},
        {"get_dcout_status", {c.dc_out_valid, c.dc_out_switch, c.dc_out_voltage}},
        {"get_usb_otg_id", {c.usb_otg_valid, c.usb_otg_id}},
        {"get_ap_info", {c.ap_valid, c.ap_ssid, c.ap_psk}},
        {"get_nas_info_list", {c.nas_valid, nas}},
        {"get_srt_server_info", {c.dec_srt_valid, c.dec_srt_server_switch, c.dec_srt_play_switch}},
        {"get_servers_info", {c.dec_rtmp_valid, c.dec_rtmp_switch}},
        {"get_app_connection_status", {c.app_connection_valid, c.app_connection_status}},
        {"get_decoder_info",
         {c.decoder_valid, c.dec_name.toStdString(), c.dec_video_format.toStdString(),
          c.dec_bandwidth, c.dec_framerate, c.dec_width, c.dec_height, c.dec_streamplay_status}},
    };
}

const std::map<std::string, ZmqGetWorker::Refresh> kJsonRefreshes = {
    {"get_lcd_info", &ZmqGetWorker::refreshLcdInfo},
    {"get_ndi_info", &ZmqGetWorker::refreshEncNdiInfo},
    {"get_present_storage", &ZmqGetWorker::refreshPresentStorage},
    {"get_dcout_status", &ZmqGetWorker::refreshDcOutStatus},
    {"get_usb_otg_id", &ZmqGetWorker::refreshUsbOtgId},
    {"get_ap_info", &ZmqGetWorker::refreshApInfo},
    {"get_nas_info_list", &ZmqGetWorker::refreshNasInfoList},
    {"get_srt_server_info", &ZmqGetWorker::refreshDecSrtServerInfo},
    {"get_servers_info", &ZmqGetWorker::refreshDecRtmpServerInfo},
    {"get_app_connection_status", &ZmqGetWorker::refreshAppConnectionStatus},
    {"get_decoder_info", &ZmqGetWorker::refreshDecoderInfo},
};

// Each case runs its read once per reply, in order, on a fresh cache; "expect"
// is the read's group afterwards (null: as a fresh cache has it).
const char* const kJsonReadCases = R"([
{"read": "get_lcd_info", "expect": [true,1,80,5],
 "replies": [{"rsp":"succeed","data":{"lock_stat":1,"lcd_bright":80}}]},
{"read": "get_lcd_info", "expect": [true,1,50,5],
 "replies": [{"rsp":"succeed","data":{"lock_stat":1,"lcd_bright":50}}, {"rsp":"fail"},
             {"rsp":"succeed","data":{}}, {"rsp":"succeed","data":[]},
             {"rsp":"succeed","data":null}]},
{"read": "get_lcd_info", "expect": null, "replies": [{"rsp":"fail"}, {"rsp":"succeed","data":{}}]},
{"read": "get_ndi_info", "expect": [true,1,2,"cam-a"],
 "replies": [{"rsp":"succeed","data":{"switch":1,"mode_id":2,"machinename":"cam-a"}}]},
{"read": "get_present_storage", "expect": [true,3],
 "replies": [{"rsp":"succeed","data":{"storage_id":3}}]},
{"read": "get_dcout_status", "expect": [true,1,1],
 "replies": [{"rsp":"succeed","data":{"switch":1}}]},
{"read": "get_usb_otg_id", "expect": [true,2],
 "replies": [{"rsp":"succeed","data":{"usb_otg_id":2}}]},
{"read": "get_ap_info", "expect": [true,"box-ap","secret"],
 "replies": [{"rsp":"succeed","data":{"ssid":"box-ap","psk":"secret"}}]},
{"read": "get_nas_info_list", "expect": [true,[["share",true,2],["bk",false,0]]],
 "replies": [{"rsp":"succeed",
              "data":[{"name":"share","switch":1,"status":2},"skip",{"name":"bk"}]}]},
{"read": "get_nas_info_list", "expect": null,
 "replies": [{"rsp":"succeed","data":{"name":"not a list"}}]},
{"read": "get_srt_server_info", "expect": [true,1,1],
 "replies": [{"rsp":"succeed","data":{"server_switch":1,"play_switch":1}}]},
{"read": "get_servers_info", "expect": [true,1],
 "replies": [{"rsp":"succeed","data":[{"switch":1},{"switch":0}]}]},
{"read": "get_servers_info", "expect": [true,0],
 "replies": [{"rsp":"succeed","data":{"switch":1}}, {"rsp":"succeed","data":7}]},
{"read": "get_app_connection_status", "expect": [true,1],
 "replies": [{"rsp":"succeed","data":{"connect_status":1}}]},
{"read": "get_decoder_info", "expect": [true,"cam \u00e9","",0,59.94,1920,0,1],
 "replies": [{"msg":"success","data":{"data":{"name":"cam \u00e9","framerate":59.94,"width":1920,
                                               "streamplay_status":1}}}]},
{"read": "get_decoder_info", "expect": null,
 "replies": [{"msg":"success","data":{"name":"no inner data"}}]}
])";

TEST_F(PollerTest, JsonReadsStoreTheirKeysWithDefaultsAndKeepThemThroughFailures)
{
    const json fresh = jsonGroups(ZmqGetCache());
    for (const json& c : json::parse(kJsonReadCases)) {
        const std::string read = c["read"];
        SCOPED_TRACE(c.dump());
        env.worker->updateGetCache([](ZmqGetCache& cache) { cache = ZmqGetCache(); });
        for (const json& reply : c["replies"]) {
            env.web.reply(read, reply);
            env.media.reply(read, reply);
            (poller.get()->*kJsonRefreshes.at(read))();
        }
        json expected = fresh;
        if (!c["expect"].is_null())
            expected[read] = c["expect"];
        EXPECT_EQ(jsonGroups(cache()), expected);
    }
}

TEST_F(PollerTest, MalformedValueFailsOnlyItsOwnReadAndTheTickGoesOn)
{
    env.web.reply("get_lcd_info", succeed({{"lock_stat", 1}}));
    ASSERT_TRUE(poller->refreshLcdInfo());
    env.web.reply("get_lcd_info", succeed({{"lock_stat", "locked"}}));
    env.web.reply("get_ndi_info", succeed({{"switch", 1}}));
    tick(0);
    EXPECT_EQ(cache().lcd_lock_stat, 1);
    EXPECT_TRUE(cache().enc_ndi_valid);
}

TEST_F(PollerTest, TypedReadsStoreOnlyWhatASuccessReturned)
{
    using W = ZmqGetWorker;
    using G = ZmqGetCache;
    expectStoreRules("system", &W::refreshSystemInfo, &G::version, &G::version_valid,
                     VersionInfo{"HW 2", "FW 9", "Studio Box", "SN1"},
                     VersionInfo{"junk", "", "", ""});
    expectStoreRules("dashboard", &W::refreshDashboardInfo, &G::dashboard, &G::dashboard_valid,
                     DashBoardInfo{"12h", "1h 2m"}, DashBoardInfo{"junk", ""});
    expectStoreRules("ptz", &W::refreshPtzctrlInfo, &G::ptz, &G::ptz_valid, PtzctrlInfo{7, 1},
                     PtzctrlInfo{9, 9});
    expectStoreRules("tally", &W::refreshTallyInfo, &G::tally, &G::tally_valid, TallyInfo{1, 2, 3},
                     TallyInfo{5, 5, 5});
    expectStoreRules("video out", &W::refreshVideoOutInfo, &G::video_out, &G::video_out_valid,
                     VideoOutInfo{"1080p60", 1, 0}, VideoOutInfo{"junk", 1, 1});
    expectStoreRules("audio", &W::refreshAudioAllInfo, &G::audio, &G::audio_valid,
                     AudioAllInfo{1, 2, 1, 128, 48000, 70, 30}, AudioAllInfo{9});
    expectStoreRules("green screen", &W::refreshGskInfo, &G::gsk, &G::gsk_valid, GskInfo{1, 4},
                     GskInfo{1, 0});
    expectStoreRules("ai tracking", &W::refreshAiTrackingInfo, &G::ai_tracking,
                     &G::ai_tracking_valid, AiTrackingInfo{1, 3}, AiTrackingInfo{1, 0});
    EXPECT_EQ(model.ai_tracking_start, G().ai_tracking) << "the read starts from the default";
    VideoEncInfo stream;
    stream.width = 1920;
    expectStoreRules("encoder streams", &W::refreshVideoEncParams, &G::venc_list, &G::venc_valid,
                     std::vector<VideoEncInfo>{stream, stream}, std::vector<VideoEncInfo>{stream});
    model.script<std::vector<EncRtspInfo>>().value.resize(2);
    expectStoreRules("local servers", &W::refreshEncLocalServerList, &G::enc_srt,
                     &G::local_server_valid, EncSrtInfo{1}, EncSrtInfo{0});
    EXPECT_EQ(cache().enc_rtsp_list.size(), 2u) << "the list goes with the record";
    expectStoreRules("network streams", &W::refreshDecNetStreamList, &G::dec_net_stream_list,
                     &G::dec_net_stream_valid,
                     std::vector<DecNetStreamInfo>{{1, "rtmp cam", 1, 2}, {2, "srt", 0, 0}},
                     std::vector<DecNetStreamInfo>{{9, "junk", 1, 1}});
    expectStoreRules("ndi sources", &W::refreshDecNdiList, &G::dec_ndi_list, &G::dec_ndi_valid,
                     std::vector<DecNdiInfo>{{0, "STUDIO (cam 1)", 1}},
                     std::vector<DecNdiInfo>{{5, "junk", 0}});
    UvcDevInfo camera;
    camera.id = 2;
    expectStoreRules("usb cameras", &W::refreshDecUvcList, &G::dec_uvc_list, &G::dec_uvc_valid,
                     std::vector<UvcDevInfo>{camera}, std::vector<UvcDevInfo>(3));
}

TEST_F(PollerTest, LateAnswerCostsOneWaitAndIsNeverTakenForALaterOne)
{
    env.web.reply("get_lcd_info", succeed({{"lcd_bright", 10}}), 1500ms);
    env.web.reply("get_ndi_info", succeed({{"mode_id", 2}}));
    const auto start = Clock::now();
    tick(30);
    EXPECT_LT(Clock::now() - start, 2500ms);
    EXPECT_FALSE(cache().lcd_valid);
    EXPECT_TRUE(cache().enc_ndi_valid) << "the reads after the late one were dropped";

    env.web.reply("get_lcd_info", succeed({{"lcd_bright", 20}}));
    tick(30);
    EXPECT_EQ(cache().lcd_bright, 20);
}

TEST_F(PollerTest, LoopTicksUntilStoppedAndAStopDuringASlowReadEndsItThere)
{
    std::thread loop([&] { poller->process(); });
    EXPECT_TRUE(testsupport::waitUntil([&] { return env.web.countOf("get_lcd_info") >= 2; }))
        << "preheat and the first tick both read the LCD state";
    EXPECT_TRUE(poller->isRunning());
    poller->stop();
    loop.join();

    ZmqGetWorker slow(&model, env.worker.get());
    env.web.reply("get_lcd_info", succeed({{"lcd_bright", 1}}), 1500ms);
    takeReads();
    loop = std::thread([&] { slow.process(); });
    ASSERT_TRUE(testsupport::waitUntil([&] { return env.web.countOf("get_lcd_info") == 1; }));
    slow.stop();
    loop.join();
    EXPECT_EQ(takeReads(), Reads{"get_lcd_info"}) << "reads went on after the stop";
}

TEST_F(PollerTest, WithoutModelOrLinkOrAfterAStopTheLoopNeverStarts)
{
    ZmqGetWorker no_model(nullptr, env.worker.get());
    ZmqGetWorker no_link(&model, nullptr);
    for (ZmqGetWorker* idle : {&no_model, &no_link, poller.get()}) {
        poller->stop();
        idle->process();
        EXPECT_FALSE(idle->isRunning());
    }
    EXPECT_TRUE(takeReads().empty());
}

} // namespace
} // namespace linktest
