#include "model/vm_builders/status_vm_builders.h"

#include "model/vm_builders/access_url.h"
#include "model/vm_builders/backend_time_text.h"
#include "model/vm_builders/cache_reads.h"
#include "model/vm_builders/record_disk.h"

using namespace vmcache;

namespace {

const char* const kNoAddressText = "---.---.---.---";

void fillEncoderRecordState(StatusBarVM& vm, const ZmqSubCache& sub, const ZmqGetCache& get)
{
    const int id = presentStorageId(get);
    vm.record_status = getRecordTaskStatus(sub, id);
    vm.record_duration = getRecordTaskDuration(sub, id);
    vm.free_space = getRecordDiskFreeSpace(sub, id);
    vm.is_recording = sub.record_ready && sub.record_active;
    vm.is_streaming = sub.net_stream_ready && sub.stream_active;
    if (isRecordDiskId(id)) {
        vm.disk_type = id;
        vm.disk_icon_level = buildRecordDiskIconState(
            id, getDiskStatus(sub, id), getRecordDiskTotalSpace(sub, id),
            getRecordDiskUsedSpace(sub, id), vm.free_space, isRecordDiskAvailable(sub, id));
    }
}

QString statusPage1Address(const ZmqSubCache& sub, const StatusPage1VM& vm)
{
    if (!sub.network_ready) {
        return QString::fromLatin1(kNoAddressText);
    }
    if (vm.wifi_link || vm.eth_link) {
        return QString::fromStdString(sub.ip);
    }
    if (vm.ap_on) {
        return QString::fromLatin1(kAccessPointAddress);
    }
    return QString::fromLatin1(kNoAddressText);
}

// Ethernet wins over Wi-Fi; without a link the rates mean nothing and stay 0.
void fillStatusPage1Rates(StatusPage1VM& vm, const ZmqSubCache& sub)
{
    if (vm.eth_link) {
        vm.up_mbps = sub.eth0_rx_mbps;
        vm.down_mbps = sub.eth0_tx_mbps;
    } else if (vm.wifi_link) {
        vm.up_mbps = sub.wlan0_rx_mbps;
        vm.down_mbps = sub.wlan0_tx_mbps;
    }
}

struct StreamBlock {
    int codec = 0;
    int width = 0;
    int height = 0;
    int framerate = 0;
    int bitrate = 0;
};

// With NDI on, the encoder runs at the bitrate preset for NDI.
StreamBlock streamBlockOf(const VideoEncInfo& enc, bool ndi_on)
{
    return {enc.codec, enc.width, enc.height, enc.framerate,
            ndi_on ? enc.ndi_bitrate_pre : enc.bitrate};
}

void fillEncoderStreams(StatusPage2VM& vm, const ZmqGetCache& get)
{
    if (!get.venc_valid || get.venc_list.size() < 2) {
        return;
    }
    const StreamBlock main = streamBlockOf(get.venc_list[0], vm.ndi_on);
    const StreamBlock sub = streamBlockOf(get.venc_list[1], vm.ndi_on);
    vm.main_codec = main.codec;
    vm.main_width = main.width;
    vm.main_height = main.height;
    vm.main_framerate = main.framerate;
    vm.main_bitrate = main.bitrate;
    vm.sub_codec = sub.codec;
    vm.sub_width = sub.width;
    vm.sub_height = sub.height;
    vm.sub_framerate = sub.framerate;
    vm.sub_bitrate = sub.bitrate;
}

void fillDecoderState(StatusPage2VM& vm, const ZmqGetCache& get)
{
    if (get.decoder_valid) {
        vm.dec_status = get.dec_streamplay_status;
        vm.dec_width = get.dec_width;
        vm.dec_height = get.dec_height;
        vm.dec_framerate = get.dec_framerate;
        vm.dec_bandwidth = get.dec_bandwidth;
        vm.dec_video_format = get.dec_video_format;
        vm.dec_audio_format = get.dec_audio_format;
        vm.dec_name = get.dec_name;
    }
    if (get.audio_valid) {
        vm.ao_volume = get.audio.ao_volume;
    }
}

} // namespace

StatusBarVM computeStatusBarVm(const ZmqSubCache& sub, const ZmqGetCache& get, int stored_work_mode)
{
    StatusBarVM vm;
    vm.work_mode = resolveWorkMode(sub, stored_work_mode);
    if (sub.storage_ready) {
        vm.tf_present = sub.disk_present[0];
        vm.usb_present = sub.disk_present[1];
        vm.nas_present = sub.disk_present[2];
    }
    if (vm.work_mode == kWorkModeEncoder) {
        fillEncoderRecordState(vm, sub, get);
    } else if (vm.work_mode == kWorkModeDecoder) {
        vm.is_decoding = get.decoder_valid && get.dec_streamplay_status != 0;
    }
    vm.eth_link = ethernetLinkUp(sub);
    vm.wifi_on = sub.network_ready && sub.wifi_switch;
    vm.wifi_connected = wifiClientConnected(sub);
    vm.ap_on = sub.network_ready && sub.ap_switch;
    vm.lcd_locked = lcdLocked(get);
    vm.ndi_on = encoderNdiOn(get);
    return vm;
}

StatusPage1VM computeStatusPage1Vm(const ZmqSubCache& sub, const ZmqGetCache& get)
{
    StatusPage1VM vm;
    if (sub.cpu_memory_ready) {
        vm.cpu_temp_c = sub.cpu_temp;
        vm.cpu_temp_f = sub.cpu_temp * 9 / 5 + 32;
        vm.cpu_payload = sub.cpu_payload;
        vm.memory_percent = sub.memory_percent;
    }
    vm.dhcp_on = sub.network_ready && sub.lan_dhcp_switch != 0;
    vm.eth_link = ethernetLinkUp(sub);
    vm.wifi_link = wifiClientConnected(sub);
    vm.ap_on = sub.network_ready && sub.ap_switch;
    vm.ip_text = statusPage1Address(sub, vm);
    if (get.ap_valid) {
        vm.ap_ssid = QString::fromStdString(get.ap_ssid);
    }
    fillStatusPage1Rates(vm, sub);
    if (get.version_valid) {
        vm.device_name = get.version.device_name;
    }
    return vm;
}

StatusPage2VM computeStatusPage2Vm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                   int stored_work_mode)
{
    StatusPage2VM vm;
    vm.work_mode = resolveWorkMode(sub, stored_work_mode);
    if (sub.video_input_ready) {
        vm.in_width = sub.video_width;
        vm.in_height = sub.video_height;
        vm.in_fps = sub.video_fps;
        vm.in_fpsdiv = sub.video_fpsdiv;
    }
    if (get.video_out_valid) {
        vm.out_format = get.video_out.format;
        vm.loop_out_on = get.video_out.loop_out_switch != 0;
        vm.audio_out_on = get.video_out.audio_switch != 0;
    }
    vm.ndi_on = encoderNdiOn(get);
    if (vm.work_mode == kWorkModeEncoder) {
        fillEncoderStreams(vm, get);
    } else if (vm.work_mode == kWorkModeDecoder) {
        fillDecoderState(vm, get);
    }
    return vm;
}

StatusPage3VM computeStatusPage3Vm(const ZmqSubCache& sub, const ZmqGetCache& get)
{
    StatusPage3VM vm;
    if (get.audio_valid) {
        vm.audio_on = get.audio.switch_on != 0;
        vm.volume = get.audio.volume;
        vm.bitrate = get.audio.bitrate;
        vm.sample_rate = get.audio.sample_rate;
        vm.ai_type = get.audio.ai_type;
        vm.codec = get.audio.codec;
    }
    if (sub.video_input_ready) {
        vm.input_samplerate = sub.audio_samplerate;
    }
    return vm;
}

StandbyPageVM computeStandbyPageVm(const QString& ip_text, const nlohmann::json* system_time)
{
    StandbyPageVM vm;
    vm.ip_text = ip_text;
    if (system_time) {
        buildBackendDateTimeText(*system_time, vm.date_text, vm.time_text);
    }
    return vm;
}

DynamicScreensaverVM computeDynamicScreensaverVm(bool standby, int work_mode,
                                                 const nlohmann::json* system_time)
{
    DynamicScreensaverVM vm;
    vm.standby = standby;
    vm.work_mode = work_mode;
    if (system_time) {
        buildBackendDateTimeText(*system_time, vm.date_text, vm.time_text);
    }
    return vm;
}
