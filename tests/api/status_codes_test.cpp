// Each domain's map from reply codes to status values, at its edges (first
// and last codes, holes, the codes just outside its range, text that is no
// number), and that each domain's operations reach their own map.
#include "scripted_backend.h"

#include <sstream>

namespace apitest {
namespace {

using W = ZmqSubWorker;

TEST_F(ApiTest, DomainMapsAtTheirEdges)
{
    // "code=value" pairs per domain.
    const std::tuple<const char*, W::StatusMapper, const char*> maps[] = {
        {"system", &W::mapSystemStatusCodeToValue,
         "80000=-9999 80001=0 80002=-8 80006=-2 80012=-402 80014=-403 80015=-9999 abc=-9999"},
        {"network", &W::mapNetworkStatusCodeToValue,
         "70001=-3 70002=-2 70003=-8 70016=-301 70017=-9999 70019=-9999 70020=-8 70032=-8 "
         "70035=-2 70036=-9999"},
        {"video", &W::mapVideoStatusCodeToValue, "130001=-801 130004=-2 130005=-9999"},
        {"audio", &W::mapAudioStatusCodeToValue, "90001=-501 90002=-502 90003=-9999"},
        {"stream", &W::mapStreamStatusCodeToValue,
         "60001=-8 60007=-201 60011=-9 60016=-203 60017=-9999"},
        {"osd", &W::mapOsdStatusCodeToValue, "120002=-2 120009=-2 120010=-9999"},
        {"ai", &W::mapAiStatusCodeToValue, "80001=-9999"},
        {"record", &W::mapRecordStatusCodeToValue,
         "100001=-5 100002=-6 100003=-9999 110001=-701 110010=-710 110011=-9999"},
        {"storage", &W::mapStorageStatusCodeToValue,
         "100003=-601 100004=-601 100009=-603 100017=-611 100018=-9999"},
        {"stream play", &W::mapStreamPlayStatusCodeToValue, "140001=-2 140008=-903 140010=-9999"},
        {"media player", &W::mapMediaplayerStatusCodeToValue,
         "150001=-3 150008=-3 150009=-1001 150010=-1002 150011=-9999 190000=-9999 190001=-3 "
         "190003=-2 190006=-2 190008=-3 190009=-9999"},
        {"ptz", &W::mapPtzctrlStatusCodeToValue, "ptz_not_ready=-3 invalid_protocol=-2 0=-9999"}};
    for (const auto& [domain, map, pairs] : maps) {
        std::istringstream codes(pairs);
        for (std::string pair; codes >> pair;) {
            const std::string code = pair.substr(0, pair.find('='));
            EXPECT_EQ((worker().*map)(code), std::stoi(pair.substr(pair.find('=') + 1)))
                << domain << " " << code;
        }
    }
    EXPECT_EQ(worker().mapPtzctrlStatusCodeToValue("invalid_protocol "), -9999);
}

// A reply code reaches the status through the general map first, then the
// domain's own; a code neither knows is the common failure. The device's
// refusals over the real sockets cover the other domains.
TEST_F(ApiTest, EachDomainsOperationsUseItsMap)
{
    using A = AppManager;
    struct Case {
        const char* operation;
        json reply;
        std::function<int(A&)> call;
        int status;
    };
    auto code = [](const char* c) { return json{{"rsp", "succeed"}, {"status", c}}; };
    auto word = [](const char* w) { return json{{"status", w}}; }; // as the PTZ service reports
    const Case cases[] = {
        {"set_fan_mode", code("80011"), call(&A::setFanMode, 0), -401},
        {"ndi_switch", code("130001"), call(&A::setEncNdiSwitch, 0), -801},
        {"set_ao_volume", code("90002"), call(&A::setAudioOutVolume, 1), -502},
        {"set_task_enable", code("100003"), call(&A::setRecordTaskEnable, "r", 0), -3},
        {"nas_mount", code("100003"), call(&A::setNasMount, 1), -601},
        {"uvc_close", code("150009"), call(&A::setDecUvcClose, 1), -1001},
        {"set_first_use", code("80011"), call(&A::setConnectAppFirstUseFlag, 1), -3},
        {"set_client_info", word("invalid_protocol"), call(&A::setPtzProtocol, 1), -2},
        {"set_client_info", word("ptz_not_ready"), call(&A::setPtzProtocol, 1), -3}};
    web.reply("get_client_info",
              {{"rsp", "succeed"}, {"data", {{"protocol_list", json::array()}}}});
    for (const Case& c : cases) {
        web.reply(c.operation, c.reply);
        EXPECT_EQ(c.call(*app), c.status) << c.operation << " " << c.reply.dump();
    }
}

} // namespace
} // namespace apitest
