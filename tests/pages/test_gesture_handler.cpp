#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"

#include <gtest/gtest.h>

namespace {

// Claims two gestures; one of them answers "stay".
class TwoGesturePage : public IGestureHandler {
public:
    int onSwipeLeft(int workmode) override { return workmode == 0 ? PAGE_STATUS_2 : -1; }
    int onLongPress(int) override
    {
        ++long_presses;
        return -1;
    }
    int long_presses = 0;
};

// Overrides a slot but hands it back to the default, so it claims nothing.
class DeferringPage : public IGestureHandler {
public:
    int onSwipeUp(int workmode) override { return IGestureHandler::onSwipeUp(workmode); }
};

} // namespace

TEST(GestureHandler, DefaultsAnswerStay)
{
    IGestureHandler handler;
    EXPECT_EQ(handler.onSwipeLeft(0), -1);
    EXPECT_EQ(handler.onSwipeRight(1), -1);
    EXPECT_EQ(handler.onEdgeSwipeToCenter(0), -1);
    EXPECT_EQ(handler.onSwipeUp(0), -1);
    EXPECT_EQ(handler.onSwipeDown(0), -1);
    EXPECT_EQ(handler.onLongPress(0), -1);
    EXPECT_EQ(handler.onButtonLongPress(0, nullptr), -1);
    EXPECT_EQ(handler.onAutoSwitch(0), -1);
}

TEST(GestureHandler, DispatchTellsClaimedGesturesFromDefaults)
{
    TwoGesturePage page;
    EXPECT_EQ(page.dispatchGesture(GestureKind::SwipeLeft, 0), std::optional<int>(PAGE_STATUS_2));
    // A claimed gesture that answers "stay" is still an answer.
    EXPECT_EQ(page.dispatchGesture(GestureKind::SwipeLeft, 1), std::optional<int>(-1));
    EXPECT_EQ(page.dispatchGesture(GestureKind::LongPress, 0), std::optional<int>(-1));
    EXPECT_EQ(page.long_presses, 1);

    for (GestureKind kind :
         {GestureKind::SwipeRight, GestureKind::EdgeSwipeToCenter, GestureKind::SwipeUp,
          GestureKind::SwipeDown, GestureKind::ButtonLongPress, GestureKind::AutoSwitch})
        EXPECT_FALSE(page.dispatchGesture(kind, 0).has_value()) << static_cast<int>(kind);

    // The marker of an unclaimed gesture doesn't leak into the next dispatch.
    EXPECT_TRUE(page.dispatchGesture(GestureKind::SwipeLeft, 0).has_value());
}

TEST(GestureHandler, SlotThatFallsBackToTheDefaultClaimsNothing)
{
    DeferringPage page;
    EXPECT_FALSE(page.dispatchGesture(GestureKind::SwipeUp, 0).has_value());
}
