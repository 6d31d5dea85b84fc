// The encoder's operations through AppManager against the simulator: push
// streams, the local SRT server, OSD layouts, recording and the stores. The
// panel sees each change on its topic and on the next read, and the device's
// rules come back as the mapped status values.
#include "sim_backend.h"

#include <algorithm>

namespace apitest {
namespace {

template <class Item, class Match> const Item* findItem(const std::vector<Item>& items, Match match)
{
    auto it = std::find_if(items.begin(), items.end(), match);
    return it == items.end() ? nullptr : &*it;
}

bool pushStreamOn(const ZmqSubCache& cache, int index)
{
    const PushStreamItemInfo* item =
        findItem(cache.push_streams, [&](const PushStreamItemInfo& s) { return s.index == index; });
    return item && item->switch_on;
}

bool osdLayoutOn(const ZmqSubCache& cache, int id)
{
    const OsdItemInfo* item =
        findItem(cache.osd_items, [&](const OsdItemInfo& o) { return o.id == id; });
    return item && item->switch_on;
}

class SimEncoderTest : public SimBackendTest {};

TEST_F(SimEncoderTest, PushStreamsAndTheLocalServer)
{
    ASSERT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.push_streams.size() == 3; }));
    EXPECT_EQ(app->setEncNetStreamSwitch(1, 1), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return pushStreamOn(c, 1); }));
    EXPECT_EQ(app->setEncNetStreamSwitch(1, 0), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return !pushStreamOn(c, 1); }));

    // No push stream while the NDI sender runs; an unknown index is refused too.
    EXPECT_EQ(app->setEncNdiSwitch(1), 0);
    EXPECT_EQ(app->setEncNetStreamSwitch(0, 1), -201);
    EXPECT_EQ(app->setEncNetStreamSwitch(9, 1), -202);
    EXPECT_EQ(simAt("/stream/publish/0/switch"), 0);

    std::vector<EncRtspInfo> rtsp(1);
    EncSrtInfo srt;
    EXPECT_EQ(app->setEncSrtServerSwitch(1), 0);
    EXPECT_EQ(app->getEncLocalServerList(rtsp, srt), 0);
    EXPECT_EQ(srt.switch_on, 1);
    EXPECT_TRUE(rtsp.empty());
}

TEST_F(SimEncoderTest, OsdLayoutsSwitchAsAsked)
{
    ASSERT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.osd_items.size() == 3; }));
    EXPECT_FALSE(osdLayoutOn(worker().getSubCache(), 2));
    EXPECT_EQ(app->setOsdLayoutSwitch(2, 1), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return osdLayoutOn(c, 2); }));
    EXPECT_EQ(app->setOsdLayoutSwitch(1, 0), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return !osdLayoutOn(c, 1); }));
    EXPECT_EQ(app->setOsdLayoutSwitch(42, 1), -2);
}

TEST_F(SimEncoderTest, RecordingRunsAndHoldsItsStore)
{
    EXPECT_EQ(app->setRecordTaskEnable("sdcard_0", 1), 0);
    std::vector<RecordTaskInfo> tasks;
    EXPECT_EQ(app->getRecordTaskList(tasks), 0);
    ASSERT_EQ(tasks.size(), 3u);
    EXPECT_EQ(tasks[0], (RecordTaskInfo{"sdcard_0", 0, 1, "TF"}));
    // The duration counts up on the topic while the task records.
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) {
        return c.record_active && c.record_status[0] == 1 && c.record_duration[0] >= 2;
    }));

    EXPECT_EQ(app->setRecordTaskEnable("sdcard_0", 1), -701); // already started
    EXPECT_EQ(app->setChooseStoragePath(1), -611);            // store is busy while recording
    EXPECT_EQ(app->setRecordTaskEnable("sdcard_0", 0), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return !c.record_active; }));
    EXPECT_EQ(app->setChooseStoragePath(1), 0);
    int present = -1;
    EXPECT_EQ(app->getPresentStorage(present), 0);
    EXPECT_EQ(present, 1);
}

// The box answers a reboot with its "rebooting" code and comes back with
// nothing running.
TEST_F(SimEncoderTest, ARebootEndsWhatRan)
{
    EXPECT_EQ(app->setRecordTaskEnable("usb1_0", 1), 0);
    EXPECT_EQ(app->setEncNetStreamSwitch(2, 1), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.record_active; }));
    EXPECT_EQ(app->setReboot(), 2);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) {
        return !c.record_active && !pushStreamOn(c, 2) && c.run_status == 1;
    }));
}

TEST_F(SimEncoderTest, RecordingIsRefusedOnAMissingOrFullDisk)
{
    control("unplug-disk usb");
    control("fill-disk nas");
    EXPECT_EQ(app->setRecordTaskEnable("usb1_0", 1), -6);
    EXPECT_EQ(app->setRecordTaskEnable("nas1_0", 1), -5);
    EXPECT_EQ(app->setRecordTaskEnable("no_such_task", 1), -702);
    std::vector<RecordTaskInfo> tasks;
    EXPECT_EQ(app->getRecordTaskList(tasks), 0);
    ASSERT_EQ(tasks.size(), 3u);
    EXPECT_EQ(tasks[1].status, 4); // no disk
    EXPECT_EQ(tasks[2].status, 3); // disk full
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.disk_status[1] == 0; }));
    EXPECT_EQ(app->getDiskStatus(1), 0);
}

TEST_F(SimEncoderTest, SpeedTestResultArrivesOnTheStorageTopic)
{
    ASSERT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.storage_ready; }));
    EXPECT_EQ(app->getDiskWriteSpeed(1), 0.0f);
    EXPECT_EQ(app->setStorageSpeedTest(1), 0);
    EXPECT_EQ(app->setStorageSpeedTest(0), -609); // one test at a time
    EXPECT_TRUE(testsupport::waitUntil([&] { return app->getDiskWriteSpeed(1) > 0.0f; }));
    EXPECT_EQ(app->getDiskWriteSpeed(1), simAt("/storage/disks/1/write_speed").get<float>());
}

TEST_F(SimEncoderTest, NasEntriesMountAndUnmount)
{
    auto nasSwitch = [&](int index) {
        json list;
        EXPECT_EQ(worker().getNasInfoList(list), 0);
        return list.at(index).at("switch").get<int>();
    };
    EXPECT_EQ(nasSwitch(0), 1);
    EXPECT_EQ(app->setNasMount(1), -605); // one NAS at a time
    EXPECT_EQ(app->setNasUmount(0), 0);
    EXPECT_EQ(nasSwitch(0), 0);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.disk_status[2] == 0; }));
    EXPECT_EQ(app->setNasUmount(0), -607);
    EXPECT_EQ(app->setNasMount(1), 0);
    EXPECT_EQ(nasSwitch(1), 1);
    EXPECT_TRUE(waitForTopics([](const ZmqSubCache& c) { return c.disk_status[2] == 1; }));
}

} // namespace
} // namespace apitest
