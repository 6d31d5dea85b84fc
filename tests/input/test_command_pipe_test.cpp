// The named pipe: when it is opened, how it is made, and how bytes become lines.
#include "input/vantor_test_command_interface.h"
#include "support/qt_capture.h"
#include "support/test_support.h"
#include "test_command_recorder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <algorithm>

#include <cstdio>
#include <fcntl.h>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using testsupport::capturedStdout;
using testsupport::ScopedEnv;
using testsupport::waitUntil;

bool isFifo(const std::string& path)
{
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 && S_ISFIFO(info.st_mode);
}

bool pathExists(const std::string& path)
{
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0;
}

void writeFile(const std::string& path, const QByteArray& content)
{
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray readFile(const std::string& path)
{
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Each test starts with both variables unset and a switch file and pipe path
// inside its own folder, so nothing outside it is read or made.
class TestCommandPipe : public ::testing::Test {
protected:
    TestCommandPaths paths() const
    {
        TestCommandPaths p;
        p.switchFile = QString::fromStdString(switchFile);
        p.defaultFifoPath = QString::fromStdString(fifoPath);
        return p;
    }

    void switchOn() { writeFile(switchFile, "1"); }

    // Writes `bytes` into the pipe as a script would, in one write.
    void send(const QByteArray& bytes)
    {
        const int fd = ::open(fifoPath.c_str(), O_WRONLY | O_NONBLOCK);
        ASSERT_GE(fd, 0);
        EXPECT_EQ(::write(fd, bytes.constData(), static_cast<size_t>(bytes.size())),
                  static_cast<ssize_t>(bytes.size()));
        ::close(fd);
    }

    testsupport::TempDir dir;
    std::string switchFile = dir.file("vantor_gui_test_enable");
    std::string fifoPath = dir.file("vantor_gui_test_cmd");
    ScopedEnv switchEnv{VantorTestCommandInterface::kSwitchEnv, nullptr};
    ScopedEnv pathEnv{VantorTestCommandInterface::kPathEnv, nullptr};
    TestCommandRecorder shell;
};

// --- switching on -----------------------------------------------------------

struct SwitchCase {
    const char* name;
    const char* envValue; // null: unset
    bool switchFilePresent;
    bool enabled;
};

void PrintTo(const SwitchCase& c, std::ostream* os)
{
    *os << c.name;
}

class TestCommandSwitch : public TestCommandPipe,
                          public ::testing::WithParamInterface<SwitchCase> {};

TEST_P(TestCommandSwitch, DecidesFromVariableThenFile)
{
    const SwitchCase& c = GetParam();
    ScopedEnv env(VantorTestCommandInterface::kSwitchEnv, c.envValue);
    if (c.switchFilePresent)
        switchOn();
    VantorTestCommandInterface commands(&shell, nullptr, paths());

    EXPECT_EQ(commands.isRuntimeEnabled(), c.enabled);
    commands.start();
    EXPECT_EQ(commands.isOpen(), c.enabled);
    EXPECT_EQ(isFifo(fifoPath), c.enabled);
}

INSTANTIATE_TEST_SUITE_P(Cases, TestCommandSwitch,
                         ::testing::Values(SwitchCase{"nothing", nullptr, false, false},
                                           SwitchCase{"variable_one", "1", false, true},
                                           SwitchCase{"variable_any_word", "yes", false, true},
                                           SwitchCase{"variable_empty", "", false, false},
                                           SwitchCase{"variable_zero", "0", false, false},
                                           SwitchCase{"variable_false", "false", false, false},
                                           SwitchCase{"variable_false_any_case", "FaLsE", false,
                                                      false},
                                           SwitchCase{"file_only", nullptr, true, true},
                                           SwitchCase{"zero_with_file", "0", true, true},
                                           SwitchCase{"false_with_file", "false", true, true}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(TestCommandDefaults, PathsAreTheDevicesTmpFiles)
{
    const TestCommandPaths defaults;
    EXPECT_EQ(defaults.switchFile, "/tmp/vantor_gui_test_enable");
    EXPECT_EQ(defaults.defaultFifoPath, "/tmp/vantor_gui_test_cmd");

    ScopedEnv pathEnv(VantorTestCommandInterface::kPathEnv, nullptr);
    VantorTestCommandInterface commands(nullptr);
    EXPECT_EQ(commands.commandFifoPath(), QByteArray("/tmp/vantor_gui_test_cmd"));
}

TEST_F(TestCommandPipe, PathVariableReplacesTheDefaultPath)
{
    VantorTestCommandInterface commands(&shell, nullptr, paths());
    EXPECT_EQ(commands.commandFifoPath(), QByteArray::fromStdString(fifoPath));

    const std::string custom = dir.file("custom_cmd");
    ScopedEnv env(VantorTestCommandInterface::kPathEnv, custom.c_str());
    ScopedEnv on(VantorTestCommandInterface::kSwitchEnv, "1");
    EXPECT_EQ(commands.commandFifoPath(), QByteArray::fromStdString(custom));

    commands.start();
    EXPECT_TRUE(commands.isOpen());
    EXPECT_TRUE(isFifo(custom));
    EXPECT_FALSE(pathExists(fifoPath));
}

// --- making the pipe --------------------------------------------------------

TEST_F(TestCommandPipe, CreatesAPipeOnlyItsOwnerCanUse)
{
    switchOn();
    VantorTestCommandInterface commands(&shell, nullptr, paths());
    const mode_t oldMask = ::umask(0);
    commands.start();
    ::umask(oldMask);

    struct stat info {};
    ASSERT_EQ(::lstat(fifoPath.c_str(), &info), 0);
    EXPECT_TRUE(S_ISFIFO(info.st_mode));
    EXPECT_EQ(info.st_mode & 0777, 0600u);
    EXPECT_TRUE(commands.isOpen());
}

TEST_F(TestCommandPipe, ReusesAnExistingPipe)
{
    ASSERT_EQ(::mkfifo(fifoPath.c_str(), 0600), 0);
    switchOn();
    VantorTestCommandInterface commands(&shell, nullptr, paths());
    commands.start();
    ASSERT_TRUE(commands.isOpen());

    send("edge\n");
    EXPECT_TRUE(waitUntil([&] { return shell.calls == QStringList{"edge"}; }))
        << shell.calls.join(",").toStdString();
}

TEST_F(TestCommandPipe, LeavesARegularFileAloneAndStaysClosed)
{
    writeFile(fifoPath, "keep me");
    switchOn();
    VantorTestCommandInterface commands(&shell, nullptr, paths());

    const std::string out = capturedStdout([&] {
        EXPECT_FALSE(commands.ensureCommandFifo(QByteArray::fromStdString(fifoPath)));
        commands.start();
    });

    EXPECT_NE(out.find("Vantor test command path is not fifo: " + fifoPath + "\n"),
              std::string::npos)
        << out;
    EXPECT_FALSE(commands.isOpen());
    EXPECT_EQ(readFile(fifoPath), QByteArray("keep me"));
}

TEST_F(TestCommandPipe, RefusesALinkEvenToAPipe)
{
    const std::string realFifo = dir.file("real_fifo");
    ASSERT_EQ(::mkfifo(realFifo.c_str(), 0600), 0);
    ASSERT_EQ(::symlink(realFifo.c_str(), fifoPath.c_str()), 0);
    VantorTestCommandInterface commands(&shell, nullptr, paths());

    EXPECT_FALSE(commands.ensureCommandFifo(QByteArray::fromStdString(fifoPath)));
}

TEST_F(TestCommandPipe, ReportsAPipeThatCannotBeMade)
{
    const std::string unreachable = dir.file("missing_dir/cmd");
    ScopedEnv env(VantorTestCommandInterface::kPathEnv, unreachable.c_str());
    switchOn();
    VantorTestCommandInterface commands(&shell, nullptr, paths());

    const std::string out = capturedStdout([&] { commands.start(); });

    EXPECT_NE(out.find("Failed to create Vantor test command fifo " + unreachable + ", errno="),
              std::string::npos)
        << out;
    EXPECT_FALSE(commands.isOpen());
}

TEST_F(TestCommandPipe, StopClosesAndAStartWhileOpenDoesNothing)
{
    switchOn();
    VantorTestCommandInterface commands(&shell, nullptr, paths());
    commands.start();
    ASSERT_TRUE(commands.isOpen());

    const std::string secondStart = capturedStdout([&] { commands.start(); });
    EXPECT_EQ(secondStart.find("fifo enabled"), std::string::npos) << secondStart;

    commands.stop();
    EXPECT_FALSE(commands.isOpen());
    commands.handleReadyRead(); // closed: must not touch a stale descriptor
    EXPECT_TRUE(shell.calls.isEmpty());
}

// --- lines ------------------------------------------------------------------

class TestCommandLines : public TestCommandPipe {
protected:
    void SetUp() override
    {
        switchOn();
        commands.start();
        ASSERT_TRUE(commands.isOpen());
    }

    bool callsBecome(const QStringList& expected)
    {
        return waitUntil([&] { return shell.calls == expected; }, std::chrono::seconds(3));
    }

    VantorTestCommandInterface commands{&shell, nullptr, paths()};
};

TEST_F(TestCommandLines, RunsEveryCommandOfOneWriteInOrder)
{
    send("swipe left\ngoto 3\nGUIDE hide\n");
    EXPECT_TRUE(callsBecome({"swipeLeft", "goto:3", "hideGuide"}))
        << shell.calls.join(",").toStdString();
}

TEST_F(TestCommandLines, KeepsAPartialLineUntilItsLineEnd)
{
    send("goto 1");
    ASSERT_TRUE(waitUntil([&] { return commands.pendingBytes() == 6; }));
    EXPECT_TRUE(shell.calls.isEmpty());

    send("2\nswipe");
    EXPECT_TRUE(callsBecome({"goto:12"})) << shell.calls.join(",").toStdString();
    send(" up\n");
    EXPECT_TRUE(callsBecome({"goto:12", "swipeUp"})) << shell.calls.join(",").toStdString();
    EXPECT_EQ(commands.pendingBytes(), 0);
}

TEST_F(TestCommandLines, ReadsALineLongerThanOneChunk)
{
    const QByteArray padding(3 * VantorTestCommandInterface::kReadChunk, ' ');
    send("goto 7" + padding + "\n");
    EXPECT_TRUE(callsBecome({"goto:7"})) << shell.calls.join(",").toStdString();
}

TEST_F(TestCommandLines, TextStopsAtAZeroByteAndBlankLinesAreSkipped)
{
    send(QByteArray("\n  \nswipe right\0goto 4\n", 23));
    EXPECT_TRUE(callsBecome({"swipeRight"})) << shell.calls.join(",").toStdString();
}

TEST_F(TestCommandLines, KeepsUpToTheLimitWithoutALineEnd)
{
    const int limit = VantorTestCommandInterface::kBufferLimit;
    send("goto 5" + QByteArray(limit - 6, ' '));
    commands.handleReadyRead(); // the bytes are in the pipe once write returns
    EXPECT_EQ(commands.pendingBytes(), limit);

    send("\n");
    EXPECT_TRUE(callsBecome({"goto:5"})) << shell.calls.join(",").toStdString();
}

TEST_F(TestCommandLines, DropsWholeALineOverTheLimit)
{
    const int limit = VantorTestCommandInterface::kBufferLimit;
    send("goto 5" + QByteArray(limit - 5, ' '));
    const std::string out = capturedStdout([&] { commands.handleReadyRead(); });
    EXPECT_NE(out.find("Vantor test command buffer overflow, clearing stale data.\n"),
              std::string::npos)
        << out;
    EXPECT_EQ(commands.pendingBytes(), 0);

    // Had the start been kept, this line end would complete "goto 5".
    send("\nedge\n");
    EXPECT_TRUE(callsBecome({"edge"})) << shell.calls.join(",").toStdString();
}

TEST_F(TestCommandLines, AcceptsOneScriptAfterAnother)
{
    send("touchbegin\n");
    ASSERT_TRUE(callsBecome({"touchBegin"}));
    send("refresh\n");
    EXPECT_TRUE(callsBecome({"touchBegin", "refresh:0"})) << shell.calls.join(",").toStdString();
}

// Access modes (O_RDONLY, O_WRONLY) of this process's descriptors on `path`.
QList<int> openModesOn(const std::string& path)
{
    struct stat target {};
    if (::stat(path.c_str(), &target) != 0)
        return {};
    QList<int> modes;
    for (const QString& name : QDir("/proc/self/fd").entryList(QDir::Files | QDir::System)) {
        const int fd = name.toInt();
        struct stat info {};
        if (::fstat(fd, &info) == 0 && info.st_dev == target.st_dev && info.st_ino == target.st_ino)
            modes << (::fcntl(fd, F_GETFL) & O_ACCMODE);
    }
    std::sort(modes.begin(), modes.end());
    return modes;
}

TEST_F(TestCommandLines, HoldsItsOwnWriterSoTheLastScriptClosingIsNoEndOfFile)
{
    EXPECT_EQ(openModesOn(fifoPath), (QList<int>{O_RDONLY, O_WRONLY}));

    commands.stop();
    EXPECT_TRUE(openModesOn(fifoPath).isEmpty());
}

} // namespace
