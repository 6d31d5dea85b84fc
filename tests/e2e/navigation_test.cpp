// The page graph walked with gestures and taps, in encode and in decode
// mode, checked by the page the panel reports and by what it shows.
#include "operation_card.h"
#include "page_walk.h"
#include "panel_test.h"
#include "screen_points.h"

#include "pages/page_ids.h"

namespace e2e {
namespace {

class Navigation : public PanelTest {};

TEST_F(Navigation, EncodeHomeGroupShortcutsConnectAndMenu)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    ASSERT_EQ(rig->currentPage(), PAGE_STATUS_1);
    const std::vector<WalkStep> walk = {
        // Status pages to the left, to the end of the group.
        {"swipe left", PAGE_STATUS_2},
        {"swipe left", PAGE_STATUS_3},
        {"swipe left", PAGE_STATUS_3},
        {"swipe right", PAGE_STATUS_2},
        {"swipe right", PAGE_STATUS_1},
        // Shortcut pages to the right, record page first, in the order 21, 23, 22.
        {"swipe right", PAGE_ENCODER_SHORTCUT_1},
        {"swipe right", PAGE_ENCODER_SHORTCUT_3},
        {"swipe right", PAGE_ENCODER_SHORTCUT_2},
        {"swipe right", PAGE_ENCODER_SHORTCUT_2},
        {"swipe left", PAGE_ENCODER_SHORTCUT_3},
        {"swipe left", PAGE_ENCODER_SHORTCUT_1},
        {"swipe left", PAGE_STATUS_1},
        // Down to the connect page and back; long press to the quick actions and back.
        {"swipe down", PAGE_CONNECT_APP},
        {"swipe up", PAGE_STATUS_1},
        {"longpress", PAGE_SHORTCUT},
        {"swipe down", PAGE_STATUS_1},
        // Up from any home page is the menu; down from the menu is home.
        {"swipe left", PAGE_STATUS_2},
        {"swipe up", PAGE_MAIN_MENU_1},
        {"swipe left", PAGE_MAIN_MENU_2},
        {"swipe left", PAGE_MAIN_MENU_2},
        {"swipe right", PAGE_MAIN_MENU_1},
        {"swipe down", PAGE_STATUS_1},
        {"swipe right", PAGE_ENCODER_SHORTCUT_1},
        {"swipe up", PAGE_MAIN_MENU_1},
        {"edge", PAGE_STATUS_1},
    };
    ASSERT_NO_FATAL_FAILURE(expectWalk(*rig, walk));
}

TEST_F(Navigation, EncodeSettingsGroupsFromTheMenu)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const std::vector<WalkStep> walk = {
        {"swipe up", PAGE_MAIN_MENU_1},
        // Video: two pages in encode mode; down leads to the first menu page.
        {tapAt(point::kMenuLeft), PAGE_VIDEO_SETTINGS_1},
        {"swipe left", PAGE_VIDEO_SETTINGS_2},
        {"swipe left", PAGE_VIDEO_SETTINGS_2},
        {"swipe down", PAGE_MAIN_MENU_1},
        {tapAt(point::kMenuMiddle), PAGE_AUDIO_SETTINGS},
        {"swipe left", PAGE_AUDIO_SETTINGS},
        {"swipe down", PAGE_MAIN_MENU_1},
        {tapAt(point::kMenuRight), PAGE_MEDIA_SETTINGS_1},
        {"swipe left", PAGE_MEDIA_SETTINGS_2},
        {"swipe right", PAGE_MEDIA_SETTINGS_1},
        // The left arrow on a group's first page goes back to its menu page.
        {tapAt(point::kArrowLeft), PAGE_MAIN_MENU_1},
        {"swipe left", PAGE_MAIN_MENU_2},
        // Camera, network and system hang under the second menu page.
        {tapAt(point::kMenuLeft), PAGE_CAMERA_SETTINGS_1},
        {"swipe left", PAGE_CAMERA_SETTINGS_2},
        {"swipe left", PAGE_CAMERA_SETTINGS_3},
        {"swipe left", PAGE_CAMERA_SETTINGS_3},
        {"swipe down", PAGE_MAIN_MENU_2},
        {tapAt(point::kMenuMiddle), PAGE_NETWORK_SETTINGS_1},
        {"swipe left", PAGE_NETWORK_SETTINGS_2},
        {"swipe left", PAGE_NETWORK_SETTINGS_3},
        {"swipe right", PAGE_NETWORK_SETTINGS_2},
        {"swipe down", PAGE_MAIN_MENU_2},
        {tapAt(point::kMenuRight), PAGE_SYSTEM_SETTINGS_1},
        // Inside a group the right arrow is a swipe; on the last page it leads to the menu.
        {tapAt(point::kArrowRight), PAGE_SYSTEM_SETTINGS_2},
        {"swipe left", PAGE_SYSTEM_SETTINGS_3},
        {"swipe left", PAGE_SYSTEM_SETTINGS_4},
        {"swipe left", PAGE_SYSTEM_SETTINGS_4},
        {tapAt(point::kArrowLeft), PAGE_SYSTEM_SETTINGS_3},
        {"swipe right", PAGE_SYSTEM_SETTINGS_2},
        {"swipe right", PAGE_SYSTEM_SETTINGS_1},
        {"swipe left", PAGE_SYSTEM_SETTINGS_2},
        {"swipe left", PAGE_SYSTEM_SETTINGS_3},
        {"swipe left", PAGE_SYSTEM_SETTINGS_4},
        {tapAt(point::kArrowRight), PAGE_MAIN_MENU_2},
        {"edge", PAGE_STATUS_1},
    };
    ASSERT_NO_FATAL_FAILURE(expectWalk(*rig, walk));
}

TEST_F(Navigation, DecodeHomeGroupMenuAndSettings)
{
    ASSERT_NO_FATAL_FAILURE(startRig(decodeDevice()));
    const std::vector<WalkStep> to_the_ndi_page = {
        // Two status pages only, then the three decoder pages to the right.
        {"swipe left", PAGE_STATUS_2},
        {"swipe left", PAGE_STATUS_2},
        {"swipe right", PAGE_STATUS_1},
        {"swipe right", PAGE_DECODER_SHORTCUT_1},
        {"swipe right", PAGE_DECODER_SHORTCUT_2},
        {"swipe right", PAGE_DECODER_SHORTCUT_3},
    };
    ASSERT_NO_FATAL_FAILURE(expectWalk(*rig, to_the_ndi_page));
    // Coming to the NDI page searches the network behind the operation
    // card, which holds gestures until it goes.
    ASSERT_TRUE(waitForCardGone(*rig));
    const std::vector<WalkStep> walk = {
        {"swipe left", PAGE_DECODER_SHORTCUT_2},
        {"swipe left", PAGE_DECODER_SHORTCUT_1},
        {"swipe left", PAGE_STATUS_1},
        {"swipe down", PAGE_CONNECT_APP},
        {"edge", PAGE_STATUS_1},
        // The menu's third button leads to decoding, and audio is a volume slider.
        {"swipe up", PAGE_MAIN_MENU_1},
        {tapAt(point::kMenuRight), PAGE_DECODING_SETTINGS},
        {"swipe left", PAGE_DECODING_SETTINGS},
        {"swipe down", PAGE_MAIN_MENU_1},
        {tapAt(point::kMenuLeft), PAGE_VIDEO_SETTINGS_1},
        {"swipe left", PAGE_VIDEO_SETTINGS_1},
        {"swipe down", PAGE_MAIN_MENU_1},
        {tapAt(point::kMenuMiddle), PAGE_GENERAL_SLIDER},
        {"swipe down", PAGE_MAIN_MENU_1},
        {"swipe left", PAGE_MAIN_MENU_2},
        {tapAt(point::kMenuLeft), PAGE_CAMERA_SETTINGS_1},
        {"swipe left", PAGE_CAMERA_SETTINGS_2},
        {"swipe down", PAGE_MAIN_MENU_2},
        {tapAt(point::kMenuRight), PAGE_SYSTEM_SETTINGS_1},
        {"edge", PAGE_STATUS_1},
        // Off the decode graph: the third status page only by number, with no way further left.
        {"goto 2", PAGE_STATUS_3},
        {"swipe left", PAGE_STATUS_3},
        {"goto 18", PAGE_MEDIA_SETTINGS_1},
        {"swipe left", PAGE_MEDIA_SETTINGS_1},
        {"edge", PAGE_STATUS_1},
    };
    ASSERT_NO_FATAL_FAILURE(expectWalk(*rig, walk));
}

TEST_F(Navigation, GotoReachesEveryPageAndIgnoresUnknownIds)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    std::vector<WalkStep> steps;
    for (int page = PAGE_STATUS_1; page <= PAGE_ENCODER_SHORTCUT_3; ++page)
        steps.push_back({"goto " + std::to_string(page), page});
    steps.push_back({"goto " + std::to_string(PAGE_CONNECT_APP), PAGE_CONNECT_APP});
    steps.push_back({"goto " + std::to_string(PAGE_SHORTCUT), PAGE_SHORTCUT});
    // Ids without a page and out of range change nothing.
    for (const char* id : {"31", "33", "35", "-1", "x"})
        steps.push_back({std::string("goto ") + id, PAGE_SHORTCUT});
    ASSERT_NO_FATAL_FAILURE(expectWalk(*rig, steps));
}

} // namespace
} // namespace e2e
