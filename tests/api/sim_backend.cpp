#include "sim_backend.h"

#include <sstream>

namespace apitest {

void expectDeviceState(const testsupport::SimFixture& device, const std::string& states)
{
    std::istringstream in(states);
    for (std::string state; in >> state;) {
        const std::size_t equals = state.find('=');
        EXPECT_EQ(device.at(state.substr(0, equals)), json::parse(state.substr(equals + 1)))
            << state;
    }
}

} // namespace apitest
