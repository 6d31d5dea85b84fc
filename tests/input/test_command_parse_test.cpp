// How one command line becomes calls on the shell, bad lines included.
#include "input/vantor_test_command_interface.h"
#include "support/qt_capture.h"
#include "test_command_recorder.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace {

TEST(TestCommand, EachLineReachesItsShellOperationOrNothing)
{
    const std::pair<const char*, QStringList> cases[] = {
        {"goto 0", {"goto:0"}},
        {"goto 34", {"goto:34"}},
        {"GOTO 5", {"goto:5"}},
        {"goto 12 now", {"goto:12"}},
        {"goto 35", {}},
        {"goto -1", {}},
        {"goto menu", {}},
        {"goto 0x10", {}},
        {"goto", {}},
        {"swipe left", {"swipeLeft"}},
        {"swipe right", {"swipeRight"}},
        {"swipe up", {"swipeUp"}},
        {"SwIpE DOWN", {"swipeDown"}},
        {"swipe sideways", {}},
        {"swipe", {}},
        {"EDGE please", {"edge"}},
        {"longpress", {"longPress:(320,86)"}},
        {"longpress 100 50", {"longPress:(100,50)"}},
        {"longpress 100", {"longPress:(320,86)"}},
        {"longpress a b", {"longPress:(320,86)"}},
        {"tap 10 20", {"hitTest:(10,20)", "tap:ok"}},
        {"Click 30 40", {"hitTest:(30,40)", "tap:ok"}},
        {"tap 10", {}},
        {"tap x y", {}},
        {"touchbegin", {"touchBegin"}},
        {"refresh", {"refresh:7"}},
        {"Guide HIDE", {"hideGuide"}},
        {"guide show", {}},
        {"guide", {}},
        {"page", {}},
        {" \t swipe    down  ", {"swipeDown"}},
        {"", {}},
        {"   ", {}},
        {"reboot", {}},
        {"swipe_left", {}}};
    QPushButton ok;
    ok.setObjectName("ok");
    for (const auto& [line, calls] : cases) {
        TestCommandRecorder shell;
        shell.buttonUnderPoint = &ok;
        shell.currentPage = 7;
        VantorTestCommandInterface commands(&shell);
        commands.executeCommand(QString::fromUtf8(line));
        EXPECT_EQ(shell.calls, calls) << '"' << line << '"';
    }

    TestCommandRecorder nothingThere;
    VantorTestCommandInterface commands(&nothingThere);
    commands.executeCommand("tap 600 160");
    EXPECT_EQ(nothingThere.calls, (QStringList{"hitTest:(600,160)", "sliderTap:(600,160)"}));
}

TEST(TestCommand, LogsEachCommandSimplifiedAndThePageOnRequest)
{
    TestCommandRecorder shell;
    shell.currentPage = 32;
    VantorTestCommandInterface commands(&shell);
    const std::string out = testsupport::capturedStdout([&] {
        commands.executeCommand("  swipe   left ");
        commands.executeCommand("page");
    });
    EXPECT_NE(out.find("Vantor test command: swipe left\n"), std::string::npos) << out;
    EXPECT_NE(out.find("Vantor current page: 32\n"), std::string::npos) << out;
}

} // namespace
