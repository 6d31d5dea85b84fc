// How the replies of each dialect reduce to a status and a result, malformed
// and empty ones included: the common get pattern, top-level results, the AI
// service, stream play, the bare codes of the audio and PTZ services, the
// media server, and the reads of single numbers.
#include "scripted_backend.h"

namespace apitest {
namespace {

using W = ZmqSubWorker;

struct JsonRead {
    const char* operation;
    int (W::*read)(json&);
    const char* reply; // raw text on the wire
    int status;
    const char* result; // null: the output stays as it was
};

TEST_F(ApiTest, ReadsTakeTheirResultOnlyFromTheirDialectsGoodReply)
{
    const JsonRead cases[] = {
        {"get_fan_mode", &W::getFanMode, R"({"rsp":"succeed","data":{"mode":2}})", 0,
         R"({"mode":2})"},
        {"get_fan_mode", &W::getFanMode, R"({"rsp":"success","data":{"mode":2}})", -3, nullptr},
        {"get_fan_mode", &W::getFanMode, R"({"rsp":"fail","data":{"mode":2}})", -3, nullptr},
        {"get_fan_mode", &W::getFanMode, R"({"rsp":"succeed"})", -3, nullptr},
        {"get_fan_mode", &W::getFanMode, R"([{"rsp":"succeed"}])", -3, nullptr},
        {"get_fan_mode", &W::getFanMode, "not json", -3, nullptr},
        {"get_fan_mode", &W::getFanMode, "", -3, nullptr},
        {"all", &W::getVideoEncParams, R"({"rsp":"succeed","all":{"venc":[]}})", 0,
         R"({"venc":[]})"},
        {"all", &W::getVideoEncParams, R"({"rsp":"succeed","data":{"venc":[]}})", -3, nullptr},
        {"get_product_id", &W::getProductId, R"({"rsp":"succeed","product_id":"VX-1"})", 0,
         R"("VX-1")"},
        {"getStreamStatus", &W::getEncNetStreamList,
         R"({"rsp":"succeed","publish_status":[{"index":1}]})", 0, R"([{"index":1}])"},
        // The AI service says "success", and only that.
        {"/ai/image_matting/get_matting_info", &W::getGskInfo,
         R"({"rsp":"success","data":{"im_enable":1}})", 0, R"({"im_enable":1})"},
        {"/ai/image_matting/get_matting_info", &W::getGskInfo,
         R"({"rsp":"succeed","data":{"im_enable":1}})", -3, nullptr},
        // Stream play and the USB list ignore `rsp` and want their data.
        {"streamplay_get_all", &W::getDecNetStreamList, R"({"rsp":"failed","data":[]})", 0, "[]"},
        {"streamplay_get_all", &W::getDecNetStreamList, R"({"rsp":"succeed"})", -3, nullptr},
        {"get_decoder_state", &W::getDecoderState, R"({"data":{"decoder_state":2,"other":1}})", 0,
         R"({"untouched":true,"decoder_state":2})"},
        {"get_decoder_state", &W::getDecoderState, R"({"data":{"other":1}})", -3, nullptr},
        {"get_list_info", &W::getDecUvcList, R"({"rsp":"failed","data":{"uvc_list":[{"id":1}]}})",
         0, R"([{"id":1}])"},
        {"get_list_info", &W::getDecUvcList, R"({"rsp":"succeed","data":{}})", -3, nullptr},
        // The audio and PTZ services answer some failures with a bare code.
        {"all", &W::getAudioConfig, R"({"rsp":"succeed","all":{"volume":3}})", 0,
         R"({"volume":3})"},
        {"all", &W::getAudioConfig, R"({"rsp":"failed"})", -3, nullptr},
        {"all", &W::getAudioConfig, "90001", -501, nullptr},
        {"get_client_info", &W::getPtzctrlInfo, R"({"rsp":"succeed","data":{"protocol":1}})", 0,
         R"({"protocol":1})"},
        {"get_client_info", &W::getPtzctrlInfo, "invalid_protocol", -2, nullptr}};

    const json untouched = {{"untouched", true}};
    for (const JsonRead& c : cases) {
        web.replyRaw(c.operation, c.reply);
        json out = untouched;
        EXPECT_EQ((worker().*c.read)(out), c.status) << c.operation << " " << c.reply;
        EXPECT_EQ(out, c.result ? json::parse(c.result) : untouched)
            << c.operation << " " << c.reply;
    }

    // The media server's report, in its own dialect.
    for (const auto& [reply, status] : std::vector<std::pair<const char*, int>>{
             {R"({"msg":"success","data":{"width":1280}})", 0},
             {R"({"msg":"succeed","data":{"width":1280}})", -3},
             {R"({"msg":"success"})", -3}}) {
        media.replyRaw("get_decoder_info", reply);
        json out = untouched;
        EXPECT_EQ(worker().getDecoderInfo(out), status) << reply;
        EXPECT_EQ(out, status == 0 ? json({{"width", 1280}}) : untouched) << reply;
    }
}

TEST_F(ApiTest, NumberReadsTakeOnlyANumber)
{
    struct NumberRead {
        const char* operation;
        int (W::*read)(int&);
        const char* reply;
        int status;
        int value; // what the caller's -7 became
    };
    const NumberRead cases[] = {
        {"get_present_storage", &W::getPresentStorage,
         R"({"rsp":"succeed","data":{"storage_id":3}})", 0, 3},
        {"get_present_storage", &W::getPresentStorage,
         R"({"rsp":"succeed","data":{"storage_id":"1"}})", -3, -7},
        {"get_present_storage", &W::getPresentStorage, R"({"rsp":"succeed","data":{}})", -3, -7},
        // The connection status starts from 0.
        {"get_app_connection_status", &W::getAppConnectionStatus,
         R"({"rsp":"succeed","data":{"connect_status":2}})", 0, 2},
        {"get_app_connection_status", &W::getAppConnectionStatus,
         R"({"rsp":"succeed","data":{"connect_status":"2"}})", -3, 0},
        {"get_ao_volume", &W::getAudioOutVolume, R"({"rsp":"succeed","data":{"ao_volume":35}})", 0,
         35},
        // The first-use flag is read from the hardware section, 0 unless a number.
        {"get_hardwaredom", &W::getConnectAppFirstUseFlag, R"({"data":{"app_first_use_flag":1}})",
         0, 1},
        {"get_hardwaredom", &W::getConnectAppFirstUseFlag, R"({"data":{"app_first_use_flag":"1"}})",
         0, 0}};

    for (const NumberRead& c : cases) {
        web.replyRaw(c.operation, c.reply);
        int value = -7;
        EXPECT_EQ((worker().*c.read)(value), c.status) << c.operation << " " << c.reply;
        EXPECT_EQ(value, c.value) << c.operation << " " << c.reply;
    }
}

// The AI service's controls: an object without `rsp` is success, and so is
// a good code; a word alone is not.
TEST_F(ApiTest, AiControlReplyForms)
{
    const std::pair<const char*, int> cases[] = {{"{}", 0},
                                                 {R"({"data":{}})", 0},
                                                 {"null", 0},
                                                 {R"({"rsp":"succeed","status":"00000"})", 0},
                                                 {R"({"rsp":"fail","status":"9"})", -1},
                                                 {R"({"status":"00000"})", -3},
                                                 {R"({"rsp":"succeed"})", -3},
                                                 {R"({"data":{},"rsp":"succeed"})", -3},
                                                 {"[]", -3},
                                                 {"not json", -3}};
    for (const auto& [reply, status] : cases) {
        web.replyRaw("/ai/ai_tracking/select_obj", reply);
        EXPECT_EQ(worker().setAiTrackingSelectObj(1), status) << reply;
    }
}

} // namespace
} // namespace apitest
