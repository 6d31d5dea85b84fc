#pragma once

#include "faults/fault_table.h"
#include "handlers/handler_table.h"
#include "state/device_state.h"
#include "topics/topic_publisher.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace sim {

// The simulator's control language, one command per line, shared by the
// control socket and the start script. Every command answers one line:
// "ok" or "ok <json>", or "error: <why>" with nothing changed.
class ControlCommands {
public:
    struct Context {
        DeviceState& state;
        FaultTable& faults;
        TopicPublisher& publisher;
        std::vector<const HandlerTable*> tables; // to check operation names
        std::function<void()> on_change;         // after the state changed
    };

    explicit ControlCommands(Context context);

    std::string execute(const std::string& line);

    static const char* helpText();

private:
    using Words = std::vector<std::string>;
    using Command = std::string (ControlCommands::*)(const Words& words, const std::string& rest);

    std::string help(const Words&, const std::string&);
    std::string showState(const Words&, const std::string&);
    std::string get(const Words& words, const std::string&);
    std::string set(const Words& words, const std::string& rest);
    std::string showFaults(const Words&, const std::string&);
    std::string delay(const Words& words, const std::string&);
    std::string hang(const Words& words, const std::string&);
    std::string empty(const Words& words, const std::string&);
    std::string status(const Words& words, const std::string&);
    std::string clear(const Words& words, const std::string&);
    std::string topicRaw(const Words& words, const std::string& rest);
    std::string topicMalformed(const Words& words, const std::string&);
    std::string topicWrongShape(const Words& words, const std::string&);
    std::string silence(const Words& words, const std::string&);
    std::string unsilence(const Words& words, const std::string&);
    std::string unplugDisk(const Words& words, const std::string&);
    std::string plugDisk(const Words& words, const std::string&);
    std::string fillDisk(const Words& words, const std::string&);
    std::string wifiDrop(const Words&, const std::string&);
    std::string wifiUp(const Words&, const std::string&);
    std::string upgrade(const Words& words, const std::string&);
    std::string standby(const Words&, const std::string&);
    std::string wake(const Words&, const std::string&);
    std::string appStatus(const Words& words, const std::string&);
    std::string workmode(const Words& words, const std::string&);
    std::string publish(const Words&, const std::string&);

    bool knownOperation(const std::string& name) const;
    std::string setReplyFault(const std::string& operation, ReplyFault fault);
    std::string changeState(const std::function<void(json&)>& change);
    std::string diskCommand(const Words& words, void (*change)(json&, int));

    Context context_;
    std::map<std::string, std::pair<Command, std::size_t>> commands_; // name -> handler, word count
};

} // namespace sim
