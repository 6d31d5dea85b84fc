// Gestures from the touch recogniser (and the test pipe) reach the page on
// screen only through these gates: the operation card, standby, the LCD lock.
#include "shell/widget.h"

#include "control/idle_sleep_controller.h"
#include "input/touch_event_handler.h"
#include "pages/general_slider_page_widget.h"
#include "pages/i_gesture_handler.h"
#include "pages/standby_page_widget.h"

#include <QMetaObject>
#include <QPushButton>
#include <QSlider>

void Widget::dispatchGestureToCurrentPage(GestureKind kind, QPushButton* btn)
{
    auto* handler = dynamic_cast<IGestureHandler*>(pageid_to_widget(get_current_pageid()));
    if (!handler)
        return;
    // A page that kept the default slot never claimed the gesture.
    const std::optional<int> next = handler->dispatchGesture(kind, currentWorkMode(), btn);
    if (!next || *next < 0)
        return;
    goto_page(*next);
}

bool Widget::swipeGatesPass()
{
    // The lock test comes last: only a swipe that got that far counts
    // towards the unlock guide.
    return !isOperationOverlayActive() && !is_standby_visible() && !handleLcdLockedSwipe();
}

void Widget::swipe_left()
{
    if (swipeGatesPass())
        dispatchGestureToCurrentPage(GestureKind::SwipeLeft);
}

void Widget::swipe_right()
{
    if (swipeGatesPass())
        dispatchGestureToCurrentPage(GestureKind::SwipeRight);
}

void Widget::edge_swipe_to_center()
{
    if (swipeGatesPass())
        dispatchGestureToCurrentPage(GestureKind::EdgeSwipeToCenter);
}

void Widget::swipe_up()
{
    if (swipeGatesPass())
        dispatchGestureToCurrentPage(GestureKind::SwipeUp);
}

void Widget::swipe_down()
{
    if (swipeGatesPass())
        dispatchGestureToCurrentPage(GestureKind::SwipeDown);
}

void Widget::long_press(const QPointF& /*pos*/)
{
    if (isOperationOverlayActive())
        return;
    // The lock comes before standby: a long press unlocks wherever it lands.
    if (lcd_touch_locked) {
        unlockLcdByLongPress();
        return;
    }
    if (is_standby_visible())
        return;
    dispatchGestureToCurrentPage(GestureKind::LongPress);
}

void Widget::button_long_press(QPushButton* btn)
{
    if (isOperationOverlayActive())
        return;
    if (lcd_touch_locked) {
        unlockLcdByLongPress();
        return;
    }
    if (is_standby_visible() || !btn)
        return;
    dispatchGestureToCurrentPage(GestureKind::ButtonLongPress, btn);
}

void Widget::button_tap(QPushButton* btn)
{
    if (!btn || isOperationOverlayActive())
        return;
    if (is_standby_visible()) {
        if (!isButtonInStandbyPage(btn))
            return;
    } else if (lcd_touch_locked) {
        return;
    }
    // The click runs from the event loop, once the touch handling has unwound.
    QMetaObject::invokeMethod(btn, "click", Qt::QueuedConnection);
}

bool Widget::sliderGatesPass(QSlider* slider) const
{
    if (isOperationOverlayActive() || is_standby_visible() || lcd_touch_locked)
        return false;
    return general_slider_page && slider && slider == general_slider_page->sliderControl();
}

void Widget::onSliderValueChangedReq(QSlider* slider, int value)
{
    if (sliderGatesPass(slider))
        slider->setValue(value);
}

void Widget::onSliderTapReq(QSlider* slider, int value)
{
    if (sliderGatesPass(slider))
        general_slider_page->commitValue(value);
}

void Widget::onSliderReleaseReq(QSlider* slider, int value)
{
    if (sliderGatesPass(slider))
        general_slider_page->commitValue(value);
}

void Widget::onTouchBeginReq()
{
    // Every touch restores the brightness and restarts the sleep timer; one
    // that wakes the screen from the screensaver does nothing else.
    if (idle_sleep->touchBeginWakesScreen()) {
        consumeCurrentTouchSequence();
        return;
    }
    if (!consumeTouchBeginForOperationOverlay() && gesture_guide && gesture_guide->isVisible()) {
        hideGestureGuideOverlay();
        consumeCurrentTouchSequence();
    }
    idle_home_time_refresh(-1);
}

bool Widget::isButtonInStandbyPage(QPushButton* btn) const
{
    return standby_page && btn && standby_page->isAncestorOf(btn);
}

void Widget::consumeCurrentTouchSequence()
{
    if (touch_handler)
        touch_handler->consumeCurrentTouchSequence();
}

QPushButton* Widget::testButtonAt(const QPoint& point)
{
    QPushButton* button = nullptr;
    for (QWidget* w = childAt(point); w && !button; w = w->parentWidget())
        button = qobject_cast<QPushButton*>(w);
    if (!button || !button->isEnabled() || !button->isVisibleTo(this))
        return nullptr;
    return button;
}

void Widget::slider_tap(const QPoint& point)
{
    QSlider* slider = nullptr;
    for (QWidget* w = childAt(point); w && !slider; w = w->parentWidget())
        slider = qobject_cast<QSlider*>(w);
    if (!slider || !slider->isEnabled() || !slider->isVisibleTo(this))
        return;
    // What the touch handler reports for a short touch on a slider.
    const int value =
        sliderValueAtX(point.x(), slider->geometry(), slider->minimum(), slider->maximum());
    onSliderValueChangedReq(slider, value);
    onSliderTapReq(slider, value);
}

void Widget::setLcdTouchLocked(bool locked)
{
    if (lcd_touch_locked == locked)
        return;
    lcd_touch_locked = locked;
    lcd_locked_swipe_count = 0;
}

bool Widget::handleLcdLockedSwipe()
{
    if (!lcd_touch_locked)
        return false;
    // Every second swipe on a locked screen shows how to unlock.
    if (++lcd_locked_swipe_count >= 2) {
        lcd_locked_swipe_count = 0;
        emit lcdLockedSwipeGuideRequested();
    }
    return true;
}

void Widget::onButtonTapReq(QPushButton* btn)
{
    button_tap(btn);
}

void Widget::onLongPressReq(const QPointF& pos)
{
    long_press(pos);
}

void Widget::onButtonLongPressReq(QPushButton* btn)
{
    button_long_press(btn);
}

void Widget::onSwipeLeftReq()
{
    swipe_left();
}

void Widget::onSwipeRightReq()
{
    swipe_right();
}

void Widget::onEdgeSwipeToCenterReq()
{
    edge_swipe_to_center();
}

void Widget::onSwipeUpReq()
{
    swipe_up();
}

void Widget::onSwipeDownReq()
{
    swipe_down();
}
