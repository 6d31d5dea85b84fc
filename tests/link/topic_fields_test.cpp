// Topic payloads into ZmqSubCache, parser by parser, with the signals of
// changed system state and the copies that readers on other threads take.
#include "link_env.h"

#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <thread>

namespace linktest {
namespace {

using Parser = void (ZmqSubWorker::*)(const std::string&);

// The cache by topic, each group with its ready flag first, so that a case
// compares everything its topic may touch.
json view(const ZmqSubCache& c)
{
    auto disk = [&](int s) {
        return json{c.disk_present[s], c.disk_status[s], c.disk_total[s],
                    c.disk_free[s],    c.disk_used[s],   c.disk_write_speed[s]};
    };
    auto task = [&](int s) {
        return json{c.record_task_id[s], c.record_status[s], c.record_duration[s]};
    };
    json streams = json::array();
    for (const PushStreamItemInfo& s : c.push_streams)
        streams.push_back({s.index, s.name.toStdString(), s.switch_on, s.status, s.reserved});
    json layouts = json::array();
    for (const OsdItemInfo& o : c.osd_items)
        layouts.push_back({o.id, o.name.toStdString(), o.switch_on, o.status});
    return {
        {"network",
         {c.network_ready, c.ip, c.lan_state, c.lan_dhcp_switch, c.ap_switch, c.wifi_switch,
          c.wifi_status, c.wifi_ssid}},
        {"cpu",
         {c.cpu_memory_ready, c.cpu_temp, c.cpu_payload, c.memory_percent, c.eth0_rx_mbps,
          c.eth0_tx_mbps, c.wlan0_rx_mbps, c.wlan0_tx_mbps, c.wlan1_rx_mbps, c.wlan1_tx_mbps}},
        {"storage", {c.storage_ready, disk(0), disk(1), disk(2)}},
        {"video",
         {c.video_input_ready, c.video_width, c.video_height, c.video_fps, c.video_fpsdiv,
          c.audio_samplerate}},
        {"record", {c.record_ready, c.record_active, task(0), task(1), task(2)}},
        {"streams", {c.net_stream_ready, c.stream_active, streams}},
        {"osd", {c.osd_ready, layouts}},
        {"system", {c.system_state_ready, c.workmode_id, c.language_id, c.run_status}},
        {"upgrade", c.upgrade_progress},
    };
}

// Each case applies its payloads in order to a fresh cache and names the one
// group of the cache that may change; "expect" is that group afterwards (null:
// as a fresh cache has it). A payload given as a JSON string goes out as its
// raw text, any other value as its JSON text.
const char* const kFieldCases = R"([
{"what": "every network field", "group": "network",
 "expect": [true,"10.0.0.7",1,1,true,true,3,"studio"],
 "payloads": [{"data":{"ip":"10.0.0.7","lan":{"state":1,"ip_dhcp_switch":1},"ap":{"switch":1},
                       "wifi":{"switch":2,"status":3,"ssid":"studio"}}}]},
{"what": "a missing sub-object keeps its fields, ip is always read", "group": "network",
 "payloads": [{"data":{"ip":"10.0.0.7","lan":{"state":1},"wifi":{"switch":1,"ssid":"a"}}},
              {"data":{"lan":"down","wifi":{}}}],
 "expect": [true,"",1,0,false,false,0,""]},
{"what": "network of the wrong shape", "group": "network", "expect": null,
 "payloads": ["garbage", [], {"ip":"1.2.3.4"}, {"data":[1]}, {"data":"x"}]},
{"what": "network value of the wrong type", "group": "network", "throws": true,
 "payloads": [{"data":{"ip":"10.1.1.1","lan":{"state":"up"}}}],
 "expect": [false,"10.1.1.1",0,0,false,false,0,""]},
{"what": "load, memory and rates", "group": "cpu", "expect": [true,61,37,25,1.5,2.25,0,0,3,0],
 "payloads": [{"data":{"cpu_info":{"cpu_temp":61,"cpu_payload":37},
                       "memory_info":{"total":"2048","used":"512"},
                       "network_info":{"eth0":{"rx_mbps":1.5,"tx_mbps":2.25},
                                       "wlan1":{"rx_mbps":3}}}}]},
{"what": "memory percent truncates", "group": "cpu", "expect": [true,0,0,66,0,0,0,0,0,0],
 "payloads": [{"data":{"memory_info":{"total":"3","used":"2"}}}]},
{"what": "memory beyond 32 bits", "group": "cpu", "expect": [true,0,0,75,0,0,0,0,0,0],
 "payloads": [{"data":{"memory_info":{"total":"8000000000","used":"6000000000"}}}]},
{"what": "a total of 0 or below keeps the percent", "group": "cpu",
 "expect": [true,0,0,40,0,0,0,0,0,0],
 "payloads": [{"data":{"memory_info":{"total":"100","used":"40"}}},
              {"data":{"memory_info":{"total":"0","used":"40"}}},
              {"data":{"memory_info":{"total":"-5","used":"40"}}}]},
{"what": "a total or used that is no number gives 0", "group": "cpu",
 "expect": [true,0,0,0,0,0,0,0,0,0],
 "payloads": [{"data":{"memory_info":{"total":"100","used":"40"}}},
              {"data":{"memory_info":{"total":"abc","used":"40"}}},
              {"data":{"memory_info":{"total":"100","used":"40"}}},
              {"data":{"memory_info":{"total":"100","used":"x"}}}]},
{"what": "a message without rates zeroes all six", "group": "cpu",
 "expect": [true,50,0,0,0,0,0,0,0,0],
 "payloads": [{"data":{"network_info":{"eth0":{"rx_mbps":9,"tx_mbps":9},
                                       "wlan0":{"rx_mbps":9,"tx_mbps":9},
                                       "wlan1":{"rx_mbps":9,"tx_mbps":9}}}},
              {"data":{"cpu_info":{"cpu_temp":50}}}]},
{"what": "memory as numbers", "group": "cpu", "expect": null, "throws": true,
 "payloads": [{"data":{"memory_info":{"total":100,"used":1}}}]},
{"what": "disks by index or name, any number as speed", "group": "storage",
 "payloads": [[{"name":"TF","index":0,"status":1,"totalspace":100,"freespace":60,"usagespace":40,
                "write_speed":12.5},
               {"name":"USB1","status":2,"totalspace":200,"freespace":50,"usagespace":150,
                "write_speed":30},
               {"name":"x","index":3,"status":1,"totalspace":300,"freespace":1,"usagespace":299,
                "write_speed":true}]],
 "expect": [true,[true,1,100,60,40,12.5],[true,2,200,50,150,30],[true,1,300,1,299,1]]},
{"what": "the second USB port never enters", "group": "storage",
 "payloads": [[{"index":1,"name":"USB1","status":1,"totalspace":10}],
              [{"index":2,"name":"USB2","status":1,"totalspace":99}]],
 "expect": [true,[false,0,0,0,0,0],[false,0,0,0,0,0],[false,0,0,0,0,0]]},
{"what": "the index wins over the name", "group": "storage",
 "payloads": [[{"index":2,"name":"nas1","status":1,"totalspace":7},
               {"index":0,"name":"nas1","status":1,"totalspace":8}]],
 "expect": [true,[true,1,8,0,0,0],[false,0,0,0,0,0],[false,0,0,0,0,0]]},
{"what": "the name alone finds the NAS, unknown disks are dropped", "group": "storage",
 "payloads": [[{"name":"nas1","status":1,"totalspace":8},{"index":7,"name":"SSD","status":1}]],
 "expect": [true,[false,0,0,0,0,0],[false,0,0,0,0,0],[true,1,8,0,0,0]]},
{"what": "status 0 or below keeps only the status", "group": "storage",
 "payloads": [[{"index":0,"status":1,"totalspace":100,"freespace":1}],
              [{"index":0,"status":0,"totalspace":100},{"index":1,"status":-2,"totalspace":9}]],
 "expect": [true,[false,0,0,0,0,0],[false,-2,0,0,0,0],[false,0,0,0,0,0]]},
{"what": "no array keeps the disks, non-objects are skipped", "group": "storage",
 "payloads": [[{"index":1,"status":1,"totalspace":64}], {}, "nonsense",
              [5,"TF",null,{"index":1,"status":1,"totalspace":32}]],
 "expect": [true,[false,0,0,0,0,0],[true,1,32,0,0,0],[false,0,0,0,0,0]]},
{"what": "speed as text", "group": "storage", "expect": null, "throws": true,
 "payloads": [[{"index":0,"status":1,"write_speed":"fast"}]]},
{"what": "video input, missing keys read 0", "group": "video", "expect": [true,1280,0,0,0,0],
 "payloads": [{"width":1920,"height":1080,"fps":60000,"fpsdiv":1001,"samplerate":48000},
              {"width":1280}]},
{"what": "record tasks by slot", "group": "record",
 "payloads": [[{"taskId":"usb1_0","status":1,"duration":75},
               {"taskId":"nas1_0","status":2,"duration":5},
               {"taskId":"usb2_0","status":1,"duration":9}]],
 "expect": [true,true,["",0,0],["usb1_0",1,75],["nas1_0",2,5]]},
{"what": "a new list clears the old, only status 1 records", "group": "record",
 "payloads": [[{"taskId":"usb1_0","status":1,"duration":75}],
              [{"taskId":"sdcard_0","status":2,"duration":1}]],
 "expect": [true,false,["sdcard_0",2,1],["",0,0],["",0,0]]},
{"what": "task ids match exactly", "group": "record",
 "payloads": [[{"taskId":"SDCARD_0","status":1},{"taskId":"sdcard_0 ","status":1},{"status":1}]],
 "expect": [true,false,["",0,0],["",0,0],["",0,0]]},
{"what": "streams with UTF-8 names, none both on and up", "group": "streams",
 "payloads": [[{"index":0,"name":"YouTube","status":0,"switch":1},
               {"index":1,"name":"Kanal \u00dc","status":1,"switch":0}, "skip"]],
 "expect": [true,false,[[0,"YouTube",true,0,0],[1,"Kanal \u00dc",false,1,0]]]},
{"what": "a stream on and up makes the box stream", "group": "streams",
 "payloads": [[{"index":0,"name":"a","status":1,"switch":0}],
              [{"index":4,"name":"b","status":1,"switch":1}]],
 "expect": [true,true,[[4,"b",true,1,0]]]},
{"what": "OSD status defaults to the switch", "group": "osd",
 "payloads": [[{"id":1,"name":"Logo","switch":1},{"id":2,"name":"Clock","switch":0},
               {"id":3,"name":"Score","switch":1,"status":0},{"id":4}]],
 "expect": [true,[[1,"Logo",true,1],[2,"Clock",false,0],[3,"Score",true,0],[4,"",false,0]]]},
{"what": "OSD of the wrong root keeps the list", "group": "osd",
 "expect": [true,[[1,"Logo",true,1]]],
 "payloads": [[{"id":1,"name":"Logo","switch":1}], {"id":2}]},
{"what": "system state, each key on its own", "group": "system", "expect": [true,1,3,0],
 "payloads": [{"workmode_id":1,"language_id":2,"run_status":0}, {"language_id":3}]},
{"what": "an empty system state only marks ready", "group": "system", "expect": [true,0,0,1],
 "payloads": [{}]},
{"what": "upgrade clamped above", "group": "upgrade", "expect": 100,
 "payloads": [{"upgrade_progress":150}]},
{"what": "upgrade clamped below, other shapes ignored", "group": "upgrade", "expect": 0,
 "payloads": [{"upgrade_progress":-7}, {"other":5}, [50]]}
])";

const std::map<std::string, Parser> kParsers = {
    {"network", &ZmqSubWorker::v2_parseNetworkInfo},
    {"cpu", &ZmqSubWorker::v2_parseCpuMemInfo},
    {"storage", &ZmqSubWorker::v2_parseStorageInfo},
    {"video", &ZmqSubWorker::v2_parseVideoInInfo},
    {"record", &ZmqSubWorker::v2_parseRecordStateInfo},
    {"streams", &ZmqSubWorker::v2_parseNetStreamInfo},
    {"osd", &ZmqSubWorker::v2_parseOsdStateInfo},
    {"system", &ZmqSubWorker::v2_parseSystemStateInfo},
    {"upgrade", &ZmqSubWorker::v2_parseUpgradeProgressInfo},
};

class TopicFieldsTest : public ::testing::Test {
protected:
    void SetUp() override { env.start(); }
    ZmqSubWorker& worker() { return *env.worker; }
    LinkEnv env;
};

TEST_F(TopicFieldsTest, EachPayloadFillsItsGroupAndNothingElse)
{
    const json fresh = view(ZmqSubCache());
    for (const json& c : json::parse(kFieldCases)) {
        SCOPED_TRACE(c["what"].get<std::string>());
        worker().updateSubCache([](ZmqSubCache& cache) { cache = ZmqSubCache(); });
        bool threw = false;
        for (const json& payload : c["payloads"]) {
            try {
                (worker().*kParsers.at(c["group"]))(payload.is_string() ? payload.get<std::string>()
                                                                        : payload.dump());
            } catch (const json::type_error&) {
                threw = true;
            }
        }
        EXPECT_EQ(threw, c.value("throws", false));
        json expected = fresh;
        if (!c["expect"].is_null())
            expected[c["group"].get<std::string>()] = c["expect"];
        EXPECT_EQ(view(worker().getSubCache()), expected);
    }
}

TEST_F(TopicFieldsTest, SystemAndUpgradeSignalsFireOnlyOnChange)
{
    std::vector<std::string> emitted;
    auto record = [&](const char* name) {
        return [&emitted, name](int value) { emitted.push_back(name + std::to_string(value)); };
    };
    QObject::connect(&worker(), &ZmqSubWorker::workModeUpdate, record("mode "));
    QObject::connect(&worker(), &ZmqSubWorker::systemLanguageUpdate, record("language "));
    QObject::connect(&worker(), &ZmqSubWorker::runStatusUpdate, record("run "));
    QObject::connect(&worker(), &ZmqSubWorker::upgradeProgressUpdate, record("upgrade "));

    // The first report of a value is news even when it equals the default.
    worker().v2_parseSystemStateInfo(R"({"run_status":1})");
    for (int repeat = 0; repeat < 2; ++repeat)
        worker().v2_parseSystemStateInfo(R"({"workmode_id":1,"language_id":2,"run_status":0})");
    worker().v2_parseSystemStateInfo(R"({"language_id":3})");
    for (const int progress : {150, 100, -7, 0})
        worker().v2_parseUpgradeProgressInfo(json({{"upgrade_progress", progress}}).dump());
    EXPECT_EQ(emitted, (std::vector<std::string>{"run 1", "mode 1", "language 2", "run 0",
                                                 "language 3", "upgrade 100", "upgrade 0"}));
}

TEST_F(TopicFieldsTest, CopiesTakenWhileTopicsArriveAreWholeAndDetached)
{
    // Lists of 1 and of 3 streams, each stream named after its list's length.
    auto list = [](int n) {
        json streams = json::array();
        for (int i = 0; i < n; ++i)
            streams.push_back({{"index", i}, {"name", std::to_string(n)}, {"switch", 1}});
        return streams.dump();
    };
    std::atomic<bool> done{false};
    std::thread topics([&] {
        for (int i = 0; i < 2000; ++i)
            worker().v2_parseNetStreamInfo(list(i % 2 ? 3 : 1));
        done = true;
    });
    int torn = 0;
    while (!done) {
        ZmqSubCache copy = worker().getSubCache();
        for (const PushStreamItemInfo& stream : copy.push_streams)
            torn += stream.name.toInt() != static_cast<int>(copy.push_streams.size()) ? 1 : 0;
        copy.push_streams.clear();
    }
    topics.join();
    EXPECT_EQ(torn, 0);
    EXPECT_EQ(worker().getSubCache().push_streams.size(), 3u)
        << "a copy's change reached the cache";
}

} // namespace
} // namespace linktest
