// Helpers shared by the icon and theme tests: the two style sheets and
// colour checks on rendered icons.
#pragma once

#include "ui/panel_resources.h"

#include <QColor>
#include <QFile>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace looktest {

inline const QStringList& themeNames()
{
    static const QStringList names{QStringLiteral("black"), QStringLiteral("blue")};
    return names;
}

inline QString themeSheet(const QString& theme)
{
    initPanelResources();
    QFile file(QStringLiteral(":/themes/%1.qss").arg(theme));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromUtf8(file.readAll());
}

struct InkSummary {
    int inkedPixels = 0;     // alpha above zero
    int offColourPixels = 0; // clearly visible, but not the expected colour
    QColor firstSolid;       // first fully opaque pixel, invalid if none
};

// How a picture's visible pixels relate to `expected`. Anti-aliased edges are
// judged only where they are at least half opaque.
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
            const bool visible = pixel.alpha() >= 128;
            if (visible && expected.isValid()
                && (qAbs(pixel.red() - expected.red()) > 3
                    || qAbs(pixel.green() - expected.green()) > 3
                    || qAbs(pixel.blue() - expected.blue()) > 3))
                ++summary.offColourPixels;
        }
    }
    return summary;
}

} // namespace looktest
