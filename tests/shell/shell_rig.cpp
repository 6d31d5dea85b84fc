#include "shell_rig.h"

#include "ui/components/main_menu_button_group_component.h"
#include "ui/components/nav_dots_component.h"
#include "ui/panel_resources.h"

#include <QAbstractButton>
#include <QDir>
#include <QLabel>
#include <QStackedWidget>
#include <QTimer>
#include <QVariant>
#include <gtest/gtest.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <stdexcept>

namespace shelltest {

namespace {

bool portFree(int port)
{
    const int fd = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    const bool free = ::bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0;
    ::close(fd);
    return free;
}

void setEnv(const char* name, const std::string& value)
{
    qputenv(name, QByteArray::fromStdString(value));
}

} // namespace

int freePortPair()
{
    for (int attempt = 0; attempt < 50; ++attempt) {
        const int port = testsupport::freeTcpPort();
        if (port < 65535 && portFree(port + 1))
            return port;
    }
    throw std::runtime_error("no free pair of tcp ports");
}

PanelRig::PanelRig(RigOptions options) : options_(std::move(options))
{
    initPanelResources();
    const int port = freePortPair();
    if (options_.with_backend) {
        sim::SimConfig config;
        config.endpoints = BackendEndpoints::local(dir_.path(), port);
        config.quiet = true;
        config.tick_ms = 100;
        simulator_ = std::make_unique<sim::Simulator>(config);
        simulator_->start();
        if (!options_.guides)
            control("set /lcd/gesture_guide/max_count 0");
        if (options_.english)
            control("set /system/language_id 1");
        if (options_.prepare)
            options_.prepare(*simulator_);
    }
    setEnv("PANEL_BACKEND_IPC_DIR", dir_.path());
    setEnv("PANEL_BACKEND_TOPIC_PORT", std::to_string(port));
    setEnv("PANEL_LANGUAGE_FILE", PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json");
    fifo_path_ = dir_.file("test_cmd.fifo");
    setEnv("VANTOR_GUI_TEST_CMD", options_.test_pipe ? "1" : "0");
    setEnv("VANTOR_GUI_TEST_CMD_PATH", fifo_path_);
    if (options_.manual_time)
        clock_ = std::make_unique<ManualTimeSource>();
    widget_ = std::make_unique<Widget>(nullptr, clock_.get());
    if (options_.manual_ticks)
        widget_->pageRefreshTimer()->stop();
}

PanelRig::~PanelRig()
{
    widget_.reset();
    if (simulator_)
        simulator_->stop();
}

std::string PanelRig::control(const std::string& line)
{
    if (!simulator_) {
        ADD_FAILURE() << "no simulator for: " << line;
        return {};
    }
    const std::string reply = simulator_->control(line);
    EXPECT_EQ(reply.rfind("ok", 0), 0u) << line << " -> " << reply;
    return reply;
}

bool PanelRig::waitForMainUi(std::chrono::milliseconds deadline)
{
    return testsupport::waitUntil([this]() { return !widget_->isSplashVisible(); }, deadline);
}

void PanelRig::tick()
{
    widget_->on_page_refresh_timeout();
}

bool PanelRig::tickUntil(const std::function<bool()>& condition, std::chrono::milliseconds deadline)
{
    const auto end = std::chrono::steady_clock::now() + deadline;
    for (;;) {
        tick();
        if (condition())
            return true;
        if (std::chrono::steady_clock::now() >= end)
            return false;
        // Let the topics and the poller bring news before the next tick.
        testsupport::waitUntil([] { return false; }, std::chrono::milliseconds(50));
    }
}

QWidget* PanelRig::shownPage()
{
    return widget_->pageStack()->currentWidget();
}

int PanelRig::shownPageId()
{
    QWidget* shown = shownPage();
    for (int id = 0; id < kPageCount; ++id) {
        if (shown && widget_->pageid_to_widget(id) == shown)
            return id;
    }
    return -1;
}

QString PanelRig::screenshot(const QString& name)
{
    const QString folder = QStringLiteral(PANEL_BINARY_DIR "/shell-screenshots");
    QDir().mkpath(folder);
    const QString path = folder + "/" + name + ".png";
    EXPECT_TRUE(widget_->grab().save(path)) << path.toStdString();
    return path;
}

bool gestureUntilPage(PanelRig& rig, const std::function<void()>& gesture, int expected,
                      int max_gestures)
{
    for (int i = 0; i < max_gestures && rig.shownPageId() != expected; ++i)
        gesture();
    return rig.shownPageId() == expected;
}

QList<QPushButton*> menuButtons(QWidget* page)
{
    QList<QPushButton*> buttons;
    for (QPushButton* button : page->findChildren<QPushButton*>()) {
        if (button->size()
            == QSize(MainMenuButtonGroupComponent::kButtonWidth,
                     MainMenuButtonGroupComponent::kButtonHeight))
            buttons.append(button);
    }
    std::sort(buttons.begin(), buttons.end(),
              [](QPushButton* a, QPushButton* b) { return a->x() < b->x(); });
    return buttons;
}

int shownDotIndex(Widget& panel, int* count)
{
    NavDotsComponent* dots = panel.navDots();
    int visible = 0;
    int current = -1;
    if (dots->isVisibleTo(&panel)) {
        for (QLabel* dot : dots->dots()) {
            if (!dot->isVisibleTo(dots))
                continue;
            if (dot->property("class").toString() == QLatin1String("navdot-active"))
                current = visible;
            ++visible;
        }
    }
    if (count)
        *count = visible;
    return current;
}

bool showsText(QWidget* root, const QString& text)
{
    if (!root)
        return false;
    for (QLabel* label : root->findChildren<QLabel*>()) {
        if (label->isVisibleTo(root) && label->text().contains(text))
            return true;
    }
    for (QAbstractButton* button : root->findChildren<QAbstractButton*>()) {
        if (button->isVisibleTo(root) && button->text().contains(text))
            return true;
    }
    return false;
}

} // namespace shelltest
