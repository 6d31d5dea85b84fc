// The window's costs against a simulated device (panel-sim as a child
// process): one refresh tick on a page whose model didn't change (model read
// and compare, no repaint), one on a page that must redraw, and start-up from
// constructing the window to the first page being live.
#include "shell/widget.h"
#include "ui/panel_resources.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>

#include <csignal>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

QApplication& shellBenchApplication()
{
    if (auto* existing = qobject_cast<QApplication*>(QCoreApplication::instance()))
        return *existing;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "panel_bench";
    static char* argv[] = {name, nullptr};
    static QApplication app(argc, argv);
    return app;
}

bool waitFor(const std::function<bool()>& condition, int deadline_ms)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.elapsed() > deadline_ms)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        QThread::msleep(1);
    }
    return true;
}

// panel-sim beside this program's build folder, on a private folder and port.
class SimulatorProcess {
public:
    SimulatorProcess()
    {
        const QString exe = QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
        const QString sim = QFileInfo(exe).dir().absoluteFilePath("../sim/panel-sim");
        port_ = 20000 + static_cast<int>(::getpid() % 20000);
        pid_ = ::fork();
        if (pid_ == 0) {
            const std::string path = sim.toStdString();
            const std::string dir = dir_.path().toStdString();
            const std::string port = std::to_string(port_);
            ::execl(path.c_str(), path.c_str(), "--ipc-dir", dir.c_str(), "--topic-port",
                    port.c_str(), "--tick-ms", "100", "--quiet", static_cast<char*>(nullptr));
            ::_exit(127);
        }
        ready_ = pid_ > 0 && waitFor([this] { return QFileInfo::exists(socketPath()); }, 5000);
        qputenv("PANEL_BACKEND_IPC_DIR", dir_.path().toUtf8());
        qputenv("PANEL_BACKEND_TOPIC_PORT", QByteArray::number(port_));
        qputenv("PANEL_LANGUAGE_FILE",
                PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json");
        qputenv("VANTOR_GUI_TEST_CMD", "0");
        qputenv("VANTOR_GUI_TEST_CMD_PATH", dir_.filePath("cmd.fifo").toUtf8());
    }
    ~SimulatorProcess()
    {
        if (pid_ > 0) {
            ::kill(pid_, SIGTERM);
            ::waitpid(pid_, nullptr, 0);
        }
    }
    bool ready() const { return ready_; }

private:
    QString socketPath() const { return dir_.filePath("webserver.sock"); }

    QTemporaryDir dir_;
    int port_ = 0;
    pid_t pid_ = -1;
    bool ready_ = false;
};

SimulatorProcess& simulator()
{
    static SimulatorProcess process;
    return process;
}

// A live panel on `page`, its own refresh timer stopped so that only the
// benchmark ticks.
std::unique_ptr<Widget> livePanel(benchmark::State& state, int page)
{
    shellBenchApplication();
    initPanelResources();
    if (!simulator().ready()) {
        state.SkipWithError("panel-sim did not start");
        return nullptr;
    }
    auto panel = std::make_unique<Widget>();
    panel->pageRefreshTimer()->stop();
    if (!waitFor([&] { return !panel->isSplashVisible(); }, 10000)) {
        state.SkipWithError("the panel never left its splash");
        return nullptr;
    }
    panel->goto_page(page);
    // Let the poller bring the page's data, so that the ticks measured find
    // it unchanged.
    for (int i = 0; i < 20; ++i) {
        waitFor([] { return false; }, 50);
        panel->on_page_refresh_timeout();
    }
    return panel;
}

void BM_RefreshTickUnchangedPage(benchmark::State& state)
{
    auto panel = livePanel(state, PAGE_SYSTEM_SETTINGS_1);
    if (!panel)
        return;
    int deliveries = 0;
    QObject::connect(panel.get(), &Widget::requestSystemSettingsPage1Update,
                     [&deliveries] { ++deliveries; });
    for (auto _ : state)
        panel->on_page_refresh_timeout();
    state.counters["deliveries"] = deliveries;
}
BENCHMARK(BM_RefreshTickUnchangedPage)->Unit(benchmark::kMicrosecond);

// A language change forces the next tick to redraw the page and its status
// bar, texts included: the most a tick does for one page.
void BM_RefreshTickChangedPage(benchmark::State& state)
{
    auto panel = livePanel(state, PAGE_STATUS_1);
    if (!panel)
        return;
    for (auto _ : state) {
        panel->handleLanguageChange();
        panel->on_page_refresh_timeout();
    }
}
BENCHMARK(BM_RefreshTickChangedPage)->Unit(benchmark::kMicrosecond);

// Constructing the window (the backend link, all pages, the splash shown)
// and then waiting until the first page is live.
void BM_StartupToFirstPage(benchmark::State& state)
{
    shellBenchApplication();
    initPanelResources();
    if (!simulator().ready()) {
        state.SkipWithError("panel-sim did not start");
        return;
    }
    double constructed_ms = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        auto panel = std::make_unique<Widget>();
        constructed_ms += static_cast<double>(clock.nsecsElapsed()) / 1e6;
        if (!waitFor([&] { return !panel->isSplashVisible(); }, 10000)) {
            state.SkipWithError("the panel never left its splash");
            return;
        }
        state.PauseTiming();
        panel.reset();
        state.ResumeTiming();
    }
    state.counters["constructed_ms"] =
        benchmark::Counter(constructed_ms, benchmark::Counter::kAvgIterations);
}
BENCHMARK(BM_StartupToFirstPage)->Unit(benchmark::kMillisecond)->Iterations(5);

} // namespace
