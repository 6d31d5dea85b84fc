#pragma once
// The window's slow controls: `Widget::startAsyncControlRequest`, its finish
// rules, and the pending push stream wait of the push stream page
// (`pending_push_*`, `finishPendingPushStreamSwitchIfReady`). One job runs at
// a time on the global thread pool; a request that arrives meanwhile is
// dropped without any feedback. The window answers `refreshPageRequested`
// with its `refreshCurrentPageAfterAsyncControl`.
#include "control/operation_feedback.h"
#include "model/view_models/shortcut_view_models.h"

#include <QFutureWatcher>
#include <QObject>
#include <QString>

#include <functional>

class AsyncControlRunner : public QObject {
    Q_OBJECT

public:
    // Pages whose controls run here, as far as the finish rules single them out.
    static constexpr int kNetworkSwitchPage = 10;
    static constexpr int kPushStreamPage = 23;

    // `currentPage` answers the page on screen (the window's get_current_pageid).
    AsyncControlRunner(OperationFeedback& feedback, std::function<int()> currentPage,
                       QObject* parent = nullptr);
    // Waits for a job that still runs, so that it never outlives the model.
    ~AsyncControlRunner() override;

    // Shows the loading card and runs `job` on the global pool. False, with
    // nothing shown, while another job runs. On success the card shows
    // `warningText` instead of the success text when it isn't empty.
    bool startAsyncControlRequest(std::function<int()> job, int refreshPage,
                                  const QString& warningText = QString());
    bool isControlRequestActive() const { return control_request_active; }
    // Blocks until the running job, if any, has ended; its result is then
    // handled at the next turn of the event loop as usual.
    void waitForJob();

    // A push stream switch: remembers which stream should reach which state,
    // so that on its page the result waits for the topic to report it.
    // Forgets it again when the job isn't started.
    bool startPushStreamSwitch(int index, int target, std::function<int()> job);
    int pendingPushIndex() const { return pending_push_index; }
    int pendingPushTarget() const { return pending_push_target; }
    int pendingPushResult() const { return pending_push_result; }
    void clearPendingPushStream();
    // Called with every push stream VM delivered to its page: when the
    // awaited stream has reached its target state, shows the job's result
    // and returns true.
    bool finishPendingPushStreamSwitchIfReady(const EncoderShortcutPageVM& vm);

signals:
    // A job succeeded (or, on the push stream page, is waiting): refresh the
    // page if it is still on screen.
    void refreshPageRequested(int page);
    // A job failed; the network page clears its pending switch mark on it.
    void controlFailed(int page, int status);

private:
    void onControlFinished();

    OperationFeedback& feedback;
    std::function<int()> current_page;
    QFutureWatcher<int>* control_watcher = nullptr;
    bool control_request_active = false;
    int control_refresh_page = -1;
    QString control_warning_text;
    int pending_push_index = -1;
    int pending_push_target = -1;
    int pending_push_result = 0;
};

// Which view model the window rebuilds before it refreshes a page after a
// slow control, so that the model's last-seen value is fresh.
enum class AsyncRefreshModel { None, EncoderShortcut, DecoderShortcut, Decoding };
AsyncRefreshModel asyncRefreshModelForPage(int page);
