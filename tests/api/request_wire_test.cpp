// The exact request each operation puts on the wire: keys, nesting, JSON
// types, and the keys that must be absent.
#include "scripted_backend.h"
#include "wire_operations.h"

namespace apitest {
namespace {

TEST_F(ApiTest, EveryOperationPutsItsExactRequestOnTheWire)
{
    for (const WireOperation& operation : wireOperations()) {
        SCOPED_TRACE(operation.label);
        web.clearRequests();
        operation.call(*app);
        EXPECT_EQ(onlyRequest(), operation.expected);
    }
}

// The decoder report goes to the media server, in its own dialect.
TEST_F(ApiTest, DecoderInfoAsksTheMediaServerWithoutModule)
{
    media.reply("get_decoder_info", {{"msg", "success"}, {"data", {{"width", 1920}}}});
    json info;
    EXPECT_EQ(worker().getDecoderInfo(info), 0);
    EXPECT_EQ(info, json({{"width", 1920}}));
    EXPECT_TRUE(web.requests().empty());
    ASSERT_EQ(media.requestsOf("get_decoder_info").size(), 1u);
    EXPECT_EQ(media.requestsOf("get_decoder_info").front(),
              json::parse(R"({"group":"mediaplayer_module","opt":"get_decoder_info"})"));
}

// The listener and its playback move together, and the play switch goes
// out even after the listener failed.
TEST_F(ApiTest, SrtServerSwitchSendsBothSwitches)
{
    web.reply("server_switch", {{"status", "140005"}});
    web.reply("play_switch", {{"status", "140006"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(0), -901);
    const std::vector<json> requests = web.requests();
    ASSERT_EQ(requests.size(), 2u);
    EXPECT_EQ(
        requests[0],
        json::parse(
            R"({"func_module":"streamplay_api","group":"set_streamplay_srtserver_info","opt":"server_switch","data":{"server_switch":0}})"));
    EXPECT_EQ(
        requests[1],
        json::parse(
            R"({"func_module":"streamplay_api","group":"set_streamplay_srtserver_info","opt":"play_switch","data":{"play_switch":0}})"));

    web.reply("server_switch", {{"rsp", "succeed"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(1), -902);
    web.reply("play_switch", {{"rsp", "succeed"}});
    EXPECT_EQ(app->setDecSrtServerSwitch(1), 0);
}

} // namespace
} // namespace apitest
