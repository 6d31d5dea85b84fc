#include "control/async_control_runner.h"

#include <QThreadPool>
#include <QtConcurrent/QtConcurrentRun>

AsyncControlRunner::AsyncControlRunner(OperationFeedback& feedback,
                                       std::function<int()> currentPage, QObject* parent)
    : QObject(parent), feedback(feedback), current_page(std::move(currentPage)),
      control_watcher(new QFutureWatcher<int>(this))
{
    connect(control_watcher, &QFutureWatcher<int>::finished, this,
            &AsyncControlRunner::onControlFinished);
}

AsyncControlRunner::~AsyncControlRunner()
{
    waitForJob();
}

void AsyncControlRunner::waitForJob()
{
    if (control_watcher)
        control_watcher->waitForFinished();
}

bool AsyncControlRunner::startAsyncControlRequest(std::function<int()> job, int refreshPage,
                                                  const QString& warningText)
{
    if (!control_watcher || control_request_active || control_watcher->isRunning())
        return false;
    // Taken before the card is painted: painting runs the event loop, and a
    // click queued behind this one must find the runner busy.
    control_refresh_page = refreshPage;
    control_request_active = true;
    control_warning_text = warningText;
    feedback.showOperationLoading();
    control_watcher->setFuture(
        QtConcurrent::run(QThreadPool::globalInstance(), [job = std::move(job)] { return job(); }));
    return true;
}

void AsyncControlRunner::onControlFinished()
{
    const int rc = control_watcher ? control_watcher->result() : -3;
    const QString warning = control_warning_text;
    const int page = control_refresh_page;
    control_warning_text.clear();
    control_refresh_page = -1;
    control_request_active = false;

    const int onScreen = current_page ? current_page() : -1;
    if (page == kPushStreamPage && rc >= 0 && pending_push_index >= 0
        && onScreen == kPushStreamPage) {
        // The card stays until the stream topic shows the new state.
        pending_push_result = rc;
        emit refreshPageRequested(kPushStreamPage);
        return;
    }
    // Off its page the result shows at once, and the wait is over either way.
    if (page == kPushStreamPage)
        clearPendingPushStream();
    if (rc < 0)
        emit controlFailed(page, rc);
    if (rc >= 0 && !warning.isEmpty())
        feedback.showOperationWarning(warning);
    else
        feedback.showOperationResult(rc);
    if (rc >= 0)
        emit refreshPageRequested(page);
}

bool AsyncControlRunner::startPushStreamSwitch(int index, int target, std::function<int()> job)
{
    // A tap while a job runs must not disturb the wait of the running one.
    if (control_request_active)
        return false;
    pending_push_index = index;
    pending_push_target = target;
    pending_push_result = 0;
    if (startAsyncControlRequest(std::move(job), kPushStreamPage))
        return true;
    clearPendingPushStream();
    return false;
}

void AsyncControlRunner::clearPendingPushStream()
{
    pending_push_index = -1;
    pending_push_target = -1;
    pending_push_result = 0;
}

bool AsyncControlRunner::finishPendingPushStreamSwitchIfReady(const EncoderShortcutPageVM& vm)
{
    if (pending_push_index < 0 || pending_push_target < 0)
        return false;
    for (const PushStreamItemInfo& item : vm.push_streams) {
        if (item.index != pending_push_index)
            continue;
        if (static_cast<int>(item.switch_on) != pending_push_target)
            return false;
        const int result = pending_push_result;
        clearPendingPushStream();
        feedback.showOperationResult(result);
        return true;
    }
    return false;
}

AsyncRefreshModel asyncRefreshModelForPage(int page)
{
    if (page >= 24 && page <= 26)
        return AsyncRefreshModel::DecoderShortcut;
    if (page >= 21 && page <= 23)
        return AsyncRefreshModel::EncoderShortcut;
    if (page == 20)
        return AsyncRefreshModel::Decoding;
    return AsyncRefreshModel::None;
}
