#include "transport/systime.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <regex>

namespace {

TEST(SysTime, MillisecondsFollowMicroseconds)
{
    const uint64_t us = getsystimeUS();
    const uint64_t ms = getsystimeMS();
    EXPECT_GE(ms, us / 1000);
    EXPECT_LT(ms - us / 1000, 1000u);
}

TEST(SysTime, DelaySleepsAtLeastTheGivenTime)
{
    const auto start = std::chrono::steady_clock::now();
    delayMS(20);
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(20));
}

TEST(SysTime, UptimeIsPositive)
{
    EXPECT_GT(getuptimeS(), 0);
}

TEST(SysTime, TimeStringHasMilliseconds)
{
    char text[32];
    ASSERT_EQ(get_current_time_str(text, sizeof(text), 1), 0);
    EXPECT_TRUE(std::regex_match(text, std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3})")))
        << text;
    ASSERT_EQ(get_current_time_str(text, sizeof(text), 0), 0);
    EXPECT_EQ(std::strlen(text), 23u);
    EXPECT_EQ(get_current_time_str(text, 10, 0), -1);
}

} // namespace
