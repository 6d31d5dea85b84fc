// The domain status maps at their edges: first and last codes, holes, codes
// just outside a domain's range, and text that is no number.
#include "scripted_backend.h"

namespace apitest {
namespace {

struct MapCase {
    const char* domain;
    ZmqSubWorker::StatusMapper map;
    const char* code;
    int value;
};

class StatusMapTest : public ApiTest {};

TEST_F(StatusMapTest, DomainMapsAtTheirEdges)
{
    const std::vector<MapCase> cases = {
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "80000", -9999},
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "80001", 0},
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "80002", -8},
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "80006", -2},
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "80012", -402},
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "80014", -403},
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "80015", -9999},
        {"system", &ZmqSubWorker::mapSystemStatusCodeToValue, "abc", -9999},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70001", -3},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70002", -2},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70003", -8},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70016", -301},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70017", -9999},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70019", -9999},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70020", -8},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70032", -8},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70035", -2},
        {"network", &ZmqSubWorker::mapNetworkStatusCodeToValue, "70036", -9999},
        {"video", &ZmqSubWorker::mapVideoStatusCodeToValue, "130001", -801},
        {"video", &ZmqSubWorker::mapVideoStatusCodeToValue, "130004", -2},
        {"video", &ZmqSubWorker::mapVideoStatusCodeToValue, "130005", -9999},
        {"audio", &ZmqSubWorker::mapAudioStatusCodeToValue, "90001", -501},
        {"audio", &ZmqSubWorker::mapAudioStatusCodeToValue, "90002", -502},
        {"audio", &ZmqSubWorker::mapAudioStatusCodeToValue, "90003", -9999},
        {"stream", &ZmqSubWorker::mapStreamStatusCodeToValue, "60001", -8},
        {"stream", &ZmqSubWorker::mapStreamStatusCodeToValue, "60007", -201},
        {"stream", &ZmqSubWorker::mapStreamStatusCodeToValue, "60011", -9},
        {"stream", &ZmqSubWorker::mapStreamStatusCodeToValue, "60016", -203},
        {"stream", &ZmqSubWorker::mapStreamStatusCodeToValue, "60017", -9999},
        {"osd", &ZmqSubWorker::mapOsdStatusCodeToValue, "120002", -2},
        {"osd", &ZmqSubWorker::mapOsdStatusCodeToValue, "120009", -2},
        {"osd", &ZmqSubWorker::mapOsdStatusCodeToValue, "120010", -9999},
        {"ai", &ZmqSubWorker::mapAiStatusCodeToValue, "80001", -9999},
        {"record", &ZmqSubWorker::mapRecordStatusCodeToValue, "100001", -5},
        {"record", &ZmqSubWorker::mapRecordStatusCodeToValue, "100002", -6},
        {"record", &ZmqSubWorker::mapRecordStatusCodeToValue, "100003", -9999},
        {"record", &ZmqSubWorker::mapRecordStatusCodeToValue, "110001", -701},
        {"record", &ZmqSubWorker::mapRecordStatusCodeToValue, "110010", -710},
        {"record", &ZmqSubWorker::mapRecordStatusCodeToValue, "110011", -9999},
        {"storage", &ZmqSubWorker::mapStorageStatusCodeToValue, "100003", -601},
        {"storage", &ZmqSubWorker::mapStorageStatusCodeToValue, "100004", -601},
        {"storage", &ZmqSubWorker::mapStorageStatusCodeToValue, "100009", -603},
        {"storage", &ZmqSubWorker::mapStorageStatusCodeToValue, "100017", -611},
        {"storage", &ZmqSubWorker::mapStorageStatusCodeToValue, "100018", -9999},
        {"stream play", &ZmqSubWorker::mapStreamPlayStatusCodeToValue, "140001", -2},
        {"stream play", &ZmqSubWorker::mapStreamPlayStatusCodeToValue, "140008", -903},
        {"stream play", &ZmqSubWorker::mapStreamPlayStatusCodeToValue, "140010", -9999},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "150001", -3},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "150008", -3},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "150009", -1001},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "150010", -1002},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "150011", -9999},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "190000", -9999},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "190001", -3},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "190003", -2},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "190006", -2},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "190008", -3},
        {"media player", &ZmqSubWorker::mapMediaplayerStatusCodeToValue, "190009", -9999},
        {"ptz", &ZmqSubWorker::mapPtzctrlStatusCodeToValue, "ptz_not_ready", -3},
        {"ptz", &ZmqSubWorker::mapPtzctrlStatusCodeToValue, "invalid_protocol", -2},
        {"ptz", &ZmqSubWorker::mapPtzctrlStatusCodeToValue, "invalid_protocol ", -9999},
        {"ptz", &ZmqSubWorker::mapPtzctrlStatusCodeToValue, "0", -9999},
    };
    for (const MapCase& c : cases) {
        SCOPED_TRACE(std::string(c.domain) + " " + c.code);
        EXPECT_EQ((worker().*c.map)(c.code), c.value);
    }
}

} // namespace
} // namespace apitest
