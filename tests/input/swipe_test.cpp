// Swipes as whole touch sequences: direction, distance, duration and the
// edge swipe, which is tested before the direction.
#include "gesture_rig.h"

#include <gtest/gtest.h>

namespace {

struct SwipeCase {
    const char* name;
    QPointF from;
    QPointF to;
    qint64 durationMs;
    QStringList expected;
};

void PrintTo(const SwipeCase& c, std::ostream* os)
{
    *os << c.name;
}

class SwipeSequence : public ::testing::TestWithParam<SwipeCase> {};

TEST_P(SwipeSequence, Classifies)
{
    const SwipeCase& c = GetParam();
    GestureRig rig;
    rig.swipe(c.from, c.to, c.durationMs);
    EXPECT_EQ(rig.log().gestures(), c.expected);
}

std::string caseName(const ::testing::TestParamInfo<SwipeCase>& info)
{
    return info.param.name;
}

const QPointF kMiddle(320, 86);

INSTANTIATE_TEST_SUITE_P(
    Directions, SwipeSequence,
    ::testing::Values(SwipeCase{"right", kMiddle, kMiddle + QPointF(100, 0), 200, {"swipeRight"}},
                      SwipeCase{"left", kMiddle, kMiddle + QPointF(-100, 10), 200, {"swipeLeft"}},
                      SwipeCase{"down", kMiddle, kMiddle + QPointF(5, 60), 200, {"swipeDown"}},
                      SwipeCase{"up", kMiddle, kMiddle + QPointF(0, -60), 200, {"swipeUp"}},
                      SwipeCase{"diagonal", kMiddle, kMiddle + QPointF(100, 90), 200, {}},
                      SwipeCase{"fifteenPixels", kMiddle, kMiddle + QPointF(15, 0), 200, {}},
                      SwipeCase{
                          "overFifteen", kMiddle, kMiddle + QPointF(15.5, 0), 200, {"swipeRight"}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Duration, SwipeSequence,
    ::testing::Values(
        SwipeCase{"within899", kMiddle, kMiddle + QPointF(-100, 0), 899, {"swipeLeft"}},
        SwipeCase{"at900", kMiddle, kMiddle + QPointF(-100, 0), 900, {}},
        SwipeCase{"edgeWithin899", {50, 86}, {350, 86}, 899, {"edgeSwipe"}},
        SwipeCase{"edgeAt900", {50, 86}, {350, 86}, 900, {}}),
    caseName);

INSTANTIATE_TEST_SUITE_P(
    Edges, SwipeSequence,
    ::testing::Values(SwipeCase{"leftBandWithSomeRise", {50, 20}, {350, 120}, 300, {"edgeSwipe"}},
                      SwipeCase{"leftBandTooSteep", {50, 0}, {350, 400}, 300, {"swipeDown"}},
                      SwipeCase{"justOutsideLeftBand", {57, 86}, {357, 86}, 300, {"swipeRight"}},
                      SwipeCase{"leftBandShortTravel", {56, 86}, {335, 86}, 300, {"swipeRight"}},
                      SwipeCase{"leftBandLimit", {56, 86}, {336, 86}, 300, {"edgeSwipe"}},
                      SwipeCase{"rightBandLimit", {584, 86}, {304, 86}, 300, {"edgeSwipe"}},
                      SwipeCase{"justOutsideRightBand", {583, 86}, {283, 86}, 300, {"swipeLeft"}},
                      SwipeCase{"fromRightBand", {600, 86}, {300, 86}, 300, {"edgeSwipe"}},
                      SwipeCase{"leftBandGoingLeft", {50, 86}, {10, 86}, 300, {"swipeLeft"}}),
    caseName);

TEST(Swipe, HandleSlotsEmitTheirSignals)
{
    GestureRig rig;
    TouchEventHandler& handler = rig.handler();
    handler.handleSwipeLeft();
    handler.handleSwipeRight();
    handler.handleEdgeSwipeToCenter();
    handler.handleSwipeUp();
    handler.handleSwipeDown();
    EXPECT_EQ(rig.log().all(),
              (QStringList{"swipeLeft", "swipeRight", "edgeSwipe", "swipeUp", "swipeDown"}));
}

} // namespace
