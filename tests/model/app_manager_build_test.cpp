// AppManager's view-model layer on a bare worker against the simulator: each
// build compares with and replaces the stored record, builds read the caches
// and never the backend, and the manager's own held values and questions.
#include "device_caches.h"
#include "support/sim/sim_fixture.h"

#include <QRegularExpression>
#include <QSignalSpy>

namespace modeltest {
namespace {

void setCaches(ZmqSubWorker& worker, const Caches& c)
{
    worker.updateSubCache([&](ZmqSubCache& sub) { sub = c.sub; });
    worker.updateGetCache([&](ZmqGetCache& get) { get = c.get; });
}

class AppManagerBuildTest : public ::testing::Test {
protected:
    ZmqSubWorker& worker() { return *app->subWorker(); }

    // From cleared caches a second build is quiet and get returns the stored
    // record; once the device reports, the build differs and says so, and
    // the next one is quiet again.
    template <class VM>
    void expectBuildPattern(VM (AppManager::*build)(bool*), VM (AppManager::*get)() const)
    {
        AppManager& a = *app;
        setCaches(worker(), Caches());
        const VM before = (a.*build)(nullptr);
        bool changed = true;
        EXPECT_EQ((a.*build)(&changed), before);
        EXPECT_FALSE(changed) << "an unchanged rebuild";
        EXPECT_EQ((a.*get)(), before);

        setCaches(worker(), reportedCaches());
        const VM after = (a.*build)(&changed);
        EXPECT_TRUE(changed) << "a build after the device reported";
        EXPECT_NE(after, before);
        EXPECT_EQ((a.*get)(), after);
        (a.*build)(&changed);
        EXPECT_FALSE(changed) << "the change was delivered";
    }

    testsupport::SimFixture backend;
    std::unique_ptr<AppManager> app = backend.bareAppManager();
};

TEST_F(AppManagerBuildTest, EveryBuildReportsOnlyRealChangesAndAsksNoBackend)
{
    app->workModeProcess(kDecoder);
    const int requests = backend.webRequestTotal();
    using A = AppManager;
    expectBuildPattern(&A::buildStatusBarVm, &A::getStatusBarVm);
    expectBuildPattern(&A::buildStatusPage1Vm, &A::getStatusPage1Vm);
    expectBuildPattern(&A::buildStatusPage2Vm, &A::getStatusPage2Vm);
    expectBuildPattern(&A::buildStatusPage3Vm, &A::getStatusPage3Vm);
    expectBuildPattern(&A::buildSystemSettingsPageVm, &A::getSystemSettingsPageVm);
    expectBuildPattern(&A::buildNetworkSettingsPageVm, &A::getNetworkSettingsPageVm);
    expectBuildPattern(&A::buildCameraSettingsPageVm, &A::getCameraSettingsPageVm);
    expectBuildPattern(&A::buildVideoSettingsPageVm, &A::getVideoSettingsPageVm);
    expectBuildPattern(&A::buildAudioSettingsPageVm, &A::getAudioSettingsPageVm);
    expectBuildPattern(&A::buildMediaSettingsPageVm, &A::getMediaSettingsPageVm);
    expectBuildPattern(&A::buildDecodingSettingsPageVm, &A::getDecodingSettingsPageVm);
    expectBuildPattern(&A::buildEncoderShortcutPageVm, &A::getEncoderShortcutPageVm);
    expectBuildPattern(&A::buildDecoderShortcutPageVm, &A::getDecoderShortcutPageVm);
    expectBuildPattern(&A::buildConnectAppVm, &A::getConnectAppVm);

    // The quick action list is fixed: it changes with the first build only.
    bool changed = false;
    const ShortcutVM shortcuts = app->buildShortcutVM(&changed);
    EXPECT_TRUE(changed);
    EXPECT_EQ(shortcuts.config["list"].size(), 3u);
    app->buildShortcutVM(&changed);
    EXPECT_FALSE(changed);
    EXPECT_EQ(app->getShortcutVm(), shortcuts);
    changed = true;
    app->buildConnectBtVm(&changed);
    EXPECT_FALSE(changed) << "nothing fills the pairing record";

    EXPECT_EQ(backend.webRequestTotal(), requests) << "a build sent a request";
    EXPECT_EQ(app->getWorkMode(), kDecoder) << "a build does not change the stored mode";
}

TEST_F(AppManagerBuildTest, StoredWorkModeAppliesUntilTheSystemTopicReports)
{
    Caches c = reportedCaches();
    c.sub.system_state_ready = false;
    setCaches(worker(), c);
    app->workModeProcess(kDecoder);
    EXPECT_EQ(app->buildStatusBarVm(nullptr).disk_type, -1) << "no record disk in decode mode";
    app->workModeProcess(kEncoder);
    EXPECT_EQ(app->buildStatusBarVm(nullptr).disk_type, c.get.present_storage_id);
}

// The first paint waits for the system, network, video input, CPU and
// storage topics, and for no other.
TEST_F(AppManagerBuildTest, DataIsReadyOnceTheFiveFirstPaintTopicsReported)
{
    bool ZmqSubCache::*const needed[] = {
        &ZmqSubCache::system_state_ready, &ZmqSubCache::network_ready,
        &ZmqSubCache::video_input_ready, &ZmqSubCache::cpu_memory_ready,
        &ZmqSubCache::storage_ready};
    for (bool ZmqSubCache::*missing : needed) {
        Caches c = reportedCaches();
        c.sub.*missing = false;
        setCaches(worker(), c);
        EXPECT_FALSE(app->isDataReady());
    }
    Caches c = reportedCaches();
    c.sub.record_ready = c.sub.net_stream_ready = c.sub.osd_ready = false;
    setCaches(worker(), c);
    EXPECT_TRUE(app->isDataReady());
}

TEST_F(AppManagerBuildTest, CachedQuestionsHonourTheirFlags)
{
    setCaches(worker(), unreportedCaches());
    EXPECT_EQ(app->getPresentStorageIdCached(), -1);
    EXPECT_TRUE(app->getVencDataCached().empty());
    EXPECT_FALSE(app->get_lcd_lock_stat());

    const Caches c = reportedCaches();
    setCaches(worker(), c);
    EXPECT_EQ(app->getPresentStorageIdCached(), c.get.present_storage_id);
    EXPECT_EQ(app->getVencDataCached(), c.get.venc_list);
    EXPECT_TRUE(app->get_lcd_lock_stat());
}

// Standby and screensaver read the backend clock, once each.
TEST_F(AppManagerBuildTest, StandbyAndScreensaverShowTheBackendClock)
{
    const Caches c = reportedCaches();
    setCaches(worker(), c);
    const int reads = backend.webRequestsOf("get_systime_info");
    const StandbyPageVM standby = app->buildStandbyPageVm();
    const DynamicScreensaverVM saver = app->buildDynamicScreensaverVm(true);
    EXPECT_EQ(backend.webRequestsOf("get_systime_info"), reads + 2);
    EXPECT_EQ(standby.ip_text.toStdString(), c.sub.ip);
    EXPECT_EQ(app->getStatusPage1Vm().ip_text, standby.ip_text) << "standby rebuilds page 1";
    const QRegularExpression date("^\\d{4}-\\d{2}-\\d{2}$");
    EXPECT_TRUE(date.match(standby.date_text).hasMatch()) << standby.date_text.toStdString();
    EXPECT_TRUE(date.match(saver.date_text).hasMatch()) << saver.date_text.toStdString();

    backend.require("status get_systime_info 1");
    app->workModeProcess(kDecoder);
    setCaches(worker(), Caches());
    EXPECT_EQ(app->buildStandbyPageVm(),
              (StandbyPageVM{"----.--.--", "--:--:--", "---.---.---.---"}));
    EXPECT_EQ(app->buildDynamicScreensaverVm(false),
              (DynamicScreensaverVM{"----.--.--", "--:--:--", kDecoder, false}));
}

TEST_F(AppManagerBuildTest, UrlsUseTheConfiguredHttpPort)
{
    const int port = backend.at("/network/ports/http").get<int>();
    EXPECT_EQ(app->getHttpPort(), port);
    const Caches c = reportedCaches();
    setCaches(worker(), c);
    EXPECT_EQ(app->buildNetworkSettingsPageVm(nullptr).http_url,
              buildQrAccessUrl(QString::fromStdString(c.sub.ip), port));
    backend.require("set /network/ports/http 8081");
    EXPECT_EQ(app->resolveConfiguredHttpPort(), 8081);
}

TEST(AppManagerWithoutBackend, HoldsTheSignalledStateAndBuildsDefaults)
{
    AppManager app(std::unique_ptr<ZmqSubWorker>{});
    QSignalSpy mode(&app, &AppManager::workModeChanged);
    app.systemLanguageProcess(3);
    app.runStatusProcess(0);
    app.workModeProcess(1);
    EXPECT_EQ(std::make_tuple(app.getLanguageID(), app.getRunStatus(), app.getWorkMode()),
              std::make_tuple(3, 0, 1));
    EXPECT_EQ(mode.count(), 1);

    bool changed = true;
    EXPECT_EQ(app.buildStatusBarVm(&changed), StatusBarVM());
    EXPECT_FALSE(changed);
    changed = true;
    EXPECT_EQ(app.buildShortcutVM(&changed), ShortcutVM()) << "not even the fixed list";
    EXPECT_FALSE(changed);
    EXPECT_FALSE(app.isDataReady());
    EXPECT_EQ(app.getHttpPort(), -1);
    EXPECT_EQ(app.getPresentStorageIdCached(), -1);
    EXPECT_FALSE(app.get_lcd_lock_stat());
    EXPECT_EQ(app.buildStandbyPageVm(), StandbyPageVM());
    EXPECT_EQ(app.buildDynamicScreensaverVm(true),
              (DynamicScreensaverVM{"----.--.--", "--:--:--", 1, true}))
        << "the stored work mode";
}

} // namespace
} // namespace modeltest
