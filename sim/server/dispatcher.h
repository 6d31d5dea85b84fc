#pragma once

#include "faults/fault_table.h"
#include "handlers/handler_table.h"
#include "state/device_state.h"
#include "stop_signal.h"

#include <functional>
#include <string>

namespace sim {

// Turns one request text into one reply text for one daemon: applies the
// injected faults, runs the operation's handler on the locked state, reports
// successful writes, and logs a line per request.
class Dispatcher {
public:
    struct Context {
        DeviceState& state;
        FaultTable& faults;
        StopSignal& stop;
        std::function<void()> on_write; // after a write that succeeded
        bool quiet = false;
    };

    Dispatcher(std::string daemon, HandlerTable table, Context context);

    // The empty string asks the transport for an empty reply.
    std::string handle(const std::string& request_text);

    const HandlerTable& table() const { return table_; }

private:
    json answer(const json& request, bool& wrote);
    void log(const json& request, const std::string& status, const std::string& note) const;

    std::string daemon_;
    HandlerTable table_;
    Context context_;
};

} // namespace sim
