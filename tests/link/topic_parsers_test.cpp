// Topic payloads into ZmqSubCache, and the signals of changed system state.
#include "link_env.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace linktest {
namespace {

class TopicParsersTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        env.start();
        w = env.worker.get();
    }

    ZmqSubCache cache() const { return w->getSubCache(); }

    LinkEnv env;
    ZmqSubWorker* w = nullptr;
};

// ---- network -------------------------------------------------------------

TEST_F(TopicParsersTest, NetworkFillsEveryField)
{
    w->v2_parseNetworkInfo(R"({"data":{"ip":"10.0.0.7",
        "lan":{"state":1,"ip_dhcp_switch":1},"ap":{"switch":1},
        "wifi":{"switch":2,"status":3,"ssid":"studio"}}})");
    const ZmqSubCache c = cache();
    EXPECT_TRUE(c.network_ready);
    EXPECT_EQ(c.ip, "10.0.0.7");
    EXPECT_EQ(c.lan_state, 1);
    EXPECT_EQ(c.lan_dhcp_switch, 1);
    EXPECT_TRUE(c.ap_switch);
    EXPECT_TRUE(c.wifi_switch);
    EXPECT_EQ(c.wifi_status, 3);
    EXPECT_EQ(c.wifi_ssid, "studio");
}

TEST_F(TopicParsersTest, NetworkMissingSubObjectKeepsItsFieldsButIpIsAlwaysRead)
{
    w->v2_parseNetworkInfo(R"({"data":{"ip":"10.0.0.7","lan":{"state":1},
        "wifi":{"switch":1,"ssid":"a"}}})");
    w->v2_parseNetworkInfo(R"({"data":{"lan":"down","wifi":{}}})");
    const ZmqSubCache c = cache();
    EXPECT_EQ(c.ip, "");
    EXPECT_EQ(c.lan_state, 1);
    EXPECT_FALSE(c.wifi_switch);
    EXPECT_EQ(c.wifi_ssid, "");
}

TEST_F(TopicParsersTest, NetworkWrongShapesChangeNothing)
{
    for (const char* payload :
         {"garbage", "[]", R"({"ip":"1.2.3.4"})", R"({"data":[1]})", R"({"data":"x"})"}) {
        w->v2_parseNetworkInfo(payload);
        EXPECT_FALSE(cache().network_ready) << payload;
        EXPECT_EQ(cache().ip, "") << payload;
    }
}

TEST_F(TopicParsersTest, NetworkValueOfWrongTypeThrowsAndKeepsWhatWasStored)
{
    EXPECT_THROW(w->v2_parseNetworkInfo(R"({"data":{"ip":"10.1.1.1","lan":{"state":"up"}}})"),
                 json::type_error);
    EXPECT_EQ(cache().ip, "10.1.1.1");
    EXPECT_FALSE(cache().network_ready);
}

// ---- cpu and memory -------------------------------------------------------

TEST_F(TopicParsersTest, CpuMemoryFillsLoadPercentAndRates)
{
    w->v2_parseCpuMemInfo(R"({"data":{"cpu_info":{"cpu_temp":61,"cpu_payload":37},
        "memory_info":{"total":"2048","used":"512"},
        "network_info":{"eth0":{"rx_mbps":1.5,"tx_mbps":2.25},"wlan1":{"rx_mbps":3}}}})");
    const ZmqSubCache c = cache();
    EXPECT_TRUE(c.cpu_memory_ready);
    EXPECT_EQ(c.cpu_temp, 61);
    EXPECT_EQ(c.cpu_payload, 37);
    EXPECT_EQ(c.memory_percent, 25);
    EXPECT_DOUBLE_EQ(c.eth0_rx_mbps, 1.5);
    EXPECT_DOUBLE_EQ(c.eth0_tx_mbps, 2.25);
    EXPECT_DOUBLE_EQ(c.wlan0_rx_mbps, 0);
    EXPECT_DOUBLE_EQ(c.wlan1_rx_mbps, 3);
    EXPECT_DOUBLE_EQ(c.wlan1_tx_mbps, 0);
}

TEST_F(TopicParsersTest, MemoryPercentIsTruncatedAndSurvivesLargeValues)
{
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"3","used":"2"}}})");
    EXPECT_EQ(cache().memory_percent, 66);
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"8000000000","used":"6000000000"}}})");
    EXPECT_EQ(cache().memory_percent, 75);
}

TEST_F(TopicParsersTest, MemoryTotalZeroKeepsPercentAndTextThatIsNoNumberZeroesIt)
{
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"100","used":"40"}}})");
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"0","used":"40"}}})");
    EXPECT_EQ(cache().memory_percent, 40);
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"-5","used":"40"}}})");
    EXPECT_EQ(cache().memory_percent, 40);
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"abc","used":"40"}}})");
    EXPECT_EQ(cache().memory_percent, 0);
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"100","used":"40"}}})");
    w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":"100","used":"x"}}})");
    EXPECT_EQ(cache().memory_percent, 0);
}

TEST_F(TopicParsersTest, CpuMessageWithoutRatesZeroesAllSix)
{
    w->v2_parseCpuMemInfo(R"({"data":{"network_info":{"eth0":{"rx_mbps":9,"tx_mbps":9},
        "wlan0":{"rx_mbps":9,"tx_mbps":9},"wlan1":{"rx_mbps":9,"tx_mbps":9}}}})");
    w->v2_parseCpuMemInfo(R"({"data":{"cpu_info":{"cpu_temp":50}}})");
    const ZmqSubCache c = cache();
    EXPECT_EQ(c.cpu_temp, 50);
    for (double rate : {c.eth0_rx_mbps, c.eth0_tx_mbps, c.wlan0_rx_mbps, c.wlan0_tx_mbps,
                        c.wlan1_rx_mbps, c.wlan1_tx_mbps})
        EXPECT_DOUBLE_EQ(rate, 0);
}

TEST_F(TopicParsersTest, CpuWrongShapeOrNumericMemoryText)
{
    w->v2_parseCpuMemInfo(R"({"cpu_info":{"cpu_temp":50}})");
    EXPECT_FALSE(cache().cpu_memory_ready);
    EXPECT_THROW(w->v2_parseCpuMemInfo(R"({"data":{"memory_info":{"total":100,"used":1}}})"),
                 json::type_error);
    EXPECT_FALSE(cache().cpu_memory_ready);
}

// ---- storage --------------------------------------------------------------

TEST_F(TopicParsersTest, StorageFillsSlotsByIndexOrName)
{
    w->v2_parseStorageInfo(R"([
        {"name":"TF","index":0,"status":1,"totalspace":100,"freespace":60,"usagespace":40,
         "write_speed":12.5},
        {"name":"USB1","status":2,"totalspace":200,"freespace":50,"usagespace":150,
         "write_speed":30},
        {"name":"x","index":3,"status":1,"totalspace":300,"freespace":1,"usagespace":299,
         "write_speed":true}])");
    const ZmqSubCache c = cache();
    EXPECT_TRUE(c.storage_ready);
    EXPECT_TRUE(c.disk_present[0]);
    EXPECT_EQ(c.disk_total[0], 100);
    EXPECT_EQ(c.disk_free[0], 60);
    EXPECT_EQ(c.disk_used[0], 40);
    EXPECT_FLOAT_EQ(c.disk_write_speed[0], 12.5f);
    EXPECT_EQ(c.disk_status[1], 2);
    EXPECT_EQ(c.disk_total[1], 200);
    EXPECT_FLOAT_EQ(c.disk_write_speed[1], 30.0f);
    EXPECT_TRUE(c.disk_present[2]);
    EXPECT_EQ(c.disk_used[2], 299);
    EXPECT_FLOAT_EQ(c.disk_write_speed[2], 1.0f);
}

TEST_F(TopicParsersTest, StorageSecondUsbPortNeverEntersTheCache)
{
    w->v2_parseStorageInfo(
        R"([{"index":1,"name":"USB1","status":1,"totalspace":10,"freespace":5,"usagespace":5}])");
    w->v2_parseStorageInfo(
        R"([{"index":2,"name":"USB2","status":1,"totalspace":99,"freespace":9,"usagespace":90}])");
    const ZmqSubCache c = cache();
    for (int slot = 0; slot < ZmqSubCache::kDiskSlots; ++slot) {
        EXPECT_FALSE(c.disk_present[slot]) << slot;
        EXPECT_EQ(c.disk_total[slot], 0) << slot;
        EXPECT_EQ(c.disk_status[slot], 0) << slot;
    }
    EXPECT_TRUE(c.storage_ready);
}

TEST_F(TopicParsersTest, StorageIndexTestedBeforeLaterNames)
{
    // Index 2 is the second USB port even when the name says NAS.
    w->v2_parseStorageInfo(R"([{"index":2,"name":"nas1","status":1,"totalspace":7}])");
    EXPECT_FALSE(cache().disk_present[2]);
    // Index 0 is the card whatever the name.
    w->v2_parseStorageInfo(R"([{"index":0,"name":"nas1","status":1,"totalspace":7}])");
    EXPECT_TRUE(cache().disk_present[0]);
    EXPECT_FALSE(cache().disk_present[2]);
    // Name alone, with no index, finds the NAS slot.
    w->v2_parseStorageInfo(R"([{"name":"nas1","status":1,"totalspace":8}])");
    EXPECT_EQ(cache().disk_total[2], 8);
    // Unknown index and name: dropped.
    w->v2_parseStorageInfo(R"([{"index":7,"name":"SSD","status":1,"totalspace":8}])");
    EXPECT_FALSE(cache().disk_present[0] || cache().disk_present[1] || cache().disk_present[2]);
}

TEST_F(TopicParsersTest, StorageStatusZeroKeepsOnlyTheStatus)
{
    w->v2_parseStorageInfo(R"([{"index":0,"status":1,"totalspace":100,"freespace":1}])");
    w->v2_parseStorageInfo(R"([{"index":0,"status":0,"totalspace":100,"freespace":1}])");
    EXPECT_FALSE(cache().disk_present[0]);
    EXPECT_EQ(cache().disk_total[0], 0);
    EXPECT_EQ(cache().disk_free[0], 0);
    w->v2_parseStorageInfo(R"([{"index":0,"status":-2,"totalspace":100}])");
    EXPECT_EQ(cache().disk_status[0], -2);
    EXPECT_FALSE(cache().disk_present[0]);
}

TEST_F(TopicParsersTest, StorageNonArrayKeepsDisksAndNonObjectsAreSkipped)
{
    w->v2_parseStorageInfo(R"([{"index":1,"status":1,"totalspace":64}])");
    w->v2_parseStorageInfo("{}");
    w->v2_parseStorageInfo("nonsense");
    EXPECT_EQ(cache().disk_total[1], 64);
    w->v2_parseStorageInfo(R"([5,"TF",null,{"index":1,"status":1,"totalspace":32}])");
    EXPECT_EQ(cache().disk_total[1], 32);
}

TEST_F(TopicParsersTest, StorageWriteSpeedOfWrongTypeThrows)
{
    EXPECT_THROW(w->v2_parseStorageInfo(R"([{"index":0,"status":1,"write_speed":"fast"}])"),
                 json::type_error);
}

// ---- video input ----------------------------------------------------------

TEST_F(TopicParsersTest, VideoInputFieldsAndDefaults)
{
    w->v2_parseVideoInInfo(
        R"({"width":1920,"height":1080,"fps":60000,"fpsdiv":1001,"samplerate":48000})");
    ZmqSubCache c = cache();
    EXPECT_TRUE(c.video_input_ready);
    EXPECT_EQ(c.video_width, 1920);
    EXPECT_EQ(c.video_height, 1080);
    EXPECT_EQ(c.video_fps, 60000);
    EXPECT_EQ(c.video_fpsdiv, 1001);
    EXPECT_EQ(c.audio_samplerate, 48000);
    w->v2_parseVideoInInfo(R"({"width":1280})");
    c = cache();
    EXPECT_EQ(c.video_width, 1280);
    EXPECT_EQ(c.video_height, 0);
    EXPECT_EQ(c.audio_samplerate, 0);
}

TEST_F(TopicParsersTest, VideoInputArrayIsIgnored)
{
    w->v2_parseVideoInInfo(R"([{"width":1920}])");
    EXPECT_FALSE(cache().video_input_ready);
}

// ---- record ---------------------------------------------------------------

TEST_F(TopicParsersTest, RecordTasksBySlotAndActivity)
{
    w->v2_parseRecordStateInfo(R"([{"taskId":"usb1_0","status":1,"duration":75},
        {"taskId":"nas1_0","status":2,"duration":5},
        {"taskId":"usb2_0","status":1,"duration":9}])");
    ZmqSubCache c = cache();
    EXPECT_TRUE(c.record_ready);
    EXPECT_TRUE(c.record_active);
    EXPECT_EQ(c.record_task_id[0], "");
    EXPECT_EQ(c.record_task_id[1], "usb1_0");
    EXPECT_EQ(c.record_status[1], 1);
    EXPECT_EQ(c.record_duration[1], 75);
    EXPECT_EQ(c.record_task_id[2], "nas1_0");
    EXPECT_EQ(c.record_status[2], 2);

    // Only status 1 is recording; a new message clears the old slots.
    w->v2_parseRecordStateInfo(R"([{"taskId":"sdcard_0","status":2,"duration":1}])");
    c = cache();
    EXPECT_FALSE(c.record_active);
    EXPECT_EQ(c.record_task_id[0], "sdcard_0");
    EXPECT_EQ(c.record_task_id[1], "");
    EXPECT_EQ(c.record_duration[1], 0);
}

TEST_F(TopicParsersTest, RecordTaskIdMustMatchExactly)
{
    w->v2_parseRecordStateInfo(R"([{"taskId":"usb2_0","status":1},{"taskId":"SDCARD_0",
        "status":1},{"taskId":"sdcard_0 ","status":1},{"status":1}])");
    const ZmqSubCache c = cache();
    EXPECT_FALSE(c.record_active);
    for (int slot = 0; slot < ZmqSubCache::kDiskSlots; ++slot)
        EXPECT_EQ(c.record_task_id[slot], "") << slot;
}

TEST_F(TopicParsersTest, RecordObjectRootIsIgnored)
{
    w->v2_parseRecordStateInfo(R"({"taskId":"sdcard_0","status":1})");
    EXPECT_FALSE(cache().record_ready);
}

// ---- net streams and OSD ------------------------------------------------------

TEST_F(TopicParsersTest, NetStreamsListedWithUtf8NamesAndActivity)
{
    w->v2_parseNetStreamInfo(R"([{"index":0,"name":"YouTube","status":0,"switch":1},
        {"index":1,"name":"Kanal \u00dc","status":1,"switch":0},"skip"])");
    ZmqSubCache c = cache();
    EXPECT_TRUE(c.net_stream_ready);
    ASSERT_EQ(c.push_streams.size(), 2u);
    EXPECT_EQ(c.push_streams[1].index, 1);
    EXPECT_EQ(c.push_streams[1].name, QString::fromUtf8("Kanal \xc3\x9c"));
    EXPECT_TRUE(c.push_streams[0].switch_on);
    EXPECT_FALSE(c.push_streams[1].switch_on);
    EXPECT_EQ(c.push_streams[0].reserved, 0);
    EXPECT_FALSE(c.stream_active) << "no stream is both switched on and up";

    w->v2_parseNetStreamInfo(R"([{"index":4,"name":"a","status":1,"switch":1}])");
    c = cache();
    ASSERT_EQ(c.push_streams.size(), 1u);
    EXPECT_EQ(c.push_streams[0].index, 4);
    EXPECT_TRUE(c.stream_active);

    w->v2_parseNetStreamInfo("[]");
    EXPECT_TRUE(cache().push_streams.empty());
    EXPECT_FALSE(cache().stream_active);
}

TEST_F(TopicParsersTest, OsdStatusDefaultsToTheSwitch)
{
    w->v2_parseOsdStateInfo(R"([{"id":1,"name":"Logo","switch":1},
        {"id":2,"name":"Clock","switch":0},{"id":3,"name":"Score","switch":1,"status":0},
        {"id":4}])");
    const ZmqSubCache c = cache();
    EXPECT_TRUE(c.osd_ready);
    ASSERT_EQ(c.osd_items.size(), 4u);
    EXPECT_EQ(c.osd_items[0].status, 1);
    EXPECT_EQ(c.osd_items[1].status, 0);
    EXPECT_EQ(c.osd_items[2].status, 0);
    EXPECT_TRUE(c.osd_items[2].switch_on);
    EXPECT_EQ(c.osd_items[3].name, QString());
    EXPECT_FALSE(c.osd_items[3].switch_on);
}

TEST_F(TopicParsersTest, OsdWrongRootKeepsTheList)
{
    w->v2_parseOsdStateInfo(R"([{"id":1,"name":"Logo","switch":1}])");
    w->v2_parseOsdStateInfo(R"({"id":2})");
    ASSERT_EQ(cache().osd_items.size(), 1u);
    EXPECT_EQ(cache().osd_items[0].id, 1);
}

// ---- system state and upgrade -------------------------------------------------

TEST_F(TopicParsersTest, SystemStateEmitsEachSignalOnlyOnChange)
{
    QSignalSpy mode(w, &ZmqSubWorker::workModeUpdate);
    QSignalSpy language(w, &ZmqSubWorker::systemLanguageUpdate);
    QSignalSpy run(w, &ZmqSubWorker::runStatusUpdate);

    w->v2_parseSystemStateInfo(R"({"workmode_id":1,"language_id":2,"run_status":0})");
    w->v2_parseSystemStateInfo(R"({"workmode_id":1,"language_id":2,"run_status":0})");
    ASSERT_EQ(mode.count(), 1);
    EXPECT_EQ(mode.at(0).at(0).toInt(), 1);
    ASSERT_EQ(language.count(), 1);
    EXPECT_EQ(language.at(0).at(0).toInt(), 2);
    ASSERT_EQ(run.count(), 1);
    EXPECT_EQ(run.at(0).at(0).toInt(), 0);

    w->v2_parseSystemStateInfo(R"({"language_id":3})");
    EXPECT_EQ(mode.count(), 1);
    EXPECT_EQ(language.count(), 2);
    EXPECT_EQ(run.count(), 1);
    const ZmqSubCache c = cache();
    EXPECT_TRUE(c.system_state_ready);
    EXPECT_EQ(c.workmode_id, 1);
    EXPECT_EQ(c.language_id, 3);
    EXPECT_EQ(c.run_status, 0);
}

TEST_F(TopicParsersTest, SystemStateFirstReportOfDefaultsStillEmits)
{
    QSignalSpy run(w, &ZmqSubWorker::runStatusUpdate);
    EXPECT_EQ(cache().run_status, 1);
    w->v2_parseSystemStateInfo(R"({"run_status":1})");
    EXPECT_EQ(run.count(), 1);
}

TEST_F(TopicParsersTest, SystemStateEmptyObjectOnlyMarksReady)
{
    QSignalSpy mode(w, &ZmqSubWorker::workModeUpdate);
    w->v2_parseSystemStateInfo("{}");
    EXPECT_TRUE(cache().system_state_ready);
    EXPECT_EQ(mode.count(), 0);
    w->v2_parseSystemStateInfo("[1]");
    EXPECT_EQ(mode.count(), 0);
}

TEST_F(TopicParsersTest, RedriveEmitsNothingBeforeSystemStateAndOnlyChangesAfter)
{
    QSignalSpy language(w, &ZmqSubWorker::systemLanguageUpdate);
    w->v2_data_process();
    EXPECT_EQ(language.count(), 0);
    w->v2_parseSystemStateInfo(R"({"workmode_id":0,"language_id":4,"run_status":1})");
    w->v2_data_process();
    EXPECT_EQ(language.count(), 1);
    w->updateSubCache([](ZmqSubCache& c) { c.language_id = 1; });
    w->v2_data_process();
    ASSERT_EQ(language.count(), 2);
    EXPECT_EQ(language.at(1).at(0).toInt(), 1);
}

TEST_F(TopicParsersTest, UpgradeProgressIsClampedAndEmittedOnChange)
{
    QSignalSpy progress(w, &ZmqSubWorker::upgradeProgressUpdate);
    EXPECT_EQ(cache().upgrade_progress, -1);
    w->v2_parseUpgradeProgressInfo(R"({"upgrade_progress":150})");
    EXPECT_EQ(cache().upgrade_progress, 100);
    w->v2_parseUpgradeProgressInfo(R"({"upgrade_progress":100})");
    w->v2_parseUpgradeProgressInfo(R"({"upgrade_progress":-7})");
    EXPECT_EQ(cache().upgrade_progress, 0);
    w->v2_parseUpgradeProgressInfo(R"({"upgrade_progress":0})");
    w->v2_parseUpgradeProgressInfo(R"({"other":5})");
    w->v2_parseUpgradeProgressInfo(R"([50])");
    ASSERT_EQ(progress.count(), 2);
    EXPECT_EQ(progress.at(0).at(0).toInt(), 100);
    EXPECT_EQ(progress.at(1).at(0).toInt(), 0);
    EXPECT_EQ(cache().upgrade_progress, 0);
}

// ---- copies -----------------------------------------------------------------

TEST_F(TopicParsersTest, CopiesAreDetachedFromTheCache)
{
    w->v2_parseOsdStateInfo(R"([{"id":1,"name":"Logo","switch":1}])");
    ZmqSubCache copy = cache();
    copy.osd_items.clear();
    copy.ip = "changed";
    EXPECT_EQ(cache().osd_items.size(), 1u);
    EXPECT_EQ(cache().ip, "");
}

} // namespace
} // namespace linktest
