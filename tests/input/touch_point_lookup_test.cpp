// Which finger the recogniser follows when several are on the strip.
#include "gesture_rig.h"

#include <gtest/gtest.h>

namespace {

using Points = QList<QTouchEvent::TouchPoint>;

Points threeFingers()
{
    return {touchPoint(4, {100, 50}), touchPoint(7, {300, 50}), touchPoint(9, {500, 50})};
}

TEST(TouchPointLookup, EmptyListHasNoPoint)
{
    const QPointF hint(10, 10);
    EXPECT_EQ(findTouchPointById({}, 3, &hint), nullptr);
    EXPECT_EQ(findTouchPointById({}, -1), nullptr);
}

TEST(TouchPointLookup, KnownIdWinsOverANearerFinger)
{
    const Points points = threeFingers();
    const QPointF nearFirst(101, 50);
    const QTouchEvent::TouchPoint* found = findTouchPointById(points, 9, &nearFirst);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->id(), 9);
}

TEST(TouchPointLookup, WithoutUsableIdOrHintTakesTheFirst)
{
    const Points points = threeFingers();
    EXPECT_EQ(findTouchPointById(points, -1)->id(), 4);
    EXPECT_EQ(findTouchPointById(points, 42)->id(), 4);
}

TEST(TouchPointLookup, LostFingerIsReplacedByTheNearestToTheHint)
{
    const Points points = threeFingers();
    const QPointF nearThird(480, 60);
    EXPECT_EQ(findTouchPointById(points, 42, &nearThird)->id(), 9);
    EXPECT_EQ(findTouchPointById(points, -1, &nearThird)->id(), 9);
}

TEST(TouchPointLookup, NearestTieGoesToTheEarlierFinger)
{
    const Points points = threeFingers();
    const QPointF between(200, 50);
    EXPECT_EQ(findTouchPointById(points, 42, &between)->id(), 4);
}

TEST(TouchPointLookup, SingleFingerIsTakenWhateverTheHint)
{
    const Points points{touchPoint(2, {600, 10})};
    const QPointF farAway(0, 170);
    EXPECT_EQ(findTouchPointById(points, 42, &farAway)->id(), 2);
}

} // namespace
