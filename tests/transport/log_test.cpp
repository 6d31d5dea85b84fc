#include "transport/harvelin_log.h"

#include "support/qt_capture.h"
#include "support/test_support.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace {

std::string readFile(const std::string& path)
{
    std::ifstream in(path);
    std::stringstream content;
    content << in.rdbuf();
    return content.str();
}

bool exists(const std::string& path)
{
    struct stat info {};
    return stat(path.c_str(), &info) == 0;
}

TEST(LogConsole, EachLevelPrintsItsOwnFormatWithoutAddingALineFeed)
{
    EXPECT_EQ(testsupport::capturedStdout(
                  [] { DB_LOG("../zmq_sub_worker", "process", 42, "value %d\n", 7); }),
              "|-> ../zmq_sub_worker->process (line:42)] value 7\n");
    EXPECT_EQ(testsupport::capturedStdout([] { ERR_LOG("a.cpp", "run", 3, "bad %s", "thing"); }),
              "|-> \033[0;31m ERROR! [a.cpp->run (line:3) bad thing\033[0m");
    EXPECT_EQ(testsupport::capturedStdout([] { WAR_LOG("b.cpp", "tick", 9, "careful\n"); }),
              "|-> \033[0;35m WARNING! [b.cpp->tick (line:9) careful\n\033[0m");
}

TEST(LogConsole, LongMessagesArePrintedWhole)
{
    const std::string long_text(5000, 'x');
    const std::string printed =
        testsupport::capturedStdout([&] { DB_LOG("f", "g", 1, "%s", long_text.c_str()); });
    EXPECT_NE(printed.find(long_text), std::string::npos);
}

// A clock the tests can set, for the date header at midnight.
time_t g_fake_now = 0;
time_t fakeClock()
{
    return g_fake_now;
}

time_t localTime(int year, int month, int day, int hour, int minute, int second)
{
    struct tm parts {};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    parts.tm_isdst = -1;
    return mktime(&parts);
}

class LogFileTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        log_set_dirpath(dir.path().c_str());
        log_set_clock(&fakeClock);
        g_fake_now = localTime(2024, 3, 9, 12, 0, 0);
    }
    void TearDown() override
    {
        if (log_saveflag_get() != 0)
            testsupport::capturedStdout([] { log_exit(); });
        log_set_clock(nullptr);
        log_set_dirpath(nullptr);
    }

    std::string logFile() const { return dir.file("webserver.log"); }

    testsupport::TempDir dir;
};

TEST_F(LogFileTest, WithoutInitNothingIsSaved)
{
    ASSERT_EQ(log_saveflag_get(), 0);
    testsupport::capturedStdout([] { ERR_LOG("f", "g", 1, "console only\n"); });
    EXPECT_EQ(log_save(), 0);
    EXPECT_FALSE(exists(logFile()));
}

TEST_F(LogFileTest, SavedLinesCarryLevelAndTimeAndGoToTheProcessFile)
{
    testsupport::capturedStdout([] { log_init(LOG_WEBSERVER); });
    EXPECT_EQ(log_saveflag_get(), 1);
    EXPECT_STREQ(log_get_filepath(LOG_WEBSERVER), logFile().c_str());

    testsupport::capturedStdout([] {
        DB_LOG("f", "g", 1, "first\n");
        ERR_LOG("f", "g", 2, "second\n");
        WAR_LOG("f", "g", 3, "third\n");
    });
    EXPECT_EQ(log_save(), 0);
    EXPECT_EQ(readFile(logFile()),
              "DBG[<12:00:00>] first\nERR[<12:00:00>] second\nWAR[<12:00:00>] third\n");

    // The next save appends what came after, from the other buffer.
    testsupport::capturedStdout([] { DB_LOG("f", "g", 4, "fourth\n"); });
    EXPECT_EQ(log_save(), 0);
    EXPECT_NE(readFile(logFile()).find("third\nDBG[<12:00:00>] fourth\n"), std::string::npos);
}

TEST_F(LogFileTest, MessageOverTheSaveLimitIsPrintedButNotSaved)
{
    testsupport::capturedStdout([] { log_init(LOG_WEBSERVER); });
    const std::string limit(256, 'a');
    const std::string over(257, 'b');
    int over_result = 0;
    const std::string printed = testsupport::capturedStdout([&] {
        EXPECT_EQ(DB_LOG("f", "g", 1, "%s", limit.c_str()), 0);
        over_result = DB_LOG("f", "g", 2, "%s", over.c_str());
    });
    EXPECT_EQ(over_result, -1);
    EXPECT_NE(printed.find("Logs too long,can not save!"), std::string::npos);
    EXPECT_NE(printed.find(over), std::string::npos);

    ASSERT_EQ(log_save(), 0);
    const std::string saved = readFile(logFile());
    EXPECT_NE(saved.find(limit), std::string::npos);
    EXPECT_EQ(saved.find('b'), std::string::npos);
}

TEST_F(LogFileTest, FirstLineAfterMidnightCarriesTheDateHeader)
{
    g_fake_now = localTime(2024, 3, 9, 23, 59, 59);
    testsupport::capturedStdout([] { log_init(LOG_MEDIASERVER); });
    testsupport::capturedStdout([] {
        DB_LOG("f", "g", 1, "late\n");
        g_fake_now = localTime(2024, 3, 10, 0, 0, 1);
        DB_LOG("f", "g", 2, "early\n");
        DB_LOG("f", "g", 3, "later\n");
    });
    ASSERT_EQ(log_save(), 0);
    EXPECT_EQ(readFile(dir.file("mediaserver.log")),
              "DBG[<23:59:59>] late\n"
              " --- <2024-03-10> --- \nDBG[<00:00:01>] early\n"
              "DBG[<00:00:01>] later\n");
}

TEST_F(LogFileTest, SystemAttributesAreSavedAtOnce)
{
    testsupport::capturedStdout([] { log_init(LOG_MISCSERVER); });
    const std::string printed = testsupport::capturedStdout([] { log_system_attr_save("cpu=4"); });
    EXPECT_EQ(printed, "cpu=4 \n");
    EXPECT_EQ(readFile(dir.file("miscserver.log")),
              "--------- SYSTEM ATTR [<2024-03-09 12:00:00>] ---------\n cpu=4\n");
}

TEST_F(LogFileTest, RemoveAllOnlyWhenNotSaving)
{
    testsupport::capturedStdout([] { log_init(LOG_WEBSERVER); });
    testsupport::capturedStdout([] { DB_LOG("f", "g", 1, "x\n"); });
    ASSERT_EQ(log_save(), 0);
    ASSERT_TRUE(exists(logFile()));
    EXPECT_EQ(log_remove_all(), -1);
    EXPECT_TRUE(exists(logFile()));

    testsupport::capturedStdout([] { log_exit(); });
    EXPECT_EQ(log_remove_all(), 0);
    EXPECT_FALSE(exists(logFile()));
    EXPECT_TRUE(exists(dir.path()));
}

TEST(LogPaths, DeviceFolderAndFileNamesByProcess)
{
    log_set_dirpath(nullptr);
    EXPECT_STREQ(log_get_dirpath(), "//mnt/appslog/");
    EXPECT_STREQ(log_get_filename(LOG_MEDIASERVER), "mediaserver.log");
    EXPECT_STREQ(log_get_filename(LOG_ADPCHIPSSERVER), "adpchipsserver.log");
    EXPECT_STREQ(log_get_filepath(LOG_WEBSERVER), "//mnt/appslog/webserver.log");
    EXPECT_STREQ(log_get_webdownload_path(LOG_MISCSERVER), "//mnt/appslog/miscserver.log");
}

TEST(RugLog, LinesAreAppendedAndFlushedAtOnce)
{
    testsupport::TempDir dir;
    const std::string path = dir.file("rug.log");
    ASSERT_EQ(ruglog_init_path(path.c_str()), 0);
    const std::string printed = testsupport::capturedStdout([] {
        RUG_VERSION_LOG("1.2.3");
        RUG_LOG("plain %d\n", 1);
        RUG_TLOG("timed\n");
    });
    const std::string written = readFile(path);
    ruglog_exit();

    EXPECT_NE(printed.find("version=1.2.3"), std::string::npos);
    EXPECT_NE(written.find("\nfirmware version [1.2.3]\n"), std::string::npos);
    EXPECT_NE(written.find("plain 1\n"), std::string::npos);
    const size_t timed = written.find("timed\n");
    ASSERT_NE(timed, std::string::npos);
    ASSERT_GE(timed, 10u);
    EXPECT_EQ(written[timed - 10], '<');
    EXPECT_EQ(written[timed - 1], '>');
}

TEST(RugLog, UnopenablePathFails)
{
    testsupport::capturedStdout(
        [] { EXPECT_EQ(ruglog_init_path("/nonexistent-dir/x/rug.log"), -1); });
}

} // namespace
