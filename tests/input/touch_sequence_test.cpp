// One touch sequence from begin to end: attaching, the touch-begin hook,
// consumed sequences, cancels and extra fingers.
#include "gesture_rig.h"

#include <gtest/gtest.h>

#include <QResizeEvent>
#include <QSignalSpy>

namespace {

const QPointF kOnOk(150, 75);

TEST(Attach, NullTargetChangesNothing)
{
    GestureRig rig;
    rig.handler().attachTo(nullptr);
    EXPECT_EQ(rig.handler().attachedTarget(), &rig.window());
    rig.tap({300, 80}, 900);
    EXPECT_EQ(rig.log().gestures(), QStringList{"longPress:(300,80)"});
}

TEST(Attach, EnablesTouchAndFiltersOnceWhenAttachedTwice)
{
    GestureRig rig;
    EXPECT_TRUE(rig.window().testAttribute(Qt::WA_AcceptTouchEvents));
    rig.addButton("ok", QRect(100, 50, 100, 50));
    rig.handler().attachTo(&rig.window());
    rig.tap(kOnOk);
    EXPECT_EQ(rig.log().all(), (QStringList{"touchBegin", "tap:ok"}));
}

TEST(Attach, OnlyTheLatestTargetIsFiltered)
{
    GestureRig rig;
    QWidget other;
    rig.handler().attachTo(&other);
    rig.tap({300, 80});
    EXPECT_EQ(rig.log().all(), QStringList{});
    EXPECT_EQ(rig.handler().attachedTarget(), &other);
}

TEST(EventFilter, OtherObjectsAndOtherEventsPassThrough)
{
    GestureRig rig;
    QWidget stranger;
    QTouchEvent begin(QEvent::TouchBegin, GestureRig::device(), Qt::NoModifier,
                      Qt::TouchPointPressed, {touchPoint(0, {10, 10}, Qt::TouchPointPressed)});
    EXPECT_FALSE(rig.handler().eventFilter(&stranger, &begin));

    QResizeEvent resize(QSize(640, 172), QSize(640, 172));
    EXPECT_FALSE(rig.handler().eventFilter(&rig.window(), &resize));
    EXPECT_EQ(rig.log().all(), QStringList{});
    EXPECT_FALSE(rig.handler().isActive());
}

TEST(TouchBegin, IsAnnouncedBeforeTheSequenceIsRecorded)
{
    GestureRig rig;
    bool activeDuringSignal = true;
    QObject::connect(&rig.handler(), &TouchEventHandler::touchBeginDetected,
                     [&] { activeDuringSignal = rig.handler().isActive(); });
    rig.press({300, 80});
    EXPECT_FALSE(activeDuringSignal);
    EXPECT_TRUE(rig.handler().isActive());
    EXPECT_EQ(rig.handler().trackedId(), 0);
    EXPECT_EQ(rig.handler().pressPos(), QPointF(300, 80));
}

TEST(ConsumedSequence, ConsumingFromTheBeginHookSwallowsTheWholeSequence)
{
    GestureRig rig;
    rig.addButton("ok", QRect(100, 50, 100, 50));
    bool consumeNext = true;
    QObject::connect(&rig.handler(), &TouchEventHandler::touchBeginDetected, [&] {
        if (consumeNext)
            rig.handler().consumeCurrentTouchSequence();
    });

    rig.press(kOnOk);
    EXPECT_TRUE(rig.handler().isConsumed());
    EXPECT_FALSE(rig.handler().isActive());
    EXPECT_FALSE(rig.handler().longPressTimer().isActive());
    rig.move(kOnOk + QPointF(200, 0));
    rig.elapse(1000);
    rig.release(kOnOk);
    EXPECT_FALSE(rig.handler().isConsumed());
    EXPECT_EQ(rig.log().all(), QStringList{"touchBegin"});

    consumeNext = false;
    rig.tap(kOnOk);
    EXPECT_EQ(rig.log().gestures(), QStringList{"tap:ok"});
}

TEST(ConsumedSequence, ConsumingMidwayStopsTheLongPressAndTheRelease)
{
    GestureRig rig;
    rig.press({300, 80});
    rig.handler().consumeCurrentTouchSequence();
    EXPECT_FALSE(rig.handler().longPressTimer().isActive());
    EXPECT_EQ(rig.handler().trackedId(), -1);
    rig.move({500, 80});
    rig.elapse(100);
    rig.cancel();
    EXPECT_FALSE(rig.handler().isConsumed());
    EXPECT_EQ(rig.log().gestures(), QStringList{});
}

TEST(Cancel, IsClassifiedLikeAnEndFromTheLastPosition)
{
    GestureRig rig;
    rig.addButton("ok", QRect(100, 50, 100, 50));
    rig.press(kOnOk);
    rig.move(kOnOk + QPointF(4, 3));
    rig.elapse(500);
    rig.cancel();
    EXPECT_EQ(rig.log().gestures(), QStringList{"tap:ok"});
    EXPECT_FALSE(rig.handler().isActive());

    rig.log().clear();
    rig.press({300, 80});
    rig.move({300, 20});
    rig.elapse(200);
    rig.cancel();
    EXPECT_EQ(rig.log().gestures(), QStringList{"swipeUp"});
}

TEST(Cancel, PositionItCarriesIsIgnoredWhereAnEndWouldUseIt)
{
    const QPointF start(300, 80);
    const QPointF far(500, 80);
    for (QEvent::Type type : {QEvent::TouchCancel, QEvent::TouchEnd}) {
        GestureRig rig;
        rig.press(start);
        rig.elapse(100);
        QTouchEvent event(type, GestureRig::device(), Qt::NoModifier, Qt::TouchPointReleased,
                          {touchPoint(0, far, Qt::TouchPointReleased)});
        rig.handler().handleTouchEnd(&event);
        const QStringList expected =
            type == QEvent::TouchEnd ? QStringList{"swipeRight"} : QStringList{};
        EXPECT_EQ(rig.log().gestures(), expected) << "event type " << type;
    }
}

TEST(Sequence, EndResetsTrackingState)
{
    GestureRig rig;
    rig.press({300, 80}, 3);
    EXPECT_EQ(rig.handler().trackedId(), 3);
    rig.release({300, 80}, 3);
    EXPECT_FALSE(rig.handler().isActive());
    EXPECT_FALSE(rig.handler().isLongPressArmed());
    EXPECT_FALSE(rig.handler().longPressTimer().isActive());
    EXPECT_EQ(rig.handler().trackedId(), -1);
}

TEST(Sequence, EventsWithoutATrackedTouchDoNothing)
{
    GestureRig rig;
    rig.move({300, 80});
    rig.release({400, 80});
    rig.cancel();
    QTouchEvent emptyBegin(QEvent::TouchBegin, GestureRig::device());
    rig.handler().handleTouchBegin(&emptyBegin);
    EXPECT_FALSE(rig.handler().isActive());

    rig.press({300, 80});
    QTouchEvent emptyUpdate(QEvent::TouchUpdate, GestureRig::device());
    rig.handler().handleTouchUpdate(&emptyUpdate);
    EXPECT_EQ(rig.handler().lastPos(), QPointF(300, 80));
    EXPECT_EQ(rig.log().gestures(), QStringList{});
}

TEST(Sequence, SecondBeginStartsAFreshSequence)
{
    GestureRig rig;
    rig.addButton("ok", QRect(100, 50, 100, 50));
    rig.press({500, 80});
    rig.elapse(700);
    rig.press(kOnOk);
    rig.elapse(200); // 900 ms after the first press, 200 after the second
    rig.release(kOnOk);
    EXPECT_EQ(rig.log().gestures(), QStringList{"tap:ok"});
}

TEST(Fingers, SecondFingerIsIgnoredWhileTheFirstIsDown)
{
    GestureRig rig;
    rig.press({300, 86}, 0);
    rig.moveFingers({{1, {300, 10}}, {0, {400, 86}}});
    EXPECT_EQ(rig.handler().lastPos(), QPointF(400, 86));
    rig.release({400, 86}, 0);
    EXPECT_EQ(rig.log().gestures(), QStringList{"swipeRight"});
}

TEST(Fingers, LostFingerIsFollowedByTheNearestOneWithoutRetracking)
{
    GestureRig rig;
    rig.press({300, 86}, 0);
    rig.move({350, 86}, 0);
    rig.moveFingers({{5, {100, 86}}, {6, {360, 90}}});
    EXPECT_EQ(rig.handler().lastPos(), QPointF(360, 90));
    EXPECT_EQ(rig.handler().trackedId(), 0);
    rig.moveFingers({{5, {100, 86}}, {6, {420, 90}}});
    EXPECT_EQ(rig.handler().lastPos(), QPointF(420, 90));
}

} // namespace
