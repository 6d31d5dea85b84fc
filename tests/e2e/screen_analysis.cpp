#include "screen_analysis.h"

#include <QHash>

#include <algorithm>

#include <cstdlib>

namespace e2e {

namespace {

constexpr double kBlankShare = 0.995;
constexpr int kSameColourTolerance = 12;

bool near(QRgb a, QRgb b, int tolerance)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance
           && std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

QRect clipped(const QImage& image, const QRect& region)
{
    return region.intersected(image.rect());
}

} // namespace

bool isBlank(const QImage& image)
{
    if (image.isNull())
        return true;
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    QHash<QRgb, int> counts;
    int most = 0;
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x)
            most = std::max(most, ++counts[row[x] & 0xffffff]);
    }
    return most >= kBlankShare * rgb.width() * rgb.height();
}

double changedShare(const QImage& a, const QImage& b, const QRect& region)
{
    if (a.isNull() || b.isNull() || a.size() != b.size())
        return 1.0;
    const QRect r = clipped(a, region);
    if (r.isEmpty())
        return 0.0;
    const QImage first = a.convertToFormat(QImage::Format_RGB32);
    const QImage second = b.convertToFormat(QImage::Format_RGB32);
    int changed = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            if (!near(first.pixel(x, y), second.pixel(x, y), kSameColourTolerance))
                ++changed;
    return static_cast<double>(changed) / (r.width() * r.height());
}

int pixelsNear(const QImage& image, const QRect& region, const QColor& colour, int tolerance)
{
    if (image.isNull())
        return 0;
    const QRect r = clipped(image, region);
    const QRgb wanted = colour.rgb();
    int found = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            if (near(image.pixel(x, y), wanted, tolerance))
                ++found;
    return found;
}

double meanBrightness(const QImage& image, const QRect& region)
{
    if (image.isNull())
        return 0.0;
    const QRect r = clipped(image, region);
    if (r.isEmpty())
        return 0.0;
    double sum = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x)
            sum += qGray(image.pixel(x, y));
    return sum / (r.width() * r.height());
}

} // namespace e2e
