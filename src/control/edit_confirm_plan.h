#pragma once
// What confirming an option of the general edit page does: nothing when the
// option is already in force, a card when it can't be taken, or a call with
// the window's follow-up on success.
#include "control/control_action.h"
#include "model/view_models/settings_view_models.h"

#include <QString>

#include <functional>

// The state an edit confirmation is judged against. The window fills what
// the edit type needs; the rest stays at its default.
struct EditConfirmContext {
    int work_mode = 0;
    SystemSettingsPageVM system;
    CameraSettingsPageVM camera;
    AudioSettingsPageVM audio;
    QString video_out_format;     // the output format in force
    QString selected_option;      // the edit page's current option text
    int selected_storage_id = -1; // the edit page's current storage id
    int present_storage_id = -1;
    std::function<int(int)> disk_status;
};

struct EditConfirmPlan {
    enum class Kind { NoOp, Card, Call, Unknown };
    enum class FollowUp { None, SwitchLanguage, ApplyTheme };

    Kind kind = Kind::NoOp;
    ControlAction card; // Kind::Card: a StatusCard or FailedCard action
    AppCall call;
    FollowUp follow_up = FollowUp::None;
};

EditConfirmPlan planEditConfirm(int editType, int index, const EditConfirmContext& context);
