#pragma once
// The window's disk speed test (`disk_speed_*` members,
// `startDiskSpeedTestAsync`, `finishDiskSpeedTestRequest`, `pollDiskSpeed`,
// `invalidateDiskSpeedPoll`, `cancelDiskSpeedTestSession`,
// `isDiskSpeedTestActive`, `refreshCurrentDiskControlPage`, and the media
// page's `diskSpeedClicked`). The start request runs on the global pool;
// the backend then measures, and the session polls the measured speed every
// three seconds until it arrives. Every increment of the generation makes
// whatever is still outstanding stale, so nothing has to be cancelled: a
// late result or poll simply finds itself outdated and does nothing.
#include "control/control_time.h"
#include "control/operation_feedback.h"

#include <QFutureWatcher>
#include <QObject>

#include <functional>
#include <memory>

class AppManager;

class DiskSpeedTestSession : public QObject {
    Q_OBJECT

public:
    static constexpr int kPollDelayMs = 3000;
    // The speed card can't be touched away during its first five seconds.
    static constexpr int kResultGateMs = 5000;

    DiskSpeedTestSession(AppManager* app, OperationFeedback& feedback,
                         std::function<int()> currentPage,
                         ControlTimeSource& time = systemTimeSource(), QObject* parent = nullptr);
    ~DiskSpeedTestSession() override;

    // The speed button of the media page.
    void diskSpeedClicked();

    void startDiskSpeedTestAsync(int disk, int generation);
    void finishDiskSpeedTestRequest(int rc, int disk, int generation);
    // A negative generation takes a fresh one.
    void pollDiskSpeed(int disk, int generation);
    void invalidateDiskSpeedPoll() { ++disk_speed_generation; }
    void cancelDiskSpeedTestSession();
    bool isDiskSpeedTestActive() const { return disk_speed_requesting || disk_speed_polling; }
    void refreshCurrentDiskControlPage();
    // The window's page switch: an idle session's leftovers become stale; a
    // running test survives navigation.
    void onPageSwitched();

    // Forced into the VMs of the disk pages as `disk_speed_testing`.
    bool sessionFlag() const { return disk_speed_session_flag; }
    int generation() const { return disk_speed_generation; }
    int disk() const { return disk_speed_disk; }
    // Blocks until the start request, if any, has ended.
    void waitForJob();

signals:
    // The disk page on screen (18, 19 or 21) should be redrawn.
    void pageRefreshRequested(int page);

private:
    void onPollTimeout();
    void showSpeedCard(float speed);

    AppManager* app;
    OperationFeedback& feedback;
    std::function<int()> current_page;
    QFutureWatcher<int>* disk_speed_watcher = nullptr;
    std::unique_ptr<ControlTimer> poll_timer;
    int poll_disk = -1;
    int poll_generation = -1;

    bool disk_speed_requesting = false;
    bool disk_speed_polling = false;
    int disk_speed_disk = -1;
    int disk_speed_present_storage = -1;
    bool disk_speed_session_flag = false;
    int disk_speed_generation = 0;
};
