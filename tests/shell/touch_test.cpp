// Real touch sequences sent to the window: the recogniser's gestures reach
// the page on screen, and a guide or a card takes the touch that ends it.
#include "panel_window.h"

#include "input/touch_event_handler.h"
#include "pages/shortcut_page_widget.h"

#include <QSignalSpy>
#include <QtTest/QTest>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

// Sends raw touch events to the window, on a clock that moves only when told.
class Finger {
public:
    explicit Finger(Widget& w) : w_(w)
    {
        w_.touchHandler()->setClock([this] { return now_; });
    }

    void swipe(const QPointF& from, const QPointF& to)
    {
        send(QEvent::TouchBegin, Qt::TouchPointPressed, from);
        now_ += 100;
        send(QEvent::TouchUpdate, Qt::TouchPointMoved, to);
        now_ += 100;
        send(QEvent::TouchEnd, Qt::TouchPointReleased, to);
    }
    void swipeUp() { swipe(kMiddle, kMiddle + QPointF(0, -60)); }
    void tap(const QPointF& at)
    {
        send(QEvent::TouchBegin, Qt::TouchPointPressed, at);
        now_ += 60;
        send(QEvent::TouchEnd, Qt::TouchPointReleased, at);
    }

    static constexpr QPointF kMiddle{320, 90};

private:
    void send(QEvent::Type type, Qt::TouchPointState state, const QPointF& pos)
    {
        static QTouchDevice* const device = QTest::createTouchDevice();
        QTouchEvent::TouchPoint point(0);
        point.setPos(pos);
        point.setStartPos(pos);
        point.setState(state);
        QTouchEvent event(type, device, Qt::NoModifier, state, {point});
        event.setWindow(w_.windowHandle());
        QCoreApplication::sendEvent(&w_, &event);
    }

    Widget& w_;
    qint64 now_ = 1000000;
};

} // namespace

TEST(ShellTouch, GesturesReachThePagesAndGuideOrCardTakeTheTouchThatEndsThem)
{
    PanelOptions options;
    options.guides = true;
    PanelWindow panel(options);
    ASSERT_TRUE(panel.waitForMainUi());
    Widget& w = panel.w();
    Finger finger(w);
    ASSERT_TRUE(testsupport::waitUntil([&] { return w.gestureGuideOverlay()->isVisible(); }));
    finger.swipeUp();
    EXPECT_FALSE(w.gestureGuideOverlay()->isVisible());
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1)
        << "the swipe that took the guide did nothing else";
    w.showOperationLoading();
    finger.swipeUp();
    EXPECT_TRUE(w.isOperationInProgress()) << "loading swallows touches and stays";
    w.showOperationResult(0);
    finger.swipeUp();
    EXPECT_FALSE(w.isOperationOverlayActive());
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1) << "the touch that took the card is used up";

    finger.swipeUp();
    ASSERT_EQ(panel.shownPageId(), PAGE_MAIN_MENU_1);
    w.goto_page(PAGE_SHORTCUT);
    w.hideGestureGuideOverlay();
    QPushButton* row =
        static_cast<ShortcutPageWidget*>(w.pageid_to_widget(PAGE_SHORTCUT))->rowButton(0);
    ASSERT_NE(row, nullptr);
    QSignalSpy clicks(row, &QPushButton::clicked);
    finger.tap(row->mapTo(&w, row->rect().center()));
    EXPECT_EQ(clicks.count(), 0) << "the click is posted, not run inside the touch";
    EXPECT_TRUE(testsupport::waitUntil([&] { return clicks.count() == 1; }));
}
