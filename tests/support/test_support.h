#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace testsupport {

// A fresh folder under the system temp dir, removed with everything in it
// when the object goes.
class TempDir {
public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    // An ipc endpoint inside the folder, e.g. "ipc:///tmp/panel-test-XXXX/web.sock".
    std::string ipcEndpoint(const std::string& name) const { return "ipc://" + file(name); }

private:
    std::string path_;
};

// Polls `condition` (processing Qt events in between) until it holds or the
// deadline passes; returns whether it held.
bool waitUntil(const std::function<bool()>& condition,
               std::chrono::milliseconds deadline = std::chrono::milliseconds(5000));

// A loopback TCP port that was free a moment ago.
int freeTcpPort();
// A loopback port N such that N and N + 1 were both free a moment ago, as a
// topic proxy on N takes both.
int freeTcpPortPair();

} // namespace testsupport
