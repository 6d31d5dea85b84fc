// The device's refusals, as the API meets them over the real sockets: each
// arrives as its domain's status value and changes nothing.
#include "sim_backend.h"

namespace apitest {
namespace {

using A = AppManager;
using W = ZmqSubWorker;

// Each on a device of its own in its start state, after an optional control
// command; `unchanged` is the state that must still hold.
TEST(DeviceRules, RefusalsArriveAsTheDomainsValuesAndChangeNothing)
{
    const std::string dec = "workmode 1";
    const std::tuple<std::string, std::function<int(A&)>, int, std::string> refusals[] = {
        {"", call(&A::setWorkMode, 0), -402, "/system/workmode_id=0"},
        {"", [](A& a) { return a.setLcdInfo(0, 400); }, -2, "/lcd/lcd_bright=80"},
        {"", call(&A::setFanMode, 7), -2, "/system/fan_mode=1"},
        // A voltage the panel does not know is never sent back.
        {"set /system/dc_out/voltage 3", call(&A::setDcOutSwitch, 1), -3,
         "/system/dc_out/switch=0"},
        {"", call(&W::setApInfo, std::string("AP"), std::string("short")), -2,
         R"(/network/ap/psk="vantor1234")"},
        {"set /network/wifi_module 0", call(&A::setWifiSwitch, 1), -301, ""},
        {"", call(&A::setVideoOutFormat, std::string("999p")), -2,
         R"(/video/output/format="1080p60")"},
        {"set /ai/matting/user_bgfile_list []", call(&A::setGskEnable, 1), -107,
         "/ai/matting/im_enable=0"},
        {"", call(&A::setPtzProtocol, 7), -2, "/ptz/protocol=1"}, // NDI control needs decode mode
        {"set /video/ndi/switch 1", call(&A::setEncNetStreamSwitch, 0, 1), -201,
         "/stream/publish/0/switch=0"},
        {"", call(&A::setEncNetStreamSwitch, 9, 1), -202, ""},
        {"", call(&A::setOsdLayoutSwitch, 42, 1), -2, ""},
        {"set /record/tasks/0/status 1", call(&A::setRecordTaskEnable, std::string("sdcard_0"), 1),
         -701, ""},
        {"set /record/tasks/0/status 1", call(&A::setChooseStoragePath, 1), -611,
         "/storage/present_storage_id=0"},
        {"", call(&A::setRecordTaskEnable, std::string("no_such_task"), 1), -702, ""},
        {"unplug-disk usb", call(&A::setRecordTaskEnable, std::string("usb1_0"), 1), -6,
         "/record/tasks/1/status=0"},
        {"fill-disk nas", call(&A::setRecordTaskEnable, std::string("nas1_0"), 1), -5,
         "/record/tasks/2/status=0"},
        {R"(set /storage/speed_test {"storage_id":1,"ticks_left":1000})",
         call(&A::setStorageSpeedTest, 0), -609, "/storage/speed_test/storage_id=1"},
        {"", call(&A::setNasMount, 1), -605, "/storage/nas/1/switch=0"},
        {"", call(&A::setNasUmount, 1), -607, ""},
        {"", call(&A::setDecNetStreamSwitch, 0, 1), -2, "/decoder/net_streams/0/switch=0"},
        {"", call(&A::setDecSrtServerSwitch, 1), -2, "/decoder/srt_server/server_switch=0"},
        {dec, call(&A::setDecNdiRecv, std::string("NOBODY")), -2, R"(/decoder/ndi/receiving="")"},
        // The panel's own check of the device refuses; the device is never asked.
        {dec, call(&A::setDecUvcOpen, 1), -2, "/decoder/uvc_list/1/play_status=0"}};
    for (const auto& [setup, operation, status, unchanged] : refusals) {
        SCOPED_TRACE(setup + " -> " + std::to_string(status));
        testsupport::SimFixture device;
        const std::unique_ptr<AppManager> app = device.bareAppManager();
        if (!setup.empty())
            device.require(setup);
        EXPECT_EQ(operation(*app), status);
        expectDeviceState(device, unchanged);
        EXPECT_EQ(device.webRequestsOf("set_dcout_status") + device.webRequestsOf("uvc_open"), 0);
    }
}

} // namespace
} // namespace apitest
