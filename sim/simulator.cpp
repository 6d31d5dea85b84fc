#include "simulator.h"

#include "handlers/handlers.h"
#include "state/defaults.h"
#include "state/dynamics.h"
#include "state/state_file.h"

#include <ctime>
#include <fstream>
#include <stdexcept>

namespace sim {

namespace {

const char* const kControlFileName = "panel-sim.ctl";

json initialState(const std::string& state_path)
{
    json state = defaultDeviceState();
    if (!state_path.empty() && std::ifstream(state_path).good())
        state = loadStateFile(state_path, state);
    std::mt19937 rng(1);
    advanceOneTick(state, rng, std::time(nullptr));
    return state;
}

} // namespace

std::string Simulator::defaultControlPath(const BackendEndpoints& endpoints)
{
    const std::string scheme = "ipc://";
    std::string socket = endpoints.webserver;
    if (socket.rfind(scheme, 0) == 0)
        socket = socket.substr(scheme.size());
    const auto slash = socket.rfind('/');
    const std::string dir = slash == std::string::npos ? "." : socket.substr(0, slash);
    return (dir.empty() ? "" : dir) + "/" + kControlFileName;
}

Simulator::Simulator(SimConfig config)
    : config_(std::move(config)),
      control_path_(config_.control_path.empty() ? defaultControlPath(config_.endpoints)
                                                 : config_.control_path),
      state_(std::make_unique<DeviceState>(initialState(config_.state_path)))
{
}

Simulator::~Simulator()
{
    stop();
}

void Simulator::start()
{
    running_ = true;
    try {
        proxy_ = std::make_unique<TopicProxy>(config_.endpoints.topics_sub,
                                              config_.endpoints.topics_pub);
        proxy_->start();
        publisher_ =
            std::make_unique<TopicPublisher>(*state_, faults_, config_.endpoints.topics_pub);
        publisher_->start();

        const auto on_write = [this] { onChange(); };
        web_dispatcher_ = std::make_unique<Dispatcher>(
            "web", webServerHandlers(),
            Dispatcher::Context{*state_, faults_, stop_, on_write, config_.quiet});
        media_dispatcher_ = std::make_unique<Dispatcher>(
            "media", mediaServerHandlers(),
            Dispatcher::Context{*state_, faults_, stop_, on_write, config_.quiet});
        commands_ = std::make_unique<ControlCommands>(
            ControlCommands::Context{*state_,
                                     faults_,
                                     *publisher_,
                                     {&web_dispatcher_->table(), &media_dispatcher_->table()},
                                     [this] { onChange(); }});
        runScript();

        web_server_ = std::make_unique<RequestServer>(config_.endpoints.webserver,
                                                      ZMQ_Path::WebServer_router_dealer_inproc,
                                                      *web_dispatcher_);
        web_server_->start();
        media_server_ = std::make_unique<RequestServer>(config_.endpoints.mediaserver,
                                                        ZMQ_Path::MediaServer_router_dealer_inproc,
                                                        *media_dispatcher_);
        media_server_->start();
        control_socket_ = std::make_unique<ControlSocket>(control_path_, *commands_);
        control_socket_->start();
    } catch (...) {
        stop();
        throw;
    }
    publisher_->publishAll();
    clock_ = std::thread([this] { runClock(); });
}

void Simulator::stop()
{
    if (!running_)
        return;
    running_ = false;
    stop_.trigger();
    if (clock_.joinable())
        clock_.join();
    if (control_socket_)
        control_socket_->stop();
    if (web_server_)
        web_server_->stop();
    if (media_server_)
        media_server_->stop();
    if (!config_.state_path.empty())
        saveStateFile(config_.state_path, state_->snapshot());
    if (publisher_)
        publisher_->stop();
    if (proxy_)
        proxy_->stop();
}

std::string Simulator::control(const std::string& line)
{
    if (!commands_)
        return "error: simulator not started";
    return commands_->execute(line);
}

std::vector<HandledRequest> Simulator::webRequests() const
{
    return web_dispatcher_ ? web_dispatcher_->journal() : std::vector<HandledRequest>{};
}

std::vector<HandledRequest> Simulator::mediaRequests() const
{
    return media_dispatcher_ ? media_dispatcher_->journal() : std::vector<HandledRequest>{};
}

void Simulator::runScript()
{
    if (config_.script_path.empty())
        return;
    std::ifstream script(config_.script_path);
    if (!script)
        throw std::runtime_error("cannot read script " + config_.script_path);
    int number = 0;
    for (std::string line; std::getline(script, line);) {
        ++number;
        const auto first = line.find_first_not_of(" \t");
        if (first == std::string::npos || line[first] == '#')
            continue;
        const std::string result = commands_->execute(line.substr(first));
        if (result.rfind("error", 0) == 0)
            throw std::runtime_error(config_.script_path + ":" + std::to_string(number) + ": "
                                     + result);
    }
}

void Simulator::runClock()
{
    while (!stop_.sleepFor(std::chrono::milliseconds(config_.tick_ms))) {
        state_->with([this](json& state) {
            advanceOneTick(state, rng_, std::time(nullptr));
            return 0;
        });
        publisher_->publishAll();
        saveIfChanged();
    }
}

void Simulator::onChange()
{
    state_->markChanged();
    if (publisher_)
        publisher_->publishChanged();
}

void Simulator::saveIfChanged()
{
    if (config_.state_path.empty() || state_->revision() == saved_revision_)
        return;
    saved_revision_ = state_->revision();
    saveStateFile(config_.state_path, state_->snapshot());
}

} // namespace sim
