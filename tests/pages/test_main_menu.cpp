#include "page_test_support.h"

#include "pages/main_menu_page_widget.h"
#include "pages/page_ids.h"

#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace pagetest;

TEST(MainMenuPage1, ButtonsTextsAndKeysByWorkMode)
{
    MainMenuPage1Widget page(texts(), nullptr);
    QSignalSpy spy(&page, &MainMenuPageBase::menuItemClicked);
    page.updateFromVm(0);
    EXPECT_EQ(page.item(0).button->geometry(), QRect(50, 10, 140, 110));
    EXPECT_EQ(page.item(2).button->pos(), QPoint(450, 10));
    EXPECT_EQ(page.item(0).label->text(), english("mainmenu.video"));
    EXPECT_EQ(page.item(1).label->text(), english("mainmenu.audio"));
    EXPECT_EQ(page.item(2).label->text(), english("mainmenu.streaming"));
    EXPECT_EQ(svgPathOf(page.item(2).icon), ":/icons/mainmenu/stream.svg");

    for (int i = 0; i < 3; ++i)
        page.item(i).button->click();
    ASSERT_EQ(spy.count(), 3);
    EXPECT_EQ(spy[0][0].toString(), "VIDEO");
    EXPECT_EQ(spy[1][0].toString(), "AUDIO");
    EXPECT_EQ(spy[2][0].toString(), "STREAMING");
    EXPECT_EQ(saveThemedScreenshots(&page, "main_menu1_encode").size(), 2);

    page.updateFromVm(1);
    EXPECT_EQ(page.item(2).label->text(), english("mainmenu.decoding"));
    EXPECT_EQ(svgPathOf(page.item(2).icon), ":/icons/mainmenu/decode.svg");
    page.item(2).button->click();
    EXPECT_EQ(spy.last()[0].toString(), "DECODING");

    EXPECT_EQ(saveThemedScreenshots(&page, "main_menu1_decode").size(), 2);
}

TEST(MainMenuPage1, LanguageChangeKeepsTheModeItem)
{
    MainMenuPage1Widget page(texts(kChinese), nullptr);
    page.updateFromVm(1);
    page.setDirty(true);
    page.updateFromVm(1);
    EXPECT_EQ(page.item(2).label->text(), texts(kChinese)->getText("mainmenu.decoding"));
    EXPECT_FALSE(page.isDirty());
}

TEST(MainMenuPage2, ButtonsAndKeys)
{
    MainMenuPage2Widget page(texts(), nullptr);
    QSignalSpy spy(&page, &MainMenuPageBase::menuItemClicked);
    page.updateFromVm(0);
    EXPECT_EQ(page.item(0).label->text(), english("mainmenu.ptz"));
    EXPECT_EQ(page.item(1).label->text(), english("mainmenu.network"));
    EXPECT_EQ(page.item(2).label->text(), english("mainmenu.system"));
    EXPECT_EQ(svgPathOf(page.item(0).icon), ":/icons/mainmenu/ptz.svg");
    for (int i = 0; i < 3; ++i)
        page.item(i).button->click();
    ASSERT_EQ(spy.count(), 3);
    EXPECT_EQ(spy[0][0].toString(), "CAMERA");
    EXPECT_EQ(spy[1][0].toString(), "NETWORK");
    EXPECT_EQ(spy[2][0].toString(), "SYSTEM");

    EXPECT_EQ(saveThemedScreenshots(&page, "main_menu2").size(), 2);
}

TEST(MainMenuPages, Gestures)
{
    MainMenuPage1Widget first(texts(), nullptr);
    MainMenuPage2Widget second(texts(), nullptr);
    EXPECT_EQ(first.dispatchGesture(GestureKind::SwipeLeft, 0),
              std::optional<int>(PAGE_MAIN_MENU_2));
    EXPECT_EQ(second.dispatchGesture(GestureKind::SwipeRight, 1),
              std::optional<int>(PAGE_MAIN_MENU_1));
    for (IGestureHandler* page :
         {static_cast<IGestureHandler*>(&first), static_cast<IGestureHandler*>(&second)}) {
        EXPECT_EQ(page->onEdgeSwipeToCenter(0), PAGE_STATUS_1);
        EXPECT_EQ(page->onSwipeDown(1), PAGE_STATUS_1);
        for (GestureKind kind :
             {GestureKind::SwipeUp, GestureKind::LongPress, GestureKind::AutoSwitch})
            EXPECT_FALSE(page->dispatchGesture(kind, 0).has_value());
    }
    EXPECT_FALSE(first.dispatchGesture(GestureKind::SwipeRight, 0).has_value());
    EXPECT_FALSE(second.dispatchGesture(GestureKind::SwipeLeft, 0).has_value());
}
