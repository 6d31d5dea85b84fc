#include "page_test_support.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>

namespace {

using PageFactory = std::function<QWidget*(UITextManager*)>;

template <class Page> PageFactory make()
{
    return [](UITextManager* texts) { return new Page(texts); };
}

// Where a page leads; nullopt means the page doesn't answer that gesture.
struct Route {
    const char* name;
    PageFactory factory;
    std::optional<int> left_encode;
    std::optional<int> left_decode;
    std::optional<int> right;
    int down;
};

const std::optional<int> kNone;

class SettingsGestureTest : public ::testing::TestWithParam<Route> {};

TEST_P(SettingsGestureTest, AnswersTheNavigationTable)
{
    const Route& route = GetParam();
    auto texts = pagetest::makeTextManager();
    std::unique_ptr<QWidget> widget(route.factory(texts.get()));
    auto* page = dynamic_cast<IGestureHandler*>(widget.get());
    ASSERT_NE(page, nullptr);

    EXPECT_EQ(page->dispatchGesture(GestureKind::SwipeLeft, 0), route.left_encode);
    EXPECT_EQ(page->dispatchGesture(GestureKind::SwipeLeft, 1), route.left_decode);
    EXPECT_EQ(page->dispatchGesture(GestureKind::SwipeRight, 0), route.right);
    EXPECT_EQ(page->dispatchGesture(GestureKind::SwipeDown, 0), route.down);
    EXPECT_EQ(page->dispatchGesture(GestureKind::EdgeSwipeToCenter, 1), PAGE_STATUS_1);
    EXPECT_EQ(page->dispatchGesture(GestureKind::SwipeUp, 0), kNone);
    EXPECT_EQ(page->dispatchGesture(GestureKind::LongPress, 0), kNone);
    EXPECT_EQ(page->dispatchGesture(GestureKind::AutoSwitch, 0), kNone);
}

// An empty NAS list can't scroll, so its swipes answer as at the list's ends.
INSTANTIATE_TEST_SUITE_P(
    AllPages, SettingsGestureTest,
    ::testing::Values(Route{"System1", make<SystemSettingsPage1Widget>(), 6, 6, kNone, 4},
                      Route{"System2", make<SystemSettingsPage2Widget>(), 7, 7, 5, 4},
                      Route{"System3", make<SystemSettingsPage3Widget>(), 8, 8, 6, 4},
                      Route{"System4", make<SystemSettingsPage4Widget>(), kNone, kNone, 7, 4},
                      Route{"Network1", make<NetworkSettingsPage1Widget>(), 10, 10, kNone, 4},
                      Route{"Network2", make<NetworkSettingsPage2Widget>(), 11, 11, 9, 4},
                      Route{"Network3", make<NetworkSettingsPage3Widget>(), -1, -1, 10, 4},
                      Route{"Camera1", make<CameraSettingsPage1Widget>(), 13, 13, kNone, 4},
                      Route{"Camera2", make<CameraSettingsPage2Widget>(), 14, 14, 12, 4},
                      Route{"Camera3", make<CameraSettingsPage3Widget>(), kNone, kNone, 13, 4},
                      Route{"Video1", make<VideoSettingsPage1Widget>(), 16, -1, kNone, 3},
                      Route{"Video2", make<VideoSettingsPage2Widget>(), kNone, kNone, 15, 3},
                      Route{"Audio", make<Audio_settings_page_widget>(), kNone, kNone, kNone, 3},
                      Route{"Media1", make<MediaSettingsPage1Widget>(), 19, -1, kNone, 3},
                      Route{"Media2", make<MediaSettingsPage2Widget>(), kNone, kNone, 18, 3},
                      Route{"Decoding", make<Decoding_settings_page_widget>(), kNone, kNone, kNone,
                            3}),
    [](const ::testing::TestParamInfo<Route>& info) { return std::string(info.param.name); });

} // namespace
