#pragma once

#include "input/test_command_target.h"

#include <QStringList>

class QPushButton;

// A shell stand-in that writes every call it gets into one ordered list, e.g.
// "goto:5", "swipeLeft", "longPress:(320,86)", "hitTest:(10,20)", "tap:ok",
// "sliderTap:(600,160)".
class TestCommandRecorder : public TestCommandTarget {
public:
    QStringList calls;
    // What testButtonAt answers; null means no button at the point.
    QPushButton* buttonUnderPoint = nullptr;
    int currentPage = 0;

    void goto_page(int pageid) override;
    void swipe_left() override { calls << "swipeLeft"; }
    void swipe_right() override { calls << "swipeRight"; }
    void swipe_up() override { calls << "swipeUp"; }
    void swipe_down() override { calls << "swipeDown"; }
    void edge_swipe_to_center() override { calls << "edge"; }
    void long_press(const QPointF& pos) override;
    QPushButton* testButtonAt(const QPoint& pos) override;
    void button_tap(QPushButton* btn) override;
    void slider_tap(const QPoint& pos) override;
    void onTouchBeginReq() override { calls << "touchBegin"; }
    void refreshPage(int pageid) override;
    void hideGestureGuideOverlay() override { calls << "hideGuide"; }
    int get_current_pageid() const override { return currentPage; }
};
