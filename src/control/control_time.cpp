#include "control/control_time.h"

#include <QElapsedTimer>
#include <QTimer>

namespace {

class QtControlTimer : public ControlTimer {
public:
    explicit QtControlTimer(std::function<void()> onTimeout)
    {
        timer.setSingleShot(true);
        timer.setTimerType(Qt::CoarseTimer);
        QObject::connect(&timer, &QTimer::timeout, std::move(onTimeout));
    }
    void start(int ms) override { timer.start(ms); }
    void stop() override { timer.stop(); }
    bool isActive() const override { return timer.isActive(); }
    int interval() const override { return timer.interval(); }

private:
    QTimer timer;
};

class QtTimeSource : public ControlTimeSource {
public:
    QtTimeSource() { clock.start(); }
    qint64 nowMs() const override { return clock.elapsed(); }
    std::unique_ptr<ControlTimer> createSingleShot(std::function<void()> onTimeout) override
    {
        return std::make_unique<QtControlTimer>(std::move(onTimeout));
    }

private:
    QElapsedTimer clock;
};

} // namespace

ControlTimeSource& systemTimeSource()
{
    static QtTimeSource source;
    return source;
}
