#include "cache_builders.h"
#include "model/vm_builders/status_vm_builders.h"

#include <gtest/gtest.h>

using namespace modeltest;

namespace {

constexpr int kEncoder = 0;
constexpr int kDecoder = 1;

ZmqSubCache withRates(ZmqSubCache sub)
{
    sub.cpu_memory_ready = true;
    sub.eth0_rx_mbps = 11.5;
    sub.eth0_tx_mbps = 12.25;
    sub.wlan0_rx_mbps = 21.5;
    sub.wlan0_tx_mbps = 22.25;
    return sub;
}

TEST(StatusPage1VmTest, FahrenheitUsesIntegerArithmetic)
{
    ZmqSubCache sub;
    sub.cpu_memory_ready = true;
    const std::pair<int, int> celsius_to_f[] = {{70, 158}, {0, 32}, {37, 98}, {-40, -40}};
    for (const auto& [c, f] : celsius_to_f) {
        sub.cpu_temp = c;
        EXPECT_EQ(computeStatusPage1Vm(sub, ZmqGetCache{}).cpu_temp_f, f) << c;
    }
}

TEST(StatusPage1VmTest, CpuValuesNeedTheCpuTopic)
{
    ZmqSubCache sub;
    sub.cpu_temp = 70;
    sub.cpu_payload = 40;
    sub.memory_percent = 55;
    const StatusPage1VM vm = computeStatusPage1Vm(sub, ZmqGetCache{});
    EXPECT_EQ(vm.cpu_temp_c, 0);
    EXPECT_EQ(vm.cpu_temp_f, 32);
    EXPECT_EQ(vm.cpu_payload, 0);
    EXPECT_EQ(vm.memory_percent, 0);
}

TEST(StatusPage1VmTest, EthernetWinsOverWifiForRates)
{
    const StatusPage1VM vm = computeStatusPage1Vm(
        withRates(subWithNetwork({1, true, 4, false, "192.168.1.9"})), ZmqGetCache{});
    EXPECT_TRUE(vm.eth_link);
    EXPECT_TRUE(vm.wifi_link);
    EXPECT_DOUBLE_EQ(vm.up_mbps, 11.5);
    EXPECT_DOUBLE_EQ(vm.down_mbps, 12.25);
    EXPECT_EQ(vm.ip_text, "192.168.1.9");
}

TEST(StatusPage1VmTest, WifiRatesWhenOnlyWifiIsLinked)
{
    const StatusPage1VM vm = computeStatusPage1Vm(
        withRates(subWithNetwork({0, true, 4, false, "10.1.2.3"})), ZmqGetCache{});
    EXPECT_DOUBLE_EQ(vm.up_mbps, 21.5);
    EXPECT_DOUBLE_EQ(vm.down_mbps, 22.25);
    EXPECT_EQ(vm.ip_text, "10.1.2.3");
}

TEST(StatusPage1VmTest, WifiStatusWithoutSwitchIsNoLink)
{
    const StatusPage1VM vm = computeStatusPage1Vm(
        withRates(subWithNetwork({0, false, 4, false, "10.1.2.3"})), ZmqGetCache{});
    EXPECT_FALSE(vm.wifi_link);
    EXPECT_EQ(vm.up_mbps, 0);
    EXPECT_EQ(vm.down_mbps, 0);
    EXPECT_EQ(vm.ip_text, "---.---.---.---");
}

TEST(StatusPage1VmTest, AccessPointAloneShowsItsFixedAddress)
{
    const StatusPage1VM vm = computeStatusPage1Vm(
        withRates(subWithNetwork({0, false, 0, true, "10.1.2.3"})), ZmqGetCache{});
    EXPECT_TRUE(vm.ap_on);
    EXPECT_EQ(vm.ip_text, "170.128.88.1");
    EXPECT_EQ(vm.up_mbps, 0);
    EXPECT_EQ(vm.down_mbps, 0);
}

TEST(StatusPage1VmTest, NoNetworkTopicShowsNoAddress)
{
    ZmqSubCache sub = withRates(subWithNetwork({1, true, 4, true, "10.1.2.3"}));
    sub.lan_dhcp_switch = 1;
    sub.network_ready = false;
    const StatusPage1VM vm = computeStatusPage1Vm(sub, ZmqGetCache{});
    EXPECT_FALSE(vm.eth_link || vm.wifi_link || vm.ap_on || vm.dhcp_on);
    EXPECT_EQ(vm.ip_text, "---.---.---.---");
    EXPECT_EQ(vm.up_mbps, 0);
}

TEST(StatusPage1VmTest, AddressIsDecodedAsUtf8)
{
    const StatusPage1VM vm = computeStatusPage1Vm(
        subWithNetwork({1, false, 0, false, "fe80::1%\xC3\xA9th0"}), ZmqGetCache{});
    EXPECT_EQ(vm.ip_text, QString::fromUtf8("fe80::1%\xC3\xA9th0"));
}

TEST(StatusPage1VmTest, GetCacheFieldsHonourTheirFlags)
{
    ZmqGetCache get;
    get.ap_ssid = "panel-ap";
    get.version.device_name = "Box";
    StatusPage1VM vm = computeStatusPage1Vm(ZmqSubCache{}, get);
    EXPECT_TRUE(vm.ap_ssid.isEmpty());
    EXPECT_TRUE(vm.device_name.isEmpty());

    get.ap_valid = true;
    get.version_valid = true;
    vm = computeStatusPage1Vm(ZmqSubCache{}, get);
    EXPECT_EQ(vm.ap_ssid, "panel-ap");
    EXPECT_EQ(vm.device_name, "Box");
}

VideoEncInfo encoderStream(int codec, int width, int bitrate, int ndi_bitrate)
{
    VideoEncInfo enc;
    enc.codec = codec;
    enc.width = width;
    enc.height = width * 9 / 16;
    enc.framerate = 30;
    enc.bitrate = bitrate;
    enc.ndi_bitrate_pre = ndi_bitrate;
    return enc;
}

ZmqGetCache getWithTwoStreams()
{
    ZmqGetCache get;
    get.venc_valid = true;
    get.venc_list = {encoderStream(1, 1920, 8000, 120000), encoderStream(2, 640, 1000, 30000)};
    return get;
}

TEST(StatusPage2VmTest, EncoderStreamsUseRegularBitrateWithoutNdi)
{
    ZmqGetCache get = getWithTwoStreams();
    get.enc_ndi_switch = 1; // not yet valid
    const StatusPage2VM vm = computeStatusPage2Vm(subInWorkMode(kEncoder), get, kEncoder);
    EXPECT_EQ(vm.main_codec, 1);
    EXPECT_EQ(vm.main_width, 1920);
    EXPECT_EQ(vm.main_height, 1080);
    EXPECT_EQ(vm.main_bitrate, 8000);
    EXPECT_EQ(vm.sub_codec, 2);
    EXPECT_EQ(vm.sub_width, 640);
    EXPECT_EQ(vm.sub_bitrate, 1000);
}

TEST(StatusPage2VmTest, EncoderStreamsUseNdiBitrateWithNdiOn)
{
    ZmqGetCache get = getWithTwoStreams();
    get.enc_ndi_valid = true;
    get.enc_ndi_switch = 1;
    const StatusPage2VM vm = computeStatusPage2Vm(subInWorkMode(kEncoder), get, kEncoder);
    EXPECT_TRUE(vm.ndi_on);
    EXPECT_EQ(vm.main_bitrate, 120000);
    EXPECT_EQ(vm.sub_bitrate, 30000);
}

TEST(StatusPage2VmTest, SingleEncoderStreamLeavesBothBlocksEmpty)
{
    ZmqGetCache get = getWithTwoStreams();
    get.venc_list.pop_back();
    const StatusPage2VM vm = computeStatusPage2Vm(subInWorkMode(kEncoder), get, kEncoder);
    EXPECT_EQ(vm.main_width, 0);
    EXPECT_EQ(vm.main_bitrate, 0);
    EXPECT_EQ(vm.sub_width, 0);
}

ZmqGetCache getWithDecoder()
{
    ZmqGetCache get = getWithTwoStreams();
    get.decoder_valid = true;
    get.dec_streamplay_status = 1;
    get.dec_width = 1280;
    get.dec_height = 720;
    get.dec_framerate = 29.97;
    get.dec_bandwidth = 4500;
    get.dec_name = "cam";
    get.dec_video_format = "H264";
    get.dec_audio_format = "AAC";
    get.audio_valid = true;
    get.audio.ao_volume = 7;
    return get;
}

TEST(StatusPage2VmTest, DecoderModeFillsDecoderBlockOnly)
{
    const StatusPage2VM vm = computeStatusPage2Vm(subInWorkMode(kDecoder), getWithDecoder(), 0);
    EXPECT_EQ(vm.work_mode, kDecoder);
    EXPECT_EQ(vm.dec_status, 1);
    EXPECT_EQ(vm.dec_width, 1280);
    EXPECT_EQ(vm.dec_height, 720);
    EXPECT_EQ(vm.dec_framerate, 29.97);
    EXPECT_EQ(vm.dec_bandwidth, 4500);
    EXPECT_EQ(vm.dec_name, "cam");
    EXPECT_EQ(vm.dec_video_format, "H264");
    EXPECT_EQ(vm.dec_audio_format, "AAC");
    EXPECT_EQ(vm.ao_volume, 7);
    EXPECT_EQ(vm.main_width, 0);
    EXPECT_EQ(vm.sub_bitrate, 0);
}

TEST(StatusPage2VmTest, EncoderModeLeavesDecoderBlockEmpty)
{
    const StatusPage2VM vm = computeStatusPage2Vm(subInWorkMode(kEncoder), getWithDecoder(), 1);
    EXPECT_EQ(vm.dec_status, 0);
    EXPECT_EQ(vm.dec_framerate, 0);
    EXPECT_TRUE(vm.dec_name.isEmpty());
    EXPECT_EQ(vm.ao_volume, 0);
    EXPECT_EQ(vm.main_width, 1920);
}

TEST(StatusPage2VmTest, OutputVolumeDoesNotNeedDecoderInfo)
{
    ZmqGetCache get = getWithDecoder();
    get.decoder_valid = false;
    const StatusPage2VM vm = computeStatusPage2Vm(subInWorkMode(kDecoder), get, kDecoder);
    EXPECT_EQ(vm.dec_width, 0);
    EXPECT_EQ(vm.ao_volume, 7);
}

TEST(StatusPage2VmTest, InputAndOutputAreShownInEveryMode)
{
    ZmqSubCache sub = subInWorkMode(2);
    sub.video_input_ready = true;
    sub.video_width = 3840;
    sub.video_height = 2160;
    sub.video_fps = 60;
    sub.video_fpsdiv = 1001;
    ZmqGetCache get;
    get.video_out_valid = true;
    get.video_out.format = "1080p60";
    get.video_out.loop_out_switch = 1;
    const StatusPage2VM vm = computeStatusPage2Vm(sub, get, kEncoder);
    EXPECT_EQ(vm.in_width, 3840);
    EXPECT_EQ(vm.in_fpsdiv, 1001);
    EXPECT_EQ(vm.out_format, "1080p60");
    EXPECT_TRUE(vm.loop_out_on);
    EXPECT_FALSE(vm.audio_out_on);
}

TEST(StatusPage3VmTest, InputSampleRateNeedsOnlyTheVideoInputTopic)
{
    ZmqSubCache sub;
    sub.video_input_ready = true;
    sub.audio_samplerate = 48000;
    ZmqGetCache get;
    get.audio.switch_on = 1;
    get.audio.volume = 9;
    const StatusPage3VM vm = computeStatusPage3Vm(sub, get);
    EXPECT_EQ(vm.input_samplerate, 48000);
    EXPECT_FALSE(vm.audio_on);
    EXPECT_EQ(vm.volume, 0);
}

TEST(StatusPage3VmTest, AudioEncoderValuesWithValidAudio)
{
    ZmqGetCache get;
    get.audio_valid = true;
    get.audio = {1, 2, 3, 128, 44100, 9, 4};
    ZmqSubCache sub;
    sub.audio_samplerate = 48000; // topic not reported yet
    const StatusPage3VM vm = computeStatusPage3Vm(sub, get);
    EXPECT_TRUE(vm.audio_on);
    EXPECT_EQ(vm.ai_type, 2);
    EXPECT_EQ(vm.codec, 3);
    EXPECT_EQ(vm.bitrate, 128);
    EXPECT_EQ(vm.sample_rate, 44100);
    EXPECT_EQ(vm.volume, 9);
    EXPECT_EQ(vm.input_samplerate, 0);
}

} // namespace
