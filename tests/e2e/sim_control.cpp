#include "sim_control.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <thread>

namespace e2e {

namespace {

constexpr auto kReplyDeadline = std::chrono::milliseconds(5000);
constexpr auto kReconnectDeadline = std::chrono::milliseconds(2000);

int connectOnce(const std::string& path)
{
    sockaddr_un address{};
    if (path.size() >= sizeof(address.sun_path))
        return -1;
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof(address.sun_path) - 1);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return -1;
    if (::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

} // namespace

SimControl::SimControl(std::string socket_path) : path_(std::move(socket_path))
{
}

SimControl::~SimControl()
{
    disconnect();
}

bool SimControl::connect(std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (fd_ < 0) {
        fd_ = connectOnce(path_);
        if (fd_ >= 0)
            break;
        if (std::chrono::steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    pending_.clear();
    return true;
}

void SimControl::disconnect()
{
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
    pending_.clear();
}

bool SimControl::readLine(std::string& line, std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    while (true) {
        const auto newline = pending_.find('\n');
        if (newline != std::string::npos) {
            line = pending_.substr(0, newline);
            pending_.erase(0, newline + 1);
            return true;
        }
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            end - std::chrono::steady_clock::now());
        if (left.count() <= 0)
            return false;
        pollfd entry{fd_, POLLIN, 0};
        const int ready = ::poll(&entry, 1, static_cast<int>(left.count()));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0)
            return false;
        char buffer[8192];
        const ssize_t n = ::recv(fd_, buffer, sizeof(buffer), 0);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        pending_.append(buffer, static_cast<std::size_t>(n));
    }
}

std::string SimControl::command(const std::string& line)
{
    if (fd_ < 0 && !connect(kReconnectDeadline))
        return "error: simulator control socket not reachable at " + path_;
    const std::string text = line + "\n";
    if (::send(fd_, text.data(), text.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(text.size())) {
        disconnect();
        return "error: cannot send to the simulator";
    }
    std::string reply;
    if (!readLine(reply, kReplyDeadline)) {
        disconnect();
        return "error: no reply from the simulator to '" + line + "'";
    }
    return reply;
}

std::optional<json> SimControl::get(const std::string& pointer)
{
    const std::string reply = command("get " + pointer);
    if (reply.rfind("ok ", 0) != 0)
        return std::nullopt;
    const json value = json::parse(reply.substr(3), nullptr, false);
    if (value.is_discarded())
        return std::nullopt;
    return value;
}

bool SimControl::set(const std::string& pointer, const json& value)
{
    return ok("set " + pointer + " " + value.dump());
}

bool SimControl::ok(const std::string& line)
{
    return command(line) == "ok";
}

} // namespace e2e
