#include "sim_backend.h"

#include "support/test_support.h"

namespace apitest {

SimBackendTest::SimBackendTest() : app(sim.bareAppManager())
{
    topic_loop = std::thread([this] { worker().process(); });
}

SimBackendTest::~SimBackendTest()
{
    worker().stop();
    topic_loop.join();
}

bool SimBackendTest::waitForTopics(const std::function<bool(const ZmqSubCache&)>& accept)
{
    return testsupport::waitUntil([&] { return accept(worker().getSubCache()); });
}

} // namespace apitest
