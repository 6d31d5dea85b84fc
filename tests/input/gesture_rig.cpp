#include "gesture_rig.h"

#include <QMetaObject>
#include <QPushButton>
#include <QSlider>
#include <QTest>

namespace {

QString pointText(const QPointF& pos)
{
    return QStringLiteral("(%1,%2)").arg(pos.x()).arg(pos.y());
}

QString controlText(const QObject* control)
{
    return control ? control->objectName() : QStringLiteral("null");
}

} // namespace

QTouchEvent::TouchPoint touchPoint(int id, const QPointF& pos, Qt::TouchPointState state)
{
    QTouchEvent::TouchPoint point(id);
    point.setPos(pos);
    point.setStartPos(pos);
    point.setState(state);
    return point;
}

GestureLog::GestureLog(TouchEventHandler& handler)
{
    auto add = [this](const QString& entry) { entries << entry; };
    QObject::connect(&handler, &TouchEventHandler::buttonTapDetected,
                     [add](QPushButton* btn) { add("tap:" + controlText(btn)); });
    QObject::connect(&handler, &TouchEventHandler::swipeLeftDetected, [add] { add("swipeLeft"); });
    QObject::connect(&handler, &TouchEventHandler::swipeRightDetected,
                     [add] { add("swipeRight"); });
    QObject::connect(&handler, &TouchEventHandler::edgeSwipeToCenterDetected,
                     [add] { add("edgeSwipe"); });
    QObject::connect(&handler, &TouchEventHandler::longPressDetected,
                     [add](const QPointF& pos) { add("longPress:" + pointText(pos)); });
    QObject::connect(&handler, &TouchEventHandler::buttonLongPressDetected,
                     [add](QPushButton* btn) { add("buttonLongPress:" + controlText(btn)); });
    QObject::connect(&handler, &TouchEventHandler::swipeUpDetected, [add] { add("swipeUp"); });
    QObject::connect(&handler, &TouchEventHandler::swipeDownDetected, [add] { add("swipeDown"); });
    auto addSlider = [add](const char* kind, QSlider* slider, int value) {
        add(QStringLiteral("%1:%2=%3").arg(kind, controlText(slider)).arg(value));
    };
    QObject::connect(&handler, &TouchEventHandler::sliderValueChangedDetected,
                     [addSlider](QSlider* s, int v) { addSlider("sliderValue", s, v); });
    QObject::connect(&handler, &TouchEventHandler::sliderTapDetected,
                     [addSlider](QSlider* s, int v) { addSlider("sliderTap", s, v); });
    QObject::connect(&handler, &TouchEventHandler::sliderReleaseDetected,
                     [addSlider](QSlider* s, int v) { addSlider("sliderRelease", s, v); });
    QObject::connect(&handler, &TouchEventHandler::touchBeginDetected,
                     [add] { add("touchBegin"); });
}

QStringList GestureLog::gestures() const
{
    QStringList result = entries;
    result.removeAll(QStringLiteral("touchBegin"));
    return result;
}

GestureRig::GestureRig() : target(std::make_unique<QWidget>()), gestureLog(touch)
{
    target->setFixedSize(640, 172);
    target->show();
    touch.setClock([this] { return clockMs; });
    touch.attachTo(target.get());
}

GestureRig::~GestureRig() = default;

QTouchDevice* GestureRig::device()
{
    static QTouchDevice* const shared = QTest::createTouchDevice();
    return shared;
}

QPushButton* GestureRig::addButton(const QString& name, const QRect& geometry, QWidget* parent)
{
    auto* button = new QPushButton(name, parent ? parent : target.get());
    button->setObjectName(name);
    button->setGeometry(geometry);
    button->show();
    return button;
}

QSlider* GestureRig::addSlider(const QString& name, const QRect& geometry, int min, int max,
                               QWidget* parent)
{
    auto* slider = new QSlider(Qt::Horizontal, parent ? parent : target.get());
    slider->setObjectName(name);
    slider->setRange(min, max);
    slider->setGeometry(geometry);
    slider->show();
    return slider;
}

void GestureRig::send(QEvent::Type type, const QList<QTouchEvent::TouchPoint>& points)
{
    Qt::TouchPointStates states;
    for (const QTouchEvent::TouchPoint& point : points)
        states |= point.state();
    QTouchEvent event(type, device(), Qt::NoModifier, states, points);
    event.setWindow(target->windowHandle());
    QCoreApplication::sendEvent(target.get(), &event);
}

void GestureRig::press(const QPointF& pos, int id)
{
    send(QEvent::TouchBegin, {touchPoint(id, pos, Qt::TouchPointPressed)});
    timerStartedMs = clockMs;
}

void GestureRig::move(const QPointF& pos, int id)
{
    send(QEvent::TouchUpdate, {touchPoint(id, pos)});
}

void GestureRig::moveFingers(const QList<std::pair<int, QPointF>>& fingers)
{
    QList<QTouchEvent::TouchPoint> points;
    for (const auto& finger : fingers)
        points << touchPoint(finger.first, finger.second);
    send(QEvent::TouchUpdate, points);
}

void GestureRig::release(const QPointF& pos, int id)
{
    send(QEvent::TouchEnd, {touchPoint(id, pos, Qt::TouchPointReleased)});
}

void GestureRig::cancel()
{
    send(QEvent::TouchCancel, {});
}

void GestureRig::elapse(qint64 ms)
{
    clockMs += ms;
    QTimer& timer = touch.longPressTimer();
    if (timer.isActive() && clockMs - timerStartedMs >= timer.interval()) {
        timer.stop();
        // Emitting the timer's own signal also proves the handler listens to it.
        QMetaObject::invokeMethod(&timer, "timeout");
    }
}

void GestureRig::swipe(const QPointF& from, const QPointF& to, qint64 durationMs)
{
    press(from);
    move(to);
    elapse(durationMs);
    release(to);
}

void GestureRig::tap(const QPointF& pos, qint64 durationMs, const QPointF& offset)
{
    press(pos);
    elapse(durationMs);
    release(pos + offset);
}
