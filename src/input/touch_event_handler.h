#pragma once

#include <QList>
#include <QObject>
#include <QPointF>
#include <QTimer>
#include <QTouchEvent>

#include <functional>

class QEvent;
class QPushButton;
class QRect;
class QSlider;
class QWidget;

// Direction codes answered by determineSwipeDirection.
enum SwipeDirection {
    SWIPE_UP = 0,
    SWIPE_DOWN = 1,
    SWIPE_LEFT = 2,
    SWIPE_RIGHT = 3,
    SWIPE_NONE = 4,
};

// The point with `id`; when that finger is gone (or `id` is negative) the
// point nearest to `hint` if one is given and there is a choice, else the
// first point. Null for an empty list.
const QTouchEvent::TouchPoint* findTouchPointById(const QList<QTouchEvent::TouchPoint>& points,
                                                  int id, const QPointF* hint = nullptr);

// A long horizontal swipe that starts in the band at either short end of the
// strip and travels towards the middle.
bool isEdgeSwipeToCenter(const QPointF& start, const QPointF& delta);

// One of SwipeDirection. Travel at about 45 degrees, between the horizontal
// and the vertical cone, gives SWIPE_NONE.
int determineSwipeDirection(const QPointF& delta);

// Position on the physical panel, which is mounted a quarter turn from the
// orientation Qt reports.
QPointF mapQtToScreen(const QPointF& pos);

// Slider value for a finger at horizontal position `x` over a slider whose
// geometry is `geometry` and whose range is `min`..`max`.
int sliderValueAtX(qreal x, const QRect& geometry, int min, int max);

// Turns the raw touch events of one widget into gestures. Buttons and sliders
// never receive presses of their own on this panel (no mouse events exist), so
// taps and drags on them are found here by hit test and reported as signals.
class TouchEventHandler : public QObject {
    Q_OBJECT

public:
    // Milliseconds from any fixed origin; only differences are used.
    using Clock = std::function<qint64()>;

    static constexpr int kLongPressMs = 800;
    static constexpr qreal kTapMaxDistance = 10.0;
    static constexpr qreal kLongPressCancelDistance = 36.0;
    static constexpr qint64 kSwipeMaxMs = 900;
    static constexpr qreal kSwipeMinDistance = 15.0;
    static constexpr qreal kDominantAxisFactor = 1.25;
    static constexpr qreal kEdgeBandLeft = 56.0;
    static constexpr qreal kEdgeBandRight = 584.0;
    static constexpr qreal kEdgeSwipeTravel = 280.0;
    static constexpr qreal kEdgeSwipeVerticalShare = 0.75;

    explicit TouchEventHandler(QObject* parent = nullptr);

    void attachTo(QWidget* target);
    // Swallows the rest of the sequence in progress, up to its end or cancel.
    void consumeCurrentTouchSequence();

    bool eventFilter(QObject* watched, QEvent* event) override;

    void handleTouchBegin(QEvent* event);
    void handleTouchUpdate(QEvent* event);
    void handleTouchEnd(QEvent* event);

    QPushButton* buttonAtGlobalPos(const QPointF& pos) const;
    QSlider* sliderAtGlobalPos(const QPointF& pos) const;

    void setClock(Clock clock);
    QTimer& longPressTimer() { return long_press_timer; }

    QWidget* attachedTarget() const { return target; }
    bool isActive() const { return active; }
    bool isConsumed() const { return consumed; }
    bool isLongPressArmed() const { return long_press_armed; }
    int trackedId() const { return tracked_id; }
    QPointF pressPos() const { return press_pos; }
    QPointF lastPos() const { return last_pos; }

signals:
    void buttonTapDetected(QPushButton* btn);
    void swipeLeftDetected();
    void swipeRightDetected();
    void edgeSwipeToCenterDetected();
    void longPressDetected(const QPointF& pos);
    void buttonLongPressDetected(QPushButton* btn);
    void swipeUpDetected();
    void swipeDownDetected();
    void sliderValueChangedDetected(QSlider* slider, int value);
    void sliderTapDetected(QSlider* slider, int value);
    void sliderReleaseDetected(QSlider* slider, int value);
    void touchBeginDetected();

public slots:
    void handleLongPress();
    void handleSwipeLeft();
    void handleSwipeRight();
    void handleEdgeSwipeToCenter();
    void handleSwipeUp();
    void handleSwipeDown();

private:
    template <typename T> T* controlAt(const QPointF& pos) const;
    int sliderValueAt(const QSlider* slider, qreal x) const;
    void classifyRelease(qint64 elapsed, const QPointF& delta);
    void emitSwipe(int direction);

    QWidget* target = nullptr;
    QPointF press_pos;
    QPointF last_pos;
    Clock clock;
    qint64 press_started_ms = 0;
    QTimer long_press_timer;
    int tracked_id = -1;
    bool active = false;
    bool long_press_armed = false;
    bool consumed = false;
};
