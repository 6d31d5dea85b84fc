#pragma once

#include <nlohmann/json.hpp>

#include <string>

// Reply forms of the daemons. The web server daemon answers a good request
// with `rsp` "succeed" and the general success code, a refused one with a
// code of the domain's range; the AI service says "success", and the media
// server daemon answers in `msg`.
namespace sim::reply {

using json = nlohmann::json;

json ok();
json okData(json data);
// Some reads answer at the top level instead of in `data`.
json okTop(const char* key, json value);
json refuse(const std::string& code, const std::string& reason);

json aiOk();
json aiData(json data);

json mediaData(json data);

// The status of a reply for the request log: its code, or its success word.
std::string statusOf(const json& reply);

} // namespace sim::reply

// Codes of the domains' ranges that the simulator answers with.
namespace sim::code {
inline const char* const kSuccess = "00000";
inline const char* const kRebooting = "00010";
inline const char* const kUnknownOperation = "1";
inline const char* const kOutOfRange = "11";
inline const char* const kSystemInvalid = "80006";
inline const char* const kWorkmodeAlreadySet = "80012";
inline const char* const kNetworkInvalid = "70002";
inline const char* const kNoWifiModule = "70016";
inline const char* const kVideoInvalid = "130003";
inline const char* const kStreamInvalid = "60004";
inline const char* const kStreamNeedClose = "60007";
inline const char* const kStreamIndexInvalid = "60013";
inline const char* const kOsdInvalid = "120002";
inline const char* const kDiskFull = "100001";
inline const char* const kDiskInvalid = "100002";
inline const char* const kNasAlreadyOpened = "100011";
inline const char* const kNasClosed = "100013";
inline const char* const kStorageBusy = "100015";
inline const char* const kSpeedTestFailed = "100016";
inline const char* const kStorageRecordingBusy = "100017";
inline const char* const kRecordTaskStarted = "110001";
inline const char* const kRecordIndexInvalid = "110002";
inline const char* const kRecordStartFailed = "110005";
inline const char* const kRecordingCannotModify = "110007";
inline const char* const kStreamPlayInvalid = "140001";
inline const char* const kUvcInvalid = "190003";
inline const char* const kUvcCheckFailed = "190006";
inline const char* const kPtzInvalidProtocol = "invalid_protocol";
} // namespace sim::code
