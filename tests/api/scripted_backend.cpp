#include "scripted_backend.h"

#include <thread>

namespace apitest {

ScriptedBackend::ScriptedBackend()
    : endpoints(BackendEndpoints::local(dir.path(), testsupport::freeTcpPort())),
      web(endpoints.webserver), media(endpoints.mediaserver),
      app(std::make_unique<AppManager>(std::make_unique<ZmqSubWorker>(endpoints)))
{
    // The start-up reads of the worker and the manager are not part of any test.
    web.clearRequests();
}

ScriptedBackend::~ScriptedBackend()
{
    app.reset();
}

std::vector<int> runSideBySide(const std::vector<std::function<int(ScriptedBackend&)>>& runs)
{
    std::vector<std::unique_ptr<ScriptedBackend>> backends;
    for (std::size_t i = 0; i < runs.size(); ++i)
        backends.push_back(std::make_unique<ScriptedBackend>());
    std::vector<int> results(runs.size(), 0);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < runs.size(); ++i)
        threads.emplace_back([&, i] { results[i] = runs[i](*backends[i]); });
    for (std::thread& thread : threads)
        thread.join();
    return results;
}

} // namespace apitest
