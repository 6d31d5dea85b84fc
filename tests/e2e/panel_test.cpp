#include "panel_test.h"

#include "eventually.h"

#include <exception>

namespace e2e {

void PanelTest::startRig(RigOptions options)
{
    rig = std::make_unique<PanelRig>(std::move(options));
    try {
        rig->start();
    } catch (const std::exception& e) {
        FAIL() << e.what();
    }
}

void PanelTest::TearDown()
{
    if (!rig || !HasFailure())
        return;
    const auto* info = ::testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(info->test_suite_name()) + "." + info->name();
    ADD_FAILURE() << "state at the end of " << name << ":\n" << rig->diagnostics(name);
}

bool deviceReaches(PanelRig& rig, const std::string& pointer, const json& value,
                   std::chrono::milliseconds deadline)
{
    return eventually([&] { return rig.sim().get(pointer) == value; }, deadline);
}

RigOptions encodeDevice()
{
    return {};
}

RigOptions decodeDevice()
{
    RigOptions options;
    options.device_setup.push_back("workmode 1");
    return options;
}

std::string tapAt(const QPoint& point)
{
    return "tap " + std::to_string(point.x()) + " " + std::to_string(point.y());
}

} // namespace e2e
