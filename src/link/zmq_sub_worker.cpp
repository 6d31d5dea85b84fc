// ZmqSubWorker's life: clients, subscriptions, the receive loop and the caches.
#include "link/zmq_sub_worker.h"

#include "link/zmq_get_cache.h"
#include "transport/harvelin_log.h"
#include "transport/systime.h"
#include "transport/zmq_manager.h"

#include <QMutexLocker>

#include <exception>
#include <utility>

namespace {

// A parser that meets a wrong value type leaves its partial changes and the
// loop backs off for this long before reading on.
constexpr int kParserFailurePauseMs = 1000;
// Caps the handled topic rate at about a hundred messages a second.
constexpr int kPerMessagePauseMs = 10;

const std::string* const kSubscribedTopics[] = {
    &ZMQ_Topic::TOPIC_NETWORK_INFO,          &ZMQ_Topic::TOPIC_MISC_CPU_MEMORY_INFO,
    &ZMQ_Topic::TOPIC_STORAGE_INFO,          &ZMQ_Topic::TOPIC_SYSTEM_STATE_INFO,
    &ZMQ_Topic::TOPIC_UPGRADE_PROGRESS_INFO, &ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO,
    &ZMQ_Topic::TOPIC_RECORD_STATE_INFO,     &ZMQ_Topic::TOPIC_NET_STREAM_INFO,
    &ZMQ_Topic::TOPIC_OSD_STATE_INFO,
};

using TopicParser = void (ZmqSubWorker::*)(const std::string&);

struct TopicRoute {
    const std::string* topic;
    TopicParser parser;
};

const TopicRoute kTopicRoutes[] = {
    {&ZMQ_Topic::TOPIC_NETWORK_INFO, &ZmqSubWorker::v2_parseNetworkInfo},
    {&ZMQ_Topic::TOPIC_MISC_CPU_MEMORY_INFO, &ZmqSubWorker::v2_parseCpuMemInfo},
    {&ZMQ_Topic::TOPIC_STORAGE_INFO, &ZmqSubWorker::v2_parseStorageInfo},
    {&ZMQ_Topic::TOPIC_SYSTEM_STATE_INFO, &ZmqSubWorker::v2_parseSystemStateInfo},
    {&ZMQ_Topic::TOPIC_UPGRADE_PROGRESS_INFO, &ZmqSubWorker::v2_parseUpgradeProgressInfo},
    {&ZMQ_Topic::TOPIC_VIDEO_INPUT_INFO, &ZmqSubWorker::v2_parseVideoInInfo},
    {&ZMQ_Topic::TOPIC_RECORD_STATE_INFO, &ZmqSubWorker::v2_parseRecordStateInfo},
    {&ZMQ_Topic::TOPIC_OSD_STATE_INFO, &ZmqSubWorker::v2_parseOsdStateInfo},
    {&ZMQ_Topic::TOPIC_NET_STREAM_INFO, &ZmqSubWorker::v2_parseNetStreamInfo},
};

TopicParser parserFor(const std::string& topic)
{
    for (const TopicRoute& route : kTopicRoutes) {
        if (topic == *route.topic)
            return route.parser;
    }
    return nullptr;
}

} // namespace

ZmqSubWorker::ZmqSubWorker(QObject* parent)
    : ZmqSubWorker(BackendEndpoints::fromEnvironment(), parent)
{
}

ZmqSubWorker::ZmqSubWorker(const BackendEndpoints& endpoints, QObject* parent)
    : QObject(parent), endpoints(endpoints), get_cache(std::make_unique<ZmqGetCache>())
{
    if (!initializeZmqClients()) {
        LOG_ERR("Failed to initialize ZMQ clients!\n");
        return;
    }
    for (const std::string* topic : kSubscribedTopics) {
        zmq_sub_client->set_subscribe_topic(*topic);
    }
    initSubCacheFromApi();
    running.store(true);
}

ZmqSubWorker::~ZmqSubWorker()
{
    stop();
}

bool ZmqSubWorker::initializeZmqClients()
{
    try {
        zmq_sub_client = std::make_unique<ZMQManager>();
        zmq_sub_client->init_zmq_socket(zmq::socket_type::sub, endpoints.topics_sub, 1);
        zmq_web_client = std::make_unique<ZMQManager>();
        zmq_web_client->init_zmq_router_dealer_client(endpoints.webserver, 1);
        zmq_appmgr_web_client = std::make_unique<ZMQManager>();
        zmq_appmgr_web_client->init_zmq_router_dealer_client(endpoints.webserver, 1);
        zmq_mediaserver_client = std::make_unique<ZMQManager>();
        zmq_mediaserver_client->init_zmq_router_dealer_client(endpoints.mediaserver, 1);
        return true;
    } catch (const std::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
        return false;
    }
}

void ZmqSubWorker::stop()
{
    running.store(false);
}

void ZmqSubWorker::process()
{
    if (!zmq_sub_client) {
        LOG_DB("ZMQ client is null in process!\n");
        return;
    }
    while (running.load()) {
        v2_topic_data();
    }
    LOG_DB("ZmqSubWorker stopped\n");
}

void ZmqSubWorker::v2_topic_data()
{
    std::string topic;
    std::string content;
    // Stays while messages keep coming; an idle receive (100 ms) hands
    // control back so that the caller sees a stop.
    while (running.load()) {
        try {
            if (zmq_sub_client->recv_sub_msg(topic, content) != 0)
                return;
            if (TopicParser parser = parserFor(topic))
                (this->*parser)(content);
            delayMS(kPerMessagePauseMs);
        } catch (const json::exception& e) {
            LOG_ERR("Exception: %s\n", e.what());
            delayMS(kParserFailurePauseMs);
        } catch (...) {
            LOG_ERR("Unknown exception in ZMQ worker\n");
            delayMS(kParserFailurePauseMs);
        }
    }
}

void ZmqSubWorker::v2_data_process()
{
    bool emit_workmode = false;
    bool emit_language = false;
    bool emit_run_status = false;
    int workmode_id = 0;
    int language_id = 0;
    int run_status = 0;
    {
        QMutexLocker lock(&sub_cache_mutex);
        if (!cache.system_state_ready)
            return;
        workmode_id = cache.workmode_id;
        language_id = cache.language_id;
        run_status = cache.run_status;
        emit_workmode = workmode_id != last_workmode_id;
        emit_language = language_id != last_language_id;
        emit_run_status = run_status != last_run_status;
        last_workmode_id = workmode_id;
        last_language_id = language_id;
        last_run_status = run_status;
    }
    if (emit_workmode)
        emit workModeUpdate(workmode_id);
    if (emit_language) {
        LOG_DB("language_id changed to %d\n", language_id);
        emit systemLanguageUpdate(language_id);
    }
    if (emit_run_status)
        emit runStatusUpdate(run_status);
}

ZmqSubCache ZmqSubWorker::getSubCache() const
{
    QMutexLocker lock(&sub_cache_mutex);
    return cache;
}

ZmqGetCache ZmqSubWorker::getGetCache() const
{
    QMutexLocker lock(&get_cache_mutex);
    return *get_cache;
}

void ZmqSubWorker::updateSubCache(const std::function<void(ZmqSubCache&)>& change)
{
    QMutexLocker lock(&sub_cache_mutex);
    change(cache);
}

void ZmqSubWorker::updateGetCache(const std::function<void(ZmqGetCache&)>& change)
{
    QMutexLocker lock(&get_cache_mutex);
    change(*get_cache);
}
