// AppManager without a backend, its pure conversions, its reads of the
// subscription cache, and the held values behind the three state reads.
#include "scripted_backend.h"

#include <QSignalSpy>

namespace apitest {
namespace {

TEST(AppManagerWithoutWorker, EveryOperationFailsQuietly)
{
    AppManager app(std::unique_ptr<ZmqSubWorker>{});
    VersionInfo version;
    version.SN = "kept";
    std::vector<RecordTaskInfo> tasks(1);
    std::vector<UvcDevInfo> devices(1);
    std::vector<EncRtspInfo> rtsp(1);
    EncSrtInfo srt{4};
    int storage = 7;
    for (int status :
         {app.setFanMode(1), app.setLcdInfo(1, 2), app.setLcdInfo(0, 1, 2, 3, 0), app.setThemeID(1),
          app.getThemeID(), app.getFanMode(), app.getSystemInfo(version), app.setApSwitch(1),
          app.setVideoOutFormat("x"), app.setAudioEncSource(1),
          app.getEncLocalServerList(rtsp, srt), app.setOsdLayoutSwitch(1, 1), app.setAiEnable(1),
          app.getRecordTaskList(tasks), app.getPresentStorage(storage),
          app.setDecSrtServerSwitch(1), app.getDecUvcList(devices), app.setPtzProtocol(1)}) {
        EXPECT_EQ(status, -3);
    }
    EXPECT_EQ(version.SN, "kept");
    EXPECT_EQ(tasks.size(), 1u);
    EXPECT_EQ(devices.size(), 1u);
    EXPECT_EQ(rtsp.size(), 1u);
    EXPECT_EQ(srt.switch_on, 4);
    EXPECT_EQ(storage, 7);
    EXPECT_EQ(app.getDiskStatus(0), -1);
    EXPECT_EQ(app.getDiskWriteSpeed(1), 0.0f);
    json cfg = {{"old", 1}};
    app.GetJsonCfg("get_networkdom", cfg);
    EXPECT_TRUE(cfg.is_null());
}

TEST(AppManagerConversions, FanModeOrder)
{
    for (const auto& [mode, index] : std::vector<std::pair<int, int>>{{1, 0}, {0, 1}, {2, 2}}) {
        EXPECT_EQ(AppManager::fanModeToUiIndex(mode), index);
        EXPECT_EQ(AppManager::uiIndexToFanMode(index), mode);
    }
    EXPECT_EQ(AppManager::fanModeToUiIndex(7), 1);
    EXPECT_EQ(AppManager::fanModeToUiIndex(-1), 1);
    EXPECT_EQ(AppManager::uiIndexToFanMode(-1), 0);
    EXPECT_EQ(AppManager::uiIndexToFanMode(3), 0);
}

TEST(AppManagerConversions, NdiQualityIsLimited)
{
    for (const auto& [quality, index] :
         std::vector<std::pair<int, int>>{{1, 0}, {4, 3}, {0, 0}, {9, 3}}) {
        EXPECT_EQ(AppManager::ndiQualityToUiIndex(quality), index) << quality;
    }
    for (const auto& [index, quality] :
         std::vector<std::pair<int, int>>{{0, 1}, {3, 4}, {-5, 1}, {7, 4}}) {
        EXPECT_EQ(AppManager::uiIndexToNdiQuality(index), quality) << index;
    }
}

TEST(AppManagerConversions, PtzProtocolsOnOffer)
{
    struct Offer {
        int usb2serial;
        int workmode;
        std::vector<int> protocols;
    };
    for (const Offer& o : std::vector<Offer>{{0, 0, {1}},
                                             {1, 0, {1, 3, 4, 5}},
                                             {0, 1, {1, 7, 9}},
                                             {1, 1, {1, 3, 4, 5, 7, 9}},
                                             {2, 2, {1}}}) {
        SCOPED_TRACE(testing::Message() << o.usb2serial << "/" << o.workmode);
        for (int i = 0; i < static_cast<int>(o.protocols.size()); ++i) {
            EXPECT_EQ(AppManager::uiIndexToPtzProtocol(i, o.usb2serial, o.workmode),
                      o.protocols[i]);
            EXPECT_EQ(AppManager::ptzProtocolToUiIndex(o.protocols[i], o.usb2serial, o.workmode),
                      i);
        }
        const int past_end = static_cast<int>(o.protocols.size());
        EXPECT_EQ(AppManager::uiIndexToPtzProtocol(past_end, o.usb2serial, o.workmode), 1);
        EXPECT_EQ(AppManager::uiIndexToPtzProtocol(-1, o.usb2serial, o.workmode), 1);
    }
    EXPECT_EQ(AppManager::ptzProtocolToUiIndex(3, 0, 0), 0);
    EXPECT_EQ(AppManager::ptzProtocolToUiIndex(9, 0, 1), 2);
}

class AppManagerTest : public ApiTest {};

TEST_F(AppManagerTest, InvalidThemeSendsNothing)
{
    EXPECT_EQ(app->setThemeID(2), -2);
    EXPECT_EQ(app->setThemeID(-1), -2);
    EXPECT_TRUE(web.requests().empty());
}

TEST_F(AppManagerTest, DiskStateComesFromTheSubscriptionCache)
{
    worker().updateSubCache([](ZmqSubCache& cache) {
        cache.disk_status[0] = 1;
        cache.disk_status[1] = 2;
        cache.disk_status[2] = 3;
        cache.disk_write_speed[0] = 10.5f;
        cache.disk_write_speed[1] = 20.25f;
        cache.disk_write_speed[2] = 30.0f;
    });
    EXPECT_EQ(app->getDiskStatus(0), 1);
    EXPECT_EQ(app->getDiskStatus(1), 2);
    EXPECT_EQ(app->getDiskStatus(3), 3);
    EXPECT_EQ(app->getDiskStatus(2), -1);
    EXPECT_EQ(app->getDiskWriteSpeed(0), 10.5f);
    EXPECT_EQ(app->getDiskWriteSpeed(1), 20.25f);
    EXPECT_EQ(app->getDiskWriteSpeed(3), 30.0f);
    EXPECT_EQ(app->getDiskWriteSpeed(2), 0.0f);
    EXPECT_TRUE(web.requests().empty());
}

// The three state reads signal a value only when it differs from the one
// last signalled, and a reply without the key changes nothing.
TEST_F(AppManagerTest, StateReadsSignalChangedValues)
{
    QSignalSpy run_status(&worker(), &ZmqSubWorker::runStatusUpdate);
    QSignalSpy work_mode(&worker(), &ZmqSubWorker::workModeUpdate);
    QSignalSpy language(&worker(), &ZmqSubWorker::systemLanguageUpdate);

    web.reply("get_run_status", {{"rsp", "succeed"}, {"data", {{"run_status", 0}}}});
    web.reply("get_workmode_id", {{"rsp", "succeed"}, {"workmode_id", 1}});
    web.reply("get_sys_language_info", {{"rsp", "succeed"}, {"data", {{"language_id", 2}}}});
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(worker().getStandbyStatus(), 0);
        EXPECT_EQ(worker().getWorkMode(), 0);
        EXPECT_EQ(worker().getSystemLanguage(), 0);
    }
    ASSERT_EQ(run_status.count(), 1);
    EXPECT_EQ(run_status.at(0).at(0).toInt(), 0);
    ASSERT_EQ(work_mode.count(), 1);
    EXPECT_EQ(work_mode.at(0).at(0).toInt(), 1);
    ASSERT_EQ(language.count(), 1);
    EXPECT_EQ(language.at(0).at(0).toInt(), 2);

    web.reply("get_run_status", {{"rsp", "succeed"}, {"data", json::object()}});
    EXPECT_EQ(worker().getStandbyStatus(), 0);
    web.reply("get_run_status", {{"rsp", "fail"}, {"data", {{"run_status", 1}}}});
    EXPECT_EQ(worker().getStandbyStatus(), -3);
    EXPECT_EQ(run_status.count(), 1);

    web.reply("get_run_status", {{"rsp", "succeed"}, {"data", {{"run_status", 1}}}});
    EXPECT_EQ(worker().getStandbyStatus(), 0);
    ASSERT_EQ(run_status.count(), 2);
    EXPECT_EQ(run_status.at(1).at(0).toInt(), 1);
}

} // namespace
} // namespace apitest
