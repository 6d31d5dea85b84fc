#include "input/touch_event_handler.h"

#include <QEvent>
#include <QPushButton>
#include <QRect>
#include <QSlider>
#include <QWidget>

#include <chrono>
#include <cmath>

namespace {

qreal manhattan(const QPointF& a, const QPointF& b)
{
    return qAbs(a.x() - b.x()) + qAbs(a.y() - b.y());
}

qint64 steadyClockMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

// Out of line on purpose: GCC 12's vectorizer merges two neighbouring
// double-to-float-to-double round trips and drops the rounding.
[[gnu::noinline]] double toSinglePrecision(double value)
{
    return static_cast<float>(value);
}

const QList<QTouchEvent::TouchPoint>& touchPointsOf(QEvent* event)
{
    return static_cast<QTouchEvent*>(event)->touchPoints();
}

} // namespace

const QTouchEvent::TouchPoint* findTouchPointById(const QList<QTouchEvent::TouchPoint>& points,
                                                  int id, const QPointF* hint)
{
    if (points.isEmpty())
        return nullptr;
    if (id >= 0) {
        for (const QTouchEvent::TouchPoint& point : points) {
            if (point.id() == id)
                return &point;
        }
    }
    const QTouchEvent::TouchPoint* chosen = &points.first();
    if (hint && points.size() > 1) {
        qreal best = manhattan(chosen->pos(), *hint);
        for (const QTouchEvent::TouchPoint& point : points) {
            const qreal distance = manhattan(point.pos(), *hint);
            if (distance < best) {
                best = distance;
                chosen = &point;
            }
        }
    }
    return chosen;
}

bool isEdgeSwipeToCenter(const QPointF& start, const QPointF& delta)
{
    const float dx = static_cast<float>(delta.x());
    const float dy = static_cast<float>(delta.y());
    const bool fromLeft =
        start.x() <= TouchEventHandler::kEdgeBandLeft && dx >= TouchEventHandler::kEdgeSwipeTravel;
    const bool fromRight = start.x() >= TouchEventHandler::kEdgeBandRight
                           && dx <= -TouchEventHandler::kEdgeSwipeTravel;
    if (!fromLeft && !fromRight)
        return false;
    return std::fabs(dy) * TouchEventHandler::kEdgeSwipeVerticalShare < std::fabs(dx);
}

int determineSwipeDirection(const QPointF& delta)
{
    const float absDx = std::fabs(static_cast<float>(delta.x()));
    const float absDy = std::fabs(static_cast<float>(delta.y()));
    if (absDx + absDy < TouchEventHandler::kSwipeMinDistance)
        return SWIPE_NONE;
    if (absDy * TouchEventHandler::kDominantAxisFactor < absDx)
        return delta.x() > 0 ? SWIPE_RIGHT : SWIPE_LEFT;
    if (absDx * TouchEventHandler::kDominantAxisFactor < absDy)
        return delta.y() > 0 ? SWIPE_DOWN : SWIPE_UP;
    return SWIPE_NONE;
}

QPointF mapQtToScreen(const QPointF& pos)
{
    return QPointF(toSinglePrecision(pos.y() * 3.720930337905884),
                   toSinglePrecision((640.0 - pos.x()) * 0.26875001192092896));
}

int sliderValueAtX(qreal x, const QRect& geometry, int min, int max)
{
    const qint64 offset = static_cast<qint64>(x - geometry.left());
    const qint64 width = geometry.width();
    const qint64 step = width == 0 ? 0 : offset * (qint64(max) - min) / width;
    return static_cast<int>(qBound<qint64>(min, min + step, max));
}

TouchEventHandler::TouchEventHandler(QObject* parent) : QObject(parent), clock(steadyClockMs)
{
    // Lets the signals travel over queued connections and be recorded by name.
    qRegisterMetaType<QPushButton*>();
    qRegisterMetaType<QSlider*>();
    long_press_timer.setInterval(kLongPressMs);
    long_press_timer.setSingleShot(true);
    connect(&long_press_timer, &QTimer::timeout, this, &TouchEventHandler::handleLongPress);
}

void TouchEventHandler::setClock(Clock newClock)
{
    clock = newClock ? std::move(newClock) : Clock(steadyClockMs);
}

void TouchEventHandler::attachTo(QWidget* newTarget)
{
    if (!newTarget)
        return;
    newTarget->setAttribute(Qt::WA_AcceptTouchEvents);
    newTarget->removeEventFilter(this);
    newTarget->installEventFilter(this);
    target = newTarget;
}

void TouchEventHandler::consumeCurrentTouchSequence()
{
    consumed = true;
    long_press_timer.stop();
    active = false;
    long_press_armed = false;
    tracked_id = -1;
}

bool TouchEventHandler::eventFilter(QObject* watched, QEvent* event)
{
    if (!target || watched != target)
        return QObject::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::TouchBegin:
        // The shell may consume the sequence from inside this emission.
        emit touchBeginDetected();
        if (!consumed)
            handleTouchBegin(event);
        return true;
    case QEvent::TouchUpdate:
        if (!consumed)
            handleTouchUpdate(event);
        return true;
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        if (consumed)
            consumed = false;
        else
            handleTouchEnd(event);
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}

void TouchEventHandler::handleTouchBegin(QEvent* event)
{
    const QTouchEvent::TouchPoint* point = findTouchPointById(touchPointsOf(event), -1);
    if (!point)
        return;
    tracked_id = point->id();
    press_pos = point->pos();
    last_pos = press_pos;
    press_started_ms = clock();
    long_press_timer.start();
    active = true;
    long_press_armed = true;
}

void TouchEventHandler::handleTouchUpdate(QEvent* event)
{
    const QList<QTouchEvent::TouchPoint>& points = touchPointsOf(event);
    if (points.isEmpty() || !active)
        return;
    const QTouchEvent::TouchPoint* point = findTouchPointById(points, tracked_id, &last_pos);
    if (!point)
        return;
    last_pos = point->pos();

    // Once the finger has wandered this far the press is a drag for good,
    // even if it comes back.
    if (manhattan(last_pos, press_pos) > kLongPressCancelDistance) {
        long_press_timer.stop();
        long_press_armed = false;
    }

    // A drag belongs to the slider it started on, wherever the finger goes.
    if (QSlider* slider = sliderAtGlobalPos(press_pos))
        emit sliderValueChangedDetected(slider, sliderValueAt(slider, last_pos.x()));
}

void TouchEventHandler::handleTouchEnd(QEvent* event)
{
    if (!active)
        return;
    // A cancel carries no usable position; it is classified from the last one
    // seen, so that a cancelled touch can still be a tap or a swipe.
    if (event->type() == QEvent::TouchEnd) {
        if (const QTouchEvent::TouchPoint* point =
                findTouchPointById(touchPointsOf(event), tracked_id, &last_pos))
            last_pos = point->pos();
    }
    long_press_timer.stop();
    tracked_id = -1;
    active = false;
    long_press_armed = false;

    classifyRelease(clock() - press_started_ms, last_pos - press_pos);
}

void TouchEventHandler::classifyRelease(qint64 elapsed, const QPointF& delta)
{
    const float distance = static_cast<float>(qAbs(delta.x()) + qAbs(delta.y()));

    if (elapsed < long_press_timer.interval() && distance < kTapMaxDistance) {
        if (QPushButton* button = buttonAtGlobalPos(press_pos)) {
            emit buttonTapDetected(button);
        } else if (QSlider* slider = sliderAtGlobalPos(press_pos)) {
            const int value = sliderValueAt(slider, press_pos.x());
            emit sliderValueChangedDetected(slider, value);
            emit sliderTapDetected(slider, value);
        }
        return;
    }
    if (QSlider* slider = sliderAtGlobalPos(press_pos)) {
        emit sliderReleaseDetected(slider, slider->value());
        return;
    }
    if (elapsed >= kSwipeMaxMs)
        return;
    if (isEdgeSwipeToCenter(press_pos, delta)) {
        handleEdgeSwipeToCenter();
        return;
    }
    if (distance > kSwipeMinDistance)
        emitSwipe(determineSwipeDirection(delta));
}

void TouchEventHandler::emitSwipe(int direction)
{
    switch (direction) {
    case SWIPE_UP:
        handleSwipeUp();
        break;
    case SWIPE_DOWN:
        handleSwipeDown();
        break;
    case SWIPE_LEFT:
        handleSwipeLeft();
        break;
    case SWIPE_RIGHT:
        handleSwipeRight();
        break;
    default:
        break;
    }
}

void TouchEventHandler::handleLongPress()
{
    if (!active || !long_press_armed)
        return;
    long_press_armed = false;
    if (QPushButton* button = buttonAtGlobalPos(press_pos))
        emit buttonLongPressDetected(button);
    else
        emit longPressDetected(press_pos);
}

void TouchEventHandler::handleSwipeLeft()
{
    emit swipeLeftDetected();
}

void TouchEventHandler::handleSwipeRight()
{
    emit swipeRightDetected();
}

void TouchEventHandler::handleEdgeSwipeToCenter()
{
    emit edgeSwipeToCenterDetected();
}

void TouchEventHandler::handleSwipeUp()
{
    emit swipeUpDetected();
}

void TouchEventHandler::handleSwipeDown()
{
    emit swipeDownDetected();
}

template <typename T> T* TouchEventHandler::controlAt(const QPointF& pos) const
{
    if (!target)
        return nullptr;
    const QPoint point(static_cast<int>(std::lround(pos.x())),
                       static_cast<int>(std::lround(pos.y())));
    // Walking up lets a label lying on a button count as the button.
    T* control = nullptr;
    for (QWidget* widget = target->childAt(point); widget && !control;
         widget = widget->parentWidget())
        control = qobject_cast<T*>(widget);
    if (!control || !control->isEnabled() || !control->isVisible() || !control->isVisibleTo(target))
        return nullptr;
    return control;
}

QPushButton* TouchEventHandler::buttonAtGlobalPos(const QPointF& pos) const
{
    return controlAt<QPushButton>(pos);
}

QSlider* TouchEventHandler::sliderAtGlobalPos(const QPointF& pos) const
{
    return controlAt<QSlider>(pos);
}

// The finger is in target coordinates and the slider's edge in its parent's;
// the slider page is laid out so that the two agree, so no mapping is done.
int TouchEventHandler::sliderValueAt(const QSlider* slider, qreal x) const
{
    return sliderValueAtX(x, slider->geometry(), slider->minimum(), slider->maximum());
}
