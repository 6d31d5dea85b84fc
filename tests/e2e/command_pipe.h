#pragma once
// The writing end of the panel's test command pipe: one command per line.
#include <chrono>
#include <string>

namespace e2e {

class CommandPipe {
public:
    explicit CommandPipe(std::string path);
    ~CommandPipe();
    CommandPipe(const CommandPipe&) = delete;
    CommandPipe& operator=(const CommandPipe&) = delete;

    // Waits until the panel has made the pipe and listens on it, then opens
    // it; false at the deadline.
    bool open(std::chrono::milliseconds deadline);
    bool isOpen() const { return fd_ >= 0; }
    // Writes `command` and a newline in one write; false if the panel is gone.
    bool send(const std::string& command);

    const std::string& path() const { return path_; }

private:
    std::string path_;
    int fd_ = -1;
};

} // namespace e2e
