#include "control/record_button_rules.h"

#include "control/in_place_control_rules.h"
#include "model/app_manager.h"

#include <algorithm>

namespace {

// Task states that the backend reports for a task that can't record.
enum TaskTrouble {
    kTaskDiskFull = 3,
    kTaskNoDisk = 4,
    kTaskNoSignal = 5,
    kTaskOtherError = 6,
    kTaskReadOnly = 7,
    kTaskDiskError = 8,
    kTaskOtherError2 = 9,
    kTaskFsUnsupported = 10,
};

ControlAction setTaskEnable(const QString& task, int enable)
{
    return ControlAction::async(REFRESH_RECORD,
                                [task = task.toStdString(), enable](AppManager& app) {
                                    return app.setRecordTaskEnable(task, enable);
                                });
}

CardText diskText(const char* key)
{
    return {QString::fromLatin1(key), QString::fromLatin1(kStorageUnavailableText)};
}

bool otherDiskCanRecord(const std::vector<RecordTaskInfo>& tasks, const RecordTaskInfo& task)
{
    return std::any_of(tasks.begin(), tasks.end(), [&](const RecordTaskInfo& other) {
        return &other != &task && other.status == 0 && other.storage_id != task.storage_id;
    });
}

ControlAction startOnDisk(const EncoderShortcutPageVM& vm, int disk,
                          const std::function<int(int)>& diskStatus)
{
    const int status = diskStatus ? diskStatus(disk) : -1;
    if (status == kDiskReady)
        return setTaskEnable(vm.record_task_id, 1);
    return diskStatusCardAction(status);
}

} // namespace

ControlAction diskStatusCardAction(int diskStatus)
{
    return ControlAction::failedCard(diskStatusCardText(diskStatus));
}

ControlAction recordClickedAction(const EncoderShortcutPageVM& vm,
                                  const std::vector<RecordTaskInfo>* tasks,
                                  const std::function<int(int)>& diskStatus)
{
    if (vm.record_status != 0)
        return setTaskEnable(vm.record_task_id, 0);

    const std::string wanted = vm.record_task_id.toStdString();
    const RecordTaskInfo* task = nullptr;
    if (tasks)
        for (const RecordTaskInfo& candidate : *tasks)
            if (candidate.index == wanted) {
                task = &candidate;
                break;
            }
    if (!task)
        return startOnDisk(vm, vm.disk_type, diskStatus);

    switch (task->status) {
    case kTaskDiskFull:
        return ControlAction::statusCard(-5);
    case kTaskNoDisk:
        if (otherDiskCanRecord(*tasks, *task))
            return ControlAction::failedCard(diskText("disk_status.switch_disk_prompt"));
        return diskStatusCardAction(0);
    case kTaskNoSignal:
        return ControlAction::statusCard(-4);
    case kTaskOtherError:
    case kTaskOtherError2:
        return ControlAction::failedCard(diskText("disk_status.disk_other_error"));
    case kTaskReadOnly:
        return diskStatusCardAction(3);
    case kTaskDiskError:
        return diskStatusCardAction(4);
    case kTaskFsUnsupported:
        return diskStatusCardAction(5);
    default:
        return startOnDisk(vm, task->storage_id, diskStatus);
    }
}
