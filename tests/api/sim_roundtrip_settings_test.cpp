// Settings written through AppManager against the simulator: they read back
// changed through the API, the device holds them, the topics carry what they
// publish, and the device's rules refuse with the values the panel maps.
#include "sim_backend.h"

namespace apitest {
namespace {

json dataOf(ZmqSubWorker& worker, int (ZmqSubWorker::*read)(json&))
{
    json out;
    EXPECT_EQ((worker.*read)(out), 0);
    return out;
}

class SimSettingsTest : public SimBackendTest {};

TEST_F(SimSettingsTest, SystemSettingsReadBack)
{
    EXPECT_EQ(app->setLcdInfo(1, 40), 0);
    EXPECT_EQ(app->setLcdSleep(15, 40), 0);
    EXPECT_EQ(app->setLcdInfo(0, 0, 0, 10, 3), 0);
    const json lcd = dataOf(worker(), &ZmqSubWorker::getLcdInfo);
    EXPECT_EQ(lcd["lock_stat"], 1);
    EXPECT_EQ(lcd["lcd_bright"], 40);
    EXPECT_EQ(lcd["LCD_sleep"], 10);
    EXPECT_EQ(simAt("/lcd/sleep_bright"), 15);

    EXPECT_EQ(app->setFanMode(AppManager::uiIndexToFanMode(2)), 0);
    EXPECT_EQ(AppManager::fanModeToUiIndex(app->getFanMode()), 2);
    EXPECT_EQ(app->setThemeID(1), 0);
    EXPECT_EQ(app->getThemeID(), 1);

    EXPECT_EQ(app->setTallyInfo(2, 1), 0);
    EXPECT_EQ(app->setTallySwitch(0), 0);
    TallyInfo tally;
    EXPECT_EQ(app->getTallyInfo(tally), 0);
    EXPECT_EQ(tally, (TallyInfo{0, 2, 1}));

    EXPECT_EQ(app->setUsbOtgMode(2), 0);
    EXPECT_EQ(dataOf(worker(), &ZmqSubWorker::getUsbOtgId)["usb_otg_id"], 2);

    // The voltage goes back as the device holds it.
    EXPECT_EQ(app->setDcOutSwitch(1), 0);
    EXPECT_EQ(dataOf(worker(), &ZmqSubWorker::getDcOutStatus),
              json({{"switch", 1}, {"voltage", 1}}));

    EXPECT_EQ(app->setAppConnectionStatus(2), 0);
    int connect_status = -1;
    EXPECT_EQ(worker().getAppConnectionStatus(connect_status), 0);
    EXPECT_EQ(connect_status, 2);

    const json guide = {
        {"force_show", 1}, {"shown_counts", {1, 2, 0, 0, 0, 0, 0}}, {"max_count", 3}};
    EXPECT_EQ(app->setGestureGuide(guide), 0);
    json guide_read;
    EXPECT_EQ(app->getGestureGuide(guide_read), 0);
    EXPECT_EQ(guide_read, guide);

    int first_use = -1;
    EXPECT_EQ(app->getConnectAppFirstUseFlag(first_use), 0);
    EXPECT_EQ(first_use, 1);
    EXPECT_EQ(app->setConnectAppFirstUseFlag(0), 0);
    EXPECT_EQ(app->getConnectAppFirstUseFlag(first_use), 0);
    EXPECT_EQ(first_use, 0);

    VersionInfo version;
    EXPECT_EQ(app->getSystemInfo(version), 0);
    EXPECT_EQ(json(version.SN.toStdString()), simAt("/system/version/SN"));
    DashBoardInfo dashboard;
    EXPECT_EQ(app->getDashboardInfo(dashboard), 0);
    EXPECT_EQ(json(dashboard.persistent_time.toStdString()),
              simAt("/system/dashboard/persistent_time"));
}

TEST_F(SimSettingsTest, SystemStateReachesTheTopics)
{
    ASSERT_TRUE(
        waitForTopics([](const ZmqSubCache& c) { return c.osd_ready && c.net_stream_ready; }));
    EXPECT_EQ(app->setLanguageID(3), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.language_id == 3; }));

    EXPECT_EQ(app->setStandby(), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.run_status == 0; }));
    EXPECT_EQ(app->exitStandby(), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.run_status == 1; }));

    // Push streams and OSD layouts belong to encode mode.
    EXPECT_FALSE(worker().getSubCache().osd_items.empty());
    EXPECT_EQ(app->setWorkMode(1), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) {
        return c.workmode_id == 1 && c.osd_items.empty() && c.push_streams.empty();
    }));
}

TEST_F(SimSettingsTest, SystemRulesRefuseAndChangeNothing)
{
    EXPECT_EQ(app->setWorkMode(0), -402); // already in encode mode
    EXPECT_EQ(app->setLcdInfo(0, 400), -2);
    EXPECT_EQ(simAt("/lcd/lcd_bright"), 80);
    EXPECT_EQ(app->setFanMode(7), -2);
    EXPECT_EQ(simAt("/system/fan_mode"), 1);

    // A voltage the panel doesn't know is never sent back.
    control("set /system/dc_out/voltage 3");
    EXPECT_EQ(app->setDcOutSwitch(1), -3);
    EXPECT_EQ(webRequestsOf("set_dcout_status"), 0);
    EXPECT_EQ(simAt("/system/dc_out/switch"), 0);
}

TEST_F(SimSettingsTest, NetworkSwitchesReachTheTopic)
{
    ASSERT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.network_ready; }));
    EXPECT_FALSE(worker().getSubCache().ap_switch);
    EXPECT_EQ(app->setApSwitch(1), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.ap_switch; }));
    EXPECT_EQ(app->setWifiSwitch(0), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return !c.wifi_switch; }));

    EXPECT_EQ(worker().setApInfo("Panel-AP", "12345678"), 0);
    ApInfo ap;
    EXPECT_EQ(app->getApInfo(ap), 0);
    EXPECT_EQ(ap, (ApInfo{"Panel-AP", "12345678"}));
    EXPECT_EQ(worker().setApInfo("Panel-AP", "short"), -2);

    control("set /network/wifi_module 0");
    EXPECT_EQ(app->setWifiSwitch(1), -301);
}

TEST_F(SimSettingsTest, VideoSettingsReadBack)
{
    EXPECT_EQ(app->setEncNdiSwitch(1), 0);
    EXPECT_EQ(app->setEncNdiQuality(AppManager::uiIndexToNdiQuality(3)), 0);
    EncNdiInfo ndi;
    EXPECT_EQ(app->getEncNdiInfo(ndi), 0);
    EXPECT_EQ(ndi.switch_on, 1);
    const json ndi_state = dataOf(worker(), &ZmqSubWorker::getEncNdiInfo);
    EXPECT_EQ(AppManager::ndiQualityToUiIndex(ndi_state["mode_id"].get<int>()), 3);
    EXPECT_EQ(ndi_state["machinename"], "VANTORBOX"); // the read-modify-write kept it

    EXPECT_EQ(app->setVideoOutFormat("720p60"), 0);
    EXPECT_EQ(app->setVideoOutMuteSwitch(0), 0);
    EXPECT_EQ(app->setLoopOutSwitch(1), 0);
    VideoOutInfo out;
    EXPECT_EQ(app->getVideoOutInfo(out), 0);
    EXPECT_EQ(out, (VideoOutInfo{"720p60", 0, 1}));
    EXPECT_EQ(app->setVideoOutFormat("999p"), -2);

    EXPECT_EQ(worker().setVideoEncBitrate(1, 60), 0);
    EXPECT_EQ(worker().setVideoEncBitrate(0, 9000), 0);
    std::vector<VideoEncInfo> streams;
    EXPECT_EQ(app->getVideoEncParams(streams), 0);
    ASSERT_EQ(streams.size(), 2u);
    EXPECT_EQ(streams[1].bitrate, 60);
    EXPECT_EQ(streams[1].ndi_bitrate_pre, 60);
    EXPECT_EQ(streams[0].bitrate, 9000);
    EXPECT_EQ(streams[0].ndi_bitrate_pre, 100);
    EXPECT_EQ(streams[0].width, 1920); // the rest of the array went back unchanged
}

TEST_F(SimSettingsTest, AudioSettingsReadBack)
{
    EXPECT_EQ(app->setAudioEncVolume(35), 0);
    EXPECT_EQ(app->setAudioOutVolume(20), 0);
    EXPECT_EQ(app->setAudioEncSwitch(0), 0);
    AudioAllInfo audio;
    EXPECT_EQ(app->getAudioAllInfo(audio), 0);
    EXPECT_EQ(audio.volume, 35);
    EXPECT_EQ(audio.ao_volume, 20);
    EXPECT_EQ(audio.switch_on, 0);

    // A wide source keeps four channels only where the input has them.
    control("set /audio/all/ai_chnnum_id 3");
    EXPECT_EQ(app->setAudioEncSource(2), 0);
    EXPECT_EQ(simAt("/audio/all/ai_chnnum_id"), 1);
    control("set /audio/all/ai_chnnum_real 4");
    control("set /audio/all/ai_chnnum_id 3");
    control("set /audio/all/ai_chnsel_id 2");
    EXPECT_EQ(app->setAudioEncSource(2), 0);
    EXPECT_EQ(simAt("/audio/all/ai_chnnum_id"), 3);
    EXPECT_EQ(simAt("/audio/all/ai_chnsel_id"), 0);
    EXPECT_EQ(app->getAudioAllInfo(audio), 0);
    EXPECT_EQ(audio.ai_type, 2);
}

TEST_F(SimSettingsTest, AiSettingsReadBack)
{
    EXPECT_EQ(app->setAiEnable(1), 0);
    AiTrackingInfo tracking;
    EXPECT_EQ(app->getAiTrackingInfo(tracking), 0);
    EXPECT_EQ(tracking, (AiTrackingInfo{1, 1}));

    EXPECT_EQ(worker().setAiTrackingSpeed(4), 0);
    EXPECT_EQ(simAt("/ai/tracking/object_tracking/configure"), json({{"class_id", 0},
                                                                     {"figure_id", 0},
                                                                     {"placement_id", 1},
                                                                     {"mode_id", 0},
                                                                     {"speed_id", 4},
                                                                     {"control_enable", 0}}));

    EXPECT_EQ(app->setGskEnable(1), 0);
    GskInfo matting;
    EXPECT_EQ(app->getGskInfo(matting), 0);
    EXPECT_EQ(matting, (GskInfo{1, 2}));

    // Without a backdrop the service refuses in its normal form, with a general code.
    control("set /ai/matting/user_bgfile_list []");
    EXPECT_EQ(app->setGskEnable(0), 0);
    EXPECT_EQ(app->setGskEnable(1), -107);
    EXPECT_EQ(app->getGskInfo(matting), 0);
    EXPECT_EQ(matting, (GskInfo{0, 0}));
}

TEST_F(SimSettingsTest, PtzProtocolFollowsWhatIsOnOffer)
{
    PtzctrlInfo ptz;
    EXPECT_EQ(app->getPtzctrlInfo(ptz), 0);
    EXPECT_EQ(ptz, (PtzctrlInfo{1, 1}));

    const int pelco_d = AppManager::uiIndexToPtzProtocol(2, ptz.usb2serial, 0);
    EXPECT_EQ(app->setPtzProtocol(pelco_d), 0);
    EXPECT_EQ(app->getPtzctrlInfo(ptz), 0);
    EXPECT_EQ(AppManager::ptzProtocolToUiIndex(ptz.protocol, ptz.usb2serial, 0), 2);

    EXPECT_EQ(app->setPtzProtocol(7), -2); // NDI control belongs to decode mode
    EXPECT_EQ(simAt("/ptz/protocol"), pelco_d);
    EXPECT_EQ(app->setWorkMode(1), 0);
    EXPECT_EQ(app->setPtzProtocol(7), 0);
}

} // namespace
} // namespace apitest
