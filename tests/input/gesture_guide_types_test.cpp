// Which guide each page has, and what each guide teaches.
#include "input/gesture_guide_overlay_component.h"
#include "pages/page_ids.h"

#include <gtest/gtest.h>

#include <QMap>

namespace {

// Home pages (status and shortcut) have guide 0, the menu pages 1, the
// connect page 3, and no other page any; a locked LCD shows guide 6 on all.
TEST(GestureGuideTypes, HomeMenuAndConnectPagesHaveAGuide)
{
    QMap<int, int> guided{{PAGE_MAIN_MENU_1, 1}, {PAGE_MAIN_MENU_2, 1}, {PAGE_CONNECT_APP, 3}};
    for (int page : {PAGE_STATUS_1, PAGE_STATUS_2, PAGE_STATUS_3, PAGE_ENCODER_SHORTCUT_1,
                     PAGE_ENCODER_SHORTCUT_2, PAGE_ENCODER_SHORTCUT_3, PAGE_DECODER_SHORTCUT_1,
                     PAGE_DECODER_SHORTCUT_2, PAGE_DECODER_SHORTCUT_3})
        guided[page] = 0;
    for (int page = -1; page <= 36; ++page) {
        EXPECT_EQ(getGestureGuideTypeForPage(page), guided.value(page, -1)) << page;
        EXPECT_EQ(getActiveGestureGuideTypeForPage(page, false), guided.value(page, -1)) << page;
        EXPECT_EQ(getActiveGestureGuideTypeForPage(page, true), 6) << page;
    }
}

// Each item as "icon:text", for ":/icons/general/<icon>.svg" and the text
// key "gesture_guide.item_<text>" (the theme and language tests check that
// both exist).
TEST(GestureGuideTypes, EachGuideTeachesItsGestures)
{
    const QMap<int, QString> taught{
        {0, "swipe_left_right:pages swipe_up:menu swipe_down:app edge_swipe_inward:home "
            "long_press:shortcut"},
        {1, "swipe_left_right:pages swipe_down:home edge_swipe_inward:home long_press:shortcut"},
        {3, "swipe_up:home edge_swipe_inward:home long_press:shortcut"},
        {6, "long_press:unlock"}};
    for (int type : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 100}) {
        GestureGuideItems expected;
        for (const QString& item : taught.value(type).split(' ', Qt::SkipEmptyParts))
            expected.append({":/icons/general/" + item.section(':', 0, 0) + ".svg",
                             "gesture_guide.item_" + item.section(':', 1)});
        const GestureGuideItems items = GestureGuideOverlayComponent::guideItemsForType(type);
        EXPECT_EQ(items, expected) << "type " << type;
    }
}

} // namespace
