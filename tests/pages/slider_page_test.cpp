#include "page_test_support.h"
#include "pages/general_slider_page_widget.h"
#include "pages/page_ids.h"

#include <QLabel>
#include <QSignalSpy>
#include <QSlider>

#include <gtest/gtest.h>

namespace {

using Slider = GeneralSliderPageWidget;

class SliderPageTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager();
    Slider page{texts.get()};
    QSignalSpy confirmed{&page, &Slider::confirmed};

    QString shownText() const
    {
        return pagetest::firstByClass<QLabel>(&page, "v2-slider-value")->text();
    }
    int lastCommitted() const { return confirmed.last().at(1).toInt(); }
};

TEST_F(SliderPageTest, BrightnessIsShownTenAboveTheBackendValue)
{
    page.updateFromVm({Slider::SLIDER_LCD_BRIGHTNESS, PAGE_CAMERA_SETTINGS_3, 50});
    EXPECT_EQ(page.currentValue(), 60);
    EXPECT_EQ(page.sliderControl()->value(), 60);
    EXPECT_EQ(shownText(), "60");

    page.commitValue(60);
    ASSERT_EQ(confirmed.count(), 1);
    EXPECT_EQ(confirmed.last().at(0).toInt(), Slider::SLIDER_LCD_BRIGHTNESS);
    EXPECT_EQ(lastCommitted(), 50);

    page.commitValue(3);
    EXPECT_EQ(page.currentValue(), 10) << "the slider's floor is 10";
    EXPECT_EQ(lastCommitted(), 0);
    page.commitValue(250);
    EXPECT_EQ(lastCommitted(), 90);
}

TEST_F(SliderPageTest, EncoderVolumeReadsInDecibels)
{
    page.enterSliderMode(Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, 100);
    EXPECT_TRUE(page.dbMode());
    EXPECT_EQ(shownText(), "+10.0 dB");
    page.enterSliderMode(Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, 50);
    EXPECT_EQ(shownText(), "0 dB");
    page.enterSliderMode(Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, 0);
    EXPECT_EQ(shownText(), "-50 dB");
    page.enterSliderMode(Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, 51);
    EXPECT_EQ(shownText(), "+0.2 dB");

    page.commitValue(51);
    EXPECT_EQ(lastCommitted(), 51) << "the backend takes the slider's own scale";
}

TEST(SliderDecibels, ConversionsMeetAtTheKnee)
{
    EXPECT_DOUBLE_EQ(Slider::backendValueToDbValue(0), -50.0);
    EXPECT_DOUBLE_EQ(Slider::backendValueToDbValue(50), 0.0);
    EXPECT_DOUBLE_EQ(Slider::backendValueToDbValue(75), 5.0);
    EXPECT_DOUBLE_EQ(Slider::backendValueToDbValue(100), 10.0);
    for (int backend = 0; backend <= 100; ++backend) {
        EXPECT_EQ(Slider::dbValueToBackendValue(Slider::backendValueToDbValue(backend)), backend)
            << backend;
    }
    EXPECT_EQ(Slider::dbValueToDisplayText(-12.7), "-12 dB");
    EXPECT_EQ(Slider::dbValueToDisplayText(0.0), "0 dB");
    EXPECT_EQ(Slider::dbValueToDisplayText(3.4), "+3.4 dB");
}

TEST_F(SliderPageTest, SleepMinutesAreClampedAndLabelled)
{
    page.enterSliderMode(Slider::SLIDER_LCD_SLEEP, PAGE_CAMERA_SETTINGS_3, 45);
    EXPECT_EQ(page.currentValue(), 30);
    EXPECT_EQ(shownText(), "30" + texts->getTextWithFallback("camera_settings.min"));
    page.enterSliderMode(Slider::SLIDER_LCD_SLEEP, PAGE_CAMERA_SETTINGS_3, 0);
    EXPECT_EQ(page.currentValue(), 1);
    EXPECT_EQ(confirmed.count(), 0);
}

TEST_F(SliderPageTest, SwipesMoveByTheTypeStepWithoutCommitting)
{
    page.enterSliderMode(Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 40);
    EXPECT_EQ(page.onSwipeRight(0), -1);
    EXPECT_EQ(page.currentValue(), 45);
    EXPECT_EQ(shownText(), "45");
    page.onSwipeLeft(0);
    page.onSwipeLeft(0);
    EXPECT_EQ(page.currentValue(), 35);

    page.enterSliderMode(Slider::SLIDER_LCD_SLEEP, PAGE_CAMERA_SETTINGS_3, 29);
    page.onSwipeRight(0);
    page.onSwipeRight(0);
    EXPECT_EQ(page.currentValue(), 30) << "steps of one, held at the top";

    page.enterSliderMode(Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, 0);
    page.onSwipeLeft(0);
    EXPECT_EQ(page.currentValue(), 0);
    page.onSwipeRight(0);
    EXPECT_EQ(page.currentValue(), 1);

    EXPECT_EQ(confirmed.count(), 0) << "leaving after a swipe sends nothing";
    page.commitCurrentValue();
    EXPECT_EQ(lastCommitted(), 1);
}

TEST_F(SliderPageTest, DraggingTheControlOnlyChangesTheDisplay)
{
    page.enterSliderMode(Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 10);
    page.sliderControl()->setValue(70);
    EXPECT_EQ(page.currentValue(), 70);
    EXPECT_EQ(shownText(), "70");
    EXPECT_EQ(confirmed.count(), 0);
}

TEST_F(SliderPageTest, RepeatedRecordDoesNotFightTheFinger)
{
    const SliderModePageVM vm{Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 20};
    page.updateFromVm(vm);
    page.onSwipeRight(0);
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentValue(), 25);

    page.updateFromVm({Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 60});
    EXPECT_EQ(page.currentValue(), 60) << "a new backend value is taken";

    page.onSwipeRight(0);
    page.setDirty(true);
    page.updateFromVm({Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 60});
    EXPECT_EQ(page.currentValue(), 60) << "a language change re-enters the mode";
    EXPECT_EQ(page.onSwipeDown(0), PAGE_MAIN_MENU_1);
    EXPECT_EQ(page.onEdgeSwipeToCenter(0), PAGE_STATUS_1);
    EXPECT_FALSE(page.dispatchGesture(GestureKind::LongPress, 0).has_value());
}

TEST_F(SliderPageTest, TrackIsPaintedInTheStyleSheetColours)
{
    page.setStyleSheet(
        "QWidget[class=\"v2-slider-page\"] { background: #000000;"
        " qproperty-sliderTrackColor: #0000ff; qproperty-sliderTrackBorderColor: #0000ff;"
        " qproperty-sliderFillColor: #ff0000; }"
        // The control itself draws nothing, as in the themes.
        "QSlider::groove:horizontal { background: transparent; border: none; height: 16px; }"
        "QSlider::sub-page:horizontal, QSlider::add-page:horizontal { background: transparent; }"
        "QSlider::handle:horizontal { background: transparent; border: none; width: 32px;"
        " margin: -12px 0; }");
    page.enterSliderMode(Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 50);
    pagetest::showAndSettle(&page);
    const QImage image = page.grab().toImage();
    // Track: x 64..576 at y 68..80; the handle covers the middle.
    const int trackMiddleY = 74;
    EXPECT_EQ(image.pixelColor(120, trackMiddleY), QColor("#ff0000")) << "passed part";
    EXPECT_EQ(image.pixelColor(520, trackMiddleY), QColor("#0000ff")) << "rest of the track";
    EXPECT_EQ(image.pixelColor(20, trackMiddleY), QColor("#000000")) << "outside the track";
}

TEST(SliderPageLook, Screenshots)
{
    auto texts = pagetest::makeTextManager();
    Slider page(texts.get());
    page.updateFromVm({Slider::SLIDER_LCD_BRIGHTNESS, PAGE_CAMERA_SETTINGS_3, 55});
    pagetest::showAndSettle(&page);
    pagetest::saveThemedScreenshots(&page, "slider_brightness");
    page.updateFromVm({Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, 80});
    pagetest::saveThemedScreenshots(&page, "slider_encoder_volume");
    EXPECT_EQ(page.valueText(), "+6.0 dB");
}

} // namespace
