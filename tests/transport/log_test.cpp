// The box's log module: the console line of each level, and the saved file
// with level and time stamps, its size limit and the date header.
#include "transport/harvelin_log.h"

#include "support/qt_capture.h"
#include "support/test_support.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace {

using testsupport::capturedStdout;

TEST(LogConsole, EachLevelPrintsItsOwnFormatWholeAndAddsNoLineFeed)
{
    EXPECT_EQ(capturedStdout([] { DB_LOG("../zmq_sub_worker", "process", 42, "value %d\n", 7); }),
              "|-> ../zmq_sub_worker->process (line:42)] value 7\n");
    EXPECT_EQ(capturedStdout([] { ERR_LOG("a.cpp", "run", 3, "bad %s", "thing"); }),
              "|-> \033[0;31m ERROR! [a.cpp->run (line:3) bad thing\033[0m");
    EXPECT_EQ(capturedStdout([] { WAR_LOG("b.cpp", "tick", 9, "careful\n"); }),
              "|-> \033[0;35m WARNING! [b.cpp->tick (line:9) careful\n\033[0m");
    const std::string long_text(5000, 'x');
    EXPECT_NE(capturedStdout([&] { DB_LOG("f", "g", 1, "%s", long_text.c_str()); }).find(long_text),
              std::string::npos);
}

// A clock the test sets, for the line times and the date header.
time_t g_now = 0;
time_t testClock()
{
    return g_now;
}
time_t localTime(const char* text)
{
    struct tm parts {};
    strptime(text, "%Y-%m-%d %H:%M:%S", &parts);
    parts.tm_isdst = -1;
    return mktime(&parts);
}

TEST(LogFile, SavedLinesCarryLevelTimeAndDateHeaderAndOverlongOnesAreOnlyPrinted)
{
    testsupport::TempDir dir;
    log_set_dirpath(dir.path().c_str());
    log_set_clock(&testClock);
    g_now = localTime("2024-03-09 23:59:59");
    capturedStdout([] { DB_LOG("f", "g", 1, "before init\n"); });
    capturedStdout([] { log_init(LOG_MEDIASERVER); });
    EXPECT_EQ(log_get_filepath(LOG_MEDIASERVER), dir.file("mediaserver.log"));

    const std::string at_limit(255, 'a'); // 256 with its line feed
    const std::string over(257, 'b');
    int results[2] = {};
    const std::string printed = capturedStdout([&] {
        ERR_LOG("f", "g", 2, "late\n");
        results[0] = WAR_LOG("f", "g", 3, "%s\n", at_limit.c_str());
        results[1] = DB_LOG("f", "g", 4, "%s", over.c_str());
        g_now = localTime("2024-03-10 00:00:01");
        DB_LOG("f", "g", 5, "early\n");
        DB_LOG("f", "g", 6, "later\n");
    });
    EXPECT_EQ(results[0], 0);
    EXPECT_EQ(results[1], -1);
    EXPECT_NE(printed.find("Logs too long,can not save!"), std::string::npos);
    EXPECT_NE(printed.find(over), std::string::npos);
    ASSERT_EQ(log_save(), 0);
    capturedStdout([] { DB_LOG("f", "g", 7, "after the save\n"); });
    ASSERT_EQ(log_save(), 0);
    capturedStdout([] { log_exit(); });
    log_set_clock(nullptr);
    log_set_dirpath(nullptr);

    std::stringstream saved;
    saved << std::ifstream(dir.file("mediaserver.log")).rdbuf();
    EXPECT_EQ(saved.str(), "ERR[<23:59:59>] late\nWAR[<23:59:59>] " + at_limit
                               + "\n --- <2024-03-10> --- \nDBG[<00:00:01>] early\n"
                                 "DBG[<00:00:01>] later\nDBG[<00:00:01>] after the save\n");
}

} // namespace
