#pragma once

#include <optional>

class QPushButton;

// The gestures a page can answer, one per slot of IGestureHandler.
enum class GestureKind {
    SwipeLeft,
    SwipeRight,
    EdgeSwipeToCenter,
    SwipeUp,
    SwipeDown,
    LongPress,
    ButtonLongPress,
    AutoSwitch,
};

// Mix-in of every page beside its QWidget base. Each slot answers the page to
// go to, or a negative value to stay. A page overrides only the gestures it
// reacts to; the others keep the defaults, which answer -1.
class IGestureHandler {
public:
    virtual ~IGestureHandler() = default;

    virtual int onSwipeLeft(int workmode);
    virtual int onSwipeRight(int workmode);
    virtual int onEdgeSwipeToCenter(int workmode);
    virtual int onSwipeUp(int workmode);
    virtual int onSwipeDown(int workmode);
    virtual int onLongPress(int workmode);
    virtual int onButtonLongPress(int workmode, QPushButton* btn);
    virtual int onAutoSwitch(int workmode);
    // Asks the page to renew its texts at its next update.
    virtual void setDirty(bool dirty);

    // Runs the slot of `kind` and returns its answer, or nothing when the page
    // kept the default slot: the shell must not act on a gesture the page
    // never claimed. `btn` is used by ButtonLongPress only.
    std::optional<int> dispatchGesture(GestureKind kind, int workmode, QPushButton* btn = nullptr);

protected:
    // What every default slot answers; also records that the default ran.
    int defaultAnswer();

private:
    bool default_reached = false;
};
