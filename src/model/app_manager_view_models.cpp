// AppManager's view models: each build takes one copy of each cache,
// computes the record, and compares and stores it under vm_mutex.
#include "model/app_manager.h"

#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"
#include "model/vm_builders/cache_reads.h"
#include "model/vm_builders/record_disk.h"
#include "model/vm_builders/settings_vm_builders.h"
#include "model/vm_builders/shortcut_vm_builders.h"
#include "model/vm_builders/status_vm_builders.h"

template <class VM, class Compute>
VM AppManager::buildFromCaches(StoredViewModel<VM>& store, Compute&& compute, bool* changed)
{
    return store.rebuild(
        zmq_sub_worker != nullptr,
        [&] {
            const ZmqSubCache sub = zmq_sub_worker->getSubCache();
            const ZmqGetCache get = zmq_sub_worker->getGetCache();
            return compute(sub, get);
        },
        changed);
}

StatusBarVM AppManager::buildStatusBarVm(bool* changed)
{
    return buildFromCaches(
        status_bar_vm,
        [this](const ZmqSubCache& sub, const ZmqGetCache& get) {
            return computeStatusBarVm(sub, get, getWorkMode());
        },
        changed);
}

StatusPage1VM AppManager::buildStatusPage1Vm(bool* changed)
{
    return buildFromCaches(status_page1_vm, computeStatusPage1Vm, changed);
}

StatusPage2VM AppManager::buildStatusPage2Vm(bool* changed)
{
    return buildFromCaches(
        status_page2_vm,
        [this](const ZmqSubCache& sub, const ZmqGetCache& get) {
            return computeStatusPage2Vm(sub, get, getWorkMode());
        },
        changed);
}

StatusPage3VM AppManager::buildStatusPage3Vm(bool* changed)
{
    return buildFromCaches(status_page3_vm, computeStatusPage3Vm, changed);
}

SystemSettingsPageVM AppManager::buildSystemSettingsPageVm(bool* changed)
{
    return buildFromCaches(
        system_settings_vm,
        [](const ZmqSubCache&, const ZmqGetCache& get) { return computeSystemSettingsPageVm(get); },
        changed);
}

NetworkSettingsPageVM AppManager::buildNetworkSettingsPageVm(bool* changed)
{
    return buildFromCaches(
        network_settings_vm,
        [this](const ZmqSubCache& sub, const ZmqGetCache& get) {
            return computeNetworkSettingsPageVm(sub, get, http_port);
        },
        changed);
}

CameraSettingsPageVM AppManager::buildCameraSettingsPageVm(bool* changed)
{
    return buildFromCaches(
        camera_settings_vm,
        [](const ZmqSubCache&, const ZmqGetCache& get) { return computeCameraSettingsPageVm(get); },
        changed);
}

VideoSettingsPageVM AppManager::buildVideoSettingsPageVm(bool* changed)
{
    return buildFromCaches(
        video_settings_vm,
        [this](const ZmqSubCache& sub, const ZmqGetCache& get) {
            return computeVideoSettingsPageVm(sub, get, getWorkMode());
        },
        changed);
}

AudioSettingsPageVM AppManager::buildAudioSettingsPageVm(bool* changed)
{
    return buildFromCaches(
        audio_settings_vm,
        [this](const ZmqSubCache& sub, const ZmqGetCache& get) {
            return computeAudioSettingsPageVm(sub, get, getWorkMode());
        },
        changed);
}

MediaSettingsPageVM AppManager::buildMediaSettingsPageVm(bool* changed)
{
    return buildFromCaches(
        media_settings_vm,
        [this](const ZmqSubCache& sub, const ZmqGetCache& get) {
            return computeMediaSettingsPageVm(sub, get, getWorkMode());
        },
        changed);
}

DecodingSettingsPageVM AppManager::buildDecodingSettingsPageVm(bool* changed)
{
    return buildFromCaches(
        decoding_settings_vm,
        [](const ZmqSubCache&, const ZmqGetCache& get) {
            return computeDecodingSettingsPageVm(get);
        },
        changed);
}

EncoderShortcutPageVM AppManager::buildEncoderShortcutPageVm(bool* changed)
{
    return buildFromCaches(encoder_shortcut_vm, computeEncoderShortcutPageVm, changed);
}

DecoderShortcutPageVM AppManager::buildDecoderShortcutPageVm(bool* changed)
{
    return buildFromCaches(
        decoder_shortcut_vm,
        [](const ZmqSubCache&, const ZmqGetCache& get) {
            return computeDecoderShortcutPageVm(get);
        },
        changed);
}

ConnectAppVM AppManager::buildConnectAppVm(bool* changed)
{
    return buildFromCaches(connect_app_vm, computeConnectAppVm, changed);
}

ShortcutVM AppManager::buildShortcutVM(bool* changed)
{
    return buildFromCaches(
        shortcut_vm, [](const ZmqSubCache&, const ZmqGetCache&) { return computeShortcutVm(); },
        changed);
}

// Nothing fills the pairing record, so a build only ever clears it.
int AppManager::buildConnectBtVm(bool* changed)
{
    connect_bt_vm.update(ConnectBTVM{}, changed);
    return 0;
}

StatusBarVM AppManager::getStatusBarVm() const
{
    return status_bar_vm.get();
}
StatusPage1VM AppManager::getStatusPage1Vm() const
{
    return status_page1_vm.get();
}
StatusPage2VM AppManager::getStatusPage2Vm() const
{
    return status_page2_vm.get();
}
StatusPage3VM AppManager::getStatusPage3Vm() const
{
    return status_page3_vm.get();
}
SystemSettingsPageVM AppManager::getSystemSettingsPageVm() const
{
    return system_settings_vm.get();
}
NetworkSettingsPageVM AppManager::getNetworkSettingsPageVm() const
{
    return network_settings_vm.get();
}
CameraSettingsPageVM AppManager::getCameraSettingsPageVm() const
{
    return camera_settings_vm.get();
}
VideoSettingsPageVM AppManager::getVideoSettingsPageVm() const
{
    return video_settings_vm.get();
}
AudioSettingsPageVM AppManager::getAudioSettingsPageVm() const
{
    return audio_settings_vm.get();
}
MediaSettingsPageVM AppManager::getMediaSettingsPageVm() const
{
    return media_settings_vm.get();
}
DecodingSettingsPageVM AppManager::getDecodingSettingsPageVm() const
{
    return decoding_settings_vm.get();
}
EncoderShortcutPageVM AppManager::getEncoderShortcutPageVm() const
{
    return encoder_shortcut_vm.get();
}
DecoderShortcutPageVM AppManager::getDecoderShortcutPageVm() const
{
    return decoder_shortcut_vm.get();
}
ConnectAppVM AppManager::getConnectAppVm() const
{
    return connect_app_vm.get();
}
ShortcutVM AppManager::getShortcutVm() const
{
    return shortcut_vm.get();
}
ConnectBTVM AppManager::getConnectBtVm() const
{
    return connect_bt_vm.get();
}

bool AppManager::readBackendTime(json& time_info)
{
    return zmq_sub_worker && zmq_sub_worker->getSystemTimeInfo(time_info) >= 0;
}

StandbyPageVM AppManager::buildStandbyPageVm()
{
    const QString ip_text = buildStatusPage1Vm(nullptr).ip_text;
    json time_info;
    const bool have_time = readBackendTime(time_info);
    return computeStandbyPageVm(ip_text, have_time ? &time_info : nullptr);
}

DynamicScreensaverVM AppManager::buildDynamicScreensaverVm(bool standby)
{
    if (!zmq_sub_worker)
        return computeDynamicScreensaverVm(standby, getWorkMode(), nullptr);
    const int mode = vmcache::resolveWorkMode(zmq_sub_worker->getSubCache(), getWorkMode());
    json time_info;
    const bool have_time = readBackendTime(time_info);
    return computeDynamicScreensaverVm(standby, mode, have_time ? &time_info : nullptr);
}

qint64 AppManager::getRecordDiskFreeSpace(const ZmqSubCache& sub, int id)
{
    return ::getRecordDiskFreeSpace(sub, id);
}

qint64 AppManager::getRecordDiskTotalSpace(const ZmqSubCache& sub, int id)
{
    return ::getRecordDiskTotalSpace(sub, id);
}

qint64 AppManager::getRecordDiskUsedSpace(const ZmqSubCache& sub, int id)
{
    return ::getRecordDiskUsedSpace(sub, id);
}

int AppManager::getRecordTaskStatus(const ZmqSubCache& sub, int id)
{
    return ::getRecordTaskStatus(sub, id);
}

bool AppManager::isRecordDiskAvailable(const ZmqSubCache& sub, int id)
{
    return ::isRecordDiskAvailable(sub, id);
}

int AppManager::buildRecordDiskIconState(int id, int status, qint64 total, qint64 used, qint64 free,
                                         bool available)
{
    return ::buildRecordDiskIconState(id, status, total, used, free, available);
}
