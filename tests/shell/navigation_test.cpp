// What the window shows around the page it switches to: the page dots of the
// home rows and settings groups, the breadcrumb and the arrows. The page
// graph itself is walked by the end-to-end suite.
#include "panel_window.h"

#include "pages/status_bar_widget.h"
#include "shell/page_groups.h"
#include "ui/components/nav_dots_component.h"
#include "ui/components/submenu_arrows_component.h"

#include <QLabel>
#include <QVariant>
#include <gtest/gtest.h>

using namespace shelltest;

namespace {

class ShellNavigation : public PanelTest {
protected:
    // The current dot's index among those shown, or -1 while the dots are
    // hidden; `count` receives the number shown.
    int dot(int* count = nullptr)
    {
        NavDotsComponent* dots = w().navDots();
        int shownDots = 0;
        int current = -1;
        for (QLabel* d : dots->dots()) {
            if (!dots->isVisibleTo(&w()) || !d->isVisibleTo(dots))
                continue;
            if (d->property("class").toString() == QLatin1String("navdot-active"))
                current = shownDots;
            ++shownDots;
        }
        if (count)
            *count = shownDots;
        return current;
    }
    bool statusBarShows(const char* key)
    {
        for (QLabel* label : w().statusBar()->findChildren<QLabel*>()) {
            if (label->isVisibleTo(w().statusBar()) && label->text().contains(panel.text(key)))
                return true;
        }
        return false;
    }
};

} // namespace

TEST_F(ShellNavigation, HomeRowsOfBothWorkModesHaveOneDotPerPage)
{
    for (int mode : {0, 1}) {
        panel.sim().require("workmode " + std::to_string(mode));
        ASSERT_TRUE(panel.tickUntil([&] { return w().workMode() == mode; }));
        for (int i = 0; i < mixedHomePageCount(mode); ++i) {
            w().goto_page(mixedHomePageAt(i, mode));
            int count = 0;
            EXPECT_EQ(dot(&count), i) << "mode " << mode;
            EXPECT_EQ(count, mixedHomePageCount(mode));
        }
    }
    w().goto_page(PAGE_CONNECT_APP);
    EXPECT_EQ(dot(), -1);
}

TEST_F(ShellNavigation, SettingsGroupsShowTheirBreadcrumbDotsAndArrows)
{
    const std::tuple<const char*, int, int, const char*> groups[] = {
        {"SYSTEM", PAGE_SYSTEM_SETTINGS_1, 4, "mainmenu.system"},
        {"CAMERA", PAGE_CAMERA_SETTINGS_1, 3, "mainmenu.ptz"},
        {"VIDEO", PAGE_VIDEO_SETTINGS_1, 2, "mainmenu.video"},
        {"AUDIO", PAGE_AUDIO_SETTINGS, 1, "mainmenu.audio"},
    };
    SubmenuArrowsComponent* arrows = w().submenuArrows();
    for (const auto& [key, first, pages, title] : groups) {
        const int menu = settingsMenuReturnPage(first);
        w().goto_page(menu);
        w().onMainMenuItemClicked(key);
        ASSERT_EQ(shown(), first) << key;
        EXPECT_TRUE(statusBarShows(title)) << key;
        EXPECT_TRUE(arrows->leftButton()->isVisibleTo(&w())) << key;
        int count = 0;
        dot(&count);
        EXPECT_EQ(count, pages > 1 ? pages : 0) << key;
        w().goto_page(first + pages - 1);
        EXPECT_EQ(dot(), pages > 1 ? pages - 1 : -1) << key;
        arrows->rightButton()->click();
        EXPECT_EQ(shown(), menu) << key << ": the last page's right arrow leads to the menu";
        EXPECT_FALSE(arrows->leftButton()->isVisibleTo(&w()));
    }
}
