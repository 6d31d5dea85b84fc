// AppManager's life: the two workers and their threads, the backend's state
// signals, and the small questions answered from the caches.
#include "model/app_manager.h"

#include "link/zmq_get_cache.h"
#include "link/zmq_get_worker.h"
#include "model/view_models/view_model_metatypes.h"
#include "model/vm_builders/access_url.h"
#include "model/vm_builders/cache_reads.h"
#include "transport/harvelin_log.h"

#include <exception>
#include <utility>

namespace {

constexpr unsigned long kThreadQuitWaitMs = 3000;
constexpr unsigned long kThreadTerminateWaitMs = 1000;

// A worker's loop ends on its stop flag; the event loop's quit covers a
// thread that is idle. Only a loop stuck in a request past the wait is cut.
void stopThread(QThread* thread)
{
    if (!thread || !thread->isRunning())
        return;
    thread->quit();
    if (thread->wait(kThreadQuitWaitMs))
        return;
    LOG_WAR("worker thread did not stop in %lu ms, terminating\n", kThreadQuitWaitMs);
    thread->terminate();
    thread->wait(kThreadTerminateWaitMs);
}

} // namespace

AppManager::AppManager(QObject* parent) : AppManager(BackendEndpoints::fromEnvironment(), parent)
{
}

AppManager::AppManager(const BackendEndpoints& endpoints, QObject* parent) : QObject(parent)
{
    registerViewModelMetaTypes();
    try {
        // Blocks for the worker's one start-up request.
        zmq_sub_worker = std::make_unique<ZmqSubWorker>(endpoints);
    } catch (const std::exception& e) {
        LOG_ERR("Exception: %s\n", e.what());
    }
    if (!zmq_sub_worker) {
        LOG_ERR("zmq_sub_worker init error \n");
        return;
    }
    startLinkThreads();
    http_port = resolveConfiguredHttpPort();
    if (http_port > 0)
        LOG_DB("AppManager init qr http port=%d\n", http_port);
}

AppManager::AppManager(std::unique_ptr<ZmqSubWorker> worker, QObject* parent)
    : QObject(parent), zmq_sub_worker(std::move(worker))
{
    registerViewModelMetaTypes();
    if (!zmq_sub_worker) {
        LOG_ERR("zmq_sub_worker init error \n");
        return;
    }
    http_port = resolveConfiguredHttpPort();
}

AppManager::~AppManager()
{
    stopLinkThreads();
}

void AppManager::startLinkThreads()
{
    zmq_sub_thread = std::make_unique<QThread>();
    zmq_sub_worker->moveToThread(zmq_sub_thread.get());
    connect(zmq_sub_thread.get(), &QThread::started, zmq_sub_worker.get(), &ZmqSubWorker::process);
    connectZmqworkerSignals();
    zmq_sub_thread->start(QThread::InheritPriority);

    zmq_get_worker = std::make_unique<ZmqGetWorker>(this, zmq_sub_worker.get(), nullptr);
    zmq_get_thread = std::make_unique<QThread>();
    zmq_get_worker->moveToThread(zmq_get_thread.get());
    connect(zmq_get_thread.get(), &QThread::started, zmq_get_worker.get(), &ZmqGetWorker::process);
    zmq_get_thread->start(QThread::InheritPriority);
}

void AppManager::connectZmqworkerSignals()
{
    ZmqSubWorker* worker = zmq_sub_worker.get();
    connect(worker, &ZmqSubWorker::systemLanguageUpdate, this, &AppManager::systemLanguageProcess);
    connect(worker, &ZmqSubWorker::runStatusUpdate, this, &AppManager::runStatusProcess);
    connect(worker, &ZmqSubWorker::workModeUpdate, this, &AppManager::workModeProcess);
    connect(worker, &ZmqSubWorker::upgradeProgressUpdate, this,
            &AppManager::upgradeProgressProcess);
}

// The poller goes first: it reads through the topic worker.
void AppManager::stopLinkThreads()
{
    if (zmq_get_worker)
        zmq_get_worker->stop();
    stopThread(zmq_get_thread.get());
    if (zmq_sub_worker)
        zmq_sub_worker->stop();
    stopThread(zmq_sub_thread.get());
}

void AppManager::systemLanguageProcess(int id)
{
    language_id.store(id);
    emit systemLanguageChanged(id);
}

void AppManager::runStatusProcess(int status)
{
    run_status.store(status);
    emit runStatusChanged(status);
}

void AppManager::workModeProcess(int workmode_id)
{
    work_mode.store(workmode_id);
    emit workModeChanged(workmode_id);
}

void AppManager::upgradeProgressProcess(int progress)
{
    emit upgradeProgressChanged(progress);
}

void AppManager::setCurrentPageContext(int page, int modal)
{
    if (zmq_get_worker)
        zmq_get_worker->setCurrentPage(page, modal);
}

int AppManager::getWorkMode() const
{
    return work_mode.load();
}

int AppManager::getLanguageID() const
{
    return language_id.load();
}

int AppManager::getRunStatus() const
{
    return run_status.load();
}

// The record, net stream and OSD topics are not needed for a first paint.
bool AppManager::isDataReady() const
{
    if (!zmq_sub_worker)
        return false;
    const ZmqSubCache sub = zmq_sub_worker->getSubCache();
    return sub.system_state_ready && sub.network_ready && sub.video_input_ready
           && sub.cpu_memory_ready && sub.storage_ready;
}

int AppManager::resolveConfiguredHttpPort()
{
    json cfg;
    GetJsonCfg("get_networkdom", cfg);
    return parseConfiguredHttpPort(cfg);
}

int AppManager::getPresentStorageIdCached() const
{
    if (!zmq_sub_worker)
        return -1;
    return vmcache::presentStorageId(zmq_sub_worker->getGetCache());
}

std::vector<VideoEncInfo> AppManager::getVencDataCached() const
{
    if (!zmq_sub_worker)
        return {};
    ZmqGetCache get = zmq_sub_worker->getGetCache();
    return get.venc_valid ? std::move(get.venc_list) : std::vector<VideoEncInfo>();
}

bool AppManager::get_lcd_lock_stat()
{
    if (!zmq_sub_worker)
        return false;
    return vmcache::lcdLocked(zmq_sub_worker->getGetCache());
}
