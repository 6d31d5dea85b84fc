#include "cache_builders.h"
#include "model/vm_builders/status_vm_builders.h"

#include <gtest/gtest.h>

using namespace modeltest;

namespace {

constexpr int kEncoder = 0;
constexpr int kDecoder = 1;

// An encoder recording to the NAS (storage id 3, cache slot 2), with every
// other topic live as well.
struct BusyEncoder {
    ZmqSubCache sub = subInWorkMode(kEncoder);
    ZmqGetCache get = getWithPresentStorage(3);

    BusyEncoder()
    {
        putDisk(sub, 0, {1, 1000, 100, 900});
        putDisk(sub, 2, {1, 100000, 45000, 55000});
        putRecordTask(sub, 2, "nas1_0", 1, 3600);
        sub.net_stream_ready = true;
        sub.stream_active = true;
        get.decoder_valid = true;
        get.dec_streamplay_status = 1;
    }
};

TEST(StatusBarVmTest, EncoderReadsTheChosenRecordDisk)
{
    BusyEncoder c;
    const StatusBarVM vm = computeStatusBarVm(c.sub, c.get, kDecoder);

    EXPECT_EQ(vm.work_mode, kEncoder);
    EXPECT_EQ(vm.disk_type, 3);
    EXPECT_EQ(vm.record_status, 1);
    EXPECT_EQ(vm.record_duration, 3600);
    EXPECT_EQ(vm.free_space, 55000);
    EXPECT_EQ(vm.disk_icon_level, 2); // 45 percent used
    EXPECT_TRUE(vm.is_recording);
    EXPECT_TRUE(vm.is_streaming);
    EXPECT_FALSE(vm.is_decoding);
    EXPECT_TRUE(vm.tf_present);
    EXPECT_FALSE(vm.usb_present);
    EXPECT_TRUE(vm.nas_present);
}

TEST(StatusBarVmTest, DecoderIgnoresRecordDiskAndRecordingState)
{
    BusyEncoder c;
    c.sub.workmode_id = kDecoder;
    const StatusBarVM vm = computeStatusBarVm(c.sub, c.get, kEncoder);

    EXPECT_EQ(vm.work_mode, kDecoder);
    EXPECT_EQ(vm.disk_type, -1);
    EXPECT_EQ(vm.disk_icon_level, 0);
    EXPECT_EQ(vm.record_status, 0);
    EXPECT_EQ(vm.record_duration, 0);
    EXPECT_EQ(vm.free_space, 0);
    EXPECT_FALSE(vm.is_recording);
    EXPECT_FALSE(vm.is_streaming);
    EXPECT_TRUE(vm.is_decoding);
    EXPECT_TRUE(vm.nas_present); // presence is shown in every mode
}

TEST(StatusBarVmTest, OtherWorkModeShowsNeitherRecordingNorDecoding)
{
    BusyEncoder c;
    c.sub.workmode_id = 2;
    const StatusBarVM vm = computeStatusBarVm(c.sub, c.get, kEncoder);

    EXPECT_EQ(vm.work_mode, 2);
    EXPECT_EQ(vm.disk_type, -1);
    EXPECT_FALSE(vm.is_recording);
    EXPECT_FALSE(vm.is_decoding);
}

TEST(StatusBarVmTest, StoredWorkModeAppliesUntilSystemStateReports)
{
    BusyEncoder c;
    c.sub.system_state_ready = false;
    c.sub.workmode_id = kEncoder;
    EXPECT_EQ(computeStatusBarVm(c.sub, c.get, kDecoder).work_mode, kDecoder);
    EXPECT_EQ(computeStatusBarVm(c.sub, c.get, kDecoder).disk_type, -1);
}

TEST(StatusBarVmTest, DecodingNeedsValidDecoderInfo)
{
    ZmqSubCache sub = subInWorkMode(kDecoder);
    ZmqGetCache get;
    get.dec_streamplay_status = 1;
    EXPECT_FALSE(computeStatusBarVm(sub, get, kDecoder).is_decoding);
    get.decoder_valid = true;
    get.dec_streamplay_status = 0;
    EXPECT_FALSE(computeStatusBarVm(sub, get, kDecoder).is_decoding);
}

TEST(StatusBarVmTest, WithoutValidPresentStorageNoDiskIsShown)
{
    BusyEncoder c;
    c.get.present_storage_valid = false;
    const StatusBarVM vm = computeStatusBarVm(c.sub, c.get, kEncoder);
    EXPECT_EQ(vm.disk_type, -1);
    EXPECT_EQ(vm.disk_icon_level, 0);
    EXPECT_EQ(vm.record_status, 0);
    EXPECT_EQ(vm.free_space, 0);
}

TEST(StatusBarVmTest, SecondUsbPortCountsAsNoDisk)
{
    BusyEncoder c;
    c.get.present_storage_id = 2;
    const StatusBarVM vm = computeStatusBarVm(c.sub, c.get, kEncoder);
    EXPECT_EQ(vm.disk_type, -1);
    EXPECT_EQ(vm.record_duration, 0);
    EXPECT_EQ(vm.free_space, 0);
}

TEST(StatusBarVmTest, BeforeTheStorageTopicNothingIsPresent)
{
    BusyEncoder c;
    c.sub.storage_ready = false;
    const StatusBarVM vm = computeStatusBarVm(c.sub, c.get, kEncoder);
    EXPECT_FALSE(vm.tf_present);
    EXPECT_FALSE(vm.nas_present);
    EXPECT_EQ(vm.disk_icon_level, 0);
    EXPECT_EQ(vm.disk_type, 3); // the chosen disk is still named
}

TEST(StatusBarVmTest, FullDiskShowsLevelFourWithSpaceLeft)
{
    BusyEncoder c;
    c.sub.disk_status[2] = 2;
    EXPECT_EQ(computeStatusBarVm(c.sub, c.get, kEncoder).disk_icon_level, 4);
}

TEST(StatusBarVmTest, RecordingAndStreamingNeedTheirTopics)
{
    BusyEncoder c;
    c.sub.record_ready = false;
    c.sub.net_stream_ready = false;
    const StatusBarVM vm = computeStatusBarVm(c.sub, c.get, kEncoder);
    EXPECT_FALSE(vm.is_recording);
    EXPECT_FALSE(vm.is_streaming);
}

TEST(StatusBarVmTest, WifiConnectedNeedsSwitchAndStatus)
{
    ZmqGetCache get;
    const StatusBarVM on =
        computeStatusBarVm(subWithNetwork({0, true, 4, false, "10.0.0.2"}), get, kEncoder);
    EXPECT_TRUE(on.wifi_on);
    EXPECT_TRUE(on.wifi_connected);

    const StatusBarVM switched_off =
        computeStatusBarVm(subWithNetwork({0, false, 4, false, ""}), get, kEncoder);
    EXPECT_FALSE(switched_off.wifi_on);
    EXPECT_FALSE(switched_off.wifi_connected);

    const StatusBarVM searching =
        computeStatusBarVm(subWithNetwork({0, true, 3, false, ""}), get, kEncoder);
    EXPECT_TRUE(searching.wifi_on);
    EXPECT_FALSE(searching.wifi_connected);
}

TEST(StatusBarVmTest, NetworkFlagsNeedTheNetworkTopic)
{
    ZmqSubCache sub = subWithNetwork({1, true, 4, true, "10.0.0.2"});
    ZmqGetCache get;
    const StatusBarVM up = computeStatusBarVm(sub, get, kEncoder);
    EXPECT_TRUE(up.eth_link);
    EXPECT_TRUE(up.ap_on);

    sub.network_ready = false;
    const StatusBarVM unknown = computeStatusBarVm(sub, get, kEncoder);
    EXPECT_FALSE(unknown.eth_link);
    EXPECT_FALSE(unknown.wifi_on);
    EXPECT_FALSE(unknown.wifi_connected);
    EXPECT_FALSE(unknown.ap_on);
}

TEST(StatusBarVmTest, LcdLockAndNdiHonourTheirValidFlags)
{
    ZmqSubCache sub;
    ZmqGetCache get;
    get.lcd_lock_stat = 1;
    get.enc_ndi_switch = 1;
    StatusBarVM vm = computeStatusBarVm(sub, get, kEncoder);
    EXPECT_FALSE(vm.lcd_locked);
    EXPECT_FALSE(vm.ndi_on);

    get.lcd_valid = true;
    get.enc_ndi_valid = true;
    vm = computeStatusBarVm(sub, get, kEncoder);
    EXPECT_TRUE(vm.lcd_locked);
    EXPECT_TRUE(vm.ndi_on);
}

} // namespace
