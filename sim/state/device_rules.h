#pragma once

#include <nlohmann/json.hpp>

#include <string>

// What a real box does on its own when one part of its state changes: a
// recording stops when its disk goes, a work mode switch stops what belonged
// to the other mode, and so on. Used by request handlers, the control channel
// and the clock alike. All functions work on the locked state document.
namespace sim::rules {

using json = nlohmann::json;

enum DiskStatus { kDiskAbsent = 0, kDiskReady = 1, kDiskFull = 2 };
enum RecordStatus { kRecordStopped = 0, kRecording = 1, kRecordPaused = 2 };
// The Wi-Fi client's status: 4 once it has joined a network.
enum WifiStatus { kWifiIdle = 0, kWifiConnected = 4 };

int workMode(const json& state);
bool isStorageId(int storage_id);

// The element of `array` whose `key` equals `value`, or null.
json* findBy(json& array, const char* key, const json& value);

json* findDisk(json& state, int storage_id);
json* findRecordTask(json& state, const std::string& index);
bool anyRecording(const json& state);
bool recordingOn(const json& state, int storage_id);
void stopRecording(json& task);
void stopRecordingsOn(json& state, int storage_id);

void unplugDisk(json& state, int storage_id);
void plugDisk(json& state, int storage_id);
void fillDisk(json& state, int storage_id);

bool anyPushStreamOn(const json& state);
void switchWorkMode(json& state, int mode);
// A restart ends whatever ran (recordings, pushes, decoder sources); the box
// comes back running, in its work mode, with its uptime from zero.
void restart(json& state);
// Stops every decoder source (pulls, NDI reception, UVC devices).
void stopDecoderSources(json& state);

void dropWifi(json& state);
void restoreWifi(json& state);
// The address the box is reached at: LAN first, else Wi-Fi, else none.
std::string mainIp(const json& state);

} // namespace sim::rules
