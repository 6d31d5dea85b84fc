// The arithmetic under the gestures, at and around every boundary: swipe
// direction, edge swipe, slider value.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QRect>

namespace {

TEST(TouchGeometry, SwipeDirectionNeedsTravelAndADominantAxis)
{
    const std::pair<QPointF, int> cases[] = {{{14.9, 0}, SWIPE_NONE},
                                             {{7.5, -7.4}, SWIPE_NONE},
                                             {{15, 0}, SWIPE_RIGHT},
                                             {{-15, 0}, SWIPE_LEFT},
                                             {{0, 15}, SWIPE_DOWN},
                                             {{0, -15}, SWIPE_UP},
                                             {{100, 80}, SWIPE_NONE},
                                             {{100, 79.9}, SWIPE_RIGHT},
                                             {{-100, -80}, SWIPE_NONE},
                                             {{80, 100}, SWIPE_NONE},
                                             {{79.9, 100}, SWIPE_DOWN},
                                             // Summed in single precision: this rounds up to 15.
                                             {{14.9999999, 0}, SWIPE_RIGHT}};
    for (const auto& [delta, direction] : cases)
        EXPECT_EQ(determineSwipeDirection(delta), direction) << delta.x() << ", " << delta.y();
}

TEST(TouchGeometry, EdgeSwipeStartsInABandAndTravelsFarAndFlat)
{
    struct Case {
        qreal start_x;
        QPointF delta;
        bool edge;
    };
    const Case cases[] = {
        {50, {300, 399}, true},    {50, {300, 400}, false},   {50, {300, -400}, false},
        {56, {280, 0}, true},      {56.01, {280, 0}, false},  {0, {279.9, 0}, false},
        {0, {-300, 0}, false},     {584, {-280, 0}, true},    {583.9, {-300, 0}, false},
        {640, {-279.9, 0}, false}, {600, {-300, 400}, false}, {600, {300, 0}, false}};
    for (const Case& c : cases)
        EXPECT_EQ(isEdgeSwipeToCenter({c.start_x, 86}, c.delta), c.edge)
            << c.start_x << " + " << c.delta.x() << ", " << c.delta.y();
}

TEST(TouchGeometry, SliderValueScalesTheTruncatedOffset)
{
    const QRect track(64, 52, 512, 36);
    const QRect empty(64, 52, 0, 36);
    struct Case {
        qreal x;
        QRect geometry;
        int min;
        int max;
        int value;
    };
    const Case cases[] = {
        {64, track, 0, 100, 0},    {320, track, 0, 100, 50}, {576, track, 0, 100, 100},
        {70, track, 0, 100, 1},    {69.9, track, 0, 100, 0}, {10, track, 0, 100, 0},
        {900, track, 0, 100, 100}, {40, track, 10, 100, 10}, {320, track, 10, 100, 55},
        {64.9, track, 0, 512, 0},  {65.0, track, 0, 512, 1}, {319.99, track, 0, 512, 255},
        {575, track, 1, 30, 29},   {300, empty, 10, 100, 10}};
    for (const Case& c : cases)
        EXPECT_EQ(sliderValueAtX(c.x, c.geometry, c.min, c.max), c.value)
            << c.x << " over width " << c.geometry.width() << ", range " << c.min << ".." << c.max;
}

} // namespace
