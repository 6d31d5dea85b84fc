#pragma once

#include "model/view_models/shell_view_models.h"
#include "pages/i_gesture_handler.h"

#include <QWidget>

class QLabel;
class QPushButton;
class UITextManager;

// The steps that ask before they run.
enum ConfirmActionType {
    CONFIRM_ACTION_NONE = 0,
    CONFIRM_ACTION_REBOOT = 1,
    CONFIRM_ACTION_RESET = 2,
    CONFIRM_ACTION_STANDBY = 3,
    CONFIRM_ACTION_DC_OUT = 4,
};

// One yes-or-no question before a step with consequences. It answers no
// gesture: only its two buttons (or the idle timer) leave it.
class GeneralConfirmPageWidget : public QWidget, public IGestureHandler {
    Q_OBJECT

public:
    GeneralConfirmPageWidget(UITextManager* textManager, QWidget* parent = nullptr);

    void setDirty(bool isDirty) override { dirty = isDirty; }

    // Any `param` other than 2 counts as 1 (the 8.4 V output).
    void setAction(int actionType, int returnPage, int returnIndex, int param);
    ConfirmActionType actionType() const { return action_type; }
    int returnPage() const { return return_page; }
    int returnIndex() const { return return_index; }
    int voltage() const { return voltage_id; }
    QString messageText() const;

signals:
    void confirmed(int actionType);
    void cancelled(int returnPage);

public slots:
    void updateFromVm(const ConfirmDialogPageVM& vm);
    void updateMessageText();
    void onLanguageChanged();
    void onConfirmButtonClicked();
    void onCancelButtonClicked();

private:
    void createComponents();
    void layoutComponents();

    UITextManager* text_mgr;
    bool dirty = true;
    ConfirmActionType action_type = CONFIRM_ACTION_NONE;
    int return_page = -1;
    int return_index = 0;
    int voltage_id = 1;

    QLabel* warning_icon = nullptr;
    QLabel* message_label = nullptr;
    QPushButton* cancel_btn = nullptr;
    QPushButton* confirm_btn = nullptr;
};
