#pragma once

#include "model/view_models/status_view_models.h"

#include <QPoint>
#include <QWidget>

class QFrame;
class QLabel;
class QTimer;
class UITextManager;

// The screensaver of the dimmed panel: a small clock card that wanders over a
// dark field and bounces at fixed margins, so that no pixel stays lit in one
// place.
class DynamicScreensaverWidget : public QWidget {
    Q_OBJECT

public:
    static constexpr int kTickMs = 500;

    DynamicScreensaverWidget(UITextManager* textManager, QWidget* parent = nullptr);

    void updateModeText(const DynamicScreensaverVM& vm);

    QPoint cardPosition() const { return card_pos; }
    QTimer* animationTimer() const { return animation_timer; }

public slots:
    void start();
    void stop();
    void updateFromVm(const DynamicScreensaverVM& vm);
    void onAnimationTick();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void createComponents();
    void layoutEdges();

    UITextManager* text_manager;
    QTimer* animation_timer = nullptr;
    QFrame* top_edge = nullptr;
    QFrame* bottom_edge = nullptr;
    QFrame* card = nullptr;
    QLabel* date_label = nullptr;
    QLabel* time_label = nullptr;
    QLabel* mode_text = nullptr;
    QPoint card_pos{40, 18};
    QPoint velocity{4, 4};
};
