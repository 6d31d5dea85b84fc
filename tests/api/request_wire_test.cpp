// The exact request each operation puts on the wire, domain by domain: keys,
// nesting, JSON types, and the keys that must be absent.
#include "scripted_backend.h"

#include <functional>

namespace apitest {
namespace {

struct WireCase {
    const char* label;
    std::function<void(AppManager&)> call;
    const char* expected;
};

class RequestWireTest : public ApiTest {
protected:
    void expectWire(const std::vector<WireCase>& cases)
    {
        for (const WireCase& c : cases) {
            SCOPED_TRACE(c.label);
            web.clearRequests();
            c.call(*app);
            EXPECT_EQ(onlyRequest(), json::parse(c.expected));
        }
    }
};

TEST_F(RequestWireTest, SystemSetters)
{
    expectWire({
        {"app status", [](AppManager& a) { a.setAppConnectionStatus(1); },
         R"({"func_module":"system_api","group":"app","opt":"set_app_connection_status","data":{"connect_status":1}})"},
        {"reboot", [](AppManager& a) { a.setReboot(); },
         R"({"func_module":"system_api","group":"syscontrol","opt":"set_reboot_info","data":{"command":"reboot"}})"},
        {"reset", [](AppManager& a) { a.setReset(); },
         R"({"func_module":"system_api","group":"syscontrol","opt":"set_reset_info","data":{"command":"reset"}})"},
        {"standby", [](AppManager& a) { a.setStandby(); },
         R"({"func_module":"system_api","group":"syscontrol","opt":"power_off"})"},
        {"wake", [](AppManager& a) { a.exitStandby(); },
         R"({"func_module":"system_api","group":"syscontrol","opt":"power_on"})"},
        {"lcd lock", [](AppManager& a) { a.setLcdInfo(1, 80); },
         R"({"func_module":"system_api","group":"lcd","opt":"set_lcd_info","data":{"lock_stat":1,"lcd_bright":80}})"},
        {"lcd selector 0", [](AppManager& a) { a.setLcdInfo(0, 80, 20, 30, 0); },
         R"({"func_module":"system_api","group":"lcd","opt":"set_lcd_info","data":{"lock_stat":0,"lcd_bright":80}})"},
        {"lcd selector 1", [](AppManager& a) { a.setLcdInfo(0, 80, 20, 30, 1); },
         R"({"func_module":"system_api","group":"lcd","opt":"set_lcd_info","data":{"sleep_bright":20,"lcd_bright":80}})"},
        {"lcd selector 3", [](AppManager& a) { a.setLcdInfo(0, 80, 20, 30, 3); },
         R"({"func_module":"system_api","group":"lcd","opt":"set_lcd_info","data":{"LCD_sleep":30}})"},
        {"lcd selector 2", [](AppManager& a) { a.setLcdInfo(0, 80, 20, 30, 2); },
         R"({"func_module":"system_api","group":"lcd","opt":"set_lcd_info"})"},
        {"lcd sleep", [](AppManager& a) { a.setLcdSleep(1, 60); },
         R"({"func_module":"system_api","group":"lcd","opt":"set_lcd_info","data":{"sleep_bright":1,"lcd_bright":60}})"},
        {"fan", [](AppManager& a) { a.setFanMode(2); },
         R"({"func_module":"system_api","group":"fan","opt":"set_fan_mode","data":{"mode":2}})"},
        {"work mode", [](AppManager& a) { a.setWorkMode(1); },
         R"({"func_module":"system_api","group":"workmode","opt":"change_workmode","data":{"workmode_id":1}})"},
        {"language", [](AppManager& a) { a.setLanguageID(3); },
         R"({"func_module":"system_api","group":"sys_attr","opt":"set_sys_attr_info","data":{"language_id":3}})"},
        {"theme", [](AppManager& a) { a.setThemeID(1); },
         R"({"func_module":"system_api","group":"lcd","opt":"set_lcd_theme","data":{"lcd_theme_id":1}})"},
        {"time",
         [](AppManager& a) {
             a.subWorker()->setSystemTimeInfo(1, 123, "ntp.example", 0, 2024, 5, 6, 7, 8, 9, 1,
                                              "UTC+8");
         },
         R"({"func_module":"system_api","group":"systime","opt":"set_systime_info","data":{"ntp_enable":1,"ntp_port":123,"ntp_server":"ntp.example","setting_mode_id":0,"time":{"year":2024,"month":5,"day":6,"hour":7,"minute":8,"second":9},"time_type_id":1,"time_zone_id":"UTC+8"}})"},
        {"time zone", [](AppManager& a) { a.subWorker()->setSystemTimeZone("UTC+1"); },
         R"({"func_module":"system_api","group":"systime","opt":"set_systime_zone","data":{"time_zone_id":"UTC+1"}})"},
        {"time format", [](AppManager& a) { a.subWorker()->setTimeFormat(1); },
         R"({"func_module":"system_api","group":"systime","opt":"set_time_format","data":{"time_format":1}})"},
        {"remote switch", [](AppManager& a) { a.subWorker()->setRemoteCtrlSwitch(1); },
         R"({"func_module":"system_api","group":"remote_ctrl","opt":"set_remote_crtl_switch","data":{"remote_ctrl_switch":1}})"},
        {"remote addr", [](AppManager& a) { a.subWorker()->setRemoteCtrlAddr(5); },
         R"({"func_module":"system_api","group":"remote_ctrl","opt":"set_remote_crtl_addr","data":{"remote_ctrl_addr":5}})"},
        {"location", [](AppManager& a) { a.subWorker()->setLocationInfo("Oslo", "NO"); },
         R"({"func_module":"system_api","group":"sys_attr","opt":"set_sys_location_info","data":{"city":"Oslo","country":"NO"}})"},
        {"log flag", [](AppManager& a) { a.subWorker()->setLogSaveFlag(1); },
         R"({"func_module":"system_api","group":"log","opt":"modify_logsave_flag","data":{"save_flag":1}})"},
        {"log remove", [](AppManager& a) { a.subWorker()->removeAllLogFile(); },
         R"({"func_module":"system_api","group":"log","opt":"remove_all_logfile"})"},
        {"tally", [](AppManager& a) { a.setTallyInfo(2, 3); },
         R"({"func_module":"system_api","group":"tally_led","opt":"set_tally_led_info","data":{"mode_id":2,"color_id":3}})"},
        {"tally switch", [](AppManager& a) { a.setTallySwitch(1); },
         R"({"func_module":"system_api","group":"tally_led","opt":"set_tally_led_switch","data":{"switch":1}})"},
        {"usb otg", [](AppManager& a) { a.setUsbOtgMode(1); },
         R"({"func_module":"system_api","group":"usb_otg","opt":"set_usb_otg_id","data":{"usb_otg_id":1}})"},
        {"beep", [](AppManager& a) { a.subWorker()->setBeepSwitch(0); },
         R"({"func_module":"system_api","group":"syscontrol","opt":"set_beep_status","data":{"beep_switch":0}})"},
        {"gesture guide",
         [](AppManager& a) {
             a.setGestureGuide(json{{"pages", {1, 2}}});
         },
         R"({"func_module":"system_api","group":"lcd","opt":"set_gesture_guide","data":{"pages":[1,2]}})"},
        {"first use", [](AppManager& a) { a.setConnectAppFirstUseFlag(1); },
         R"({"func_module":"hardware_api","group":"set_first_use","data":{"app_first_use_flag":1}})"},
    });
}

// Getters send `group` and `opt` only: no `data`.
struct ReadCase {
    const char* label;
    std::function<void(ZmqSubWorker&)> call;
    const char* func_module;
    const char* group;
    const char* opt;
};

class ReadWireTest : public ApiTest {
protected:
    void expectReads(const std::vector<ReadCase>& cases)
    {
        for (const ReadCase& c : cases) {
            SCOPED_TRACE(c.label);
            web.clearRequests();
            c.call(worker());
            json expected = {{"func_module", c.func_module}, {"group", c.group}};
            if (c.opt)
                expected["opt"] = c.opt;
            EXPECT_EQ(onlyRequest(), expected);
        }
    }
};

template <int (ZmqSubWorker::*Read)(json&)> void readJson(ZmqSubWorker& w)
{
    json out;
    (w.*Read)(out);
}

TEST_F(ReadWireTest, SystemGetters)
{
    expectReads({
        {"run status", [](ZmqSubWorker& w) { w.getStandbyStatus(); }, "system_api", "syscontrol",
         "get_run_status"},
        {"work mode", [](ZmqSubWorker& w) { w.getWorkMode(); }, "system_api", "workmode",
         "get_workmode_id"},
        {"language", [](ZmqSubWorker& w) { w.getSystemLanguage(); }, "system_api", "sys_language",
         "get_sys_language_info"},
        {"theme", readJson<&ZmqSubWorker::getLcdThemeId>, "system_api", "lcd", "get_lcd_theme"},
        {"lcd", readJson<&ZmqSubWorker::getLcdInfo>, "system_api", "lcd", "get_lcd_info"},
        {"app status",
         [](ZmqSubWorker& w) {
             int s = 0;
             w.getAppConnectionStatus(s);
         },
         "system_api", "app", "get_app_connection_status"},
        {"gesture guide", readJson<&ZmqSubWorker::getGestureGuide>, "system_api", "lcd",
         "get_gesture_guide"},
        {"system info", readJson<&ZmqSubWorker::getSystemInfo>, "system_api", "sys_attr",
         "get_sys_attr_info"},
        {"fan", readJson<&ZmqSubWorker::getFanMode>, "system_api", "fan", "get_fan_mode"},
        {"time", readJson<&ZmqSubWorker::getSystemTimeInfo>, "system_api", "systime",
         "get_systime_info"},
        {"time format", readJson<&ZmqSubWorker::getTimeFormat>, "system_api", "systime",
         "get_time_format"},
        {"all info", readJson<&ZmqSubWorker::getAllSystemInfo>, "system_api", "sys_attr",
         "get_sys_all_info"},
        {"remote", readJson<&ZmqSubWorker::getRemoteCtrlInfo>, "system_api", "remote_ctrl",
         "get_remote_crtl_info"},
        {"log flag", readJson<&ZmqSubWorker::getLogSaveFlag>, "system_api", "log",
         "get_logsave_flag"},
        {"tally", readJson<&ZmqSubWorker::getTallyInfo>, "system_api", "tally_led",
         "get_tally_led_info"},
        {"devices", readJson<&ZmqSubWorker::getDiscoverDevList>, "system_api", "device_search",
         "get_devices_list"},
        {"dc out", readJson<&ZmqSubWorker::getDcOutStatus>, "system_api", "get_dcout_status",
         nullptr},
        {"usb otg", readJson<&ZmqSubWorker::getUsbOtgId>, "system_api", "usb_otg",
         "get_usb_otg_id"},
        {"beep", readJson<&ZmqSubWorker::getBeepStatus>, "system_api", "syscontrol",
         "get_beep_status"},
        {"product", readJson<&ZmqSubWorker::getProductId>, "system_api", "get_product_id", nullptr},
        {"dashboard", readJson<&ZmqSubWorker::getDashboardInfo>, "system_api", "get_dashboard_info",
         nullptr},
    });
}

TEST_F(RequestWireTest, NetworkSetters)
{
    expectWire({
        {"ap switch", [](AppManager& a) { a.setApSwitch(1); },
         R"({"func_module":"network_api","group":"ap","opt":"ap_switch","data":{"switch":1}})"},
        {"wifi switch", [](AppManager& a) { a.setWifiSwitch(0); },
         R"({"func_module":"network_api","group":"wifi","opt":"wifi_switch","data":{"switch":0}})"},
        {"p2p", [](AppManager& a) { a.subWorker()->setLanP2pMode(1); },
         R"({"func_module":"network_api","group":"lan","opt":"set_p2p_mode","data":{"p2p_switch":1}})"},
        {"ap info", [](AppManager& a) { a.subWorker()->setApInfo("box", "secret"); },
         R"({"func_module":"network_api","group":"ap","opt":"update_ap_info","data":{"psk":"secret","ssid":"box"}})"},
        {"wifi connect", [](AppManager& a) { a.subWorker()->connectWifi("home", "pw", 3); },
         R"({"func_module":"network_api","group":"wifi","opt":"wifi_connect","data":{"password":"pw","ssid":"home","signalLevel":3}})"},
        {"wifi clear", [](AppManager& a) { a.subWorker()->clearWifi(); },
         R"({"func_module":"network_api","group":"wifi","opt":"wifi_clear"})"},
        {"mdns", [](AppManager& a) { a.subWorker()->setMdnsInfo("panel", "local"); },
         R"({"func_module":"network_api","group":"mdns","opt":"set_mdns_info","data":{"host_name":"panel","domain_name":"local"}})"},
    });
}

TEST_F(ReadWireTest, NetworkGetters)
{
    expectReads({
        {"wifi", readJson<&ZmqSubWorker::getWifiInfo>, "network_api", "wifi", "get_wifi_info"},
        {"ap", readJson<&ZmqSubWorker::getApInfo>, "network_api", "ap", "get_ap_info"},
        {"lan", readJson<&ZmqSubWorker::getLanInfo>, "network_api", "lan", "get_lan_info"},
        {"main ip", readJson<&ZmqSubWorker::getMainIp>, "network_api", "get_main_ip", nullptr},
        {"wifi list", readJson<&ZmqSubWorker::getWifiList>, "network_api", "wifi", "get_wifi_list"},
        {"mdns", readJson<&ZmqSubWorker::getMdnsInfo>, "network_api", "mdns", "get_mdns_info"},
        {"lan ping", readJson<&ZmqSubWorker::getLanPing>, "network_api", "lan", "get_lan_ping"},
        {"local ping", readJson<&ZmqSubWorker::getLocalPing>, "network_api", "lan",
         "get_local_ping"},
    });
}

TEST_F(RequestWireTest, VideoAudioStreamOsdSetters)
{
    expectWire({
        {"ndi switch", [](AppManager& a) { a.setEncNdiSwitch(1); },
         R"({"func_module":"video_api","group":"ndi","opt":"ndi_switch","data":{"switch":1}})"},
        {"loop out", [](AppManager& a) { a.setLoopOutSwitch(1); },
         R"({"func_module":"video_api","group":"hdmi","opt":"set_output_info","skip_check_mpp":1,"data":{"loop_out_switch":1}})"},
        {"edid", [](AppManager& a) { a.subWorker()->setVideoInMaxResMode(2); },
         R"({"func_module":"video_api","group":"hdmi","opt":"set_input_info","data":{"gsv2001":{"edid_mode":2}}})"},
        {"ao volume", [](AppManager& a) { a.setAudioOutVolume(40); },
         R"({"func_module":"audio_api","group":"set_ao_volume","data":{"ao_volume":40}})"},
        {"audio config",
         [](AppManager& a) {
             a.subWorker()->setAudioConfig(json{{"volume", 7}});
         },
         R"({"func_module":"audio_api","group":"audio","audio":{"volume":7}})"},
        {"srt local", [](AppManager& a) { a.setEncSrtServerSwitch(0); },
         R"({"func_module":"stream_api","group":"set_srt_local_switch","data":{"switch":0}})"},
        {"publish delete", [](AppManager& a) { a.subWorker()->deleteEncNetStream(2); },
         R"({"func_module":"stream_api","group":"publish","opt":"del_publish_info","data":{"index":2}})"},
        {"publish switch", [](AppManager& a) { a.setEncNetStreamSwitch(1, 1); },
         R"({"func_module":"stream_api","group":"publish","opt":"update_publish_switch","data":{"index":1,"switch":1}})"},
        {"publish order",
         [](AppManager& a) {
             a.subWorker()->setEncNetStreamShowIndex(json::array({3, 1, 2}));
         },
         R"({"func_module":"stream_api","group":"publish","opt":"update_streams_index","data":[3,1,2]})"},
        {"osd", [](AppManager& a) { a.setOsdLayoutSwitch(4, 1); },
         R"({"func_module":"osd_api","group":"osd_layout","opt":"set_layout_switch","data":{"id":4,"switch":1}})"},
    });
}

TEST_F(ReadWireTest, VideoAudioStreamGetters)
{
    expectReads({
        {"video in", readJson<&ZmqSubWorker::getVideoInInfo>, "video_api", "hdmi",
         "get_input_info"},
        {"video out", readJson<&ZmqSubWorker::getVideoOutInfo>, "video_api", "hdmi",
         "get_output_info"},
        {"venc", readJson<&ZmqSubWorker::getVideoEncParams>, "video_api", "all", nullptr},
        {"ndi", readJson<&ZmqSubWorker::getEncNdiInfo>, "video_api", "ndi", "get_ndi_info"},
        {"audio", readJson<&ZmqSubWorker::getAudioConfig>, "audio_api", "all", nullptr},
        {"ao volume",
         [](ZmqSubWorker& w) {
             int v = 0;
             w.getAudioOutVolume(v);
         },
         "audio_api", "get_ao_volume", nullptr},
        {"local server", readJson<&ZmqSubWorker::getEncLocalServerList>, "stream_api",
         "get_local_server", nullptr},
        {"rtsp auth", readJson<&ZmqSubWorker::getRtspAuthInfo>, "stream_api", "get_rtsp_auth",
         nullptr},
        {"publish", readJson<&ZmqSubWorker::getEncNetStreamList>, "stream_api", "getStreamStatus",
         nullptr},
    });
}

// The AI service is addressed by path, with its keys beside it.
TEST_F(RequestWireTest, AiRequestsHaveNoGroupOptOrData)
{
    expectWire({
        {"select", [](AppManager& a) { a.subWorker()->setAiTrackingSelectObj(7); },
         R"({"func_module":"ai_api","path":"/ai/ai_tracking/select_obj","track_id":7})"},
        {"matting", [](AppManager& a) { a.setGskEnable(1); },
         R"({"func_module":"ai_api","path":"/ai/image_matting/im_enable","im_enable":1})"},
        {"matting read",
         [](AppManager& a) {
             json v;
             a.subWorker()->getGskInfo(v);
         },
         R"({"func_module":"ai_api","path":"/ai/image_matting/get_matting_info"})"},
        {"tracking read",
         [](AppManager& a) {
             json v;
             a.subWorker()->getAiTrackingInfo(v);
         },
         R"({"func_module":"ai_api","path":"/ai/ai_tracking/get_tracking_info"})"},
    });
}

// The record service knows no `group`.
TEST_F(RequestWireTest, RecordRequestsHaveNoGroup)
{
    expectWire({
        {"enable", [](AppManager& a) { a.setRecordTaskEnable("rec0", 1); },
         R"({"func_module":"record_api","opt":"set_task_enable","data":{"index":"rec0","enable":1}})"},
        {"stop all", [](AppManager& a) { a.subWorker()->stopAllRecordTasks(); },
         R"({"func_module":"record_api","opt":"stop_all_task"})"},
        {"name", [](AppManager& a) { a.subWorker()->setRecordTaskName("rec0", "Take 1"); },
         R"({"func_module":"record_api","opt":"set_task_info","data":{"index":"rec0","name":"Take 1"}})"},
        {"format", [](AppManager& a) { a.subWorker()->setRecordTaskFormat("rec0", 2); },
         R"({"func_module":"record_api","opt":"set_task_info","data":{"index":"rec0","record_format":2}})"},
        {"mode", [](AppManager& a) { a.subWorker()->setRecordTaskMode("rec0", 1); },
         R"({"func_module":"record_api","opt":"set_task_info","data":{"index":"rec0","record_mode":1}})"},
        {"loop", [](AppManager& a) { a.subWorker()->setRecordTaskLoopMode("rec0", 1); },
         R"({"func_module":"record_api","opt":"set_task_info","data":{"index":"rec0","record_loop_mode":1}})"},
        {"size", [](AppManager& a) { a.subWorker()->setRecordTaskSizeLimit("rec0", 4096); },
         R"({"func_module":"record_api","opt":"set_task_info","data":{"index":"rec0","size_limit":4096}})"},
        {"time", [](AppManager& a) { a.subWorker()->setRecordTaskTimeLimit("rec0", 60); },
         R"({"func_module":"record_api","opt":"set_task_info","data":{"index":"rec0","time_limit":60}})"},
        {"limit type", [](AppManager& a) { a.subWorker()->setRecordTaskLimitType("rec0", 0); },
         R"({"func_module":"record_api","opt":"set_task_info","data":{"index":"rec0","limit_type":0}})"},
        {"list",
         [](AppManager& a) {
             json v;
             a.subWorker()->getRecordTaskList(v);
         },
         R"({"func_module":"record_api","opt":"get_task_list"})"},
    });
}

TEST_F(RequestWireTest, StorageAndDecoderSetters)
{
    expectWire({
        {"nas mount", [](AppManager& a) { a.setNasMount(2); },
         R"({"func_module":"storage_api","group":"nas","opt":"nas_mount","data":{"index":2}})"},
        {"nas umount", [](AppManager& a) { a.setNasUmount(2); },
         R"({"func_module":"storage_api","group":"nas","opt":"nas_umount","data":{"index":2}})"},
        {"speed test", [](AppManager& a) { a.setStorageSpeedTest(1); },
         R"({"func_module":"storage_api","group":"test_storage_speed","data":{"storage_id":1}})"},
        {"choose path", [](AppManager& a) { a.setChooseStoragePath(3); },
         R"({"func_module":"storage_api","group":"choose_storage_path","data":{"storage_id":3}})"},
        {"ndi find", [](AppManager& a) { a.findDecNdi(); },
         R"({"func_module":"streamplay_api","group":"set_streamplay_ndi_info","opt":"ndi_find"})"},
        {"stream delete", [](AppManager& a) { a.subWorker()->setDecNetStreamDel(4); },
         R"({"func_module":"streamplay_api","group":"set_streamplay_info","opt":"streamplay_del","data":{"index":4}})"},
        {"stream switch", [](AppManager& a) { a.setDecNetStreamSwitch(4, 1); },
         R"({"func_module":"streamplay_api","group":"set_streamplay_info","opt":"streamplay_switch","data":{"index":4,"switch":1}})"},
        {"ndi recv", [](AppManager& a) { a.setDecNdiRecv("CAM-1"); },
         R"({"func_module":"streamplay_api","group":"set_streamplay_ndi_info","opt":"ndi_recv","data":{"ndi_name":"CAM-1"}})"},
        {"ndi close", [](AppManager& a) { a.setDecNdiClose(); },
         R"({"func_module":"streamplay_api","group":"set_streamplay_ndi_info","opt":"ndi_close"})"},
        {"srt play", [](AppManager& a) { a.setDecSrtPlaySwitch(1); },
         R"({"func_module":"streamplay_api","group":"set_streamplay_srtserver_info","opt":"play_switch","data":{"play_switch":1}})"},
        {"rtmp", [](AppManager& a) { a.setDecRtmpServerSwitch(0, 1); },
         R"({"func_module":"streamplay_api","group":"set_streamplay_servers_info","opt":"play_switch","data":{"index":0,"switch":1}})"},
        {"uvc close", [](AppManager& a) { a.setDecUvcClose(3); },
         R"({"func_module":"mediaplayer_api","group":"uvc","opt":"uvc_close","data":{"id":3}})"},
    });
}

TEST_F(ReadWireTest, StorageDecoderAndPtzGetters)
{
    expectReads({
        {"nas", readJson<&ZmqSubWorker::getNasInfoList>, "storage_api", "nas", "get_nas_info_list"},
        {"present",
         [](ZmqSubWorker& w) {
             int id = 0;
             w.getPresentStorage(id);
         },
         "storage_api", "get_present_storage", nullptr},
        {"decoder state", readJson<&ZmqSubWorker::getDecoderState>, "streamplay_api",
         "get_streamplay_info", "get_decoder_state"},
        {"net streams", readJson<&ZmqSubWorker::getDecNetStreamList>, "streamplay_api",
         "get_streamplay_info", "streamplay_get_all"},
        {"srt server", readJson<&ZmqSubWorker::getDecSrtServerInfo>, "streamplay_api",
         "get_streamplay_srtserver_info", "get_srt_server_info"},
        {"rtmp server", readJson<&ZmqSubWorker::getDecRtmpServerInfo>, "streamplay_api",
         "get_streamplay_servers_info", "get_servers_info"},
        {"ndi sources", readJson<&ZmqSubWorker::getDecNdiList>, "streamplay_api",
         "get_streamplay_ndi_info", "ndi_get_all"},
        {"uvc", readJson<&ZmqSubWorker::getDecUvcList>, "mediaplayer_api", "uvc", "get_list_info"},
        {"ptz", readJson<&ZmqSubWorker::getPtzctrlInfo>, "ptzctrl_api", "client",
         "get_client_info"},
    });
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
