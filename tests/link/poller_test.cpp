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
        {"get_nas_info_list", {c.nas_valid, nas}},
        {"get_servers_info", {c.dec_rtmp_valid, c.dec_rtmp_switch}},
        {"get_decoder_info",
         {c.decoder_valid, c.dec_name.toStdString(), c.dec_video_format.toStdString(),
          c.dec_bandwidth, c.dec_framerate, c.dec_width, c.dec_height, c.dec_streamplay_status}},
    };
}

const std::map<std::string, ZmqGetWorker::Refresh> kJsonRefreshes = {
    {"get_lcd_info", &ZmqGetWorker::refreshLcdInfo},
    {"get_ndi_info", &ZmqGetWorker::refreshEncNdiInfo},
    {"get_nas_info_list", &ZmqGetWorker::refreshNasInfoList},
    {"get_servers_info", &ZmqGetWorker::refreshDecRtmpServerInfo},
    {"get_decoder_info", &ZmqGetWorker::refreshDecoderInfo},
};

// Each case runs its read once per reply, in order, on a fresh cache; "expect"
// is the read's group afterwards (null: as a fresh cache has it).
const char* const kJsonReadCases = R"([
{"read": "get_lcd_info", "expect": [true,1,50,5],
 "replies": [{"rsp":"succeed","data":{"lock_stat":1,"lcd_bright":50}}, {"rsp":"fail"},
             {"rsp":"succeed","data":{}}, {"rsp":"succeed","data":[]},
             {"rsp":"succeed","data":null}]},
{"read": "get_lcd_info", "expect": null, "replies": [{"rsp":"fail"}, {"rsp":"succeed","data":{}}]},
{"read": "get_ndi_info", "expect": [true,1,2,"cam-a"],
 "replies": [{"rsp":"succeed","data":{"switch":1,"mode_id":2,"machinename":"cam-a"}}]},
{"read": "get_nas_info_list", "expect": [true,[["share",true,2],["bk",false,0]]],
 "replies": [{"rsp":"succeed",
              "data":[{"name":"share","switch":1,"status":2},"skip",{"name":"bk"}]}]},
{"read": "get_nas_info_list", "expect": null,
 "replies": [{"rsp":"succeed","data":{"name":"not a list"}}]},
{"read": "get_servers_info", "expect": [true,1],
 "replies": [{"rsp":"succeed","data":[{"switch":1},{"switch":0}]}]},
{"read": "get_servers_info", "expect": [true,0],
 "replies": [{"rsp":"succeed","data":{"switch":1}}, {"rsp":"succeed","data":7}]},
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
    // A record, a record the read starts from, a list, and a read of two.
    using W = ZmqGetWorker;
    using G = ZmqGetCache;
    expectStoreRules("system", &W::refreshSystemInfo, &G::version, &G::version_valid,
                     VersionInfo{"HW 2", "FW 9", "Studio Box", "SN1"},
                     VersionInfo{"junk", "", "", ""});
    expectStoreRules("ai tracking", &W::refreshAiTrackingInfo, &G::ai_tracking,
                     &G::ai_tracking_valid, AiTrackingInfo{1, 3}, AiTrackingInfo{1, 0});
    EXPECT_EQ(model.ai_tracking_start, G().ai_tracking) << "the read starts from the default";
    expectStoreRules("ndi sources", &W::refreshDecNdiList, &G::dec_ndi_list, &G::dec_ndi_valid,
                     std::vector<DecNdiInfo>{{0, "STUDIO (cam 1)", 1}},
                     std::vector<DecNdiInfo>{{5, "junk", 0}});
    model.script<std::vector<EncRtspInfo>>().value.resize(2);
    expectStoreRules("local servers", &W::refreshEncLocalServerList, &G::enc_srt,
                     &G::local_server_valid, EncSrtInfo{1}, EncSrtInfo{0});
    EXPECT_EQ(cache().enc_rtsp_list.size(), 2u) << "the list goes with the record";
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
