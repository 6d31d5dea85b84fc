#pragma once
// The real panel-sim and the real panel, on endpoints of their own in a
// temporary folder, driven only from outside: the panel through its test
// command pipe, the device through the simulator's control socket, and what
// the panel shows through its screenshots and log lines.
#include "child_process.h"
#include "command_pipe.h"
#include "screen_watcher.h"
#include "sim_control.h"

#include "support/test_support.h"

#include <QPoint>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

namespace e2e {

using namespace std::chrono_literals;

struct RigOptions {
    // Control commands the simulator runs as it starts, before the panel
    // connects: the device the panel will find.
    std::vector<std::string> device_setup;
    // A new device shows each gesture guide a few times. Off, the rig marks
    // the guides as used up, so that they don't cover the pages under test.
    bool gesture_guides = false;
};

class PanelRig {
public:
    // The answer of currentPage() when the panel didn't answer in time.
    static constexpr int kNoAnswer = -100;

    // Prepares the folder and the simulator's start script; starts nothing.
    explicit PanelRig(RigOptions options = {});
    ~PanelRig();
    PanelRig(const PanelRig&) = delete;
    PanelRig& operator=(const PanelRig&) = delete;

    // The simulator, then the panel against it.
    void start();

    // --- the simulator ---
    // Starts panel-sim (again, after a stop) on the same folder and port;
    // throws std::runtime_error when it doesn't come up.
    void startSimulator();
    // SIGKILL: the simulator vanishes as a crashed daemon would.
    void killSimulator();
    SimControl& sim() { return *sim_control_; }

    // --- the panel ---
    // Starts the panel and waits until its main UI is up and its command
    // pipe answers; throws std::runtime_error otherwise.
    void startPanel();
    bool panelRunning();
    LogCapture& panelLog() { return panel_->log(); }

    // One line to the test command pipe.
    bool send(const std::string& command);
    // The page id the panel reports on "page", or kNoAnswer.
    int currentPage(std::chrono::milliseconds deadline = 5s);
    // Sends a command that acts at once (gestures, goto) and reports the page after it.
    int pageAfter(const std::string& command, std::chrono::milliseconds deadline = 5s);
    // Asks until the panel reports `page` or the deadline passes; the last answer.
    int waitForPage(int page, std::chrono::milliseconds deadline = 5s);
    void tap(const QPoint& point);
    void longPress(const QPoint& point);

    // The panel's screen, as it writes it out.
    ScreenWatcher& screen() { return *screen_; }
    // A fresh picture; returns once the panel's event loop has gone round
    // since the last command, so that queued work (a tap's click) has run.
    QImage settle();

    // Both logs' last lines and the folder's screenshot copied to
    // $E2E_ARTIFACT_DIR when that is set; for failure reports.
    std::string diagnostics(const std::string& test_name) const;

private:
    testsupport::TempDir dir_;
    int topic_port_ = 0;
    std::string script_path_;
    std::unique_ptr<ChildProcess> sim_;
    std::unique_ptr<SimControl> sim_control_;
    std::unique_ptr<ChildProcess> panel_;
    std::unique_ptr<CommandPipe> pipe_;
    std::unique_ptr<ScreenWatcher> screen_;
};

} // namespace e2e
