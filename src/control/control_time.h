#pragma once
// Time as the shell's controllers see it: a monotonic clock and single-shot
// timers. The panel runs on Qt's clock and QTimer; tests drive a manual
// source so that minutes of idle time pass in a function call.
#include <QtGlobal>

#include <functional>
#include <memory>

class ControlTimer {
public:
    virtual ~ControlTimer() = default;
    // (Re)starts the timer; it fires once, `ms` from now.
    virtual void start(int ms) = 0;
    virtual void stop() = 0;
    virtual bool isActive() const = 0;
    // The interval of the last start.
    virtual int interval() const = 0;
};

class ControlTimeSource {
public:
    virtual ~ControlTimeSource() = default;
    // Milliseconds on a clock that never goes back.
    virtual qint64 nowMs() const = 0;
    // A stopped single-shot timer that calls `onTimeout` on the GUI thread.
    virtual std::unique_ptr<ControlTimer> createSingleShot(std::function<void()> onTimeout) = 0;
};

// Qt's monotonic clock and QTimer (coarse, as the shell's timers need no more).
ControlTimeSource& systemTimeSource();

// A started/not-started stopwatch on a time source, like QElapsedTimer.
class ControlStopwatch {
public:
    explicit ControlStopwatch(const ControlTimeSource& time) : time_(time) {}
    void restart() { started_at = time_.nowMs(); }
    void invalidate() { started_at = -1; }
    bool isValid() const { return started_at >= 0; }
    // Milliseconds since restart; meaningless while invalid.
    qint64 elapsed() const { return time_.nowMs() - started_at; }

private:
    const ControlTimeSource& time_;
    qint64 started_at = -1;
};
