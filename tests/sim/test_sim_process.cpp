// The panel-sim executable as a user runs it: a child process on its own
// endpoints, stopped with SIGTERM.
#include "sim_harness.h"

#include <gtest/gtest.h>

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <filesystem>
#include <vector>

extern char** environ;

using namespace simtest;

namespace {

const char* const kBinary = PANEL_BINARY_DIR "/sim/panel-sim";

pid_t spawn(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    argv.push_back(const_cast<char*>(kBinary));
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    pid_t pid = -1;
    if (posix_spawn(&pid, kBinary, nullptr, nullptr, argv.data(), environ) != 0)
        return -1;
    return pid;
}

// The exit status, or -1 when the child is still running at the deadline.
int waitForExit(pid_t pid, std::chrono::milliseconds deadline)
{
    int status = 0;
    bool exited =
        testsupport::waitUntil([&] { return waitpid(pid, &status, WNOHANG) == pid; }, deadline);
    if (!exited) {
        kill(pid, SIGKILL);
        waitpid(pid, &status, 0);
        return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::vector<std::string> filesIn(const std::string& dir)
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(dir))
        names.push_back(entry.path().filename().string());
    return names;
}

TEST(SimProcess, ServesAndStopsCleanlyOnSigterm)
{
    testsupport::TempDir dir;
    const int port = testsupport::freeTcpPortPair();
    const pid_t pid =
        spawn({"--ipc-dir", dir.path(), "--topic-port", std::to_string(port), "--quiet"});
    ASSERT_GT(pid, 0);

    const BackendEndpoints endpoints = BackendEndpoints::local(dir.path(), port);
    Client client(endpoints.webserver);
    EXPECT_TRUE(testsupport::waitUntil([&] {
        return client.ask(request("system_api", "fan", "get_fan_mode"), 200)["rsp"] == "succeed";
    }));
    {
        TopicListener topics(endpoints.topics_sub);
        EXPECT_TRUE(topics.waitForJson("topic_system_state_info",
                                       [](const json& p) { return p.contains("run_status"); }));
    }
    ASSERT_TRUE(std::filesystem::exists(dir.file("panel-sim.ctl")));
    EXPECT_EQ(ControlClient(dir.file("panel-sim.ctl")).send("get /system/fan_mode"), "ok 1");

    ASSERT_EQ(kill(pid, SIGTERM), 0);
    EXPECT_EQ(waitForExit(pid, std::chrono::milliseconds(5000)), 0);
    EXPECT_TRUE(filesIn(dir.path()).empty()) << filesIn(dir.path()).front();
}

TEST(SimProcess, RefusesABadCommandLine)
{
    const pid_t pid = spawn({"--topic-port", "nope"});
    ASSERT_GT(pid, 0);
    EXPECT_EQ(waitForExit(pid, std::chrono::milliseconds(5000)), 2);
}

} // namespace
