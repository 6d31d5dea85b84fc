#include "page_test_support.h"
#include "pages/general_edit_page_widget.h"
#include "pages/page_ids.h"
#include "support/test_support.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <fstream>

namespace {

using Edit = GeneralEditPageWidget;

const QStringList kFullHd60 = {"1080p60",    "1080p59.94", "1080p30",
                               "1080p29.97", "720p60",     "720p59.94"};

class EditPageTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager();
    Edit page{texts.get()};

    QStringList voFormats(int width, int height, int fps, int workMode = 0)
    {
        page.setVoFormatContext(width, height, fps, QString(), workMode);
        page.enterEditMode(Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1);
        return page.optionTexts();
    }
    QStringList ptzOptions(int usb2serial, int workMode)
    {
        page.setPtzProtoContext(usb2serial, workMode);
        page.enterEditMode(Edit::EDIT_PTZ_PROTOCOL, PAGE_CAMERA_SETTINGS_1, 0);
        return page.optionTexts();
    }
    QString optionState() const
    {
        return pagetest::firstByClass<QLabel>(&page, "v2-edit-option-label")
            ->property("option-state")
            .toString();
    }
    QPushButton* button(const char* cls) const
    {
        return pagetest::firstByClass<QPushButton>(&page, cls);
    }
};

TEST_F(EditPageTest, FixedOptionListsAreTranslatedOrLiteral)
{
    page.enterEditMode(Edit::EDIT_LANGUAGE, PAGE_SYSTEM_SETTINGS_1, 1);
    EXPECT_EQ(page.optionTexts().size(), 5);
    EXPECT_EQ(page.optionTexts().at(1), "English");
    EXPECT_EQ(page.titleText(), "Language");

    page.enterEditMode(Edit::EDIT_TALLY_MODE, PAGE_CAMERA_SETTINGS_2, 0);
    EXPECT_EQ(page.optionTexts(), QStringList({"Auto", "Manual", "Tally Signal", "Gaming"}));

    page.enterEditMode(Edit::EDIT_USB_MODE, PAGE_SYSTEM_SETTINGS_2, 0);
    EXPECT_EQ(page.optionTexts(), QStringList({"HOST", "DEVICE"}));

    page.enterEditMode(Edit::EDIT_NDI_QUALITY, PAGE_MEDIA_SETTINGS_2, 0);
    EXPECT_EQ(page.optionTexts(),
              QStringList({"NDI\u00ae | HX1", "NDI\u00ae | HX2", "NDI\u00ae | HX3"}));
}

TEST_F(EditPageTest, PtzProtocolsFollowAdapterAndWorkMode)
{
    EXPECT_EQ(ptzOptions(0, 0), QStringList({"VISCA over IP"}));
    EXPECT_EQ(ptzOptions(1, 0), QStringList({"VISCA over IP", "VISCA", "PELCO D", "PELCO P"}));
    EXPECT_EQ(ptzOptions(0, 1), QStringList({"VISCA over IP", "NDI\u00ae", "UVC"}));
    EXPECT_EQ(ptzOptions(1, 1).size(), 6);
    EXPECT_EQ(ptzOptions(1, 1).last(), "UVC");
}

TEST_F(EditPageTest, OutputFormatsKeepTheInputRateFamily)
{
    EXPECT_EQ(voFormats(3840, 2160, 60).size(), 10);
    EXPECT_EQ(voFormats(3840, 2160, 25),
              QStringList({"2160p50", "2160p25", "1080p50", "1080p25", "720p50"}));
    EXPECT_EQ(voFormats(3840, 2160, 24),
              QStringList({"2160p24", "2160p23.976", "1080p24", "1080p23.976"}));
    EXPECT_EQ(voFormats(1920, 1080, 120), kFullHd60);
    EXPECT_EQ(voFormats(1920, 1080, 100), QStringList({"1080p50", "1080p25", "720p50"}));
    EXPECT_EQ(voFormats(1920, 540, 50), QStringList({"1080p50", "1080p25", "720p50"}))
        << "an interlaced 1080 input counts as 1080";
    EXPECT_EQ(voFormats(1280, 720, 24), QStringList({"720p24"}));
    EXPECT_EQ(voFormats(1280, 720, 30), QStringList({"720p60", "720p59.94"}));
}

TEST_F(EditPageTest, OutputFormatsWithoutUsableInputFallBackToFullHd60)
{
    EXPECT_EQ(voFormats(0, 0, 0), kFullHd60);
    EXPECT_EQ(voFormats(720, 576, 50), kFullHd60);
    EXPECT_EQ(voFormats(1920, 1080, 29), kFullHd60);
}

TEST_F(EditPageTest, DecodeModeOffersTheFixedFormatList)
{
    const QStringList formats = voFormats(1280, 720, 24, 1);
    ASSERT_EQ(formats.size(), 19);
    EXPECT_EQ(formats.first(), "2160p60");
    EXPECT_EQ(formats.at(8), "1080p60");
    EXPECT_EQ(formats.last(), "720p50");
}

TEST_F(EditPageTest, CurrentFormatIsFoundAndMarkedWhenListed)
{
    page.setVoFormatContext(1920, 1080, 60, "1080p30", 0);
    page.updateFromVm({Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1, 0, 0});
    EXPECT_EQ(page.currentOption(), "1080p30");
    EXPECT_EQ(page.actualIndex(), 2);
    EXPECT_EQ(optionState(), "actual");

    page.setVoFormatContext(1920, 1080, 50, "1080p60", 0);
    page.updateFromVm({Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1, 0, 0});
    EXPECT_EQ(page.currentIndex(), 0);
    EXPECT_EQ(page.actualIndex(), -1) << "a format the list doesn't offer marks nothing";
    EXPECT_EQ(optionState(), "normal");
}

TEST_F(EditPageTest, OptionsFormARing)
{
    page.enterEditMode(Edit::EDIT_FAN_MODE, PAGE_SYSTEM_SETTINGS_2, 2);
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(page.currentIndex(), 0) << "left swipe on the last option shows the first";
    EXPECT_EQ(page.onSwipeRight(0), -1);
    EXPECT_EQ(page.currentIndex(), 2);

    button("v2-edit-arrow-btn")->click(); // the left arrow is created first
    EXPECT_EQ(page.currentIndex(), 1);
    EXPECT_EQ(page.currentOption(), "Standard");
}

TEST_F(EditPageTest, ActualMarkFollowsOnlyTheValueInForce)
{
    QSignalSpy confirmed(&page, &Edit::confirmed);
    page.enterEditMode(Edit::EDIT_AUDIO_SOURCE, PAGE_AUDIO_SETTINGS, 2);
    EXPECT_EQ(optionState(), "actual");
    page.nextOption();
    EXPECT_EQ(optionState(), "normal");

    button("v2-edit-confirm-btn")->click();
    ASSERT_EQ(confirmed.count(), 1);
    EXPECT_EQ(confirmed.at(0).at(0).toInt(), Edit::EDIT_AUDIO_SOURCE);
    EXPECT_EQ(confirmed.at(0).at(1).toInt(), 3);
    // No confirmation came back (a failed request): the old value stays marked.
    EXPECT_EQ(page.actualIndex(), 2);
    page.prevOption();
    EXPECT_EQ(optionState(), "actual");

    page.setActualIndex(9);
    EXPECT_EQ(page.actualIndex(), 2) << "an index outside the list is refused";
    page.nextOption();
    page.setActualIndex(3);
    EXPECT_EQ(optionState(), "actual");
}

TEST_F(EditPageTest, SelectionSurvivesALanguageChange)
{
    const EditModePageVM vm{Edit::EDIT_TALLY_LIGHT, PAGE_CAMERA_SETTINGS_2, 0, 0, 0};
    page.updateFromVm(vm);
    page.nextOption();
    page.nextOption();
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentIndex(), 0) << "a plain refresh opens at the value in force";

    page.nextOption();
    texts->switchLanguage(3); // French
    page.setDirty(true);
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentIndex(), 1);
    EXPECT_EQ(page.actualIndex(), 0);
    EXPECT_EQ(page.currentOption(), texts->getTextWithFallback("tally_light.red"));
    EXPECT_NE(page.currentOption(), "Red");
}

TEST_F(EditPageTest, RecordDiskMapsToStorageIds)
{
    page.enterEditMode(Edit::EDIT_RECORD_DISK, PAGE_MEDIA_SETTINGS_1, 0);
    EXPECT_EQ(page.optionTexts(), QStringList({"TF", "USB1", "NAS"}));
    EXPECT_EQ(page.currentStorageId(), 0);
    page.nextOption();
    EXPECT_EQ(page.currentStorageId(), 1);
    page.nextOption();
    EXPECT_EQ(page.currentStorageId(), 3);

    page.enterEditMode(Edit::EDIT_THEME, PAGE_SYSTEM_SETTINGS_1, 1);
    EXPECT_EQ(page.currentStorageId(), -1);
}

TEST_F(EditPageTest, WayBackAndGestures)
{
    QSignalSpy cancelled(&page, &Edit::cancelled);
    page.enterEditMode(Edit::EDIT_WORK_MODE, PAGE_SYSTEM_SETTINGS_2, 0);
    button("v2-edit-cancel-btn")->click();
    ASSERT_EQ(cancelled.count(), 1);
    EXPECT_EQ(cancelled.at(0).at(0).toInt(), PAGE_SYSTEM_SETTINGS_2);

    EXPECT_EQ(page.onSwipeDown(0), PAGE_SYSTEM_SETTINGS_2);
    EXPECT_EQ(page.onEdgeSwipeToCenter(0), PAGE_STATUS_1);
    EXPECT_FALSE(page.dispatchGesture(GestureKind::SwipeUp, 0).has_value());
    EXPECT_FALSE(page.dispatchGesture(GestureKind::LongPress, 0).has_value());
}

TEST(EditPageTitle, UntranslatedTitleFallsBackToPlainEnglish)
{
    testsupport::TempDir dir;
    std::ofstream(dir.file("lang.json")) << R"({"English": {"edit_page": {"back": "Back"}}})";
    UITextManager sparse(nullptr, 1, QString::fromStdString(dir.file("lang.json")), QString());
    Edit page(&sparse);
    page.enterEditMode(Edit::EDIT_AUDIO_SOURCE, PAGE_AUDIO_SETTINGS, 0);
    EXPECT_EQ(page.titleText(), "Audio Source");
    page.enterEditMode(Edit::EDIT_RECORD_DISK, PAGE_MEDIA_SETTINGS_1, 0);
    EXPECT_EQ(page.titleText(), "Record Disk");
}

TEST(EditPageLook, Screenshots)
{
    auto texts = pagetest::makeTextManager();
    Edit page(texts.get());
    page.setVoFormatContext(1920, 1080, 60, "1080p60", 0);
    page.updateFromVm({Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, -1, 0, 0});
    pagetest::showAndSettle(&page);
    pagetest::saveThemedScreenshots(&page, "edit_vo_format_actual");
    page.nextOption();
    pagetest::saveThemedScreenshots(&page, "edit_vo_format_other");
    EXPECT_EQ(page.currentOption(), "1080p59.94");
}

} // namespace
