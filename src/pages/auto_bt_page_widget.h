#pragma once

#include "model/view_models/shortcut_view_models.h"
#include "pages/basic_page.h"

class QLabel;
class QPushButton;

// Guides the user through pairing a phone over Bluetooth. No flow of the
// panel opens it yet; it stands ready for one.
class AutoBtPageWidget : public BasicPage {
    Q_OBJECT

public:
    AutoBtPageWidget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeDown(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;

    void applyStatusText();

signals:
    void exitbtRequested();

public slots:
    void updateFromVm(const ConnectBTVM& vm);
    void btConnectHint(int status);
    void onLanguageChanged();
    void onExitBtnClicked();

private:
    void createComponents();
    void layoutComponents();

    int status = 0;
    QLabel* icon_label = nullptr;
    QLabel* title_label = nullptr;
    QPushButton* exit_button = nullptr;
};
