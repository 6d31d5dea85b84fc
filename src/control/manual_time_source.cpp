#include "control/manual_time_source.h"

#include <algorithm>

class ManualTimeSource::Timer : public ControlTimer {
public:
    Timer(ManualTimeSource& source, std::function<void()> onTimeout)
        : source(&source), on_timeout(std::move(onTimeout))
    {
        source.timers.push_back(this);
    }
    ~Timer() override
    {
        if (source) {
            auto& list = source->timers;
            list.erase(std::remove(list.begin(), list.end(), this), list.end());
        }
    }
    void start(int ms) override
    {
        interval_ms = ms;
        deadline = (source ? source->now : 0) + std::max(ms, 0);
        active = true;
    }
    void stop() override { active = false; }
    bool isActive() const override { return active; }
    int interval() const override { return interval_ms; }

    void fire()
    {
        active = false;
        if (on_timeout)
            on_timeout();
    }

    ManualTimeSource* source;
    std::function<void()> on_timeout;
    int interval_ms = 0;
    qint64 deadline = 0;
    bool active = false;
};

ManualTimeSource::~ManualTimeSource()
{
    for (Timer* timer : timers)
        timer->source = nullptr;
}

std::unique_ptr<ControlTimer> ManualTimeSource::createSingleShot(std::function<void()> onTimeout)
{
    return std::make_unique<Timer>(*this, std::move(onTimeout));
}

ManualTimeSource::Timer* ManualTimeSource::nextDue(qint64 until) const
{
    Timer* due = nullptr;
    for (Timer* timer : timers)
        if (timer->active && timer->deadline <= until && (!due || timer->deadline < due->deadline))
            due = timer;
    return due;
}

void ManualTimeSource::advance(qint64 ms)
{
    const qint64 until = now + std::max<qint64>(ms, 0);
    while (Timer* due = nextDue(until)) {
        now = std::max(now, due->deadline);
        due->fire();
    }
    now = until;
}

qint64 ManualTimeSource::nextDeadlineIn() const
{
    qint64 best = -1;
    for (const Timer* timer : timers)
        if (timer->active && (best < 0 || timer->deadline - now < best))
            best = std::max<qint64>(timer->deadline - now, 0);
    return best;
}

int ManualTimeSource::activeTimerCount() const
{
    return static_cast<int>(
        std::count_if(timers.begin(), timers.end(), [](const Timer* t) { return t->active; }));
}
