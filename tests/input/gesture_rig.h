#pragma once

#include "input/touch_event_handler.h"

#include <QList>
#include <QPointF>
#include <QRect>
#include <QStringList>
#include <QWidget>

#include <memory>
#include <utility>

class QPushButton;
class QSlider;
class QTouchDevice;

// Writes every signal of a TouchEventHandler into one ordered list, e.g.
// "tap:ok", "swipeLeft", "sliderTap:level=50", "longPress:(300,80)".
class GestureLog {
public:
    explicit GestureLog(TouchEventHandler& handler);
    // All entries, touch begins included.
    const QStringList& all() const { return entries; }
    // The entries without the "touchBegin" ones.
    QStringList gestures() const;
    void clear() { entries.clear(); }

private:
    QStringList entries;
};

// A shown 640x172 window with a handler attached, a clock that only moves
// when told to, and touch sequences sent straight to the window.
class GestureRig {
public:
    static constexpr qint64 kStartMs = 100000;

    GestureRig();
    ~GestureRig();

    QWidget& window() { return *target; }
    TouchEventHandler& handler() { return touch; }
    GestureLog& log() { return gestureLog; }
    qint64 now() const { return clockMs; }

    // Controls are children of `parent` (the window when null), shown.
    QPushButton* addButton(const QString& name, const QRect& geometry, QWidget* parent = nullptr);
    QSlider* addSlider(const QString& name, const QRect& geometry, int min, int max,
                       QWidget* parent = nullptr);

    void press(const QPointF& pos, int id = 0);
    void move(const QPointF& pos, int id = 0);
    // One update carrying several fingers, in the order given.
    void moveFingers(const QList<std::pair<int, QPointF>>& fingers);
    void release(const QPointF& pos, int id = 0);
    void cancel();

    // Moves the clock on; the long-press timer fires when its interval has
    // passed since it was started, as a running event loop would make it.
    void elapse(qint64 ms);

    // Press at `from`, one update at `to`, `durationMs` later release at `to`.
    void swipe(const QPointF& from, const QPointF& to, qint64 durationMs);
    // Press, optional still hold, release at `pos + offset`.
    void tap(const QPointF& pos, qint64 durationMs = 50, const QPointF& offset = QPointF());

    static QTouchDevice* device();

private:
    void send(QEvent::Type type, const QList<QTouchEvent::TouchPoint>& points);

    std::unique_ptr<QWidget> target;
    TouchEventHandler touch;
    GestureLog gestureLog;
    qint64 clockMs = kStartMs;
    qint64 timerStartedMs = kStartMs;
};

QTouchEvent::TouchPoint touchPoint(int id, const QPointF& pos,
                                   Qt::TouchPointState state = Qt::TouchPointMoved);
