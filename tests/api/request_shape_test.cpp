// The API against the device simulator over the real sockets: each write
// must reach an operation the device knows and change the device as asked,
// each read must be answered, and what a plain read returns is the device's
// state. The writes the panel's controls make are left to the end-to-end
// tests, which check the device after each control; here are the others.
#include "sim_backend.h"

#include "handlers/replies.h"

namespace apitest {
namespace {

using A = AppManager;
using W = ZmqSubWorker;

struct Write {
    std::function<int(A&)> call;
    // The device's state afterwards, as "pointer=value ..." (values in JSON).
    std::string expected;
    int status = 0;
};

// In an order the device accepts: task settings while the task is stopped,
// the decoder after the switch to decode mode, the restarts last.
std::vector<Write> writes()
{
    const std::string usb = "usb1_0";
    const std::string tracking = "/ai/tracking/object_tracking/configure/";
    VideoEncInfo one;
    std::tie(one.stream_id, one.bitrate, one.width, one.height, one.framerate, one.keyinterval) =
        std::make_tuple(1, 3000, 1280, 720, 30, 30);
    return {
        // The LCD setting names the fields it sends; selector 2 sends none.
        {[](A& a) { return a.setLcdInfo(0, 41, 21, 31, 0); },
         "/lcd/lock_stat=0 /lcd/lcd_bright=41 /lcd/sleep_bright=20 /lcd/LCD_sleep=5"},
        {[](A& a) { return a.setLcdInfo(1, 42, 22, 32, 1); },
         "/lcd/lock_stat=0 /lcd/lcd_bright=42 /lcd/sleep_bright=22 /lcd/LCD_sleep=5"},
        {[](A& a) { return a.setLcdInfo(1, 43, 23, 33, 3); },
         "/lcd/lock_stat=0 /lcd/lcd_bright=42 /lcd/sleep_bright=22 /lcd/LCD_sleep=33"},
        {[](A& a) { return a.setLcdInfo(1, 44, 24, 34, 2); },
         "/lcd/lock_stat=0 /lcd/lcd_bright=42 /lcd/sleep_bright=22 /lcd/LCD_sleep=33", -2},
        {call(&A::setLcdSleep, 15, 45), "/lcd/sleep_bright=15 /lcd/lcd_bright=45"},
        {[](A& a) {
             return a.subWorker()->setSystemTimeInfo(0, 124, "ntp.example", 1, 2024, 5, 6, 7, 8, 9,
                                                     1, "UTC+8");
         },
         R"(/systime/ntp_enable=0 /systime/ntp_port=124 /systime/ntp_server="ntp.example"
            /systime/setting_mode_id=1 /systime/time_type_id=1 /systime/time_zone_id="UTC+8")"},
        {call(&W::setSystemTimeZone, std::string("UTC+1")), R"(/systime/time_zone_id="UTC+1")"},
        {call(&W::setTimeFormat, 1), "/systime/time_format=1"},
        {call(&W::setRemoteCtrlSwitch, 1), "/system/remote_ctrl/remote_ctrl_switch=1"},
        {call(&W::setRemoteCtrlAddr, 5), "/system/remote_ctrl/remote_ctrl_addr=5"},
        {call(&W::setLocationInfo, std::string("Oslo"), std::string("NO")),
         R"(/system/location/city="Oslo" /system/location/country="NO")"},
        {call(&W::setLogSaveFlag, 1), "/system/log/save_flag=1"},
        {call(&W::removeAllLogFile), ""},
        {call(&W::setBeepSwitch, 0), "/system/beep_switch=0"},

        {call(&W::setApInfo, std::string("box-ap"), std::string("secret123")),
         R"(/network/ap/ssid="box-ap" /network/ap/psk="secret123")"},
        {call(&W::connectWifi, std::string("home"), std::string("pw"), 2),
         R"(/network/wifi/known_ssid="home" /network/wifi/signalLevel=2)"},
        {call(&W::clearWifi), R"(/network/wifi/known_ssid="")"},
        {call(&W::setLanP2pMode, 1), "/network/lan/p2p_switch=1"},
        {call(&W::setLanDhcpMode, 0), "/network/lan/ip_dhcp_switch=0"},
        {call(&W::setMdnsInfo, std::string("panel"), std::string("lan")),
         R"(/network/mdns/host_name="panel" /network/mdns/domain_name="lan")"},

        {call(&W::setEncNetStreamShowIndex, json{2, 0, 1}), "/stream/publish/0/index=2"},
        {call(&W::deleteEncNetStream, 2), "/stream/publish/0/index=0"},
        {call(&W::setRtspAuthInfo, 1), "/stream/rtsp_auth/switch=1"},
        {call(&W::setEncNdiDiscoverSwitch, 1), "/video/ndi/discovery_enable=1"},
        {call(&W::setVideoInMaxResMode, 2), "/video/gsv2001/edid_mode=2"},
        {call(&W::setVideoEncCodecId, 0, 1), "/video/venc/0/codec/selected_id=1"},
        {call(&W::setVideoEncProfileId, 1, 2), "/video/venc/1/profile/selected_id=2"},
        {call(&W::setVideoEncRes, 1, 960, 540), "/video/venc/1/width=960 /video/venc/1/height=540"},
        {call(&W::setVideoEncRateControlId, 0, 1), "/video/venc/0/ratecontrol/selected_id=1"},
        {call(&W::setVideoEncBitrate, 1, 60),
         "/video/venc/1/bitrate=60 /video/venc/1/ndi_bitrate_pre=60"},
        {call(&W::setVideoEncFps, 0, 30), "/video/venc/0/framerate=30"},
        {call(&W::setVideoEncKeyFrameInterval, 0, 25), "/video/venc/0/keyinterval=25"},
        {call(&W::setVideoEncParams, one),
         "/video/venc/1/bitrate=3000 /video/venc/1/width=1280 /video/venc/1/ndi_bitrate_pre=60"},

        {call(&W::setAudioConfig, json{{"volume", 7}}), "/audio/all/volume=7"},
        {call(&W::setAudioEncCodecId, 1), "/audio/all/codec/selected_id=1"},
        {call(&W::setAudioEncChannel, 3), "/audio/all/ai_chnnum_id=3"},
        {call(&W::setAudioEncSampleRate, 3), "/audio/all/sample_rate/selected_id=3"},
        {call(&W::setAudioEncBitrate, 3), "/audio/all/bitrate/selected_id=3"},

        {call(&W::setAiTrackingSelectObj, 7), "/ai/tracking/track_id=7"},
        {call(&W::setAiTrackingEnable, 1), tracking + "control_enable=1"},
        {call(&W::setAiTrackingClass, 2), tracking + "class_id=2"},
        {call(&W::setAiTrackingFigure, 3), tracking + "figure_id=3"},
        {call(&W::setAiTrackingPlacement, 4), tracking + "placement_id=4"},
        {call(&W::setAiTrackingMode, 5), tracking + "mode_id=5"},
        {call(&W::setAiTrackingSpeed, 6), tracking + "speed_id=6"},
        {call(&W::setGskBgColor, 1), "/ai/matting/bgcolor_id=1"},
        {call(&W::setGskBgLf, 40), "/ai/matting/bg_lf=40"},
        {call(&W::setGskMaxBgCf, 70), "/ai/matting/max_bg_cf=70"},
        {call(&W::setGskMinBgCf, 10), "/ai/matting/min_bg_cf=10"},

        {call(&W::setRecordTaskName, usb, std::string("Take-1")),
         R"(/record/tasks/1/name="Take-1")"},
        {call(&W::setRecordTaskFormat, usb, 2), "/record/tasks/1/record_format=2"},
        {call(&W::setRecordTaskMode, usb, 1), "/record/tasks/1/record_mode=1"},
        {call(&W::setRecordTaskLoopMode, usb, 1), "/record/tasks/1/record_loop_mode=1"},
        {call(&W::setRecordTaskSizeLimit, usb, 8192), "/record/tasks/1/size_limit=8192"},
        {call(&W::setRecordTaskTimeLimit, usb, 120), "/record/tasks/1/time_limit=120"},
        {call(&W::setRecordTaskLimitType, usb, 1), "/record/tasks/1/limit_type=1"},
        {call(&A::setRecordTaskEnable, usb, 1), "/record/tasks/1/status=1"},
        {call(&W::stopAllRecordTasks), "/record/tasks/1/status=0"},

        {call(&A::setWorkMode, 1), "/system/workmode_id=1"},
        {call(&W::setDecNetStreamDel, 0), "/decoder/net_streams/0/index=1"},
        {call(&A::setDecNdiRecv, std::string("CAM-1")), R"(/decoder/ndi/receiving="CAM-1")"},
        {call(&A::setDecNdiClose), R"(/decoder/ndi/receiving="")"},
        {call(&A::findDecNdi), ""},
        {call(&A::setDecSrtPlaySwitch, 1), "/decoder/srt_server/play_switch=1"},
        {call(&W::setDecSrtServerSwitch, 1), "/decoder/srt_server/server_switch=1"},
        {call(&A::setDecSrtServerSwitch, 0),
         "/decoder/srt_server/server_switch=0 /decoder/srt_server/play_switch=0"},
        {call(&A::setDecUvcOpen, 0), "/decoder/uvc_list/0/play_status=1"},
        {call(&A::setDecUvcClose, 0), "/decoder/uvc_list/0/play_status=0"},
        // The box answers a restart with its "rebooting" code; a reset brings
        // back the defaults but keeps the work mode.
        {call(&A::setReboot), "/system/run_status=1", 2},
        {call(&A::setReset), "/system/fan_mode=1 /system/workmode_id=1", 2},
    };
}

void expectEveryRequestKnown(const sim::Simulator& device)
{
    for (const sim::HandledRequest& request : device.webRequests()) {
        EXPECT_TRUE(request.known) << request.operation << " is unknown to the device";
        // The device's answer to a body its handler could not read.
        EXPECT_NE(request.status, sim::code::kUnknownOperation) << request.operation;
    }
}

TEST_F(SimBackendTest, EveryWriteChangesTheDeviceAsAsked)
{
    control(R"(set /decoder/ndi/sources [{"index":4,"name":"CAM-1","streamplay_status":0}])");
    for (const Write& w : writes()) {
        SCOPED_TRACE(w.expected);
        const std::size_t before = sim.simulator().webRequests().size();
        EXPECT_EQ(w.call(*app), w.status);
        EXPECT_GT(sim.simulator().webRequests().size(), before) << "nothing reached the device";
        expectDeviceState(sim, w.expected);
    }
    expectEveryRequestKnown(sim.simulator());
}

TEST_F(SimBackendTest, EveryReadIsAnsweredAndPlainReadsReturnTheDevicesState)
{
    for (int (W::*read)(json&) :
         {&W::getWifiInfo,           &W::getMainIp,         &W::getLanPing,
          &W::getLocalPing,          &W::getVideoInInfo,    &W::getVideoEncParams,
          &W::getEncLocalServerList, &W::getRecordTaskList, &W::getDecoderState,
          &W::getDecUvcList,         &W::getLcdThemeId,     &W::getLcdInfo,
          &W::getSystemInfo,         &W::getFanMode,        &W::getSystemTimeInfo,
          &W::getTimeFormat,         &W::getAllSystemInfo,  &W::getUsbOtgId,
          &W::getBeepStatus,         &W::getProductId}) {
        json out;
        EXPECT_EQ((worker().*read)(out), 0);
    }
    for (int (W::*read)(int&) :
         {&W::getAudioOutVolume, &W::getPresentStorage, &W::getAppConnectionStatus}) {
        int out = -1;
        EXPECT_EQ((worker().*read)(out), 0);
    }
    for (int (W::*read)() : {&W::getStandbyStatus, &W::getWorkMode, &W::getSystemLanguage})
        EXPECT_EQ((worker().*read)(), 0);

    const std::pair<int (W::*)(json&), const char*> plain[] = {
        {&W::getApInfo, "/network/ap"},
        {&W::getLanInfo, "/network/lan"},
        {&W::getWifiList, "/network/wifi_list"},
        {&W::getMdnsInfo, "/network/mdns"},
        {&W::getVideoOutInfo, "/video/output"},
        {&W::getEncNdiInfo, "/video/ndi"},
        {&W::getAudioConfig, "/audio/all"},
        {&W::getRtspAuthInfo, "/stream/rtsp_auth"},
        {&W::getEncNetStreamList, "/stream/publish"},
        {&W::getGskInfo, "/ai/matting"},
        {&W::getAiTrackingInfo, "/ai/tracking"},
        {&W::getNasInfoList, "/storage/nas"},
        {&W::getDecNetStreamList, "/decoder/net_streams"},
        {&W::getDecNdiList, "/decoder/ndi/sources"},
        {&W::getDecSrtServerInfo, "/decoder/srt_server"},
        {&W::getDecRtmpServerInfo, "/decoder/rtmp_server"},
        {&W::getPtzctrlInfo, "/ptz"},
        {&W::getGestureGuide, "/lcd/gesture_guide"},
        {&W::getRemoteCtrlInfo, "/system/remote_ctrl"},
        {&W::getLogSaveFlag, "/system/log"},
        {&W::getTallyInfo, "/system/tally"},
        {&W::getDiscoverDevList, "/system/discovered_devices"},
        {&W::getDcOutStatus, "/system/dc_out"},
        {&W::getDashboardInfo, "/system/dashboard"}};
    for (const auto& [readState, pointer] : plain) {
        json out;
        EXPECT_EQ((worker().*readState)(out), 0) << pointer;
        EXPECT_EQ(out, simAt(pointer)) << pointer;
    }

    // The configuration sections, and the media server's report.
    int first_use = -1;
    EXPECT_EQ(worker().getConnectAppFirstUseFlag(first_use), 0);
    EXPECT_EQ(first_use, simAt("/system/app_first_use_flag"));
    worker().initSubCacheFromApi();
    EXPECT_EQ(worker().getSubCache().osd_items.size(), simAt("/osd/osd_layout").size());
    json report;
    EXPECT_EQ(worker().getDecoderInfo(report), 0);
    ASSERT_EQ(sim.simulator().mediaRequests().size(), 1u);
    EXPECT_TRUE(sim.simulator().mediaRequests().front().known);

    expectEveryRequestKnown(sim.simulator());
}

} // namespace
} // namespace apitest
