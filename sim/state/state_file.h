#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace sim {

// Reads a state file over the defaults: sections and keys the file names
// replace the defaults, everything else keeps its default, so a demo file
// only needs what differs ("system": {"workmode_id": 1}). Throws with a
// readable message when the file is missing or no JSON object.
nlohmann::json loadStateFile(const std::string& path, const nlohmann::json& defaults);

// Writes through a temporary file and a rename, so a crash never leaves half
// a file. Returns false when it cannot write.
bool saveStateFile(const std::string& path, const nlohmann::json& state);

} // namespace sim
