#pragma once

#include "link/zmq_sub_worker.h"
#include "support/scripted_daemon.h"
#include "support/test_support.h"
#include "transport/zmq_endpoints.h"

#include <memory>

namespace linktest {

// A worker wired to scripted web and media server daemons in a private folder
// and on a free loopback port for topics. Script the replies that the
// worker's constructor needs before calling start().
struct LinkEnv {
    void start() { worker = std::make_unique<ZmqSubWorker>(endpoints); }

    testsupport::TempDir dir;
    BackendEndpoints endpoints = BackendEndpoints::local(dir.path(), testsupport::freeTcpPort());
    testsupport::ScriptedDaemon web{endpoints.webserver};
    testsupport::ScriptedDaemon media{endpoints.mediaserver};
    std::unique_ptr<ZmqSubWorker> worker;
};

} // namespace linktest
