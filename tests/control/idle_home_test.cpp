// Return to home after idle time, page by page, on a hand-driven clock.
#include "control/idle_sleep_controller.h"
#include "control/manual_time_source.h"
#include "fake_surfaces.h"

#include <gtest/gtest.h>

using namespace controltest;

namespace {

class IdleHome : public ::testing::Test {
protected:
    void SetUp() override { idle.init_idle_home_timer(); }

    // The window's page switch: the page changes and the idle time restarts.
    void showPage(int page)
    {
        surfaces.page = page;
        idle.idle_home_time_refresh(page);
    }
    bool wentHome() const { return !surfaces.gotos.empty() && surfaces.gotos.back() == 0; }

    ManualTimeSource time;
    FakeSurfaces surfaces;
    IdleSleepController idle{nullptr, surfaces, time};
};

} // namespace

TEST_F(IdleHome, EachPageWaitsItsOwnTime)
{
    struct Case {
        int page;
        qint64 wait; // 0: never
    };
    for (const Case& c : {Case{22, 60000}, Case{27, 60000}, Case{5, 60000}, Case{34, 60000},
                          Case{32, 300000}, Case{1, 0}, Case{2, 0}, Case{21, 0}}) {
        SCOPED_TRACE(c.page);
        surfaces.gotos.clear();
        showPage(c.page);
        if (c.wait == 0) {
            EXPECT_FALSE(idle.isIdleHomeTimerActive());
            time.advance(3600000);
            EXPECT_TRUE(surfaces.gotos.empty());
            continue;
        }
        time.advance(c.wait - 1);
        EXPECT_TRUE(surfaces.gotos.empty());
        time.advance(1);
        EXPECT_TRUE(wentHome());
    }
}

TEST_F(IdleHome, EveryTouchStartsTheWaitAgain)
{
    showPage(16);
    time.advance(59000);
    idle.idle_home_time_refresh(-1); // a touch begin
    time.advance(59000);
    EXPECT_TRUE(surfaces.gotos.empty());
    time.advance(1000);
    EXPECT_TRUE(wentHome());
}

TEST_F(IdleHome, StandbyAndUpgradeStopTheWait)
{
    showPage(16);
    surfaces.standby_widget_visible = true;
    idle.idle_home_time_refresh(-1);
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
    time.advance(600000);
    EXPECT_TRUE(surfaces.gotos.empty());

    surfaces.standby_widget_visible = false;
    showPage(16);
    surfaces.upgrade_visible = true;
    // A timer that fires while the upgrade stands only re-judges.
    time.advance(60000);
    EXPECT_TRUE(surfaces.gotos.empty());
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
}

TEST_F(IdleHome, PageThatLostItsTimeoutIsReJudgedAtTimeout)
{
    showPage(16);
    surfaces.page = 1; // switched without a refresh
    time.advance(60000);
    EXPECT_TRUE(surfaces.gotos.empty());
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
}

TEST_F(IdleHome, StoppedTimerIgnoresRefreshes)
{
    idle.deinit_idle_home_timer();
    showPage(16);
    EXPECT_FALSE(idle.isIdleHomeTimerActive());
    time.advance(120000);
    EXPECT_TRUE(surfaces.gotos.empty());
}

TEST(WorkModeChange, OnlyARealChangeGoesHome)
{
    ManualTimeSource time;
    FakeSurfaces surfaces;
    IdleSleepController idle(nullptr, surfaces, time);
    surfaces.page = 16;
    idle.onWorkModeChanged(0);
    EXPECT_TRUE(surfaces.gotos.empty());
    idle.onWorkModeChanged(1);
    EXPECT_EQ(surfaces.gotos, std::vector<int>{0});
    EXPECT_EQ(idle.workMode(), 1);
    idle.onWorkModeChanged(1);
    EXPECT_EQ(surfaces.gotos.size(), 1u);
}
