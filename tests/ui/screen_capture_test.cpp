// ScreenCapture: what the widget shows, written to a file that the next tick
// replaces, switched on by the environment.
#include "ui/screen_capture.h"

#include "support/qt_capture.h"
#include "support/test_support.h"

#include <QImage>
#include <QWidget>
#include <gtest/gtest.h>

#include <memory>

namespace {

void paint(QWidget* widget, const QColor& colour)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::Window, colour);
    widget->setPalette(palette);
}

QColor pixelOf(const QString& file)
{
    return QColor(QImage(file).pixel(10, 10));
}

TEST(ScreenCapture, WritesWhatTheWidgetShowsAndReplacesItAtTheNextTick)
{
    testsupport::TempDir dir;
    auto widget = std::make_unique<QWidget>();
    widget->setFixedSize(64, 32);
    widget->setAutoFillBackground(true);
    paint(widget.get(), Qt::red);
    auto* capture = new ScreenCapture(widget.get(), QString::fromStdString(dir.file("a/b")), 20);
    ASSERT_TRUE(capture->captureNow());
    EXPECT_EQ(QImage(capture->filePath()).size(), QSize(64, 32));
    EXPECT_EQ(pixelOf(capture->filePath()), QColor(Qt::red));

    paint(widget.get(), Qt::blue);
    EXPECT_TRUE(testsupport::waitUntil([&] { return pixelOf(capture->filePath()) == Qt::blue; }));

    EXPECT_FALSE(ScreenCapture(widget.get(), "/proc/no-such-folder", 60000).captureNow());
}

TEST(ScreenCapture, EnvironmentFolderSwitchesItOn)
{
    QWidget widget;
    testsupport::TempDir dir;
    {
        const testsupport::ScopedEnv unset("PANEL_SCREENSHOT_DIR", nullptr);
        EXPECT_EQ(ScreenCapture::fromEnvironment(&widget), nullptr);
    }
    const testsupport::ScopedEnv set("PANEL_SCREENSHOT_DIR", dir.path().c_str());
    const ScreenCapture* capture = ScreenCapture::fromEnvironment(&widget);
    ASSERT_NE(capture, nullptr);
    EXPECT_TRUE(capture->filePath().startsWith(QString::fromStdString(dir.path())));
}

} // namespace
