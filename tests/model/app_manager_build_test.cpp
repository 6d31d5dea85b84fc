// AppManager's view-model layer on a bare worker: each build/get pair
// compares and stores, the work mode and the flags it reads, its cached
// questions, and that builds read caches rather than the backend.
#include "link/zmq_get_cache.h"
#include "support/sim/sim_fixture.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QSignalSpy>

#include <functional>

namespace modeltest {
namespace {

using CacheChange = std::function<void(ZmqSubCache&, ZmqGetCache&)>;

void changeCaches(ZmqSubWorker& worker, const CacheChange& change)
{
    ZmqSubCache sub = worker.getSubCache();
    ZmqGetCache get = worker.getGetCache();
    change(sub, get);
    worker.updateSubCache([&](ZmqSubCache& cache) { cache = sub; });
    worker.updateGetCache([&](ZmqGetCache& cache) { cache = get; });
}

void clearCaches(ZmqSubWorker& worker)
{
    changeCaches(worker, [](ZmqSubCache& sub, ZmqGetCache& get) {
        sub = ZmqSubCache();
        get = ZmqGetCache();
    });
}

class AppManagerBuildTest : public ::testing::Test {
protected:
    void SetUp() override { app = backend.bareAppManager(); }

    ZmqSubWorker& worker() { return *app->subWorker(); }

    // From cleared caches: a second build reports no change and get returns
    // the stored record; after `change` the build differs and says so, and a
    // build after that is quiet again.
    template <class VM>
    void expectBuildPattern(VM (AppManager::*build)(bool*), VM (AppManager::*get)() const,
                            const CacheChange& change)
    {
        clearCaches(worker());
        const VM before = (app.get()->*build)(nullptr);
        bool changed = true;
        EXPECT_TRUE((app.get()->*build)(&changed) == before);
        EXPECT_FALSE(changed) << "second build with unchanged caches";
        EXPECT_TRUE((app.get()->*get)() == before);

        changeCaches(worker(), change);
        const VM after = (app.get()->*build)(&changed);
        EXPECT_TRUE(changed) << "build after a real change";
        EXPECT_FALSE(after == before) << "the change did not reach the record";
        EXPECT_TRUE((app.get()->*get)() == after) << "get returns the last build";

        (app.get()->*build)(&changed);
        EXPECT_FALSE(changed) << "build after the change was delivered";
    }

    testsupport::SimFixture backend;
    std::unique_ptr<AppManager> app;
};

TEST_F(AppManagerBuildTest, StatusModelsCompareAndStore)
{
    {
        SCOPED_TRACE("status bar");
        expectBuildPattern(&AppManager::buildStatusBarVm, &AppManager::getStatusBarVm,
                           [](ZmqSubCache& sub, ZmqGetCache&) {
                               sub.network_ready = true;
                               sub.lan_state = 1;
                           });
    }
    {
        SCOPED_TRACE("status page 1");
        expectBuildPattern(&AppManager::buildStatusPage1Vm, &AppManager::getStatusPage1Vm,
                           [](ZmqSubCache& sub, ZmqGetCache&) {
                               sub.cpu_memory_ready = true;
                               sub.cpu_temp = 70;
                           });
    }
    {
        SCOPED_TRACE("status page 2");
        expectBuildPattern(&AppManager::buildStatusPage2Vm, &AppManager::getStatusPage2Vm,
                           [](ZmqSubCache& sub, ZmqGetCache&) {
                               sub.video_input_ready = true;
                               sub.video_width = 1920;
                           });
    }
    {
        SCOPED_TRACE("status page 3");
        expectBuildPattern(&AppManager::buildStatusPage3Vm, &AppManager::getStatusPage3Vm,
                           [](ZmqSubCache&, ZmqGetCache& get) {
                               get.audio_valid = true;
                               get.audio.volume = 55;
                           });
    }
}

TEST_F(AppManagerBuildTest, SettingsModelsCompareAndStore)
{
    {
        SCOPED_TRACE("system");
        expectBuildPattern(&AppManager::buildSystemSettingsPageVm,
                           &AppManager::getSystemSettingsPageVm,
                           [](ZmqSubCache&, ZmqGetCache& get) {
                               get.dc_out_valid = true;
                               get.dc_out_switch = 1;
                           });
    }
    {
        SCOPED_TRACE("network");
        expectBuildPattern(&AppManager::buildNetworkSettingsPageVm,
                           &AppManager::getNetworkSettingsPageVm,
                           [](ZmqSubCache&, ZmqGetCache& get) {
                               get.nas_valid = true;
                               get.nas_list = {{"share", true, 1}};
                           });
    }
    {
        SCOPED_TRACE("camera");
        expectBuildPattern(&AppManager::buildCameraSettingsPageVm,
                           &AppManager::getCameraSettingsPageVm,
                           [](ZmqSubCache&, ZmqGetCache& get) {
                               get.lcd_valid = true;
                               get.lcd_bright = 40;
                           });
    }
    {
        SCOPED_TRACE("video");
        expectBuildPattern(&AppManager::buildVideoSettingsPageVm,
                           &AppManager::getVideoSettingsPageVm, [](ZmqSubCache&, ZmqGetCache& get) {
                               get.video_out_valid = true;
                               get.video_out.format = "720p60";
                           });
    }
    {
        SCOPED_TRACE("audio");
        expectBuildPattern(&AppManager::buildAudioSettingsPageVm,
                           &AppManager::getAudioSettingsPageVm, [](ZmqSubCache&, ZmqGetCache& get) {
                               get.audio_valid = true;
                               get.audio.volume = 30;
                           });
    }
    {
        SCOPED_TRACE("media");
        expectBuildPattern(&AppManager::buildMediaSettingsPageVm,
                           &AppManager::getMediaSettingsPageVm, [](ZmqSubCache&, ZmqGetCache& get) {
                               get.enc_ndi_valid = true;
                               get.enc_ndi_mode_id = 3;
                           });
    }
    {
        SCOPED_TRACE("decoding");
        expectBuildPattern(&AppManager::buildDecodingSettingsPageVm,
                           &AppManager::getDecodingSettingsPageVm,
                           [](ZmqSubCache&, ZmqGetCache& get) {
                               get.dec_rtmp_valid = true;
                               get.dec_rtmp_switch = 1;
                           });
    }
}

TEST_F(AppManagerBuildTest, ShortcutAndConnectModelsCompareAndStore)
{
    {
        SCOPED_TRACE("encoder shortcut");
        expectBuildPattern(&AppManager::buildEncoderShortcutPageVm,
                           &AppManager::getEncoderShortcutPageVm,
                           [](ZmqSubCache& sub, ZmqGetCache&) {
                               sub.osd_ready = true;
                               sub.osd_items = {{1, "Logo", true, 0}};
                           });
    }
    {
        SCOPED_TRACE("decoder shortcut");
        expectBuildPattern(&AppManager::buildDecoderShortcutPageVm,
                           &AppManager::getDecoderShortcutPageVm,
                           [](ZmqSubCache&, ZmqGetCache& get) {
                               get.dec_ndi_valid = true;
                               get.dec_ndi_list = {{0, "STUDIO (cam 1)", 1}};
                           });
    }
    {
        SCOPED_TRACE("connect app");
        expectBuildPattern(&AppManager::buildConnectAppVm, &AppManager::getConnectAppVm,
                           [](ZmqSubCache&, ZmqGetCache& get) {
                               get.app_connection_valid = true;
                               get.app_connection_status = 4;
                           });
    }
}

TEST_F(AppManagerBuildTest, FixedRecordsChangeAtMostOnce)
{
    bool changed = false;
    const ShortcutVM first = app->buildShortcutVM(&changed);
    EXPECT_TRUE(changed) << "the first build fills the list";
    ASSERT_TRUE(first.config.contains("list"));
    EXPECT_EQ(first.config["list"].size(), 3u);
    app->buildShortcutVM(&changed);
    EXPECT_FALSE(changed);
    EXPECT_EQ(app->getShortcutVm(), first);

    changed = true;
    EXPECT_EQ(app->buildConnectBtVm(&changed), 0);
    EXPECT_FALSE(changed) << "nothing filled the pairing record";
    EXPECT_EQ(app->getConnectBtVm(), ConnectBTVM());
}

TEST_F(AppManagerBuildTest, WorkModeIsTheStoredOneUntilTheTopicReports)
{
    app->workModeProcess(1);
    changeCaches(worker(), [](ZmqSubCache& sub, ZmqGetCache& get) {
        get.present_storage_valid = true;
        get.present_storage_id = 0;
        sub.storage_ready = true;
        sub.disk_present[0] = true;
        sub.disk_status[0] = 1;
    });
    StatusBarVM bar = app->buildStatusBarVm(nullptr);
    EXPECT_EQ(bar.work_mode, 1);
    EXPECT_EQ(bar.disk_type, -1) << "no disk in decoder mode";
    EXPECT_EQ(app->buildAudioSettingsPageVm(nullptr).work_mode, 0)
        << "audio settings stay at zero without audio data";

    changeCaches(worker(), [](ZmqSubCache& sub, ZmqGetCache&) {
        sub.system_state_ready = true;
        sub.workmode_id = 0;
    });
    bar = app->buildStatusBarVm(nullptr);
    EXPECT_EQ(bar.work_mode, 0) << "the published mode wins over the stored one";
    EXPECT_EQ(bar.disk_type, 0);
    EXPECT_EQ(app->getWorkMode(), 1) << "a build does not change the stored mode";
}

TEST_F(AppManagerBuildTest, DataIsReadyOnceTheFiveFirstPaintTopicsReported)
{
    bool ZmqSubCache::*const needed[] = {
        &ZmqSubCache::system_state_ready, &ZmqSubCache::network_ready,
        &ZmqSubCache::video_input_ready, &ZmqSubCache::cpu_memory_ready,
        &ZmqSubCache::storage_ready};
    for (bool ZmqSubCache::*missing : needed) {
        changeCaches(worker(), [&](ZmqSubCache& sub, ZmqGetCache&) {
            for (bool ZmqSubCache::*flag : needed)
                sub.*flag = flag != missing;
        });
        EXPECT_FALSE(app->isDataReady());
    }
    changeCaches(worker(), [&](ZmqSubCache& sub, ZmqGetCache&) {
        for (bool ZmqSubCache::*flag : needed)
            sub.*flag = true;
        sub.record_ready = false;
        sub.net_stream_ready = false;
        sub.osd_ready = false;
    });
    EXPECT_TRUE(app->isDataReady()) << "record, stream and OSD topics are not waited for";
}

TEST_F(AppManagerBuildTest, CachedQuestionsHonourTheirFlags)
{
    changeCaches(worker(), [](ZmqSubCache&, ZmqGetCache& get) {
        get.present_storage_id = 3;
        get.venc_list.resize(2);
        get.lcd_lock_stat = 1;
    });
    EXPECT_EQ(app->getPresentStorageIdCached(), -1);
    EXPECT_TRUE(app->getVencDataCached().empty());
    EXPECT_FALSE(app->get_lcd_lock_stat());

    changeCaches(worker(), [](ZmqSubCache&, ZmqGetCache& get) {
        get.present_storage_valid = true;
        get.venc_valid = true;
        get.lcd_valid = true;
    });
    EXPECT_EQ(app->getPresentStorageIdCached(), 3);
    EXPECT_EQ(app->getVencDataCached().size(), 2u);
    EXPECT_TRUE(app->get_lcd_lock_stat());
}

TEST_F(AppManagerBuildTest, OnlyStandbyAndScreensaverAskTheBackend)
{
    changeCaches(worker(), [](ZmqSubCache& sub, ZmqGetCache& get) {
        sub = ZmqSubCache();
        sub.network_ready = sub.storage_ready = sub.system_state_ready = true;
        sub.lan_state = 1;
        sub.ip = "10.1.2.3";
        get.present_storage_valid = get.lcd_valid = get.venc_valid = true;
        get.present_storage_id = 0;
    });
    const int before = backend.webRequestTotal();
    app->buildStatusBarVm(nullptr);
    app->buildStatusPage1Vm(nullptr);
    app->buildStatusPage2Vm(nullptr);
    app->buildStatusPage3Vm(nullptr);
    app->buildSystemSettingsPageVm(nullptr);
    app->buildNetworkSettingsPageVm(nullptr);
    app->buildCameraSettingsPageVm(nullptr);
    app->buildVideoSettingsPageVm(nullptr);
    app->buildAudioSettingsPageVm(nullptr);
    app->buildMediaSettingsPageVm(nullptr);
    app->buildDecodingSettingsPageVm(nullptr);
    app->buildEncoderShortcutPageVm(nullptr);
    app->buildDecoderShortcutPageVm(nullptr);
    app->buildConnectAppVm(nullptr);
    app->buildShortcutVM(nullptr);
    app->buildConnectBtVm(nullptr);
    EXPECT_EQ(backend.webRequestTotal(), before) << "a page build sent a request";

    const StandbyPageVM standby = app->buildStandbyPageVm();
    const DynamicScreensaverVM saver = app->buildDynamicScreensaverVm(true);
    EXPECT_EQ(backend.webRequestTotal(), before + 2);
    EXPECT_EQ(backend.webRequestsOf("get_systime_info"), 2);

    EXPECT_EQ(standby.ip_text, "10.1.2.3");
    EXPECT_EQ(app->getStatusPage1Vm().ip_text, "10.1.2.3") << "standby rebuilds status page 1";
    const QRegularExpression date("^\\d{4}-\\d{2}-\\d{2}$");
    const QRegularExpression time("^\\d{2}:\\d{2}:\\d{2}$");
    EXPECT_TRUE(date.match(standby.date_text).hasMatch()) << standby.date_text.toStdString();
    EXPECT_TRUE(time.match(standby.time_text).hasMatch()) << standby.time_text.toStdString();
    EXPECT_TRUE(date.match(saver.date_text).hasMatch()) << saver.date_text.toStdString();
    EXPECT_TRUE(saver.standby);
}

TEST_F(AppManagerBuildTest, FailedClockReadKeepsThePlaceholders)
{
    backend.require("status get_systime_info 1");
    app->workModeProcess(1);
    const StandbyPageVM standby = app->buildStandbyPageVm();
    const DynamicScreensaverVM saver = app->buildDynamicScreensaverVm(false);
    EXPECT_EQ(standby.date_text, "----.--.--");
    EXPECT_EQ(standby.time_text, "--:--:--");
    EXPECT_EQ(standby.ip_text, "---.---.---.---") << "no network report yet";
    EXPECT_EQ(saver.time_text, "--:--:--");
    EXPECT_EQ(saver.work_mode, 1);
    EXPECT_FALSE(saver.standby);
}

TEST_F(AppManagerBuildTest, NetworkUrlsUseTheConfiguredHttpPort)
{
    const int port = backend.at("/network/ports/http").get<int>();
    EXPECT_EQ(app->getHttpPort(), port);
    changeCaches(worker(), [](ZmqSubCache& sub, ZmqGetCache&) {
        sub.network_ready = true;
        sub.ap_switch = true;
        sub.ip = "192.168.7.9";
    });
    const NetworkSettingsPageVM vm = app->buildNetworkSettingsPageVm(nullptr);
    EXPECT_EQ(vm.http_url, buildQrAccessUrl("192.168.7.9", port));
    EXPECT_EQ(vm.ap_http_url, buildQrAccessUrl("170.128.88.1", port));
    EXPECT_FALSE(vm.http_url.isEmpty());

    backend.require("set /network/ports/http 8080.0");
    EXPECT_EQ(app->resolveConfiguredHttpPort(), -1) << "a fractional port is no port";
    backend.require("set /network/ports/http 8080");
    EXPECT_EQ(app->resolveConfiguredHttpPort(), 8080);
}

TEST(AppManagerSignalsTest, SlotsStoreTheValuesAndPassThemOn)
{
    AppManager app(std::unique_ptr<ZmqSubWorker>{});
    QSignalSpy language(&app, &AppManager::systemLanguageChanged);
    QSignalSpy run(&app, &AppManager::runStatusChanged);
    QSignalSpy mode(&app, &AppManager::workModeChanged);
    QSignalSpy progress(&app, &AppManager::upgradeProgressChanged);

    app.systemLanguageProcess(3);
    app.runStatusProcess(0);
    app.workModeProcess(1);
    app.upgradeProgressProcess(42);

    EXPECT_EQ(app.getLanguageID(), 3);
    EXPECT_EQ(app.getRunStatus(), 0);
    EXPECT_EQ(app.getWorkMode(), 1);
    ASSERT_EQ(language.count(), 1);
    EXPECT_EQ(language.at(0).at(0).toInt(), 3);
    ASSERT_EQ(run.count(), 1);
    EXPECT_EQ(run.at(0).at(0).toInt(), 0);
    ASSERT_EQ(mode.count(), 1);
    EXPECT_EQ(mode.at(0).at(0).toInt(), 1);
    ASSERT_EQ(progress.count(), 1);
    EXPECT_EQ(progress.at(0).at(0).toInt(), 42);
}

TEST(AppManagerWithoutBackendTest, BuildsGiveDefaultsAndReportNoChange)
{
    AppManager app(std::unique_ptr<ZmqSubWorker>{});
    app.workModeProcess(1);
    bool changed = true;
    const StatusBarVM bar = app.buildStatusBarVm(&changed);
    EXPECT_FALSE(changed);
    EXPECT_EQ(bar, StatusBarVM());
    EXPECT_TRUE(bar.is_status_page);
    EXPECT_EQ(bar.disk_type, -1);
    changed = true;
    EXPECT_EQ(app.buildNetworkSettingsPageVm(&changed), NetworkSettingsPageVM());
    EXPECT_FALSE(changed);
    changed = true;
    EXPECT_EQ(app.buildShortcutVM(&changed), ShortcutVM()) << "not even the fixed list";
    EXPECT_FALSE(changed);

    EXPECT_FALSE(app.isDataReady());
    EXPECT_EQ(app.getHttpPort(), -1);
    EXPECT_EQ(app.getPresentStorageIdCached(), -1);
    EXPECT_TRUE(app.getVencDataCached().empty());
    EXPECT_FALSE(app.get_lcd_lock_stat());
    EXPECT_EQ(app.getWorker(), nullptr);
    app.setCurrentPageContext(12, -1);

    const StandbyPageVM standby = app.buildStandbyPageVm();
    EXPECT_EQ(standby, StandbyPageVM());
    const DynamicScreensaverVM saver = app.buildDynamicScreensaverVm(true);
    EXPECT_EQ(saver.work_mode, 1) << "the stored work mode";
    EXPECT_TRUE(saver.standby);
    EXPECT_EQ(saver.date_text, "----.--.--");
}

} // namespace
} // namespace modeltest
