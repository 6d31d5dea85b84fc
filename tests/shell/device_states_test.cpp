// Idle time as the window carries it: it leaves a modal flow for home.
#include "panel_window.h"

#include "control/idle_sleep_controller.h"
#include "control/modal_openings.h"

#include <gtest/gtest.h>

using namespace shelltest;

TEST(ShellIdle, IdleTimeLeavesAModalFlowForHome)
{
    PanelOptions options;
    options.manual_time = true; // the idle timer runs on the test's clock
    PanelWindow panel(options);
    ASSERT_TRUE(panel.waitForMainUi());
    panel.w().enterEditMode(EDIT_LANGUAGE, PAGE_SYSTEM_SETTINGS_1, 1);
    ASSERT_TRUE(panel.w().isModalActive());
    panel.clock().advance(IdleSleepController::kDefaultIdleHomeMs);
    EXPECT_EQ(panel.shownPageId(), PAGE_STATUS_1);
    EXPECT_FALSE(panel.w().isModalActive());
}
