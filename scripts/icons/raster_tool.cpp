// Rasterises the panel's generated pictures: an SVG drawing to PNG/JPEG at a
// given size, or a text to a QR code image. Built and run by make_icons.py.
//   raster_tool svg <in.svg> <out> <width> <height>
//   raster_tool qr <text> <out> <pixels per module>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
#include <qrencode.h>

static int renderSvg(const char* in, const char* out, int width, int height)
{
    QSvgRenderer renderer{QString::fromLocal8Bit(in)};
    if (!renderer.isValid()) {
        std::fprintf(stderr, "invalid svg %s\n", in);
        return 1;
    }
    const bool opaque = QString::fromLocal8Bit(out).endsWith(".jpg");
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(opaque ? Qt::white : Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(0, 0, width, height));
    painter.end();
    return image.save(QString::fromLocal8Bit(out), nullptr, opaque ? 95 : -1) ? 0 : 1;
}

static int renderQr(const char* text, const char* out, int modulePixels)
{
    QRcode* code = QRcode_encodeString(text, 0, QR_ECLEVEL_M, QR_MODE_8, 1);
    if (!code)
        return 1;
    const int quiet = 2;
    const int side = (code->width + 2 * quiet) * modulePixels;
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int row = 0; row < code->width; ++row)
        for (int col = 0; col < code->width; ++col)
            if (code->data[row * code->width + col] & 1)
                painter.fillRect((col + quiet) * modulePixels, (row + quiet) * modulePixels,
                                 modulePixels, modulePixels, QColor(17, 17, 17));
    painter.end();
    QRcode_free(code);
    return image.save(QString::fromLocal8Bit(out), nullptr, 95) ? 0 : 1;
}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QString mode = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (mode == "svg" && argc == 6)
        return renderSvg(argv[2], argv[3], atoi(argv[4]), atoi(argv[5]));
    if (mode == "qr" && argc == 5)
        return renderQr(argv[2], argv[3], atoi(argv[4]));
    std::fprintf(stderr, "usage: raster_tool svg <in> <out> <w> <h> | qr <text> <out> <px>\n");
    return 2;
}
