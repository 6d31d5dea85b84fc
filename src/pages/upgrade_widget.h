#pragma once

#include <QWidget>

class QLabel;
class QTimer;
class UITextManager;

// The firmware upgrade screen: logo, a progress picture in steps, the state
// line and a warning not to cut the power. Once the download reaches 100 the
// line switches to "rebooting" after a short delay, so that the user sees the
// download finish first.
class UpgradeWidget : public QWidget {
    Q_OBJECT

public:
    static constexpr int kRebootTextDelayMs = 1000;

    UpgradeWidget(UITextManager* textManager, QWidget* parent = nullptr);

    void updateStatusText();
    static QString progressImagePath(int level);
    static int progressImageLevel(int progress);

    QString shownImagePath() const { return image_path; }
    bool isRebooting() const { return rebooting; }
    QTimer* rebootTextTimer() const { return reboot_timer; }

public slots:
    void updateFromVm(int progress);
    void onLanguageChanged();

private:
    void createComponents();
    void layoutComponents();
    void onRebootTextDelayElapsed();

    UITextManager* text_manager;
    QTimer* reboot_timer = nullptr;
    QLabel* logo_label = nullptr;
    QLabel* divider = nullptr;
    QLabel* progress_image = nullptr;
    QLabel* status_label = nullptr;
    QLabel* warning_icon = nullptr;
    QLabel* warning_label = nullptr;
    QString image_path;
    bool rebooting = false;
    bool reboot_pending = false;
};
