#include "control/in_place_controls.h"

#include "control/in_place_control_rules.h"
#include "control/record_button_rules.h"
#include "model/app_manager.h"

InPlaceControls::InPlaceControls(AppManager* app, OperationFeedback& feedback,
                                 AsyncControlRunner& runner, QObject* parent)
    : QObject(parent), app(app), feedback(feedback), runner(runner)
{
}

bool InPlaceControls::run(const ControlAction& action)
{
    using Kind = ControlAction::Kind;
    AppManager* manager = app;
    const auto job = [manager, call = action.call] { return manager ? call(*manager) : -3; };
    switch (action.kind) {
    case Kind::Nothing:
        return false;
    case Kind::Sync:
        if (!app || !action.call)
            return false;
        feedback.showOperationLoading();
        feedback.showOperationResult(action.call(*app));
        return true;
    case Kind::Async:
    case Kind::PushStream: {
        if (!app || !action.call)
            return false;
        const bool started =
            action.kind == Kind::PushStream
                ? runner.startPushStreamSwitch(action.push_index, action.push_target, job)
                : runner.startAsyncControlRequest(
                    job, action.refresh_page,
                    action.text.isEmpty() ? QString() : feedback.text(action.text));
        if (!started)
            emit asyncRequestDropped(action.refresh_page);
        return started;
    }
    case Kind::Warning:
        feedback.showOperationWarning(feedback.text(action.text));
        return true;
    case Kind::FailedCard:
        feedback.showOperationResult(false, feedback.text(action.text));
        return true;
    case Kind::StatusCard:
        feedback.showOperationResult(action.status);
        return true;
    case Kind::ConfirmDialog:
        emit confirmDialogRequested(action.confirm.actionType, action.confirm.returnPage,
                                    action.confirm.returnIndex, action.confirm.param);
        return true;
    }
    return false;
}

void InPlaceControls::dcOutClicked(bool enabled, int voltage)
{
    if (app)
        run(dcOutClickedAction(enabled, voltage));
}

void InPlaceControls::wlanClicked(bool targetEnabled)
{
    if (app)
        run(wlanClickedAction(targetEnabled));
}

void InPlaceControls::apClicked(bool targetEnabled)
{
    if (app)
        run(apClickedAction(targetEnabled));
}

void InPlaceControls::nasClicked(int index, bool isSwitch)
{
    if (app)
        run(nasClickedAction(app->buildNetworkSettingsPageVm(nullptr), index, isSwitch));
}

void InPlaceControls::tallyEnableClicked(bool enabled)
{
    if (app)
        run(tallyEnableClickedAction(enabled));
}

void InPlaceControls::muteOutClicked(bool enabled)
{
    if (app)
        run(muteOutClickedAction(enabled));
}

void InPlaceControls::loopOutClicked(bool enabled)
{
    if (app)
        run(loopOutClickedAction(enabled));
}

void InPlaceControls::aiTrackingClicked(bool enabled)
{
    if (app)
        run(aiTrackingClickedAction(enabled));
}

void InPlaceControls::greenScreenClicked(bool enabled)
{
    if (!app)
        return;
    const VideoSettingsPageVM vm = app->buildVideoSettingsPageVm(nullptr);
    // The picture size matters only when the key is turned on.
    const std::vector<VideoEncInfo> venc =
        enabled ? std::vector<VideoEncInfo>() : app->getVencDataCached();
    run(greenScreenClickedAction(vm, venc, enabled));
}

void InPlaceControls::audioSwClicked(bool isMuted)
{
    if (app)
        run(audioSwClickedAction(isMuted));
}

void InPlaceControls::srtSwitchClicked(bool enabled)
{
    if (app)
        run(srtSwitchClickedAction(enabled));
}

void InPlaceControls::ndiSwitchClicked(bool enabled)
{
    if (app)
        run(ndiSwitchClickedAction(app->buildEncoderShortcutPageVm(nullptr), enabled));
}

void InPlaceControls::rtmpServerClicked(bool enabled)
{
    if (app)
        run(rtmpServerClickedAction(enabled));
}

void InPlaceControls::srtServerClicked(bool enabled)
{
    if (app)
        run(srtServerClickedAction(enabled));
}

void InPlaceControls::srtPlayClicked(bool enabled)
{
    if (app)
        run(srtPlayClickedAction(enabled));
}

void InPlaceControls::pushStreamItemClicked(int index, bool isEnabled)
{
    if (app)
        run(pushStreamItemClickedAction(app->buildMediaSettingsPageVm(nullptr),
                                        app->buildEncoderShortcutPageVm(nullptr), index,
                                        isEnabled));
}

void InPlaceControls::osdItemClicked(int id, bool isEnabled)
{
    if (app)
        run(osdItemClickedAction(app->buildEncoderShortcutPageVm(nullptr), id, isEnabled));
}

void InPlaceControls::pullItemClicked(int id, bool isEnabled)
{
    if (app)
        run(pullItemClickedAction(app->buildDecoderShortcutPageVm(nullptr), id, isEnabled));
}

void InPlaceControls::uvcItemClicked(int id, bool isEnabled)
{
    if (app)
        run(uvcItemClickedAction(app->buildDecoderShortcutPageVm(nullptr), id, isEnabled));
}

void InPlaceControls::ndiItemClicked(int id, bool isEnabled)
{
    if (app)
        run(ndiItemClickedAction(app->buildDecoderShortcutPageVm(nullptr), id, isEnabled));
}

void InPlaceControls::recordClicked()
{
    if (!app)
        return;
    const EncoderShortcutPageVM vm = app->buildEncoderShortcutPageVm(nullptr);
    std::vector<RecordTaskInfo> tasks;
    const bool listed = app->getRecordTaskList(tasks) >= 0;
    AppManager* manager = app;
    run(recordClickedAction(vm, listed ? &tasks : nullptr,
                            [manager](int disk) { return manager->getDiskStatus(disk); }));
}

void InPlaceControls::pauseClicked()
{
    if (app)
        run(pauseClickedAction(app->buildEncoderShortcutPageVm(nullptr)));
}

void InPlaceControls::shortcutKeyClicked(const QString& function)
{
    const ShortcutKey key = shortcutKeyFor(function);
    if (key == ShortcutKey::LockLcd)
        emit lcdLockKeyPressed();
    else
        run(shortcutKeyAction(key));
}
