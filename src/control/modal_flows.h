#pragma once
// The window's modal flows: `Widget::enterEditMode`, `enterSliderMode`,
// `enterConfirmDialog` with the records they fill (`edit_vm`, `slider_vm`,
// `confirm_vm`, `modal_return_page`, `modal_return_arg`), and the confirm
// handlers `onEditModeConfirmed`, `onSliderModeConfirmed`,
// `onConfirmDialogConfirmed` with their no-op rules. What only the window
// can do (switch texts or theme, mark the edit page, clear its modal state,
// show standby, refresh the sleep timer) is asked for by signal.
#include "control/edit_confirm_plan.h"
#include "control/modal_openings.h"
#include "control/operation_feedback.h"
#include "model/view_models/status_view_models.h"

#include <QObject>

#include <functional>

class AppManager;

// What the edit page offers at the moment of a confirmation.
struct EditPageProbe {
    std::function<QString()> current_option; // GeneralEditPageWidget::currentOption
    std::function<int()> current_storage_id; // GeneralEditPageWidget::currentStorageId
};

class ModalFlows : public QObject {
    Q_OBJECT

public:
    // `workMode` answers the window's work mode.
    ModalFlows(AppManager* app, OperationFeedback& feedback, std::function<int()> workMode,
               QObject* parent = nullptr);

    void setEditPageProbe(EditPageProbe probe) { edit_page = std::move(probe); }

    // Fill the record and return the modal page to show.
    int enterEditMode(int editType, int returnPage, int actualIndex);
    int enterSliderMode(int sliderType, int returnPage, int value);
    int enterConfirmDialog(int actionType, int returnPage, int returnIndex, int param);

    const EditModePageVM& editVm() const { return edit_vm; }
    const SliderModePageVM& sliderVm() const { return slider_vm; }
    const ConfirmDialogPageVM& confirmVm() const { return confirm_vm; }
    // Where cancelling or leaving the open flow goes.
    int modalReturnPage() const { return modal_return_page; }
    int modalReturnArg() const { return modal_return_arg; }

    void onEditModeConfirmed(int editType, int index);
    void onSliderModeConfirmed(int sliderType, int value);
    void onConfirmDialogConfirmed(int actionType);

signals:
    // The option became the one in force: the edit page marks it.
    void editValueAccepted(int index);
    void languageSwitched(int languageId);
    // The window applies the style sheet of the theme ("black" 0, "blue" 1).
    void themeSwitched(int themeIndex);
    // The sleep time changed: the window re-arms its sleep timer.
    void lcdSleepChanged();
    void modalStateClearRequested();
    void standbyEntered(const StandbyPageVM& vm);

private:
    EditConfirmContext contextFor(int editType) const;
    int runWithLoading(const AppCall& call);

    AppManager* app;
    OperationFeedback& feedback;
    std::function<int()> work_mode;
    EditPageProbe edit_page;
    EditModePageVM edit_vm;
    SliderModePageVM slider_vm;
    ConfirmDialogPageVM confirm_vm;
    int modal_return_page = 0;
    int modal_return_arg = 0;
};
