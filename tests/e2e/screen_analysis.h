#pragma once
// What a test can tell from a picture of the 640 x 172 strip without knowing
// how it was drawn: is anything shown, what changed, is a colour present.
#include <QColor>
#include <QImage>
#include <QRect>

namespace e2e {

// Regions of the window, from the panel's fixed layout.
namespace area {
inline const QRect kWhole(0, 0, 640, 172);
inline const QRect kStatusBar(0, 0, 640, 30);
inline const QRect kContent(0, 30, 640, 142);
// The operation card's strip, below the status bar.
inline const QRect kOperationCard(0, 30, 640, 40);
} // namespace area

// One colour covers (almost) the whole picture: nothing is drawn.
bool isBlank(const QImage& image);

// Share (0 to 1) of the pixels in `region` whose colours differ noticeably
// between the two pictures; 1 when either is null or their sizes differ.
double changedShare(const QImage& a, const QImage& b, const QRect& region = area::kWhole);

// Number of pixels in `region` within `tolerance` (per channel) of `colour`.
int pixelsNear(const QImage& image, const QRect& region, const QColor& colour, int tolerance = 24);

// Mean brightness (0 to 255) of `region`.
double meanBrightness(const QImage& image, const QRect& region = area::kWhole);

} // namespace e2e
