// Every switch, button and list row that changes the device at one tap: the
// device's state must change, the panel must report the result on its card,
// and the page must show the new state afterwards; where the panel refuses a
// tap (a share already mounted, NDI against push streams, a missing disk or
// backdrop) it must say so and leave the device as it was.
#include "eventually.h"
#include "operation_card.h"
#include "panel_test.h"
#include "screen_analysis.h"
#include "screen_points.h"

#include "pages/page_ids.h"

namespace e2e {
namespace {

// A switch's new look (its border, icon or text colour) changes at least
// this share of its card.
constexpr double kCardLookChanged = 0.01;

struct Tap {
    int page;
    QPoint where;
    QRect look;  // the part of the screen that shows the control's state
    QRect drawn; // drawn only once the control is there to be tapped
};

class Controls : public PanelTest {
protected:
    void showPage(int page) { ASSERT_EQ(rig->pageAfter("goto " + std::to_string(page)), page); }

    // Shows the control's page and waits until the control can be tapped;
    // `quiet` gets the page as it is then, without a card.
    void showControl(const Tap& tap, QImage& quiet)
    {
        ASSERT_NO_FATAL_FAILURE(showPage(tap.page));
        // No tap passes while a card is up; and list rows come with the
        // page's first poll of the device, a moment after the page itself.
        ASSERT_TRUE(waitForCardGone(*rig)) << "a card stays up on page " << tap.page;
        quiet = rig->screen().waitFor(
            [&](const QImage& image) { return !isBlank(image.copy(tap.drawn)); });
        ASSERT_FALSE(isBlank(quiet.copy(tap.drawn))) << "nothing to tap on page " << tap.page;
    }

    // Taps, then expects the device's value at `pointer` to become `value`,
    // a success card, and the control's look on screen to change.
    void expectTapSets(const Tap& tap, const std::string& pointer, const json& value)
    {
        SCOPED_TRACE("tap on page " + std::to_string(tap.page) + " for " + pointer);
        QImage quiet;
        ASSERT_NO_FATAL_FAILURE(showControl(tap, quiet));
        rig->tap(tap.where);
        ASSERT_TRUE(deviceReaches(*rig, pointer, value))
            << "the device still has " << rig->sim().get(pointer).value_or("(nothing)").dump();
        EXPECT_TRUE(waitForCard(*rig, CardLook::Success, quiet)) << "no success card";
        ASSERT_TRUE(waitForCardGone(*rig, quiet)) << "the card didn't go";
        const QImage after = rig->screen().waitFor([&](const QImage& image) {
            return changedShare(quiet, image, tap.look) > kCardLookChanged;
        });
        EXPECT_GT(changedShare(quiet, after, tap.look), kCardLookChanged)
            << "the control doesn't show its new state";
    }

    // A switch turned over and back: the second tap must send the opposite,
    // which it can only if the page took the first change from the device.
    void expectSwitchToggles(const Tap& tap, const std::string& pointer)
    {
        const auto initial = rig->sim().get(pointer);
        ASSERT_TRUE(initial.has_value()) << pointer;
        const int was = initial->get<int>();
        ASSERT_NO_FATAL_FAILURE(expectTapSets(tap, pointer, was ? 0 : 1));
        ASSERT_NO_FATAL_FAILURE(expectTapSets(tap, pointer, was));
    }

    void expectSwitchTurns(const Tap& tap, const std::string& pointer)
    {
        const auto initial = rig->sim().get(pointer);
        ASSERT_TRUE(initial.has_value()) << pointer;
        ASSERT_NO_FATAL_FAILURE(expectTapSets(tap, pointer, initial->get<int>() ? 0 : 1));
    }

    // A tap that the panel refuses: a card in `look` and the device's value
    // at `pointer` as it was.
    void expectTapRefused(const Tap& tap, CardLook look, const std::string& pointer)
    {
        SCOPED_TRACE("refused tap on page " + std::to_string(tap.page) + " for " + pointer);
        const auto before = rig->sim().get(pointer);
        ASSERT_TRUE(before.has_value()) << pointer;
        QImage quiet;
        ASSERT_NO_FATAL_FAILURE(showControl(tap, quiet));
        rig->tap(tap.where);
        EXPECT_TRUE(waitForCard(*rig, look, quiet)) << "no " << toString(look) << " card";
        EXPECT_EQ(rig->sim().get(pointer), before) << "the device changed";
        ASSERT_TRUE(waitForCardGone(*rig, quiet)) << "the card didn't go";
        rig->settle();
        EXPECT_EQ(rig->sim().get(pointer), before) << "the device changed";
    }
};

Tap card(int page, const QPoint& centre)
{
    return {page, centre, point::cardRect(centre), point::cardRect(centre)};
}

Tap listRow(int page, int index)
{
    const QPoint centre = point::listRow(index);
    const QRect row(centre.x() - 80, centre.y() - 50, 160, 100);
    // The row's left border; an empty list's hint text doesn't reach it.
    return {page, centre, row, QRect(row.left(), row.top() + 10, 3, 80)};
}

TEST_F(Controls, EncodeSettingsSwitchesChangeTheDevice)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    // Synchronous requests and jobs on the thread pool, both ways for one of each.
    ASSERT_NO_FATAL_FAILURE(expectSwitchToggles(card(PAGE_CAMERA_SETTINGS_2, point::kCardLeft),
                                                "/system/tally/switch"));
    ASSERT_NO_FATAL_FAILURE(expectSwitchToggles(card(PAGE_NETWORK_SETTINGS_2, point::kPairLeft),
                                                "/network/wifi/switch"));
    ASSERT_NO_FATAL_FAILURE(
        expectSwitchTurns(card(PAGE_NETWORK_SETTINGS_2, point::kPairRight), "/network/ap/switch"));
    ASSERT_NO_FATAL_FAILURE(expectSwitchTurns(card(PAGE_VIDEO_SETTINGS_1, point::kCardRight),
                                              "/video/output/loop_out_switch"));
    ASSERT_NO_FATAL_FAILURE(
        expectSwitchTurns(card(PAGE_VIDEO_SETTINGS_2, point::kPairLeft), "/ai/tracking/nn_enable"));
    ASSERT_NO_FATAL_FAILURE(
        expectSwitchTurns(card(PAGE_AUDIO_SETTINGS, point::kCardLeft), "/audio/all/switch"));
    ASSERT_NO_FATAL_FAILURE(expectSwitchTurns(card(PAGE_MEDIA_SETTINGS_1, point::kCardLeft),
                                              "/stream/srt_local/switch"));
    ASSERT_NO_FATAL_FAILURE(
        expectSwitchTurns(card(PAGE_MEDIA_SETTINGS_2, point::kCardLeft), "/video/ndi/switch"));
}

TEST_F(Controls, DecodeSettingsSwitchesChangeTheDevice)
{
    ASSERT_NO_FATAL_FAILURE(startRig(decodeDevice()));
    ASSERT_NO_FATAL_FAILURE(expectSwitchToggles(card(PAGE_DECODING_SETTINGS, point::kPairLeft),
                                                "/decoder/rtmp_server/switch"));
    ASSERT_NO_FATAL_FAILURE(expectSwitchTurns(card(PAGE_DECODING_SETTINGS, point::kPairRight),
                                              "/decoder/srt_server/server_switch"));
}

TEST_F(Controls, EncoderShortcutsRecordSwitchOsdAndPushStreams)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const QRect record_button(282, point::kPageTop + 14, 76, 76);
    const Tap record{PAGE_ENCODER_SHORTCUT_1, point::kRecordButton, record_button, record_button};
    // The record button starts the task on the present disk, and stops it.
    ASSERT_NO_FATAL_FAILURE(expectTapSets(record, "/record/tasks/0/status", 1));
    ASSERT_NO_FATAL_FAILURE(expectTapSets(record, "/record/tasks/0/status", 0));
    ASSERT_NO_FATAL_FAILURE(
        expectSwitchToggles(listRow(PAGE_ENCODER_SHORTCUT_2, 1), "/osd/osd_layout/1/switch"));
    // A push stream reports its result once the device says the stream runs.
    ASSERT_NO_FATAL_FAILURE(
        expectSwitchTurns(listRow(PAGE_ENCODER_SHORTCUT_3, 0), "/stream/publish/0/switch"));
}

TEST_F(Controls, DecoderShortcutsOpenPullUvcAndNdiSources)
{
    ASSERT_NO_FATAL_FAILURE(startRig(decodeDevice()));
    ASSERT_NO_FATAL_FAILURE(
        expectSwitchTurns(listRow(PAGE_DECODER_SHORTCUT_1, 0), "/decoder/net_streams/0/switch"));
    // A UVC source that is off isn't opened from the panel: the tap reports
    // a failure. One that runs is closed by a tap.
    const Tap uvc = listRow(PAGE_DECODER_SHORTCUT_2, 0);
    QImage uvc_off;
    ASSERT_NO_FATAL_FAILURE(showControl(uvc, uvc_off));
    rig->tap(uvc.where);
    EXPECT_TRUE(waitForCard(*rig, CardLook::Failure, uvc_off)) << "no failure card";
    EXPECT_EQ(rig->sim().get("/decoder/uvc_list/0/switch"), json(0));
    ASSERT_TRUE(waitForCardGone(*rig, uvc_off));
    ASSERT_TRUE(rig->sim().set("/decoder/uvc_list/0/switch", 1));
    ASSERT_TRUE(rig->sim().set("/decoder/uvc_list/0/play_status", 1));
    const QImage uvc_on = rig->screen().waitFor([&](const QImage& image) {
        return changedShare(uvc_off, image, uvc.look) > kCardLookChanged;
    });
    ASSERT_GT(changedShare(uvc_off, uvc_on, uvc.look), kCardLookChanged)
        << "the running source doesn't show as running";
    ASSERT_NO_FATAL_FAILURE(expectTapSets(uvc, "/decoder/uvc_list/0/switch", 0));

    // The NDI page searches the network when it comes up; the sources found
    // become its rows.
    ASSERT_NO_FATAL_FAILURE(showPage(PAGE_DECODER_SHORTCUT_3));
    ASSERT_TRUE(eventually(
        [&] {
            const auto sources = rig->sim().get("/decoder/ndi/sources");
            return sources && !sources->empty();
        },
        10s));
    ASSERT_NO_FATAL_FAILURE(expectTapSets(listRow(PAGE_DECODER_SHORTCUT_3, 0),
                                          "/decoder/ndi/receiving", "STUDIO (Cam 1)"));
}

TEST_F(Controls, VideoMuteAndGreenScreenSwitchesChangeTheDevice)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    ASSERT_NO_FATAL_FAILURE(expectSwitchToggles(card(PAGE_VIDEO_SETTINGS_1, point::kCardMiddle),
                                                "/video/output/audio_switch"));
    const Tap green_screen = card(PAGE_VIDEO_SETTINGS_2, point::kPairRight);
    ASSERT_NO_FATAL_FAILURE(expectSwitchToggles(green_screen, "/ai/matting/im_enable"));
    // Without a backdrop to key in there is no green screen.
    ASSERT_TRUE(rig->sim().set("/ai/matting/user_bgfile_list", json::array()));
    ASSERT_NO_FATAL_FAILURE(
        expectTapRefused(green_screen, CardLook::Failure, "/ai/matting/im_enable"));
}

TEST_F(Controls, NasRowsMountOneShareAtATime)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    // The first share is mounted: the second waits until it is unmounted.
    ASSERT_NO_FATAL_FAILURE(expectTapRefused(listRow(PAGE_NETWORK_SETTINGS_3, 1), CardLook::Warning,
                                             "/storage/nas/1/switch"));
    ASSERT_NO_FATAL_FAILURE(
        expectTapSets(listRow(PAGE_NETWORK_SETTINGS_3, 0), "/storage/nas/0/switch", 0));
    ASSERT_NO_FATAL_FAILURE(
        expectTapSets(listRow(PAGE_NETWORK_SETTINGS_3, 1), "/storage/nas/1/switch", 1));
}

TEST_F(Controls, RecordPausesResumesAndRefusesAMissingDisk)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const auto button = [](const QPoint& centre) {
        const QRect round(centre.x() - 38, centre.y() - 38, 76, 76);
        return Tap{PAGE_ENCODER_SHORTCUT_1, centre, round, round};
    };
    const Tap record = button(point::kRecordButton);
    const Tap pause = button(point::kRecordPause);
    ASSERT_NO_FATAL_FAILURE(expectTapSets(record, "/record/tasks/0/status", 1));
    // The pause button pauses and resumes (task status 2 is paused).
    ASSERT_NO_FATAL_FAILURE(expectTapSets(pause, "/record/tasks/0/status", 2));
    ASSERT_NO_FATAL_FAILURE(expectTapSets(pause, "/record/tasks/0/status", 1));
    // The disk can't change under a running recording.
    rig->tap(point::kRecordDisk);
    rig->settle();
    EXPECT_EQ(rig->currentPage(), PAGE_ENCODER_SHORTCUT_1) << "the disk choice opened";
    ASSERT_NO_FATAL_FAILURE(expectTapSets(record, "/record/tasks/0/status", 0));

    // With its disk gone the task doesn't start, and the panel says so.
    ASSERT_TRUE(rig->sim().ok("unplug-disk sd"));
    ASSERT_NO_FATAL_FAILURE(expectTapRefused(record, CardLook::Failure, "/record/tasks/0/status"));
}

TEST_F(Controls, NdiAndPushStreamsShutEachOtherOut)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    const Tap ndi = card(PAGE_MEDIA_SETTINGS_2, point::kCardLeft);
    const Tap stream = listRow(PAGE_ENCODER_SHORTCUT_3, 0);
    ASSERT_NO_FATAL_FAILURE(expectTapSets(ndi, "/video/ndi/switch", 1));
    ASSERT_NO_FATAL_FAILURE(
        expectTapRefused(stream, CardLook::Warning, "/stream/publish/0/switch"));
    ASSERT_NO_FATAL_FAILURE(expectTapSets(ndi, "/video/ndi/switch", 0));
    ASSERT_NO_FATAL_FAILURE(expectTapSets(stream, "/stream/publish/0/switch", 1));
    ASSERT_NO_FATAL_FAILURE(expectTapRefused(ndi, CardLook::Warning, "/video/ndi/switch"));
}

TEST_F(Controls, LongListScrollsUnderTheSwipeAndTapsTheRowShown)
{
    RigOptions options = encodeDevice();
    // Five OSD layouts: three rows show at a time.
    options.device_setup.push_back(
        R"(set /osd/osd_layout [{"id":1,"name":"Logo","switch":1},)"
        R"({"id":2,"name":"Lower third","switch":0},{"id":3,"name":"Clock","switch":0},)"
        R"({"id":4,"name":"Score","switch":0},{"id":5,"name":"Ticker","switch":0}])");
    ASSERT_NO_FATAL_FAILURE(startRig(options));
    const Tap first_row = listRow(PAGE_ENCODER_SHORTCUT_2, 0);
    ASSERT_NO_FATAL_FAILURE(expectTapSets(first_row, "/osd/osd_layout/0/switch", 0));

    // A swipe to the left scrolls the list by one row while there is more
    // of it; the first place then shows the second layout.
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_ENCODER_SHORTCUT_2);
    rig->tap(first_row.where);
    EXPECT_TRUE(deviceReaches(*rig, "/osd/osd_layout/1/switch", 1));
    EXPECT_EQ(rig->sim().get("/osd/osd_layout/0/switch"), json(0));
    ASSERT_TRUE(waitForCardGone(*rig));
    // Once the list's end shows, the swipe leaves the page.
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_ENCODER_SHORTCUT_2);
    EXPECT_EQ(rig->pageAfter("swipe left"), PAGE_ENCODER_SHORTCUT_3);
}

TEST_F(Controls, DiskSpeedTestRunsAndKeepsItsResultOnScreen)
{
    ASSERT_NO_FATAL_FAILURE(startRig(encodeDevice()));
    QImage quiet;
    ASSERT_NO_FATAL_FAILURE(showControl(card(PAGE_MEDIA_SETTINGS_1, point::kCardRight), quiet));
    rig->tap(point::kCardRight);
    EXPECT_TRUE(deviceReaches(*rig, "/storage/speed_test/storage_id", 0));
    EXPECT_TRUE(waitForCard(*rig, CardLook::Success, quiet)) << "no card for the start";
    ASSERT_TRUE(waitForCardGone(*rig, quiet));

    // The device finishes; the panel's poll finds the speed and shows it on
    // a card that, unlike other results, a touch can't take away at once.
    EXPECT_TRUE(deviceReaches(*rig, "/storage/speed_test/storage_id", -1, 15s));
    ASSERT_TRUE(waitForCard(*rig, CardLook::Success, quiet, 15s)) << "no card with the speed";
    const auto shown = std::chrono::steady_clock::now();
    rig->send("touchbegin");
    EXPECT_TRUE(waitForCard(*rig, CardLook::Success, quiet, 1s)) << "a touch took the speed away";
    // After its minimum time the next touch dismisses it.
    EXPECT_TRUE(eventually(
        [&] {
            rig->send("touchbegin");
            return waitForCardGone(*rig, quiet, 1s);
        },
        15s));
    EXPECT_GT(std::chrono::steady_clock::now() - shown, 3s) << "the speed went too soon";
}

} // namespace
} // namespace e2e
