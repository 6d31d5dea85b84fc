// The requests the API puts on the wire, operation by operation.
#pragma once

#include "model/app_manager.h"

#include <nlohmann/json.hpp>

#include <functional>
#include <vector>

namespace apitest {

struct WireOperation {
    WireOperation(const char* label, std::function<void(AppManager&)> call, const char* expected);
    // A read: its module, `group` and `opt` (when there is one), and no `data`.
    WireOperation(const char* label, const std::function<void(ZmqSubWorker&)>& read,
                  const char* module, const char* group, const char* opt);

    const char* label;
    std::function<void(AppManager&)> call;
    nlohmann::json expected;
};

// A read whose result doesn't matter to the test.
template <int (ZmqSubWorker::*Read)(nlohmann::json&)> void readJson(ZmqSubWorker& w)
{
    nlohmann::json out;
    (w.*Read)(out);
}
template <int (ZmqSubWorker::*Read)(int&)> void readInt(ZmqSubWorker& w)
{
    int out = 0;
    (w.*Read)(out);
}

// Every operation whose request doesn't depend on a state it reads first,
// domain by domain, and last those that end the box's session (standby,
// wake, reboot, reset).
std::vector<WireOperation> wireOperations();

} // namespace apitest
