#pragma once
// Polls a condition that depends on other processes (the device's state, the
// page the panel reports) until it holds or a deadline passes. The interval
// is coarse: every poll is a round trip to another process.
#include <chrono>
#include <thread>

namespace e2e {

template <typename Condition>
bool eventually(Condition condition, std::chrono::milliseconds deadline,
                std::chrono::milliseconds interval = std::chrono::milliseconds(50))
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (!condition()) {
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(interval);
    }
    return true;
}

} // namespace e2e
