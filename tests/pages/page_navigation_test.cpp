// What every page answers to each gesture, the main menu's keys, and how a
// language change reaches a page: only at its next update after the shell
// marks it dirty, so that pages nobody looks at do no work.
#include "page_test_support.h"

#include "model/view_models/settings_view_models.h"
#include "model/view_models/shortcut_view_models.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/auto_bt_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/connect_app_widget.h"
#include "pages/decoder_shortcut_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/main_menu_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/status_page1_widget.h"
#include "pages/status_page2_widget.h"
#include "pages/status_page3_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"

#include <QPushButton>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

// A page's answers in one work mode, e.g. "L1 R21 E0 U3 P- A1": a letter per
// gesture (Left, Right, Edge to centre, Up, Down, long Press, Auto switch)
// with the page id it leads to or "-" to stay; a gesture not named is one the
// page leaves unclaimed. Page ids as in pages/page_ids.h.
struct Route {
    const char* page;
    std::function<QWidget*()> make;
    const char* encode;
    const char* decode; // null: as in encode mode
};

template <class Page> std::function<QWidget*()> make()
{
    return [] { return new Page(texts(), nullptr); };
}

QString answersOf(IGestureHandler& page, int workMode)
{
    const std::pair<char, GestureKind> gestures[] = {
        {'L', GestureKind::SwipeLeft},         {'R', GestureKind::SwipeRight},
        {'E', GestureKind::EdgeSwipeToCenter}, {'U', GestureKind::SwipeUp},
        {'D', GestureKind::SwipeDown},         {'P', GestureKind::LongPress},
        {'A', GestureKind::AutoSwitch}};
    QStringList answers;
    for (const auto& [letter, gesture] : gestures)
        if (const std::optional<int> next = page.dispatchGesture(gesture, workMode))
            answers << QString(letter) + (*next < 0 ? QStringLiteral("-") : QString::number(*next));
    return answers.join(' ');
}

class PageGestures : public ::testing::TestWithParam<Route> {};

TEST_P(PageGestures, AnswerTheNavigationTable)
{
    const Route& route = GetParam();
    std::unique_ptr<QWidget> page(route.make());
    auto* handler = dynamic_cast<IGestureHandler*>(page.get());
    ASSERT_NE(handler, nullptr);
    EXPECT_EQ(answersOf(*handler, 0), route.encode);
    EXPECT_EQ(answersOf(*handler, 1), route.decode ? route.decode : route.encode);
}

// Lists are empty here, so their swipes answer as at the lists' ends.
INSTANTIATE_TEST_SUITE_P(
    AllPages, PageGestures,
    ::testing::Values(
        Route{"Status1", make<StatusPage1Widget>(), "L1 R21 E0 U3 D32 P34 A1",
              "L1 R24 E0 U3 D32 P34 A1"},
        Route{"Status2", make<StatusPage2Widget>(), "L2 R0 E0 U3 D32 P34 A2",
              "L- R0 E0 U3 D32 P34 A0"},
        Route{"Status3", make<StatusPage3Widget>(), "R1 E0 U3 D32 P34 A0", "R1 E0 U3 D32 P34 A-"},
        Route{"Menu1", make<MainMenuPage1Widget>(), "L4 E0 D0", nullptr},
        Route{"Menu2", make<MainMenuPage2Widget>(), "R3 E0 D0", nullptr},
        Route{"System1", make<SystemSettingsPage1Widget>(), "L6 E0 D4", nullptr},
        Route{"System2", make<SystemSettingsPage2Widget>(), "L7 R5 E0 D4", nullptr},
        Route{"System3", make<SystemSettingsPage3Widget>(), "L8 R6 E0 D4", nullptr},
        Route{"System4", make<SystemSettingsPage4Widget>(), "R7 E0 D4", nullptr},
        Route{"Network1", make<NetworkSettingsPage1Widget>(), "L10 E0 D4", nullptr},
        Route{"Network2", make<NetworkSettingsPage2Widget>(), "L11 R9 E0 D4", nullptr},
        Route{"Network3", make<NetworkSettingsPage3Widget>(), "L- R10 E0 D4", nullptr},
        Route{"Camera1", make<CameraSettingsPage1Widget>(), "L13 E0 D4", nullptr},
        Route{"Camera2", make<CameraSettingsPage2Widget>(), "L14 R12 E0 D4", nullptr},
        Route{"Camera3", make<CameraSettingsPage3Widget>(), "R13 E0 D4", nullptr},
        Route{"Video1", make<VideoSettingsPage1Widget>(), "L16 E0 D3", "L- E0 D3"},
        Route{"Video2", make<VideoSettingsPage2Widget>(), "R15 E0 D3", nullptr},
        Route{"Audio", make<Audio_settings_page_widget>(), "E0 D3", nullptr},
        Route{"Media1", make<MediaSettingsPage1Widget>(), "L19 E0 D3", "L- E0 D3"},
        Route{"Media2", make<MediaSettingsPage2Widget>(), "R18 E0 D3", nullptr},
        Route{"Decoding", make<Decoding_settings_page_widget>(), "E0 D3", nullptr},
        Route{"Record", make<EncoderShortcutPage1Widget>(), "L0 R23 E0 U3 D32", nullptr},
        Route{"Osd", make<EncoderShortcutPage2Widget>(), "L23 R- E0 U3 D32", nullptr},
        Route{"PushStreams", make<EncoderShortcutPage3Widget>(), "L21 R22 E0 U3 D32", nullptr},
        Route{"Pull", make<DecoderShortcutPage1Widget>(), "L0 R25 E0 U3 D32", nullptr},
        Route{"Uvc", make<DecoderShortcutPage2Widget>(), "L24 R26 E0 U3 D32", nullptr},
        Route{"Ndi", make<DecoderShortcutPage3Widget>(), "L25 R- E0 U3 D32", nullptr},
        Route{"Confirm", make<GeneralConfirmPageWidget>(), "", nullptr},
        Route{"Standby", make<StandbyPageWidget>(), "", nullptr},
        Route{"Bluetooth", make<AutoBtPageWidget>(), "E0 D10", nullptr},
        Route{"ConnectApp", make<ConnectAppWidget>(), "L- R- E0 U0 D-", nullptr},
        Route{"Shortcuts", make<ShortcutPageWidget>(), "L- R- E0 U0 D0", nullptr}),
    [](const ::testing::TestParamInfo<Route>& info) { return std::string(info.param.page); });

TEST(GestureHandler, DispatchTellsAClaimedStayFromAnUnclaimedGesture)
{
    // Claims a left swipe that stays; its up swipe hands back to the default.
    struct Page : IGestureHandler {
        int onSwipeLeft(int) override { return -1; }
        int onSwipeUp(int workmode) override { return IGestureHandler::onSwipeUp(workmode); }
    } page;
    EXPECT_EQ(answersOf(page, 0), "L-");
    EXPECT_FALSE(page.dispatchGesture(GestureKind::ButtonLongPress, 0).has_value());
    EXPECT_EQ(page.dispatchGesture(GestureKind::SwipeLeft, 0), std::optional<int>(-1))
        << "the mark of an unclaimed gesture doesn't leak into the next dispatch";
}

TEST(MainMenu, ItemsNameTheirGroupAndReportItsKeyByWorkMode)
{
    MainMenuPage1Widget first(texts(), nullptr);
    MainMenuPage2Widget second(texts(), nullptr);
    const std::tuple<MainMenuPageBase*, int, QStringList, QStringList> cases[] = {
        {&first, 0, {"video", "audio", "streaming"}, {"VIDEO", "AUDIO", "STREAMING"}},
        {&first, 1, {"video", "audio", "decoding"}, {"VIDEO", "AUDIO", "DECODING"}},
        {&second, 0, {"ptz", "network", "system"}, {"CAMERA", "NETWORK", "SYSTEM"}}};
    for (const auto& [page, workMode, textKeys, menuKeys] : cases) {
        if (page == &first)
            first.updateFromVm(workMode);
        const auto spy = spyOn(page, "menuItemClicked");
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(page->item(i).label->text(), english("mainmenu." + textKeys[i]));
            page->item(i).button->click();
            EXPECT_EQ(spy->last(), QVariantList{menuKeys[i]});
        }
    }
    EXPECT_EQ(svgPathOf(first.item(2).icon), ":/icons/mainmenu/decode.svg");
}

// A page whose texts follow the language: how it is updated and what it shows.
struct Renewal {
    const char* key;
    std::function<QWidget*(UITextManager*)> make;
    std::function<void(QWidget*)> update;
    std::function<QString(QWidget*)> shown;
};

template <class Page>
Renewal renewal(const char* key, std::function<void(Page&)> update,
                std::function<QString(Page&)> shown)
{
    return {key, [](UITextManager* texts) { return new Page(texts, nullptr); },
            [update](QWidget* page) { update(*static_cast<Page*>(page)); },
            [shown](QWidget* page) { return shown(*static_cast<Page*>(page)); }};
}

template <class Page> std::function<QString(Page&)> labelOf(const char* className, int index = 0)
{
    return
        [className, index](Page& page) { return byClass(&page, className).value(index)->text(); };
}

TEST(PageLanguage, TextsChangeAtTheNextUpdateAfterTheDirtyMarkOnly)
{
    ShortcutVM quick;
    quick.config = nlohmann::json::parse(R"({"list":[{"function":"Standby"}]})");
    const Renewal cases[] = {
        renewal<StatusPage1Widget>(
            "statusp1.label.mem", [](auto& p) { p.updateFromVm({}); },
            labelOf<StatusPage1Widget>("v2-p1-label", 1)),
        renewal<MainMenuPage1Widget>(
            "mainmenu.video", [](auto& p) { p.updateFromVm(1); },
            [](auto& p) { return p.item(0).label->text(); }),
        renewal<SystemSettingsPage2Widget>(
            "system_settings.workmode", [](auto& p) { p.updateFromVm({}); },
            [](auto& p) { return p.cardItem(0).label->text(); }),
        renewal<EncoderShortcutPage1Widget>(
            "encoder_shortcut.disk", [](auto& p) { p.updateFromVm({}); },
            [](auto& p) { return p.buttonLabel(EncoderShortcutPage1Widget::kDisk)->text(); }),
        // The quick list keeps its rows while the list is unchanged.
        renewal<ShortcutPageWidget>(
            "system_settings.standby", [quick](auto& p) { p.updateFromVm(quick); },
            [](auto& p) { return p.rowLabel(0)->text(); }),
        renewal<DecoderShortcutPage3Widget>(
            "statusbar.context.ndi_ctrl", [](auto& p) { p.updateFromVm({}); },
            labelOf<DecoderShortcutPage3Widget>("v2-sys-card-label")),
        renewal<GeneralConfirmPageWidget>(
            "confirm_page.confirm",
            [](auto& p) {
                p.updateFromVm({CONFIRM_ACTION_REBOOT, 7, 0, 1});
            },
            [](auto& p) { return firstByClass<QPushButton>(&p, "confirm-confirm-btn")->text(); }),
        renewal<StandbyPageWidget>(
            "standby_page.standby", [](auto& p) { p.updateFromVm({}); },
            labelOf<StandbyPageWidget>("standby-title")),
    };
    for (const Renewal& c : cases) {
        SCOPED_TRACE(c.key);
        const auto manager = makeTextManager(kEnglish);
        std::unique_ptr<QWidget> page(c.make(manager.get()));
        c.update(page.get());
        const QString before = manager->getTextWithFallback(c.key);
        EXPECT_EQ(c.shown(page.get()), before);
        manager->switchLanguage(kChinese);
        ASSERT_NE(manager->getTextWithFallback(c.key), before);
        c.update(page.get());
        EXPECT_EQ(c.shown(page.get()), before) << "renewed without a dirty mark";
        dynamic_cast<IGestureHandler*>(page.get())->setDirty(true);
        c.update(page.get());
        EXPECT_EQ(c.shown(page.get()), manager->getTextWithFallback(c.key));
    }
}

} // namespace
