#include "page_test_support.h"

#include "pages/page_ids.h"
#include "pages/status_page2_format.h"
#include "pages/status_page2_widget.h"
#include "ui/text_manager.h"

#include <QTimer>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

class StatusPage2Test : public ::testing::Test {
protected:
    StatusPage2Test() : page(texts(), nullptr) { applyTheme(&page, "black"); }

    // The label of a class; where a class is shared between the encode and
    // decode layouts, the one the page shows.
    QLabel* label(const char* className) const
    {
        if (QLabel* only = oneByClass(&page, className))
            return only;
        const QList<QLabel*> visible = shown(className);
        return visible.size() == 1 ? visible.first() : nullptr;
    }
    // The labels of a class that the page shows, left to right, top to bottom.
    QList<QLabel*> shown(const char* className) const
    {
        QList<QLabel*> result;
        for (QLabel* l : byClass<QLabel>(&page, className))
            if (!l->isHidden())
                result << l;
        return result;
    }
    // The output format is the lower of the two in encode mode, the only one in decode mode.
    QLabel* outputFormat() const { return shown("v2-p2-value").last(); }
    // Loop and sound labels: the first two shown (the decoder's status stands right of them).
    QList<QLabel*> statusLabels() const { return shown("v2-p2-status-label").mid(0, 2); }
    QList<QLabel*> statusIcons() const { return byClass<QLabel>(&page, "v2-p2-status-icon"); }
    QLabel* badge() const
    {
        QLabel* main = label("v2-p2-badge-main");
        return main ? main : label("v2-p2-badge-sub");
    }
    QLabel* bitrate() const { return label("v2-p2-bitrate-value"); }

    static StatusPage2VM encoder()
    {
        StatusPage2VM vm;
        vm.in_width = 1920;
        vm.in_height = 1080;
        vm.in_fps = 60;
        vm.out_format = "720p50";
        vm.main_codec = 1;
        vm.main_width = 1920;
        vm.main_height = 1080;
        vm.main_framerate = 60;
        vm.main_bitrate = 8000;
        vm.sub_codec = 2;
        vm.sub_width = 640;
        vm.sub_height = 360;
        vm.sub_framerate = 30;
        vm.sub_bitrate = 1000;
        return vm;
    }

    static StatusPage2VM decoder(int status)
    {
        StatusPage2VM vm;
        vm.work_mode = 1;
        vm.dec_status = status;
        vm.dec_name = "Camera 2";
        vm.out_format = "1080p60";
        vm.ao_volume = 30;
        return vm;
    }

    StatusPage2Widget page;
};

QString inputText(int w, int h, int fps, int fpsdiv)
{
    StatusPage2Widget page(texts(), nullptr);
    StatusPage2VM vm;
    vm.in_width = w;
    vm.in_height = h;
    vm.in_fps = fps;
    vm.in_fpsdiv = fpsdiv;
    page.updateFromVm(vm);
    return byClass<QLabel>(&page, "v2-p2-value").value(0)->text(); // input above output
}

} // namespace

TEST(StatusPage2Input, FormatOfTheInputSignal)
{
    EXPECT_EQ(inputText(1920, 1080, 60, 0), "1080p60");
    EXPECT_EQ(inputText(1920, 1080, 60, 1), "1080p59.94");
    EXPECT_EQ(inputText(1920, 1080, 59, 0), english("statusp2.not_supported"));
    EXPECT_EQ(inputText(1920, 540, 50, 0), "1080i50");
    EXPECT_EQ(inputText(3840, 2160, 30, 1), "2160p29.97");
    EXPECT_EQ(inputText(3840, 2160, 24, 1), "2160p23.976");
    EXPECT_EQ(inputText(1280, 720, 120, 1), "720p119.88");
    EXPECT_EQ(inputText(1280, 720, 50, 1), "720p50");
    EXPECT_EQ(inputText(1920, 540, 30, 0), english("statusp2.not_supported"));
    EXPECT_EQ(inputText(0, 1080, 60, 0), english("statusp2.no_signal"));
    EXPECT_EQ(inputText(1920, 1080, 0, 0), english("statusp2.no_signal"));
}

TEST(StatusPage2Input, SizesOutsideTheNamedOnesReadAsNumbers)
{
    EXPECT_EQ(StatusPage2Format::videoFormatText(1600, 900, 60, 1), "1600x900@59.94");
    EXPECT_EQ(StatusPage2Format::videoFormatText(720, 576, 25, 0), "720x576@25");
    EXPECT_FALSE(StatusPage2Format::isSupportedInput(3840, 2160, 120));
    EXPECT_TRUE(StatusPage2Format::isSupportedInput(1920, 1080, 100));
}

TEST_F(StatusPage2Test, LoopOutputRepeatsTheInput)
{
    StatusPage2VM vm = encoder();
    page.updateFromVm(vm);
    EXPECT_EQ(outputFormat()->text(), "720p50");
    const auto labels = statusLabels();
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->property("state").toString(), "normal");
    EXPECT_EQ(statusIcons()[0]->property("icon-state").toString(), "disabled");

    vm.loop_out_on = true;
    vm.in_fpsdiv = 1;
    page.updateFromVm(vm);
    EXPECT_EQ(outputFormat()->text(), "1080p59.94");
    EXPECT_EQ(labels[0]->property("state").toString(), "active-green");
    EXPECT_EQ(labels[0]->palette().color(QPalette::WindowText), QColor("#4ade80"));
    EXPECT_EQ(statusIcons()[0]->property("icon-state").toString(), "active-green");
}

TEST_F(StatusPage2Test, EncoderMuteLightsRedWhenAudioIsOff)
{
    StatusPage2VM vm = encoder();
    vm.audio_out_on = true;
    page.updateFromVm(vm);
    QLabel* sound = statusLabels().value(1);
    QLabel* soundIcon = statusIcons().value(1);
    ASSERT_TRUE(sound && soundIcon);
    EXPECT_EQ(sound->text(), english("statusp2.label.mute"));
    EXPECT_EQ(sound->property("state").toString(), "normal");
    EXPECT_EQ(svgPathOf(soundIcon), ":/icons/statusp2/mute.svg");
    EXPECT_EQ(soundIcon->property("icon-state").toString(), "disabled");

    vm.audio_out_on = false;
    page.updateFromVm(vm);
    EXPECT_EQ(sound->property("state").toString(), "active-red");
    EXPECT_EQ(sound->palette().color(QPalette::WindowText), QColor("#f87171"));
    EXPECT_EQ(soundIcon->property("icon-state").toString(), "active-red");
}

TEST_F(StatusPage2Test, DecoderShowsTheOutputVolume)
{
    StatusPage2VM vm = decoder(1);
    page.updateFromVm(vm);
    // Decode mode stacks the left column: output, loop, volume.
    const auto labels = statusLabels();
    ASSERT_EQ(labels.size(), 2);
    QLabel* volume = labels[1];
    EXPECT_EQ(volume->geometry(), QRect(48, 88, 162 - 48, 32));
    EXPECT_EQ(volume->text(), "30");
    EXPECT_EQ(volume->property("state").toString(), "active-green");
    EXPECT_EQ(svgPathOf(statusIcons()[1]), ":/icons/statusp2/sound.svg");
    EXPECT_EQ(statusIcons()[1]->property("icon-state").toString(), "active-green");
    EXPECT_EQ(outputFormat()->text(), "1080p60");
    EXPECT_EQ(outputFormat()->geometry(), QRect(48, 8, 114, 32));
    EXPECT_EQ(shown("v2-p2-value").size(), 1);

    vm.ao_volume = 0;
    page.updateFromVm(vm);
    EXPECT_EQ(volume->text(), "0");
    EXPECT_EQ(volume->property("state").toString(), "active-red");
    EXPECT_EQ(svgPathOf(statusIcons()[1]), ":/icons/statusp2/mute.svg");
    EXPECT_EQ(statusIcons()[1]->property("icon-state").toString(), "active-red");
}

TEST_F(StatusPage2Test, DividerMovesWithTheWorkMode)
{
    page.updateFromVm(encoder());
    QLabel* divider = label("v2-p2-center-divider");
    EXPECT_EQ(divider->geometry(), QRect(224, 15, 1, 112));
    EXPECT_EQ(badge()->geometry(), QRect(244, 15, 220, 28));
    EXPECT_EQ(label("v2-p2-res-value")->geometry(), QRect(276, 49, 150, 36));
    EXPECT_EQ(shown("v2-p2-value").first()->geometry(), QRect(48, 8, 207 - 48, 32));

    page.updateFromVm(decoder(1));
    EXPECT_EQ(divider->x(), 179);
    EXPECT_TRUE(badge()->isHidden());
    EXPECT_TRUE(label("v2-p2-res-value")->isHidden());
    const auto names = byClass<QLabel>(&page, "v2-p2-stream-name");
    ASSERT_EQ(names.size(), 2);
    // Stream name at c + 46, summary at c + 14, both to x 625.
    EXPECT_EQ(names[0]->geometry(), QRect(193, 92, 625 - 193, 32));
    EXPECT_EQ(names[1]->geometry(), QRect(225, 8, 625 - 225, 32));
}

TEST_F(StatusPage2Test, StreamsAlternateEveryThreeSeconds)
{
    QTimer* timer = page.streamSwitchTimer();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 3000);

    page.updateFromVm(encoder());
    EXPECT_TRUE(page.isShowingMainStream());
    EXPECT_EQ(badge()->text(), english("statusp2.badge.mainstream"));
    EXPECT_EQ(badge()->property("class").toString(), "v2-p2-badge-main");
    EXPECT_EQ(label("v2-p2-codec-value")->text(), "H.265");
    EXPECT_EQ(label("v2-p2-res-value")->text(), "1920x1080");
    EXPECT_EQ(label("v2-p2-fps-value")->text(), "@ 60FPS");
    EXPECT_EQ(bitrate()->text(), "8000 kbps");
    EXPECT_FALSE(bitrate()->isHidden());

    QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_FALSE(page.isShowingMainStream());
    EXPECT_EQ(badge()->text(), english("statusp2.badge.substream"));
    EXPECT_EQ(badge()->property("class").toString(), "v2-p2-badge-sub");
    EXPECT_EQ(label("v2-p2-codec-value")->text(), "MJPEG");
    EXPECT_EQ(label("v2-p2-res-value")->text(), "640x360");
    // MJPEG has no bit rate.
    EXPECT_TRUE(bitrate()->isHidden());

    // The phase survives an update, and the next tick brings the main stream back.
    page.updateFromVm(encoder());
    EXPECT_FALSE(page.isShowingMainStream());
    QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_EQ(label("v2-p2-codec-value")->text(), "H.265");
    EXPECT_FALSE(bitrate()->isHidden());
}

TEST_F(StatusPage2Test, NdiBitRateIsAPercentage)
{
    StatusPage2VM vm = encoder();
    vm.ndi_on = true;
    vm.main_bitrate = 80;
    page.updateFromVm(vm);
    EXPECT_EQ(bitrate()->text(), "80 %");
}

TEST_F(StatusPage2Test, TimerTicksChangeNothingInDecodeMode)
{
    page.updateFromVm(decoder(3));
    const bool before = page.isShowingMainStream();
    page.onStreamSwitchTimeout();
    EXPECT_EQ(page.isShowingMainStream(), before);
    EXPECT_TRUE(badge()->isHidden());
}

TEST_F(StatusPage2Test, DecoderNotStarted)
{
    page.updateFromVm(decoder(0));
    QLabel* notStarted = nullptr;
    for (QLabel* l : byClass<QLabel>(&page, "v2-p2-codec-value"))
        if (!l->isHidden())
            notStarted = l;
    ASSERT_NE(notStarted, nullptr);
    EXPECT_EQ(notStarted->text(), english("statusp2.dec_not_start"));
    EXPECT_EQ(notStarted->geometry(), QRect(193, 51, 625 - 193, 40));
    for (QLabel* l : byClass<QLabel>(&page, "v2-p2-stream-name"))
        EXPECT_TRUE(l->isHidden());
    // Only the loop and volume labels remain of the status labels.
    EXPECT_EQ(shown("v2-p2-status-label").size(), 2);
}

TEST_F(StatusPage2Test, DecoderStatusTextAndColour)
{
    struct Case {
        int status;
        const char* state;
    };
    const Case cases[] = {{1, "active-green"},  {5, "active-green"},  {10, "active-green"},
                          {2, "active-yellow"}, {6, "active-yellow"}, {11, "active-red"},
                          {12, "active-red"},   {7, "normal"},        {42, "normal"}};
    for (const Case& c : cases) {
        page.updateFromVm(decoder(c.status));
        // The decoder's status label stands right of its icon, at c + 46.
        QLabel* status = nullptr;
        for (QLabel* l : byClass<QLabel>(&page, "v2-p2-status-label"))
            if (l->x() == 225)
                status = l;
        ASSERT_NE(status, nullptr);
        EXPECT_FALSE(status->isHidden());
        EXPECT_EQ(status->text(), texts()->getTextWithFallback(
                                      QStringLiteral("pull_status.status_%1").arg(c.status)));
        EXPECT_EQ(status->property("state").toString(), c.state) << c.status;
    }
}

TEST_F(StatusPage2Test, DecoderNameAndSummaryLine)
{
    StatusPage2VM vm = decoder(1);
    vm.dec_video_format = " H264 ";
    vm.dec_audio_format = "unknown";
    vm.dec_width = 1920;
    vm.dec_height = 1080;
    vm.dec_framerate = 59.94;
    vm.dec_bandwidth = 2500;
    page.updateFromVm(vm);
    const auto names = byClass<QLabel>(&page, "v2-p2-stream-name");
    QLabel* summary = names[0];
    QLabel* name = names[1];
    EXPECT_EQ(name->text(), "Camera 2");
    EXPECT_EQ(summary->text(), "H264    1920x1080@59.94    2.5Mbps");

    vm.dec_audio_format = "AAC";
    vm.dec_framerate = 30.0;
    vm.dec_bandwidth = 2000;
    page.updateFromVm(vm);
    // Four fields are more than the line holds in the test font; the whole
    // line is checked before the cut.
    EXPECT_EQ(StatusPage2Format::decoderSummaryText(vm), "H264    AAC    1920x1080@30    2Mbps");
    EXPECT_TRUE(summary->text().startsWith("H264    AAC    1920x1080@30"));

    vm.dec_video_format = "0";
    vm.dec_framerate = 0;
    vm.dec_bandwidth = 999;
    page.updateFromVm(vm);
    EXPECT_EQ(summary->text(), "AAC    999kbps");

    vm.dec_bandwidth = 0;
    vm.dec_name.clear();
    page.updateFromVm(vm);
    EXPECT_EQ(summary->text(), "AAC");
    EXPECT_EQ(name->text(), english("statusp2.dec_not_start"));

    // Too long for the line: cut at the right.
    vm.dec_video_format = QString(80, QLatin1Char('M'));
    page.updateFromVm(vm);
    EXPECT_TRUE(summary->text().endsWith(QChar(0x2026)));
    EXPECT_LE(QFontMetrics(summary->font()).horizontalAdvance(summary->text()), summary->width());
}

TEST(StatusPage2Summary, BandwidthAndFields)
{
    using namespace StatusPage2Format;
    EXPECT_EQ(bandwidthText(1), "1kbps");
    EXPECT_EQ(bandwidthText(1000), "1Mbps");
    EXPECT_EQ(bandwidthText(1050), "1.1Mbps");
    EXPECT_EQ(compactSummaryField("  UnKnOwN "), QString());
    EXPECT_EQ(compactSummaryField(" HEVC "), "HEVC");
}

TEST_F(StatusPage2Test, Gestures)
{
    EXPECT_EQ(page.onSwipeLeft(0), PAGE_STATUS_3);
    EXPECT_EQ(page.onSwipeLeft(1), -1);
    EXPECT_EQ(page.onSwipeRight(1), PAGE_STATUS_1);
    EXPECT_EQ(page.onAutoSwitch(0), PAGE_STATUS_3);
    EXPECT_EQ(page.onAutoSwitch(1), PAGE_STATUS_1);
    EXPECT_EQ(page.onAutoSwitch(2), -1);
    EXPECT_EQ(page.onSwipeUp(1), PAGE_MAIN_MENU_1);
    EXPECT_EQ(page.onSwipeDown(1), PAGE_CONNECT_APP);
    EXPECT_EQ(page.onLongPress(1), PAGE_SHORTCUT);
    EXPECT_EQ(page.onEdgeSwipeToCenter(0), PAGE_STATUS_1);
}

TEST_F(StatusPage2Test, Screenshots)
{
    StatusPage2VM vm = encoder();
    vm.loop_out_on = true;
    page.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&page, "status_page2_encode").size(), 2);
    vm = decoder(1);
    vm.dec_video_format = "H264";
    vm.dec_audio_format = "AAC";
    vm.dec_width = 1920;
    vm.dec_height = 1080;
    vm.dec_framerate = 59.94;
    vm.dec_bandwidth = 4500;
    page.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&page, "status_page2_decode").size(), 2);
}
