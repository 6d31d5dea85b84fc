#pragma once

#include "link/zmq_sub_cache.h"
#include "transport/zmq_endpoints.h"
#include "zmqapi/api_records.h"

#include <QMutex>
#include <QObject>
#include <nlohmann/json.hpp>

#include <atomic>
#include <functional>
#include <memory>
#include <string>

using json = nlohmann::json;

class ZMQManager;
struct ZmqGetCache;

// The twelve backend domains; each has a module name, a status map and an
// info/control function pair on ZmqSubWorker.
enum class ApiDomain {
    System,
    Network,
    Video,
    Audio,
    Stream,
    Osd,
    Ai,
    Record,
    Storage,
    StreamPlay,
    Mediaplayer,
    Ptzctrl,
};

// The panel's link to the backend daemons: the request clients and the whole
// backend API, the topic subscriber with its receive loop and ZmqSubCache, and
// the ZmqGetCache that ZmqGetWorker fills.
class ZmqSubWorker : public QObject {
    Q_OBJECT

public:
    using StatusMapper = int (ZmqSubWorker::*)(const std::string&);
    // What a status mapper returns for a code its domain doesn't know.
    static constexpr int kUnknownCode = -9999;

    static constexpr int kDefaultRequestTimeoutMs = 1000;

    explicit ZmqSubWorker(QObject* parent = nullptr);
    explicit ZmqSubWorker(const BackendEndpoints& endpoints, QObject* parent = nullptr);
    ~ZmqSubWorker() override;

    bool initializeZmqClients();
    void stop();
    bool isRunning() const { return running.load(); }
    const BackendEndpoints& backendEndpoints() const { return endpoints; }

    // Topic receive loop and parsers; each parser takes the payload text.
    void v2_topic_data();
    void v2_data_process();
    void v2_parseNetworkInfo(const std::string& content);
    void v2_parseCpuMemInfo(const std::string& content);
    void v2_parseStorageInfo(const std::string& content);
    void v2_parseVideoInInfo(const std::string& content);
    void v2_parseRecordStateInfo(const std::string& content);
    void v2_parseSystemStateInfo(const std::string& content);
    void v2_parseUpgradeProgressInfo(const std::string& content);
    void v2_parseNetStreamInfo(const std::string& content);
    void v2_parseOsdStateInfo(const std::string& content);

    // Deep copies, safe to read without a lock.
    ZmqSubCache getSubCache() const;
    ZmqGetCache getGetCache() const;
    // Changes a cache in place under its mutex; `change` must not block.
    void updateSubCache(const std::function<void(ZmqSubCache&)>& change);
    void updateGetCache(const std::function<void(ZmqGetCache&)>& change);

signals:
    void systemLanguageUpdate(int language_id);
    void runStatusUpdate(int run_status);
    void workModeUpdate(int workmode_id);
    void upgradeProgressUpdate(int progress);

public slots:
    void process();

public:
    // Requests and replies.
    std::string sendZmqRequest(const json& request);
    std::string sendZmqRequest(const json& request, int timeout_ms);
    int processApiResponse(const std::string& response, StatusMapper mapper);
    int mapGeneralStatusCodeToValue(const std::string& code);
    void GetJsonCfg(std::string opt, json& out);
    void initSubCacheFromApi();

    std::string getSystemApiInfo(const json& request);
    int sendSystemApiControl(const json& request);
    std::string getNetworkApiInfo(const json& request);
    int sendNetworkApiControl(const json& request);
    std::string getVideoApiInfo(const json& request);
    int sendVideoApiControl(const json& request);
    std::string getAudioApiInfo(const json& request);
    int sendAudioApiControl(const json& request);
    std::string getStreamApiInfo(const json& request);
    int sendStreamApiControl(const json& request);
    std::string getOsdApiInfo(const json& request);
    int sendOsdApiControl(const json& request);
    std::string getAiApiInfo(const json& request);
    int sendAiApiControl(const json& request);
    std::string getRecordApiInfo(const json& request);
    int sendRecordApiControl(const json& request);
    std::string getStorageApiInfo(const json& request);
    int sendStorageApiControl(const json& request);
    std::string getStreamPlayApiInfo(const json& request);
    int sendStreamPlayApiControl(const json& request);
    std::string getMediaplayerApiInfo(const json& request);
    int sendMediaplayerApiControl(const json& request);
    std::string getPtzctrlApiInfo(const json& request);
    int sendPtzctrlApiControl(const json& request);

    // Domain status maps: backend code text to status value, -9999 unknown.
    int mapSystemStatusCodeToValue(const std::string& code);
    int mapNetworkStatusCodeToValue(const std::string& code);
    int mapVideoStatusCodeToValue(const std::string& code);
    int mapAudioStatusCodeToValue(const std::string& code);
    int mapStreamStatusCodeToValue(const std::string& code);
    int mapOsdStatusCodeToValue(const std::string& code);
    int mapAiStatusCodeToValue(const std::string& code);
    int mapRecordStatusCodeToValue(const std::string& code);
    int mapStorageStatusCodeToValue(const std::string& code);
    int mapStreamPlayStatusCodeToValue(const std::string& code);
    int mapMediaplayerStatusCodeToValue(const std::string& code);
    int mapPtzctrlStatusCodeToValue(const std::string& code);

    // The typed domain operations.
#include "zmqapi/zmq_api_members.inc"

private:
    std::string getDomainApiInfo(ApiDomain domain, const json& request);
    int sendDomainApiControl(ApiDomain domain, const json& request);

    BackendEndpoints endpoints;

    std::unique_ptr<ZMQManager> zmq_sub_client;
    std::unique_ptr<ZMQManager> zmq_web_client;
    std::unique_ptr<ZMQManager> zmq_appmgr_web_client;
    std::unique_ptr<ZMQManager> zmq_mediaserver_client;

    std::atomic<bool> running{false};

    // Last values signalled; the first report of each value is always emitted.
    int last_run_status = -1;
    int last_workmode_id = -1;
    int last_language_id = -1;
    int last_upgrade_progress = -1;

    std::string last_osd_layout;

    ZmqSubCache cache;
    mutable QMutex sub_cache_mutex;

    std::unique_ptr<ZmqGetCache> get_cache;
    mutable QMutex get_cache_mutex;

    QMutex zmq_request_mutex;
};
