// The arithmetic of swipe classification, slider values and panel mapping,
// checked at and around every boundary.
#include "input/touch_event_handler.h"

#include <gtest/gtest.h>

#include <QRect>

namespace {

struct DirectionCase {
    QPointF delta;
    int expected;
};

class SwipeDirectionTable : public ::testing::TestWithParam<DirectionCase> {};

TEST_P(SwipeDirectionTable, ClassifiesDelta)
{
    const DirectionCase& c = GetParam();
    EXPECT_EQ(determineSwipeDirection(c.delta), c.expected)
        << "delta " << c.delta.x() << ", " << c.delta.y();
}

INSTANTIATE_TEST_SUITE_P(
    Travel, SwipeDirectionTable,
    ::testing::Values(DirectionCase{{0, 0}, SWIPE_NONE}, DirectionCase{{14.9, 0}, SWIPE_NONE},
                      DirectionCase{{7.5, -7.4}, SWIPE_NONE}, DirectionCase{{15, 0}, SWIPE_RIGHT},
                      DirectionCase{{-15, 0}, SWIPE_LEFT}, DirectionCase{{0, 15}, SWIPE_DOWN},
                      DirectionCase{{0, -15}, SWIPE_UP},
                      // Summed in single precision: this rounds up to 15.
                      DirectionCase{{14.9999999, 0}, SWIPE_RIGHT}));

INSTANTIATE_TEST_SUITE_P(
    DeadZone, SwipeDirectionTable,
    ::testing::Values(DirectionCase{{100, 90}, SWIPE_NONE}, DirectionCase{{100, 100}, SWIPE_NONE},
                      DirectionCase{{-100, -100}, SWIPE_NONE}, DirectionCase{{100, 80}, SWIPE_NONE},
                      DirectionCase{{100, 79.9}, SWIPE_RIGHT},
                      DirectionCase{{-100, 79}, SWIPE_LEFT}, DirectionCase{{-100, -80}, SWIPE_NONE},
                      DirectionCase{{80, 100}, SWIPE_NONE}, DirectionCase{{79.9, 100}, SWIPE_DOWN},
                      DirectionCase{{-79, -100}, SWIPE_UP}, DirectionCase{{80, -100}, SWIPE_NONE}));

struct EdgeCase {
    QPointF start;
    QPointF delta;
    bool expected;
};

class EdgeSwipe : public ::testing::TestWithParam<EdgeCase> {};

TEST_P(EdgeSwipe, RecognisesSwipesFromTheBands)
{
    const EdgeCase& c = GetParam();
    EXPECT_EQ(isEdgeSwipeToCenter(c.start, c.delta), c.expected)
        << "start x " << c.start.x() << ", delta " << c.delta.x() << ", " << c.delta.y();
}

INSTANTIATE_TEST_SUITE_P(
    FromLeft, EdgeSwipe,
    ::testing::Values(EdgeCase{{50, 86}, {300, 100}, true}, EdgeCase{{50, 86}, {300, 399}, true},
                      EdgeCase{{50, 86}, {300, 400}, false}, EdgeCase{{50, 86}, {300, -400}, false},
                      EdgeCase{{56, 86}, {280, 0}, true}, EdgeCase{{56.01, 86}, {280, 0}, false},
                      EdgeCase{{57, 86}, {300, 0}, false}, EdgeCase{{0, 86}, {279.9, 0}, false},
                      EdgeCase{{0, 86}, {-300, 0}, false}));

INSTANTIATE_TEST_SUITE_P(FromRight, EdgeSwipe,
                         ::testing::Values(EdgeCase{{600, 86}, {-300, 100}, true},
                                           EdgeCase{{584, 86}, {-280, 0}, true},
                                           EdgeCase{{583.9, 86}, {-300, 0}, false},
                                           EdgeCase{{640, 86}, {-279.9, 0}, false},
                                           EdgeCase{{600, 86}, {-300, 400}, false},
                                           EdgeCase{{600, 86}, {300, 0}, false}));

struct SliderCase {
    qreal x;
    QRect geometry;
    int min;
    int max;
    int expected;
};

class SliderValue : public ::testing::TestWithParam<SliderCase> {};

TEST_P(SliderValue, ScalesOffsetIntoRange)
{
    const SliderCase& c = GetParam();
    EXPECT_EQ(sliderValueAtX(c.x, c.geometry, c.min, c.max), c.expected) << "x " << c.x;
}

const QRect kTrack(64, 52, 512, 36);

INSTANTIATE_TEST_SUITE_P(
    Percent, SliderValue,
    ::testing::Values(SliderCase{64, kTrack, 0, 100, 0}, SliderCase{320, kTrack, 0, 100, 50},
                      SliderCase{576, kTrack, 0, 100, 100}, SliderCase{70, kTrack, 0, 100, 1},
                      SliderCase{69.9, kTrack, 0, 100, 0}, SliderCase{10, kTrack, 0, 100, 0},
                      SliderCase{900, kTrack, 0, 100, 100}, SliderCase{40, kTrack, 10, 100, 10},
                      SliderCase{320, kTrack, 10, 100, 55}));

INSTANTIATE_TEST_SUITE_P(Truncation, SliderValue,
                         // A range as wide as the track makes the value the truncated offset.
                         ::testing::Values(SliderCase{64.9, kTrack, 0, 512, 0},
                                           SliderCase{65.0, kTrack, 0, 512, 1},
                                           SliderCase{319.99, kTrack, 0, 512, 255},
                                           SliderCase{575, kTrack, 1, 30, 29}));

INSTANTIATE_TEST_SUITE_P(ZeroWidth, SliderValue,
                         ::testing::Values(SliderCase{300, QRect(64, 52, 0, 36), 10, 100, 10},
                                           SliderCase{0, QRect(64, 52, 0, 36), 1, 30, 1}));

TEST(PanelMapping, TurnsTheStripAQuarterAndRoundsToSinglePrecision)
{
    const QPointF origin = mapQtToScreen(QPointF(0, 0));
    EXPECT_DOUBLE_EQ(origin.x(), 0.0);
    EXPECT_DOUBLE_EQ(origin.y(), 172.0);

    const QPointF farCorner = mapQtToScreen(QPointF(640, 172));
    EXPECT_DOUBLE_EQ(farCorner.x(), 640.0);
    EXPECT_DOUBLE_EQ(farCorner.y(), 0.0);

    const QPointF middle = mapQtToScreen(QPointF(320, 86));
    EXPECT_DOUBLE_EQ(middle.x(), 320.0);
    EXPECT_DOUBLE_EQ(middle.y(), 86.0);
}

} // namespace
