#include "control/edit_confirm_plan.h"

#include "control/modal_openings.h"
#include "control/record_button_rules.h"
#include "model/app_manager.h"

namespace {

constexpr int kThemeCount = 2;

EditConfirmPlan noOp()
{
    return {};
}

EditConfirmPlan call(AppCall call, EditConfirmPlan::FollowUp followUp = {})
{
    EditConfirmPlan plan;
    plan.kind = EditConfirmPlan::Kind::Call;
    plan.call = std::move(call);
    plan.follow_up = followUp;
    return plan;
}

EditConfirmPlan card(ControlAction action)
{
    EditConfirmPlan plan;
    plan.kind = EditConfirmPlan::Kind::Card;
    plan.card = std::move(action);
    return plan;
}

EditConfirmPlan recordDiskPlan(const EditConfirmContext& c)
{
    const int id = c.selected_storage_id;
    if (id < 0 || id == c.present_storage_id)
        return noOp();
    const int status = c.disk_status ? c.disk_status(id) : -1;
    if (status != kDiskReady)
        return card(diskStatusCardAction(status));
    return call([id](AppManager& app) { return app.setChooseStoragePath(id); });
}

} // namespace

EditConfirmPlan planEditConfirm(int editType, int index, const EditConfirmContext& c)
{
    using FollowUp = EditConfirmPlan::FollowUp;
    switch (editType) {
    case EDIT_LANGUAGE:
        return call([index](AppManager& app) { return app.setLanguageID(index); },
                    FollowUp::SwitchLanguage);
    case EDIT_THEME:
        if (index >= kThemeCount)
            return card(ControlAction::statusCard(-2));
        return call([index](AppManager& app) { return app.setThemeID(index); },
                    FollowUp::ApplyTheme);
    case EDIT_WORK_MODE:
        if (index == c.work_mode)
            return noOp();
        return call([index](AppManager& app) { return app.setWorkMode(index); });
    case EDIT_FAN_MODE:
        return call([mode = AppManager::uiIndexToFanMode(index)](AppManager& app) {
            return app.setFanMode(mode);
        });
    case EDIT_USB_MODE:
        if (index == (c.system.usb_otg_on ? 1 : 0))
            return noOp();
        return call([index](AppManager& app) { return app.setUsbOtgMode(index); });
    case EDIT_PTZ_PROTOCOL: {
        const int protocol =
            AppManager::uiIndexToPtzProtocol(index, c.camera.ptz_usb2serial, c.work_mode);
        if (protocol == c.camera.ptz_protocol)
            return noOp();
        return call([protocol](AppManager& app) { return app.setPtzProtocol(protocol); });
    }
    case EDIT_TALLY_MODE:
        return call([index, color = c.camera.tally_color_id](AppManager& app) {
            return app.setTallyInfo(index, color);
        });
    case EDIT_TALLY_LIGHT:
        return call([index, mode = c.camera.tally_mode_id](AppManager& app) {
            return app.setTallyInfo(mode, index);
        });
    case EDIT_VIDEO_OUT_FORMAT:
        if (c.selected_option == c.video_out_format)
            return noOp();
        return call([format = c.selected_option.toStdString()](AppManager& app) {
            return app.setVideoOutFormat(format);
        });
    case EDIT_AUDIO_SOURCE:
        if (index == c.audio.ai_type)
            return noOp();
        return call([index](AppManager& app) { return app.setAudioEncSource(index); });
    case EDIT_NDI_QUALITY:
        return call([quality = AppManager::uiIndexToNdiQuality(index)](AppManager& app) {
            return app.setEncNdiQuality(quality);
        });
    case EDIT_RECORD_DISK:
        return recordDiskPlan(c);
    default: {
        EditConfirmPlan plan;
        plan.kind = EditConfirmPlan::Kind::Unknown;
        return plan;
    }
    }
}
