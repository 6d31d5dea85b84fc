#include "control/modal_flows.h"

#include "model/app_manager.h"
#include "transport/harvelin_log.h"

ModalFlows::ModalFlows(AppManager* app, OperationFeedback& feedback, std::function<int()> workMode,
                       QObject* parent)
    : QObject(parent), app(app), feedback(feedback), work_mode(std::move(workMode))
{
}

int ModalFlows::enterEditMode(int editType, int returnPage, int actualIndex)
{
    modal_return_page = returnPage;
    modal_return_arg = 0;
    edit_vm = {editType, returnPage, actualIndex, 0, work_mode ? work_mode() : 0};
    return MODAL_PAGE_EDIT;
}

int ModalFlows::enterSliderMode(int sliderType, int returnPage, int value)
{
    modal_return_page = returnPage;
    modal_return_arg = 0;
    slider_vm = {sliderType, returnPage, value};
    return MODAL_PAGE_SLIDER;
}

int ModalFlows::enterConfirmDialog(int actionType, int returnPage, int returnIndex, int param)
{
    modal_return_page = returnPage;
    modal_return_arg = returnIndex;
    confirm_vm = {actionType, returnPage, returnIndex, param};
    return MODAL_PAGE_CONFIRM;
}

EditConfirmContext ModalFlows::contextFor(int editType) const
{
    EditConfirmContext c;
    c.work_mode = work_mode ? work_mode() : 0;
    switch (editType) {
    case EDIT_USB_MODE:
        c.system = app->buildSystemSettingsPageVm(nullptr);
        break;
    case EDIT_PTZ_PROTOCOL:
    case EDIT_TALLY_MODE:
    case EDIT_TALLY_LIGHT:
        c.camera = app->buildCameraSettingsPageVm(nullptr);
        break;
    case EDIT_VIDEO_OUT_FORMAT:
        c.video_out_format = app->buildVideoSettingsPageVm(nullptr).out_format;
        c.selected_option = edit_page.current_option ? edit_page.current_option() : QString();
        break;
    case EDIT_AUDIO_SOURCE:
        c.audio = app->buildAudioSettingsPageVm(nullptr);
        break;
    case EDIT_RECORD_DISK: {
        c.selected_storage_id = edit_page.current_storage_id ? edit_page.current_storage_id() : -1;
        c.present_storage_id = app->getPresentStorageIdCached();
        AppManager* manager = app;
        c.disk_status = [manager](int id) { return manager->getDiskStatus(id); };
        break;
    }
    default:
        break;
    }
    return c;
}

int ModalFlows::runWithLoading(const AppCall& call)
{
    feedback.showOperationLoading();
    return call(*app);
}

void ModalFlows::onEditModeConfirmed(int editType, int index)
{
    if (!app)
        return;
    const EditConfirmPlan plan = planEditConfirm(editType, index, contextFor(editType));
    switch (plan.kind) {
    case EditConfirmPlan::Kind::NoOp:
        return;
    case EditConfirmPlan::Kind::Unknown:
        LOG_WAR("Unknown edit type: %d\n", editType);
        return;
    case EditConfirmPlan::Kind::Card:
        if (plan.card.kind == ControlAction::Kind::StatusCard)
            feedback.showOperationResult(plan.card.status);
        else
            feedback.showOperationResult(false, feedback.text(plan.card.text));
        return;
    case EditConfirmPlan::Kind::Call:
        break;
    }
    const int rc = runWithLoading(plan.call);
    if (rc >= 0) {
        if (plan.follow_up == EditConfirmPlan::FollowUp::SwitchLanguage)
            emit languageSwitched(index);
        else if (plan.follow_up == EditConfirmPlan::FollowUp::ApplyTheme)
            emit themeSwitched(index);
        edit_vm.actualIndex = index;
        emit editValueAccepted(index);
    }
    feedback.showOperationResult(rc);
}

void ModalFlows::onSliderModeConfirmed(int sliderType, int value)
{
    if (!app)
        return;
    switch (sliderType) {
    case SLIDER_LCD_BRIGHTNESS: {
        const bool locked = app->buildCameraSettingsPageVm(nullptr).lcd_lock_on;
        feedback.showOperationResult(runWithLoading(
            [locked, value](AppManager& a) { return a.setLcdInfo(locked ? 1 : 0, value); }));
        return;
    }
    case SLIDER_LCD_SLEEP: {
        const int shown = shownLcdSleepMinutes(app->buildCameraSettingsPageVm(nullptr).lcd_sleep);
        if (value == shown)
            return;
        // Selector 3 writes the sleep time alone.
        const int rc =
            runWithLoading([value](AppManager& a) { return a.setLcdInfo(0, 0, 0, value, 3); });
        feedback.showOperationResult(rc);
        if (rc >= 0)
            emit lcdSleepChanged();
        return;
    }
    case SLIDER_ENC_AUDIO_VOLUME:
        feedback.showOperationResult(
            runWithLoading([value](AppManager& a) { return a.setAudioEncVolume(value); }));
        return;
    case SLIDER_OUT_AUDIO_VOLUME:
        feedback.showOperationResult(
            runWithLoading([value](AppManager& a) { return a.setAudioOutVolume(value); }));
        return;
    default:
        LOG_DB("onSliderModeConfirmed: Unknown slider type: %d\n", sliderType);
    }
}

void ModalFlows::onConfirmDialogConfirmed(int actionType)
{
    if (!app)
        return;
    switch (actionType) {
    case CONFIRM_REBOOT:
    case CONFIRM_RESET:
        // No result: the card stands until the device goes down.
        emit modalStateClearRequested();
        runWithLoading([actionType](AppManager& a) {
            return actionType == CONFIRM_REBOOT ? a.setReboot() : a.setReset();
        });
        return;
    case CONFIRM_STANDBY: {
        const int rc = runWithLoading([](AppManager& a) { return a.setStandby(); });
        feedback.showOperationResult(rc);
        if (rc >= 0) {
            const StandbyPageVM vm = app->buildStandbyPageVm();
            emit modalStateClearRequested();
            emit standbyEntered(vm);
        }
        return;
    }
    case CONFIRM_DC_OUT:
        emit modalStateClearRequested();
        feedback.showOperationResult(
            runWithLoading([](AppManager& a) { return a.setDcOutSwitch(1); }));
        return;
    default:
        LOG_DB("onConfirmDialogConfirmed: Unknown action type: %d\n", actionType);
    }
}
