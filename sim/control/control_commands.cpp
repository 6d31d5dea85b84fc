#include "control/control_commands.h"

#include "state/device_rules.h"
#include "topics/topic_payloads.h"

#include <sstream>

namespace sim {

namespace {

constexpr int kDefaultHoldMs = 30000;

std::string ok(const json& value = nullptr)
{
    return value.is_null() ? "ok" : "ok " + value.dump();
}

std::string error(const std::string& why)
{
    return "error: " + why;
}

bool parseInt(const std::string& text, int& value)
{
    try {
        std::size_t used = 0;
        value = std::stoi(text, &used);
        return used == text.size();
    } catch (const std::exception&) {
        return false;
    }
}

bool parseStorageId(const std::string& text, int& storage_id)
{
    static const std::map<std::string, int> names = {{"sd", 0}, {"tf", 0}, {"usb", 1}, {"nas", 3}};
    const auto it = names.find(text);
    if (it != names.end()) {
        storage_id = it->second;
        return true;
    }
    return parseInt(text, storage_id) && rules::isStorageId(storage_id);
}

// Numbers may change between integer and floating point; nothing else may
// change its type.
bool sameKind(const json& a, const json& b)
{
    return a.type() == b.type() || (a.is_number() && b.is_number());
}

} // namespace

ControlCommands::ControlCommands(Context context) : context_(std::move(context))
{
    commands_ = {
        {"help", {&ControlCommands::help, 1}},
        {"state", {&ControlCommands::showState, 1}},
        {"get", {&ControlCommands::get, 2}},
        {"set", {&ControlCommands::set, 3}},
        {"faults", {&ControlCommands::showFaults, 1}},
        {"delay", {&ControlCommands::delay, 3}},
        {"hang", {&ControlCommands::hang, 2}},
        {"empty", {&ControlCommands::empty, 2}},
        {"status", {&ControlCommands::status, 3}},
        {"clear", {&ControlCommands::clear, 2}},
        {"topic-raw", {&ControlCommands::topicRaw, 3}},
        {"topic-malformed", {&ControlCommands::topicMalformed, 2}},
        {"topic-wrong-shape", {&ControlCommands::topicWrongShape, 2}},
        {"silence", {&ControlCommands::silence, 2}},
        {"unsilence", {&ControlCommands::unsilence, 2}},
        {"unplug-disk", {&ControlCommands::unplugDisk, 2}},
        {"plug-disk", {&ControlCommands::plugDisk, 2}},
        {"fill-disk", {&ControlCommands::fillDisk, 2}},
        {"wifi-drop", {&ControlCommands::wifiDrop, 1}},
        {"wifi-up", {&ControlCommands::wifiUp, 1}},
        {"upgrade", {&ControlCommands::upgrade, 1}},
        {"standby", {&ControlCommands::standby, 1}},
        {"wake", {&ControlCommands::wake, 1}},
        {"app-status", {&ControlCommands::appStatus, 2}},
        {"workmode", {&ControlCommands::workmode, 2}},
        {"publish", {&ControlCommands::publish, 1}},
    };
}

const char* ControlCommands::helpText()
{
    return "commands: state | get POINTER | set POINTER JSON | faults | delay OP MS | "
           "hang OP [MS] | empty OP | status OP CODE | clear OP|all | topic-raw TOPIC TEXT | "
           "topic-malformed TOPIC | topic-wrong-shape TOPIC | silence TOPIC | unsilence TOPIC | "
           "unplug-disk sd|usb|nas | plug-disk ID | fill-disk ID | wifi-drop | wifi-up | "
           "upgrade [STEP] | standby | wake | app-status N | workmode 0|1 | publish | help "
           "(OP is an opt, a group without opt, an AI path, or *)";
}

std::string ControlCommands::execute(const std::string& line)
{
    std::istringstream in(line);
    Words words;
    for (std::string word; in >> word;)
        words.push_back(word);
    if (words.empty())
        return error("empty command");
    const auto it = commands_.find(words[0]);
    if (it == commands_.end())
        return error("unknown command '" + words[0] + "'; try help");
    const auto [command, needed] = it->second;
    if (words.size() < needed)
        return error("'" + words[0] + "' needs " + std::to_string(needed - 1) + " argument(s)");
    // What follows the first `needed - 1` words, for commands whose last
    // argument may hold blanks (JSON, raw payloads).
    std::string rest;
    if (needed >= 2) {
        std::istringstream skip(line);
        std::string word;
        for (std::size_t i = 0; i + 1 < needed; ++i)
            skip >> word;
        std::getline(skip, rest);
        rest.erase(0, rest.find_first_not_of(' '));
    }
    return (this->*command)(words, rest);
}

std::string ControlCommands::help(const Words&, const std::string&)
{
    return ok(helpText());
}

std::string ControlCommands::showState(const Words&, const std::string&)
{
    return ok(context_.state.snapshot());
}

std::string ControlCommands::get(const Words& words, const std::string&)
{
    try {
        return ok(context_.state.at(words[1]));
    } catch (const json::exception& e) {
        return error("no value at '" + words[1] + "': " + e.what());
    }
}

std::string ControlCommands::set(const Words& words, const std::string& rest)
{
    const json value = json::parse(rest, nullptr, false);
    if (value.is_discarded())
        return error("value is no JSON: " + rest);
    std::string why;
    try {
        const json::json_pointer pointer(words[1]);
        context_.state.with([&](json& state) {
            const json& current = state.at(pointer);
            if (!sameKind(current, value))
                why = "value must be of the same JSON type as " + current.dump();
            else
                state[pointer] = value;
            return 0;
        });
    } catch (const json::exception& e) {
        return error("no value at '" + words[1] + "': " + e.what());
    }
    if (!why.empty())
        return error(why);
    context_.on_change();
    return ok();
}

std::string ControlCommands::showFaults(const Words&, const std::string&)
{
    return ok(context_.faults.describe());
}

bool ControlCommands::knownOperation(const std::string& name) const
{
    if (name == "*")
        return true;
    for (const HandlerTable* table : context_.tables)
        if (table->knows(name))
            return true;
    return false;
}

std::string ControlCommands::setReplyFault(const std::string& operation, ReplyFault fault)
{
    if (!knownOperation(operation))
        return error("unknown operation '" + operation + "'");
    context_.faults.setReplyFault(operation, std::move(fault));
    return ok();
}

std::string ControlCommands::delay(const Words& words, const std::string&)
{
    int ms = 0;
    if (!parseInt(words[2], ms) || ms < 0)
        return error("delay needs milliseconds >= 0");
    return setReplyFault(words[1], {ReplyFault::Delay, ms, ""});
}

std::string ControlCommands::hang(const Words& words, const std::string&)
{
    int ms = kDefaultHoldMs;
    if (words.size() > 2 && (!parseInt(words[2], ms) || ms < 0))
        return error("hang takes milliseconds >= 0");
    return setReplyFault(words[1], {ReplyFault::Hang, ms, ""});
}

std::string ControlCommands::empty(const Words& words, const std::string&)
{
    return setReplyFault(words[1], {ReplyFault::Empty, 0, ""});
}

std::string ControlCommands::status(const Words& words, const std::string&)
{
    return setReplyFault(words[1], {ReplyFault::Status, 0, words[2]});
}

std::string ControlCommands::clear(const Words& words, const std::string&)
{
    if (words[1] == "all") {
        context_.faults.clearAll();
        return ok();
    }
    if (const TopicEntry* topic = findTopic(words[1])) {
        context_.faults.setSilenced(topic->name, false);
        return ok();
    }
    return context_.faults.clearReplyFault(words[1]) ? ok()
                                                     : error("no fault on '" + words[1] + "'");
}

std::string ControlCommands::topicRaw(const Words& words, const std::string& rest)
{
    const TopicEntry* topic = findTopic(words[1]);
    if (!topic)
        return error("unknown topic '" + words[1] + "'");
    context_.publisher.publishRaw(topic->name, rest);
    return ok();
}

std::string ControlCommands::topicMalformed(const Words& words, const std::string&)
{
    const TopicEntry* topic = findTopic(words[1]);
    if (!topic)
        return error("unknown topic '" + words[1] + "'");
    context_.publisher.publishRaw(topic->name, "{\"data\": {\"broken\": ");
    return ok();
}

std::string ControlCommands::topicWrongShape(const Words& words, const std::string&)
{
    const TopicEntry* topic = findTopic(words[1]);
    if (!topic)
        return error("unknown topic '" + words[1] + "'");
    const json payload = context_.state.with([&](json& state) { return topic->payload(state); });
    context_.publisher.publishRaw(topic->name, wrongShape(payload).dump());
    return ok();
}

std::string ControlCommands::silence(const Words& words, const std::string&)
{
    const TopicEntry* topic = findTopic(words[1]);
    if (!topic)
        return error("unknown topic '" + words[1] + "'");
    context_.faults.setSilenced(topic->name, true);
    return ok();
}

std::string ControlCommands::unsilence(const Words& words, const std::string&)
{
    const TopicEntry* topic = findTopic(words[1]);
    if (!topic)
        return error("unknown topic '" + words[1] + "'");
    context_.faults.setSilenced(topic->name, false);
    context_.publisher.publishAll();
    return ok();
}

std::string ControlCommands::changeState(const std::function<void(json&)>& change)
{
    context_.state.with([&](json& state) {
        change(state);
        return 0;
    });
    context_.on_change();
    return ok();
}

std::string ControlCommands::diskCommand(const Words& words, void (*change)(json&, int))
{
    int storage_id = -1;
    if (!parseStorageId(words[1], storage_id))
        return error("disk must be sd, usb, nas or a storage id 0, 1, 3");
    return changeState([&](json& state) { change(state, storage_id); });
}

std::string ControlCommands::unplugDisk(const Words& words, const std::string&)
{
    return diskCommand(words, rules::unplugDisk);
}

std::string ControlCommands::plugDisk(const Words& words, const std::string&)
{
    return diskCommand(words, rules::plugDisk);
}

std::string ControlCommands::fillDisk(const Words& words, const std::string&)
{
    return diskCommand(words, rules::fillDisk);
}

std::string ControlCommands::wifiDrop(const Words&, const std::string&)
{
    return changeState(rules::dropWifi);
}

std::string ControlCommands::wifiUp(const Words&, const std::string&)
{
    return changeState(rules::restoreWifi);
}

std::string ControlCommands::upgrade(const Words& words, const std::string&)
{
    int step = 5;
    if (words.size() > 1 && (!parseInt(words[1], step) || step < 1 || step > 100))
        return error("upgrade step must be 1 to 100");
    return changeState([step](json& state) {
        state["upgrade"]["progress"] = 0;
        state["upgrade"]["step"] = step;
    });
}

std::string ControlCommands::standby(const Words&, const std::string&)
{
    return changeState([](json& state) { state["system"]["run_status"] = 0; });
}

std::string ControlCommands::wake(const Words&, const std::string&)
{
    return changeState([](json& state) { state["system"]["run_status"] = 1; });
}

std::string ControlCommands::appStatus(const Words& words, const std::string&)
{
    int status = 0;
    if (!parseInt(words[1], status) || status < 0 || status > 9)
        return error("app status must be 0 to 9");
    return changeState(
        [status](json& state) { state["system"]["app_connection_status"] = status; });
}

std::string ControlCommands::workmode(const Words& words, const std::string&)
{
    int mode = 0;
    if (!parseInt(words[1], mode) || (mode != 0 && mode != 1))
        return error("work mode must be 0 (encode) or 1 (decode)");
    return changeState([mode](json& state) { rules::switchWorkMode(state, mode); });
}

std::string ControlCommands::publish(const Words&, const std::string&)
{
    context_.publisher.publishAll();
    return ok();
}

} // namespace sim
