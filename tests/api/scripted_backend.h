#pragma once
// Scripted stand-ins for the web and media server daemons on ipc endpoints in
// a private folder, and an AppManager whose worker talks to them.
#include "api_calls.h"
#include "support/scripted_daemon.h"
#include "support/test_support.h"
#include "transport/zmq_endpoints.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace apitest {

using json = nlohmann::json;
using std::chrono::milliseconds;

struct ScriptedBackend {
    ScriptedBackend();
    ~ScriptedBackend();

    ZmqSubWorker& worker() { return *app->subWorker(); }

    testsupport::TempDir dir;
    BackendEndpoints endpoints;
    testsupport::ScriptedDaemon web;
    testsupport::ScriptedDaemon media;
    // Around a bare worker, which starts no poller: every request the
    // daemons see comes from the test.
    std::unique_ptr<AppManager> app;
};

class ApiTest : public ::testing::Test, protected ScriptedBackend {};

// Runs every one of `runs` at the same time, each on a backend of its own, so
// that cases which wait out time-outs take as long as the slowest of them
// rather than all of them together. Returns what each run returned, in order.
std::vector<int> runSideBySide(const std::vector<std::function<int(ScriptedBackend&)>>& runs);

} // namespace apitest
