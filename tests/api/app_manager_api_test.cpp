// AppManager's own part of the API: what it does without a backend, its
// conversions between the device's values and the pages' list positions, the
// disk state it reads from the subscription cache, and the three state reads
// that signal only a changed value.
#include "scripted_backend.h"

#include <QSignalSpy>

namespace apitest {
namespace {

TEST(AppManagerApi, WithoutAWorkerEveryOperationFailsAndLeavesTheCallersData)
{
    AppManager app(std::unique_ptr<ZmqSubWorker>{});
    VersionInfo version{"H", "F", "N", "kept"};
    std::vector<RecordTaskInfo> tasks(1);
    std::vector<EncRtspInfo> rtsp(1);
    EncSrtInfo srt{4};
    int storage = 7;
    for (int status :
         {app.setFanMode(1), app.setLcdInfo(1, 2), app.setLcdInfo(0, 1, 2, 3, 0), app.setThemeID(1),
          app.getThemeID(), app.getFanMode(), app.getSystemInfo(version), app.setApSwitch(1),
          app.setVideoOutFormat("x"), app.setAudioEncSource(1),
          app.getEncLocalServerList(rtsp, srt), app.setOsdLayoutSwitch(1, 1), app.setAiEnable(1),
          app.getRecordTaskList(tasks), app.getPresentStorage(storage),
          app.setDecSrtServerSwitch(1), app.setPtzProtocol(1)})
        EXPECT_EQ(status, -3);
    EXPECT_EQ(version, (VersionInfo{"H", "F", "N", "kept"}));
    EXPECT_EQ(std::make_tuple(tasks.size(), rtsp.size(), srt.switch_on, storage),
              std::make_tuple(std::size_t{1}, std::size_t{1}, 4, 7));
    EXPECT_EQ(app.getDiskStatus(0), -1);
    EXPECT_EQ(app.getDiskWriteSpeed(1), 0.0f);
    json cfg = {{"old", 1}};
    app.GetJsonCfg("get_networkdom", cfg);
    EXPECT_TRUE(cfg.is_null());
}

// The pages list fan modes as 1, 0, 2; NDI qualities 1..4 as 0..3; and the
// PTZ protocols on offer, which depend on the serial adapter and the work
// mode. Fan and PTZ values out of range fall back to the first; NDI ones
// are clamped.
TEST(AppManagerApi, ListPositionsAndDeviceValuesConvertBothWays)
{
    const std::pair<int, int> fan[] = {{1, 0}, {0, 1}, {2, 2}};
    for (const auto& [mode, index] : fan) {
        EXPECT_EQ(AppManager::fanModeToUiIndex(mode), index);
        EXPECT_EQ(AppManager::uiIndexToFanMode(index), mode);
    }
    EXPECT_EQ(AppManager::fanModeToUiIndex(7), 1);
    EXPECT_EQ(AppManager::uiIndexToFanMode(3), 0);

    // In range, below and above.
    const std::pair<int, int> ndi[] = {{2, 1}, {0, 0}, {9, 3}};
    for (const auto& [quality, index] : ndi)
        EXPECT_EQ(AppManager::ndiQualityToUiIndex(quality), index) << quality;
    const std::pair<int, int> ndiIndex[] = {{1, 2}, {-5, 1}, {7, 4}};
    for (const auto& [index, quality] : ndiIndex)
        EXPECT_EQ(AppManager::uiIndexToNdiQuality(index), quality) << index;

    // The serial adapter's protocols come before the decoder's; only 1 counts
    // as present for either.
    const std::tuple<int, int, std::vector<int>> offers[] = {{1, 1, {1, 3, 4, 5, 7, 9}},
                                                             {2, 2, {1}}};
    for (const auto& [usb2serial, mode, protocols] : offers) {
        SCOPED_TRACE(testing::Message() << usb2serial << "/" << mode);
        const int count = static_cast<int>(protocols.size());
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(AppManager::uiIndexToPtzProtocol(i, usb2serial, mode), protocols[i]);
            EXPECT_EQ(AppManager::ptzProtocolToUiIndex(protocols[i], usb2serial, mode), i);
        }
        EXPECT_EQ(AppManager::uiIndexToPtzProtocol(count, usb2serial, mode), 1);
        EXPECT_EQ(AppManager::uiIndexToPtzProtocol(-1, usb2serial, mode), 1);
    }
    EXPECT_EQ(AppManager::ptzProtocolToUiIndex(3, 0, 0), 0) << "not on offer";
}

TEST_F(ApiTest, InvalidThemeAndDiskStateNeedNoRequest)
{
    EXPECT_EQ(app->setThemeID(2), -2);
    EXPECT_EQ(app->setThemeID(-1), -2);
    // Storage id 3 (the NAS) reads cache slot 2; id 2 has no slot. The model's
    // tests cover the whole map.
    worker().updateSubCache([](ZmqSubCache& cache) {
        cache.disk_status[2] = 3;
        cache.disk_write_speed[2] = 31.5f;
    });
    EXPECT_EQ(std::make_pair(app->getDiskStatus(3), app->getDiskWriteSpeed(3)),
              std::make_pair(3, 31.5f));
    EXPECT_EQ(std::make_pair(app->getDiskStatus(2), app->getDiskWriteSpeed(2)),
              std::make_pair(-1, 0.0f));
    EXPECT_TRUE(web.requests().empty());
}

// The run status, work mode and language reads signal a value only when it
// differs from the one last signalled; a reply without the key or a failed
// read signals nothing.
TEST_F(ApiTest, StateReadsSignalOnlyChangedValues)
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
    web.reply("get_run_status", {{"rsp", "succeed"}, {"data", json::object()}});
    EXPECT_EQ(worker().getStandbyStatus(), 0);
    web.reply("get_run_status", {{"rsp", "fail"}, {"data", {{"run_status", 1}}}});
    EXPECT_EQ(worker().getStandbyStatus(), -3);
    web.reply("get_run_status", {{"rsp", "succeed"}, {"data", {{"run_status", 1}}}});
    EXPECT_EQ(worker().getStandbyStatus(), 0);

    const std::pair<QSignalSpy*, std::vector<int>> signalled[] = {
        {&run_status, {0, 1}}, {&work_mode, {1}}, {&language, {2}}};
    for (const auto& [spy, values] : signalled) {
        std::vector<int> got;
        for (const QList<QVariant>& args : *spy)
            got.push_back(args.at(0).toInt());
        EXPECT_EQ(got, values);
    }
}

} // namespace
} // namespace apitest
