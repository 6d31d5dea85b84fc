#pragma once

#include "model/view_models/status_view_models.h"
#include "pages/i_gesture_handler.h"

#include <QWidget>

class QFrame;
class QLabel;
class QPushButton;
class UITextManager;

// The full-screen standby surface: clock, date and address on a card, and a
// wake button. It answers no gesture; its button is the one control that
// stays tappable in standby.
class StandbyPageWidget : public QWidget, public IGestureHandler {
    Q_OBJECT

public:
    StandbyPageWidget(UITextManager* textManager, QWidget* parent = nullptr);

    void setDirty(bool dirty) override { is_dirty = dirty; }
    bool isDirty() const { return is_dirty; }

signals:
    void wakeRequested();

public slots:
    void updateFromVm(const StandbyPageVM& vm);
    void onLanguageChanged();
    void onWakeButtonClicked();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void createComponents();
    void layoutComponents();
    void layoutStatusTitle();

    UITextManager* text_manager;
    bool is_dirty = true;

    QFrame* main_panel = nullptr;
    QFrame* status_panel = nullptr;
    QFrame* wake_button_panel = nullptr;
    QLabel* status_icon = nullptr;
    QLabel* title_label = nullptr;
    QLabel* date_label = nullptr;
    QLabel* time_label = nullptr;
    QLabel* ip_prefix_label = nullptr;
    QLabel* ip_value_label = nullptr;
    QPushButton* wake_button = nullptr;
};
