#include "page_test_support.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"
#include "ui/svg_icon_label.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class SettingsCardsTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager();

    static QString iconPath(const SettingsCardPage& page, int card)
    {
        return page.cardItem(card).icon->property("svgPath").toString();
    }
};

TEST_F(SettingsCardsTest, CardsCarryTheirTextsAndStartNormal)
{
    SystemSettingsPage2Widget page(texts.get());
    page.updateFromVm({});
    ASSERT_EQ(page.cardCount(), 3);
    EXPECT_EQ(page.cardItem(0).label->text(), "Work Mode");
    EXPECT_EQ(page.cardItem(2).label->text(), "Fan Mode");
    EXPECT_EQ(page.cardState(1), "normal");
    EXPECT_EQ(page.cardButton(0)->pos(), QPoint(77, 10));
    EXPECT_EQ(page.cardButton(2)->pos(), QPoint(407, 10));

    texts->switchLanguage(3);
    page.updateFromVm({});
    EXPECT_EQ(page.cardItem(0).label->text(), "Work Mode") << "texts wait for the dirty mark";
    page.setDirty(true);
    page.updateFromVm({});
    EXPECT_EQ(page.cardItem(0).label->text(),
              texts->getTextWithFallback("system_settings.workmode"));
}

TEST_F(SettingsCardsTest, DcOutTapReportsStateAndVoltage)
{
    SystemSettingsPage1Widget page(texts.get());
    QSignalSpy dcOut(&page, &SystemSettingsPage1Widget::dcOutClicked);
    QSignalSpy language(&page, &SystemSettingsPage1Widget::languageClicked);

    SystemSettingsPageVM vm;
    vm.dc_out_on = true;
    vm.dc_out_voltage = 2;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(2), "active");
    page.cardButton(2)->click();
    ASSERT_EQ(dcOut.count(), 1);
    EXPECT_EQ(dcOut.at(0).at(0).toBool(), true);
    EXPECT_EQ(dcOut.at(0).at(1).toInt(), 2);

    vm.dc_out_on = false;
    vm.dc_out_voltage = 1;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(2), "normal");
    page.cardButton(2)->click();
    EXPECT_EQ(dcOut.at(1).at(0).toBool(), false);
    EXPECT_EQ(dcOut.at(1).at(1).toInt(), 1);

    page.cardButton(0)->click();
    EXPECT_EQ(language.count(), 1);
}

TEST_F(SettingsCardsTest, RestartAndResetLookDangerous)
{
    SystemSettingsPage3Widget page(texts.get());
    QSignalSpy standby(&page, &SystemSettingsPage3Widget::standbyClicked);
    QSignalSpy reset(&page, &SystemSettingsPage3Widget::resetClicked);
    EXPECT_EQ(page.cardState(0), "normal");
    EXPECT_EQ(page.cardState(1), "danger");
    EXPECT_EQ(page.cardState(2), "danger");
    page.cardButton(0)->click();
    page.cardButton(2)->click();
    EXPECT_EQ(standby.count(), 1);
    EXPECT_EQ(reset.count(), 1);
}

TEST_F(SettingsCardsTest, DeviceInformationPage)
{
    SystemSettingsPage4Widget page(texts.get());
    EXPECT_EQ(page.cardCount(), 0);
    EXPECT_EQ(page.deviceNameText(), "Quorrel Pro");

    SystemSettingsPageVM vm;
    vm.device_name = "studio-encoder-number-one-left";
    vm.device_start_time = "2025-03-01 10:00:00";
    vm.persistent_time = "01:02:03";
    vm.firmware_version = "V2.1";
    vm.hardware_version = "H3";
    vm.serial_number = "SN42";
    page.updateFromVm(vm);
    EXPECT_EQ(page.deviceNameText(), "studio-encoder-number-o...left");
    EXPECT_EQ(page.startTimeText(), "2025-03-01 10:00:00");
    EXPECT_EQ(page.runTimeText(), "01:02:03");
    EXPECT_EQ(page.versionText(), "FW:V2.1   HW:H3   SN:SN42");
}

TEST_F(SettingsCardsTest, TallyModeAndLightDependOnTally)
{
    CameraSettingsPage2Widget page(texts.get());
    QSignalSpy tally(&page, &CameraSettingsPage2Widget::tallyEnableClicked);
    CameraSettingsPageVM vm;
    vm.tally_on = true;
    vm.tally_mode_id = 0;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "active");
    EXPECT_EQ(page.cardState(1), "normal");
    EXPECT_TRUE(page.cardButton(1)->isEnabled());
    EXPECT_EQ(page.cardState(2), "disabled");
    EXPECT_FALSE(page.cardButton(2)->isEnabled());

    vm.tally_mode_id = 1;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(2), "normal");
    EXPECT_TRUE(page.cardButton(2)->isEnabled());
    page.cardButton(0)->click();
    ASSERT_EQ(tally.count(), 1);
    EXPECT_TRUE(tally.at(0).at(0).toBool()) << "the state shown at the tap";

    vm.tally_on = false;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "normal");
    EXPECT_EQ(page.cardState(1), "disabled");
    EXPECT_EQ(page.cardState(2), "disabled");
    EXPECT_FALSE(page.cardButton(1)->isEnabled());
}

TEST_F(SettingsCardsTest, LcdLockSwitch)
{
    CameraSettingsPage3Widget page(texts.get());
    QSignalSpy lock(&page, &CameraSettingsPage3Widget::lcdLockClicked);
    QSignalSpy sleep(&page, &CameraSettingsPage3Widget::lcdSleepClicked);
    CameraSettingsPageVM vm;
    vm.lcd_lock_on = true;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "active");
    page.cardButton(0)->click();
    page.cardButton(2)->click();
    ASSERT_EQ(lock.count(), 1);
    EXPECT_TRUE(lock.at(0).at(0).toBool());
    EXPECT_EQ(sleep.count(), 1);
}

TEST_F(SettingsCardsTest, LoopOutRestsFormatAndInEncodeModeMute)
{
    VideoSettingsPage1Widget page(texts.get());
    QSignalSpy mute(&page, &VideoSettingsPage1Widget::muteOutClicked);
    VideoSettingsPageVM vm;
    vm.work_mode = 0;
    vm.audio_out_on = false;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "normal");
    EXPECT_EQ(page.cardState(1), "active") << "mute lights while the output has no audio";
    page.cardButton(1)->click();
    ASSERT_EQ(mute.count(), 1);
    EXPECT_FALSE(mute.at(0).at(0).toBool());

    vm.loop_out_on = true;
    vm.audio_out_on = true;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "disabled");
    EXPECT_FALSE(page.cardButton(0)->isEnabled());
    EXPECT_EQ(page.cardState(1), "disabled");
    EXPECT_FALSE(page.cardButton(1)->isEnabled());
    EXPECT_EQ(page.cardState(2), "active");

    vm.loop_out_on = false;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "normal");
    EXPECT_TRUE(page.cardButton(1)->isEnabled());
    EXPECT_TRUE(page.cardButton(0)->isEnabled());
}

TEST_F(SettingsCardsTest, DecodeModeHidesMuteAndRelaysTheRow)
{
    VideoSettingsPage1Widget page(texts.get());
    VideoSettingsPageVM vm;
    vm.work_mode = 1;
    vm.loop_out_on = true;
    page.updateFromVm(vm);
    pagetest::showAndSettle(&page);
    EXPECT_FALSE(page.cardButton(1)->isVisible());
    EXPECT_EQ(page.cardButton(0)->pos(), QPoint(160, 10));
    EXPECT_EQ(page.cardButton(2)->pos(), QPoint(325, 10));
    EXPECT_EQ(page.cardState(0), "disabled");

    vm.work_mode = 0;
    page.updateFromVm(vm);
    EXPECT_TRUE(page.cardButton(1)->isVisible());
    EXPECT_EQ(page.cardButton(2)->pos(), QPoint(407, 10));
}

TEST_F(SettingsCardsTest, AiAndGreenScreenSwitches)
{
    VideoSettingsPage2Widget page(texts.get());
    QSignalSpy gsk(&page, &VideoSettingsPage2Widget::greenScreenClicked);
    VideoSettingsPageVM vm;
    vm.ai_tracking_on = true;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "active");
    EXPECT_EQ(page.cardState(1), "normal");
    page.cardButton(1)->click();
    ASSERT_EQ(gsk.count(), 1);
    EXPECT_FALSE(gsk.at(0).at(0).toBool());
}

TEST_F(SettingsCardsTest, AudioVolumeAndSourceRestWhileMuted)
{
    Audio_settings_page_widget page(texts.get());
    QSignalSpy audioSw(&page, &Audio_settings_page_widget::audioSwClicked);
    AudioSettingsPageVM vm;
    vm.ai_type = 2;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "normal");
    EXPECT_EQ(page.cardState(1), "disabled") << "this input's level is not set here";
    EXPECT_EQ(page.cardState(2), "normal");
    EXPECT_TRUE(iconPath(page, 0).endsWith("sound.svg"));

    vm.ai_type = 1;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "normal");
    EXPECT_TRUE(page.cardButton(1)->isEnabled());

    vm.muted = 1;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "active");
    EXPECT_TRUE(iconPath(page, 0).endsWith("mute.svg"));
    EXPECT_EQ(page.cardState(1), "disabled");
    EXPECT_EQ(page.cardState(2), "disabled");
    EXPECT_FALSE(page.cardButton(2)->isEnabled());
    page.cardButton(0)->click();
    ASSERT_EQ(audioSw.count(), 1);
    EXPECT_TRUE(audioSw.at(0).at(0).toBool());
}

TEST_F(SettingsCardsTest, DiskCardsRestDuringRecordOrSpeedTest)
{
    MediaSettingsPage1Widget page(texts.get());
    QSignalSpy srt(&page, &MediaSettingsPage1Widget::srtSwitchClicked);
    MediaSettingsPageVM vm;
    vm.srt_on = true;
    for (int status : {1, 2}) {
        vm.record_status = status;
        page.updateFromVm(vm);
        EXPECT_EQ(page.cardState(1), "disabled") << status;
        EXPECT_EQ(page.cardState(2), "disabled") << status;
    }
    vm.record_status = 3;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "normal");
    EXPECT_TRUE(page.cardButton(2)->isEnabled());
    vm.disk_speed_testing = true;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(2), "disabled");

    EXPECT_EQ(page.cardState(0), "active");
    page.cardButton(0)->click();
    ASSERT_EQ(srt.count(), 1);
    EXPECT_TRUE(srt.at(0).at(0).toBool());
}

TEST_F(SettingsCardsTest, NdiInfoCardBreaksLongNames)
{
    MediaSettingsPage2Widget page(texts.get());
    MediaSettingsPageVM vm;
    vm.ndi_machinename = "ABCDEFGHIJKL";
    vm.ndi_mode_id = 2;
    page.updateFromVm(vm);
    EXPECT_EQ(page.ndiInfoLabel(0)->text(), "ABCDEFGHIJKL");
    EXPECT_TRUE(page.ndiInfoLabel(1)->isHidden());
    EXPECT_EQ(page.ndiInfoLabel(2)->text(), "NDI\u00ae | HX2");
    EXPECT_EQ(page.cardState(1), "disabled") << "quality needs NDI on";

    vm.ndi_machinename = "ABCDEFGHIJKLM";
    vm.ndi_mode_id = 4;
    vm.ndi_on = true;
    page.updateFromVm(vm);
    EXPECT_EQ(page.ndiInfoLabel(0)->text(), "ABCDEFGHIJKL");
    EXPECT_EQ(page.ndiInfoLabel(1)->text(), "M");
    EXPECT_FALSE(page.ndiInfoLabel(1)->isHidden());
    EXPECT_EQ(page.ndiInfoLabel(2)->text(), "Live");
    EXPECT_EQ(page.cardState(0), "active");
    EXPECT_EQ(page.cardState(1), "normal");
    EXPECT_EQ(page.ndiInfoButton()->property("btn-state").toString(), "active");

    vm.ndi_machinename = QString::fromUtf8("演播室一号机位左侧");
    vm.ndi_mode_id = 9;
    page.updateFromVm(vm);
    EXPECT_EQ(page.ndiInfoLabel(0)->text(), QString::fromUtf8("演播室一号机位"));
    EXPECT_EQ(page.ndiInfoLabel(1)->text(), QString::fromUtf8("左侧"));
    EXPECT_EQ(page.ndiInfoLabel(2)->text(), "--");

    vm.ndi_machinename.clear();
    page.updateFromVm(vm);
    EXPECT_EQ(page.ndiInfoLabel(0)->text(), "--");
    EXPECT_TRUE(page.ndiInfoLabel(1)->isHidden());
}

TEST_F(SettingsCardsTest, DecodingServerSwitches)
{
    Decoding_settings_page_widget page(texts.get());
    QSignalSpy rtmp(&page, &Decoding_settings_page_widget::rtmpServerClicked);
    QSignalSpy srt(&page, &Decoding_settings_page_widget::srtServerClicked);
    DecodingSettingsPageVM vm;
    vm.srt_server_on = true;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "normal");
    EXPECT_EQ(page.cardState(1), "active");
    page.cardButton(0)->click();
    page.cardButton(1)->click();
    ASSERT_EQ(rtmp.count(), 1);
    ASSERT_EQ(srt.count(), 1);
    EXPECT_FALSE(rtmp.at(0).at(0).toBool());
    EXPECT_TRUE(srt.at(0).at(0).toBool());
}

} // namespace
