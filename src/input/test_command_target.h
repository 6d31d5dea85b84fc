#pragma once

#include <QPoint>
#include <QPointF>

class QPushButton;

// What a test command drives: the very shell operations that real gestures
// reach, so that scripted input passes the same gates (overlay, standby, LCD
// lock). Widget implements it; each operation below is the Widget method of the
// same name, except refreshPage.
class TestCommandTarget {
public:
    virtual ~TestCommandTarget() = default;

    // "goto <id>": Widget::goto_page(pageid).
    virtual void goto_page(int pageid) = 0;
    // "swipe left|right|up|down": Widget::swipe_left() and so on.
    virtual void swipe_left() = 0;
    virtual void swipe_right() = 0;
    virtual void swipe_up() = 0;
    virtual void swipe_down() = 0;
    // "edge": Widget::edge_swipe_to_center().
    virtual void edge_swipe_to_center() = 0;
    // "longpress [x y]": Widget::long_press(pos).
    virtual void long_press(const QPointF& pos) = 0;
    // "tap x y" / "click x y": Widget::testButtonAt(pos), then
    // Widget::button_tap(btn) when a button was found; without a button,
    // Widget::slider_tap(pos), the tap of a finger on the slider there.
    virtual QPushButton* testButtonAt(const QPoint& pos) = 0;
    virtual void button_tap(QPushButton* btn) = 0;
    virtual void slider_tap(const QPoint& pos) = 0;
    // "touchbegin": Widget::onTouchBeginReq().
    virtual void onTouchBeginReq() = 0;
    // "refresh": Widget emits its signal requestPageRefresh(pageid), called
    // with get_current_pageid(). A signal can't implement a virtual, hence the
    // different name.
    virtual void refreshPage(int pageid) = 0;
    // "guide hide": Widget::hideGestureGuideOverlay().
    virtual void hideGestureGuideOverlay() = 0;
    // "refresh" and "page": Widget::get_current_pageid().
    virtual int get_current_pageid() const = 0;
};
