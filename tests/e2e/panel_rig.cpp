#include "panel_rig.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <stdexcept>
#include <thread>

namespace e2e {

namespace {

const char* const kPanelBinary = PANEL_BINARY_DIR "/panel";
const char* const kSimBinary = PANEL_BINARY_DIR "/sim/panel-sim";
const char* const kLanguageFile = PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json";

constexpr auto kSimStartDeadline = 10s;
constexpr auto kPipeDeadline = 15s;
// The splash waits up to 5 s for data; a loaded machine needs more.
constexpr auto kMainUiDeadline = 20s;
constexpr int kScreenshotIntervalMs = 100;
constexpr std::size_t kDiagnosticLines = 60;

const std::regex kPageLine(R"(Vantor current page: (-?\d+))");
const std::regex kInitialPageShown("Initial page data refresh completed");

bool portFree(int port)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    if (fd < 0)
        return false;
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    const bool free = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
    ::close(fd);
    return free;
}

// The simulator's topic proxy takes two ports in a row.
int freePortPair()
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        const int port = testsupport::freeTcpPort();
        if (port < 65535 && portFree(port + 1))
            return port;
    }
    throw std::runtime_error("no two free tcp ports in a row");
}

// Guides off: every guide type counts as shown the maximum number of times.
const char* const kGuidesUsedUp = "set /lcd/gesture_guide/shown_counts [3,3,3,3,3,3,3]";

} // namespace

PanelRig::PanelRig(RigOptions options) : topic_port_(freePortPair())
{
    script_path_ = dir_.file("device-setup.txt");
    std::ofstream script(script_path_);
    if (!options.gesture_guides)
        script << kGuidesUsedUp << "\n";
    for (const std::string& line : options.device_setup)
        script << line << "\n";
    sim_control_ = std::make_unique<SimControl>(dir_.file("panel-sim.ctl"));
}

PanelRig::~PanelRig()
{
    // The panel first, so that it doesn't log a vanished backend on its way out.
    pipe_.reset();
    panel_.reset();
    sim_control_->disconnect();
    sim_.reset();
}

void PanelRig::start()
{
    startSimulator();
    startPanel();
}

void PanelRig::startSimulator()
{
    sim_control_->disconnect();
    sim_.reset();
    sim_ = std::make_unique<ChildProcess>(
        ProcessLaunch{kSimBinary,
                      {"--ipc-dir", dir_.path(), "--topic-port", std::to_string(topic_port_),
                       "--script", script_path_},
                      {}});
    if (!sim_control_->connect(kSimStartDeadline) || !sim_control_->ok("publish"))
        throw std::runtime_error("panel-sim did not come up:\n" + sim_->log().tail(20));
}

void PanelRig::killSimulator()
{
    sim_control_->disconnect();
    if (sim_)
        sim_->kill();
}

void PanelRig::startPanel()
{
    const std::string screens = dir_.file("screens");
    const std::string fifo = dir_.file("panel.cmd");
    pipe_.reset();
    panel_ = std::make_unique<ChildProcess>(
        ProcessLaunch{kPanelBinary,
                      {},
                      {{"QT_QPA_PLATFORM", "offscreen"},
                       {"VANTOR_GUI_TEST_CMD", "1"},
                       {"VANTOR_GUI_TEST_CMD_PATH", fifo},
                       {"PANEL_BACKEND_IPC_DIR", dir_.path()},
                       {"PANEL_BACKEND_TOPIC_PORT", std::to_string(topic_port_)},
                       {"PANEL_LANGUAGE_FILE", kLanguageFile},
                       {"PANEL_SCREENSHOT_DIR", screens},
                       {"PANEL_SCREENSHOT_INTERVAL_MS", std::to_string(kScreenshotIntervalMs)}}});
    pipe_ = std::make_unique<CommandPipe>(fifo);
    screen_ = std::make_unique<ScreenWatcher>(screens + "/panel.png");
    if (!pipe_->open(kPipeDeadline))
        throw std::runtime_error("the panel opened no test command pipe:\n"
                                 + panelLog().tail(kDiagnosticLines));
    if (!panelLog().waitForLine(kInitialPageShown, kMainUiDeadline))
        throw std::runtime_error("the panel's main UI didn't come up:\n"
                                 + panelLog().tail(kDiagnosticLines));
    // The main UI is finished from a zero-delay step (touch, the first
    // gesture guide) that runs before the next screenshot.
    if (currentPage(kMainUiDeadline) == kNoAnswer)
        throw std::runtime_error("the panel doesn't answer on its command pipe:\n"
                                 + panelLog().tail(kDiagnosticLines));
    if (screen_->fresh(kMainUiDeadline).isNull())
        throw std::runtime_error("the panel writes no screenshots to " + screens + ":\n"
                                 + panelLog().tail(kDiagnosticLines));
}

bool PanelRig::panelRunning()
{
    return panel_ && panel_->running();
}

bool PanelRig::send(const std::string& command)
{
    return pipe_ && pipe_->send(command);
}

int PanelRig::currentPage(std::chrono::milliseconds deadline)
{
    const LogCapture::Mark mark = panelLog().mark();
    if (!send("page"))
        return kNoAnswer;
    const auto line = panelLog().waitForLine(kPageLine, deadline, mark);
    std::smatch match;
    if (!line || !std::regex_search(*line, match, kPageLine))
        return kNoAnswer;
    return std::stoi(match[1].str());
}

int PanelRig::pageAfter(const std::string& command, std::chrono::milliseconds deadline)
{
    // Both lines are handled in order by one reader on the panel's GUI thread.
    send(command);
    return currentPage(deadline);
}

int PanelRig::waitForPage(int page, std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    int seen = kNoAnswer;
    while (true) {
        seen = currentPage();
        if (seen == page || std::chrono::steady_clock::now() >= end)
            return seen;
        std::this_thread::sleep_for(50ms);
    }
}

void PanelRig::tap(const QPoint& point)
{
    send("tap " + std::to_string(point.x()) + " " + std::to_string(point.y()));
}

void PanelRig::longPress(const QPoint& point)
{
    send("longpress " + std::to_string(point.x()) + " " + std::to_string(point.y()));
}

QImage PanelRig::settle()
{
    return screen_ ? screen_->fresh() : QImage();
}

std::string PanelRig::diagnostics(const std::string& test_name) const
{
    std::string text = "--- panel log (last lines) ---\n";
    text += panel_ ? panel_->log().tail(kDiagnosticLines) : "(not started)\n";
    text += "--- panel-sim log (last lines) ---\n";
    text += sim_ ? sim_->log().tail(kDiagnosticLines) : "(not started)\n";
    const char* artifacts = std::getenv("E2E_ARTIFACT_DIR");
    if (artifacts && *artifacts && screen_) {
        std::error_code ignored;
        std::filesystem::create_directories(artifacts, ignored);
        std::filesystem::copy_file(screen_->path(),
                                   std::string(artifacts) + "/" + test_name + ".png",
                                   std::filesystem::copy_options::overwrite_existing, ignored);
        std::ofstream(std::string(artifacts) + "/" + test_name + ".log") << text;
    }
    return text;
}

} // namespace e2e
