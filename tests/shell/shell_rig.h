#pragma once
// A whole panel under test: the window built as the program builds it, its
// backend a simulator running in this process on private endpoints (or no
// backend at all), its test pipe in a private folder.
#include "control/manual_time_source.h"
#include "shell/widget.h"
#include "simulator.h"
#include "support/test_support.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace shelltest {

struct RigOptions {
    bool with_backend = true;
    // Runs on the started simulator before the window exists.
    std::function<void(sim::Simulator&)> prepare;
    // Let the gesture guide appear (it covers the pages in screenshots).
    bool guides = false;
    // English texts, so that content checks and screenshots read plainly.
    bool english = true;
    bool test_pipe = false;
    // The test drives the refresh cycle itself (tick()); the window's own
    // one-second timer is stopped so that it can't tick in between.
    bool manual_ticks = true;
    // The shell's idle, sleep and session timers run on a clock that only
    // the test moves (clock()); otherwise on Qt's.
    bool manual_time = false;
};

class PanelRig {
public:
    explicit PanelRig(RigOptions options = RigOptions());
    ~PanelRig();
    PanelRig(const PanelRig&) = delete;
    PanelRig& operator=(const PanelRig&) = delete;

    Widget& panel() { return *widget_; }
    sim::Simulator& simulator() { return *simulator_; }
    // The hand-driven clock; only with RigOptions::manual_time.
    ManualTimeSource& clock() { return *clock_; }
    // A control command of the simulator; fails the test on an error reply.
    std::string control(const std::string& line);

    // The splash is gone and the first page is live.
    bool waitForMainUi(std::chrono::milliseconds deadline = std::chrono::milliseconds(8000));
    // Runs refresh ticks (as the one-second timer would) until `condition`
    // holds or the deadline passes.
    bool tickUntil(const std::function<bool()>& condition,
                   std::chrono::milliseconds deadline = std::chrono::milliseconds(5000));
    void tick();

    // The page the stack shows, by its id in the page table; -1 for none.
    int shownPageId();
    QWidget* shownPage();

    // Saves what the window shows under the build folder; returns the path.
    QString screenshot(const QString& name);

    const std::string& fifoPath() const { return fifo_path_; }

private:
    RigOptions options_;
    testsupport::TempDir dir_;
    std::unique_ptr<sim::Simulator> simulator_;
    std::unique_ptr<ManualTimeSource> clock_;
    std::unique_ptr<Widget> widget_;
    std::string fifo_path_;
};

// Repeats `gesture` (list pages scroll before they leave) until the page
// `expected` is shown; false after `max_gestures` tries.
bool gestureUntilPage(PanelRig& rig, const std::function<void()>& gesture, int expected,
                      int max_gestures = 12);

// The big buttons of a main menu page, left to right.
QList<QPushButton*> menuButtons(QWidget* page);

// Index of the wide (current) dot among the visible page dots, -1 when the
// dots are hidden; `count` receives the number of visible dots.
int shownDotIndex(Widget& panel, int* count = nullptr);

// True when a visible label or button below `root` shows `text` (in part).
bool showsText(QWidget* root, const QString& text);

// A loopback port N such that N and N + 1 were both free a moment ago.
int freePortPair();

} // namespace shelltest
