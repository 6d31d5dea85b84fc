#include "state/device_state.h"

namespace sim {

DeviceState::DeviceState(json initial) : document_(std::move(initial))
{
}

json DeviceState::snapshot() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return document_;
}

json DeviceState::at(const std::string& pointer) const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return document_.at(json::json_pointer(pointer));
}

} // namespace sim
