#include "ui/screen_capture.h"

#include "support/test_support.h"

#include <QImage>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

QWidget* paintedWidget(const QColor& colour)
{
    auto* widget = new QWidget;
    widget->setFixedSize(64, 32);
    widget->setAutoFillBackground(true);
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
    return widget;
}

} // namespace

TEST(ScreenCaptureTest, WritesWhatTheWidgetShowsAndReplacesItOnTheNextTick)
{
    testsupport::TempDir dir;
    std::unique_ptr<QWidget> widget(paintedWidget(Qt::red));
    const QString folder = QString::fromStdString(dir.file("shots/nested"));
    auto* capture = new ScreenCapture(widget.get(), folder, 20);

    ASSERT_TRUE(capture->captureNow());
    QImage first(capture->filePath());
    ASSERT_FALSE(first.isNull());
    EXPECT_EQ(first.size(), QSize(64, 32));
    EXPECT_EQ(QColor(first.pixel(10, 10)), QColor(Qt::red));

    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, Qt::blue);
    widget->setPalette(palette);
    EXPECT_TRUE(testsupport::waitUntil(
        [&] { return QColor(QImage(capture->filePath()).pixel(10, 10)) == QColor(Qt::blue); },
        std::chrono::milliseconds(5000)));
}

TEST(ScreenCaptureTest, EnvironmentSwitchesItOnAndAnUnwritableFolderFailsQuietly)
{
    std::unique_ptr<QWidget> widget(paintedWidget(Qt::green));
    qunsetenv("PANEL_SCREENSHOT_DIR");
    EXPECT_EQ(ScreenCapture::fromEnvironment(widget.get()), nullptr);

    testsupport::TempDir dir;
    qputenv("PANEL_SCREENSHOT_DIR", QByteArray::fromStdString(dir.file("env")));
    ScreenCapture* capture = ScreenCapture::fromEnvironment(widget.get());
    qunsetenv("PANEL_SCREENSHOT_DIR");
    ASSERT_NE(capture, nullptr);
    EXPECT_TRUE(capture->filePath().startsWith(QString::fromStdString(dir.file("env"))));

    ScreenCapture blocked(widget.get(), "/proc/no-such-folder", 60000);
    EXPECT_FALSE(blocked.captureNow());
}
