#pragma once
// Writes what a widget shows to a PNG file at a fixed interval, so that a
// panel running without a visible display (a headless demo, an end-to-end
// test) can still be watched. Each picture replaces the last one atomically:
// a reader never sees half a file.
#include <QObject>
#include <QString>
#include <QTimer>

class QWidget;

class ScreenCapture : public QObject {
    Q_OBJECT

public:
    static constexpr int kDefaultIntervalMs = 1000;
    static constexpr const char* kFileName = "panel.png";

    // Captures `target` into `directory`/panel.png; the folder is created if needed.
    ScreenCapture(QWidget* target, const QString& directory, int interval_ms = kDefaultIntervalMs);

    // A capture driven by PANEL_SCREENSHOT_DIR (and PANEL_SCREENSHOT_INTERVAL_MS),
    // or null when the variable is unset or empty.
    static ScreenCapture* fromEnvironment(QWidget* target);

    QString filePath() const;
    // Writes one picture now; false if the widget is gone or the file can't be written.
    bool captureNow();

private:
    QWidget* target_;
    QString directory_;
    QTimer timer_;
};
