#pragma once

#include <nlohmann/json.hpp>

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>

namespace sim {

// How a request is to be mistreated, by operation name ("*" matches every
// operation without a rule of its own).
struct ReplyFault {
    enum Kind { Delay, Hang, Empty, Status };
    Kind kind;
    int ms = 0;       // Delay: extra time; Hang: how long the reply is held
    std::string code; // Status: the status code answered instead
};

class FaultTable {
public:
    void setReplyFault(const std::string& operation, ReplyFault fault);
    bool clearReplyFault(const std::string& operation);
    void clearAll();
    std::optional<ReplyFault> replyFaultFor(const std::string& operation) const;

    void setSilenced(const std::string& topic, bool silenced);
    bool silenced(const std::string& topic) const;

    nlohmann::json describe() const;

private:
    mutable std::mutex mutex_;
    std::map<std::string, ReplyFault> reply_faults_;
    std::set<std::string> silenced_topics_;
};

} // namespace sim
