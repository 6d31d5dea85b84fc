#include "cache_builders.h"
#include "model/vm_builders/shortcut_vm_builders.h"

#include <gtest/gtest.h>

using namespace modeltest;

namespace {

ZmqSubCache subWithAllDisks()
{
    ZmqSubCache sub;
    putDisk(sub, 0, {1, 1000, 100, 900});
    putDisk(sub, 1, {1, 2000, 1500, 500});
    putDisk(sub, 2, {1, 4000, 3000, 1000});
    putRecordTask(sub, 0, "sdcard_0", 0, 0);
    putRecordTask(sub, 2, "nas1_0", 1, 77);
    return sub;
}

TEST(EncoderShortcutVmTest, ChosenDiskFillsRecordAndDiskFields)
{
    const EncoderShortcutPageVM vm =
        computeEncoderShortcutPageVm(subWithAllDisks(), getWithPresentStorage(3));
    EXPECT_EQ(vm.record_status, 1);
    EXPECT_EQ(vm.record_task_id, "nas1_0");
    EXPECT_EQ(vm.disk_type, 3);
    EXPECT_EQ(vm.disk_status, 1);
    EXPECT_EQ(vm.disk_total, 4000);
    EXPECT_EQ(vm.disk_used, 3000);
    EXPECT_EQ(vm.disk_free, 1000);
    EXPECT_EQ(vm.disk_icon_level, 3); // 75 percent used
    EXPECT_TRUE(vm.any_disk_present);
}

TEST(EncoderShortcutVmTest, NoValidDiskNamesTheSdCardTask)
{
    ZmqSubCache sub = subWithAllDisks();
    for (const ZmqGetCache& get : {ZmqGetCache{}, getWithPresentStorage(2)}) {
        const EncoderShortcutPageVM vm = computeEncoderShortcutPageVm(sub, get);
        EXPECT_EQ(vm.record_task_id, "sdcard_0");
        EXPECT_EQ(vm.record_status, 0);
        EXPECT_EQ(vm.disk_type, -1);
        EXPECT_EQ(vm.disk_total, 0);
        EXPECT_EQ(vm.disk_icon_level, 0);
    }
}

TEST(EncoderShortcutVmTest, IconLevelUsesAvailability)
{
    ZmqSubCache sub = subWithAllDisks();
    sub.disk_present[1] = false; // status says mounted, topic says absent
    const EncoderShortcutPageVM vm = computeEncoderShortcutPageVm(sub, getWithPresentStorage(1));
    EXPECT_EQ(vm.disk_status, 1);
    EXPECT_EQ(vm.disk_icon_level, 0);
}

TEST(EncoderShortcutVmTest, AnyDiskPresentNeedsTheStorageTopic)
{
    ZmqSubCache sub;
    sub.disk_present[2] = true;
    EXPECT_FALSE(computeEncoderShortcutPageVm(sub, ZmqGetCache{}).any_disk_present);
    sub.storage_ready = true;
    EXPECT_TRUE(computeEncoderShortcutPageVm(sub, ZmqGetCache{}).any_disk_present);
    sub.disk_present[2] = false;
    EXPECT_FALSE(computeEncoderShortcutPageVm(sub, ZmqGetCache{}).any_disk_present);
}

TEST(EncoderShortcutVmTest, ListsAreCopiedOnlyOnceTheirTopicsReported)
{
    ZmqSubCache sub;
    sub.osd_items = {{1, "Logo", true, 1}, {2, "Clock", false, 0}};
    sub.push_streams = {{0, "YouTube", true, 1, 0}};
    EncoderShortcutPageVM vm = computeEncoderShortcutPageVm(sub, ZmqGetCache{});
    EXPECT_TRUE(vm.osd_items.isEmpty());
    EXPECT_TRUE(vm.push_streams.isEmpty());

    sub.osd_ready = sub.net_stream_ready = true;
    vm = computeEncoderShortcutPageVm(sub, ZmqGetCache{});
    EXPECT_EQ(vm.osd_items, (QList<OsdItemInfo>{{1, "Logo", true, 1}, {2, "Clock", false, 0}}));
    EXPECT_EQ(vm.push_streams, (QList<PushStreamItemInfo>{{0, "YouTube", true, 1, 0}}));
}

DecoderShortcutItemInfo row(int id, const QString& name, bool enabled, bool is_on, int status)
{
    DecoderShortcutItemInfo r;
    r.id = id;
    r.name = name;
    r.enabled = enabled;
    r.is_on = is_on;
    r.status = status;
    return r;
}

TEST(DecoderShortcutVmTest, NdiRowsAreOnWhilePlaying)
{
    ZmqGetCache get;
    get.dec_ndi_valid = true;
    get.dec_ndi_list = {{4, "CAM-A", 1}, {5, "CAM-B", 0}, {6, "CAM-C", -2}};
    const DecoderShortcutPageVM vm = computeDecoderShortcutPageVm(get);
    const QList<DecoderShortcutItemInfo> expected{row(4, "CAM-A", true, true, 1),
                                                  row(5, "CAM-B", false, false, 0),
                                                  row(6, "CAM-C", false, false, -2)};
    EXPECT_EQ(vm.ndi_items, expected);
}

TEST(DecoderShortcutVmTest, NetRowsFollowTheirSwitch)
{
    ZmqGetCache get;
    get.dec_net_stream_valid = true;
    get.dec_net_stream_list = {{0, "rtmp-1", 1, 0}, {1, "srt-2", 0, 1}};
    const DecoderShortcutPageVM vm = computeDecoderShortcutPageVm(get);
    const QList<DecoderShortcutItemInfo> expected{row(0, "rtmp-1", true, true, 0),
                                                  row(1, "srt-2", false, false, 1)};
    EXPECT_EQ(vm.net_items, expected);
}

UvcDevInfo camera(bool present, int switch_on)
{
    UvcDevInfo dev;
    dev.id = 9;
    dev.name = "USB";
    dev.present = present;
    dev.switch_on = switch_on;
    dev.play_status = 3;
    dev.dev_check = 4;
    dev.format_check = 0;
    dev.resolution_check = 2;
    dev.fps_check = 0;
    return dev;
}

TEST(DecoderShortcutVmTest, UvcRowCarriesDeviceChecks)
{
    ZmqGetCache get;
    get.dec_uvc_valid = true;
    get.dec_uvc_list = {camera(true, 1)};
    const DecoderShortcutItemInfo r = computeDecoderShortcutPageVm(get).uvc_items.value(0);
    EXPECT_EQ(r.id, 9);
    EXPECT_EQ(r.name, "USB");
    EXPECT_TRUE(r.enabled);
    EXPECT_TRUE(r.is_on);
    EXPECT_EQ(r.status, 3);
    EXPECT_EQ(r.aux, 4);
    EXPECT_EQ(r.format_check, 0);
    EXPECT_EQ(r.resolution_check, 2);
    EXPECT_EQ(r.fps_check, 0);
}

TEST(DecoderShortcutVmTest, UvcRowEnabledOnlyWhenPresentAndPortNotHost)
{
    struct Case {
        bool otg_valid;
        int otg_id;
        bool present;
        int switch_on;
        bool enabled;
        bool is_on;
    };
    const Case cases[] = {
        {true, 1, true, 1, false, false},  // port is host: greyed whatever the device says
        {false, 1, true, 1, true, true},   // OTG id not read yet: not known to be host
        {true, 0, false, 1, false, false}, // device unplugged
        {true, 2, true, 0, true, false},   // usable but off
    };
    for (const Case& c : cases) {
        ZmqGetCache get;
        get.usb_otg_valid = c.otg_valid;
        get.usb_otg_id = c.otg_id;
        get.dec_uvc_valid = true;
        get.dec_uvc_list = {camera(c.present, c.switch_on)};
        const DecoderShortcutItemInfo r = computeDecoderShortcutPageVm(get).uvc_items.value(0);
        EXPECT_EQ(r.enabled, c.enabled) << c.otg_valid << c.otg_id << c.present << c.switch_on;
        EXPECT_EQ(r.is_on, c.is_on) << c.otg_valid << c.otg_id << c.present << c.switch_on;
    }
}

TEST(DecoderShortcutVmTest, ListsStayEmptyUntilValid)
{
    ZmqGetCache get;
    get.dec_ndi_list = {{1, "a", 1}};
    get.dec_net_stream_list = {{1, "b", 1, 1}};
    get.dec_uvc_list = {camera(true, 1)};
    EXPECT_EQ(computeDecoderShortcutPageVm(get), DecoderShortcutPageVM{});
}

TEST(ShortcutVmTest, ListsTheThreeQuickActionsInOrder)
{
    const ShortcutVM vm = computeShortcutVm();
    ASSERT_TRUE(vm.config.contains("list"));
    const nlohmann::json& list = vm.config["list"];
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[0]["function"], "LockLcd");
    EXPECT_EQ(list[1]["function"], "Standby");
    EXPECT_EQ(list[2]["function"], "Restart");
}

TEST(ConnectAppVmTest, FieldsHonourTheirFlags)
{
    ZmqSubCache sub = subWithNetwork({0, true, 4, true, "10.9.8.7"});
    ZmqGetCache get;
    get.ap_ssid = "box-ap";
    get.ap_psk = "k";
    get.app_connection_status = 2;
    ConnectAppVM vm = computeConnectAppVm(sub, get);
    EXPECT_EQ(vm.ap_on, 1);
    EXPECT_EQ(vm.wifi_status, 4);
    EXPECT_EQ(vm.ip, "10.9.8.7");
    EXPECT_TRUE(vm.ap_ssid.empty());
    EXPECT_EQ(vm.connect_status, 0);

    sub.network_ready = false;
    get.ap_valid = get.app_connection_valid = true;
    vm = computeConnectAppVm(sub, get);
    EXPECT_EQ(vm.ap_on, 0);
    EXPECT_EQ(vm.wifi_status, 0);
    EXPECT_EQ(vm.ap_ssid, "box-ap");
    EXPECT_EQ(vm.ap_psk, "k");
    EXPECT_EQ(vm.connect_status, 2);
}

} // namespace
