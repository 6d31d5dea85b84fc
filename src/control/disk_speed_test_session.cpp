#include "control/disk_speed_test_session.h"

#include "model/app_manager.h"

#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>

namespace {

// Disk states in which a measurement means nothing: absent, read-only,
// faulty, unknown file system.
bool diskCannotBeMeasured(int status)
{
    return status == 0 || status == 3 || status == 4 || status == 5;
}

bool isDiskControlPage(int page)
{
    return page == 18 || page == 19 || page == 21;
}

} // namespace

DiskSpeedTestSession::DiskSpeedTestSession(AppManager* app, OperationFeedback& feedback,
                                           std::function<int()> currentPage,
                                           ControlTimeSource& time, QObject* parent)
    : QObject(parent), app(app), feedback(feedback), current_page(std::move(currentPage)),
      disk_speed_watcher(new QFutureWatcher<int>(this)),
      poll_timer(time.createSingleShot([this] { onPollTimeout(); }))
{
    connect(disk_speed_watcher, &QFutureWatcher<int>::finished, this, [this] {
        const int rc = disk_speed_watcher ? disk_speed_watcher->result() : -3;
        finishDiskSpeedTestRequest(rc, disk_speed_disk, disk_speed_generation);
    });
}

DiskSpeedTestSession::~DiskSpeedTestSession()
{
    waitForJob();
}

void DiskSpeedTestSession::waitForJob()
{
    disk_speed_watcher->waitForFinished();
}

void DiskSpeedTestSession::diskSpeedClicked()
{
    if (!app)
        return;
    const MediaSettingsPageVM vm = app->buildMediaSettingsPageVm(nullptr);
    if (vm.record_status == 1 || vm.record_status == 2)
        return;
    const int disk = vm.present_storage_id;
    if (diskCannotBeMeasured(app->getDiskStatus(disk))) {
        feedback.showOperationResult(-6);
        return;
    }
    cancelDiskSpeedTestSession();
    disk_speed_disk = disk;
    disk_speed_present_storage = app->getPresentStorageIdCached();
    disk_speed_requesting = true;
    disk_speed_polling = false;
    disk_speed_session_flag = true;
    feedback.showOperationLoading();
    ++disk_speed_generation;
    startDiskSpeedTestAsync(disk, disk_speed_generation);
}

void DiskSpeedTestSession::startDiskSpeedTestAsync(int disk, int generation)
{
    if (!app || !disk_speed_watcher) {
        finishDiskSpeedTestRequest(-3, disk, generation);
        return;
    }
    AppManager* manager = app;
    disk_speed_watcher->setFuture(QtConcurrent::run(QThreadPool::globalInstance(), [manager, disk] {
        return manager ? manager->setStorageSpeedTest(disk) : -3;
    }));
}

void DiskSpeedTestSession::finishDiskSpeedTestRequest(int rc, int disk, int generation)
{
    if (generation != disk_speed_generation || disk != disk_speed_disk)
        return;
    disk_speed_requesting = false;
    if (rc < 0) {
        disk_speed_polling = false;
        disk_speed_disk = -1;
        disk_speed_present_storage = -1;
        disk_speed_session_flag = false;
        refreshCurrentDiskControlPage();
        feedback.showOperationResult(rc);
        return;
    }
    if (feedback.isOperationInProgress())
        feedback.hideOperationOverlay();
    disk_speed_polling = true;
    disk_speed_session_flag = true;
    feedback.showOperationResult(true, feedback.canTranslate()
                                           ? feedback.text("point_info.disk_speed_started")
                                           : builtInDiskSpeedStartedText());
    pollDiskSpeed(disk, generation);
}

void DiskSpeedTestSession::pollDiskSpeed(int disk, int generation)
{
    if (generation < 0)
        generation = ++disk_speed_generation;
    poll_disk = disk;
    poll_generation = generation;
    poll_timer->start(kPollDelayMs);
}

void DiskSpeedTestSession::onPollTimeout()
{
    const int disk = poll_disk;
    const int generation = poll_generation;
    if (generation != disk_speed_generation)
        return;
    if (!app) {
        cancelDiskSpeedTestSession();
        refreshCurrentDiskControlPage();
        feedback.showOperationResult(false);
        return;
    }
    const float speed = app->getDiskWriteSpeed(disk);
    if (generation != disk_speed_generation)
        return;
    if (speed <= 0.0f) {
        pollDiskSpeed(disk, generation);
        return;
    }
    const int present = app->getPresentStorageIdCached();
    // A number for a disk that is no longer chosen would mislead: no card.
    const bool worthShowing =
        disk_speed_polling && present == disk_speed_present_storage && present == disk;
    cancelDiskSpeedTestSession();
    refreshCurrentDiskControlPage();
    if (worthShowing)
        showSpeedCard(speed);
}

void DiskSpeedTestSession::showSpeedCard(float speed)
{
    feedback.showOperationResult(true, QStringLiteral("%1 MB/s").arg(speed, 0, 'f', 2));
    if (feedback.overlay())
        feedback.overlay()->stopAutoHide();
    feedback.armMinimumDisplay(kResultGateMs);
}

void DiskSpeedTestSession::cancelDiskSpeedTestSession()
{
    invalidateDiskSpeedPoll();
    disk_speed_requesting = false;
    disk_speed_polling = false;
    disk_speed_session_flag = false;
    disk_speed_disk = -1;
    disk_speed_present_storage = -1;
}

void DiskSpeedTestSession::refreshCurrentDiskControlPage()
{
    const int page = current_page ? current_page() : -1;
    if (isDiskControlPage(page))
        emit pageRefreshRequested(page);
}

void DiskSpeedTestSession::onPageSwitched()
{
    if (!isDiskSpeedTestActive())
        invalidateDiskSpeedPoll();
}
