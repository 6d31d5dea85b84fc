// Every operation the API can send reaches an operation the simulator knows,
// with the body the API builds: a new operation on either side that the
// other lacks shows up here.
#include "sim_backend.h"

#include "handlers/replies.h"

namespace apitest {
namespace {

struct Operation {
    const char* wire_name; // the request's opt, else group, else path
    std::function<void(ZmqSubWorker&)> call;
};

template <int (ZmqSubWorker::*Read)(json&)> void readJson(ZmqSubWorker& w)
{
    json out;
    (w.*Read)(out);
}

void readInt(ZmqSubWorker& w, int (ZmqSubWorker::*read)(int&))
{
    int out = 0;
    (w.*read)(out);
}

std::vector<Operation> systemOperations()
{
    using W = ZmqSubWorker;
    return {
        {"set_app_connection_status", [](W& w) { w.setAppConnectionStatus(1); }},
        {"set_lcd_info", [](W& w) { w.setLcdInfo(0, 60); }},
        {"set_lcd_info", [](W& w) { w.setLcdInfo(0, 60, 10, 5, 3); }},
        {"set_lcd_info", [](W& w) { w.setLcdSleep(10, 60); }},
        {"set_fan_mode", [](W& w) { w.setFanMode(2); }},
        {"set_sys_attr_info", [](W& w) { w.setLanguageID(1); }},
        {"set_lcd_theme", [](W& w) { w.setLcdThemeId(1); }},
        {"set_systime_info",
         [](W& w) {
             w.setSystemTimeInfo(0, 123, "pool.ntp.org", 1, 2024, 1, 2, 3, 4, 5, 0, "UTC");
         }},
        {"set_systime_zone", [](W& w) { w.setSystemTimeZone("UTC+01:00"); }},
        {"set_time_format", [](W& w) { w.setTimeFormat(1); }},
        {"set_remote_crtl_switch", [](W& w) { w.setRemoteCtrlSwitch(1); }},
        {"set_remote_crtl_addr", [](W& w) { w.setRemoteCtrlAddr(3); }},
        {"set_sys_location_info", [](W& w) { w.setLocationInfo("Oslo", "NO"); }},
        {"modify_logsave_flag", [](W& w) { w.setLogSaveFlag(1); }},
        {"remove_all_logfile", [](W& w) { w.removeAllLogFile(); }},
        {"set_tally_led_info", [](W& w) { w.setTallyInfo(1, 2); }},
        {"set_tally_led_switch", [](W& w) { w.setTallySwitch(0); }},
        {"set_usb_otg_id", [](W& w) { w.setUsbOtgId(1); }},
        {"set_beep_status", [](W& w) { w.setBeepSwitch(0); }},
        {"set_gesture_guide",
         [](W& w) {
             w.setGestureGuide({{"force_show", 1}});
         }},
        {"set_dcout_status", [](W& w) { w.setDcOutSwitch(1); }},
        {"set_first_use", [](W& w) { w.setConnectAppFirstUseFlag(0); }},
        {"get_run_status", [](W& w) { w.getStandbyStatus(); }},
        {"get_workmode_id", [](W& w) { w.getWorkMode(); }},
        {"get_sys_language_info", [](W& w) { w.getSystemLanguage(); }},
        {"get_lcd_theme", readJson<&W::getLcdThemeId>},
        {"get_lcd_info", readJson<&W::getLcdInfo>},
        {"get_app_connection_status", [](W& w) { readInt(w, &W::getAppConnectionStatus); }},
        {"get_gesture_guide", readJson<&W::getGestureGuide>},
        {"get_sys_attr_info", readJson<&W::getSystemInfo>},
        {"get_fan_mode", readJson<&W::getFanMode>},
        {"get_systime_info", readJson<&W::getSystemTimeInfo>},
        {"get_time_format", readJson<&W::getTimeFormat>},
        {"get_sys_all_info", readJson<&W::getAllSystemInfo>},
        {"get_remote_crtl_info", readJson<&W::getRemoteCtrlInfo>},
        {"get_logsave_flag", readJson<&W::getLogSaveFlag>},
        {"get_tally_led_info", readJson<&W::getTallyInfo>},
        {"get_devices_list", readJson<&W::getDiscoverDevList>},
        {"get_dcout_status", readJson<&W::getDcOutStatus>},
        {"get_usb_otg_id", readJson<&W::getUsbOtgId>},
        {"get_beep_status", readJson<&W::getBeepStatus>},
        {"get_product_id", readJson<&W::getProductId>},
        {"get_dashboard_info", readJson<&W::getDashboardInfo>},
        {"get_hardwaredom", [](W& w) { readInt(w, &W::getConnectAppFirstUseFlag); }},
        {"get_osddom", [](W& w) { w.initSubCacheFromApi(); }},
        // Last: these end the box's session as the others knew it.
        {"power_off", [](W& w) { w.setStandby(); }},
        {"power_on", [](W& w) { w.exitStandby(); }},
        {"set_reboot_info", [](W& w) { w.setReboot(); }},
        {"set_reset_info", [](W& w) { w.setReset(); }},
    };
}

std::vector<Operation> encoderOperations()
{
    using W = ZmqSubWorker;
    VideoEncInfo stream;
    stream.stream_id = 1;
    stream.bitrate = 3000;
    stream.width = 1280;
    stream.height = 720;
    stream.framerate = 30;
    stream.keyinterval = 30;
    return {
        {"ap_switch", [](W& w) { w.setApSwitch(1); }},
        {"wifi_switch", [](W& w) { w.setWifiSwitch(1); }},
        {"set_p2p_mode", [](W& w) { w.setLanP2pMode(1); }},
        {"update_ap_info", [](W& w) { w.setApInfo("Panel-AP", "12345678"); }},
        {"wifi_connect", [](W& w) { w.connectWifi("Guest", "password", 2); }},
        {"wifi_clear", [](W& w) { w.clearWifi(); }},
        {"set_mdns_info", [](W& w) { w.setMdnsInfo("panel", "local"); }},
        {"set_lan_info", [](W& w) { w.setLanDhcpMode(0); }},
        {"get_wifi_info", readJson<&W::getWifiInfo>},
        {"get_ap_info", readJson<&W::getApInfo>},
        {"get_lan_info", readJson<&W::getLanInfo>},
        {"get_main_ip", readJson<&W::getMainIp>},
        {"get_wifi_list", readJson<&W::getWifiList>},
        {"get_mdns_info", readJson<&W::getMdnsInfo>},
        {"get_lan_ping", readJson<&W::getLanPing>},
        {"get_local_ping", readJson<&W::getLocalPing>},

        {"ndi_switch", [](W& w) { w.setEncNdiSwitch(0); }},
        {"set_ndi_info", [](W& w) { w.setEncNdiDiscoverSwitch(1); }},
        {"set_ndi_info", [](W& w) { w.setEncNdiQuality(3); }},
        {"set_output_info", [](W& w) { w.setLoopOutSwitch(1); }},
        {"set_output_info", [](W& w) { w.setVideoOutMuteSwitch(0); }},
        {"set_output_info", [](W& w) { w.setVideoOutFormat("1080p50"); }},
        {"set_input_info", [](W& w) { w.setVideoInMaxResMode(1); }},
        {"venc", [stream](W& w) { w.setVideoEncParams(stream); }},
        {"venc", [](W& w) { w.setVideoEncCodecId(0, 1); }},
        {"venc", [](W& w) { w.setVideoEncProfileId(0, 2); }},
        {"venc", [](W& w) { w.setVideoEncRes(0, 1280, 720); }},
        {"venc", [](W& w) { w.setVideoEncRateControlId(0, 1); }},
        {"venc", [](W& w) { w.setVideoEncBitrate(0, 100); }},
        {"venc", [](W& w) { w.setVideoEncFps(0, 30); }},
        {"venc", [](W& w) { w.setVideoEncKeyFrameInterval(0, 30); }},
        {"get_input_info", readJson<&W::getVideoInInfo>},
        {"get_output_info", readJson<&W::getVideoOutInfo>},
        {"all", readJson<&W::getVideoEncParams>},
        {"get_ndi_info", readJson<&W::getEncNdiInfo>},

        {"set_ao_volume", [](W& w) { w.setAudioOutVolume(40); }},
        {"audio",
         [](W& w) {
             w.setAudioConfig({{"volume", 50}});
         }},
        {"audio", [](W& w) { w.setAudioEncSwitch(1); }},
        {"audio", [](W& w) { w.setAudioEncCodecId(1); }},
        {"audio", [](W& w) { w.setAudioEncChannel(1); }},
        {"audio", [](W& w) { w.setAudioEncSampleRate(3); }},
        {"audio", [](W& w) { w.setAudioEncBitrate(3); }},
        {"audio", [](W& w) { w.setAudioEncVolume(60); }},
        {"audio", [](W& w) { w.setAudioEncSource(1); }},
        {"get_ao_volume", [](W& w) { readInt(w, &W::getAudioOutVolume); }},

        {"set_srt_local_switch", [](W& w) { w.setEncSrtServerSwitch(1); }},
        {"update_publish_switch", [](W& w) { w.setEncNetStreamSwitch(1, 1); }},
        {"update_streams_index",
         [](W& w) {
             w.setEncNetStreamShowIndex(json::array({2, 1, 0}));
         }},
        {"update_publish_switch", [](W& w) { w.setEncNetStreamSwitch(1, 0); }},
        {"del_publish_info", [](W& w) { w.deleteEncNetStream(2); }},
        {"rtsp_auth", [](W& w) { w.setRtspAuthInfo(1); }},
        {"get_local_server", readJson<&W::getEncLocalServerList>},
        {"get_rtsp_auth", readJson<&W::getRtspAuthInfo>},
        {"getStreamStatus", readJson<&W::getEncNetStreamList>},
        {"set_layout_switch", [](W& w) { w.setOsdLayoutSwitch(2, 1); }},

        {"/ai/ai_tracking/select_obj", [](W& w) { w.setAiTrackingSelectObj(3); }},
        {"/ai/image_matting/im_enable", [](W& w) { w.setGskEnable(1); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskBgColor(1); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskBgLf(40); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskMaxBgCf(70); }},
        {"/ai/image_matting/update_im_info", [](W& w) { w.setGskMinBgCf(10); }},
        {"/ai/ai_tracking/tracking_enable", [](W& w) { w.setAiEnable(1); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingEnable(1); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingClass(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingFigure(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingPlacement(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingMode(2); }},
        {"/ai/ai_tracking/update_tracking_info", [](W& w) { w.setAiTrackingSpeed(2); }},
        {"/ai/image_matting/get_matting_info", readJson<&W::getGskInfo>},
        {"/ai/ai_tracking/get_tracking_info", readJson<&W::getAiTrackingInfo>},

        {"set_task_info", [](W& w) { w.setRecordTaskName("usb1_0", "Take"); }},
        {"set_task_info", [](W& w) { w.setRecordTaskFormat("usb1_0", 1); }},
        {"set_task_info", [](W& w) { w.setRecordTaskMode("usb1_0", 1); }},
        {"set_task_info", [](W& w) { w.setRecordTaskLoopMode("usb1_0", 1); }},
        {"set_task_info", [](W& w) { w.setRecordTaskSizeLimit("usb1_0", 2048); }},
        {"set_task_info", [](W& w) { w.setRecordTaskTimeLimit("usb1_0", 30); }},
        {"set_task_info", [](W& w) { w.setRecordTaskLimitType("usb1_0", 1); }},
        {"set_task_enable", [](W& w) { w.setRecordTaskEnable("usb1_0", 1); }},
        {"stop_all_task", [](W& w) { w.stopAllRecordTasks(); }},
        {"get_task_list", readJson<&W::getRecordTaskList>},

        {"nas_mount", [](W& w) { w.setNasMount(1); }},
        {"nas_umount", [](W& w) { w.setNasUmount(0); }},
        {"test_storage_speed", [](W& w) { w.setStorageSpeedTest(1); }},
        {"choose_storage_path", [](W& w) { w.setChooseStoragePath(1); }},
        {"get_nas_info_list", readJson<&W::getNasInfoList>},
        {"get_present_storage", [](W& w) { readInt(w, &W::getPresentStorage); }},
        {"get_client_info", readJson<&W::getPtzctrlInfo>},
        {"set_client_info", [](W& w) { w.setPtzProtocol(3); }},
    };
}

std::vector<Operation> decoderOperations()
{
    using W = ZmqSubWorker;
    return {
        {"change_workmode", [](W& w) { w.setWorkMode(1); }},
        {"ndi_find", [](W& w) { w.findDecNdi(); }},
        {"ndi_recv", [](W& w) { w.setDecNdiRecv("STUDIO (Cam 1)"); }},
        {"ndi_close", [](W& w) { w.setDecNdiClose(); }},
        {"streamplay_switch", [](W& w) { w.setDecNetStreamSwitch(0, 1); }},
        {"streamplay_del", [](W& w) { w.setDecNetStreamDel(1); }},
        {"server_switch", [](W& w) { w.setDecSrtServerSwitch(1); }},
        {"play_switch", [](W& w) { w.setDecSrtPlaySwitch(1); }},
        {"play_switch", [](W& w) { w.setDecRtmpServerSwitch(0, 1); }},
        {"get_decoder_state", readJson<&W::getDecoderState>},
        {"streamplay_get_all", readJson<&W::getDecNetStreamList>},
        {"get_srt_server_info", readJson<&W::getDecSrtServerInfo>},
        {"get_servers_info", readJson<&W::getDecRtmpServerInfo>},
        {"ndi_get_all", readJson<&W::getDecNdiList>},
        {"uvc_open", [](W& w) { w.setDecUvcOpen(0); }},
        {"uvc_close", [](W& w) { w.setDecUvcClose(0); }},
        {"get_list_info", readJson<&W::getDecUvcList>},
    };
}

class SimCoverageTest : public SimBackendTest {};

TEST_F(SimCoverageTest, EveryApiOperationIsAnOperationOfTheSimulator)
{
    for (const auto& operations : {encoderOperations(), decoderOperations(), systemOperations()}) {
        for (const Operation& operation : operations) {
            SCOPED_TRACE(operation.wire_name);
            const std::size_t before = webRequestsOf(operation.wire_name).size();
            operation.call(worker());
            EXPECT_GT(webRequestsOf(operation.wire_name).size(), before)
                << "the operation never reached the simulator";
        }
    }
    for (const sim::HandledRequest& request : simulator->webRequests()) {
        EXPECT_TRUE(request.known) << request.operation << " is unknown to the simulator";
        // The simulator's answer to a body its handler could not read.
        EXPECT_NE(request.status, sim::code::kUnknownOperation) << request.operation;
    }

    json report;
    EXPECT_EQ(worker().getDecoderInfo(report), 0);
    const std::vector<sim::HandledRequest> media = simulator->mediaRequests();
    ASSERT_EQ(media.size(), 1u);
    EXPECT_EQ(media.front().operation, "get_decoder_info");
    EXPECT_TRUE(media.front().known);
}

} // namespace
} // namespace apitest
