// Store choice, speed test and NAS entries.
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/device_rules.h"

namespace sim {

namespace {

const char* const kStorageModule = "storage_api";
constexpr int kNasStorageId = 3;
constexpr int kSpeedTestTicks = 2;

json& storage(Request& r)
{
    return r.state["storage"];
}

json* nasEntry(Request& r)
{
    const auto index = r.intArg("index");
    return index ? rules::findBy(storage(r)["nas"], "index", *index) : nullptr;
}

json mount(Request& r)
{
    json* entry = nasEntry(r);
    if (!entry)
        return reply::refuse(code::kOutOfRange, "no NAS entry with this index");
    for (const json& other : storage(r)["nas"])
        if (other["switch"] == 1 && &other != entry)
            return reply::refuse(code::kNasAlreadyOpened, "another NAS is mounted");
    (*entry)["switch"] = 1;
    (*entry)["status"] = 1;
    rules::plugDisk(r.state, kNasStorageId);
    return reply::ok();
}

json umount(Request& r)
{
    json* entry = nasEntry(r);
    if (!entry)
        return reply::refuse(code::kOutOfRange, "no NAS entry with this index");
    if ((*entry)["switch"] != 1)
        return reply::refuse(code::kNasClosed, "NAS is not mounted");
    if (rules::recordingOn(r.state, kNasStorageId))
        return reply::refuse(code::kStorageRecordingBusy, "recording on the NAS");
    rules::unplugDisk(r.state, kNasStorageId);
    return reply::ok();
}

json speedTest(Request& r)
{
    const auto id = r.intArg("storage_id");
    json* disk = id ? rules::findDisk(r.state, *id) : nullptr;
    if (!disk || (*disk)["status"] != rules::kDiskReady)
        return reply::refuse(code::kSpeedTestFailed, "disk not ready");
    json& test = storage(r)["speed_test"];
    if (test["storage_id"] != -1)
        return reply::refuse(code::kStorageBusy, "a speed test is running");
    if (rules::recordingOn(r.state, *id))
        return reply::refuse(code::kStorageRecordingBusy, "disk is recording");
    (*disk)["write_speed"] = 0.0;
    test = {{"storage_id", *id}, {"ticks_left", kSpeedTestTicks}};
    return reply::ok();
}

json choosePath(Request& r)
{
    const auto id = r.intArg("storage_id");
    if (!id || !rules::isStorageId(*id))
        return reply::refuse(code::kDiskInvalid, "unknown store");
    if (rules::anyRecording(r.state))
        return reply::refuse(code::kStorageRecordingBusy, "stop recording first");
    const json* disk = rules::findDisk(r.state, *id);
    if (!disk || (*disk)["status"] == rules::kDiskAbsent)
        return reply::refuse(code::kDiskInvalid, "no such disk present");
    storage(r)["present_storage_id"] = *id;
    return reply::ok();
}

} // namespace

void registerStorageHandlers(HandlerTable& t)
{
    const OpKind W = OpKind::Write;
    t.add(kStorageModule, "nas", "nas_mount", W, mount);
    t.add(kStorageModule, "nas", "nas_umount", W, umount);
    t.add(kStorageModule, "test_storage_speed", "", W, speedTest);
    t.add(kStorageModule, "choose_storage_path", "", W, choosePath);
    t.add(kStorageModule, "nas", "get_nas_info_list", OpKind::Read,
          [](Request& r) { return reply::okData(storage(r)["nas"]); });
    t.add(kStorageModule, "get_present_storage", "", OpKind::Read, [](Request& r) {
        return reply::okData({{"storage_id", storage(r)["present_storage_id"]}});
    });
}

} // namespace sim
