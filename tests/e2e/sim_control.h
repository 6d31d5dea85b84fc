#pragma once
// A client of panel-sim's control socket: one command line out, one reply
// line back ("ok", "ok <json>" or "error: <why>").
#include <nlohmann/json.hpp>

#include <chrono>
#include <optional>
#include <string>

namespace e2e {

using json = nlohmann::json;

class SimControl {
public:
    explicit SimControl(std::string socket_path);
    ~SimControl();
    SimControl(const SimControl&) = delete;
    SimControl& operator=(const SimControl&) = delete;

    // Waits until the simulator accepts connections; false at the deadline.
    bool connect(std::chrono::milliseconds deadline);
    void disconnect();

    // The reply line, or "error: ..." naming what went wrong on the socket.
    // Connects first when needed, so that a restarted simulator is reached.
    std::string command(const std::string& line);

    // The value at a JSON pointer of the device state; nothing if the
    // simulator refused or didn't answer.
    std::optional<json> get(const std::string& pointer);
    // Sets the value at a JSON pointer; true on "ok".
    bool set(const std::string& pointer, const json& value);
    // Runs a command that answers a plain "ok".
    bool ok(const std::string& line);

    const std::string& path() const { return path_; }

private:
    bool readLine(std::string& line, std::chrono::milliseconds deadline);

    std::string path_;
    int fd_ = -1;
    std::string pending_;
};

} // namespace e2e
