#pragma once

#include "model/view_models/status_view_models.h"
#include "pages/status_page_base.h"

class QLabel;
class QTimer;

// Home page 2: video in and out on the left; on the right the encoder's
// main and sub stream in turn, or the decoder's source and state.
class StatusPage2Widget : public StatusPageBase {
    Q_OBJECT

public:
    static constexpr int kStreamSwitchIntervalMs = 3000;

    StatusPage2Widget(UITextManager* textManager, QWidget* parent);
    ~StatusPage2Widget() override;

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onAutoSwitch(int workmode) override;

    bool isShowingMainStream() const { return showing_main_stream; }
    QTimer* streamSwitchTimer() const { return stream_switch_timer; }

public slots:
    void updateFromVm(const StatusPage2VM& vm);
    void onLanguageChanged();
    // Flips between main and sub stream in encode mode; the timer calls it.
    void onStreamSwitchTimeout();

private:
    void createComponents();
    void layoutComponents();
    void layoutEncodeLeft(int dividerX);
    void layoutDecodeLeft(int dividerX);
    void layoutEncodeRight(int dividerX);
    void layoutDecodeRight(int dividerX);
    void initStreamSwitchTimer();
    void deinitStreamSwitchTimer();
    void showEncodeMode();
    void showDecodeMode();
    void applyVideoIoInfo(const StatusPage2VM& vm);
    void applyLoopAndSound(const StatusPage2VM& vm);
    void applyEncodeInfo(const StatusPage2VM& vm);
    void applyDecodeInfo(const StatusPage2VM& vm);
    void applyStreamBadge();
    void applyDecoderStatusStyle(int status);
    bool isEncodeMode() const { return stored_vm.work_mode == 0; }

    StatusPage2VM stored_vm;
    bool showing_main_stream = true;
    QTimer* stream_switch_timer = nullptr;

    QLabel* center_divider = nullptr;
    // Left part.
    QLabel* input_icon = nullptr;
    QLabel* input_format_label = nullptr;
    QLabel* io_divider = nullptr;
    QLabel* output_icon = nullptr;
    QLabel* output_format_label = nullptr;
    QLabel* loop_icon = nullptr;
    QLabel* loop_label = nullptr;
    QLabel* sound_icon = nullptr;
    QLabel* sound_label = nullptr;
    // Right part, encode mode.
    QLabel* stream_badge = nullptr;
    QLabel* codec_label = nullptr;
    QLabel* format_icon = nullptr;
    QLabel* resolution_label = nullptr;
    QLabel* fps_label = nullptr;
    QLabel* bitrate_icon = nullptr;
    QLabel* bitrate_label = nullptr;
    // Right part, decode mode.
    QLabel* not_started_label = nullptr;
    QLabel* source_icon = nullptr;
    QLabel* stream_name_label = nullptr;
    QLabel* dec_status_icon = nullptr;
    QLabel* dec_status_label = nullptr;
    QLabel* summary_label = nullptr;
};
