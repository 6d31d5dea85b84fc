#include "model/vm_builders/shortcut_vm_builders.h"

#include "model/vm_builders/cache_reads.h"
#include "model/vm_builders/record_disk.h"

#include <algorithm>

using namespace vmcache;

namespace {

// USB OTG id in which the port is a host for another device; a USB camera
// on the decoder cannot be used then.
constexpr int kUsbOtgHostId = 1;

template <class T> QList<T> toQList(const std::vector<T>& items)
{
    return QList<T>(items.begin(), items.end());
}

// Each record disk has one task, named after the disk; the record topic
// reports it under that name.
const char* const kRecordTaskIdOfSlot[] = {"sdcard_0", "usb1_0", "nas1_0"};

void fillRecordDisk(EncoderShortcutPageVM& vm, const ZmqSubCache& sub, int id)
{
    const int slot = recordDiskSlot(id);
    vm.record_status = sub.record_status[slot];
    // Until the record topic has reported, the slot is empty; the record
    // button must still name the disk's task.
    const std::string& reported = sub.record_task_id[slot];
    vm.record_task_id =
        QString::fromStdString(reported.empty() ? kRecordTaskIdOfSlot[slot] : reported);
    vm.disk_status = getDiskStatus(sub, id);
    vm.disk_total = static_cast<int>(getRecordDiskTotalSpace(sub, id));
    vm.disk_used = static_cast<int>(getRecordDiskUsedSpace(sub, id));
    vm.disk_free = static_cast<int>(getRecordDiskFreeSpace(sub, id));
    vm.disk_type = id;
    vm.disk_icon_level = buildRecordDiskIconState(id, vm.disk_status, vm.disk_total, vm.disk_used,
                                                  vm.disk_free, isRecordDiskAvailable(sub, id));
}

DecoderShortcutItemInfo ndiRow(const DecNdiInfo& ndi)
{
    DecoderShortcutItemInfo row;
    row.id = ndi.index;
    row.name = ndi.name;
    row.status = ndi.streamplay_status;
    row.enabled = row.is_on = ndi.streamplay_status > 0;
    return row;
}

DecoderShortcutItemInfo netStreamRow(const DecNetStreamInfo& stream)
{
    DecoderShortcutItemInfo row;
    row.id = stream.index;
    row.name = stream.name;
    row.status = stream.streamplay_status;
    row.enabled = row.is_on = stream.switch_on != 0;
    return row;
}

DecoderShortcutItemInfo uvcRow(const UvcDevInfo& dev, bool otg_host)
{
    DecoderShortcutItemInfo row;
    row.id = dev.id;
    row.name = QString::fromStdString(dev.name);
    const bool usable = dev.present && !otg_host;
    row.enabled = usable;
    row.is_on = usable && dev.switch_on != 0;
    row.status = dev.play_status;
    row.aux = dev.dev_check;
    row.format_check = dev.format_check;
    row.resolution_check = dev.resolution_check;
    row.fps_check = dev.fps_check;
    return row;
}

template <class Info, class RowFn>
QList<DecoderShortcutItemInfo> rowsOf(const std::vector<Info>& infos, RowFn row_of)
{
    QList<DecoderShortcutItemInfo> rows;
    rows.reserve(static_cast<int>(infos.size()));
    for (const Info& info : infos) {
        rows.append(row_of(info));
    }
    return rows;
}

} // namespace

EncoderShortcutPageVM computeEncoderShortcutPageVm(const ZmqSubCache& sub, const ZmqGetCache& get)
{
    EncoderShortcutPageVM vm;
    const int id = presentStorageId(get);
    if (isRecordDiskId(id)) {
        fillRecordDisk(vm, sub, id);
    }
    vm.any_disk_present = sub.storage_ready
                          && std::any_of(std::begin(sub.disk_present), std::end(sub.disk_present),
                                         [](bool present) { return present; });
    if (sub.osd_ready) {
        vm.osd_items = toQList(sub.osd_items);
    }
    if (sub.net_stream_ready) {
        vm.push_streams = toQList(sub.push_streams);
    }
    return vm;
}

DecoderShortcutPageVM computeDecoderShortcutPageVm(const ZmqGetCache& get)
{
    DecoderShortcutPageVM vm;
    if (get.dec_ndi_valid) {
        vm.ndi_items = rowsOf(get.dec_ndi_list, ndiRow);
    }
    if (get.dec_net_stream_valid) {
        vm.net_items = rowsOf(get.dec_net_stream_list, netStreamRow);
    }
    if (get.dec_uvc_valid) {
        const bool otg_host = get.usb_otg_valid && get.usb_otg_id == kUsbOtgHostId;
        vm.uvc_items = rowsOf(get.dec_uvc_list,
                              [otg_host](const UvcDevInfo& dev) { return uvcRow(dev, otg_host); });
    }
    return vm;
}

ShortcutVM computeShortcutVm()
{
    ShortcutVM vm;
    vm.config = {{"list", nlohmann::json::array({{{"function", "LockLcd"}},
                                                 {{"function", "Standby"}},
                                                 {{"function", "Restart"}}})}};
    return vm;
}

ConnectAppVM computeConnectAppVm(const ZmqSubCache& sub, const ZmqGetCache& get)
{
    ConnectAppVM vm;
    if (sub.network_ready) {
        vm.ap_on = sub.ap_switch ? 1 : 0;
        vm.wifi_status = sub.wifi_status;
        vm.ip = sub.ip;
    }
    if (get.ap_valid) {
        vm.ap_ssid = get.ap_ssid;
        vm.ap_psk = get.ap_psk;
    }
    if (get.app_connection_valid) {
        vm.connect_status = get.app_connection_status;
    }
    return vm;
}
