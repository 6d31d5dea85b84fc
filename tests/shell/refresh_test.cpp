// The one-second cycle against a live simulator: deliveries only when the
// model changed, and the forced redraw after a language change.
#include "panel_window.h"

#include "pages/basic_page.h"
#include "ui/text_manager.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

class ShellRefresh : public PanelTest {
protected:
    // Ticks until one passes without a delivery on `spy`.
    bool settle(QSignalSpy& spy)
    {
        return panel.tickUntil([&] {
            const int before = spy.count();
            panel.tick();
            return spy.count() == before;
        });
    }
};

} // namespace

TEST_F(ShellRefresh, OnlyAChangedModelReachesThePage)
{
    QSignalSpy deliveries(&w(), &Widget::requestStatusPage1Update);
    // Load and rates move all the time on the simulated device.
    ASSERT_TRUE(panel.tickUntil([&] { return deliveries.count() >= 2; }));
    panel.sim().require("silence topic_cpu_memory_info");
    ASSERT_TRUE(settle(deliveries));
    deliveries.clear();
    for (int i = 0; i < 3; ++i)
        panel.tick();
    EXPECT_EQ(deliveries.count(), 0) << "unchanged data must not repaint";
    panel.sim().require("unsilence topic_cpu_memory_info");
    EXPECT_TRUE(panel.tickUntil([&] { return deliveries.count() >= 1; }));

    // Neither a modal page nor the page beneath it, nor unused ids, get any.
    w().enterSliderMode(0, PAGE_CAMERA_SETTINGS_3, 40);
    QSignalSpy slider(&w(), &Widget::requestSliderModePageUpdate);
    deliveries.clear();
    for (int i = 0; i < 3; ++i)
        panel.tick();
    for (int unused : {31, 33, 99})
        w().doPageRefresh(unused);
    EXPECT_EQ(slider.count() + deliveries.count(), 0);
}

TEST_F(ShellRefresh, LanguageChangeRedrawsThePageOnScreenAndMarksTheOthers)
{
    w().goto_page(PAGE_MAIN_MENU_2);
    w().goto_page(PAGE_SYSTEM_SETTINGS_1);
    QSignalSpy deliveries(&w(), &Widget::requestSystemSettingsPage1Update);
    ASSERT_TRUE(settle(deliveries));
    auto* menu2 = dynamic_cast<BasicPage*>(w().pageid_to_widget(PAGE_MAIN_MENU_2));
    ASSERT_NE(menu2, nullptr);
    EXPECT_FALSE(menu2->isDirty());

    const QString before = panel.text("mainmenu.system");
    panel.sim().require("set /system/language_id 3");
    // The switch arrives on a topic, between ticks; the next tick delivers
    // although the data is the same.
    ASSERT_TRUE(testsupport::waitUntil(
        [&] { return w().textManager()->getCurrentLanguage() == 3 && w().isForcePageRefresh(); }));
    deliveries.clear();
    panel.tick();
    EXPECT_EQ(deliveries.count(), 1);
    EXPECT_NE(panel.text("mainmenu.system"), before);
    EXPECT_TRUE(menu2->isDirty()) << "pages off screen renew their texts when next shown";
    w().goto_page(PAGE_MAIN_MENU_2);
    EXPECT_FALSE(menu2->isDirty());
}
