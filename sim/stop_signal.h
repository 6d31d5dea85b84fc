#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace sim {

// Lets every sleeping thread of the simulator (the clock, a delayed or held
// reply) wake at once when it shuts down.
class StopSignal {
public:
    void trigger()
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stopped_ = true;
        cv_.notify_all();
    }

    bool stopped() const
    {
        std::lock_guard<std::mutex> lock(mutex_);
        return stopped_;
    }

    // Sleeps `duration` unless stopped first; returns whether it was stopped.
    bool sleepFor(std::chrono::milliseconds duration)
    {
        std::unique_lock<std::mutex> lock(mutex_);
        return cv_.wait_for(lock, duration, [this] { return stopped_; });
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable cv_;
    bool stopped_ = false;
};

} // namespace sim
