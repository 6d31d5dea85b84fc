#include "page_test_support.h"

#include "model/view_models/status_view_models.h"
#include "pages/page_ids.h"
#include "pages/status_page3_widget.h"

#include <QProgressBar>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

class StatusPage3Test : public ::testing::Test {
protected:
    StatusPage3Test() : page(texts(), nullptr) { applyTheme(&page, "black"); }

    QLabel* label(const char* className) const { return oneByClass(&page, className); }
    QLabel* onOff() const
    {
        QLabel* on = label("v2-p3-status-on");
        return on ? on : label("v2-p3-status-off");
    }
    QLabel* volumeIcon() const
    {
        // The left column's only icon.
        for (QLabel* icon : byClass<QLabel>(&page, "v2-p3-icon"))
            if (icon->x() < 256)
                return icon;
        return nullptr;
    }
    QProgressBar* volumeBar() const { return oneByClass<QProgressBar>(&page, "v2-p3-volume-bar"); }

    QString volumeText(int volume)
    {
        StatusPage3VM vm;
        vm.audio_on = true;
        vm.volume = volume;
        page.updateFromVm(vm);
        return label("v2-p3-volume-value")->text();
    }

    StatusPage3Widget page;
};

} // namespace

TEST_F(StatusPage3Test, VolumeReadsInDecibelsKinkedAtTheMiddle)
{
    EXPECT_EQ(volumeText(0), "-50dB");
    EXPECT_EQ(volumeText(49), "-1dB");
    EXPECT_EQ(volumeText(50), "0dB");
    EXPECT_EQ(volumeText(51), "0dB");
    EXPECT_EQ(volumeText(54), "0dB");
    EXPECT_EQ(volumeText(55), "+1dB");
    EXPECT_EQ(volumeText(100), "+10dB");
    EXPECT_EQ(volumeBar()->value(), 100);
}

TEST_F(StatusPage3Test, OnOffAndTheVolumeLook)
{
    StatusPage3VM vm;
    vm.audio_on = true;
    vm.volume = 70;
    page.updateFromVm(vm);
    EXPECT_EQ(onOff()->text(), english("statusp3.status.on"));
    EXPECT_EQ(onOff()->property("class").toString(), "v2-p3-status-on");
    EXPECT_EQ(onOff()->palette().color(QPalette::WindowText), QColor("#22c55e"));
    EXPECT_EQ(svgPathOf(volumeIcon()), ":/icons/statusp2/sound.svg");
    EXPECT_EQ(volumeBar()->property("state").toString(), "enabled");

    vm.audio_on = false;
    page.updateFromVm(vm);
    EXPECT_EQ(onOff()->text(), english("statusp3.status.off"));
    EXPECT_EQ(onOff()->property("class").toString(), "v2-p3-status-off");
    EXPECT_EQ(onOff()->palette().color(QPalette::WindowText), QColor("#4b5563"));
    EXPECT_EQ(svgPathOf(volumeIcon()), ":/icons/statusp2/mute.svg");
    EXPECT_EQ(volumeBar()->property("state").toString(), "disabled");

    vm.audio_on = true;
    vm.volume = 0;
    page.updateFromVm(vm);
    EXPECT_EQ(svgPathOf(volumeIcon()), ":/icons/statusp2/mute.svg");
    EXPECT_EQ(volumeIcon()->property("icon-state").toString(), "normal");
}

TEST_F(StatusPage3Test, HdmiSourceHasNoVolumeRow)
{
    StatusPage3VM vm;
    vm.audio_on = true;
    vm.volume = 60;
    vm.ai_type = 2;
    vm.input_samplerate = 48000;
    vm.sample_rate = 6;
    page.updateFromVm(vm);
    EXPECT_TRUE(volumeIcon()->isHidden());
    EXPECT_TRUE(label("v2-p3-volume-value")->isHidden());
    EXPECT_TRUE(volumeBar()->isHidden());
    EXPECT_FALSE(label("v2-p3-audio-label")->isHidden());
    EXPECT_FALSE(onOff()->isHidden());
    EXPECT_EQ(label("v2-p3-source-value")->text(), english("audio_source.hdmi"));
    EXPECT_EQ(label("v2-p3-samplerate-value")->text(), "96kHz");

    // What actually arrives over HDMI decides the sample rate text.
    vm.input_samplerate = 0;
    page.updateFromVm(vm);
    EXPECT_EQ(label("v2-p3-samplerate-value")->text(), english("statusp3.no_audio"));
    vm.input_samplerate = -1;
    page.updateFromVm(vm);
    EXPECT_EQ(label("v2-p3-samplerate-value")->text(), english("statusp3.audio_not_supported"));

    // Other sources show the configured rate even without input.
    vm.ai_type = 0;
    page.updateFromVm(vm);
    EXPECT_EQ(label("v2-p3-samplerate-value")->text(), "96kHz");
    EXPECT_FALSE(volumeBar()->isHidden());
}

TEST_F(StatusPage3Test, SourceCodecRateTexts)
{
    const std::pair<int, QString> sources[] = {{0, english("audio_source.line")},
                                               {1, english("audio_source.mic")},
                                               {3, english("audio_source.usb")},
                                               {4, english("audio_source.bt")},
                                               {9, "Unknown"}};
    for (const auto& [type, text] : sources) {
        StatusPage3VM vm;
        vm.ai_type = type;
        page.updateFromVm(vm);
        EXPECT_EQ(label("v2-p3-source-value")->text(), text) << type;
    }

    const std::pair<int, const char*> codecs[] = {
        {0, "AAC"}, {1, "MP3"}, {2, "G.711A"}, {3, "PCM"}, {7, "AAC"}};
    for (const auto& [codec, text] : codecs) {
        StatusPage3VM vm;
        vm.codec = codec;
        page.updateFromVm(vm);
        EXPECT_EQ(label("v2-p3-codec-value")->text(), text) << codec;
    }

    const std::pair<int, const char*> rates[] = {{0, "8kHz"},    {3, "44.1kHz"}, {4, "48kHz"},
                                                 {5, "88.2kHz"}, {8, "192kHz"},  {-1, "48kHz"}};
    for (const auto& [rate, text] : rates) {
        StatusPage3VM vm;
        vm.sample_rate = rate;
        page.updateFromVm(vm);
        EXPECT_EQ(label("v2-p3-samplerate-value")->text(), text) << rate;
    }

    const std::pair<int, const char*> bitrates[] = {
        {0, "32 kbps"}, {3, "96 kbps"}, {4, "128 kbps"}, {6, "256 kbps"}, {12, "128 kbps"}};
    for (const auto& [bitrate, text] : bitrates) {
        StatusPage3VM vm;
        vm.bitrate = bitrate;
        page.updateFromVm(vm);
        EXPECT_EQ(label("v2-p3-bitrate-value")->text(), text) << bitrate;
    }
}

TEST_F(StatusPage3Test, Gestures)
{
    EXPECT_FALSE(page.dispatchGesture(GestureKind::SwipeLeft, 0).has_value());
    EXPECT_EQ(page.onSwipeRight(0), PAGE_STATUS_2);
    EXPECT_EQ(page.onAutoSwitch(0), PAGE_STATUS_1);
    EXPECT_EQ(page.onAutoSwitch(1), -1);
    EXPECT_EQ(page.onSwipeUp(0), PAGE_MAIN_MENU_1);
    EXPECT_EQ(page.onLongPress(0), PAGE_SHORTCUT);
}

TEST_F(StatusPage3Test, Screenshots)
{
    StatusPage3VM vm;
    vm.audio_on = true;
    vm.volume = 65;
    vm.ai_type = 1;
    vm.codec = 0;
    vm.sample_rate = 4;
    vm.bitrate = 4;
    page.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&page, "status_page3").size(), 2);
    vm.ai_type = 2;
    vm.input_samplerate = 0;
    page.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&page, "status_page3_hdmi").size(), 2);
}
