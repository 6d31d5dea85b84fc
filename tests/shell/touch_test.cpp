// Real touch sequences sent to the window: the recogniser's gestures reach the
// pages through the window's gates, the gesture guide takes the touch that
// dismisses it, and the operation card swallows touches while it works.
#include "shell_rig.h"

#include "input/touch_event_handler.h"
#include "ui/operation_overlay_component.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using shelltest::PanelRig;
using shelltest::RigOptions;

namespace {

QTouchDevice* touchDevice()
{
    static QTouchDevice* const device = QTest::createTouchDevice();
    return device;
}

// Sends raw touch events to the panel's window, with a clock that moves only
// when told to.
class Finger {
public:
    explicit Finger(Widget& w) : w_(w)
    {
        w_.touchHandler()->setClock([this] { return now_; });
    }

    void press(const QPointF& pos) { send(QEvent::TouchBegin, Qt::TouchPointPressed, pos); }
    void move(const QPointF& pos) { send(QEvent::TouchUpdate, Qt::TouchPointMoved, pos); }
    void release(const QPointF& pos) { send(QEvent::TouchEnd, Qt::TouchPointReleased, pos); }
    void elapse(qint64 ms) { now_ += ms; }

    void swipe(const QPointF& from, const QPointF& to)
    {
        press(from);
        elapse(100);
        move(to);
        elapse(100);
        release(to);
    }
    void tap(const QPointF& pos)
    {
        press(pos);
        elapse(60);
        release(pos);
    }
    // Held still past the long-press time; the recogniser's timer fires.
    void longPress(const QPointF& pos)
    {
        press(pos);
        elapse(TouchEventHandler::kLongPressMs + 10);
        if (w_.touchHandler()->longPressTimer().isActive())
            w_.touchHandler()->handleLongPress();
        release(pos);
    }

private:
    void send(QEvent::Type type, Qt::TouchPointState state, const QPointF& pos)
    {
        QTouchEvent::TouchPoint point(0);
        point.setPos(pos);
        point.setStartPos(pos);
        point.setState(state);
        QTouchEvent event(type, touchDevice(), Qt::NoModifier, state, {point});
        event.setWindow(w_.windowHandle());
        QCoreApplication::sendEvent(&w_, &event);
    }

    Widget& w_;
    qint64 now_ = 1000000;
};

const QPointF kMiddle(320, 90);

QPointF centreInWindow(Widget& w, QWidget* child)
{
    return child->mapTo(&w, child->rect().center());
}

} // namespace

TEST(ShellTouch, GesturesDriveThePagesAndTapsClickButtons)
{
    PanelRig rig;
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    Finger finger(w);

    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    ASSERT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_1);
    finger.swipe(kMiddle, kMiddle + QPointF(-200, 0));
    ASSERT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_2);
    finger.swipe(QPointF(20, 90), QPointF(400, 90));
    ASSERT_EQ(rig.shownPageId(), PAGE_STATUS_1) << "edge swipe goes home";

    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    const QList<QPushButton*> buttons = shelltest::menuButtons(rig.shownPage());
    ASSERT_EQ(buttons.size(), 3);
    finger.tap(centreInWindow(w, buttons[2]));
    ASSERT_TRUE(testsupport::waitUntil([&] { return rig.shownPageId() == PAGE_MEDIA_SETTINGS_1; }));

    w.goto_page(PAGE_STATUS_2);
    finger.longPress(kMiddle);
    EXPECT_EQ(rig.shownPageId(), PAGE_SHORTCUT);
}

TEST(ShellTouch, AVisibleGuideTakesTheTouchThatDismissesIt)
{
    RigOptions options;
    options.guides = true;
    PanelRig rig(options);
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    GestureGuideOverlayComponent* guide = w.gestureGuideOverlay();
    ASSERT_TRUE(testsupport::waitUntil([&] { return guide->isVisible(); }));
    EXPECT_EQ(guide->itemWidgets().size(), 5) << "the home guide";
    rig.screenshot("guide_home");

    Finger finger(w);
    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    EXPECT_FALSE(guide->isVisible());
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1) << "the dismissing swipe did nothing else";
    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    EXPECT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_1);
}

TEST(ShellTouch, TheLoadingCardSwallowsTouchesAndAResultIsDismissedByOne)
{
    PanelRig rig;
    ASSERT_TRUE(rig.waitForMainUi());
    Widget& w = rig.panel();
    Finger finger(w);

    w.showOperationLoading();
    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_TRUE(w.isOperationInProgress()) << "loading stays up";

    w.showOperationResult(0);
    rig.screenshot("operation_result");
    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    EXPECT_FALSE(w.isOperationOverlayActive());
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1) << "the dismissing touch is used up";
    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    EXPECT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_1);
}

TEST(ShellTouch, NothingReactsToTouchBehindTheSplash)
{
    RigOptions options;
    options.with_backend = false;
    PanelRig rig(options);
    Widget& w = rig.panel();
    qint64 now = 0;
    w.setSplashClock([&now] { return now; });
    ASSERT_TRUE(w.isSplashVisible());
    QSignalSpy begins(w.touchHandler(), &TouchEventHandler::touchBeginDetected);

    Finger finger(w);
    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    EXPECT_EQ(begins.count(), 0);
    EXPECT_TRUE(w.isSplashVisible());

    now = Widget::kSplashTimeoutMs;
    ASSERT_TRUE(rig.waitForMainUi(std::chrono::milliseconds(30000)));
    ASSERT_EQ(rig.shownPageId(), PAGE_CONNECT_APP);
    finger.swipe(kMiddle, kMiddle + QPointF(0, -60));
    EXPECT_EQ(begins.count(), 1);
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
}
