#pragma once
// The window's in-place controls (`Widget::connectInPlaceControlSignals` and
// the shortcut keys of `connectShortcutControlSignals`): one slot per page
// signal, each reading the state it needs from the model, deciding with the
// rules of in_place_control_rules.h / record_button_rules.h, and carrying the
// decision out through the feedback card and the slow-job runner. Without a
// model every slot does nothing.
#include "control/async_control_runner.h"
#include "control/control_action.h"
#include "control/operation_feedback.h"

#include <QObject>

class AppManager;

class InPlaceControls : public QObject {
    Q_OBJECT

public:
    InPlaceControls(AppManager* app, OperationFeedback& feedback, AsyncControlRunner& runner,
                    QObject* parent = nullptr);

    // Carries out a decision; true when a call was made or started, or a
    // card or dialog was asked for.
    bool run(const ControlAction& action);

public slots:
    void dcOutClicked(bool enabled, int voltage);
    void wlanClicked(bool targetEnabled);
    void apClicked(bool targetEnabled);
    void nasClicked(int index, bool isSwitch);
    void tallyEnableClicked(bool enabled);
    void muteOutClicked(bool enabled);
    void loopOutClicked(bool enabled);
    void aiTrackingClicked(bool enabled);
    void greenScreenClicked(bool enabled);
    void audioSwClicked(bool isMuted);
    void srtSwitchClicked(bool enabled);
    void ndiSwitchClicked(bool enabled);
    void rtmpServerClicked(bool enabled);
    void srtServerClicked(bool enabled);
    void srtPlayClicked(bool enabled);
    void pushStreamItemClicked(int index, bool isEnabled);
    void osdItemClicked(int id, bool isEnabled);
    void pullItemClicked(int id, bool isEnabled);
    void uvcItemClicked(int id, bool isEnabled);
    void ndiItemClicked(int id, bool isEnabled);
    void recordClicked();
    void pauseClicked();
    // "Standby" and "Restart" open their confirm dialog; "LockLcd" is the
    // window's own (lcdLockKeyPressed); other keys are ignored.
    void shortcutKeyClicked(const QString& function);

signals:
    void confirmDialogRequested(int actionType, int returnPage, int returnIndex, int param);
    // A slow control was dropped because another one runs; the network page
    // clears its pending switch mark on it.
    void asyncRequestDropped(int refreshPage);
    void lcdLockKeyPressed();

private:
    AppManager* app;
    OperationFeedback& feedback;
    AsyncControlRunner& runner;
};
