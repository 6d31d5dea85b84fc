#include "model/vm_builders/settings_vm_builders.h"

#include "model/vm_builders/access_url.h"
#include "model/vm_builders/cache_reads.h"
#include "model/vm_builders/record_disk.h"

using namespace vmcache;

namespace {

// Until the backend reports a sleep time, the LCD sleeps after the default.
constexpr int kDefaultLcdSleep = 5;

// The settings page shows Wi-Fi as linked from the status alone, so that a
// connection that is still up while the switch turns off is visible there.
void fillNetworkLinks(NetworkSettingsPageVM& vm, const ZmqSubCache& sub, int http_port)
{
    vm.wifi_on = sub.wifi_switch;
    vm.ap_on = sub.ap_switch;
    vm.eth_link = sub.lan_state >= 1;
    vm.wifi_link = sub.wifi_status == 4;
    vm.client_link = vm.eth_link || vm.wifi_link;
    vm.has_link = vm.client_link || vm.ap_on;
    vm.ip_text = QString::fromStdString(sub.ip);
    if (!sub.ip.empty()) {
        vm.http_url = buildQrAccessUrl(vm.ip_text, http_port);
    }
    if (vm.ap_on) {
        vm.ap_http_url = buildQrAccessUrl(QString::fromLatin1(kAccessPointAddress), http_port);
    }
}

void fillAccessPoint(NetworkSettingsPageVM& vm, const ZmqGetCache& get)
{
    vm.ap_ssid = QString::fromStdString(get.ap_ssid);
    vm.ap_psk = QString::fromStdString(get.ap_psk);
    vm.ap_wifi_qr = buildApWifiQrText(vm.ap_ssid, vm.ap_psk);
}

} // namespace

SystemSettingsPageVM computeSystemSettingsPageVm(const ZmqGetCache& get)
{
    SystemSettingsPageVM vm;
    if (get.dc_out_valid) {
        vm.dc_out_on = get.dc_out_switch != 0;
        vm.dc_out_voltage = get.dc_out_voltage;
    }
    vm.usb_otg_on = get.usb_otg_valid && get.usb_otg_id != 0;
    if (get.version_valid) {
        vm.device_name = get.version.device_name;
        vm.hardware_version = get.version.hardware_version;
        vm.firmware_version = get.version.firmware_version;
        vm.serial_number = get.version.SN;
    }
    if (get.dashboard_valid) {
        vm.device_start_time = get.dashboard.device_strat_time;
        vm.persistent_time = get.dashboard.persistent_time;
    }
    return vm;
}

NetworkSettingsPageVM computeNetworkSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                                   int http_port)
{
    NetworkSettingsPageVM vm;
    if (sub.network_ready) {
        fillNetworkLinks(vm, sub, http_port);
    }
    if (get.ap_valid) {
        fillAccessPoint(vm, get);
    }
    if (get.nas_valid) {
        vm.nas_list = QList<NasMountInfo>(get.nas_list.begin(), get.nas_list.end());
    }
    return vm;
}

CameraSettingsPageVM computeCameraSettingsPageVm(const ZmqGetCache& get)
{
    CameraSettingsPageVM vm;
    if (get.lcd_valid) {
        vm.lcd_lock_on = get.lcd_lock_stat != 0;
        vm.lcd_bright = get.lcd_bright;
        vm.lcd_sleep = get.lcd_sleep > 0 ? get.lcd_sleep : kDefaultLcdSleep;
    }
    if (get.ptz_valid) {
        vm.ptz_protocol = get.ptz.protocol;
        vm.ptz_usb2serial = get.ptz.usb2serial;
    }
    if (get.tally_valid) {
        vm.tally_on = get.tally.switch_on != 0;
        vm.tally_mode_id = get.tally.mode_id;
        vm.tally_color_id = get.tally.color_id;
    }
    return vm;
}

VideoSettingsPageVM computeVideoSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                               int stored_work_mode)
{
    VideoSettingsPageVM vm;
    vm.work_mode = resolveWorkMode(sub, stored_work_mode);
    if (get.video_out_valid) {
        vm.audio_out_on = get.video_out.audio_switch != 0;
        vm.loop_out_on = get.video_out.loop_out_switch != 0;
        vm.out_format = get.video_out.format;
    }
    if (vm.work_mode == kWorkModeEncoder) {
        vm.ai_tracking_on = get.ai_tracking_valid && get.ai_tracking.nn_enable != 0;
        if (get.gsk_valid) {
            vm.gsk_on = get.gsk.im_enable != 0;
            vm.gsk_bg_count = get.gsk.user_bgfile_count;
        }
    }
    if (sub.video_input_ready) {
        vm.in_width = sub.video_width;
        vm.in_height = sub.video_height;
        vm.in_fps = sub.video_fps;
    }
    return vm;
}

AudioSettingsPageVM computeAudioSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                               int stored_work_mode)
{
    AudioSettingsPageVM vm;
    if (!get.audio_valid) {
        return vm;
    }
    vm.work_mode = resolveWorkMode(sub, stored_work_mode);
    if (vm.work_mode == kWorkModeEncoder) {
        vm.muted = get.audio.switch_on == 0 ? 1 : 0;
        vm.volume = get.audio.volume;
        vm.ai_type = get.audio.ai_type;
    } else if (vm.work_mode == kWorkModeDecoder) {
        // The decoder plays what it receives: only the output volume applies.
        vm.volume = get.audio.ao_volume;
    }
    return vm;
}

MediaSettingsPageVM computeMediaSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                               int stored_work_mode)
{
    MediaSettingsPageVM vm;
    vm.work_mode = resolveWorkMode(sub, stored_work_mode);
    if (get.enc_ndi_valid) {
        vm.ndi_on = get.enc_ndi_switch != 0;
        vm.ndi_mode_id = get.enc_ndi_mode_id;
        vm.ndi_machinename = QString::fromStdString(get.enc_ndi_machinename);
    }
    vm.srt_on = get.local_server_valid && get.enc_srt.switch_on != 0;
    vm.present_storage_id = presentStorageId(get);
    vm.record_status = getRecordTaskStatus(sub, vm.present_storage_id);
    return vm;
}

DecodingSettingsPageVM computeDecodingSettingsPageVm(const ZmqGetCache& get)
{
    DecodingSettingsPageVM vm;
    vm.rtmp_on = get.dec_rtmp_valid && get.dec_rtmp_switch != 0;
    if (get.dec_srt_valid) {
        vm.srt_server_on = get.dec_srt_server_switch != 0;
        vm.srt_play_on = get.dec_srt_play_switch != 0;
    }
    return vm;
}
