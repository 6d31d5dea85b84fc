#include "ui/screen_capture.h"

#include <QDir>
#include <QPixmap>
#include <QSaveFile>
#include <QWidget>

ScreenCapture::ScreenCapture(QWidget* target, const QString& directory, int interval_ms)
    : QObject(target), target_(target), directory_(directory)
{
    QDir().mkpath(directory_);
    timer_.setInterval(interval_ms);
    connect(&timer_, &QTimer::timeout, this, &ScreenCapture::captureNow);
    timer_.start();
}

ScreenCapture* ScreenCapture::fromEnvironment(QWidget* target)
{
    const QString directory = qEnvironmentVariable("PANEL_SCREENSHOT_DIR");
    if (directory.isEmpty())
        return nullptr;
    bool ok = false;
    const int interval = qEnvironmentVariableIntValue("PANEL_SCREENSHOT_INTERVAL_MS", &ok);
    return new ScreenCapture(target, directory, ok && interval > 0 ? interval : kDefaultIntervalMs);
}

QString ScreenCapture::filePath() const
{
    return QDir(directory_).filePath(QString::fromLatin1(kFileName));
}

bool ScreenCapture::captureNow()
{
    if (!target_)
        return false;
    QSaveFile file(filePath());
    if (!file.open(QIODevice::WriteOnly))
        return false;
    if (!target_->grab().save(&file, "PNG")) {
        file.cancelWriting();
        return false;
    }
    return file.commit();
}
