#pragma once
// The window's NDI source search (`ndi_find_running`, `startDecNdiFindAsync`,
// `finishDecNdiFind`): started when the NDI source page comes on screen,
// run on the global pool, reported by the operation card.
#include "control/operation_feedback.h"

#include <QFutureWatcher>
#include <QObject>

#include <functional>

class AppManager;

class NdiSearchSession : public QObject {
    Q_OBJECT

public:
    static constexpr int kNdiSourcePage = 26;
    static constexpr int kFinishedCardMs = 2000;

    NdiSearchSession(AppManager* app, OperationFeedback& feedback, std::function<int()> currentPage,
                     QObject* parent = nullptr);
    ~NdiSearchSession() override;

    // The window's goto_page: a search starts only when the NDI page comes
    // on screen, not when it is shown again.
    void onPageShown(int page, int previousPage);
    void startDecNdiFindAsync();
    void finishDecNdiFind(int rc);
    bool isRunning() const { return ndi_find_running; }
    void waitForJob();

signals:
    void pageRefreshRequested(int page);

private:
    AppManager* app;
    OperationFeedback& feedback;
    std::function<int()> current_page;
    QFutureWatcher<int>* ndi_find_watcher = nullptr;
    bool ndi_find_running = false;
};
