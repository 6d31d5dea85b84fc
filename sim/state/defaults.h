#pragma once

#include <nlohmann/json.hpp>

// The state of a freshly unpacked box, one section per domain. The whole
// device is one JSON document so that the control channel can read any part
// of it by JSON pointer and a state file can replace any part of it.
namespace sim {

using json = nlohmann::json;

json defaultSystemState();  // "system", "lcd", "systime", "upgrade"
json defaultNetworkState(); // "network", "cpu"
json defaultStorageState(); // "storage", "record"
json defaultEncoderState(); // "video", "audio", "stream", "osd", "ai", "ptz"
json defaultDecoderState(); // "decoder"

// All sections merged into one document.
json defaultDeviceState();

} // namespace sim
