#include "control/control_socket.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace sim {

namespace {

constexpr int kPollMs = 100;
constexpr std::size_t kMaxLine = 1 << 20;

void writeAll(int fd, const std::string& text)
{
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t n = ::send(fd, text.data() + done, text.size() - done, MSG_NOSIGNAL);
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return;
        done += static_cast<std::size_t>(n);
    }
}

} // namespace

ControlSocket::ControlSocket(std::string path, ControlCommands& commands)
    : path_(std::move(path)), commands_(commands)
{
}

ControlSocket::~ControlSocket()
{
    stop();
}

void ControlSocket::start()
{
    sockaddr_un address{};
    if (path_.size() >= sizeof(address.sun_path))
        throw std::runtime_error("control socket path too long: " + path_);
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path_.c_str(), sizeof(address.sun_path) - 1);
    listen_fd_ = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (listen_fd_ < 0)
        throw std::runtime_error("cannot create control socket");
    // A file left by a simulator that was killed would block the bind.
    ::unlink(path_.c_str());
    if (::bind(listen_fd_, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0
        || ::listen(listen_fd_, 8) != 0) {
        const std::string why = std::strerror(errno);
        ::close(listen_fd_);
        listen_fd_ = -1;
        throw std::runtime_error("cannot listen on control socket " + path_ + ": " + why);
    }
    thread_ = std::thread([this] { run(); });
}

void ControlSocket::stop()
{
    stopping_ = true;
    if (thread_.joinable())
        thread_.join();
    for (const auto& client : clients_)
        ::close(client.first);
    clients_.clear();
    if (listen_fd_ >= 0) {
        ::close(listen_fd_);
        listen_fd_ = -1;
        ::unlink(path_.c_str());
    }
}

void ControlSocket::run()
{
    while (!stopping_) {
        std::vector<pollfd> fds{{listen_fd_, POLLIN, 0}};
        for (const auto& client : clients_)
            fds.push_back({client.first, POLLIN, 0});
        if (::poll(fds.data(), fds.size(), kPollMs) <= 0)
            continue;
        if (fds[0].revents & POLLIN)
            accept();
        for (std::size_t i = 1; i < fds.size(); ++i) {
            if (!(fds[i].revents & (POLLIN | POLLHUP | POLLERR)))
                continue;
            if (!serve(fds[i].fd, clients_[fds[i].fd])) {
                ::close(fds[i].fd);
                clients_.erase(fds[i].fd);
            }
        }
    }
}

void ControlSocket::accept()
{
    const int fd = ::accept4(listen_fd_, nullptr, nullptr, SOCK_CLOEXEC);
    if (fd >= 0)
        clients_[fd] = "";
}

bool ControlSocket::serve(int fd, std::string& pending)
{
    char buffer[4096];
    const ssize_t n = ::recv(fd, buffer, sizeof(buffer), 0);
    if (n <= 0)
        return n < 0 && errno == EINTR;
    pending.append(buffer, static_cast<std::size_t>(n));
    for (auto end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
        std::string line = pending.substr(0, end);
        pending.erase(0, end + 1);
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        writeAll(fd, commands_.execute(line) + "\n");
    }
    if (pending.size() > kMaxLine) {
        writeAll(fd, "error: line too long\n");
        return false;
    }
    return true;
}

} // namespace sim
