#include "model/app_manager.h"

#include "transport/harvelin_log.h"

#include <utility>

AppManager::AppManager(QObject* parent) : AppManager(BackendEndpoints::fromEnvironment(), parent)
{
}

AppManager::AppManager(const BackendEndpoints& endpoints, QObject* parent)
    : AppManager(std::make_unique<ZmqSubWorker>(endpoints), parent)
{
}

AppManager::AppManager(std::unique_ptr<ZmqSubWorker> worker, QObject* parent)
    : QObject(parent), zmq_sub_worker(std::move(worker))
{
    if (!zmq_sub_worker)
        LOG_ERR("zmq_sub_worker init error \n");
}

AppManager::~AppManager()
{
    if (zmq_sub_worker)
        zmq_sub_worker->stop();
}
