#pragma once

#include "link/zmq_get_worker_model.h"

#include <QObject>
#include <nlohmann/json.hpp>

#include <atomic>
#include <functional>

class ZmqSubWorker;
struct ZmqGetCache;

// Fetches, once a second on its own thread, the state that no topic publishes
// and that the page on screen needs, into the ZmqGetCache of ZmqSubWorker.
class ZmqGetWorker : public QObject {
    Q_OBJECT

public:
    using Refresh = bool (ZmqGetWorker::*)();

    static constexpr int kTickPauseSteps = 10;
    static constexpr int kTickPauseStepMs = 100;

    ZmqGetWorker(ZmqGetWorkerModel* app_mgr, ZmqSubWorker* sub_worker, QObject* parent = nullptr);

    // Ends process() at the next refresh or pause step; final.
    void stop();
    bool isRunning() const { return running.load(); }
    // Callable from any thread; takes effect at the next tick.
    void setCurrentPage(int page, int modal);
    int currentPage() const { return current_page.load(); }
    int currentModal() const { return current_modal.load(); }

    void preheatAll();
    void tickOnce();

    // Each refresh reads one group and, on success, stores it and sets its
    // valid flag; on failure the cache keeps what it had. True when stored.
    bool refreshSystemInfo();
    bool refreshDashboardInfo();
    bool refreshDcOutStatus();
    bool refreshUsbOtgId();
    bool refreshLcdInfo();
    bool refreshApInfo();
    bool refreshNasInfoList();
    bool refreshPtzctrlInfo();
    bool refreshTallyInfo();
    bool refreshVideoOutInfo();
    bool refreshEncNdiInfo();
    bool refreshVideoEncParams();
    bool refreshAiTrackingInfo();
    bool refreshGskInfo();
    bool refreshAudioAllInfo();
    bool refreshEncLocalServerList();
    bool refreshDecoderInfo();
    bool refreshDecSrtServerInfo();
    bool refreshDecRtmpServerInfo();
    bool refreshDecNdiList();
    bool refreshDecNetStreamList();
    bool refreshDecUvcList();
    bool refreshPresentStorage();
    bool refreshAppConnectionStatus();

public slots:
    void process();

private:
    using JsonRead = int (ZmqSubWorker::*)(nlohmann::json&);

    // Runs one refresh; a malformed value in a reply fails it instead of
    // ending the poll loop.
    bool run(Refresh refresh);
    // The read's value, false when it failed or came back empty.
    bool readJson(JsonRead read, nlohmann::json& value);
    void store(const std::function<void(ZmqGetCache&)>& assign);
    // Reads one group through the model's typed getter, starting from
    // `start`, and on success stores it in `field` and sets `valid`.
    template <class Record>
    bool refreshRecord(int (ZmqGetWorkerModel::*read)(Record&), Record ZmqGetCache::*field,
                       bool ZmqGetCache::*valid, Record start = Record());
    int preheatWorkMode() const;

    ZmqGetWorkerModel* app_mgr;
    ZmqSubWorker* sub_worker;
    std::atomic<bool> running{false};
    std::atomic<bool> stop_requested{false};
    std::atomic<int> current_page{0};
    std::atomic<int> current_modal{-1};
};
