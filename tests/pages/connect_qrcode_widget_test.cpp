// The QR drawing widget: encodes a text with libqrencode and paints it so that
// a reader gets the very text back.
#include "page_test_support.h"
#include "support/test_support.h"
#include "ui/qrcode_widget.h"

#include <QImage>
#include <gtest/gtest.h>

namespace {

bool isSingleColour(const QImage& image, QRgb colour)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != colour)
                return false;
        }
    }
    return true;
}

TEST(QrcodeWidgetTest, EncodedTextDecodesBackIncludingNonAscii)
{
    QrcodeWidget widget;
    widget.resize(200, 200);
    for (const QString& text :
         {QStringLiteral("WIFI:S:Box-01;T:WPA;P:secret pass;H:false;;"),
          QStringLiteral("Hotspot is off"), QStringLiteral("热点已关闭，请在设置中开启热点")}) {
        widget.generateString(text);
        ASSERT_TRUE(widget.hasValidData());
        EXPECT_EQ(pagetest::decodeQrImage(pagetest::renderOnWhite(&widget)), text);
    }
}

TEST(QrcodeWidgetTest, EmptyTextAndClearLeaveOnlyTheBackground)
{
    QrcodeWidget widget;
    widget.resize(120, 120);
    widget.setBackgroundColor(Qt::yellow);
    widget.generateString(QStringLiteral("something"));
    ASSERT_TRUE(widget.hasValidData());

    widget.generateString(QString());
    EXPECT_FALSE(widget.hasValidData());
    EXPECT_TRUE(isSingleColour(widget.grab().toImage().convertToFormat(QImage::Format_RGB32),
                               QColor(Qt::yellow).rgb()));

    widget.generateString(QStringLiteral("again"));
    widget.clear();
    EXPECT_FALSE(widget.hasValidData());
    EXPECT_EQ(widget.sizeHint(), QSize(100, 100));
    EXPECT_EQ(widget.minimumSizeHint(), QSize(50, 50));
}

TEST(QrcodeWidgetTest, TextBeyondTheLargestVersionLeavesNoCode)
{
    QrcodeWidget widget;
    widget.resize(100, 100);
    widget.generateString(QStringLiteral("short first"));
    widget.generateString(QString(3000, QLatin1Char('x')));
    EXPECT_FALSE(widget.hasValidData());
    EXPECT_TRUE(isSingleColour(widget.grab().toImage().convertToFormat(QImage::Format_RGB32),
                               QColor(Qt::white).rgb()));
}

TEST(QrcodeWidgetTest, SizeHintsFollowTheModuleCount)
{
    QrcodeWidget widget;
    widget.generateString(QStringLiteral("A")); // version 1: 21 modules
    EXPECT_EQ(widget.sizeHint(), QSize(84, 84));
    EXPECT_EQ(widget.minimumSizeHint(), QSize(21, 21));
}

TEST(QrcodeWidgetTest, CodeFillsTheWidgetWhateverItsSize)
{
    QrcodeWidget widget;
    widget.resize(100, 60);
    widget.generateString(QStringLiteral("A"));
    const QImage image = pagetest::renderOnWhite(&widget);
    // The finder patterns sit in three corners, so all four edges are reached.
    const QRgb black = QColor(Qt::black).rgb();
    EXPECT_EQ(image.pixel(0, 0), black);
    EXPECT_EQ(image.pixel(99, 0), black);
    EXPECT_EQ(image.pixel(0, 59), black);
}

TEST(QrcodeWidgetTest, SaveImageWritesADecodableSquareOrRefuses)
{
    testsupport::TempDir dir;
    const QString path = QString::fromStdString(dir.file("code.png"));
    QrcodeWidget widget;
    EXPECT_FALSE(widget.saveImage(path, 200)); // no code yet

    widget.generateString(QStringLiteral("http://192.168.1.20:8080"));
    widget.setForegroundColor(Qt::black);
    EXPECT_FALSE(widget.saveImage(path, 0));
    EXPECT_FALSE(widget.saveImage(QString(), 200));
    ASSERT_TRUE(widget.saveImage(path, 200));

    const QImage saved(path);
    EXPECT_EQ(saved.size(), QSize(200, 200));
    EXPECT_EQ(pagetest::decodeQrImage(saved), QStringLiteral("http://192.168.1.20:8080"));
}

} // namespace
