#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace sim {

// One state topic of the box: its name, a short alias for the control
// channel, and how its payload is made from the device state.
struct TopicEntry {
    std::string name;
    std::string alias;
    nlohmann::json (*payload)(const nlohmann::json& state);
    // Whether the topic is sent at all in this state: progress is published
    // only while an upgrade runs, since any report shows the upgrade screen.
    bool (*active)(const nlohmann::json& state);
};

// The nine topics the panel subscribes to.
const std::vector<TopicEntry>& topicEntries();
// By name or alias; null when unknown.
const TopicEntry* findTopic(const std::string& name_or_alias);

// The payload turned into the other root shape (object <-> array), for the
// wrong-shape fault.
nlohmann::json wrongShape(const nlohmann::json& payload);

} // namespace sim
