#pragma once
// One program started for a test, its output collected line by line, and
// stopped again by its pid when the test is done.
//
// The child writes to a pseudo-terminal rather than a pipe: the C library
// then flushes its standard output at each line, so that log lines printed
// with printf arrive while the program runs instead of when it exits.
#include "log_capture.h"

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace e2e {

struct ProcessLaunch {
    std::string program;
    std::vector<std::string> arguments;
    // Added to (or replacing entries of) the test's own environment.
    std::map<std::string, std::string> environment;
};

class ChildProcess {
public:
    // Starts the program; throws std::runtime_error if it can't be started.
    explicit ChildProcess(const ProcessLaunch& launch);
    // Stops the child (SIGTERM, then SIGKILL) if it still runs.
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    pid_t pid() const { return pid_; }
    bool running();

    // SIGTERM, then SIGKILL if it hasn't ended within `grace`; returns the
    // exit code, or 128 + the number of the signal that ended it.
    int stop(std::chrono::milliseconds grace = std::chrono::milliseconds(5000));
    // SIGKILL, as a crash would end it; returns the exit status.
    int kill();

    LogCapture& log() { return log_; }

private:
    bool reap(bool block);
    void readOutput();

    pid_t pid_ = -1;
    int exit_status_ = -1;
    int terminal_fd_ = -1;
    std::atomic<bool> stop_reading_{false};
    std::thread reader_;
    LogCapture log_;
};

} // namespace e2e
