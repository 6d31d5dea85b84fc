// The page map as pure functions: groups, the home rows of both work modes,
// where settings pages return to, and the breadcrumb keys.
#include "shell/page_groups.h"

#include "pages/page_ids.h"

#include <gtest/gtest.h>

#include <set>

TEST(ShellPageGroups, EveryContentPageBelongsToExactlyOneGroup)
{
    using Predicate = bool (*)(int);
    const Predicate groups[] = {
        isStatusPage,          isShortcutPage,       isMainMenuPage,      isSystemSettingsPage,
        isNetworkSettingsPage, isCameraSettingsPage, isVideoSettingsPage, isAudioSettingsPage,
        isMediaSettingsPage,   isDecodeSettingsPage, isModalPage};
    for (int page = -1; page <= 35; ++page) {
        int memberships = 0;
        for (Predicate in : groups)
            memberships += in(page) ? 1 : 0;
        const bool expected = page >= 0 && page <= PAGE_GENERAL_CONFIRM;
        EXPECT_EQ(memberships, expected ? 1 : 0) << page;
        EXPECT_EQ(isSubMenuPage(page), page >= 5 && page <= 20) << page;
        EXPECT_EQ(isSettingsPage(page), isSubMenuPage(page));
        EXPECT_EQ(shouldShowSubmenuArrowButtons(page), isSubMenuPage(page));
        EXPECT_EQ(isContentPage(page), page >= 0 && page <= 26) << page;
    }
    EXPECT_TRUE(isDecoderMixedHomePage(PAGE_STATUS_2));
    EXPECT_FALSE(isDecoderMixedHomePage(PAGE_STATUS_3));
    EXPECT_FALSE(isDecoderMixedHomePage(PAGE_ENCODER_SHORTCUT_1));
    EXPECT_TRUE(isEncoderMixedHomePage(PAGE_STATUS_3));
    EXPECT_FALSE(isEncoderMixedHomePage(PAGE_DECODER_SHORTCUT_1));
}

TEST(ShellPageGroups, HomeRowsPutTheShortcutsLeftOfTheStatusPages)
{
    const int encode[] = {22, 23, 21, 0, 1, 2};
    const int decode[] = {26, 25, 24, 0, 1};
    ASSERT_EQ(mixedHomePageCount(0), 6);
    ASSERT_EQ(mixedHomePageCount(1), 5);
    EXPECT_EQ(mixedHomePageCount(2), 1);
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(mixedHomePageAt(i, 0), encode[i]);
        EXPECT_EQ(mixedHomePageIndex(encode[i], 0), i);
        EXPECT_EQ(pageIndexInGroup(encode[i], 0), i);
        EXPECT_EQ(pageGroupCount(encode[i], 0), 6);
    }
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(mixedHomePageAt(i, 1), decode[i]);
        EXPECT_EQ(mixedHomePageIndex(decode[i], 1), i);
    }
    // Pages off the mode's row, and every page in other modes, sit at 0.
    EXPECT_EQ(mixedHomePageIndex(PAGE_STATUS_3, 1), 0);
    EXPECT_EQ(mixedHomePageIndex(PAGE_DECODER_SHORTCUT_1, 0), 0);
    EXPECT_EQ(mixedHomePageIndex(PAGE_STATUS_2, 2), 0);
    EXPECT_EQ(mixedHomePageAt(6, 0), -1);
    EXPECT_EQ(mixedHomePageAt(-1, 1), -1);
}

TEST(ShellPageGroups, GroupSizesAndPositions)
{
    EXPECT_EQ(pageGroupCount(PAGE_MAIN_MENU_2, 0), 2);
    EXPECT_EQ(pageIndexInGroup(PAGE_MAIN_MENU_2, 0), 1);
    EXPECT_EQ(pageGroupCount(PAGE_SYSTEM_SETTINGS_3, 0), 4);
    EXPECT_EQ(pageIndexInGroup(PAGE_SYSTEM_SETTINGS_4, 0), 3);
    EXPECT_EQ(pageGroupCount(PAGE_NETWORK_SETTINGS_1, 1), 3);
    EXPECT_EQ(pageIndexInGroup(PAGE_CAMERA_SETTINGS_3, 0), 2);
    EXPECT_EQ(pageGroupCount(PAGE_VIDEO_SETTINGS_1, 0), 2);
    EXPECT_EQ(pageGroupCount(PAGE_VIDEO_SETTINGS_1, 1), 1);
    // The media group keeps two pages in decode mode.
    EXPECT_EQ(pageGroupCount(PAGE_MEDIA_SETTINGS_1, 1), 2);
    EXPECT_EQ(pageIndexInGroup(PAGE_MEDIA_SETTINGS_2, 0), 1);
    for (int single : {PAGE_AUDIO_SETTINGS, PAGE_DECODING_SETTINGS, PAGE_GENERAL_EDIT,
                       PAGE_CONNECT_APP, PAGE_SHORTCUT, PAGE_STANDBY}) {
        EXPECT_EQ(pageGroupCount(single, 0), 1) << single;
        EXPECT_EQ(pageIndexInGroup(single, 0), 0) << single;
    }
}

TEST(ShellPageGroups, SettingsReturnToTheMenuPageHoldingTheirEntry)
{
    for (int page = 5; page <= 14; ++page)
        EXPECT_EQ(settingsMenuReturnPage(page), PAGE_MAIN_MENU_2) << page;
    for (int page = 15; page <= 20; ++page)
        EXPECT_EQ(settingsMenuReturnPage(page), PAGE_MAIN_MENU_1) << page;
    for (int page : {0, 3, 4, 21, 27, 32, 34})
        EXPECT_EQ(settingsMenuReturnPage(page), -1) << page;
}

TEST(ShellPageGroups, BreadcrumbKeys)
{
    EXPECT_EQ(pageContextKeys(PAGE_MAIN_MENU_2), QStringList{"statusbar.context.menu"});
    EXPECT_EQ(pageContextKeys(PAGE_CAMERA_SETTINGS_2),
              (QStringList{"statusbar.context.menu", "mainmenu.ptz"}));
    EXPECT_EQ(pageContextKeys(PAGE_MEDIA_SETTINGS_2),
              (QStringList{"statusbar.context.menu", "mainmenu.streaming"}));
    EXPECT_EQ(pageContextKeys(PAGE_ENCODER_SHORTCUT_2), QStringList{"statusbar.context.osd_ctrl"});
    EXPECT_EQ(pageContextKeys(PAGE_DECODER_SHORTCUT_2), QStringList{"statusbar.context.uvc_ctrl"});
    EXPECT_EQ(pageContextKeys(PAGE_GENERAL_SLIDER), QStringList{"statusbar.context.adjust"});
    for (int page : {0, 1, 2, 30, 32, 34})
        EXPECT_TRUE(pageContextKeys(page).isEmpty()) << page;
    EXPECT_EQ(kContextSeparator, QString::fromUtf8("  \u00BB  "));
}

TEST(ShellPageGroups, ModalTitlesFollowTheOpenFlow)
{
    EXPECT_EQ(modalTitleKey(PAGE_GENERAL_EDIT, 0), "system_settings.language");
    EXPECT_EQ(modalTitleKey(PAGE_GENERAL_EDIT, 5), "camera_settings.ptz_protocol");
    EXPECT_EQ(modalTitleKey(PAGE_GENERAL_EDIT, 11), "media_settings.disk_select");
    EXPECT_TRUE(modalTitleKey(PAGE_GENERAL_EDIT, 12).isEmpty());
    EXPECT_EQ(modalTitleKey(PAGE_GENERAL_SLIDER, 1), "camera_settings.lcd_sleep");
    EXPECT_EQ(modalTitleKey(PAGE_GENERAL_SLIDER, 2), modalTitleKey(PAGE_GENERAL_SLIDER, 3));
    EXPECT_TRUE(modalTitleKey(PAGE_GENERAL_SLIDER, 4).isEmpty());
    EXPECT_EQ(modalTitleKey(PAGE_GENERAL_CONFIRM, 2), "system_settings.reset");
    // The DC output dialog has no title of its own.
    EXPECT_TRUE(modalTitleKey(PAGE_GENERAL_CONFIRM, 4).isEmpty());
    EXPECT_TRUE(modalTitleKey(PAGE_STATUS_1, 0).isEmpty());
}
