#pragma once

#include "control/control_commands.h"

#include <atomic>
#include <map>
#include <string>
#include <thread>

namespace sim {

// The control channel: a unix stream socket at `path`. A client writes one
// command per line and reads one reply line per command; several clients may
// be connected at once.
class ControlSocket {
public:
    ControlSocket(std::string path, ControlCommands& commands);
    ~ControlSocket();
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    void start(); // throws std::runtime_error when the socket can't be made
    void stop();  // also removes the socket file

private:
    void run();
    void accept();
    // False when the client went away.
    bool serve(int fd, std::string& pending);

    std::string path_;
    ControlCommands& commands_;
    int listen_fd_ = -1;
    std::atomic<bool> stopping_{false};
    std::thread thread_;
    std::map<int, std::string> clients_; // fd -> unfinished input; run() only
};

} // namespace sim
