#pragma once
// What a control of a page asks for, decided before anything is sent: call
// the model (at once behind the loading card, or as a slow job), show a card
// without calling, open the confirm dialog, or nothing. The decisions are
// pure functions of view models and lists; ControlActionRunner carries them
// out.
#include "control/operation_texts.h"
#include "model/view_models/shell_view_models.h"

#include <functional>

class AppManager;

// One typed operation of the model; returns its status value.
using AppCall = std::function<int(AppManager&)>;

struct ControlAction {
    enum class Kind {
        Nothing,       // no card, no call
        Sync,          // loading card, `call`, its result
        Async,         // `call` as a slow job; `refresh_page` after it
        PushStream,    // Async on the push stream page, waiting for `push_index`
        Warning,       // a warning card with `text`, no call
        FailedCard,    // a failure card with `text`, no call
        StatusCard,    // the card of `status`, no call
        ConfirmDialog, // open the confirm dialog with `confirm`
    };

    Kind kind = Kind::Nothing;
    AppCall call;
    int refresh_page = -1;
    CardText text; // Async: shown instead of the success text when set
    int status = 0;
    ConfirmDialogPageVM confirm;
    int push_index = -1;
    int push_target = -1;

    static ControlAction nothing() { return {}; }
    static ControlAction sync(AppCall call)
    {
        ControlAction a;
        a.kind = Kind::Sync;
        a.call = std::move(call);
        return a;
    }
    static ControlAction async(int refreshPage, AppCall call, CardText warning = {})
    {
        ControlAction a;
        a.kind = Kind::Async;
        a.refresh_page = refreshPage;
        a.call = std::move(call);
        a.text = std::move(warning);
        return a;
    }
    static ControlAction pushStream(int index, int target, AppCall call)
    {
        ControlAction a = async(23, std::move(call));
        a.kind = Kind::PushStream;
        a.push_index = index;
        a.push_target = target;
        return a;
    }
    static ControlAction warning(CardText text)
    {
        ControlAction a;
        a.kind = Kind::Warning;
        a.text = std::move(text);
        return a;
    }
    static ControlAction failedCard(CardText text)
    {
        ControlAction a;
        a.kind = Kind::FailedCard;
        a.text = std::move(text);
        return a;
    }
    static ControlAction statusCard(int status)
    {
        ControlAction a;
        a.kind = Kind::StatusCard;
        a.status = status;
        return a;
    }
    static ControlAction confirmDialog(int actionType, int returnPage, int returnIndex, int param)
    {
        ControlAction a;
        a.kind = Kind::ConfirmDialog;
        a.confirm = {actionType, returnPage, returnIndex, param};
        return a;
    }
};
