#include "state/state_file.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace sim {

using json = nlohmann::json;

json loadStateFile(const std::string& path, const json& defaults)
{
    std::ifstream in(path);
    if (!in)
        throw std::runtime_error("cannot read state file " + path);
    json loaded;
    try {
        in >> loaded;
    } catch (const json::exception& e) {
        throw std::runtime_error("state file " + path + " is no JSON: " + e.what());
    }
    if (!loaded.is_object())
        throw std::runtime_error("state file " + path + " holds no JSON object");
    json state = defaults;
    state.merge_patch(loaded);
    return state;
}

bool saveStateFile(const std::string& path, const json& state)
{
    const std::string temporary = path + ".tmp";
    {
        std::ofstream out(temporary, std::ios::trunc);
        if (!out)
            return false;
        out << state.dump(2) << '\n';
        if (!out.flush())
            return false;
    }
    return std::rename(temporary.c_str(), path.c_str()) == 0;
}

} // namespace sim
