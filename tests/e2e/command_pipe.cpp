#include "command_pipe.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>

namespace e2e {

CommandPipe::CommandPipe(std::string path) : path_(std::move(path))
{
    // Writing after the panel died must fail the write, not kill the test.
    ::signal(SIGPIPE, SIG_IGN);
}

CommandPipe::~CommandPipe()
{
    if (fd_ >= 0)
        ::close(fd_);
}

bool CommandPipe::open(std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (fd_ < 0) {
        struct stat info {};
        // Opening for writing without blocking fails (ENXIO) until the panel
        // holds the reading end.
        if (::lstat(path_.c_str(), &info) == 0 && S_ISFIFO(info.st_mode))
            fd_ = ::open(path_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
        if (fd_ >= 0)
            break;
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

bool CommandPipe::send(const std::string& command)
{
    if (fd_ < 0)
        return false;
    const std::string line = command + "\n";
    // Lines this short are written whole (PIPE_BUF); a full pipe means the
    // panel stopped reading, which the caller sees as a missing answer.
    const ssize_t written = ::write(fd_, line.data(), line.size());
    return written == static_cast<ssize_t>(line.size());
}

} // namespace e2e
