// The box's log module: the console line of each level, whole however long.
// Neither the panel nor the simulator saves log files.
#include "transport/harvelin_log.h"

#include "support/qt_capture.h"

#include <gtest/gtest.h>

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

} // namespace
