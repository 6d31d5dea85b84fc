// Long presses: when the timer may fire, what it reports, and what the
// release does afterwards.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>

#include <utility>
#include <vector>

namespace {

const QPointF kStart(300, 80);

TEST(LongPress, TimerIsASingleShotOfEightHundredMs)
{
    TouchEventHandler handler;
    EXPECT_EQ(handler.longPressTimer().interval(), 800);
    EXPECT_TRUE(handler.longPressTimer().isSingleShot());
    EXPECT_FALSE(handler.longPressTimer().isActive());
}

TEST(LongPress, HeldStillOnAButtonFiresOnceAndReleaseIsNoTap)
{
    GestureRig rig;
    QPushButton* ok = rig.addButton("ok", QRect(100, 50, 100, 50));
    QSignalSpy buttonLongPresses(&rig.handler(), &TouchEventHandler::buttonLongPressDetected);

    rig.press({150, 75});
    EXPECT_TRUE(rig.handler().longPressTimer().isActive());
    rig.elapse(799);
    EXPECT_EQ(buttonLongPresses.count(), 0);
    rig.elapse(1);
    ASSERT_EQ(buttonLongPresses.count(), 1);
    EXPECT_EQ(buttonLongPresses.at(0).at(0).value<QPushButton*>(), ok);

    rig.handler().handleLongPress(); // a stray second timeout
    rig.elapse(400);
    rig.release({150, 75});
    EXPECT_EQ(rig.log().gestures(), QStringList{"buttonLongPress:ok"});
}

TEST(LongPress, AwayFromButtonsReportsThePressPosition)
{
    GestureRig rig;
    QSignalSpy longPresses(&rig.handler(), &TouchEventHandler::longPressDetected);
    rig.press(kStart);
    rig.move(kStart + QPointF(20, 16)); // 36 pixels: still a press
    rig.elapse(800);
    ASSERT_EQ(longPresses.count(), 1);
    EXPECT_EQ(longPresses.at(0).at(0).toPointF(), kStart);
}

TEST(LongPress, MovingPastThirtySixPixelsCancelsItForGood)
{
    GestureRig rig;
    rig.press(kStart);
    rig.move(kStart + QPointF(20, 17));
    EXPECT_FALSE(rig.handler().longPressTimer().isActive());
    EXPECT_FALSE(rig.handler().isLongPressArmed());

    rig.move(kStart); // coming back does not re-arm
    rig.elapse(800);
    rig.handler().handleLongPress();
    EXPECT_EQ(rig.log().gestures(), QStringList{});
}

struct ReturnCase {
    QPointF endOffset;
    QStringList expected;
};

class WanderAndReturn : public ::testing::TestWithParam<ReturnCase> {};

// The finger wanders 37 pixels and comes back before 800 ms: never a long
// press, and a tap only if it ends nearer than 10 pixels to its start.
TEST_P(WanderAndReturn, EndDecidesTap)
{
    GestureRig rig;
    rig.addButton("ok", QRect(250, 40, 120, 80));
    rig.press(kStart);
    rig.move(kStart + QPointF(0, 37));
    rig.elapse(300);
    rig.move(kStart + GetParam().endOffset);
    rig.elapse(300);
    rig.release(kStart + GetParam().endOffset);
    EXPECT_EQ(rig.log().gestures(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Ends, WanderAndReturn,
                         ::testing::Values(ReturnCase{{0, 0}, {"tap:ok"}},
                                           ReturnCase{{9, 0}, {"tap:ok"}}, ReturnCase{{10, 0}, {}},
                                           ReturnCase{{0, -10}, {}}));

// After the long press the release may still be a swipe, up to 900 ms.
TEST(LongPress, FiredLongPressCanBeFollowedByASwipeWithinNineHundredMs)
{
    for (const auto& [heldMs, expected] : std::vector<std::pair<int, QStringList>>{
             {850, {"longPress:(300,80)", "swipeRight"}}, {900, {"longPress:(300,80)"}}}) {
        GestureRig rig;
        rig.press(kStart);
        rig.move(kStart + QPointF(20, 0));
        rig.elapse(heldMs);
        rig.release(kStart + QPointF(20, 0));
        EXPECT_EQ(rig.log().gestures(), expected) << heldMs << " ms";
    }
}

TEST(LongPress, TimeoutWithoutATouchDoesNothing)
{
    GestureRig rig;
    rig.handler().handleLongPress();
    rig.tap(kStart);
    rig.handler().handleLongPress();
    EXPECT_EQ(rig.log().gestures(), QStringList{});
}

} // namespace
