#pragma once

#include "simulator.h"

#include <string>

namespace sim {

struct ParsedOptions {
    SimConfig config;
    bool show_help = false;
    std::string error; // non-empty: the command line was wrong
};

// Endpoints start from the environment (PANEL_BACKEND_IPC_DIR,
// PANEL_BACKEND_TOPIC_PORT) as the panel reads them; --ipc-dir and
// --topic-port override that.
ParsedOptions parseOptions(int argc, const char* const* argv);

const char* usageText();

} // namespace sim
