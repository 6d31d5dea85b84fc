// The polling worker: what each tick fetches for page and work mode, what it
// stores, and that failures keep the cache as it was.
#include "get_worker_fake_model.h"
#include "link/zmq_get_cache.h"
#include "link/zmq_get_worker.h"
#include "link_env.h"

#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <thread>

namespace linktest {
namespace {

using std::chrono::milliseconds;
using OpSet = std::set<std::string>;

// The reads of the poller that go to the web server as JSON getters.
const OpSet kJsonReads = {"get_lcd_info",        "get_ndi_info",
                          "get_present_storage", "get_dcout_status",
                          "get_usb_otg_id",      "get_ap_info",
                          "get_nas_info_list",   "get_srt_server_info",
                          "get_servers_info",    "get_app_connection_status"};

json succeed(const json& data)
{
    return {{"rsp", "succeed"}, {"data", data}};
}

class GetWorkerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        env.start();
        poller = std::make_unique<ZmqGetWorker>(&model, env.worker.get());
        env.web.clearRequests();
    }

    void setWorkMode(int mode)
    {
        env.worker->v2_parseSystemStateInfo(json({{"workmode_id", mode}}).dump());
    }

    // The JSON reads one tick on `page` sends to the web server.
    OpSet tickReads(int page)
    {
        env.web.clearRequests();
        env.media.clearRequests();
        poller->setCurrentPage(page, -1);
        poller->tickOnce();
        OpSet ops;
        for (const json& request : env.web.requests()) {
            if (kJsonReads.count(operationOf(request)))
                ops.insert(operationOf(request));
        }
        return ops;
    }

    bool decoderRead() const { return env.media.countOf("get_decoder_info") > 0; }
    ZmqGetCache getCache() const { return env.worker->getGetCache(); }

    LinkEnv env;
    FakeModel model;
    std::unique_ptr<ZmqGetWorker> poller;
};

const OpSet kEncoderAlways = {"get_lcd_info", "get_ndi_info", "get_present_storage"};
const OpSet kDecoderAlways = {"get_lcd_info", "get_ndi_info"};

OpSet with(OpSet base, const OpSet& extra)
{
    base.insert(extra.begin(), extra.end());
    return base;
}

TEST_F(GetWorkerTest, AlwaysOnPartFollowsTheWorkMode)
{
    EXPECT_EQ(tickReads(30), kEncoderAlways);
    EXPECT_FALSE(decoderRead());

    setWorkMode(1);
    EXPECT_EQ(tickReads(30), kDecoderAlways);
    EXPECT_TRUE(decoderRead());

    setWorkMode(2);
    EXPECT_EQ(tickReads(30), kDecoderAlways);
    EXPECT_FALSE(decoderRead());
}

TEST_F(GetWorkerTest, PagesFetchTheirOwnGroups)
{
    struct Case {
        int page;
        OpSet extra;
    };
    const Case cases[] = {
        {5, {"get_dcout_status"}},
        {6, {"get_usb_otg_id"}},
        {9, {"get_ap_info"}},
        {10, {"get_ap_info"}},
        {11, {"get_nas_info_list"}},
        {20, {"get_srt_server_info", "get_servers_info"}},
        {25, {"get_usb_otg_id"}},
        {32, {"get_ap_info", "get_app_connection_status"}},
        {0, {}},
        {4, {}},
        {16, {}},
        {27, {}},
        {29, {}},
        {30, {}},
        {33, {}},
        {34, {}},
        {-1, {}},
    };
    for (const Case& c : cases)
        EXPECT_EQ(tickReads(c.page), with(kEncoderAlways, c.extra)) << "page " << c.page;
}

TEST_F(GetWorkerTest, PageChangeTakesEffectAtTheNextTick)
{
    poller->setCurrentPage(11, 27);
    EXPECT_EQ(poller->currentPage(), 11);
    EXPECT_EQ(poller->currentModal(), 27);
    EXPECT_EQ(tickReads(5), with(kEncoderAlways, {"get_dcout_status"}));
}

TEST_F(GetWorkerTest, SuccessfulReadsAreStoredWithTheirFlags)
{
    env.web.reply("get_lcd_info", succeed({{"lock_stat", 1}, {"lcd_bright", 80}}));
    env.web.reply("get_ndi_info",
                  succeed({{"switch", 1}, {"mode_id", 2}, {"machinename", "cam-a"}}));
    env.web.reply("get_present_storage", succeed({{"storage_id", 3}}));
    env.web.reply("get_dcout_status", succeed({{"switch", 1}, {"voltage", 2}}));
    env.web.reply(
        "get_nas_info_list",
        succeed({{{"name", "share"}, {"switch", 1}, {"status", 2}}, "skip", {{"name", "backup"}}}));
    env.web.reply("get_ap_info", succeed({{"ssid", "box-ap"}, {"psk", "secret"}}));
    env.web.reply("get_app_connection_status", succeed({{"connect_status", 1}}));
    tickReads(5);
    tickReads(11);
    tickReads(32);

    const ZmqGetCache c = getCache();
    EXPECT_TRUE(c.lcd_valid);
    EXPECT_EQ(c.lcd_lock_stat, 1);
    EXPECT_EQ(c.lcd_bright, 80);
    EXPECT_EQ(c.lcd_sleep, 5) << "missing key takes the group's default";
    EXPECT_TRUE(c.enc_ndi_valid);
    EXPECT_EQ(c.enc_ndi_mode_id, 2);
    EXPECT_EQ(c.enc_ndi_machinename, "cam-a");
    EXPECT_TRUE(c.present_storage_valid);
    EXPECT_EQ(c.present_storage_id, 3);
    EXPECT_TRUE(c.dc_out_valid);
    EXPECT_EQ(c.dc_out_switch, 1);
    EXPECT_EQ(c.dc_out_voltage, 2);
    EXPECT_TRUE(c.nas_valid);
    ASSERT_EQ(c.nas_list.size(), 2u);
    EXPECT_EQ(c.nas_list[0], (NasMountInfo{"share", true, 2}));
    EXPECT_EQ(c.nas_list[1], (NasMountInfo{"backup", false, 0}));
    EXPECT_TRUE(c.ap_valid);
    EXPECT_EQ(c.ap_ssid, "box-ap");
    EXPECT_EQ(c.ap_psk, "secret");
    EXPECT_TRUE(c.app_connection_valid);
    EXPECT_EQ(c.app_connection_status, 1);
    EXPECT_FALSE(c.usb_otg_valid) << "page 6 was never shown";
}

TEST_F(GetWorkerTest, RtmpSwitchReadFromObjectOrFirstListElement)
{
    env.web.reply("get_servers_info", succeed({{{"switch", 1}}, {{"switch", 0}}}));
    tickReads(20);
    EXPECT_TRUE(getCache().dec_rtmp_valid);
    EXPECT_EQ(getCache().dec_rtmp_switch, 1);
    env.web.reply("get_servers_info", succeed({{"switch", 0}}));
    tickReads(20);
    EXPECT_EQ(getCache().dec_rtmp_switch, 0);
    env.web.reply("get_servers_info", succeed({{"switch", 1}}));
    tickReads(20);
    env.web.reply("get_servers_info", succeed(7));
    tickReads(20);
    EXPECT_EQ(getCache().dec_rtmp_switch, 0) << "any other non-empty value reads as off";
}

TEST_F(GetWorkerTest, DecoderReportNeedsItsInnerDataObject)
{
    setWorkMode(1);
    env.media.reply("get_decoder_info", {{"msg", "success"},
                                         {"data",
                                          {{"data",
                                            {{"name", "cam \xc3\xa9"},
                                             {"framerate", 59.94},
                                             {"width", 1920},
                                             {"streamplay_status", 1}}}}}});
    tickReads(30);
    ZmqGetCache c = getCache();
    ASSERT_TRUE(c.decoder_valid);
    EXPECT_EQ(c.dec_name, QString::fromUtf8("cam \xc3\xa9"));
    EXPECT_DOUBLE_EQ(c.dec_framerate, 59.94);
    EXPECT_EQ(c.dec_width, 1920);
    EXPECT_EQ(c.dec_height, 0);
    EXPECT_EQ(c.dec_streamplay_status, 1);

    env.media.reply("get_decoder_info", {{"msg", "success"}, {"data", {{"name", "flat"}}}});
    tickReads(30);
    EXPECT_EQ(getCache().dec_name, QString::fromUtf8("cam \xc3\xa9"));
}

TEST_F(GetWorkerTest, FailedOrEmptyReadsKeepDataAndFlags)
{
    env.web.reply("get_lcd_info", succeed({{"lock_stat", 1}, {"lcd_bright", 50}}));
    tickReads(30);
    ASSERT_TRUE(getCache().lcd_valid);

    for (const json& reply : {json({{"rsp", "fail"}}), succeed(json::object()),
                              succeed(json::array()), succeed(nullptr)}) {
        env.web.reply("get_lcd_info", reply);
        tickReads(30);
        const ZmqGetCache c = getCache();
        EXPECT_TRUE(c.lcd_valid) << reply.dump();
        EXPECT_EQ(c.lcd_lock_stat, 1) << reply.dump();
        EXPECT_EQ(c.lcd_bright, 50) << reply.dump();
    }
    EXPECT_FALSE(getCache().enc_ndi_valid) << "a group that never succeeded stays invalid";
    EXPECT_EQ(getCache().present_storage_id, -1);
}

TEST_F(GetWorkerTest, MalformedValueFailsOnlyItsOwnRefresh)
{
    env.web.reply("get_lcd_info", succeed({{"lock_stat", "locked"}}));
    env.web.reply("get_ndi_info", succeed({{"switch", 1}}));
    tickReads(30);
    EXPECT_FALSE(getCache().lcd_valid);
    EXPECT_TRUE(getCache().enc_ndi_valid);
    env.web.reply("get_nas_info_list", succeed({{"name", "not a list"}}));
    tickReads(11);
    EXPECT_FALSE(getCache().nas_valid);
}

TEST_F(GetWorkerTest, PreheatTakesTheModelsWorkModeBeforeTheFirstSystemState)
{
    model.mode = 1;
    poller->preheatAll();
    OpSet reads;
    for (const json& request : env.web.requests())
        reads.insert(operationOf(request));
    EXPECT_TRUE(decoderRead());
    EXPECT_TRUE(reads.count("get_srt_server_info"));
    EXPECT_TRUE(reads.count("get_servers_info"));
    EXPECT_FALSE(reads.count("get_present_storage"));
    EXPECT_FALSE(reads.count("get_ndi_info"));
    for (const char* common : {"get_lcd_info", "get_dcout_status", "get_usb_otg_id", "get_ap_info",
                               "get_nas_info_list", "get_app_connection_status"})
        EXPECT_TRUE(reads.count(common)) << common;
}

TEST_F(GetWorkerTest, PreheatPrefersThePublishedWorkMode)
{
    model.mode = 1;
    setWorkMode(0);
    poller->preheatAll();
    EXPECT_FALSE(decoderRead());
    EXPECT_EQ(env.web.countOf("get_present_storage"), 1);
    EXPECT_EQ(env.web.countOf("get_ndi_info"), 1);
}

TEST_F(GetWorkerTest, ProcessPollsUntilStopped)
{
    std::thread thread([this] { poller->process(); });
    EXPECT_TRUE(testsupport::waitUntil([&] { return env.web.countOf("get_lcd_info") >= 2; }))
        << "preheat and the first tick both read the LCD state";
    EXPECT_TRUE(poller->isRunning());
    const auto start = std::chrono::steady_clock::now();
    poller->stop();
    thread.join();
    // A stop during the pause ends the loop within one pause step; a stop
    // during a tick waits for that tick. Generous bound, not a benchmark.
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(1500));
}

TEST(GetWorkerLifecycleTest, WithoutModelOrSubWorkerProcessReturnsAtOnce)
{
    FakeModel model;
    ZmqGetWorker no_sub(&model, nullptr);
    no_sub.process();
    EXPECT_FALSE(no_sub.isRunning());
    LinkEnv env;
    env.start();
    ZmqGetWorker no_model(nullptr, env.worker.get());
    no_model.process();
    EXPECT_FALSE(no_model.isRunning());
}

} // namespace
} // namespace linktest
