// Requests over real sockets to a fake web server daemon: envelope, time-outs,
// forgiven silence, configuration reads.
#include "link_env.h"

#include <gtest/gtest.h>

#include <chrono>

namespace linktest {
namespace {

using std::chrono::milliseconds;

// Longer than the default time-out of 1000 ms, shorter than the long ones.
constexpr milliseconds kLateAnswer(1400);
const json kOk = {{"status", "00000"}};

class RequestExchangeTest : public ::testing::Test {
protected:
    void SetUp() override { env.start(); }

    ZmqSubWorker& worker() { return *env.worker; }
    json lastRequest() const { return env.web.requests().back(); }

    LinkEnv env;
};

TEST_F(RequestExchangeTest, RequestIsSentCompactAndReplyReturnedAsIs)
{
    env.web.replyRaw("echo", R"({"rsp":"succeed","data":{"v":"\u00e4"}})");
    const json request = {{"group", "g"}, {"opt", "echo"}, {"data", {{"name", "\xc3\xa4"}}}};
    EXPECT_EQ(worker().sendZmqRequest(request), R"({"rsp":"succeed","data":{"v":"\u00e4"}})");
    EXPECT_EQ(lastRequest(), request);
}

TEST_F(RequestExchangeTest, InvalidUtf8IsRefusedWithoutSending)
{
    env.web.clearRequests();
    const json request = {{"group", "g"}, {"opt", "bad"}, {"data", std::string("\xff\xfe")}};
    EXPECT_EQ(worker().sendZmqRequest(request), "");
    EXPECT_TRUE(env.web.requests().empty());
    // The mutex was released: the next request goes through.
    env.web.reply("next", kOk);
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "next"}}), kOk.dump());
}

TEST_F(RequestExchangeTest, DefaultTimeOutGivesUpOnALateAnswerAndTheNextRequestWorks)
{
    env.web.reply("slow", kOk, kLateAnswer);
    env.web.reply("fast", {{"status", "00010"}});
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "slow"}}), "");
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "fast"}}), R"({"status":"00010"})");
    // A time-out of zero or less is the default, not the transport's own
    // longer default.
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "slow"}}, 0), "");
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "slow"}}, -5), "");
}

TEST_F(RequestExchangeTest, GivenTimeOutWaitsForALateAnswer)
{
    env.web.reply("slow", kOk, kLateAnswer);
    EXPECT_EQ(worker().sendZmqRequest({{"opt", "slow"}}, 3000), kOk.dump());
}

// ---- the domain pairs -------------------------------------------------------

TEST_F(RequestExchangeTest, EveryDomainStampsItsModuleOnACopy)
{
    using Info = std::string (ZmqSubWorker::*)(const json&);
    using Control = int (ZmqSubWorker::*)(const json&);
    struct Pair {
        Info info;
        Control control;
        const char* module;
        int control_status;
    };
    const Pair pairs[] = {
        {&ZmqSubWorker::getSystemApiInfo, &ZmqSubWorker::sendSystemApiControl, "system_api", 0},
        {&ZmqSubWorker::getNetworkApiInfo, &ZmqSubWorker::sendNetworkApiControl, "network_api", 0},
        {&ZmqSubWorker::getVideoApiInfo, &ZmqSubWorker::sendVideoApiControl, "video_api", 0},
        {&ZmqSubWorker::getAudioApiInfo, &ZmqSubWorker::sendAudioApiControl, "audio_api", 0},
        {&ZmqSubWorker::getStreamApiInfo, &ZmqSubWorker::sendStreamApiControl, "stream_api", 0},
        {&ZmqSubWorker::getOsdApiInfo, &ZmqSubWorker::sendOsdApiControl, "osd_api", 0},
        // The AI service's replies are its own: `rsp` without `status` is none.
        {&ZmqSubWorker::getAiApiInfo, &ZmqSubWorker::sendAiApiControl, "ai_api", -3},
        {&ZmqSubWorker::getRecordApiInfo, &ZmqSubWorker::sendRecordApiControl, "record_api", 0},
        {&ZmqSubWorker::getStorageApiInfo, &ZmqSubWorker::sendStorageApiControl, "storage_api", 0},
        {&ZmqSubWorker::getStreamPlayApiInfo, &ZmqSubWorker::sendStreamPlayApiControl,
         "streamplay_api", 0},
        {&ZmqSubWorker::getMediaplayerApiInfo, &ZmqSubWorker::sendMediaplayerApiControl,
         "mediaplayer_api", 0},
        {&ZmqSubWorker::getPtzctrlApiInfo, &ZmqSubWorker::sendPtzctrlApiControl, "ptzctrl_api", 0},
    };
    env.web.reply("probe", {{"rsp", "succeed"}, {"data", 7}});
    const json request = {{"group", "g"}, {"opt", "probe"}, {"func_module", "stale"}};
    for (const Pair& pair : pairs) {
        EXPECT_EQ((worker().*pair.info)(request), R"({"data":7,"rsp":"succeed"})");
        EXPECT_EQ(lastRequest().value("func_module", ""), pair.module);
        EXPECT_EQ((worker().*pair.control)(request), pair.control_status) << pair.module;
        EXPECT_EQ(lastRequest().value("func_module", ""), pair.module);
        EXPECT_EQ(lastRequest().value("opt", ""), "probe");
    }
    EXPECT_EQ(request.value("func_module", ""), "stale");
}

TEST_F(RequestExchangeTest, ControlReducesTheReply)
{
    env.web.reply("a", {{"status", "000000"}});
    env.web.reply("b", {{"code", 9}});
    env.web.replyRaw("c", "not json");
    EXPECT_EQ(worker().sendOsdApiControl({{"group", "osd_layout"}, {"opt", "a"}}), 1);
    EXPECT_EQ(worker().sendOsdApiControl({{"group", "osd_layout"}, {"opt", "b"}}), -1);
    EXPECT_EQ(worker().sendOsdApiControl({{"group", "osd_layout"}, {"opt", "c"}}), -3);
}

TEST_F(RequestExchangeTest, ZeroLengthReplyIsAFailureEvenWhereSilenceIsForgiven)
{
    // The daemon's server answers an empty handler result with an error text.
    env.web.replyRaw("power_off", "");
    EXPECT_EQ(worker().sendSystemApiControl({{"group", "syscontrol"}, {"opt", "power_off"}}), -3);
}

TEST_F(RequestExchangeTest, LongTimeOutByGroupAndOpt)
{
    env.web.reply("change_workmode", kOk, kLateAnswer);
    const json change = {
        {"group", "workmode"}, {"opt", "change_workmode"}, {"data", {{"workmode_id", 1}}}};
    EXPECT_EQ(worker().sendSystemApiControl(change), 0);
    // Same operation in another group, or another domain: default time-out.
    EXPECT_EQ(worker().sendSystemApiControl({{"group", "other"}, {"opt", "change_workmode"}}), -3);
}

TEST_F(RequestExchangeTest, LongTimeOutOnlyInItsDomain)
{
    env.web.reply("change_workmode", kOk, kLateAnswer);
    EXPECT_EQ(worker().sendVideoApiControl({{"group", "workmode"}, {"opt", "change_workmode"}}),
              -3);
}

TEST_F(RequestExchangeTest, SilenceForgivenForPowerOffButNotForReboot)
{
    env.web.reply("power_off", kOk, kLateAnswer);
    env.web.reply("set_reboot_info", kOk, kLateAnswer);
    EXPECT_EQ(worker().sendSystemApiControl({{"group", "syscontrol"}, {"opt", "power_off"}}), 0);
    EXPECT_EQ(worker().sendSystemApiControl({{"group", "syscontrol"},
                                             {"opt", "set_reboot_info"},
                                             {"data", {{"command", "reboot"}}}}),
              -3);
}

TEST_F(RequestExchangeTest, SilenceForgivenOnlyWhenSwitchingOn)
{
    env.web.reply("set_srt_local_switch", kOk, kLateAnswer);
    auto srt = [](const json& data) {
        json request = {{"group", "set_srt_local_switch"}};
        if (!data.is_null())
            request["data"] = data;
        return request;
    };
    EXPECT_EQ(worker().sendStreamApiControl(srt({{"switch", 1}})), 0);
    EXPECT_EQ(worker().sendStreamApiControl(srt({{"switch", 0}})), -3);
    EXPECT_EQ(worker().sendStreamApiControl(srt({{"switch", "1"}})), -3);
}

// ---- configuration reads --------------------------------------------------------

TEST_F(RequestExchangeTest, GetJsonCfgHandsOutTheDataSection)
{
    env.web.reply("get_networkdom", {{"data", {{"ports", {{"http", 8080}}}}}});
    json out;
    worker().GetJsonCfg("get_networkdom", out);
    EXPECT_EQ(out, json({{"ports", {{"http", 8080}}}}));
    const json request = lastRequest();
    EXPECT_EQ(request, json({{"group", "get_json_cfg"}, {"opt", "get_networkdom"}}));
}

TEST_F(RequestExchangeTest, GetJsonCfgLeavesOutAloneWithoutData)
{
    env.web.replyRaw("broken", "{{{");
    env.web.reply("nodata", {{"rsp", "succeed"}});
    env.web.reply("emptydata", {{"data", json::object()}});
    json out = {{"kept", true}};
    worker().GetJsonCfg("broken", out);
    worker().GetJsonCfg("nodata", out);
    worker().GetJsonCfg("unknown", out);
    EXPECT_EQ(out, json({{"kept", true}}));
    worker().GetJsonCfg("emptydata", out);
    EXPECT_EQ(out, json::object());
}

TEST(SubCacheFromApiTest, OsdLayoutFromConfigurationFillsTheCacheAtStart)
{
    LinkEnv env;
    env.web.reply("get_osddom",
                  {{"data", {{"osd_layout", {{{"id", 3}, {"name", "Logo"}, {"switch", 1}}}}}}});
    env.start();
    const ZmqSubCache cache = env.worker->getSubCache();
    EXPECT_TRUE(env.worker->isRunning());
    EXPECT_TRUE(cache.osd_ready);
    ASSERT_EQ(cache.osd_items.size(), 1u);
    EXPECT_EQ(cache.osd_items[0].id, 3);
    EXPECT_EQ(cache.osd_items[0].status, 1);
}

TEST(SubCacheFromApiTest, MissingOrInvalidOsdLayoutDoesNotStopTheStart)
{
    LinkEnv env;
    env.web.reply("get_osddom", {{"data", {{"osd_layout", {{"id", 3}}}}}});
    env.start();
    EXPECT_TRUE(env.worker->isRunning());
    EXPECT_FALSE(env.worker->getSubCache().osd_ready);
}

} // namespace
} // namespace linktest
