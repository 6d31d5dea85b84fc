#include "model/vm_builders/backend_time_text.h"
#include "model/vm_builders/status_vm_builders.h"

#include <gtest/gtest.h>

using nlohmann::json;

namespace {

json clockReply(int year, int month, int day, int hour, int minute, int second)
{
    return {{"time",
             {{"year", year},
              {"month", month},
              {"day", day},
              {"hour", hour},
              {"minute", minute},
              {"second", second}}}};
}

TEST(BackendDateTimeTextTest, PadsEveryFieldWithZeros)
{
    QString date;
    QString time;
    buildBackendDateTimeText(clockReply(987, 3, 5, 7, 8, 9), date, time);
    EXPECT_EQ(date, "0987-03-05");
    EXPECT_EQ(time, "07:08:09");

    buildBackendDateTimeText(clockReply(2024, 12, 31, 23, 59, 58), date, time);
    EXPECT_EQ(date, "2024-12-31");
    EXPECT_EQ(time, "23:59:58");
}

TEST(BackendDateTimeTextTest, OtherShapesLeaveTheTextsAlone)
{
    json missing_second = clockReply(2024, 1, 2, 3, 4, 5);
    missing_second["time"].erase("second");
    json text_field = clockReply(2024, 1, 2, 3, 4, 5);
    text_field["time"]["month"] = "January";
    const json replies[] = {json(),
                            json::array({1, 2}),
                            json{{"date", "2024-01-02"}},
                            json{{"time", "12:00:00"}},
                            missing_second,
                            text_field};
    for (const json& reply : replies) {
        QString date = "keep-date";
        QString time = "keep-time";
        buildBackendDateTimeText(reply, date, time);
        EXPECT_EQ(date, "keep-date") << reply.dump();
        EXPECT_EQ(time, "keep-time") << reply.dump();
    }
}

TEST(StandbyPageVmTest, KeepsPlaceholdersWithoutAClockReply)
{
    const StandbyPageVM vm = computeStandbyPageVm("10.0.0.5", nullptr);
    EXPECT_EQ(vm.date_text, "----.--.--");
    EXPECT_EQ(vm.time_text, "--:--:--");
    EXPECT_EQ(vm.ip_text, "10.0.0.5");
}

TEST(StandbyPageVmTest, ShowsTheBackendClock)
{
    const json reply = clockReply(2025, 6, 7, 8, 9, 10);
    const StandbyPageVM vm = computeStandbyPageVm("10.0.0.5", &reply);
    EXPECT_EQ(vm.date_text, "2025-06-07");
    EXPECT_EQ(vm.time_text, "08:09:10");
}

TEST(DynamicScreensaverVmTest, CarriesModeStandbyAndClock)
{
    const json reply = clockReply(2025, 6, 7, 8, 9, 10);
    const DynamicScreensaverVM vm = computeDynamicScreensaverVm(true, 1, &reply);
    EXPECT_TRUE(vm.standby);
    EXPECT_EQ(vm.work_mode, 1);
    EXPECT_EQ(vm.time_text, "08:09:10");

    const DynamicScreensaverVM offline = computeDynamicScreensaverVm(false, 0, nullptr);
    EXPECT_EQ(offline.date_text, "----.--.--");
    EXPECT_EQ(offline.time_text, "--:--:--");
}

} // namespace
