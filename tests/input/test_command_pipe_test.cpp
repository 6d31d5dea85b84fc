// The named pipe: when it is opened, how it is made, and how the bytes that
// scripts write become command lines.
#include "input/vantor_test_command_interface.h"
#include "support/qt_capture.h"
#include "support/test_support.h"
#include "test_command_recorder.h"

#include <gtest/gtest.h>

#include <QFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using testsupport::ScopedEnv;
using testsupport::waitUntil;
using Interface = VantorTestCommandInterface;

bool isFifo(const std::string& path)
{
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0 && S_ISFIFO(info.st_mode);
}

void writeFile(const std::string& path, const QByteArray& content)
{
    QFile file(QString::fromStdString(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// Both variables unset, and the switch file and the pipe inside the test's
// own folder, so that nothing outside it is read or made.
class TestCommandPipe : public ::testing::Test {
protected:
    TestCommandPaths paths() const
    {
        return {QString::fromStdString(switchFile), QString::fromStdString(fifoPath)};
    }
    void switchOn() { writeFile(switchFile, "1"); }
    // Writes `bytes` into the pipe in one write, as a script would.
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
    ScopedEnv switchEnv{Interface::kSwitchEnv, nullptr};
    ScopedEnv pathEnv{Interface::kPathEnv, nullptr};
    TestCommandRecorder shell;
};

TEST_F(TestCommandPipe, SwitchedOnByTheVariableElseByTheFile)
{
    struct Case {
        const char* variable; // null: unset
        bool file;
        bool enabled;
    };
    const Case cases[] = {{nullptr, false, false}, {"yes", false, true},    {"", false, false},
                          {"0", false, false},     {"FaLsE", false, false}, {nullptr, true, true},
                          {"0", true, true}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << (c.variable ? c.variable : "unset") << " " << c.file);
        ::unlink(switchFile.c_str());
        ::unlink(fifoPath.c_str());
        ScopedEnv variable(Interface::kSwitchEnv, c.variable);
        if (c.file)
            switchOn();
        Interface commands(&shell, nullptr, paths());
        EXPECT_EQ(commands.isRuntimeEnabled(), c.enabled);
        commands.start();
        EXPECT_EQ(commands.isOpen(), c.enabled);
        EXPECT_EQ(isFifo(fifoPath), c.enabled) << "no pipe unless switched on";
    }
}

TEST_F(TestCommandPipe, MakesAPipeWhereThePathVariableSays)
{
    EXPECT_EQ(Interface(&shell).commandFifoPath(), QByteArray("/tmp/vantor_gui_test_cmd"));
    const std::string custom = dir.file("custom_cmd");
    ScopedEnv path(Interface::kPathEnv, custom.c_str());
    switchOn();
    Interface commands(&shell, nullptr, paths());
    commands.start();
    EXPECT_TRUE(commands.isOpen());
    EXPECT_TRUE(isFifo(custom));
    EXPECT_FALSE(QFile::exists(QString::fromStdString(fifoPath)));
}

// A pipe left by an earlier run is used again, but not through a link, which
// anyone could have put in a shared folder; once stopped, nothing is read.
TEST_F(TestCommandPipe, ReusesAPipeButNotALinkToOne)
{
    ASSERT_EQ(::mkfifo(fifoPath.c_str(), 0600), 0);
    switchOn();
    Interface commands(&shell, nullptr, paths());
    commands.start();
    ASSERT_TRUE(commands.isOpen());
    send("edge\n");
    EXPECT_TRUE(waitUntil([&] { return shell.calls == QStringList{"edge"}; }));
    commands.stop();
    EXPECT_FALSE(commands.isOpen());
    commands.handleReadyRead(); // closed: must not touch a stale descriptor
    EXPECT_EQ(shell.calls, QStringList{"edge"});

    const std::string elsewhere = dir.file("elsewhere");
    ASSERT_EQ(::rename(fifoPath.c_str(), elsewhere.c_str()), 0);
    ASSERT_EQ(::symlink(elsewhere.c_str(), fifoPath.c_str()), 0);
    commands.start();
    EXPECT_FALSE(commands.isOpen());
}

class TestCommandLines : public TestCommandPipe {
protected:
    void SetUp() override
    {
        switchOn();
        commands.start();
        ASSERT_TRUE(commands.isOpen());
    }
    Interface commands{&shell, nullptr, paths()};
};

TEST_F(TestCommandLines, EachCompleteLineRunsInOrderAndAPartialOneWaits)
{
    struct Write {
        QByteArray bytes;
        QStringList calls; // the calls so far
        int pending;
    };
    const Write writes[] = {
        {"swipe left\ngoto 3\nGUIDE hide\n", {"swipeLeft", "goto:3", "hideGuide"}, 0},
        {"goto 1", {"swipeLeft", "goto:3", "hideGuide"}, 6},
        {"2\nswipe", {"swipeLeft", "goto:3", "hideGuide", "goto:12"}, 5},
        {" up\n", {"swipeLeft", "goto:3", "hideGuide", "goto:12", "swipeUp"}, 0},
        // Longer than one read, then blank lines and text that stops at a zero byte.
        {"edge" + QByteArray(3 * Interface::kReadChunk, ' ')
             + QByteArray("\n\n  \nrefresh\0goto 4\n", 20),
         {"swipeLeft", "goto:3", "hideGuide", "goto:12", "swipeUp", "edge", "refresh:0"},
         0},
    };
    for (const Write& w : writes) {
        send(w.bytes);
        EXPECT_TRUE(waitUntil([&] {
            return shell.calls == w.calls && commands.pendingBytes() == w.pending;
        })) << shell.calls.join(",").toStdString()
            << " pending " << commands.pendingBytes();
    }
}

TEST_F(TestCommandLines, KeepsUpToTheLimitWithoutALineEndAndDropsMoreWhole)
{
    const int limit = Interface::kBufferLimit;
    send("goto 5" + QByteArray(limit - 6, ' '));
    commands.handleReadyRead(); // the bytes are in the pipe once write returns
    EXPECT_EQ(commands.pendingBytes(), limit);
    send("\n");
    ASSERT_TRUE(waitUntil([&] { return shell.calls == QStringList{"goto:5"}; }));

    send("goto 6" + QByteArray(limit - 5, ' '));
    commands.handleReadyRead();
    EXPECT_EQ(commands.pendingBytes(), 0);
    send("\nedge\n"); // had the start been kept, this would complete "goto 6"
    EXPECT_TRUE(waitUntil([&] {
        return shell.calls == QStringList{"goto:5", "edge"};
    })) << shell.calls.join(",").toStdString();
}

} // namespace
