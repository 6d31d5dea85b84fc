// How one command line becomes calls on the shell.
#include "input/vantor_test_command_interface.h"
#include "support/qt_capture.h"
#include "test_command_recorder.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>

#include <cstdio>
#include <functional>
#include <string>

namespace {

struct CommandCase {
    const char* name;
    const char* line;
    QStringList expected;
};

void PrintTo(const CommandCase& c, std::ostream* os)
{
    *os << c.name;
}

class CommandRouting : public ::testing::TestWithParam<CommandCase> {};

TEST_P(CommandRouting, ReachesTheShellOperation)
{
    const CommandCase& c = GetParam();
    QPushButton ok;
    ok.setObjectName("ok");
    TestCommandRecorder shell;
    shell.buttonUnderPoint = &ok;
    shell.currentPage = 7;
    VantorTestCommandInterface commands(&shell);

    commands.executeCommand(QString::fromUtf8(c.line));

    EXPECT_EQ(shell.calls, c.expected);
}

const QStringList kNothing;

INSTANTIATE_TEST_SUITE_P(Goto, CommandRouting,
                         ::testing::Values(CommandCase{"first_page", "goto 0", {"goto:0"}},
                                           CommandCase{"last_page", "goto 34", {"goto:34"}},
                                           CommandCase{"upper_case_word", "GOTO 5", {"goto:5"}},
                                           CommandCase{
                                               "extra_words_ignored", "goto 12 now", {"goto:12"}},
                                           CommandCase{"past_the_table", "goto 35", kNothing},
                                           CommandCase{"negative", "goto -1", kNothing},
                                           CommandCase{"word", "goto menu", kNothing},
                                           CommandCase{"hexadecimal", "goto 0x10", kNothing},
                                           CommandCase{"missing_id", "goto", kNothing}),
                         [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(Swipes, CommandRouting,
                         ::testing::Values(CommandCase{"left", "swipe left", {"swipeLeft"}},
                                           CommandCase{"right", "swipe right", {"swipeRight"}},
                                           CommandCase{"up", "swipe up", {"swipeUp"}},
                                           CommandCase{"down", "swipe down", {"swipeDown"}},
                                           CommandCase{"mixed_case", "SwIpE LEFT", {"swipeLeft"}},
                                           CommandCase{"unknown_direction", "swipe sideways",
                                                       kNothing},
                                           CommandCase{"no_direction", "swipe", kNothing},
                                           CommandCase{"edge", "edge", {"edge"}},
                                           CommandCase{"edge_with_words", "EDGE please", {"edge"}}),
                         [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Presses, CommandRouting,
    ::testing::Values(
        CommandCase{"longpress_default_is_mid_strip", "longpress", {"longPress:(320,86)"}},
        CommandCase{"longpress_at_point", "longpress 100 50", {"longPress:(100,50)"}},
        CommandCase{"longpress_one_number_uses_default", "longpress 100", {"longPress:(320,86)"}},
        CommandCase{"longpress_words_use_default", "longpress a b", {"longPress:(320,86)"}},
        CommandCase{"tap", "tap 10 20", {"hitTest:(10,20)", "tap:ok"}},
        CommandCase{"click_is_tap", "Click 30 40", {"hitTest:(30,40)", "tap:ok"}},
        CommandCase{"tap_one_number", "tap 10", kNothing},
        CommandCase{"tap_words", "tap x y", kNothing},
        CommandCase{"touchbegin", "touchbegin", {"touchBegin"}}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    ShellRequests, CommandRouting,
    ::testing::Values(CommandCase{"refresh_current_page", "refresh", {"refresh:7"}},
                      CommandCase{"guide_hide", "guide hide", {"hideGuide"}},
                      CommandCase{"guide_hide_any_case", "Guide HIDE", {"hideGuide"}},
                      CommandCase{"guide_other_word", "guide show", kNothing},
                      CommandCase{"guide_alone", "guide", kNothing},
                      CommandCase{"page_only_logs", "page", kNothing}),
    [](const auto& info) { return std::string(info.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Text, CommandRouting,
    ::testing::Values(
        CommandCase{"blanks_around_and_between", " \t swipe    down  ", {"swipeDown"}},
        CommandCase{"empty", "", kNothing}, CommandCase{"only_blanks", "   ", kNothing},
        CommandCase{"unknown_command", "reboot", kNothing},
        CommandCase{"gesture_name_is_not_a_command", "swipe_left", kNothing}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(CommandTap, WithoutAButtonAtThePointTheTapGoesToASlider)
{
    TestCommandRecorder shell;
    VantorTestCommandInterface commands(&shell);

    commands.executeCommand("tap 600 160");

    EXPECT_EQ(shell.calls, (QStringList{"hitTest:(600,160)", "sliderTap:(600,160)"}));
}

TEST(CommandLog, EachCommandIsLoggedInItsSimplifiedForm)
{
    TestCommandRecorder shell;
    VantorTestCommandInterface commands(&shell);

    const std::string out =
        testsupport::capturedStdout([&] { commands.executeCommand("  swipe   left "); });

    EXPECT_NE(out.find("Vantor test command: swipe left\n"), std::string::npos) << out;
}

TEST(CommandLog, PageLogsTheCurrentPageOfTheShell)
{
    TestCommandRecorder shell;
    shell.currentPage = 32;
    VantorTestCommandInterface commands(&shell);

    const std::string out = testsupport::capturedStdout([&] { commands.executeCommand("page"); });

    EXPECT_NE(out.find("Vantor current page: 32\n"), std::string::npos) << out;
}

TEST(CommandSignals, AreEmittedWithoutATarget)
{
    VantorTestCommandInterface commands(nullptr);
    QSignalSpy gotoSpy(&commands, &VantorTestCommandInterface::gotoPageRequested);
    QSignalSpy tapSpy(&commands, &VantorTestCommandInterface::tapRequested);
    QSignalSpy pressSpy(&commands, &VantorTestCommandInterface::longPressRequested);

    commands.executeCommand("goto 9");
    commands.executeCommand("tap 1 2");
    commands.executeCommand("longpress");

    ASSERT_EQ(gotoSpy.count(), 1);
    EXPECT_EQ(gotoSpy.at(0).at(0).toInt(), 9);
    ASSERT_EQ(tapSpy.count(), 1);
    EXPECT_EQ(tapSpy.at(0).at(0).toPoint(), QPoint(1, 2));
    ASSERT_EQ(pressSpy.count(), 1);
    EXPECT_EQ(pressSpy.at(0).at(0).toPointF(), QPointF(320.0, 86.0));
}

} // namespace
