// Which guide each page has, and what each guide teaches.
#include "input/gesture_guide_overlay_component.h"
#include "pages/page_ids.h"
#include "ui/panel_resources.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QSet>

namespace {

TEST(GestureGuideTypes, HomePagesShareOneGuide)
{
    for (int page : {PAGE_STATUS_1, PAGE_STATUS_2, PAGE_STATUS_3, PAGE_ENCODER_SHORTCUT_1,
                     PAGE_ENCODER_SHORTCUT_2, PAGE_ENCODER_SHORTCUT_3, PAGE_DECODER_SHORTCUT_1,
                     PAGE_DECODER_SHORTCUT_2, PAGE_DECODER_SHORTCUT_3})
        EXPECT_EQ(getGestureGuideTypeForPage(page), 0) << "page " << page;
}

TEST(GestureGuideTypes, MainMenuAndConnectPagesHaveTheirOwn)
{
    EXPECT_EQ(getGestureGuideTypeForPage(PAGE_MAIN_MENU_1), 1);
    EXPECT_EQ(getGestureGuideTypeForPage(PAGE_MAIN_MENU_2), 1);
    EXPECT_EQ(getGestureGuideTypeForPage(PAGE_CONNECT_APP), 3);
}

TEST(GestureGuideTypes, EveryOtherPageHasNone)
{
    const QSet<int> guided{0, 1, 2, 3, 4, 21, 22, 23, 24, 25, 26, 32};
    for (int page = -1; page <= 36; ++page) {
        if (!guided.contains(page)) {
            EXPECT_EQ(getGestureGuideTypeForPage(page), -1) << "page " << page;
        }
    }
}

TEST(GestureGuideTypes, ALockedLcdShowsTheUnlockGuideEverywhere)
{
    for (int page : {PAGE_STATUS_1, PAGE_MAIN_MENU_2, PAGE_CONNECT_APP, PAGE_SYSTEM_SETTINGS_1,
                     PAGE_GENERAL_CONFIRM}) {
        EXPECT_EQ(getActiveGestureGuideTypeForPage(page, true), 6) << "page " << page;
        EXPECT_EQ(getActiveGestureGuideTypeForPage(page, false), getGestureGuideTypeForPage(page))
            << "page " << page;
    }
}

GestureGuideItems items(std::initializer_list<GestureGuideItem> list)
{
    return GestureGuideItems(list);
}

TEST(GestureGuideItemsOfType, HomeGuideTeachesAllFiveGestures)
{
    EXPECT_EQ(GestureGuideOverlayComponent::guideItemsForType(0),
              items({{":/icons/general/swipe_left_right.svg", "gesture_guide.item_pages"},
                     {":/icons/general/swipe_up.svg", "gesture_guide.item_menu"},
                     {":/icons/general/swipe_down.svg", "gesture_guide.item_app"},
                     {":/icons/general/edge_swipe_inward.svg", "gesture_guide.item_home"},
                     {":/icons/general/long_press.svg", "gesture_guide.item_shortcut"}}));
}

TEST(GestureGuideItemsOfType, MainMenuGuideHasFourItems)
{
    EXPECT_EQ(GestureGuideOverlayComponent::guideItemsForType(1),
              items({{":/icons/general/swipe_left_right.svg", "gesture_guide.item_pages"},
                     {":/icons/general/swipe_down.svg", "gesture_guide.item_home"},
                     {":/icons/general/edge_swipe_inward.svg", "gesture_guide.item_home"},
                     {":/icons/general/long_press.svg", "gesture_guide.item_shortcut"}}));
}

TEST(GestureGuideItemsOfType, ConnectGuideHasThreeItems)
{
    EXPECT_EQ(GestureGuideOverlayComponent::guideItemsForType(3),
              items({{":/icons/general/swipe_up.svg", "gesture_guide.item_home"},
                     {":/icons/general/edge_swipe_inward.svg", "gesture_guide.item_home"},
                     {":/icons/general/long_press.svg", "gesture_guide.item_shortcut"}}));
}

TEST(GestureGuideItemsOfType, LockGuideOnlyTeachesUnlocking)
{
    EXPECT_EQ(GestureGuideOverlayComponent::guideItemsForType(6),
              items({{":/icons/general/long_press.svg", "gesture_guide.item_unlock"}}));
}

TEST(GestureGuideItemsOfType, UnusedTypesAreEmpty)
{
    for (int type : {-1, 2, 4, 5, 7, 100})
        EXPECT_TRUE(GestureGuideOverlayComponent::guideItemsForType(type).isEmpty())
            << "type " << type;
}

TEST(GestureGuideItemsOfType, EveryIconIsAPanelResource)
{
    initPanelResources();
    for (int type : {0, 1, 3, 6})
        for (const GestureGuideItem& item : GestureGuideOverlayComponent::guideItemsForType(type))
            EXPECT_TRUE(QFile::exists(item.first)) << item.first.toStdString();
}

} // namespace
