#pragma once
// A shown 640x172 window with a TouchEventHandler attached, a clock that
// moves only when told to, and touches sent straight to the window. Every
// signal of the handler goes into one ordered log, e.g. "tap:ok", "swipeLeft",
// "sliderTap:level=50", "longPress:(300,80)", "touchBegin".
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

QTouchEvent::TouchPoint touchPoint(int id, const QPointF& pos,
                                   Qt::TouchPointState state = Qt::TouchPointMoved);

class GestureRig {
public:
    GestureRig();
    ~GestureRig();

    QWidget& window() { return *target; }
    TouchEventHandler& handler() { return touch; }
    const QStringList& log() const { return entries; }
    // The log without its "touchBegin" entries.
    QStringList gestures() const;

    // Shown children of `parent`, the window when null.
    QPushButton* addButton(const QString& name, const QRect& geometry, QWidget* parent = nullptr);
    QSlider* addSlider(const QString& name, const QRect& geometry, QWidget* parent);

    void press(const QPointF& pos, int id = 0);
    void move(const QPointF& pos, int id = 0);
    // One update carrying several fingers, in the order given.
    void moveFingers(const QList<std::pair<int, QPointF>>& fingers);
    void release(const QPointF& pos, int id = 0);
    // A cancel whose point lies at `pos`.
    void cancel(const QPointF& pos = QPointF());
    // Moves the clock on; the long-press timer fires once its interval has
    // passed since the press, as a running event loop would make it.
    void elapse(qint64 ms);
    // Press, 50 ms, release at the same place.
    void tap(const QPointF& pos);

    static QTouchDevice* device();

private:
    void send(QEvent::Type type, const QList<QTouchEvent::TouchPoint>& points);

    std::unique_ptr<QWidget> target;
    TouchEventHandler touch;
    QStringList entries;
    qint64 clockMs = 100000;
    qint64 pressedAtMs = clockMs;
};
