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

const QPointF kMiddle(320, 86);

// The thresholds themselves are checked on the geometry functions; here the
// whole sequence: its duration, and the edge swipe tested before the direction.
INSTANTIATE_TEST_SUITE_P(
    Sequences, SwipeSequence,
    ::testing::Values(
        SwipeCase{"right", kMiddle, kMiddle + QPointF(100, 10), 200, {"swipeRight"}},
        SwipeCase{"diagonal", kMiddle, kMiddle + QPointF(100, 90), 200, {}},
        SwipeCase{"within899", kMiddle, kMiddle + QPointF(-100, 0), 899, {"swipeLeft"}},
        SwipeCase{"at900", kMiddle, kMiddle + QPointF(-100, 0), 900, {}},
        SwipeCase{"edgeWithin899", {50, 86}, {350, 86}, 899, {"edgeSwipe"}},
        SwipeCase{"edgeAt900", {50, 86}, {350, 86}, 900, {}},
        SwipeCase{"edgeWithSomeRise", {50, 20}, {350, 120}, 300, {"edgeSwipe"}},
        SwipeCase{"edgeTooSteepIsADownSwipe", {50, 0}, {350, 400}, 300, {"swipeDown"}},
        SwipeCase{"justOutsideLeftBand", {57, 86}, {357, 86}, 300, {"swipeRight"}},
        SwipeCase{"fromRightBand", {600, 86}, {300, 86}, 300, {"edgeSwipe"}},
        SwipeCase{"leftBandGoingLeft", {50, 86}, {10, 86}, 300, {"swipeLeft"}}),
    [](const ::testing::TestParamInfo<SwipeCase>& info) { return std::string(info.param.name); });

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
