#pragma once
// The panel's window built as the program builds it, on the simulator in
// this process, reading English texts, with the gesture guides off unless
// asked for and the refresh cycle driven by the test.
#include "control/manual_time_source.h"
#include "shell/widget.h"
#include "support/sim/sim_fixture.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>

namespace shelltest {

struct PanelOptions {
    bool guides = false;
    // The idle, sleep and session timers run on `clock()`, moved by the test.
    bool manual_time = false;
    // Runs on the simulator before the window is built.
    std::function<void(testsupport::SimFixture&)> prepare;
};

class PanelWindow {
public:
    explicit PanelWindow(const PanelOptions& options = PanelOptions());

    Widget& w() { return *widget; }
    testsupport::SimFixture& sim() { return *simulator; }
    ManualTimeSource& clock() { return *manual_clock; }

    // The splash is gone and the first page is live.
    bool waitForMainUi(std::chrono::milliseconds deadline = std::chrono::milliseconds(8000));
    // One tick of the one-second refresh cycle.
    void tick() { widget->on_page_refresh_timeout(); }
    // Ticks, letting topics and polls arrive in between, until `condition` holds.
    bool tickUntil(const std::function<bool()>& condition,
                   std::chrono::milliseconds deadline = std::chrono::milliseconds(5000));
    // The page the stack shows, by its id; -1 for none.
    int shownPageId();
    // Taps through the window's gates and runs the queued click it posts.
    void tap(QPushButton* button);
    // The English text of `key`.
    QString text(const char* key);
    // The operation card stands and shows the text of `key`.
    bool cardShows(const char* key);
    int deviceInt(const std::string& pointer) { return simulator->at(pointer).get<int>(); }

private:
    std::unique_ptr<testsupport::SimFixture> simulator;
    testsupport::PanelEnvironment backend_env;
    testsupport::TempDir folder;
    testsupport::ScopedEnv language_file;
    testsupport::ScopedEnv test_pipe_path;
    std::unique_ptr<ManualTimeSource> manual_clock;
    std::unique_ptr<Widget> widget;
};

// A test on a window whose first page is up.
class PanelTest : public ::testing::Test {
protected:
    explicit PanelTest(const PanelOptions& options = PanelOptions()) : panel(options) {}
    void SetUp() override { ASSERT_TRUE(panel.waitForMainUi()); }
    Widget& w() { return panel.w(); }
    int shown() { return panel.shownPageId(); }

    PanelWindow panel;
};

// Card `key` of a settings page; null when the page shows no such card.
QPushButton* settingsCard(Widget& w, int page, const char* key);

} // namespace shelltest
