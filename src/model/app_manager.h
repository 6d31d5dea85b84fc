#pragma once

#include "link/zmq_sub_worker.h"
#include "transport/zmq_endpoints.h"
#include "zmqapi/api_records.h"

#include <QObject>
#include <nlohmann/json.hpp>

#include <memory>
#include <string>
#include <vector>

using json = nlohmann::json;

// The facade between the interface and the backend link. It owns the
// worker that talks to the daemons; its typed operations guard against a
// missing worker (-3) and turn replies into plain records.
class AppManager : public QObject {
    Q_OBJECT

public:
    // A worker on the endpoints the environment configures (the box's own by default).
    explicit AppManager(QObject* parent = nullptr);
    explicit AppManager(const BackendEndpoints& endpoints, QObject* parent = nullptr);
    // Takes over an existing worker; a null one leaves the manager without a backend.
    explicit AppManager(std::unique_ptr<ZmqSubWorker> worker, QObject* parent = nullptr);
    ~AppManager() override;

    AppManager(const AppManager&) = delete;
    AppManager& operator=(const AppManager&) = delete;

    ZmqSubWorker* subWorker() const { return zmq_sub_worker.get(); }

#include "appmgrapi/app_api_members.inc"

private:
    std::unique_ptr<ZmqSubWorker> zmq_sub_worker;
};
