// The panel driven through its test pipe, as a script on the device would:
// every command goes through the same gates as the gesture it stands for.
#include "panel_controls.h"
#include "shell_rig.h"

#include "control/modal_openings.h"
#include "input/vantor_test_command_interface.h"
#include "pages/general_slider_page_widget.h"

#include <QPushButton>
#include <QSlider>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

using shelltest::PanelRig;
using shelltest::RigOptions;

namespace {

class ShellTestPipe : public ::testing::Test {
protected:
    ShellTestPipe() : rig(pipeOptions()) {}

    static RigOptions pipeOptions()
    {
        RigOptions options;
        options.test_pipe = true;
        return options;
    }

    void SetUp() override
    {
        ASSERT_TRUE(rig.waitForMainUi());
        ASSERT_TRUE(rig.panel().testCommandInterface()->isOpen());
        fd = ::open(rig.fifoPath().c_str(), O_WRONLY | O_NONBLOCK);
        ASSERT_GE(fd, 0);
    }
    void TearDown() override
    {
        if (fd >= 0)
            ::close(fd);
    }

    void write(const std::string& lines)
    {
        ASSERT_EQ(::write(fd, lines.data(), lines.size()), static_cast<ssize_t>(lines.size()));
    }
    bool reaches(int page)
    {
        return testsupport::waitUntil([&] { return rig.shownPageId() == page; });
    }

    PanelRig rig;
    int fd = -1;
};

} // namespace

TEST_F(ShellTestPipe, CommandsWalkThePageGraph)
{
    write("goto 3\n");
    ASSERT_TRUE(reaches(PAGE_MAIN_MENU_1));
    write("swipe left\n");
    ASSERT_TRUE(reaches(PAGE_MAIN_MENU_2));
    write("SWIPE DOWN\nswipe right\n");
    ASSERT_TRUE(reaches(PAGE_ENCODER_SHORTCUT_1));
    write("edge\n");
    ASSERT_TRUE(reaches(PAGE_STATUS_1));
    write("swipe up\n");
    ASSERT_TRUE(reaches(PAGE_MAIN_MENU_1));
    write("longpress\n");
    write("goto 2\nlongpress\n");
    ASSERT_TRUE(reaches(PAGE_SHORTCUT));
    write("swipe down\n");
    ASSERT_TRUE(reaches(PAGE_STATUS_3));

    // Taps hit the button under the point and click it from the event loop.
    write("goto 4\n");
    ASSERT_TRUE(reaches(PAGE_MAIN_MENU_2));
    const QList<QPushButton*> buttons = shelltest::menuButtons(rig.shownPage());
    ASSERT_EQ(buttons.size(), 3);
    const QPoint centre = buttons[1]->mapTo(&rig.panel(), buttons[1]->rect().center());
    write("tap " + std::to_string(centre.x()) + " " + std::to_string(centre.y()) + "\n");
    ASSERT_TRUE(reaches(PAGE_NETWORK_SETTINGS_1));

    // Out-of-range pages and unknown words change nothing.
    write("goto 35\ngoto -1\ngoto 31\nfly away\npage\n");
    write("refresh\n");
    EXPECT_FALSE(
        testsupport::waitUntil([&] { return rig.shownPageId() != PAGE_NETWORK_SETTINGS_1; },
                               std::chrono::milliseconds(300)));
}

TEST_F(ShellTestPipe, CommandsMeetTheLock)
{
    rig.control("set /lcd/lock_stat 1");
    ASSERT_TRUE(rig.tickUntil([&] { return rig.panel().is_lcd_touch_locked(); }));
    write("goto 3\n");
    write("swipe up\n");
    ASSERT_TRUE(testsupport::waitUntil([&] { return rig.panel().lcdLockedSwipeCount() == 1; }));
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    write("swipe up\n");
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return rig.panel().gestureGuideOverlay()->isVisible(); }));
    write("guide hide\n");
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return !rig.panel().gestureGuideOverlay()->isVisible(); }));

    write("longpress 10 10\n");
    ASSERT_TRUE(testsupport::waitUntil([&] { return !rig.panel().is_lcd_touch_locked(); }));
    EXPECT_TRUE(rig.panel().isOperationOverlayActive());
    write("touchbegin\n");
    ASSERT_TRUE(testsupport::waitUntil([&] { return !rig.panel().isOperationOverlayActive(); }));
    write("swipe up\n");
    EXPECT_TRUE(reaches(PAGE_MAIN_MENU_1));
}

TEST_F(ShellTestPipe, TapOnTheSliderCommitsTheValueUnderIt)
{
    rig.panel().enterSliderMode(SLIDER_LCD_BRIGHTNESS, PAGE_CAMERA_SETTINGS_3, 40);
    ASSERT_TRUE(reaches(PAGE_GENERAL_SLIDER));
    auto* page =
        static_cast<GeneralSliderPageWidget*>(rig.panel().pageid_to_widget(PAGE_GENERAL_SLIDER));
    QSlider* slider = page->sliderControl();
    // Halfway along the slider: the brightness slider runs from 10 to 100,
    // which the device counts from 0.
    const QPoint left = slider->mapTo(&rig.panel(), QPoint(0, slider->height() / 2));
    const int x = left.x() + slider->width() / 2;
    write("tap " + std::to_string(x) + " " + std::to_string(left.y()) + "\n");
    EXPECT_TRUE(
        testsupport::waitUntil([&] { return shelltest::deviceInt(rig, "/lcd/lcd_bright") == 45; }));
    EXPECT_EQ(page->backendValue(), 45);
    EXPECT_EQ(rig.shownPageId(), PAGE_GENERAL_SLIDER);
}
