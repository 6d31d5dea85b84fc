#include "gesture_rig.h"

#include <QMetaObject>
#include <QPushButton>
#include <QSlider>
#include <QTest>

namespace {

QString nameOf(const QObject* control)
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

GestureRig::GestureRig() : target(std::make_unique<QWidget>())
{
    target->setFixedSize(640, 172);
    target->show();
    touch.setClock([this] { return clockMs; });
    touch.attachTo(target.get());

    using T = TouchEventHandler;
    auto add = [this](const QString& entry) { entries << entry; };
    auto slider = [add](const char* kind) {
        return [add, kind](QSlider* s, int v) {
            add(QStringLiteral("%1:%2=%3").arg(kind, nameOf(s)).arg(v));
        };
    };
    QObject::connect(&touch, &T::buttonTapDetected,
                     [add](QPushButton* b) { add("tap:" + nameOf(b)); });
    QObject::connect(&touch, &T::buttonLongPressDetected,
                     [add](QPushButton* b) { add("buttonLongPress:" + nameOf(b)); });
    QObject::connect(&touch, &T::longPressDetected, [add](const QPointF& p) {
        add(QStringLiteral("longPress:(%1,%2)").arg(p.x()).arg(p.y()));
    });
    QObject::connect(&touch, &T::swipeLeftDetected, [add] { add("swipeLeft"); });
    QObject::connect(&touch, &T::swipeRightDetected, [add] { add("swipeRight"); });
    QObject::connect(&touch, &T::swipeUpDetected, [add] { add("swipeUp"); });
    QObject::connect(&touch, &T::swipeDownDetected, [add] { add("swipeDown"); });
    QObject::connect(&touch, &T::edgeSwipeToCenterDetected, [add] { add("edgeSwipe"); });
    QObject::connect(&touch, &T::sliderValueChangedDetected, slider("sliderValue"));
    QObject::connect(&touch, &T::sliderTapDetected, slider("sliderTap"));
    QObject::connect(&touch, &T::sliderReleaseDetected, slider("sliderRelease"));
    QObject::connect(&touch, &T::touchBeginDetected, [add] { add("touchBegin"); });
}

GestureRig::~GestureRig() = default;

QStringList GestureRig::gestures() const
{
    QStringList result = entries;
    result.removeAll(QStringLiteral("touchBegin"));
    return result;
}

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

QSlider* GestureRig::addSlider(const QString& name, const QRect& geometry, QWidget* parent)
{
    auto* slider = new QSlider(Qt::Horizontal, parent);
    slider->setObjectName(name);
    slider->setRange(0, 100);
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
    pressedAtMs = clockMs;
}

void GestureRig::move(const QPointF& pos, int id)
{
    send(QEvent::TouchUpdate, {touchPoint(id, pos)});
}

void GestureRig::moveFingers(const QList<std::pair<int, QPointF>>& fingers)
{
    QList<QTouchEvent::TouchPoint> points;
    for (const auto& [id, pos] : fingers)
        points << touchPoint(id, pos);
    send(QEvent::TouchUpdate, points);
}

void GestureRig::release(const QPointF& pos, int id)
{
    send(QEvent::TouchEnd, {touchPoint(id, pos, Qt::TouchPointReleased)});
}

void GestureRig::cancel(const QPointF& pos)
{
    send(QEvent::TouchCancel, {touchPoint(0, pos, Qt::TouchPointReleased)});
}

void GestureRig::elapse(qint64 ms)
{
    clockMs += ms;
    QTimer& timer = touch.longPressTimer();
    if (timer.isActive() && clockMs - pressedAtMs >= timer.interval()) {
        timer.stop();
        // Emitting the timer's own signal also proves the handler listens to it.
        QMetaObject::invokeMethod(&timer, "timeout");
    }
}

void GestureRig::tap(const QPointF& pos)
{
    press(pos);
    elapse(50);
    release(pos);
}
