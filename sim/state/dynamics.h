#pragma once

#include <nlohmann/json.hpp>

#include <ctime>
#include <random>

namespace sim {

// One tick of the box's own life: the clock runs, load and rates wander,
// recordings grow and fill their disks, a speed test finishes, an upgrade
// climbs, an NDI search finds its sources.
void advanceOneTick(nlohmann::json& state, std::mt19937& rng, std::time_t now);

// The device's wall clock as the `time` object of the time replies.
nlohmann::json deviceTime(const nlohmann::json& state, std::time_t now);

} // namespace sim
