#pragma once

#include "faults/fault_table.h"
#include "handlers/handler_table.h"
#include "state/device_state.h"
#include "stop_signal.h"

#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace sim {

// One request as the daemon saw it, for tests and tools that check what the
// panel asked: `known` tells whether the daemon has the operation at all.
struct HandledRequest {
    std::string operation;
    std::string status; // the reply's code or word, or what a fault did
    bool known = false;
};

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

    // The latest requests, oldest first (at most kJournalSize).
    std::vector<HandledRequest> journal() const;
    static constexpr std::size_t kJournalSize = 4096;

private:
    json answer(const json& request, bool& wrote);
    // Keeps the request in the journal and writes its log line.
    void report(const json& request, bool known, const std::string& status,
                const std::string& note);

    std::string daemon_;
    HandlerTable table_;
    Context context_;
    mutable std::mutex journal_mutex_;
    std::deque<HandledRequest> journal_;
};

} // namespace sim
