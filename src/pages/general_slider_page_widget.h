#pragma once

#include "model/view_models/shell_view_models.h"
#include "pages/i_gesture_handler.h"

#include <QColor>
#include <QPalette>
#include <QWidget>

class QLabel;
class QPainter;
class QSlider;
class UITextManager;

// One level with a large value text and a hand-painted track. The panel gets
// no mouse events, so the QSlider inside never sees a press: the touch
// handler computes positions and the shell sets and commits them here. A
// swipe moves the value without sending it; only a tap or a release commits.
class GeneralSliderPageWidget : public QWidget, public IGestureHandler {
    Q_OBJECT
    Q_PROPERTY(QColor sliderTrackColor MEMBER slider_track_color)
    Q_PROPERTY(QColor sliderTrackBorderColor MEMBER slider_track_border_color)
    Q_PROPERTY(QColor sliderFillColor MEMBER slider_fill_color)
    Q_PROPERTY(QColor sliderTickColor MEMBER slider_tick_color)
    Q_PROPERTY(QColor sliderPassedTickColor MEMBER slider_passed_tick_color)
    Q_PROPERTY(QColor sliderHandleFillColor MEMBER slider_handle_fill_color)
    Q_PROPERTY(QColor sliderHandleBorderColor MEMBER slider_handle_border_color)

public:
    enum SliderType {
        SLIDER_LCD_BRIGHTNESS = 0,
        SLIDER_LCD_SLEEP = 1,
        SLIDER_ENC_VOLUME = 2,
        SLIDER_OUT_VOLUME = 3,
    };

    GeneralSliderPageWidget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeDown(int workmode) override;
    void setDirty(bool isDirty) override { dirty = isDirty; }

    void enterSliderMode(int type, int returnPage, int backendValue);
    void commitValue(int sliderValue);
    void commitCurrentValue();

    QSlider* sliderControl() const { return slider; }
    int currentValue() const { return value; }
    int sliderType() const { return slider_type; }
    int returnPage() const { return return_page; }
    int minimum() const { return min; }
    int maximum() const { return max; }
    bool dbMode() const { return db_mode; }
    QString valueText() const;
    int backendValue() const;

    // Encoder volume: 0..50 is -50..0 dB by 1 dB, 50..100 is 0..+10 dB by 0.2 dB.
    static double backendValueToDbValue(int backend);
    static int dbValueToBackendValue(double db);
    static QString dbValueToDisplayText(double db);

signals:
    void confirmed(int sliderType, int value);

public slots:
    void updateFromVm(const SliderModePageVM& vm);
    void onSliderValueChanged(int sliderValue);
    void updateDisplay();
    void updatePageDisplay();
    void updateSliderVisual();
    void onLanguageChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void drawSliderVisual(QPainter& painter);
    QColor resolveSliderColor(const QColor& color, QPalette::ColorRole role) const;

private:
    void createComponents();
    void layoutComponents();
    void setupSliderOptions(int type);
    int step() const;
    void moveBy(int delta);
    QRect trackArea() const;

    UITextManager* text_mgr;
    bool dirty = true;
    int slider_type = -1;
    int return_page = -1;
    int value = 0;
    int min = 0;
    int max = 100;
    bool db_mode = false;
    QString minute_unit;
    // The record last applied; a tick that repeats it leaves a moving finger alone.
    SliderModePageVM applied_vm{-1, -1, 0};

    QLabel* value_label = nullptr;
    QSlider* slider = nullptr;

    QColor slider_track_color;
    QColor slider_track_border_color;
    QColor slider_fill_color;
    QColor slider_tick_color;
    QColor slider_passed_tick_color;
    QColor slider_handle_fill_color;
    QColor slider_handle_border_color;
};
