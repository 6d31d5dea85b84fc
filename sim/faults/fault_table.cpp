#include "faults/fault_table.h"

namespace sim {

namespace {

const char* kindName(ReplyFault::Kind kind)
{
    switch (kind) {
    case ReplyFault::Delay:
        return "delay";
    case ReplyFault::Hang:
        return "hang";
    case ReplyFault::Empty:
        return "empty";
    case ReplyFault::Status:
        return "status";
    }
    return "?";
}

} // namespace

void FaultTable::setReplyFault(const std::string& operation, ReplyFault fault)
{
    std::lock_guard<std::mutex> lock(mutex_);
    reply_faults_[operation] = std::move(fault);
}

bool FaultTable::clearReplyFault(const std::string& operation)
{
    std::lock_guard<std::mutex> lock(mutex_);
    return reply_faults_.erase(operation) > 0;
}

void FaultTable::clearAll()
{
    std::lock_guard<std::mutex> lock(mutex_);
    reply_faults_.clear();
    silenced_topics_.clear();
}

std::optional<ReplyFault> FaultTable::replyFaultFor(const std::string& operation) const
{
    std::lock_guard<std::mutex> lock(mutex_);
    auto it = reply_faults_.find(operation);
    if (it == reply_faults_.end())
        it = reply_faults_.find("*");
    if (it == reply_faults_.end())
        return std::nullopt;
    return it->second;
}

void FaultTable::setSilenced(const std::string& topic, bool silenced)
{
    std::lock_guard<std::mutex> lock(mutex_);
    if (silenced)
        silenced_topics_.insert(topic);
    else
        silenced_topics_.erase(topic);
}

bool FaultTable::silenced(const std::string& topic) const
{
    std::lock_guard<std::mutex> lock(mutex_);
    return silenced_topics_.count(topic) > 0;
}

nlohmann::json FaultTable::describe() const
{
    std::lock_guard<std::mutex> lock(mutex_);
    nlohmann::json replies = nlohmann::json::object();
    for (const auto& [operation, fault] : reply_faults_) {
        nlohmann::json entry = {{"kind", kindName(fault.kind)}};
        if (fault.kind == ReplyFault::Delay || fault.kind == ReplyFault::Hang)
            entry["ms"] = fault.ms;
        if (fault.kind == ReplyFault::Status)
            entry["code"] = fault.code;
        replies[operation] = entry;
    }
    return {{"replies", replies}, {"silenced", silenced_topics_}};
}

} // namespace sim
