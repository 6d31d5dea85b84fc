// The device's refusals, as the API meets them over the real sockets: each
// arrives as its domain's status value and changes nothing.
#include "sim_backend.h"

namespace apitest {
namespace {

using A = AppManager;

// One refusal per domain, each on a device of its own in its start state,
// after an optional control command; `unchanged` is the state that must
// still hold.
TEST(DeviceRules, RefusalsArriveAsTheDomainsValuesAndChangeNothing)
{
    const std::tuple<std::string, std::function<int(A&)>, int, std::string> refusals[] = {
        {"", call(&A::setWorkMode, 0), -402, "/system/workmode_id=0"},
        {"set /network/wifi_module 0", call(&A::setWifiSwitch, 1), -301, ""},
        {"set /ai/matting/user_bgfile_list []", call(&A::setGskEnable, 1), -107,
         "/ai/matting/im_enable=0"},
        {"", call(&A::setPtzProtocol, 7), -2, "/ptz/protocol=1"}, // NDI control needs decode mode
        {"set /video/ndi/switch 1", call(&A::setEncNetStreamSwitch, 0, 1), -201,
         "/stream/publish/0/switch=0"},
        {"", call(&A::setOsdLayoutSwitch, 42, 1), -2, ""},
        {"set /record/tasks/0/status 1", call(&A::setRecordTaskEnable, std::string("sdcard_0"), 1),
         -701, ""},
        {"set /record/tasks/0/status 1", call(&A::setChooseStoragePath, 1), -611,
         "/storage/present_storage_id=0"},
        {"", call(&A::setDecNetStreamSwitch, 0, 1), -2, "/decoder/net_streams/0/switch=0"}};
    for (const auto& [setup, operation, status, unchanged] : refusals) {
        SCOPED_TRACE(setup + " -> " + std::to_string(status));
        testsupport::SimFixture device;
        const std::unique_ptr<AppManager> app = device.bareAppManager();
        if (!setup.empty())
            device.require(setup);
        EXPECT_EQ(operation(*app), status);
        expectDeviceState(device, unchanged);
    }
}

} // namespace
} // namespace apitest
