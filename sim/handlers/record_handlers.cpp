// Recording tasks, one per store, named by their `index`. These requests
// carry no `group`.
#include "handlers/field_update.h"
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/device_rules.h"

namespace sim {

namespace {

const char* const kRecordModule = "record_api";

enum Enable { kStop = 0, kStart = 1, kPause = 2, kResume = 3 };

// Why the task's disk can't take a recording now, or nothing.
const char* diskRefusal(Request& r, const json& task)
{
    const json* disk = rules::findDisk(r.state, task["storage_id"].get<int>());
    if (!disk || (*disk)["status"] == rules::kDiskAbsent)
        return code::kDiskInvalid;
    if ((*disk)["status"] == rules::kDiskFull || (*disk)["freespace"].get<int>() <= 0)
        return code::kDiskFull;
    if ((*disk)["status"] != rules::kDiskReady)
        return code::kDiskInvalid;
    return nullptr;
}

json start(Request& r, json& task)
{
    if (task["status"] != rules::kRecordStopped)
        return reply::refuse(code::kRecordTaskStarted, "task already started");
    if (rules::workMode(r.state) != 0)
        return reply::refuse(code::kRecordStartFailed, "recording needs encode mode");
    if (const char* refusal = diskRefusal(r, task))
        return reply::refuse(refusal, "disk missing or full");
    task["status"] = rules::kRecording;
    task["duration"] = 0;
    return reply::ok();
}

json setEnable(Request& r)
{
    const auto index = r.stringArg("index");
    const auto enable = r.intArg("enable");
    json* task = index ? rules::findRecordTask(r.state, *index) : nullptr;
    if (!task)
        return reply::refuse(code::kRecordIndexInvalid, "no task with this index");
    if (!enable || *enable < kStop || *enable > kResume)
        return reply::refuse(code::kOutOfRange, "enable must be 0 to 3");
    switch (*enable) {
    case kStart:
        return start(r, *task);
    case kStop:
        rules::stopRecording(*task);
        return reply::ok();
    case kPause:
        if ((*task)["status"] != rules::kRecording)
            return reply::refuse(code::kRecordStartFailed, "task is not recording");
        (*task)["status"] = rules::kRecordPaused;
        return reply::ok();
    default:
        if ((*task)["status"] != rules::kRecordPaused)
            return reply::refuse(code::kRecordStartFailed, "task is not paused");
        (*task)["status"] = rules::kRecording;
        return reply::ok();
    }
}

json setInfo(Request& r)
{
    const auto index = r.stringArg("index");
    json* task = index ? rules::findRecordTask(r.state, *index) : nullptr;
    if (!task)
        return reply::refuse(code::kRecordIndexInvalid, "no task with this index");
    if ((*task)["status"] != rules::kRecordStopped)
        return reply::refuse(code::kRecordingCannotModify, "task is recording");
    if (const auto name = r.stringArg("name")) {
        (*task)["name"] = *name;
        return reply::ok();
    }
    return updateIntFields(r.data(), *task,
                           {{"record_format", 0, 3},
                            {"record_mode", 0, 3},
                            {"record_loop_mode", 0, 1},
                            {"size_limit", 1, 1 << 20},
                            {"time_limit", 1, 1440},
                            {"limit_type", 0, 2}})
               ? reply::ok()
               : reply::refuse(code::kOutOfRange, "invalid task setting");
}

// The list reports a stopped task whose disk can't record with the disk's
// trouble: 3 full, 4 no disk.
json taskList(Request& r)
{
    json list = r.state["record"]["tasks"];
    for (json& task : list) {
        if (task["status"] != rules::kRecordStopped)
            continue;
        const json* disk = rules::findDisk(r.state, task["storage_id"].get<int>());
        if (!disk || (*disk)["status"] == rules::kDiskAbsent)
            task["status"] = 4;
        else if ((*disk)["status"] == rules::kDiskFull)
            task["status"] = 3;
    }
    return reply::okData(list);
}

} // namespace

void registerRecordHandlers(HandlerTable& t)
{
    t.add(kRecordModule, "", "set_task_enable", OpKind::Write, setEnable);
    t.add(kRecordModule, "", "set_task_info", OpKind::Write, setInfo);
    t.add(kRecordModule, "", "stop_all_task", OpKind::Write, [](Request& r) {
        for (json& task : r.state["record"]["tasks"])
            rules::stopRecording(task);
        return reply::ok();
    });
    t.add(kRecordModule, "", "get_task_list", OpKind::Read, taskList);
}

} // namespace sim
