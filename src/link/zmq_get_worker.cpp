// ZmqGetWorker's loop: what is refreshed at start, each tick, and per page.
#include "link/zmq_get_worker.h"

#include "link/zmq_sub_worker.h"
#include "transport/harvelin_log.h"
#include "transport/systime.h"

#include <exception>

namespace {

constexpr int kEncoderMode = 0;
constexpr int kDecoderMode = 1;
constexpr int kAnyMode = -1;

// Page ids of the main window's page table that fetch more than the
// always-on part of a tick.
enum PageId {
    kPageStatus1 = 0,
    kPageStatus2 = 1,
    kPageStatus3 = 2,
    kPageMainMenu1 = 3,
    kPageSystemSettings1 = 5,
    kPageSystemSettings2 = 6,
    kPageSystemSettings4 = 8,
    kPageNetworkSettings1 = 9,
    kPageNetworkSettings2 = 10,
    kPageNetworkSettings3 = 11,
    kPageCameraSettings1 = 12,
    kPageCameraSettings2 = 13,
    kPageVideoSettings1 = 15,
    kPageVideoSettings2 = 16,
    kPageAudioSettings = 17,
    kPageMediaSettings1 = 18,
    kPageMediaSettings2 = 19,
    kPageDecodingSettings = 20,
    kPageDecoderShortcut1 = 24,
    kPageDecoderShortcut2 = 25,
    kPageDecoderShortcut3 = 26,
    kPageConnectApp = 32,
};

struct PageRefresh {
    int page;
    int mode; // kAnyMode, or the one work mode in which the refresh runs
    ZmqGetWorker::Refresh refresh;
};

// In table order per page.
const PageRefresh kPageRefreshes[] = {
    {kPageStatus1, kAnyMode, &ZmqGetWorker::refreshSystemInfo},
    {kPageStatus2, kAnyMode, &ZmqGetWorker::refreshVideoOutInfo},
    {kPageStatus2, kEncoderMode, &ZmqGetWorker::refreshVideoEncParams},
    {kPageStatus2, kDecoderMode, &ZmqGetWorker::refreshAudioAllInfo},
    {kPageStatus3, kAnyMode, &ZmqGetWorker::refreshAudioAllInfo},
    {kPageMainMenu1, kDecoderMode, &ZmqGetWorker::refreshAudioAllInfo},
    {kPageSystemSettings1, kAnyMode, &ZmqGetWorker::refreshDcOutStatus},
    {kPageSystemSettings2, kAnyMode, &ZmqGetWorker::refreshUsbOtgId},
    {kPageSystemSettings4, kAnyMode, &ZmqGetWorker::refreshSystemInfo},
    {kPageSystemSettings4, kAnyMode, &ZmqGetWorker::refreshDashboardInfo},
    {kPageNetworkSettings1, kAnyMode, &ZmqGetWorker::refreshApInfo},
    {kPageNetworkSettings2, kAnyMode, &ZmqGetWorker::refreshApInfo},
    {kPageNetworkSettings3, kAnyMode, &ZmqGetWorker::refreshNasInfoList},
    {kPageCameraSettings1, kAnyMode, &ZmqGetWorker::refreshPtzctrlInfo},
    {kPageCameraSettings2, kAnyMode, &ZmqGetWorker::refreshTallyInfo},
    {kPageVideoSettings1, kAnyMode, &ZmqGetWorker::refreshVideoOutInfo},
    {kPageVideoSettings2, kEncoderMode, &ZmqGetWorker::refreshVideoEncParams},
    {kPageVideoSettings2, kEncoderMode, &ZmqGetWorker::refreshAiTrackingInfo},
    {kPageVideoSettings2, kEncoderMode, &ZmqGetWorker::refreshGskInfo},
    {kPageAudioSettings, kAnyMode, &ZmqGetWorker::refreshAudioAllInfo},
    {kPageMediaSettings1, kAnyMode, &ZmqGetWorker::refreshEncLocalServerList},
    {kPageMediaSettings2, kAnyMode, &ZmqGetWorker::refreshEncLocalServerList},
    {kPageDecodingSettings, kAnyMode, &ZmqGetWorker::refreshDecSrtServerInfo},
    {kPageDecodingSettings, kAnyMode, &ZmqGetWorker::refreshDecRtmpServerInfo},
    {kPageDecoderShortcut1, kAnyMode, &ZmqGetWorker::refreshDecNetStreamList},
    {kPageDecoderShortcut2, kAnyMode, &ZmqGetWorker::refreshUsbOtgId},
    {kPageDecoderShortcut2, kAnyMode, &ZmqGetWorker::refreshDecUvcList},
    {kPageDecoderShortcut3, kAnyMode, &ZmqGetWorker::refreshDecNdiList},
    {kPageConnectApp, kAnyMode, &ZmqGetWorker::refreshApInfo},
    {kPageConnectApp, kAnyMode, &ZmqGetWorker::refreshAppConnectionStatus},
};

const ZmqGetWorker::Refresh kPreheatCommon[] = {
    &ZmqGetWorker::refreshLcdInfo,       &ZmqGetWorker::refreshVideoOutInfo,
    &ZmqGetWorker::refreshAudioAllInfo,  &ZmqGetWorker::refreshDcOutStatus,
    &ZmqGetWorker::refreshUsbOtgId,      &ZmqGetWorker::refreshSystemInfo,
    &ZmqGetWorker::refreshDashboardInfo, &ZmqGetWorker::refreshApInfo,
    &ZmqGetWorker::refreshNasInfoList,   &ZmqGetWorker::refreshPtzctrlInfo,
    &ZmqGetWorker::refreshTallyInfo,     &ZmqGetWorker::refreshAppConnectionStatus,
};

const ZmqGetWorker::Refresh kPreheatEncoder[] = {
    &ZmqGetWorker::refreshEncNdiInfo,     &ZmqGetWorker::refreshPresentStorage,
    &ZmqGetWorker::refreshVideoEncParams, &ZmqGetWorker::refreshAiTrackingInfo,
    &ZmqGetWorker::refreshGskInfo,        &ZmqGetWorker::refreshEncLocalServerList,
};

const ZmqGetWorker::Refresh kPreheatDecoder[] = {
    &ZmqGetWorker::refreshDecoderInfo,       &ZmqGetWorker::refreshDecSrtServerInfo,
    &ZmqGetWorker::refreshDecRtmpServerInfo, &ZmqGetWorker::refreshDecNetStreamList,
    &ZmqGetWorker::refreshDecUvcList,        &ZmqGetWorker::refreshDecNdiList,
};

} // namespace

ZmqGetWorker::ZmqGetWorker(ZmqGetWorkerModel* app_mgr, ZmqSubWorker* sub_worker, QObject* parent)
    : QObject(parent), app_mgr(app_mgr), sub_worker(sub_worker)
{
}

void ZmqGetWorker::stop()
{
    stop_requested.store(true);
    running.store(false);
}

void ZmqGetWorker::setCurrentPage(int page, int modal)
{
    current_page.store(page);
    current_modal.store(modal);
}

void ZmqGetWorker::process()
{
    if (!app_mgr || !sub_worker) {
        LOG_ERR("ZmqGetWorker: appMgr or subWorker is null\n");
        return;
    }
    running.store(true);
    // A stop that came before the loop began must not be overwritten.
    if (stop_requested.load())
        running.store(false);
    LOG_DB("ZmqGetWorker started\n");
    preheatAll();
    while (running.load()) {
        tickOnce();
        for (int step = 0; step < kTickPauseSteps && running.load(); ++step) {
            delayMS(kTickPauseStepMs);
        }
    }
    LOG_DB("ZmqGetWorker stopped\n");
}

int ZmqGetWorker::preheatWorkMode() const
{
    const ZmqSubCache sub = sub_worker->getSubCache();
    if (sub.system_state_ready)
        return sub.workmode_id;
    return app_mgr ? app_mgr->getWorkMode() : kEncoderMode;
}

void ZmqGetWorker::preheatAll()
{
    if (!sub_worker)
        return;
    const int mode = preheatWorkMode();
    for (Refresh refresh : kPreheatCommon)
        run(refresh);
    if (mode == kEncoderMode) {
        for (Refresh refresh : kPreheatEncoder)
            run(refresh);
    } else if (mode == kDecoderMode) {
        for (Refresh refresh : kPreheatDecoder)
            run(refresh);
    }
}

void ZmqGetWorker::tickOnce()
{
    if (!sub_worker)
        return;
    const int page = current_page.load();
    // Before the first system state the cache's default (encoder) applies.
    const int mode = sub_worker->getSubCache().workmode_id;

    run(&ZmqGetWorker::refreshLcdInfo);
    run(&ZmqGetWorker::refreshEncNdiInfo);
    if (mode == kEncoderMode) {
        run(&ZmqGetWorker::refreshPresentStorage);
    } else if (mode == kDecoderMode) {
        run(&ZmqGetWorker::refreshDecoderInfo);
    }
    for (const PageRefresh& entry : kPageRefreshes) {
        if (entry.page == page && (entry.mode == kAnyMode || entry.mode == mode)) {
            run(entry.refresh);
        }
    }
}

bool ZmqGetWorker::run(Refresh refresh)
{
    // After a stop the rest of a preheat or tick is skipped, so that the
    // loop ends without waiting for its remaining requests.
    if (stop_requested.load())
        return false;
    try {
        return (this->*refresh)();
    } catch (const std::exception& e) {
        LOG_ERR("ZmqGetWorker refresh exception: %s\n", e.what());
        return false;
    }
}
