#include "sim_options.h"

#include <cstdlib>
#include <functional>
#include <map>

namespace sim {

namespace {

bool parsePositive(const std::string& text, int high, int& value)
{
    char* end = nullptr;
    const long parsed = std::strtol(text.c_str(), &end, 10);
    if (text.empty() || *end != '\0' || parsed < 1 || parsed > high)
        return false;
    value = static_cast<int>(parsed);
    return true;
}

} // namespace

const char* usageText()
{
    return "usage: panel-sim [--ipc-dir DIR] [--topic-port N] [--control PATH] [--script FILE]\n"
           "                 [--state FILE] [--tick-ms N] [--quiet] [--help]\n"
           "  --ipc-dir DIR    serve webserver.sock and mediaserver.sock in DIR\n"
           "  --topic-port N   topic proxy: subscribers on N, publishers on N+1 (loopback)\n"
           "  --control PATH   control socket (default panel-sim.ctl beside webserver.sock)\n"
           "  --script FILE    control commands to run at start, one per line\n"
           "  --state FILE     start from this JSON state and save back to it\n"
           "  --tick-ms N      device clock and topic round, default 1000\n"
           "  --quiet          no request log\n";
}

ParsedOptions parseOptions(int argc, const char* const* argv)
{
    ParsedOptions parsed;
    SimConfig& config = parsed.config;
    config.endpoints = BackendEndpoints::fromEnvironment();

    using Setter = std::function<bool(const std::string&)>;
    const std::map<std::string, Setter> with_value = {
        {"--ipc-dir",
         [&](const std::string& dir) {
             const BackendEndpoints moved = BackendEndpoints::local(dir, 1);
             config.endpoints.webserver = moved.webserver;
             config.endpoints.mediaserver = moved.mediaserver;
             return !dir.empty();
         }},
        {"--topic-port",
         [&](const std::string& text) {
             int port = 0;
             if (!parsePositive(text, 65534, port))
                 return false;
             const BackendEndpoints moved = BackendEndpoints::local("", port);
             config.endpoints.topics_sub = moved.topics_sub;
             config.endpoints.topics_pub = moved.topics_pub;
             return true;
         }},
        {"--control",
         [&](const std::string& path) {
             config.control_path = path;
             return !path.empty();
         }},
        {"--script",
         [&](const std::string& path) {
             config.script_path = path;
             return !path.empty();
         }},
        {"--state",
         [&](const std::string& path) {
             config.state_path = path;
             return !path.empty();
         }},
        {"--tick-ms",
         [&](const std::string& text) { return parsePositive(text, 60000, config.tick_ms); }},
    };

    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--help" || option == "-h") {
            parsed.show_help = true;
            continue;
        }
        if (option == "--quiet") {
            config.quiet = true;
            continue;
        }
        const auto it = with_value.find(option);
        if (it == with_value.end()) {
            parsed.error = "unknown option " + option;
            return parsed;
        }
        if (i + 1 >= argc) {
            parsed.error = option + " needs a value";
            return parsed;
        }
        if (!it->second(argv[++i])) {
            parsed.error = "bad value for " + option + ": " + argv[i];
            return parsed;
        }
    }
    return parsed;
}

} // namespace sim
