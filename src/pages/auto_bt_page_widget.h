#pragma once

#include "model/view_models/shortcut_view_models.h"
#include "pages/i_gesture_handler.h"

#include <QWidget>

class QLabel;
class QPushButton;
class UITextManager;

// Guides the user through pairing a phone over Bluetooth. No flow of the
// panel opens it yet; it stands ready for one.
class AutoBtPageWidget : public QWidget, public IGestureHandler {
    Q_OBJECT

public:
    AutoBtPageWidget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeDown(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    void setDirty(bool dirty) override { is_dirty = dirty; }

    void updateFromVm(const ConnectBTVM& vm);
    void btConnectHint(int status);
    void applyStatusText();
    void onLanguageChanged();

signals:
    void exitbtRequested();

public slots:
    void onExitBtnClicked();

private:
    void createComponents();
    void layoutComponents();

    UITextManager* text_manager;
    bool is_dirty = true;
    int status = 0;
    QLabel* icon_label = nullptr;
    QLabel* title_label = nullptr;
    QPushButton* exit_button = nullptr;
};
