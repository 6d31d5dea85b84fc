#include "child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

extern char** environ;

namespace e2e {

namespace {

constexpr int kReadPollMs = 50;
constexpr auto kOutputDrain = std::chrono::milliseconds(1000);

std::vector<std::string> mergedEnvironment(const std::map<std::string, std::string>& extra)
{
    std::map<std::string, std::string> merged;
    for (char** entry = environ; *entry; ++entry) {
        const std::string text = *entry;
        const auto equals = text.find('=');
        if (equals != std::string::npos)
            merged[text.substr(0, equals)] = text.substr(equals + 1);
    }
    for (const auto& [name, value] : extra)
        merged[name] = value;
    std::vector<std::string> entries;
    for (const auto& [name, value] : merged)
        entries.push_back(name + "=" + value);
    return entries;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

// A pseudo-terminal in raw mode (no echo, no newline translation): the
// master end for the reader, the slave end for the child's output.
std::pair<int, int> openTerminal()
{
    const int master = ::open("/dev/ptmx", O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (master < 0)
        throw std::runtime_error(std::string("cannot open /dev/ptmx: ") + std::strerror(errno));
    char name[128];
    if (::grantpt(master) != 0 || ::unlockpt(master) != 0
        || ::ptsname_r(master, name, sizeof(name)) != 0) {
        ::close(master);
        throw std::runtime_error("cannot set up a pseudo-terminal");
    }
    const int slave = ::open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (slave < 0) {
        ::close(master);
        throw std::runtime_error(std::string("cannot open ") + name);
    }
    termios mode{};
    if (::tcgetattr(slave, &mode) == 0) {
        ::cfmakeraw(&mode);
        ::tcsetattr(slave, TCSANOW, &mode);
    }
    return {master, slave};
}

int statusOf(int wait_status)
{
    if (WIFEXITED(wait_status))
        return WEXITSTATUS(wait_status);
    if (WIFSIGNALED(wait_status))
        return 128 + WTERMSIG(wait_status);
    return -1;
}

} // namespace

ChildProcess::ChildProcess(const ProcessLaunch& launch)
{
    std::vector<std::string> argument_texts{launch.program};
    argument_texts.insert(argument_texts.end(), launch.arguments.begin(), launch.arguments.end());
    std::vector<std::string> environment_texts = mergedEnvironment(launch.environment);
    std::vector<char*> argv = pointersTo(argument_texts);
    std::vector<char*> envp = pointersTo(environment_texts);

    const auto [master, slave] = openTerminal();
    const pid_t parent = ::getpid();
    const pid_t pid = ::fork();
    if (pid < 0) {
        ::close(master);
        ::close(slave);
        throw std::runtime_error("fork failed");
    }
    if (pid == 0) {
        // Only async-signal-safe calls from here to exec.
        ::setsid();
        // A test that dies (a crash, a CTest time-out) takes its children along.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
            ::_exit(127);
        const int null_input = ::open("/dev/null", O_RDONLY);
        if (null_input >= 0)
            ::dup2(null_input, STDIN_FILENO);
        ::dup2(slave, STDOUT_FILENO);
        ::dup2(slave, STDERR_FILENO);
        ::execve(argv[0], argv.data(), envp.data());
        const char message[] = "e2e: exec failed\n";
        ::write(STDERR_FILENO, message, sizeof(message) - 1);
        ::_exit(127);
    }
    ::close(slave);
    pid_ = pid;
    terminal_fd_ = master;
    reader_ = std::thread([this] { readOutput(); });
}

ChildProcess::~ChildProcess()
{
    stop(std::chrono::milliseconds(3000));
    stop_reading_ = true;
    if (reader_.joinable())
        reader_.join();
    if (terminal_fd_ >= 0)
        ::close(terminal_fd_);
}

void ChildProcess::readOutput()
{
    std::string pending;
    char buffer[4096];
    while (!stop_reading_) {
        pollfd entry{terminal_fd_, POLLIN, 0};
        const int ready = ::poll(&entry, 1, kReadPollMs);
        if (ready == 0 || (ready < 0 && errno == EINTR))
            continue;
        const ssize_t n = ::read(terminal_fd_, buffer, sizeof(buffer));
        if (n < 0 && (errno == EINTR || errno == EAGAIN))
            continue;
        if (n <= 0)
            break; // EIO: every writer of the terminal is gone
        pending.append(buffer, static_cast<std::size_t>(n));
        for (auto end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
            std::string line = pending.substr(0, end);
            pending.erase(0, end + 1);
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            log_.append(std::move(line));
        }
    }
    if (!pending.empty())
        log_.append(pending);
    log_.close();
}

bool ChildProcess::reap(bool block)
{
    if (pid_ < 0)
        return true;
    int wait_status = 0;
    const pid_t done = ::waitpid(pid_, &wait_status, block ? 0 : WNOHANG);
    if (done != pid_)
        return false;
    exit_status_ = statusOf(wait_status);
    pid_ = -1;
    // Let the reader take what the child wrote last.
    const auto end = std::chrono::steady_clock::now() + kOutputDrain;
    while (!log_.closed() && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return true;
}

bool ChildProcess::running()
{
    return !reap(false);
}

int ChildProcess::stop(std::chrono::milliseconds grace)
{
    if (!running())
        return exit_status_;
    ::kill(pid_, SIGTERM);
    const auto end = std::chrono::steady_clock::now() + grace;
    while (std::chrono::steady_clock::now() < end) {
        if (reap(false))
            return exit_status_;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return kill();
}

int ChildProcess::kill()
{
    if (!running())
        return exit_status_;
    ::kill(pid_, SIGKILL);
    reap(true);
    return exit_status_;
}

} // namespace e2e
