#pragma once

#include "fake_daemon.h"
#include "link/zmq_sub_worker.h"
#include "support/test_support.h"
#include "transport/zmq_endpoints.h"

#include <chrono>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace linktest {

// Replies of a fake daemon by operation name (see operationOf), each with an
// optional delay. Unknown operations get {"rsp":"fail"}.
class ReplyScript {
public:
    void on(const std::string& operation, const json& reply,
            std::chrono::milliseconds delay = std::chrono::milliseconds(0));
    void onRaw(const std::string& operation, const std::string& reply,
               std::chrono::milliseconds delay = std::chrono::milliseconds(0));
    std::string replyTo(const json& request) const;

private:
    struct Entry {
        std::string reply;
        std::chrono::milliseconds delay;
    };
    mutable std::mutex mutex;
    std::map<std::string, Entry> entries;
};

// A worker wired to fake web and media server daemons in a private folder and
// on a free loopback port for topics. Construct the script's replies that the
// worker's constructor needs before calling start().
class LinkEnv {
public:
    LinkEnv();
    void start();

    testsupport::TempDir dir;
    BackendEndpoints endpoints;
    ReplyScript web_script;
    ReplyScript media_script;
    FakeDaemon web;
    FakeDaemon media;
    std::unique_ptr<ZmqSubWorker> worker;
};

} // namespace linktest
