#pragma once

#include <nlohmann/json.hpp>

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>

namespace sim {

using json = nlohmann::json;

// The one coherent state of the simulated box. Requests, the control channel
// and the clock all change it under one lock, so every reader sees it whole.
class DeviceState {
public:
    explicit DeviceState(json initial);

    // Runs `f(json&)` under the lock and returns its result.
    template <class F> auto with(F&& f)
    {
        std::lock_guard<std::mutex> lock(mutex_);
        return f(document_);
    }

    json snapshot() const;
    // The value at `pointer` (e.g. "/lcd/lock_stat"); throws when absent.
    json at(const std::string& pointer) const;

    // Counts changes that a user made (requests, control commands), so that
    // the state file is written only when something worth keeping changed.
    void markChanged() { ++revision_; }
    std::uint64_t revision() const { return revision_.load(); }

private:
    mutable std::mutex mutex_;
    json document_;
    std::atomic<std::uint64_t> revision_{0};
};

} // namespace sim
