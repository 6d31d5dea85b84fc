#include "cache_builders.h"
#include "model/vm_builders/settings_vm_builders.h"
#include "model/vm_builders/status_vm_builders.h"

#include <gtest/gtest.h>

using namespace modeltest;

namespace {

constexpr int kEncoder = 0;
constexpr int kDecoder = 1;

TEST(NetworkSettingsVmTest, WifiLinkIgnoresTheSwitchUnlikeTheStatusBar)
{
    const ZmqSubCache sub = subWithNetwork({0, false, 4, false, "10.0.0.7"});
    const NetworkSettingsPageVM vm = computeNetworkSettingsPageVm(sub, ZmqGetCache{}, 80);
    EXPECT_TRUE(vm.wifi_link);
    EXPECT_TRUE(vm.client_link);
    EXPECT_TRUE(vm.has_link);
    EXPECT_FALSE(vm.wifi_on);
    EXPECT_FALSE(computeStatusBarVm(sub, ZmqGetCache{}, kEncoder).wifi_connected);
}

TEST(NetworkSettingsVmTest, AccessPointAloneIsALinkButNoClientLink)
{
    const NetworkSettingsPageVM vm =
        computeNetworkSettingsPageVm(subWithNetwork({0, false, 0, true, ""}), ZmqGetCache{}, 8080);
    EXPECT_TRUE(vm.has_link);
    EXPECT_FALSE(vm.client_link);
    EXPECT_TRUE(vm.http_url.isNull());
    EXPECT_EQ(vm.ap_http_url, "http://170.128.88.1:8080");
}

TEST(NetworkSettingsVmTest, UrlsFollowTheConfiguredPort)
{
    const ZmqSubCache sub = subWithNetwork({1, false, 0, true, "192.168.0.50"});
    const NetworkSettingsPageVM on80 = computeNetworkSettingsPageVm(sub, ZmqGetCache{}, 80);
    EXPECT_TRUE(on80.eth_link);
    EXPECT_EQ(on80.ip_text, "192.168.0.50");
    EXPECT_EQ(on80.http_url, "http://192.168.0.50");
    EXPECT_EQ(on80.ap_http_url, "http://170.128.88.1");

    const NetworkSettingsPageVM unknown = computeNetworkSettingsPageVm(sub, ZmqGetCache{}, -1);
    EXPECT_TRUE(unknown.http_url.isNull());
    EXPECT_TRUE(unknown.ap_http_url.isNull());
}

TEST(NetworkSettingsVmTest, NoAccessPointUrlWithAccessPointOff)
{
    const NetworkSettingsPageVM vm = computeNetworkSettingsPageVm(
        subWithNetwork({1, false, 0, false, "192.168.0.50"}), ZmqGetCache{}, 80);
    EXPECT_TRUE(vm.ap_http_url.isEmpty());
}

TEST(NetworkSettingsVmTest, WithoutNetworkTopicNothingIsLinked)
{
    ZmqSubCache sub = subWithNetwork({1, true, 4, true, "192.168.0.50"});
    sub.network_ready = false;
    const NetworkSettingsPageVM vm = computeNetworkSettingsPageVm(sub, ZmqGetCache{}, 80);
    EXPECT_FALSE(vm.wifi_on || vm.ap_on || vm.has_link || vm.eth_link || vm.wifi_link
                 || vm.client_link);
    EXPECT_TRUE(vm.http_url.isEmpty());
    EXPECT_TRUE(vm.ap_http_url.isEmpty());
}

TEST(NetworkSettingsVmTest, AccessPointQrNeedsValidApInfo)
{
    ZmqGetCache get;
    get.ap_ssid = "Box;AP";
    get.ap_psk = "secret";
    EXPECT_TRUE(computeNetworkSettingsPageVm(ZmqSubCache{}, get, 80).ap_wifi_qr.isEmpty());

    get.ap_valid = true;
    const NetworkSettingsPageVM vm = computeNetworkSettingsPageVm(ZmqSubCache{}, get, 80);
    EXPECT_EQ(vm.ap_ssid, "Box;AP");
    EXPECT_EQ(vm.ap_psk, "secret");
    EXPECT_EQ(vm.ap_wifi_qr, "WIFI:S:Box;AP;T:WPA;P:secret;H:false;;");
}

TEST(NetworkSettingsVmTest, NasListIsCopiedInOrderWhenValid)
{
    ZmqGetCache get;
    get.nas_list = {{"share-a", true, 1}, {"share-b", false, 0}};
    EXPECT_TRUE(computeNetworkSettingsPageVm(ZmqSubCache{}, get, 80).nas_list.isEmpty());

    get.nas_valid = true;
    const QList<NasMountInfo> expected{{"share-a", true, 1}, {"share-b", false, 0}};
    EXPECT_EQ(computeNetworkSettingsPageVm(ZmqSubCache{}, get, 80).nas_list, expected);
}

TEST(CameraSettingsVmTest, NonPositiveSleepShowsTheDefault)
{
    ZmqGetCache get;
    get.lcd_valid = true;
    const std::pair<int, int> reported_to_shown[] = {{0, 5}, {-3, 5}, {1, 1}, {30, 30}};
    for (const auto& [reported, shown] : reported_to_shown) {
        get.lcd_sleep = reported;
        EXPECT_EQ(computeCameraSettingsPageVm(get).lcd_sleep, shown) << reported;
    }
}

TEST(CameraSettingsVmTest, GroupsKeepDefaultsUntilValid)
{
    ZmqGetCache get;
    get.lcd_lock_stat = 1;
    get.lcd_bright = 80;
    get.lcd_sleep = 0;
    get.ptz = {5, 1};
    get.tally = {1, 2, 3};
    const CameraSettingsPageVM before = computeCameraSettingsPageVm(get);
    EXPECT_EQ(before, CameraSettingsPageVM{});

    get.lcd_valid = get.ptz_valid = get.tally_valid = true;
    const CameraSettingsPageVM after = computeCameraSettingsPageVm(get);
    EXPECT_TRUE(after.lcd_lock_on);
    EXPECT_EQ(after.lcd_bright, 80);
    EXPECT_EQ(after.ptz_protocol, 5);
    EXPECT_EQ(after.ptz_usb2serial, 1);
    EXPECT_TRUE(after.tally_on);
    EXPECT_EQ(after.tally_mode_id, 2);
    EXPECT_EQ(after.tally_color_id, 3);
}

ZmqGetCache getWithAudio()
{
    ZmqGetCache get;
    get.audio_valid = true;
    get.audio.switch_on = 0;
    get.audio.volume = 6;
    get.audio.ao_volume = 3;
    get.audio.ai_type = 2;
    return get;
}

TEST(AudioSettingsVmTest, EncoderShowsInputVolumeAndMute)
{
    ZmqGetCache get = getWithAudio();
    AudioSettingsPageVM vm = computeAudioSettingsPageVm(subInWorkMode(kEncoder), get, kDecoder);
    EXPECT_EQ(vm.work_mode, kEncoder);
    EXPECT_EQ(vm.muted, 1);
    EXPECT_EQ(vm.volume, 6);
    EXPECT_EQ(vm.ai_type, 2);

    get.audio.switch_on = 1;
    vm = computeAudioSettingsPageVm(subInWorkMode(kEncoder), get, kDecoder);
    EXPECT_EQ(vm.muted, 0);
}

TEST(AudioSettingsVmTest, DecoderShowsOutputVolumeOnly)
{
    const AudioSettingsPageVM vm =
        computeAudioSettingsPageVm(subInWorkMode(kDecoder), getWithAudio(), kEncoder);
    EXPECT_EQ(vm.work_mode, kDecoder);
    EXPECT_EQ(vm.muted, 0);
    EXPECT_EQ(vm.volume, 3);
    EXPECT_EQ(vm.ai_type, 0);
}

TEST(AudioSettingsVmTest, OtherModeKeepsValuesAtZero)
{
    const AudioSettingsPageVM vm =
        computeAudioSettingsPageVm(subInWorkMode(2), getWithAudio(), kEncoder);
    EXPECT_EQ(vm.work_mode, 2);
    EXPECT_EQ(vm.muted, 0);
    EXPECT_EQ(vm.volume, 0);
}

TEST(AudioSettingsVmTest, InvalidAudioGivesAllZeroEvenTheMode)
{
    ZmqGetCache get = getWithAudio();
    get.audio_valid = false;
    EXPECT_EQ(computeAudioSettingsPageVm(subInWorkMode(kDecoder), get, kDecoder),
              AudioSettingsPageVM{});
}

ZmqGetCache getWithEncoderExtras()
{
    ZmqGetCache get;
    get.ai_tracking_valid = true;
    get.ai_tracking.nn_enable = 1;
    get.gsk_valid = true;
    get.gsk = {1, 4};
    return get;
}

TEST(VideoSettingsVmTest, EncoderShowsTrackingAndMatting)
{
    const VideoSettingsPageVM vm =
        computeVideoSettingsPageVm(subInWorkMode(kEncoder), getWithEncoderExtras(), kDecoder);
    EXPECT_TRUE(vm.ai_tracking_on);
    EXPECT_TRUE(vm.gsk_on);
    EXPECT_EQ(vm.gsk_bg_count, 4);
}

TEST(VideoSettingsVmTest, DecoderIgnoresEncoderOnlyFeatures)
{
    ZmqSubCache sub = subInWorkMode(kDecoder);
    sub.video_input_ready = true;
    sub.video_width = 1920;
    sub.video_fps = 50;
    const VideoSettingsPageVM vm = computeVideoSettingsPageVm(sub, getWithEncoderExtras(), 0);
    EXPECT_EQ(vm.work_mode, kDecoder);
    EXPECT_FALSE(vm.ai_tracking_on);
    EXPECT_FALSE(vm.gsk_on);
    EXPECT_EQ(vm.gsk_bg_count, 0);
    EXPECT_EQ(vm.in_width, 1920);
    EXPECT_EQ(vm.in_fps, 50);
}

TEST(MediaSettingsVmTest, RecordStatusFollowsThePresentStorage)
{
    ZmqSubCache sub = subInWorkMode(kEncoder);
    putRecordTask(sub, 1, "usb1_0", 2, 10);
    putRecordTask(sub, 0, "sdcard_0", 1, 10);

    MediaSettingsPageVM vm = computeMediaSettingsPageVm(sub, getWithPresentStorage(1), kEncoder);
    EXPECT_EQ(vm.present_storage_id, 1);
    EXPECT_EQ(vm.record_status, 2);

    vm = computeMediaSettingsPageVm(sub, ZmqGetCache{}, kEncoder);
    EXPECT_EQ(vm.present_storage_id, -1);
    EXPECT_EQ(vm.record_status, 0);
}

TEST(MediaSettingsVmTest, NdiAndSrtHonourTheirFlags)
{
    ZmqGetCache get;
    get.enc_ndi_switch = 1;
    get.enc_ndi_mode_id = 2;
    get.enc_ndi_machinename = "BOX-\xC3\x9F";
    get.enc_srt.switch_on = 1;
    MediaSettingsPageVM vm = computeMediaSettingsPageVm(ZmqSubCache{}, get, kEncoder);
    EXPECT_FALSE(vm.ndi_on);
    EXPECT_FALSE(vm.srt_on);
    EXPECT_TRUE(vm.ndi_machinename.isEmpty());

    get.enc_ndi_valid = true;
    get.local_server_valid = true;
    vm = computeMediaSettingsPageVm(ZmqSubCache{}, get, kEncoder);
    EXPECT_TRUE(vm.ndi_on);
    EXPECT_EQ(vm.ndi_mode_id, 2);
    EXPECT_EQ(vm.ndi_machinename, QString::fromUtf8("BOX-\xC3\x9F"));
    EXPECT_TRUE(vm.srt_on);
}

TEST(SystemSettingsVmTest, GroupsHonourTheirFlags)
{
    ZmqGetCache get;
    get.dc_out_switch = 1;
    get.dc_out_voltage = 3;
    get.usb_otg_id = 1;
    get.version = {"HW1", "FW2", "Box", "SN3"};
    get.dashboard = {"12h", "2025-01-01"};
    EXPECT_EQ(computeSystemSettingsPageVm(get), SystemSettingsPageVM{});

    get.dc_out_valid = get.usb_otg_valid = get.version_valid = get.dashboard_valid = true;
    const SystemSettingsPageVM vm = computeSystemSettingsPageVm(get);
    EXPECT_TRUE(vm.dc_out_on);
    EXPECT_EQ(vm.dc_out_voltage, 3);
    EXPECT_TRUE(vm.usb_otg_on);
    EXPECT_EQ(vm.hardware_version, "HW1");
    EXPECT_EQ(vm.firmware_version, "FW2");
    EXPECT_EQ(vm.device_name, "Box");
    EXPECT_EQ(vm.serial_number, "SN3");
    EXPECT_EQ(vm.persistent_time, "12h");
    EXPECT_EQ(vm.device_start_time, "2025-01-01");
}

TEST(DecodingSettingsVmTest, SwitchesHonourTheirFlags)
{
    ZmqGetCache get;
    get.dec_rtmp_switch = 1;
    get.dec_srt_server_switch = 1;
    get.dec_srt_play_switch = 0;
    EXPECT_EQ(computeDecodingSettingsPageVm(get), DecodingSettingsPageVM{});

    get.dec_rtmp_valid = get.dec_srt_valid = true;
    const DecodingSettingsPageVM vm = computeDecodingSettingsPageVm(get);
    EXPECT_TRUE(vm.rtmp_on);
    EXPECT_TRUE(vm.srt_server_on);
    EXPECT_FALSE(vm.srt_play_on);
}

} // namespace
