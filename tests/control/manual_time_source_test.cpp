// The hand-driven clock that the timer tests rely on.
#include "control/manual_time_source.h"

#include <gtest/gtest.h>

#include <vector>

TEST(ManualTimeSource, FiresDueTimersInDeadlineOrderAtTheirOwnTime)
{
    ManualTimeSource time;
    std::vector<std::pair<char, qint64>> fired;
    auto a = time.createSingleShot([&] { fired.push_back({'a', time.nowMs()}); });
    auto b = time.createSingleShot([&] { fired.push_back({'b', time.nowMs()}); });
    a->start(300);
    b->start(100);
    EXPECT_EQ(time.nextDeadlineIn(), 100);
    time.advance(250);
    ASSERT_EQ(fired.size(), 1u);
    EXPECT_EQ(fired[0], std::make_pair('b', qint64(100)));
    EXPECT_FALSE(b->isActive());
    time.advance(50);
    ASSERT_EQ(fired.size(), 2u);
    EXPECT_EQ(fired[1], std::make_pair('a', qint64(300)));
    EXPECT_EQ(time.nextDeadlineIn(), -1);
}

TEST(ManualTimeSource, TimerRestartedFromItsCallbackFiresAgainWithinTheSameAdvance)
{
    ManualTimeSource time;
    int count = 0;
    std::unique_ptr<ControlTimer> timer;
    timer = time.createSingleShot([&] {
        if (++count < 3)
            timer->start(1000);
    });
    timer->start(1000);
    time.advance(10000);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(time.nowMs(), 10000);
}

TEST(ManualTimeSource, StoppedOrDestroyedTimersNeverFire)
{
    ManualTimeSource time;
    int count = 0;
    auto stopped = time.createSingleShot([&] { ++count; });
    stopped->start(10);
    stopped->stop();
    {
        auto gone = time.createSingleShot([&] { ++count; });
        gone->start(10);
        EXPECT_EQ(time.activeTimerCount(), 1);
    }
    EXPECT_EQ(time.activeTimerCount(), 0);
    time.advance(100);
    EXPECT_EQ(count, 0);
}
