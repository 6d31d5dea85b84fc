// The record button's judgement of the task and its disk before a
// recording starts, so that the user learns why it can't.
#include "control/record_button_rules.h"

#include <gtest/gtest.h>

#include <map>

using Kind = ControlAction::Kind;

namespace {

RecordTaskInfo task(const char* index, int storage, int status)
{
    return RecordTaskInfo{index, storage, status, std::string(index) + "_rec"};
}

EncoderShortcutPageVM page(const char* task, int diskType, int recordStatus = 0)
{
    EncoderShortcutPageVM vm;
    vm.record_task_id = task;
    vm.disk_type = diskType;
    vm.record_status = recordStatus;
    return vm;
}

std::function<int(int)> disks(std::map<int, int> statuses)
{
    return [statuses](int id) { return statuses.count(id) ? statuses.at(id) : -1; };
}

} // namespace

TEST(RecordButton, TaskTroubleDecidesTheCardBeforeTheDisk)
{
    struct Case {
        int task_status;
        Kind kind;
        int status; // of a status card
        QString text;
    };
    const Case cases[] = {
        {3, Kind::StatusCard, -5, ""},
        {5, Kind::StatusCard, -4, ""},
        {6, Kind::FailedCard, 0, "disk_status.disk_other_error"},
        {7, Kind::FailedCard, 0, "disk_status.disk_readonly"},
        {8, Kind::FailedCard, 0, "disk_status.disk_error"},
        {10, Kind::FailedCard, 0, "disk_status.disk_fs_unsupported"},
        {0, Kind::Async, 0, ""}, // other states leave it to the disk, which is ready
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.task_status);
        const std::vector<RecordTaskInfo> tasks = {task("sdcard_0", 0, c.task_status)};
        const ControlAction action =
            recordClickedAction(page("sdcard_0", 0), &tasks, disks({{0, 1}}));
        EXPECT_EQ(action.kind, c.kind);
        EXPECT_EQ(action.status, c.status);
        EXPECT_EQ(action.text.key, c.text);
    }
    // A running or paused recording is stopped, whatever its disk says.
    for (int recording : {1, 2})
        EXPECT_EQ(recordClickedAction(page("usb1_0", 1, recording), nullptr, disks({})).kind,
                  Kind::Async);
}

TEST(RecordButton, WithoutItsTaskTheDiskOfThePageDecides)
{
    const std::pair<int, const char*> cases[] = {{1, ""}, // ready: recording starts
                                                 {0, "disk_status.disk_unmounted"},
                                                 {2, "disk_status.disk_full"},
                                                 {3, "disk_status.disk_readonly"},
                                                 {4, "disk_status.disk_error"},
                                                 {5, "disk_status.disk_fs_unsupported"},
                                                 {-1, "disk_status.disk_other_error"}};
    const std::vector<RecordTaskInfo> unrelated = {task("sdcard_0", 0, 0)};
    for (const auto& [disk, text] : cases) {
        for (const auto* list :
             {static_cast<const std::vector<RecordTaskInfo>*>(nullptr), &unrelated}) {
            const ControlAction action =
                recordClickedAction(page("nas1_0", 3), list, disks({{3, disk}}));
            EXPECT_EQ(action.kind, *text ? Kind::FailedCard : Kind::Async) << disk;
            EXPECT_EQ(action.text.key, QString(text)) << disk;
        }
    }
    // The task's own disk counts, not the one the page still shows.
    const std::vector<RecordTaskInfo> onUsb = {task("usb1_0", 1, 1)};
    EXPECT_EQ(recordClickedAction(page("usb1_0", 0), &onUsb, disks({{0, 1}, {1, 2}})).text.key,
              "disk_status.disk_full");
}

TEST(RecordButton, MissingDiskSuggestsAnotherOnlyWhenOneCanRecord)
{
    const auto judge = [](std::vector<RecordTaskInfo> tasks) {
        return recordClickedAction(page("usb1_0", 1), &tasks, disks({{0, 1}, {1, 0}})).text.key;
    };
    EXPECT_EQ(judge({task("sdcard_0", 0, 0), task("usb1_0", 1, 4)}),
              "disk_status.switch_disk_prompt");
    // A task that can't record either, or one on the same disk, is no way out.
    EXPECT_EQ(judge({task("sdcard_0", 0, 3), task("usb1_0", 1, 4)}), "disk_status.disk_unmounted");
    EXPECT_EQ(judge({task("usb1_1", 1, 0), task("usb1_0", 1, 4)}), "disk_status.disk_unmounted");
}
