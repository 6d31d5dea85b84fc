#include "control/ndi_search_session.h"

#include "model/app_manager.h"

#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>

NdiSearchSession::NdiSearchSession(AppManager* app, OperationFeedback& feedback,
                                   std::function<int()> currentPage, QObject* parent)
    : QObject(parent), app(app), feedback(feedback), current_page(std::move(currentPage)),
      ndi_find_watcher(new QFutureWatcher<int>(this))
{
    connect(ndi_find_watcher, &QFutureWatcher<int>::finished, this,
            [this] { finishDecNdiFind(ndi_find_watcher ? ndi_find_watcher->result() : -3); });
}

NdiSearchSession::~NdiSearchSession()
{
    waitForJob();
}

void NdiSearchSession::waitForJob()
{
    ndi_find_watcher->waitForFinished();
}

void NdiSearchSession::onPageShown(int page, int previousPage)
{
    if (page == kNdiSourcePage && previousPage != kNdiSourcePage)
        startDecNdiFindAsync();
}

void NdiSearchSession::startDecNdiFindAsync()
{
    if (!app || !ndi_find_watcher || ndi_find_running || ndi_find_watcher->isRunning())
        return;
    feedback.clearMinimumDisplay();
    feedback.showOperationResult(true, feedback.text("point_info.ndi_search_started"));
    ndi_find_running = true;
    AppManager* manager = app;
    ndi_find_watcher->setFuture(QtConcurrent::run(
        QThreadPool::globalInstance(), [manager] { return manager ? manager->findDecNdi() : -3; }));
}

void NdiSearchSession::finishDecNdiFind(int rc)
{
    ndi_find_running = false;
    // -3 (no answer) counts as a plain end: the list shows what was found.
    if (rc < 0 && rc != -3) {
        feedback.showOperationResult(rc);
        return;
    }
    if (current_page && current_page() == kNdiSourcePage)
        emit pageRefreshRequested(kNdiSourcePage);
    feedback.clearMinimumDisplay();
    feedback.showOperationResult(true, feedback.text("point_info.ndi_search_finished"));
    if (feedback.overlay())
        feedback.overlay()->startAutoHide(kFinishedCardMs);
}
