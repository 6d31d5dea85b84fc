#pragma once
// The GoogleTest fixture of the end-to-end suite: one rig per test, started
// by the test with the device it needs, and on failure the tails of both
// logs in the report.
#include "panel_rig.h"

#include <gtest/gtest.h>

#include <memory>

namespace e2e {

class PanelTest : public ::testing::Test {
protected:
    // Starts the simulator and the panel; a start that fails fails the test
    // (wrap the call in ASSERT_NO_FATAL_FAILURE).
    void startRig(RigOptions options = {});
    void TearDown() override;

    std::unique_ptr<PanelRig> rig;
};

// Waits until the device's value at `pointer` equals `value`.
bool deviceReaches(PanelRig& rig, const std::string& pointer, const json& value,
                   std::chrono::milliseconds deadline = std::chrono::milliseconds(8000));

// The test pipe's command for a tap at `point`.
std::string tapAt(const QPoint& point);

// Device set-ups used by several tests.
RigOptions encodeDevice();
RigOptions decodeDevice();

} // namespace e2e
