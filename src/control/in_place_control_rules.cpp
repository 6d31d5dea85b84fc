#include "control/in_place_control_rules.h"

#include "model/app_manager.h"
#include "transport/harvelin_log.h"

#include <algorithm>

namespace {

constexpr int kShortcutPage = 34;
constexpr int kSystemSettingsPage1 = 5;
constexpr int kConfirmStandby = 3;
constexpr int kConfirmReboot = 1;
constexpr int kConfirmDcOut = 4;

int asInt(bool on)
{
    return on ? 1 : 0;
}

template <class List, class Key>
auto findItem(const List& list, Key key, int wanted) -> decltype(&*list.begin())
{
    for (const auto& item : list)
        if (item.*key == wanted)
            return &item;
    return nullptr;
}

CardText textOf(const char* key)
{
    return {QString::fromLatin1(key), QString()};
}

} // namespace

ControlAction dcOutClickedAction(bool enabled, int voltage)
{
    if (enabled)
        return ControlAction::sync([](AppManager& app) { return app.setDcOutSwitch(0); });
    return ControlAction::confirmDialog(kConfirmDcOut, kSystemSettingsPage1, 0,
                                        voltage == 2 ? 2 : 1);
}

ControlAction wlanClickedAction(bool targetEnabled)
{
    return ControlAction::async(
        REFRESH_NETWORK_SETTINGS,
        [on = asInt(targetEnabled)](AppManager& app) { return app.setWifiSwitch(on); });
}

ControlAction apClickedAction(bool targetEnabled)
{
    return ControlAction::async(
        REFRESH_NETWORK_SETTINGS,
        [on = asInt(targetEnabled)](AppManager& app) { return app.setApSwitch(on); });
}

ControlAction nasClickedAction(const NetworkSettingsPageVM& vm, int index, bool isSwitch)
{
    if (index < 0 || index >= vm.nas_list.size())
        return ControlAction::nothing();
    const bool mounting = !isSwitch;
    if (mounting) {
        for (int i = 0; i < vm.nas_list.size(); ++i)
            if (i != index && vm.nas_list[i].switch_on)
                return ControlAction::warning(textOf("point_info.nas_already_opened"));
    }
    if (vm.nas_list[index].switch_on == mounting)
        return ControlAction::nothing();
    if (isSwitch)
        return ControlAction::sync([index](AppManager& app) { return app.setNasUmount(index); });
    return ControlAction::sync([index](AppManager& app) { return app.setNasMount(index); });
}

ControlAction tallyEnableClickedAction(bool enabled)
{
    return ControlAction::sync(
        [on = asInt(!enabled)](AppManager& app) { return app.setTallySwitch(on); });
}

ControlAction muteOutClickedAction(bool enabled)
{
    return ControlAction::sync(
        [on = asInt(!enabled)](AppManager& app) { return app.setVideoOutMuteSwitch(on); });
}

ControlAction loopOutClickedAction(bool enabled)
{
    return ControlAction::sync(
        [on = asInt(!enabled)](AppManager& app) { return app.setLoopOutSwitch(on); });
}

ControlAction aiTrackingClickedAction(bool enabled)
{
    return ControlAction::async(REFRESH_VIDEO_SETTINGS, [on = asInt(!enabled)](AppManager& app) {
        return app.setAiEnable(on);
    });
}

ControlAction greenScreenClickedAction(const VideoSettingsPageVM& vm,
                                       const std::vector<VideoEncInfo>& venc, bool enabled)
{
    if (vm.gsk_bg_count < 1)
        return ControlAction::failedCard(textOf("video_settings.no_backdrop"));
    CardText warning;
    if (!enabled && !venc.empty()
        && static_cast<long long>(venc.front().width) * venc.front().height > kGreenScreenMaxPixels)
        warning = textOf("video_settings.gsk_resolution_invalid");
    return ControlAction::async(
        REFRESH_VIDEO_SETTINGS,
        [on = asInt(!enabled)](AppManager& app) { return app.setGskEnable(on); }, warning);
}

ControlAction audioSwClickedAction(bool isMuted)
{
    return ControlAction::sync(
        [value = asInt(isMuted)](AppManager& app) { return app.setAudioEncSwitch(value); });
}

ControlAction srtSwitchClickedAction(bool enabled)
{
    return ControlAction::sync(
        [on = asInt(!enabled)](AppManager& app) { return app.setEncSrtServerSwitch(on); });
}

ControlAction ndiSwitchClickedAction(const EncoderShortcutPageVM& vm, bool enabled)
{
    if (enabled)
        return ControlAction::sync([](AppManager& app) { return app.setEncNdiSwitch(0); });
    const bool streaming = std::any_of(vm.push_streams.begin(), vm.push_streams.end(),
                                       [](const PushStreamItemInfo& p) { return p.switch_on; });
    if (streaming)
        return ControlAction::warning(textOf("point_info.stream_ndi_conflict"));
    return ControlAction::sync([](AppManager& app) { return app.setEncNdiSwitch(1); });
}

ControlAction rtmpServerClickedAction(bool enabled)
{
    // The decoder has one RTMP server, index 0.
    return ControlAction::async(REFRESH_DECODING_SETTINGS, [on = asInt(!enabled)](AppManager& app) {
        return app.setDecRtmpServerSwitch(0, on);
    });
}

ControlAction srtServerClickedAction(bool enabled)
{
    return ControlAction::async(REFRESH_DECODING_SETTINGS, [on = asInt(!enabled)](AppManager& app) {
        return app.setDecSrtServerSwitch(on);
    });
}

ControlAction srtPlayClickedAction(bool enabled)
{
    return ControlAction::async(REFRESH_DECODING_SETTINGS, [on = asInt(!enabled)](AppManager& app) {
        return app.setDecSrtPlaySwitch(on);
    });
}

ControlAction pushStreamItemClickedAction(const MediaSettingsPageVM& media,
                                          const EncoderShortcutPageVM& vm, int index,
                                          bool isEnabled)
{
    const bool target = !isEnabled;
    if (target && media.ndi_on)
        return ControlAction::warning(textOf("point_info.close_ndi_before_stream"));
    if (!findItem(vm.push_streams, &PushStreamItemInfo::index, index)) {
        LOG_WAR("Push stream item with index %d not found in list\n", index);
        return ControlAction::nothing();
    }
    return ControlAction::pushStream(index, asInt(target),
                                     [index, on = asInt(target)](AppManager& app) {
                                         return app.setEncNetStreamSwitch(index, on);
                                     });
}

ControlAction osdItemClickedAction(const EncoderShortcutPageVM& vm, int id, bool isEnabled)
{
    if (!findItem(vm.osd_items, &OsdItemInfo::id, id)) {
        LOG_WAR("OSD item with id %d not found in list\n", id);
        return ControlAction::nothing();
    }
    return ControlAction::sync(
        [id, on = asInt(!isEnabled)](AppManager& app) { return app.setOsdLayoutSwitch(id, on); });
}

ControlAction pullItemClickedAction(const DecoderShortcutPageVM& vm, int id, bool isEnabled)
{
    if (!findItem(vm.net_items, &DecoderShortcutItemInfo::id, id)) {
        LOG_WAR("Pull item with id %d not found in list\n", id);
        return ControlAction::nothing();
    }
    return ControlAction::async(REFRESH_PULL_STREAM, [id, on = asInt(!isEnabled)](AppManager& app) {
        return app.setDecNetStreamSwitch(id, on);
    });
}

ControlAction uvcItemClickedAction(const DecoderShortcutPageVM& vm, int id, bool isEnabled)
{
    if (!isEnabled)
        return ControlAction::statusCard(-3);
    const DecoderShortcutItemInfo* item = findItem(vm.uvc_items, &DecoderShortcutItemInfo::id, id);
    if (!item) {
        LOG_WAR("UVC item with id %d not found in list\n", id);
        return ControlAction::nothing();
    }
    if (!item->is_on) {
        const bool usable = item->aux == 1 && item->format_check == 1 && item->resolution_check == 1
                            && item->fps_check == 1;
        if (!usable)
            return ControlAction::failedCard(textOf("point_info.invalid_param"));
        return ControlAction::async(REFRESH_UVC,
                                    [id](AppManager& app) { return app.setDecUvcOpen(id); });
    }
    return ControlAction::async(REFRESH_UVC,
                                [id](AppManager& app) { return app.setDecUvcClose(id); });
}

ControlAction ndiItemClickedAction(const DecoderShortcutPageVM& vm, int id, bool isEnabled)
{
    const DecoderShortcutItemInfo* item = findItem(vm.ndi_items, &DecoderShortcutItemInfo::id, id);
    if (!item) {
        LOG_WAR("NDI item with id %d not found in list\n", id);
        return ControlAction::nothing();
    }
    if (isEnabled)
        return ControlAction::async(REFRESH_DEC_NDI,
                                    [](AppManager& app) { return app.setDecNdiClose(); });
    return ControlAction::async(
        REFRESH_DEC_NDI,
        [name = item->name.toStdString()](AppManager& app) { return app.setDecNdiRecv(name); });
}

ControlAction pauseClickedAction(const EncoderShortcutPageVM& vm)
{
    if (vm.record_status <= 0)
        return ControlAction::nothing();
    const int enable = vm.record_status == 1 ? 2 : 3;
    return ControlAction::async(REFRESH_RECORD,
                                [task = vm.record_task_id.toStdString(), enable](AppManager& app) {
                                    return app.setRecordTaskEnable(task, enable);
                                });
}

ShortcutKey shortcutKeyFor(const QString& function)
{
    if (function == QLatin1String("LockLcd"))
        return ShortcutKey::LockLcd;
    if (function == QLatin1String("Standby"))
        return ShortcutKey::Standby;
    if (function == QLatin1String("Restart"))
        return ShortcutKey::Restart;
    return ShortcutKey::Ignored;
}

ControlAction shortcutKeyAction(ShortcutKey key)
{
    switch (key) {
    case ShortcutKey::Standby:
        return ControlAction::confirmDialog(kConfirmStandby, kShortcutPage, 0, 1);
    case ShortcutKey::Restart:
        return ControlAction::confirmDialog(kConfirmReboot, kShortcutPage, 0, 1);
    default:
        return ControlAction::nothing();
    }
}
