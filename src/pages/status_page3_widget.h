#pragma once

#include "pages/status_page_base.h"

class QLabel;
class QProgressBar;
struct StatusPage3VM;

// Home page 3: audio on or off and volume on the left; source, codec,
// sample rate and bit rate on the right.
class StatusPage3Widget : public StatusPageBase {
    Q_OBJECT

public:
    StatusPage3Widget(UITextManager* textManager, QWidget* parent);

    int onSwipeRight(int workmode) override;
    int onAutoSwitch(int workmode) override;

    // The backend volume 0..100 is -50..0 dB in whole steps up to the middle
    // and five backend steps per dB above it, up to +10 dB.
    static int backendValueToDbValue(int value);
    static QString dbValueToDisplayText(int db);

public slots:
    void updateFromVm(const StatusPage3VM& vm);
    void onLanguageChanged();

private:
    void createComponents();
    void layoutComponents();
    void applyAudioStatus(const StatusPage3VM& vm);
    void applyAudioDetails(const StatusPage3VM& vm);
    QString sampleRateText(const StatusPage3VM& vm) const;

    QLabel* audio_label = nullptr;
    QLabel* on_off_label = nullptr;
    QLabel* volume_icon = nullptr;
    QLabel* volume_label = nullptr;
    QProgressBar* volume_bar = nullptr;
    QLabel* center_divider = nullptr;
    QLabel* source_icon = nullptr;
    QLabel* source_label = nullptr;
    QLabel* first_row_divider = nullptr;
    QLabel* codec_icon = nullptr;
    QLabel* codec_label = nullptr;
    QLabel* samplerate_label = nullptr;
    QLabel* samplerate_icon = nullptr;
    QLabel* second_row_divider = nullptr;
    QLabel* bitrate_icon = nullptr;
    QLabel* bitrate_label = nullptr;
};
