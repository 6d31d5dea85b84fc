// AppManager with its full link (topic worker and poller on their threads)
// against the device simulator: it becomes ready, its view models show the
// device, changes come through, the page context steers the poller, and it
// stops within its waits.
#include "link/zmq_get_cache.h"
#include "link/zmq_get_worker.h"
#include "support/sim/sim_fixture.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include <chrono>

namespace modeltest {
namespace {

using std::chrono::milliseconds;
using testsupport::waitUntil;

class AppManagerSimTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        app = std::make_unique<AppManager>(backend.endpoints());
        ASSERT_NE(app->getWorker(), nullptr);
    }

    void control(const std::string& line) { backend.require(line); }

    // Builds until `accept` holds; whether any build on the way said `changed`.
    template <class VM, class Accept>
    bool buildUntil(VM (AppManager::*build)(bool*), Accept accept, bool* saw_change = nullptr)
    {
        return waitUntil([&] {
            bool changed = false;
            const VM vm = (app.get()->*build)(&changed);
            if (saw_change)
                *saw_change = *saw_change || changed;
            return accept(vm);
        });
    }

    testsupport::SimFixture backend;
    std::unique_ptr<AppManager> app;
};

TEST_F(AppManagerSimTest, BecomesReadyAndShowsTheDevice)
{
    ASSERT_TRUE(waitUntil([&] { return app->isDataReady(); }));
    EXPECT_EQ(app->getHttpPort(), backend.at("/network/ports/http").get<int>());

    const QString device_name =
        QString::fromStdString(backend.at("/system/version/device_name").get<std::string>());
    ASSERT_TRUE(buildUntil(&AppManager::buildStatusPage1Vm, [&](const StatusPage1VM& vm) {
        return vm.device_name == device_name;
    })) << "the poller's start-up reads fill the system info";
    const StatusPage1VM page1 = app->getStatusPage1Vm();
    const ZmqSubCache sub = app->subWorker()->getSubCache();
    EXPECT_TRUE(page1.eth_link);
    EXPECT_EQ(page1.ip_text.toStdString(), sub.ip);
    EXPECT_NE(page1.ip_text, "---.---.---.---");
    EXPECT_EQ(page1.cpu_temp_c, sub.cpu_temp);
    EXPECT_GT(page1.cpu_temp_c, 0);

    const int present = backend.at("/storage/present_storage_id").get<int>();
    ASSERT_TRUE(buildUntil(&AppManager::buildStatusBarVm,
                           [&](const StatusBarVM& vm) { return vm.disk_type == present; }));
    const StatusBarVM bar = app->getStatusBarVm();
    EXPECT_EQ(bar.work_mode, 0);
    EXPECT_TRUE(bar.eth_link);
    EXPECT_TRUE(bar.tf_present);
    EXPECT_GT(bar.disk_icon_level, 0);

    const QString out_format =
        QString::fromStdString(backend.at("/video/output/format").get<std::string>());
    EXPECT_TRUE(buildUntil(&AppManager::buildStatusPage2Vm, [&](const StatusPage2VM& vm) {
        return vm.out_format == out_format && vm.in_width > 0;
    }));
}

TEST_F(AppManagerSimTest, ChangesOnTheDeviceReachTheRebuiltModels)
{
    ASSERT_TRUE(waitUntil([&] { return app->isDataReady(); }));
    ASSERT_TRUE(buildUntil(&AppManager::buildStatusBarVm,
                           [](const StatusBarVM& vm) { return !vm.lcd_locked; }));

    // Through the model's own operation: the poller reads the LCD every tick.
    ASSERT_EQ(app->setLcdInfo(1, backend.at("/lcd/lcd_bright").get<int>()), 0);
    bool saw_change = false;
    EXPECT_TRUE(buildUntil(
        &AppManager::buildStatusBarVm, [](const StatusBarVM& vm) { return vm.lcd_locked; },
        &saw_change));
    EXPECT_TRUE(saw_change);
    EXPECT_TRUE(app->get_lcd_lock_stat());

    // Through the device: the system state topic carries the work mode.
    QSignalSpy mode_changes(app.get(), &AppManager::workModeChanged);
    control("workmode 1");
    ASSERT_TRUE(waitUntil([&] { return app->getWorkMode() == 1; }));
    EXPECT_GE(mode_changes.count(), 1);
    EXPECT_EQ(mode_changes.last().at(0).toInt(), 1);
    EXPECT_TRUE(buildUntil(&AppManager::buildStatusBarVm, [](const StatusBarVM& vm) {
        return vm.work_mode == 1 && vm.disk_type == -1;
    }));
}

TEST_F(AppManagerSimTest, PageContextDecidesWhatThePollerFetches)
{
    ASSERT_TRUE(waitUntil([&] { return app->subWorker()->getGetCache().ptz_valid; }))
        << "the start-up reads include the PTZ settings";

    app->setCurrentPageContext(12, 27);
    EXPECT_EQ(app->getWorker()->currentPage(), 12);
    EXPECT_EQ(app->getWorker()->currentModal(), 27);
    control("set /ptz/protocol 7");
    EXPECT_TRUE(buildUntil(&AppManager::buildCameraSettingsPageVm,
                           [](const CameraSettingsPageVM& vm) { return vm.ptz_protocol == 7; }))
        << "the camera page fetches the PTZ settings";

    // Once a tick that began after the switch is over, no more PTZ reads.
    app->setCurrentPageContext(0, -1);
    const int ticks = backend.webRequestsOf("get_lcd_info");
    ASSERT_TRUE(waitUntil([&] { return backend.webRequestsOf("get_lcd_info") >= ticks + 2; }));
    const int ptz_reads = backend.webRequestsOf("get_client_info");
    ASSERT_TRUE(waitUntil([&] { return backend.webRequestsOf("get_lcd_info") >= ticks + 4; }));
    EXPECT_EQ(backend.webRequestsOf("get_client_info"), ptz_reads);
}

TEST_F(AppManagerSimTest, StopsWithinTheQuitWait)
{
    ASSERT_TRUE(waitUntil([&] { return app->getWorker()->isRunning(); }));
    const auto start = std::chrono::steady_clock::now();
    app.reset();
    // Both loops end on their stop flags; hitting the 3000 ms wait would
    // mean a thread had to be terminated.
    EXPECT_LT(std::chrono::steady_clock::now() - start, milliseconds(3000));
}

} // namespace
} // namespace modeltest
