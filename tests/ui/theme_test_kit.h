// Shared by the icon tests: the style sheets and colour checks on rendered
// pictures.
#pragma once

#include "ui/panel_resources.h"

#include <QColor>
#include <QFile>
#include <QImage>
#include <QPixmap>

namespace looktest {

inline QString themeSheet(const QString& theme)
{
    initPanelResources();
    QFile file(QStringLiteral(":/themes/%1.qss").arg(theme));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

struct InkSummary {
    int inkedPixels = 0;     // alpha above zero
    int offColourPixels = 0; // at least half opaque, but not the expected colour
    QColor firstSolid;       // first fully opaque pixel, invalid if none
};

inline InkSummary inkOf(const QPixmap& pixmap, const QColor& expected = QColor())
{
    InkSummary summary;
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (pixel.alpha() == 0)
                continue;
            ++summary.inkedPixels;
            if (pixel.alpha() == 255 && !summary.firstSolid.isValid())
                summary.firstSolid = pixel;
            const int distance = qMax(
                qAbs(pixel.red() - expected.red()),
                qMax(qAbs(pixel.green() - expected.green()), qAbs(pixel.blue() - expected.blue())));
            if (expected.isValid() && pixel.alpha() >= 128 && distance > 3)
                ++summary.offColourPixels;
        }
    }
    return summary;
}

} // namespace looktest
