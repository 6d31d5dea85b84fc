// How the reply forms of each dialect reduce to a status value and a result:
// the common get pattern, the AI service, stream play, the bare codes of the
// audio and PTZ services, and the media server.
#include "scripted_backend.h"

namespace apitest {
namespace {

struct ReadCase {
    const char* reply; // raw text on the wire
    int status;
    const char* result; // expected output; null: the output stays untouched
};

const json kUntouched = {{"untouched", true}};

class ReplyReductionTest : public ApiTest {
protected:
    // Scripts `operation` with each reply and checks what `read` makes of it.
    void expectReads(const std::string& operation, int (ZmqSubWorker::*read)(json&),
                     const std::vector<ReadCase>& cases)
    {
        for (const ReadCase& c : cases) {
            SCOPED_TRACE(c.reply);
            web.replyRaw(operation, c.reply);
            json out = kUntouched;
            EXPECT_EQ((worker().*read)(out), c.status);
            EXPECT_EQ(out, c.result ? json::parse(c.result) : kUntouched);
        }
    }
};

TEST_F(ReplyReductionTest, GetPatternWantsSucceedAndData)
{
    expectReads("get_fan_mode", &ZmqSubWorker::getFanMode,
                {
                    {R"({"rsp":"succeed","data":{"mode":2}})", 0, R"({"mode":2})"},
                    {R"({"rsp":"succeed","data":[1,2]})", 0, "[1,2]"},
                    {R"({"rsp":"success","data":{"mode":2}})", -3, nullptr},
                    {R"({"rsp":"fail","data":{"mode":2}})", -3, nullptr},
                    {R"({"status":"00000","data":{"mode":2}})", -3, nullptr},
                    {R"({"rsp":"succeed"})", -3, nullptr},
                    {R"([{"rsp":"succeed"}])", -3, nullptr},
                    {"not json", -3, nullptr},
                });
}

TEST_F(ReplyReductionTest, TopLevelResults)
{
    expectReads("all", &ZmqSubWorker::getVideoEncParams,
                {
                    {R"({"rsp":"succeed","all":{"venc":[]}})", 0, R"({"venc":[]})"},
                    {R"({"rsp":"succeed","data":{"venc":[]}})", -3, nullptr},
                });
    expectReads("get_product_id", &ZmqSubWorker::getProductId,
                {{R"({"rsp":"succeed","product_id":"VX-1"})", 0, R"("VX-1")"}});
    expectReads("getStreamStatus", &ZmqSubWorker::getEncNetStreamList,
                {{R"({"rsp":"succeed","publish_status":[{"index":1}]})", 0, R"([{"index":1}])"}});
}

TEST_F(ReplyReductionTest, AiReadsWantSuccess)
{
    expectReads("/ai/image_matting/get_matting_info", &ZmqSubWorker::getGskInfo,
                {
                    {R"({"rsp":"success","data":{"im_enable":1}})", 0, R"({"im_enable":1})"},
                    {R"({"rsp":"succeed","data":{"im_enable":1}})", -3, nullptr},
                    {R"({"rsp":"success"})", -3, nullptr},
                });
}

TEST_F(ReplyReductionTest, StreamPlayReadsIgnoreRsp)
{
    expectReads("streamplay_get_all", &ZmqSubWorker::getDecNetStreamList,
                {
                    {R"({"rsp":"failed","data":[]})", 0, "[]"},
                    {R"({"data":{"a":1}})", 0, R"({"a":1})"},
                    {R"({"rsp":"succeed"})", -3, nullptr},
                    {"garbage", -3, nullptr},
                });
    expectReads("get_decoder_state", &ZmqSubWorker::getDecoderState,
                {
                    {R"({"data":{"decoder_state":2,"other":1}})", 0,
                     R"({"untouched":true,"decoder_state":2})"},
                    {R"({"data":{"other":1}})", -3, nullptr},
                });
}

TEST_F(ReplyReductionTest, UvcListIgnoresRspAndWantsTheList)
{
    expectReads("get_list_info", &ZmqSubWorker::getDecUvcList,
                {
                    {R"({"rsp":"failed","data":{"uvc_list":[{"id":1}]}})", 0, R"([{"id":1}])"},
                    {R"({"rsp":"succeed","data":{}})", -3, nullptr},
                    {R"({"rsp":"succeed","data":[]})", -3, nullptr},
                });
}

// These services answer some failures with a bare code instead of JSON.
TEST_F(ReplyReductionTest, AudioAndPtzReadsMapBareCodes)
{
    expectReads("all", &ZmqSubWorker::getAudioConfig,
                {
                    {R"({"rsp":"succeed","all":{"volume":3}})", 0, R"({"volume":3})"},
                    {R"({"rsp":"failed"})", -3, nullptr},
                    {"90001", -501, nullptr},
                    {"90002", -502, nullptr},
                    {R"({"rsp":"succeed"})", -3, nullptr},
                });
    expectReads("get_client_info", &ZmqSubWorker::getPtzctrlInfo,
                {
                    {R"({"rsp":"succeed","data":{"protocol":1}})", 0, R"({"protocol":1})"},
                    {"invalid_protocol", -2, nullptr},
                    {"ptz_not_ready", -3, nullptr},
                    {"something_else", -3, nullptr},
                    {R"({"rsp":"succeed"})", -3, nullptr},
                });

    web.replyRaw("get_ao_volume", "90002");
    int volume = 11;
    EXPECT_EQ(worker().getAudioOutVolume(volume), -502);
    EXPECT_EQ(volume, 11);
    web.reply("get_ao_volume", {{"rsp", "succeed"}, {"data", {{"ao_volume", 35}}}});
    EXPECT_EQ(worker().getAudioOutVolume(volume), 0);
    EXPECT_EQ(volume, 35);
}

TEST_F(ReplyReductionTest, NumberReadsWithTheirOwnRules)
{
    struct NumberCase {
        const char* reply;
        int status;
        int value;
    };
    for (const NumberCase& c : std::vector<NumberCase>{
             {R"({"rsp":"succeed","data":{"storage_id":3}})", 0, 3},
             {R"({"rsp":"succeed","data":{"storage_id":true}})", 0, 1},
             {R"({"rsp":"succeed","data":{"storage_id":1.9}})", 0, 1},
             {R"({"rsp":"succeed","data":{"storage_id":"1"}})", -3, -7},
             {R"({"rsp":"succeed","data":{}})", -3, -7},
             {R"({"rsp":"fail","data":{"storage_id":0}})", -3, -7},
         }) {
        SCOPED_TRACE(c.reply);
        web.replyRaw("get_present_storage", c.reply);
        int id = -7;
        EXPECT_EQ(worker().getPresentStorage(id), c.status);
        EXPECT_EQ(id, c.value);
    }

    // The connection status starts from 0 and takes only a number.
    for (const NumberCase& c : std::vector<NumberCase>{
             {R"({"rsp":"succeed","data":{"connect_status":2}})", 0, 2},
             {R"({"rsp":"succeed","data":{"connect_status":"2"}})", -3, 0},
             {R"({"rsp":"fail","data":{"connect_status":2}})", -3, 0},
             {"{broken", -3, 0},
         }) {
        SCOPED_TRACE(c.reply);
        web.replyRaw("get_app_connection_status", c.reply);
        int status = -7;
        EXPECT_EQ(worker().getAppConnectionStatus(status), c.status);
        EXPECT_EQ(status, c.value);
    }
}

TEST_F(ReplyReductionTest, FirstUseFlagComesFromTheHardwareSection)
{
    int flag = -7;
    EXPECT_EQ(worker().getConnectAppFirstUseFlag(flag), 0);
    EXPECT_EQ(flag, 0);

    web.reply("get_hardwaredom", {{"data", {{"app_first_use_flag", 1}}}});
    EXPECT_EQ(worker().getConnectAppFirstUseFlag(flag), 0);
    EXPECT_EQ(flag, 1);
    ASSERT_FALSE(web.requestsOf("get_hardwaredom").empty());
    EXPECT_EQ(web.requestsOf("get_hardwaredom").back(),
              json::parse(R"({"group":"get_json_cfg","opt":"get_hardwaredom"})"));

    web.reply("get_hardwaredom", {{"data", {{"app_first_use_flag", "1"}}}});
    EXPECT_EQ(worker().getConnectAppFirstUseFlag(flag), 0);
    EXPECT_EQ(flag, 0);
}

TEST_F(ReplyReductionTest, AiControlReplyForms)
{
    struct FormCase {
        const char* reply;
        int status;
    };
    for (const FormCase& c : std::vector<FormCase>{
             {"{}", 0},
             {R"({"data":{}})", 0},
             {"null", 0},
             {R"({"rsp":"succeed","status":"00000"})", 0},
             {R"({"rsp":"fail","status":"9"})", -1},
             {R"({"rsp":"ok"})", -3},
             {R"({"status":"00000"})", -3},
             {R"({"rsp":"succeed"})", -3},
             {R"({"data":{},"rsp":"succeed"})", -3},
             {"[]", -3},
             {"7", -3},
             {"not json", -3},
         }) {
        SCOPED_TRACE(c.reply);
        web.replyRaw("/ai/ai_tracking/select_obj", c.reply);
        EXPECT_EQ(worker().setAiTrackingSelectObj(1), c.status);
    }
}

TEST_F(ReplyReductionTest, DecoderInfoWantsMsgSuccess)
{
    struct FormCase {
        const char* reply;
        int status;
    };
    for (const FormCase& c : std::vector<FormCase>{
             {R"({"msg":"success","data":{"width":1280}})", 0},
             {R"({"rsp":"success","data":{"width":1280}})", -3},
             {R"({"msg":"succeed","data":{"width":1280}})", -3},
             {R"({"msg":"success"})", -3},
         }) {
        SCOPED_TRACE(c.reply);
        media.replyRaw("get_decoder_info", c.reply);
        json out = kUntouched;
        EXPECT_EQ(worker().getDecoderInfo(out), c.status);
        EXPECT_EQ(out, c.status == 0 ? json({{"width", 1280}}) : kUntouched);
    }
}

// A reply code reaches the status through the domain's own map.
TEST_F(ReplyReductionTest, ControlRepliesUseTheDomainMap)
{
    struct CodeCase {
        const char* label;
        const char* operation;
        const char* code;
        std::function<int(AppManager&)> call;
        int status;
    };
    for (const CodeCase& c : std::vector<CodeCase>{
             {"system", "set_fan_mode", "80011", [](AppManager& a) { return a.setFanMode(0); },
              -401},
             {"network", "ap_switch", "70016", [](AppManager& a) { return a.setApSwitch(0); },
              -301},
             {"video", "ndi_switch", "130001", [](AppManager& a) { return a.setEncNdiSwitch(0); },
              -801},
             {"audio", "set_ao_volume", "90002",
              [](AppManager& a) { return a.setAudioOutVolume(1); }, -502},
             {"stream", "update_publish_switch", "60013",
              [](AppManager& a) { return a.setEncNetStreamSwitch(1, 0); }, -202},
             {"osd", "set_layout_switch", "120002",
              [](AppManager& a) { return a.setOsdLayoutSwitch(1, 0); }, -2},
             {"record", "set_task_enable", "100001",
              [](AppManager& a) { return a.setRecordTaskEnable("r", 0); }, -5},
             {"record unknown", "set_task_enable", "100003",
              [](AppManager& a) { return a.setRecordTaskEnable("r", 0); }, -3},
             {"storage", "nas_mount", "100003", [](AppManager& a) { return a.setNasMount(1); },
              -601},
             {"stream play", "ndi_find", "140008", [](AppManager& a) { return a.findDecNdi(); },
              -903},
             {"media player", "uvc_close", "150009",
              [](AppManager& a) { return a.setDecUvcClose(1); }, -1001},
             {"general first", "set_fan_mode", "000000",
              [](AppManager& a) { return a.setFanMode(0); }, 1},
             {"first use has no map", "set_first_use", "80011",
              [](AppManager& a) { return a.setConnectAppFirstUseFlag(1); }, -3},
         }) {
        SCOPED_TRACE(c.label);
        web.reply(c.operation, {{"rsp", "succeed"}, {"status", c.code}});
        EXPECT_EQ(c.call(*app), c.status);
    }
    // The PTZ service reports with words.
    web.reply("get_client_info",
              {{"rsp", "succeed"}, {"data", {{"protocol_list", json::array()}}}});
    web.reply("set_client_info", {{"status", "ptz_not_ready"}});
    EXPECT_EQ(app->setPtzProtocol(1), -3);
    web.reply("set_client_info", {{"status", "invalid_protocol"}});
    EXPECT_EQ(app->setPtzProtocol(1), -2);
}

} // namespace
} // namespace apitest
