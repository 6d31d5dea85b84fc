// What the shortcut and connect pages show: the busy device, and each rule as
// a change of it.
#include "device_caches.h"
#include "model/vm_builders/shortcut_vm_builders.h"

namespace modeltest {
namespace {

TEST(ShortcutVm, EncoderPageNamesTheTaskOfTheChosenDisk)
{
    const Caches c = reportedCaches();
    EncoderShortcutPageVM v;
    v.record_status = c.sub.record_status[2];
    v.record_task_id = "nas1_0";
    v.any_disk_present = true;
    v.disk_total = c.sub.disk_total[2];
    v.disk_used = c.sub.disk_used[2];
    v.disk_free = c.sub.disk_free[2];
    v.disk_status = c.sub.disk_status[2];
    v.disk_type = 3;
    v.disk_icon_level = 2; // 45 percent used
    v.osd_items = QList<OsdItemInfo>(c.sub.osd_items.begin(), c.sub.osd_items.end());
    v.push_streams =
        QList<PushStreamItemInfo>(c.sub.push_streams.begin(), c.sub.push_streams.end());

    // Without a valid disk the record button still has the TF card's task.
    auto noDisk = [](EncoderShortcutPageVM& v) {
        const EncoderShortcutPageVM empty;
        std::tie(v.record_status, v.record_task_id, v.disk_total, v.disk_used, v.disk_free,
                 v.disk_status, v.disk_type, v.disk_icon_level) =
            std::tie(empty.record_status, empty.record_task_id, empty.disk_total, empty.disk_used,
                     empty.disk_free, empty.disk_status, empty.disk_type, empty.disk_icon_level);
    };
    expectRules<EncoderShortcutPageVM>(
        [](const Caches& c) { return computeEncoderShortcutPageVm(c.sub, c.get); }, v,
        {{"no disk chosen yet", [](Caches& c) { c.get.present_storage_valid = false; }, noDisk},
         {"the record topic has not named the task",
          [](Caches& c) { c.sub.record_task_id[2] = ""; }, [](EncoderShortcutPageVM&) {}},
         {"the disk reported absent", [](Caches& c) { c.sub.disk_present[2] = false; },
          [](EncoderShortcutPageVM& v) { v.disk_icon_level = 0; }},
         {"no disk at all",
          [](Caches& c) { c.sub.disk_present[0] = c.sub.disk_present[2] = false; },
          [](EncoderShortcutPageVM& v) {
              v.any_disk_present = false;
              v.disk_icon_level = 0;
          }}});
}

DecoderShortcutItemInfo row(int id, const QString& name, bool on, int status)
{
    DecoderShortcutItemInfo r;
    std::tie(r.id, r.name, r.enabled, r.is_on, r.status) = std::tie(id, name, on, on, status);
    return r;
}

TEST(ShortcutVm, DecoderRowsAreOnWhilePlayingAndUsbNeedsAFreePort)
{
    const Caches c = reportedCaches();
    DecoderShortcutPageVM v;
    for (const DecNdiInfo& ndi : c.get.dec_ndi_list)
        v.ndi_items << row(ndi.index, ndi.name, ndi.streamplay_status > 0, ndi.streamplay_status);
    for (const DecNetStreamInfo& pull : c.get.dec_net_stream_list)
        v.net_items << row(pull.index, pull.name, pull.switch_on, pull.streamplay_status);
    const UvcDevInfo& camera = c.get.dec_uvc_list[0];
    DecoderShortcutItemInfo usb = row(camera.id, "USB", true, camera.play_status);
    std::tie(usb.aux, usb.format_check, usb.resolution_check, usb.fps_check) =
        std::tie(camera.dev_check, camera.format_check, camera.resolution_check, camera.fps_check);
    v.uvc_items << usb;

    // A USB camera is usable when present and the port is no host (OTG id 1).
    auto usbRow = [](bool enabled, bool on) {
        return [=](DecoderShortcutPageVM& v) {
            v.uvc_items[0].enabled = enabled;
            v.uvc_items[0].is_on = on;
        };
    };
    expectRules<DecoderShortcutPageVM>(
        [](const Caches& c) { return computeDecoderShortcutPageVm(c.get); }, v,
        {{"the port is a host", [](Caches& c) { c.get.usb_otg_id = 1; }, usbRow(false, false)},
         {"the port mode not read yet",
          [](Caches& c) {
              c.get.usb_otg_id = 1;
              c.get.usb_otg_valid = false;
          },
          usbRow(true, true)},
         {"the camera unplugged", [](Caches& c) { c.get.dec_uvc_list[0].present = false; },
          usbRow(false, false)},
         {"the camera off", [](Caches& c) { c.get.dec_uvc_list[0].switch_on = 0; },
          usbRow(true, false)}});
}

TEST(ShortcutVm, ConnectPageShowsTheLinkAndTheAccessPoint)
{
    const Caches c = reportedCaches();
    const ConnectAppVM connect{
        1, c.sub.wifi_status, c.sub.ip, c.get.ap_ssid, c.get.ap_psk, c.get.app_connection_status};
    EXPECT_EQ(computeConnectAppVm(c.sub, c.get), connect);
}

} // namespace
} // namespace modeltest
