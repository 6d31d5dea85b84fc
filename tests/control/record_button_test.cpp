// The record button's judgement of the task and its disk, as a table, and
// the button on the simulated device.
#include "control/record_button_rules.h"
#include "control_sim_backend.h"

#include <gtest/gtest.h>

#include <map>

using namespace controltest;
using Kind = ControlAction::Kind;

namespace {

RecordTaskInfo task(const char* index, int storage, int status)
{
    return RecordTaskInfo{index, storage, status, std::string(index) + "_rec"};
}

EncoderShortcutPageVM stoppedOn(const char* task, int diskType)
{
    EncoderShortcutPageVM vm;
    vm.record_task_id = task;
    vm.disk_type = diskType;
    return vm;
}

std::function<int(int)> disks(std::map<int, int> statuses)
{
    return [statuses](int id) {
        const auto it = statuses.find(id);
        return it == statuses.end() ? -1 : it->second;
    };
}

} // namespace

TEST(RecordButton, RunningOrPausedRecordingIsStopped)
{
    for (int status : {1, 2}) {
        EncoderShortcutPageVM vm = stoppedOn("usb1_0", 1);
        vm.record_status = status;
        const ControlAction action = recordClickedAction(vm, nullptr, disks({}));
        EXPECT_EQ(action.kind, Kind::Async) << status;
        EXPECT_EQ(action.refresh_page, 21);
    }
}

TEST(RecordButton, TaskTroubleDecidesTheCard)
{
    struct Case {
        int task_status;
        Kind kind;
        int status; // for a status card
        QString text;
    };
    const std::vector<Case> cases = {
        {3, Kind::StatusCard, -5, ""},
        {5, Kind::StatusCard, -4, ""},
        {6, Kind::FailedCard, 0, "disk_status.disk_other_error"},
        {9, Kind::FailedCard, 0, "disk_status.disk_other_error"},
        {7, Kind::FailedCard, 0, "disk_status.disk_readonly"},
        {8, Kind::FailedCard, 0, "disk_status.disk_error"},
        {10, Kind::FailedCard, 0, "disk_status.disk_fs_unsupported"},
        // Other states leave it to the disk, which is ready here.
        {0, Kind::Async, 0, ""},
        {2, Kind::Async, 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.task_status);
        const std::vector<RecordTaskInfo> tasks = {task("sdcard_0", 0, c.task_status)};
        const ControlAction action =
            recordClickedAction(stoppedOn("sdcard_0", 0), &tasks, disks({{0, 1}}));
        EXPECT_EQ(action.kind, c.kind);
        if (c.kind == Kind::StatusCard) {
            EXPECT_EQ(action.status, c.status);
        }
        EXPECT_EQ(action.text.key, c.text);
    }
}

TEST(RecordButton, MissingDiskSuggestsAnotherDiskOnlyWhenOneCanRecord)
{
    const EncoderShortcutPageVM vm = stoppedOn("usb1_0", 1);
    const auto judge = [&](std::vector<RecordTaskInfo> tasks) {
        return recordClickedAction(vm, &tasks, disks({{0, 1}, {1, 0}}));
    };
    EXPECT_EQ(judge({task("sdcard_0", 0, 0), task("usb1_0", 1, 4)}).text.key,
              "disk_status.switch_disk_prompt");
    // Another task that can't record either, or one on the same disk, is no way out.
    EXPECT_EQ(judge({task("sdcard_0", 0, 3), task("usb1_0", 1, 4)}).text.key,
              "disk_status.disk_unmounted");
    EXPECT_EQ(judge({task("usb1_1", 1, 0), task("usb1_0", 1, 4)}).text.key,
              "disk_status.disk_unmounted");
    EXPECT_EQ(judge({task("usb1_0", 1, 4)}).kind, Kind::FailedCard);
}

TEST(RecordButton, WithoutTaskTheDiskOfThePageDecides)
{
    struct Case {
        int disk_status;
        const char* text; // empty: recording starts
    };
    for (const Case& c :
         {Case{1, ""}, Case{0, "disk_status.disk_unmounted"}, Case{2, "disk_status.disk_full"},
          Case{3, "disk_status.disk_readonly"}, Case{4, "disk_status.disk_error"},
          Case{5, "disk_status.disk_fs_unsupported"}, Case{-1, "disk_status.disk_other_error"}}) {
        SCOPED_TRACE(c.disk_status);
        const EncoderShortcutPageVM vm = stoppedOn("nas1_0", 3);
        const std::vector<RecordTaskInfo> unrelated = {task("sdcard_0", 0, 0)};
        for (const std::vector<RecordTaskInfo>* list :
             {static_cast<const std::vector<RecordTaskInfo>*>(nullptr), &unrelated}) {
            const ControlAction action = recordClickedAction(vm, list, disks({{3, c.disk_status}}));
            EXPECT_EQ(action.kind, *c.text ? Kind::FailedCard : Kind::Async);
            EXPECT_EQ(action.text.key, QString(c.text));
            if (*c.text) {
                EXPECT_EQ(action.text.fallback, "Storage unavailable");
            }
        }
    }
}

TEST(RecordButton, TaskDiskIsJudgedRatherThanThePagesDisk)
{
    // The page still shows the SD card, but the task records to the USB disk.
    const std::vector<RecordTaskInfo> tasks = {task("usb1_0", 1, 1)};
    const ControlAction action =
        recordClickedAction(stoppedOn("usb1_0", 0), &tasks, disks({{0, 1}, {1, 2}}));
    EXPECT_EQ(action.text.key, "disk_status.disk_full");
}

class RecordButtonOnDevice : public ::testing::Test {
protected:
    ControlAction press(const char* task, int diskType)
    {
        std::vector<RecordTaskInfo> tasks;
        EXPECT_GE(app->getRecordTaskList(tasks), 0);
        return recordClickedAction(stoppedOn(task, diskType), &tasks, [](int id) {
            // The disk is ready in the simulator as long as it is plugged in.
            return id >= 0 ? 1 : -1;
        });
    }

    SimBackend backend;
    std::unique_ptr<AppManager> app = backend.bareAppManager();
};

TEST_F(RecordButtonOnDevice, StartsOnAReadyDiskAndExplainsAMissingOrFullOne)
{
    ControlAction start = press("sdcard_0", 0);
    ASSERT_EQ(start.kind, Kind::Async);
    EXPECT_GE(start.call(*app), 0);
    EXPECT_EQ(backend.at("/record/tasks/0/status"), 1);

    backend.control("unplug-disk usb");
    EXPECT_EQ(press("usb1_0", 1).text.key, "disk_status.switch_disk_prompt")
        << "the NAS task can still record";

    backend.control("fill-disk 3");
    const ControlAction full = press("nas1_0", 3);
    EXPECT_EQ(full.kind, Kind::StatusCard);
    EXPECT_EQ(full.status, -5);
}
