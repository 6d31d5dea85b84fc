#pragma once
// Where the panel's buttons are, in window pixels (the 30-pixel status bar
// on top, the 640 x 142 page below it), taken from the fixed layouts of the
// pages. A tap on the test pipe hits the button under the point.
#include <QPoint>
#include <QRect>

namespace e2e::point {

constexpr int kPageTop = 30;

// Main menu: three 140 x 110 buttons at x 50, 250 and 450, y 10 of the page.
constexpr QPoint kMenuLeft(120, kPageTop + 65);
constexpr QPoint kMenuMiddle(320, kPageTop + 65);
constexpr QPoint kMenuRight(520, kPageTop + 65);

// Settings cards: three 155 x 110 cards at x 77, 242 and 407, y 10 of the page.
constexpr QPoint kCardLeft(154, kPageTop + 65);
constexpr QPoint kCardMiddle(319, kPageTop + 65);
constexpr QPoint kCardRight(484, kPageTop + 65);

// A page with one card centres it: 155 x 110 at x 242.
constexpr QPoint kSingleCard(320, kPageTop + 65);

// Pages with two cards centre them: 155 x 110 at x 165 and 330.
constexpr QPoint kPairLeft(242, kPageTop + 65);
constexpr QPoint kPairRight(407, kPageTop + 65);

// The whole card around one of the centres above.
inline QRect cardRect(const QPoint& centre)
{
    return QRect(centre.x() - 77, centre.y() - 55, 155, 110);
}

// The arrows of the settings groups: 80 x 80 at (8, 49) and (552, 49) of the window.
constexpr QPoint kArrowLeft(48, 89);
constexpr QPoint kArrowRight(592, 89);

// Edit page: the option is the confirm button, 448 x 72 at (96, 31) of the page;
// the arrows beside it, 80 x 80 at (8, 27) and (552, 27), step through the options.
constexpr QPoint kEditConfirm(320, kPageTop + 67);
constexpr QPoint kEditPrevious(48, kPageTop + 67);
constexpr QPoint kEditNext(592, kPageTop + 67);

// Slider page: the slider, 512 x 36 at (64, 52) of the page. A tap at x
// takes min + (x - 64) * (max - min) / 512; halfway is x 320.
constexpr QPoint kSliderHalfway(320, kPageTop + 70);

// Confirm page: Cancel and Confirm, 150 x 40 each, 16 apart, centred, 12 above the bottom.
constexpr QPoint kDialogCancel(237, kPageTop + 110);
constexpr QPoint kDialogConfirm(403, kPageTop + 110);

// Record page: round 76 x 76 buttons at x 106, 282 and 458, y 14 of the page.
constexpr QPoint kRecordPause(144, kPageTop + 52);
constexpr QPoint kRecordButton(320, kPageTop + 52);
constexpr QPoint kRecordDisk(496, kPageTop + 52);

// Shortcut lists (OSD, push, pull, UVC, NDI): 160 x 100 rows from x 50, 170 apart, y 16.
constexpr QPoint listRow(int index)
{
    return QPoint(130 + 170 * index, kPageTop + 66);
}

// Quick action list (long press): 160 x 110 rows from x 50, 180 apart, y 0.
constexpr QPoint quickActionRow(int index)
{
    return QPoint(130 + 180 * index, kPageTop + 55);
}

// Standby page: the wake button, 180 x 48 at (427, 105) of the window.
constexpr QPoint kWakeButton(517, 129);

} // namespace e2e::point
