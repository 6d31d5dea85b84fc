#pragma once

#include "link/zmq_get_worker_model.h"
#include "link/zmq_sub_worker.h"
#include "model/view_models/view_models.h"
#include "model/view_models/vm_store.h"
#include "model/vm_builders/access_url.h"
#include "model/vm_builders/backend_time_text.h"
#include "transport/zmq_endpoints.h"
#include "zmqapi/api_records.h"

#include <QMutex>
#include <QObject>
#include <QThread>
#include <QtGlobal>
#include <nlohmann/json.hpp>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

using json = nlohmann::json;

class ZmqGetWorker;
struct ZmqGetCache;
struct ZmqSubCache;

// The facade between the interface and the backend link. It owns the topic
// worker and the poller with their threads, passes the backend's state
// signals on to the interface, and builds the view models of the pages from
// copies of the two caches. Its typed operations guard against a missing
// worker (-3) and turn replies into plain records.
class AppManager : public QObject, public ZmqGetWorkerModel {
    Q_OBJECT

public:
    // The full panel link on the endpoints the environment configures (the
    // box's own by default).
    explicit AppManager(QObject* parent = nullptr);
    // The full panel link: the topic worker on its thread, the poller on
    // its thread, and the configured HTTP port.
    explicit AppManager(const BackendEndpoints& endpoints, QObject* parent = nullptr);
    // Takes over an existing worker and starts no thread: the typed
    // operations and the view-model builds work on whatever its caches hold,
    // and nothing polls. A null worker leaves the manager without a backend.
    explicit AppManager(std::unique_ptr<ZmqSubWorker> worker, QObject* parent = nullptr);
    // Stops the poller first (it reads through the topic worker), then the
    // topic worker, each within a bounded wait.
    ~AppManager() override;

    AppManager(const AppManager&) = delete;
    AppManager& operator=(const AppManager&) = delete;

    ZmqSubWorker* subWorker() const { return zmq_sub_worker.get(); }
    // Null unless the full link was started.
    ZmqGetWorker* getWorker() const { return zmq_get_worker.get(); }

    // Tells the poller which page (and modal page, -1 for none) is on screen;
    // it fetches that page's data from its next tick on.
    void setCurrentPageContext(int page, int modal);

    // The last values the backend signalled (0 until then).
    int getWorkMode() const override;
    int getLanguageID() const;
    int getRunStatus() const;

    // True once the system state, network, video input, CPU/memory and
    // storage topics have all reported.
    bool isDataReady() const;

    // The web server's configured HTTP port, read once at start (-1 unknown).
    int getHttpPort() const { return http_port; }
    int resolveConfiguredHttpPort();

    // Small questions answered from a copy of the poller's cache.
    int getPresentStorageIdCached() const;
    std::vector<VideoEncInfo> getVencDataCached() const;
    bool get_lcd_lock_stat();

    // Record disks, by storage id (0 TF card, 1 USB, 3 NAS); any other id
    // reads as 0 or false. getDiskStatus(int) is with the storage operations.
    static qint64 getRecordDiskFreeSpace(const ZmqSubCache& sub, int id);
    static qint64 getRecordDiskTotalSpace(const ZmqSubCache& sub, int id);
    static qint64 getRecordDiskUsedSpace(const ZmqSubCache& sub, int id);
    static int getRecordTaskStatus(const ZmqSubCache& sub, int id);
    static bool isRecordDiskAvailable(const ZmqSubCache& sub, int id);
    // Level of the record disk icon: 0 not usable, 1 to 3 filling up, 4 full.
    static int buildRecordDiskIconState(int id, int status, qint64 total, qint64 used, qint64 free,
                                        bool available);

    // View models. build* computes from fresh cache copies, stores the result
    // and reports in `changed` (may be null) whether it differs from the one
    // stored before; get* returns the stored one without recomputing.
    StatusBarVM buildStatusBarVm(bool* changed);
    StatusBarVM getStatusBarVm() const;
    StatusPage1VM buildStatusPage1Vm(bool* changed);
    StatusPage1VM getStatusPage1Vm() const;
    StatusPage2VM buildStatusPage2Vm(bool* changed);
    StatusPage2VM getStatusPage2Vm() const;
    StatusPage3VM buildStatusPage3Vm(bool* changed);
    StatusPage3VM getStatusPage3Vm() const;
    SystemSettingsPageVM buildSystemSettingsPageVm(bool* changed);
    SystemSettingsPageVM getSystemSettingsPageVm() const;
    NetworkSettingsPageVM buildNetworkSettingsPageVm(bool* changed);
    NetworkSettingsPageVM getNetworkSettingsPageVm() const;
    CameraSettingsPageVM buildCameraSettingsPageVm(bool* changed);
    CameraSettingsPageVM getCameraSettingsPageVm() const;
    VideoSettingsPageVM buildVideoSettingsPageVm(bool* changed);
    VideoSettingsPageVM getVideoSettingsPageVm() const;
    AudioSettingsPageVM buildAudioSettingsPageVm(bool* changed);
    AudioSettingsPageVM getAudioSettingsPageVm() const;
    MediaSettingsPageVM buildMediaSettingsPageVm(bool* changed);
    MediaSettingsPageVM getMediaSettingsPageVm() const;
    DecodingSettingsPageVM buildDecodingSettingsPageVm(bool* changed);
    DecodingSettingsPageVM getDecodingSettingsPageVm() const;
    EncoderShortcutPageVM buildEncoderShortcutPageVm(bool* changed);
    EncoderShortcutPageVM getEncoderShortcutPageVm() const;
    DecoderShortcutPageVM buildDecoderShortcutPageVm(bool* changed);
    DecoderShortcutPageVM getDecoderShortcutPageVm() const;
    ConnectAppVM buildConnectAppVm(bool* changed);
    ConnectAppVM getConnectAppVm() const;
    ShortcutVM buildShortcutVM(bool* changed);
    ShortcutVM getShortcutVm() const;
    // Clears the pairing record; `changed` when it held anything. Returns 0.
    int buildConnectBtVm(bool* changed);
    ConnectBTVM getConnectBtVm() const;

    // These two read the backend clock live, on the calling thread, and
    // keep nothing. The standby page also rebuilds the status page 1 record.
    StandbyPageVM buildStandbyPageVm();
    DynamicScreensaverVM buildDynamicScreensaverVm(bool standby);

#include "appmgrapi/app_api_members.inc"

signals:
    void systemLanguageChanged(int language_id);
    void runStatusChanged(int run_status);
    void workModeChanged(int work_mode);
    void upgradeProgressChanged(int progress);

public slots:
    void systemLanguageProcess(int language_id);
    void runStatusProcess(int run_status);
    void workModeProcess(int workmode_id);
    void upgradeProgressProcess(int progress);

private:
    // Moves the topic worker and the poller onto their threads and starts them.
    void startLinkThreads();
    void connectZmqworkerSignals();
    void stopLinkThreads();

    // The one way every stored view model is refreshed: copies of both
    // caches, `compute(sub, get)`, then compare-and-store under vm_mutex.
    template <class VM, class Compute>
    VM buildFromCaches(StoredViewModel<VM>& store, Compute&& compute, bool* changed);
    // The backend clock reply, or false when it could not be read.
    bool readBackendTime(json& time_info);

    std::unique_ptr<QThread> zmq_sub_thread;
    std::unique_ptr<QThread> zmq_get_thread;
    std::unique_ptr<ZmqSubWorker> zmq_sub_worker;
    std::unique_ptr<ZmqGetWorker> zmq_get_worker;

    // Written by the slots on this object's thread, read by the poller too.
    std::atomic<int> work_mode{0};
    std::atomic<int> language_id{0};
    std::atomic<int> run_status{0};
    int http_port = -1;

    mutable QMutex vm_mutex;
    StoredViewModel<StatusBarVM> status_bar_vm{vm_mutex};
    StoredViewModel<StatusPage1VM> status_page1_vm{vm_mutex};
    StoredViewModel<StatusPage2VM> status_page2_vm{vm_mutex};
    StoredViewModel<StatusPage3VM> status_page3_vm{vm_mutex};
    StoredViewModel<SystemSettingsPageVM> system_settings_vm{vm_mutex};
    StoredViewModel<NetworkSettingsPageVM> network_settings_vm{vm_mutex};
    StoredViewModel<CameraSettingsPageVM> camera_settings_vm{vm_mutex};
    StoredViewModel<VideoSettingsPageVM> video_settings_vm{vm_mutex};
    StoredViewModel<AudioSettingsPageVM> audio_settings_vm{vm_mutex};
    StoredViewModel<MediaSettingsPageVM> media_settings_vm{vm_mutex};
    StoredViewModel<DecodingSettingsPageVM> decoding_settings_vm{vm_mutex};
    StoredViewModel<EncoderShortcutPageVM> encoder_shortcut_vm{vm_mutex};
    StoredViewModel<DecoderShortcutPageVM> decoder_shortcut_vm{vm_mutex};
    StoredViewModel<ConnectAppVM> connect_app_vm{vm_mutex};
    StoredViewModel<ShortcutVM> shortcut_vm{vm_mutex};
    StoredViewModel<ConnectBTVM> connect_bt_vm{vm_mutex};
};
