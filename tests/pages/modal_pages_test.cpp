// The modal pages a setting opens: the option ring of the edit page, the
// slider with its scales, and the confirmation of a grave action.
#include "page_test_support.h"

#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"
#include "pages/page_ids.h"

#include <QPushButton>
#include <QSlider>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

using Edit = GeneralEditPageWidget;
using Slider = GeneralSliderPageWidget;

const QStringList kFullHd60 = {"1080p60",    "1080p59.94", "1080p30",
                               "1080p29.97", "720p60",     "720p59.94"};

// The options offered depend on the input signal, the serial adapter and the work mode.
TEST(EditPage, OffersTheOptionsTheDeviceCanTake)
{
    struct Case {
        int type;
        int width, height, fps, usb2serial, work_mode;
        QStringList options;
    };
    using L = QStringList;
    const Case cases[] = {
        {Edit::EDIT_TALLY_MODE, 0, 0, 0, 0, 0, L{"Auto", "Manual", "Tally Signal", "Gaming"}},
        {Edit::EDIT_USB_MODE, 0, 0, 0, 0, 0, L{"HOST", "DEVICE"}},
        {Edit::EDIT_NDI_QUALITY, 0, 0, 0, 0, 0, L{"NDI® | HX1", "NDI® | HX2", "NDI® | HX3"}},
        {Edit::EDIT_RECORD_DISK, 0, 0, 0, 0, 0, L{"TF", "USB1", "NAS"}},
        {Edit::EDIT_PTZ_PROTOCOL, 0, 0, 0, 0, 0, L{"VISCA over IP"}},
        {Edit::EDIT_PTZ_PROTOCOL, 0, 0, 0, 1, 0, L{"VISCA over IP", "VISCA", "PELCO D", "PELCO P"}},
        {Edit::EDIT_PTZ_PROTOCOL, 0, 0, 0, 0, 1, L{"VISCA over IP", "NDI®", "UVC"}},
        {Edit::EDIT_PTZ_PROTOCOL, 0, 0, 0, 1, 1,
         L{"VISCA over IP", "VISCA", "PELCO D", "PELCO P", "NDI®", "UVC"}},
        {Edit::EDIT_VO_FORMAT, 3840, 2160, 25, 0, 0,
         L{"2160p50", "2160p25", "1080p50", "1080p25", "720p50"}},
        {Edit::EDIT_VO_FORMAT, 3840, 2160, 24, 0, 0,
         L{"2160p24", "2160p23.976", "1080p24", "1080p23.976"}},
        {Edit::EDIT_VO_FORMAT, 1920, 1080, 120, 0, 0, kFullHd60},
        {Edit::EDIT_VO_FORMAT, 1920, 1080, 100, 0, 0, L{"1080p50", "1080p25", "720p50"}},
        {Edit::EDIT_VO_FORMAT, 1920, 540, 50, 0, 0, L{"1080p50", "1080p25", "720p50"}}, // 1080i
        {Edit::EDIT_VO_FORMAT, 1280, 720, 24, 0, 0, L{"720p24"}},
        {Edit::EDIT_VO_FORMAT, 1280, 720, 30, 0, 0, L{"720p60", "720p59.94"}},
        // Without a usable input: the common full HD list.
        {Edit::EDIT_VO_FORMAT, 0, 0, 0, 0, 0, kFullHd60},
        {Edit::EDIT_VO_FORMAT, 720, 576, 50, 0, 0, kFullHd60},
        {Edit::EDIT_VO_FORMAT, 1920, 1080, 29, 0, 0, kFullHd60},
    };
    Edit page(texts());
    for (const Case& c : cases) {
        page.setVoFormatContext(c.width, c.height, c.fps, QString(), c.work_mode);
        page.setPtzProtoContext(c.usb2serial, c.work_mode);
        page.enterEditMode(c.type, PAGE_STATUS_1, 0);
        EXPECT_EQ(page.optionTexts(), c.options) << c.type << " " << c.width << "@" << c.fps;
    }
    page.setVoFormatContext(1280, 720, 24, QString(), 1);
    page.enterEditMode(Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1);
    EXPECT_EQ(page.optionTexts().size(), 19) << "the decoder offers the fixed list";
    EXPECT_EQ(page.optionTexts().first(), "2160p60");
}

TEST(EditPage, OptionsFormARingThatMarksOnlyTheValueInForce)
{
    Edit page(texts());
    auto actualMarked = [&] {
        return stateOf(firstByClass(&page, "v2-edit-option-label"), "option-state") == "actual";
    };
    page.setVoFormatContext(1920, 1080, 60, "1080p30", 0);
    page.updateFromVm({Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1, 0, 0});
    EXPECT_EQ(page.currentOption(), "1080p30") << "opens at the format in force";
    EXPECT_TRUE(actualMarked());
    page.setVoFormatContext(1920, 1080, 50, "1080p60", 0);
    page.updateFromVm({Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1, 0, 0});
    EXPECT_EQ(page.actualIndex(), -1) << "a format the list doesn't offer marks nothing";
    EXPECT_FALSE(actualMarked());

    page.enterEditMode(Edit::EDIT_AUDIO_SOURCE, PAGE_AUDIO_SETTINGS, 2);
    const int count = page.optionTexts().size();
    EXPECT_TRUE(actualMarked());
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(page.currentIndex(), 3);
    EXPECT_FALSE(actualMarked());
    firstByClass<QPushButton>(&page, "v2-edit-arrow-btn")->click(); // the left arrow
    EXPECT_EQ(page.currentIndex(), 2);
    for (int step = 0; step < count; ++step)
        page.onSwipeRight(0);
    EXPECT_EQ(page.currentIndex(), 2) << "a full turn comes back";

    const auto confirmed = spyOn(&page, "confirmed");
    page.nextOption();
    firstByClass<QPushButton>(&page, "v2-edit-confirm-btn")->click();
    EXPECT_EQ(confirmed->value(0), (QVariantList{Edit::EDIT_AUDIO_SOURCE, 3}));
    EXPECT_EQ(page.actualIndex(), 2) << "the mark moves only when the device confirms";
    page.setActualIndex(count);
    EXPECT_EQ(page.actualIndex(), 2) << "an index outside the list is refused";
    page.setActualIndex(3);
    EXPECT_TRUE(actualMarked());

    const auto cancelled = spyOn(&page, "cancelled");
    firstByClass<QPushButton>(&page, "v2-edit-cancel-btn")->click();
    EXPECT_EQ(cancelled->value(0), QVariantList{PAGE_AUDIO_SETTINGS});
    EXPECT_EQ(page.onSwipeDown(0), PAGE_AUDIO_SETTINGS);
}

TEST(EditPage, RecordDisksMapToStorageIdsAndAChangedLanguageKeepsTheSelection)
{
    auto manager = makeTextManager();
    Edit page(manager.get());
    page.enterEditMode(Edit::EDIT_RECORD_DISK, PAGE_MEDIA_SETTINGS_1, 0);
    QVector<int> ids;
    for (int option = 0; option < 3; ++option, page.nextOption())
        ids << page.currentStorageId();
    EXPECT_EQ(ids, QVector<int>({0, 1, 3})) << "SD card, USB disk, NAS";

    const EditModePageVM vm{Edit::EDIT_TALLY_LIGHT, PAGE_CAMERA_SETTINGS_2, 0, 0, 0};
    page.updateFromVm(vm);
    page.nextOption();
    EXPECT_EQ(page.currentStorageId(), -1);
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentIndex(), 0) << "a refresh opens at the value in force";
    page.nextOption();
    manager->switchLanguage(kFrench);
    page.setDirty(true);
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentIndex(), 1);
    EXPECT_EQ(page.currentOption(), manager->getTextWithFallback("tally_light.red"));
    EXPECT_NE(page.currentOption(), english("tally_light.red"));
}

class SliderPage : public ::testing::Test {
protected:
    QString shown() const { return firstByClass(&page, "v2-slider-value")->text(); }
    QVariant committed() const { return confirmed->isEmpty() ? QVariant() : confirmed->last()[1]; }
    Slider page{texts()};
    std::unique_ptr<QSignalSpy> confirmed = spyOn(&page, "confirmed");
};

TEST_F(SliderPage, EachTypeHasItsScaleAndLimits)
{
    struct Case {
        int type, backend, shown_value;
        QString text;
        int commit, sent;
    };
    const QString minutes = english("camera_settings.min");
    const Case cases[] = {
        // Brightness shows ten above the device's value, from 10 up.
        {Slider::SLIDER_LCD_BRIGHTNESS, 50, 60, "60", 3, 0},
        {Slider::SLIDER_LCD_BRIGHTNESS, 40, 50, "50", 250, 90},
        {Slider::SLIDER_LCD_SLEEP, 45, 30, "30" + minutes, 0, 1},
        {Slider::SLIDER_LCD_SLEEP, 0, 1, "1" + minutes, 12, 12},
        // The encoder's volume reads in decibels; the device takes the slider's scale.
        {Slider::SLIDER_ENC_VOLUME, 100, 100, "+10.0 dB", 51, 51},
        {Slider::SLIDER_ENC_VOLUME, 51, 51, "+0.2 dB", 0, 0},
        {Slider::SLIDER_ENC_VOLUME, 0, 0, "-50 dB", 50, 50},
        {Slider::SLIDER_OUT_VOLUME, 40, 40, "40", 70, 70},
    };
    for (const Case& c : cases) {
        page.updateFromVm({c.type, PAGE_CAMERA_SETTINGS_3, c.backend});
        EXPECT_EQ(page.currentValue(), c.shown_value) << c.type << "/" << c.backend;
        EXPECT_EQ(page.sliderControl()->value(), c.shown_value);
        EXPECT_EQ(shown(), c.text);
        page.commitValue(c.commit);
        EXPECT_EQ(confirmed->last(), (QVariantList{c.type, c.sent}));
    }
    for (int backend = 0; backend <= 100; ++backend)
        EXPECT_EQ(Slider::dbValueToBackendValue(Slider::backendValueToDbValue(backend)), backend);
    EXPECT_DOUBLE_EQ(Slider::backendValueToDbValue(75), 5.0) << "the upper half is steeper";
    EXPECT_EQ(Slider::dbValueToDisplayText(-12.7), "-12 dB");
}

TEST_F(SliderPage, SwipesAndDragsMoveTheValueWithoutCommittingIt)
{
    const std::tuple<int, int, int, int> steps[] = {
        // type, start, after a right swipe, after two left
        {Slider::SLIDER_OUT_VOLUME, 40, 45, 35},
        {Slider::SLIDER_LCD_SLEEP, 30, 30, 28},
        {Slider::SLIDER_ENC_VOLUME, 0, 1, 0}};
    for (const auto& [type, start, right, left] : steps) {
        page.enterSliderMode(type, PAGE_MAIN_MENU_1, start);
        EXPECT_EQ(page.onSwipeRight(0), -1);
        EXPECT_EQ(page.currentValue(), right) << type;
        page.onSwipeLeft(0);
        page.onSwipeLeft(0);
        EXPECT_EQ(page.currentValue(), left) << type;
    }
    page.sliderControl()->setValue(70);
    EXPECT_EQ(page.currentValue(), 70);
    EXPECT_EQ(confirmed->count(), 0) << "leaving after a swipe or drag sends nothing";
    page.commitCurrentValue();
    EXPECT_EQ(committed(), 70);

    // A repeated record doesn't fight the finger; a new one is taken.
    const SliderModePageVM vm{Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 20};
    page.updateFromVm(vm);
    page.onSwipeRight(0);
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentValue(), 25);
    page.updateFromVm({Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, 60});
    EXPECT_EQ(page.currentValue(), 60);
    EXPECT_EQ(page.onSwipeDown(0), PAGE_MAIN_MENU_1);
}

TEST_F(SliderPage, TrackIsPaintedInTheStyleSheetColours)
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
    showAndSettle(&page);
    const QImage image = page.grab().toImage();
    // The track runs at y 74 from x 64 to 576; the handle covers the middle.
    EXPECT_EQ(image.pixelColor(120, 74), QColor("#ff0000")) << "passed part";
    EXPECT_EQ(image.pixelColor(520, 74), QColor("#0000ff")) << "rest of the track";
    EXPECT_EQ(image.pixelColor(20, 74), QColor("#000000")) << "outside the track";
}

TEST(ConfirmPage, AsksForTheActionAndAnswersWithItOrTheWayBack)
{
    GeneralConfirmPageWidget page(texts());
    const std::tuple<int, int, QString> messages[] = {
        {CONFIRM_ACTION_REBOOT, 1, english("system_settings.restart_content")},
        {CONFIRM_ACTION_RESET, 1, english("system_settings.restore_content")},
        {CONFIRM_ACTION_STANDBY, 1, english("system_settings.standby_content")},
        {7, 1, ""}};
    for (const auto& [action, param, message] : messages) {
        page.updateFromVm({action, PAGE_SYSTEM_SETTINGS_3, 0, param});
        EXPECT_EQ(page.messageText(), message) << action;
    }
    // The DC output's message names the voltage; any parameter but 2 is the 8.4 V output.
    const std::tuple<int, const char*, int> dcOutputs[] = {{2, "12V", 2}, {0, "8.4V", 1}};
    for (const auto& [param, volts, id] : dcOutputs) {
        page.updateFromVm({CONFIRM_ACTION_DC_OUT, PAGE_SYSTEM_SETTINGS_1, 0, param});
        EXPECT_TRUE(page.messageText().contains(volts)) << page.messageText();
        EXPECT_FALSE(page.messageText().contains("{voltage}"));
        EXPECT_EQ(page.voltage(), id);
    }

    const auto confirmed = spyOn(&page, "confirmed");
    const auto cancelled = spyOn(&page, "cancelled");
    page.updateFromVm({CONFIRM_ACTION_STANDBY, PAGE_SHORTCUT, 4, 1});
    EXPECT_EQ(page.returnIndex(), 4);
    firstByClass<QPushButton>(&page, "confirm-confirm-btn")->click();
    firstByClass<QPushButton>(&page, "confirm-cancel-btn")->click();
    EXPECT_EQ(confirmed->value(0).value(0), CONFIRM_ACTION_STANDBY);
    EXPECT_EQ(cancelled->value(0), QVariantList{PAGE_SHORTCUT});
}

} // namespace
