// The decisions of the in-place controls: what each one asks for, or which
// card it shows instead, given the state its page shows.
#include "control/in_place_control_rules.h"

#include <gtest/gtest.h>

using Kind = ControlAction::Kind;

namespace {

EncoderShortcutPageVM streams(bool secondOn)
{
    EncoderShortcutPageVM vm;
    vm.push_streams = {PushStreamItemInfo{0, "YouTube Live", false, 0, 0},
                       PushStreamItemInfo{1, "Twitch", secondOn, secondOn ? 1 : 0, 0}};
    vm.osd_items = {OsdItemInfo{1, "Logo", true, 1}, OsdItemInfo{2, "Lower third", false, 0}};
    return vm;
}

NetworkSettingsPageVM nas(bool firstMounted, bool secondMounted)
{
    NetworkSettingsPageVM vm;
    vm.nas_list = {NasMountInfo{"Archive", firstMounted, firstMounted ? 1 : 0},
                   NasMountInfo{"Backup", secondMounted, secondMounted ? 1 : 0}};
    return vm;
}

DecoderShortcutItemInfo source(int id, const char* name, bool on)
{
    DecoderShortcutItemInfo info;
    info.id = id;
    info.name = name;
    info.is_on = on;
    info.aux = 1;
    return info;
}

VideoSettingsPageVM backdrops(int count)
{
    VideoSettingsPageVM vm;
    vm.gsk_bg_count = count;
    return vm;
}

std::vector<VideoEncInfo> picture(int width, int height)
{
    VideoEncInfo info;
    info.width = width;
    info.height = height;
    return {info};
}

} // namespace

TEST(InPlaceRules, ChecksThatStopARequestBeforeItGoesOut)
{
    MediaSettingsPageVM ndiOn;
    ndiOn.ndi_on = true;
    DecoderShortcutPageVM decoder;
    decoder.uvc_items = {source(1, "Capture HD", false)};
    decoder.uvc_items[0].format_check = 0;
    struct Case {
        const char* name;
        ControlAction action;
        Kind kind;
        QString text;
    };
    const Case cases[] = {
        {"nas: another one mounted", nasClickedAction(nas(true, false), 1, false), Kind::Warning,
         "point_info.nas_already_opened"},
        {"nas: already so", nasClickedAction(nas(false, true), 1, false), Kind::Nothing, ""},
        {"nas: no such entry", nasClickedAction(nas(false, false), 2, false), Kind::Nothing, ""},
        {"green screen without backdrop", greenScreenClickedAction(backdrops(0), {}, false),
         Kind::FailedCard, "video_settings.no_backdrop"},
        {"ndi while streaming", ndiSwitchClickedAction(streams(true), false), Kind::Warning,
         "point_info.stream_ndi_conflict"},
        {"stream while ndi is on", pushStreamItemClickedAction(ndiOn, streams(false), 0, false),
         Kind::Warning, "point_info.close_ndi_before_stream"},
        {"no such stream", pushStreamItemClickedAction({}, streams(false), 9, false), Kind::Nothing,
         ""},
        {"no such osd layout", osdItemClickedAction(streams(false), 7, false), Kind::Nothing, ""},
        {"no such source", pullItemClickedAction(decoder, 5, false), Kind::Nothing, ""},
        {"uvc that fails a check", uvcItemClickedAction(decoder, 1, true), Kind::FailedCard,
         "point_info.invalid_param"},
        {"dc out on asks first", dcOutClickedAction(false, 2), Kind::ConfirmDialog, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.action.kind, c.kind);
        EXPECT_EQ(c.action.text.key, c.text);
    }
    EXPECT_EQ(uvcItemClickedAction(decoder, 1, false).kind, Kind::StatusCard)
        << "a row shown as unusable fails without a call";
    EXPECT_EQ(dcOutClickedAction(false, 2).confirm, (ConfirmDialogPageVM{4, 5, 0, 2}));
    EXPECT_EQ(dcOutClickedAction(false, 7).confirm.param, 1)
        << "unknown voltages ask for the low one";
}

TEST(InPlaceRules, ClosingSkipsTheChecksOfOpening)
{
    MediaSettingsPageVM ndiOn;
    ndiOn.ndi_on = true;
    EXPECT_EQ(pushStreamItemClickedAction(ndiOn, streams(true), 1, true).kind, Kind::PushStream);
    EXPECT_EQ(ndiSwitchClickedAction(streams(true), true).kind, Kind::Sync);
    DecoderShortcutPageVM decoder;
    decoder.uvc_items = {source(1, "Capture HD", true)};
    decoder.uvc_items[0].fps_check = 0;
    EXPECT_EQ(uvcItemClickedAction(decoder, 1, true).kind, Kind::Async);
    EXPECT_EQ(nasClickedAction(nas(true, true), 1, true).kind, Kind::Sync);
}

TEST(InPlaceRules, GreenScreenWarnsAbove1080pOnlyWhenTurningOn)
{
    struct Case {
        int width, height;
        bool enabled, warned;
    };
    for (const Case& c : {Case{1920, 1080, false, false}, Case{1920, 1200, false, true},
                          Case{3840, 2160, true, false}}) {
        SCOPED_TRACE(testing::Message() << c.width << "x" << c.height << " on " << c.enabled);
        const ControlAction action =
            greenScreenClickedAction(backdrops(1), picture(c.width, c.height), c.enabled);
        EXPECT_EQ(action.kind, Kind::Async);
        EXPECT_EQ(action.text.key.isEmpty(), !c.warned);
    }
    EXPECT_TRUE(greenScreenClickedAction(backdrops(1), {}, false).text.isEmpty())
        << "no picture size known, no warning";
}
