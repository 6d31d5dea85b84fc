// Walking the page graph with the real pages and a simulated device: the home
// group in both work modes, the menu, and every settings group, checked by
// the page the stack shows, its dots, arrows and breadcrumb.
#include "shell_rig.h"

#include "control/ndi_search_session.h"
#include "pages/status_bar_widget.h"
#include "ui/components/submenu_arrows_component.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

using shelltest::gestureUntilPage;
using shelltest::PanelRig;
using shelltest::shownDotIndex;

namespace {

class ShellNavigation : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(rig.waitForMainUi()); }

    Widget& w() { return rig.panel(); }
    void left() { w().swipe_left(); }
    void right() { w().swipe_right(); }

    // Shows `page` through gestures and records what it looks like.
    void expectPage(int page, const QString& shot)
    {
        ASSERT_EQ(rig.shownPageId(), page);
        EXPECT_EQ(w().get_current_pageid(), page);
        rig.screenshot(shot);
    }

    void switchWorkMode(int mode)
    {
        rig.control("workmode " + std::to_string(mode));
        ASSERT_TRUE(rig.tickUntil([&] { return w().workMode() == mode; }));
    }

    PanelRig rig;
};

} // namespace

TEST_F(ShellNavigation, EncodeHomeGroupRunsShortcutsThenStatusPages)
{
    // Dot order: shortcut 2, 3, 1, then status 1, 2, 3.
    int count = 0;
    EXPECT_EQ(shownDotIndex(w(), &count), 3);
    EXPECT_EQ(count, 6);
    expectPage(PAGE_STATUS_1, "home_encode_status1");

    right();
    expectPage(PAGE_ENCODER_SHORTCUT_1, "home_encode_record");
    EXPECT_EQ(shownDotIndex(w()), 2);
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { right(); }, PAGE_ENCODER_SHORTCUT_3));
    expectPage(PAGE_ENCODER_SHORTCUT_3, "home_encode_streams");
    EXPECT_EQ(shownDotIndex(w()), 1);
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { right(); }, PAGE_ENCODER_SHORTCUT_2));
    expectPage(PAGE_ENCODER_SHORTCUT_2, "home_encode_osd");
    EXPECT_EQ(shownDotIndex(w()), 0);
    // The left end: once the list is at its end nothing follows.
    for (int i = 0; i < 12; ++i)
        right();
    EXPECT_EQ(rig.shownPageId(), PAGE_ENCODER_SHORTCUT_2);

    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { left(); }, PAGE_ENCODER_SHORTCUT_3));
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { left(); }, PAGE_ENCODER_SHORTCUT_1));
    left();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    left();
    expectPage(PAGE_STATUS_2, "home_encode_status2");
    EXPECT_EQ(shownDotIndex(w()), 4);
    left();
    expectPage(PAGE_STATUS_3, "home_encode_status3");
    EXPECT_EQ(shownDotIndex(w()), 5);
    left();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_3);

    // The record page is the one shortcut page whose status bar shows the record.
    w().goto_page(PAGE_ENCODER_SHORTCUT_1);
    EXPECT_TRUE(w().buildStatusBarVmForPage(PAGE_ENCODER_SHORTCUT_1).show_record_status);
}

TEST_F(ShellNavigation, DecodeHomeGroupHasFivePages)
{
    w().goto_page(PAGE_STATUS_2);
    switchWorkMode(1);
    // A change of mode starts over on the first status page.
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
    EXPECT_EQ(w().getMixedHomePageCount(), 5);
    int count = 0;
    EXPECT_EQ(shownDotIndex(w(), &count), 3);
    EXPECT_EQ(count, 5);

    left();
    expectPage(PAGE_STATUS_2, "home_decode_status2");
    left();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_2) << "status page 3 belongs to encoding";
    right();
    right();
    expectPage(PAGE_DECODER_SHORTCUT_1, "home_decode_pull");
    EXPECT_EQ(shownDotIndex(w()), 2);
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { right(); }, PAGE_DECODER_SHORTCUT_2));
    expectPage(PAGE_DECODER_SHORTCUT_2, "home_decode_uvc");
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { right(); }, PAGE_DECODER_SHORTCUT_3));
    expectPage(PAGE_DECODER_SHORTCUT_3, "home_decode_ndi");
    EXPECT_EQ(shownDotIndex(w()), 0);
    // Coming onto the NDI page starts a source search; its cards block
    // gestures until the search has ended and a touch has taken the card.
    ASSERT_TRUE(testsupport::waitUntil([&] { return !w().ndiSearchSession()->isRunning(); }));
    w().onTouchBeginReq();
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { left(); }, PAGE_DECODER_SHORTCUT_2));
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { left(); }, PAGE_DECODER_SHORTCUT_1));
    ASSERT_TRUE(gestureUntilPage(
        rig, [&] { left(); }, PAGE_STATUS_1));

    // A forced status page 3 has no place on the decode row.
    EXPECT_EQ(w().getMixedHomePageIndex(PAGE_STATUS_3), 0);
    switchWorkMode(0);
}

TEST_F(ShellNavigation, HomeMenuConnectAndShortcutListAreOneGestureAway)
{
    w().swipe_up();
    expectPage(PAGE_MAIN_MENU_1, "menu_page1");
    EXPECT_EQ(shownDotIndex(w()), 0);
    left();
    expectPage(PAGE_MAIN_MENU_2, "menu_page2");
    EXPECT_EQ(shownDotIndex(w()), 1);
    left();
    EXPECT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_2);
    w().swipe_down();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);

    w().swipe_down();
    expectPage(PAGE_CONNECT_APP, "connect_app");
    EXPECT_EQ(shownDotIndex(w()), -1);
    w().edge_swipe_to_center();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);

    w().goto_page(PAGE_STATUS_2);
    w().long_press(QPointF(320, 86));
    expectPage(PAGE_SHORTCUT, "shortcut_list");
    // The list returns to where it was opened from.
    w().swipe_down();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_2);
}

TEST_F(ShellNavigation, MenuButtonsOpenTheirGroupsThroughQueuedClicks)
{
    w().goto_page(PAGE_MAIN_MENU_1);
    const QList<QPushButton*> first = shelltest::menuButtons(rig.shownPage());
    ASSERT_EQ(first.size(), 3);
    w().button_tap(first[0]);
    // The click is posted, not run inside the tap.
    EXPECT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_1);
    ASSERT_TRUE(testsupport::waitUntil([&] { return rig.shownPageId() == PAGE_VIDEO_SETTINGS_1; }));

    w().goto_page(PAGE_MAIN_MENU_2);
    const QList<QPushButton*> second = shelltest::menuButtons(rig.shownPage());
    ASSERT_EQ(second.size(), 3);
    w().button_tap(second[2]);
    ASSERT_TRUE(
        testsupport::waitUntil([&] { return rig.shownPageId() == PAGE_SYSTEM_SETTINGS_1; }));

    w().onMainMenuItemClicked("NO_SUCH_ITEM");
    EXPECT_EQ(rig.shownPageId(), PAGE_SYSTEM_SETTINGS_1);
    w().onMainMenuItemClicked("video");
    EXPECT_EQ(rig.shownPageId(), PAGE_SYSTEM_SETTINGS_1) << "keys are case-sensitive";
}

namespace {

struct SettingsGroup {
    const char* key;
    int first;
    int pages;
    int menu;
    const char* title_key;
    const char* shot;
};

const SettingsGroup kGroups[] = {
    {"SYSTEM", PAGE_SYSTEM_SETTINGS_1, 4, PAGE_MAIN_MENU_2, "mainmenu.system", "system"},
    {"NETWORK", PAGE_NETWORK_SETTINGS_1, 3, PAGE_MAIN_MENU_2, "mainmenu.network", "network"},
    {"CAMERA", PAGE_CAMERA_SETTINGS_1, 3, PAGE_MAIN_MENU_2, "mainmenu.ptz", "camera"},
    {"VIDEO", PAGE_VIDEO_SETTINGS_1, 2, PAGE_MAIN_MENU_1, "mainmenu.video", "video"},
    {"AUDIO", PAGE_AUDIO_SETTINGS, 1, PAGE_MAIN_MENU_1, "mainmenu.audio", "audio"},
    {"STREAMING", PAGE_MEDIA_SETTINGS_1, 2, PAGE_MAIN_MENU_1, "mainmenu.streaming", "media"},
    {"DECODING", PAGE_DECODING_SETTINGS, 1, PAGE_MAIN_MENU_1, "mainmenu.decoding", "decoding"},
};

} // namespace

TEST_F(ShellNavigation, EverySettingsGroupIsWalkedByGesturesAndArrows)
{
    SubmenuArrowsComponent* arrows = w().submenuArrows();
    for (const SettingsGroup& group : kGroups) {
        SCOPED_TRACE(group.key);
        w().goto_page(group.menu);
        w().onMainMenuItemClicked(group.key);
        ASSERT_EQ(rig.shownPageId(), group.first);

        // The breadcrumb names the menu and the group.
        const QString title = w().textManager()->getTextWithFallback(group.title_key);
        EXPECT_TRUE(shelltest::showsText(w().statusBar(), title));
        EXPECT_TRUE(arrows->leftButton()->isVisibleTo(&w()));
        EXPECT_TRUE(arrows->rightButton()->isVisibleTo(&w()));
        int dots = 0;
        shownDotIndex(w(), &dots);
        EXPECT_EQ(dots, group.pages > 1 ? group.pages : 0);

        for (int i = 0; i < group.pages; ++i) {
            ASSERT_TRUE(gestureUntilPage(
                rig, [&] { left(); }, group.first + i));
            if (group.pages > 1) {
                EXPECT_EQ(shownDotIndex(w()), i);
            }
            rig.screenshot(QStringLiteral("settings_%1_%2").arg(group.shot).arg(i + 1));
        }
        // Past the last page a swipe stays; the right arrow goes to the menu.
        for (int i = 0; i < 12; ++i)
            left();
        EXPECT_EQ(rig.shownPageId(), group.first + group.pages - 1);
        arrows->rightButton()->click();
        EXPECT_EQ(rig.shownPageId(), group.menu);

        // In again; arrows inside the group move by page, at the start back out.
        w().onMainMenuItemClicked(group.key);
        if (group.pages > 1) {
            arrows->rightButton()->click();
            EXPECT_EQ(rig.shownPageId(), group.first + 1);
            arrows->leftButton()->click();
            EXPECT_EQ(rig.shownPageId(), group.first);
        }
        arrows->leftButton()->click();
        EXPECT_EQ(rig.shownPageId(), group.menu);

        // Down leads to the menu holding the entry, the edge swipe home.
        w().onMainMenuItemClicked(group.key);
        w().swipe_down();
        EXPECT_EQ(rig.shownPageId(), group.menu);
        w().onMainMenuItemClicked(group.key);
        w().edge_swipe_to_center();
        EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_1);
        EXPECT_FALSE(arrows->leftButton()->isVisibleTo(&w()));
    }
}

TEST_F(ShellNavigation, DecodeModeShortensVideoAndSendsAudioToTheVolumeSlider)
{
    switchWorkMode(1);
    w().goto_page(PAGE_MAIN_MENU_1);
    w().onMainMenuItemClicked("VIDEO");
    left();
    EXPECT_EQ(rig.shownPageId(), PAGE_VIDEO_SETTINGS_1) << "one video page when decoding";

    w().goto_page(PAGE_MAIN_MENU_1);
    w().onMainMenuItemClicked("AUDIO");
    ASSERT_EQ(rig.shownPageId(), PAGE_GENERAL_SLIDER);
    EXPECT_TRUE(w().isModalActive());
    EXPECT_EQ(w().currentPageId(), PAGE_MAIN_MENU_1);
    EXPECT_EQ(w().get_current_pageid(), PAGE_GENERAL_SLIDER);
    EXPECT_EQ(shownDotIndex(w()), -1);
    EXPECT_FALSE(w().submenuArrows()->leftButton()->isVisibleTo(&w()));
    const QString volume = w().textManager()->getTextWithFallback("audio_settings.audio_volume");
    EXPECT_TRUE(shelltest::showsText(w().statusBar(), volume));
    rig.screenshot("modal_output_volume");

    // Leaving the slider returns to the menu it came from.
    w().swipe_down();
    EXPECT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_1);
    EXPECT_FALSE(w().isModalActive());
    switchWorkMode(0);
}

TEST_F(ShellNavigation, UnknownAndUnusedIdsChangeNothing)
{
    w().goto_page(PAGE_MAIN_MENU_1);
    for (int id : {31, 33, 35, -1, 1000})
        w().goto_page(id);
    EXPECT_EQ(rig.shownPageId(), PAGE_MAIN_MENU_1);
    EXPECT_EQ(w().get_current_pageid(), PAGE_MAIN_MENU_1);
}

TEST_F(ShellNavigation, ConfirmDialogKeepsTheShortcutListReturnPage)
{
    w().goto_page(PAGE_STATUS_3);
    w().goto_page(PAGE_SHORTCUT);
    w().enterConfirmDialog(3, PAGE_SHORTCUT, 0, 1);
    ASSERT_EQ(rig.shownPageId(), PAGE_GENERAL_CONFIRM);
    rig.screenshot("modal_confirm_standby");
    // Swipes do nothing on the dialog.
    w().swipe_down();
    left();
    EXPECT_EQ(rig.shownPageId(), PAGE_GENERAL_CONFIRM);
    w().onConfirmDialogCancelled(0);
    EXPECT_EQ(rig.shownPageId(), PAGE_SHORTCUT);
    w().swipe_down();
    EXPECT_EQ(rig.shownPageId(), PAGE_STATUS_3);
}
