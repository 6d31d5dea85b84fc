// Which guide each page has, and what each guide teaches.
#include "input/gesture_guide_overlay_component.h"
#include "pages/page_ids.h"
#include "ui/panel_resources.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QMap>

namespace {

TEST(GestureGuideTypes, HomeMenuAndConnectPagesHaveAGuideAndNoOtherPage)
{
    QMap<int, int> guided;
    for (int page : {PAGE_STATUS_1, PAGE_STATUS_2, PAGE_STATUS_3, PAGE_ENCODER_SHORTCUT_1,
                     PAGE_ENCODER_SHORTCUT_2, PAGE_ENCODER_SHORTCUT_3, PAGE_DECODER_SHORTCUT_1,
                     PAGE_DECODER_SHORTCUT_2, PAGE_DECODER_SHORTCUT_3})
        guided[page] = 0;
    guided[PAGE_MAIN_MENU_1] = 1;
    guided[PAGE_MAIN_MENU_2] = 1;
    guided[PAGE_CONNECT_APP] = 3;
    for (int page = -1; page <= 36; ++page) {
        EXPECT_EQ(getGestureGuideTypeForPage(page), guided.value(page, -1)) << "page " << page;
        // A locked LCD shows the unlock guide everywhere.
        EXPECT_EQ(getActiveGestureGuideTypeForPage(page, true), 6) << "page " << page;
        EXPECT_EQ(getActiveGestureGuideTypeForPage(page, false), guided.value(page, -1))
            << "page " << page;
    }
}

TEST(GestureGuideTypes, EachGuideTeachesItsGesturesWithPanelIcons)
{
    const QString swipeSideways = ":/icons/general/swipe_left_right.svg";
    const QString swipeUp = ":/icons/general/swipe_up.svg";
    const QString swipeDown = ":/icons/general/swipe_down.svg";
    const QString edgeSwipe = ":/icons/general/edge_swipe_inward.svg";
    const QString longPress = ":/icons/general/long_press.svg";
    const QMap<int, GestureGuideItems> expected{
        {0,
         {{swipeSideways, "gesture_guide.item_pages"},
          {swipeUp, "gesture_guide.item_menu"},
          {swipeDown, "gesture_guide.item_app"},
          {edgeSwipe, "gesture_guide.item_home"},
          {longPress, "gesture_guide.item_shortcut"}}},
        {1,
         {{swipeSideways, "gesture_guide.item_pages"},
          {swipeDown, "gesture_guide.item_home"},
          {edgeSwipe, "gesture_guide.item_home"},
          {longPress, "gesture_guide.item_shortcut"}}},
        {3,
         {{swipeUp, "gesture_guide.item_home"},
          {edgeSwipe, "gesture_guide.item_home"},
          {longPress, "gesture_guide.item_shortcut"}}},
        {6, {{longPress, "gesture_guide.item_unlock"}}},
    };
    initPanelResources();
    for (int type : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 100}) {
        const GestureGuideItems items = GestureGuideOverlayComponent::guideItemsForType(type);
        EXPECT_EQ(items, expected.value(type)) << "type " << type;
        for (const GestureGuideItem& item : items)
            EXPECT_TRUE(QFile::exists(item.first)) << item.first.toStdString();
    }
}

} // namespace
