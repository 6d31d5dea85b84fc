// Where the panel finds the daemons: the device's endpoints unless the two
// opt-in environment variables move them.
#include "support/qt_capture.h"
#include "transport/zmq_endpoints.h"

#include <gtest/gtest.h>

namespace {

TEST(BackendEndpoints, EnvironmentMovesOnlyWhatItNamesAndIgnoresBadPorts)
{
    const BackendEndpoints device = BackendEndpoints::defaults();
    const BackendEndpoints moved = BackendEndpoints::local("/run/box", 7000);
    EXPECT_EQ(moved.webserver, "ipc:///run/box/webserver.sock");
    EXPECT_EQ(moved.topics_pub, "tcp://127.0.0.1:7001") << "publishers use the next port";

    struct Case {
        const char* dir;
        const char* port;
        BackendEndpoints expected;
    };
    const Case cases[] = {
        {nullptr, nullptr, device},
        {"", "", device},
        {"/run/box",
         nullptr,
         {moved.webserver, moved.mediaserver, device.topics_sub, device.topics_pub}},
        {nullptr,
         "7000",
         {device.webserver, device.mediaserver, moved.topics_sub, moved.topics_pub}},
        {"/run/box", "7000", moved},
        {nullptr, "0", device},
        {nullptr, "65535", device},
        {nullptr, "port", device},
    };
    for (const Case& c : cases) {
        const testsupport::ScopedEnv dir("PANEL_BACKEND_IPC_DIR", c.dir);
        const testsupport::ScopedEnv port("PANEL_BACKEND_TOPIC_PORT", c.port);
        EXPECT_TRUE(BackendEndpoints::fromEnvironment() == c.expected)
            << "dir " << (c.dir ? c.dir : "(unset)") << ", port " << (c.port ? c.port : "(unset)");
    }
}

} // namespace
