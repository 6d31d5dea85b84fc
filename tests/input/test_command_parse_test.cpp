// How one command line becomes calls on the shell, bad lines included.
#include "input/vantor_test_command_interface.h"
#include "test_command_recorder.h"

#include <gtest/gtest.h>

#include <QPushButton>

namespace {

TEST(TestCommand, EachLineReachesItsShellOperationOrNothing)
{
    // The end-to-end tests send the plain forms of every command; here are
    // the odd ones.
    const std::pair<const char*, QStringList> cases[] = {
        {"GOTO 5", {"goto:5"}},
        {"goto 12 now", {"goto:12"}},
        {"goto 0x10", {}},
        {"goto", {}},
        {"SwIpE DOWN", {"swipeDown"}},
        {"swipe sideways", {}},
        {"swipe", {}},
        {"EDGE please", {"edge"}},
        {"longpress 100", {"longPress:(320,86)"}},
        {"longpress a b", {"longPress:(320,86)"}},
        {"Click 30 40", {"hitTest:(30,40)", "tap:ok"}},
        {"tap 10", {}},
        {"tap x y", {}},
        {"refresh", {"refresh:7"}},
        {"Guide HIDE", {"hideGuide"}},
        {"guide show", {}},
        {"guide", {}},
        {"page", {}},
        {" \t swipe    down  ", {"swipeDown"}},
        {"", {}},
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

} // namespace
