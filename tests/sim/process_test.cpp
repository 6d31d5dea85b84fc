// The panel-sim executable as a user runs it: a child process on its own
// endpoints, reached over its sockets and stopped with SIGTERM.
#include "sim_harness.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>

extern char** environ;

using namespace simtest;

namespace {

const char* const kBinary = PANEL_BINARY_DIR "/sim/panel-sim";

pid_t spawn(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), kBinary);
    std::vector<char*> argv;
    for (std::string& argument : arguments)
        argv.push_back(argument.data());
    argv.push_back(nullptr);
    pid_t pid = -1;
    return posix_spawn(&pid, kBinary, nullptr, nullptr, argv.data(), environ) == 0 ? pid : -1;
}

// The exit status; the child is killed and -1 returned when it outlives the deadline.
int exitStatus(pid_t pid)
{
    int status = 0;
    if (!testsupport::waitUntil([&] { return waitpid(pid, &status, WNOHANG) == pid; })) {
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
        return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

TEST(SimProcess, ServesOnItsSocketsAndLeavesNothingBehindOnSigterm)
{
    testsupport::TempDir dir;
    const int port = testsupport::freeTcpPortPair();
    const pid_t pid =
        spawn({"--ipc-dir", dir.path(), "--topic-port", std::to_string(port), "--quiet"});
    ASSERT_GT(pid, 0);

    const BackendEndpoints endpoints = BackendEndpoints::local(dir.path(), port);
    EXPECT_TRUE(testsupport::waitUntil([&] {
        return ask(endpoints.webserver, request("system_api", "fan", "get_fan_mode"), 200)["rsp"]
               == "succeed";
    }));
    {
        TopicListener topics(endpoints.topics_sub);
        EXPECT_TRUE(topics.waitFor("topic_system_state_info",
                                   [](const json& p) { return p.contains("run_status"); }));
    }
    EXPECT_EQ(controlLine(dir.file("panel-sim.ctl"), "set /system/fan_mode 2"), "ok");
    EXPECT_EQ(
        ask(endpoints.webserver, request("system_api", "fan", "get_fan_mode"))["data"]["mode"], 2);

    ASSERT_EQ(kill(pid, SIGTERM), 0);
    EXPECT_EQ(exitStatus(pid), 0);
    EXPECT_TRUE(std::filesystem::is_empty(dir.path())) << "sockets were left behind";
}

TEST(SimProcess, RefusesABadCommandLine)
{
    const pid_t pid = spawn({"--topic-port", "nope"});
    ASSERT_GT(pid, 0);
    EXPECT_EQ(exitStatus(pid), 2);
}

} // namespace
