#pragma once
// A time source that only moves when told to, for driving the shell's timers
// deterministically: advance() fires every timer that falls due, in the order
// of their deadlines, at the time of its deadline. The source must outlive
// the timers it created.
#include "control/control_time.h"

#include <vector>

class ManualTimeSource : public ControlTimeSource {
public:
    ManualTimeSource() = default;
    ~ManualTimeSource() override;
    ManualTimeSource(const ManualTimeSource&) = delete;
    ManualTimeSource& operator=(const ManualTimeSource&) = delete;

    qint64 nowMs() const override { return now; }
    std::unique_ptr<ControlTimer> createSingleShot(std::function<void()> onTimeout) override;

    // Moves the clock `ms` forward, firing due timers on the way.
    void advance(qint64 ms);
    // Milliseconds until the next timer fires, or -1 when none is armed.
    qint64 nextDeadlineIn() const;
    int activeTimerCount() const;

private:
    class Timer;
    friend class Timer;
    Timer* nextDue(qint64 until) const;

    qint64 now = 0;
    std::vector<Timer*> timers;
};
