#include "page_test_support.h"

#include "model/view_models/status_view_models.h"
#include "pages/page_ids.h"
#include "pages/status_bar_widget.h"

#include <QFile>

#include <QFontMetrics>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

class StatusBarTest : public ::testing::Test {
protected:
    StatusBarTest() : bar(texts(), nullptr) {}

    QLabel* child(const char* name) const { return bar.findChild<QLabel*>(QLatin1String(name)); }
    bool shown(const char* name) const { return !child(name)->isHidden(); }
    int xOf(const char* name) const { return child(name)->x(); }

    // A status page in encode mode with nothing running and no disk.
    static StatusBarVM idleEncode()
    {
        StatusBarVM vm;
        vm.pageid = PAGE_STATUS_1;
        vm.is_status_page = true;
        return vm;
    }

    StatusBarWidget bar;
};

} // namespace

TEST_F(StatusBarTest, StatusPagesShowTheModeOthersTheContext)
{
    StatusBarVM vm = idleEncode();
    bar.updateFromVm(vm);
    EXPECT_TRUE(shown("mode"));
    EXPECT_TRUE(shown("mode_dot"));
    EXPECT_FALSE(shown("context"));
    EXPECT_EQ(child("mode")->text(), english("statusbar.workmode.encode"));

    vm.work_mode = 1;
    vm.pageid = PAGE_STATUS_3;
    bar.updateFromVm(vm);
    EXPECT_EQ(child("mode")->text(), english("statusbar.workmode.decode"));
    EXPECT_EQ(child("mode_dot")->property("class").toString(), "status-mode-dot-encode");

    vm.pageid = PAGE_SYSTEM_SETTINGS_1;
    vm.is_status_page = false;
    vm.context_text = "SYSTEM > 1/4";
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("mode"));
    EXPECT_TRUE(shown("context"));
    EXPECT_EQ(child("context")->text(), "SYSTEM > 1/4");

    // A breadcrumb wider than the bar drops its leading steps, keeping the page's own title.
    vm.context_text = QStringLiteral("Menu \u00bb ") + QString(40, QLatin1Char('W'))
                      + QStringLiteral(" \u00bb Brightness of the picture");
    bar.updateFromVm(vm);
    EXPECT_EQ(child("context")->text(), "Brightness of the picture");
    vm.context_text =
        QString(40, QLatin1Char('W')) + QStringLiteral(" \u00bb Camera \u00bb Brightness");
    bar.updateFromVm(vm);
    EXPECT_EQ(child("context")->text(), QStringLiteral("Camera \u00bb Brightness"));
    // A single step too long for the bar is cut at its start.
    vm.context_text = QString(60, QLatin1Char('W')) + QStringLiteral("end");
    bar.updateFromVm(vm);
    const QString shownText = child("context")->text();
    EXPECT_TRUE(shownText.startsWith(QChar(0x2026)));
    EXPECT_TRUE(shownText.endsWith("end"));
    EXPECT_LE(QFontMetrics(child("context")->font()).horizontalAdvance(shownText),
              child("context")->width());
}

TEST_F(StatusBarTest, NetworkIconsFollowTheLinks)
{
    StatusBarVM vm = idleEncode();
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsFile(child("wifi_icon"), ":/icons/statusbar/wifi_off.svg"));
    EXPECT_TRUE(showsFile(child("eth_icon"), ":/icons/statusbar/eth_inactive.svg"));
    EXPECT_TRUE(showsFile(child("ap_icon"), ":/icons/statusbar/ap_inactive.svg"));

    vm.wifi_on = true;
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsFile(child("wifi_icon"), ":/icons/statusbar/wifi_inactive.svg"));

    vm.wifi_connected = true;
    vm.eth_link = true;
    vm.ap_on = true;
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsFile(child("wifi_icon"), ":/icons/statusbar/wifi_active.svg"));
    EXPECT_TRUE(showsFile(child("eth_icon"), ":/icons/statusbar/eth_active.svg"));
    EXPECT_TRUE(showsFile(child("ap_icon"), ":/icons/statusbar/ap_active.svg"));
}

TEST_F(StatusBarTest, StorageIconPathByTypeAndLevel)
{
    EXPECT_EQ(bar.getStorageIconPath(0, 1), ":/icons/statusbar/sdcard_0.svg");
    EXPECT_EQ(bar.getStorageIconPath(1, 2), ":/icons/statusbar/udisk_30.svg");
    EXPECT_EQ(bar.getStorageIconPath(3, 3), ":/icons/statusbar/nas_60.svg");
    EXPECT_EQ(bar.getStorageIconPath(0, 4), ":/icons/statusbar/sdcard_full.svg");
    EXPECT_EQ(bar.getStorageIconPath(1, 0), ":/icons/statusbar/udisk_unmount.svg");
    EXPECT_EQ(bar.getStorageIconPath(3, 9), ":/icons/statusbar/nas_unmount.svg");
    EXPECT_EQ(bar.getStorageIconPath(2, 1), QString());
    EXPECT_EQ(bar.getStorageIconPath(-1, 1), QString());
    for (int disk : {0, 1, 3})
        for (int level = 0; level <= 5; ++level)
            EXPECT_TRUE(QFile::exists(bar.getStorageIconPath(disk, level))) << disk << "/" << level;

    // An unknown level shows the unmounted drawing of the disk's own type.
    StatusBarVM vm = idleEncode();
    vm.disk_type = 3;
    vm.disk_icon_level = 7;
    bar.updateFromVm(vm);
    EXPECT_TRUE(shown("nas_icon"));
    EXPECT_FALSE(shown("sdcard_icon"));
    EXPECT_FALSE(shown("udisk_icon"));
    EXPECT_TRUE(showsFile(child("nas_icon"), ":/icons/statusbar/nas_unmount.svg"));
}

TEST_F(StatusBarTest, IdleWithoutDiskShowsOnlyTheNetworkIcons)
{
    bar.updateFromVm(idleEncode());
    EXPECT_EQ(xOf("ap_icon"), 600);
    EXPECT_EQ(xOf("wifi_icon"), 570);
    EXPECT_EQ(xOf("eth_icon"), 540);
    EXPECT_EQ(child("eth_icon")->y(), 3);
    for (const char* name : {"divider_1", "divider_2", "rec_icon", "live_icon", "dec_icon",
                             "sdcard_icon", "lock_icon"})
        EXPECT_FALSE(shown(name)) << name;
}

TEST_F(StatusBarTest, DiskWithoutActivityTakesOneDivider)
{
    StatusBarVM vm = idleEncode();
    vm.disk_type = 0;
    vm.disk_icon_level = 2;
    bar.updateFromVm(vm);
    EXPECT_TRUE(shown("divider_1"));
    EXPECT_FALSE(shown("divider_2"));
    EXPECT_EQ(child("divider_1")->geometry(), QRect(523, 5, 1, 20));
    EXPECT_EQ(child("sdcard_icon")->geometry(), QRect(483, 3, 24, 24));
    EXPECT_TRUE(showsFile(child("sdcard_icon"), ":/icons/statusbar/sdcard_30.svg"));
}

TEST_F(StatusBarTest, RecordingAndStreamingPackRightToLeft)
{
    StatusBarVM vm = idleEncode();
    vm.disk_type = 0;
    vm.disk_icon_level = 1;
    vm.is_recording = true;
    vm.is_streaming = true;
    bar.updateFromVm(vm);
    EXPECT_EQ(xOf("divider_1"), 523);
    EXPECT_EQ(xOf("sdcard_icon"), 483);
    EXPECT_EQ(xOf("divider_2"), 466);
    EXPECT_TRUE(shown("divider_2"));
    EXPECT_EQ(xOf("live_icon"), 426);
    EXPECT_EQ(xOf("rec_icon"), 396);
    EXPECT_TRUE(showsFile(child("rec_icon"), ":/icons/statusbar/rec.svg"));
    EXPECT_TRUE(showsFile(child("live_icon"), ":/icons/statusbar/live.svg"));
    EXPECT_EQ(child("rec_icon")->property("class").toString(), "widget1");

    // The USB disk icon is 31 wide: everything left of it moves 7 further.
    vm.disk_type = 1;
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("sdcard_icon"));
    EXPECT_EQ(child("udisk_icon")->geometry(), QRect(476, 2, 31, 25));
    EXPECT_EQ(xOf("divider_2"), 459);
    EXPECT_EQ(xOf("live_icon"), 419);
    EXPECT_EQ(xOf("rec_icon"), 389);

    // Without a disk the activity icons follow the first divider directly.
    vm.disk_type = -1;
    vm.is_streaming = false;
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("divider_2"));
    EXPECT_FALSE(shown("live_icon"));
    EXPECT_EQ(xOf("rec_icon"), 483);
}

TEST_F(StatusBarTest, PausedRecordingCountsAsActivity)
{
    StatusBarVM vm = idleEncode();
    vm.record_status = 2;
    bar.updateFromVm(vm);
    EXPECT_TRUE(shown("rec_icon"));
    EXPECT_TRUE(showsFile(child("rec_icon"), ":/icons/statusbar/rec_pause.svg"));
    EXPECT_TRUE(shown("divider_1"));
    EXPECT_EQ(xOf("rec_icon"), 483);
}

TEST_F(StatusBarTest, DecodeModeShowsTheDecodeIconAndNoDisk)
{
    StatusBarVM vm = idleEncode();
    vm.work_mode = 1;
    vm.disk_type = 0; // ignored in decode mode
    vm.is_recording = true;
    vm.is_streaming = true;
    vm.is_decoding = true;
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("sdcard_icon"));
    EXPECT_FALSE(shown("rec_icon"));
    EXPECT_FALSE(shown("live_icon"));
    EXPECT_TRUE(shown("dec_icon"));
    EXPECT_TRUE(showsFile(child("dec_icon"), ":/icons/statusbar/dec.svg"));
    EXPECT_TRUE(shown("divider_1"));
    EXPECT_FALSE(shown("divider_2"));
    EXPECT_EQ(xOf("dec_icon"), 483);

    vm.is_decoding = false;
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("dec_icon"));
    EXPECT_FALSE(shown("divider_1"));
}

TEST_F(StatusBarTest, LockIconLeftOfCentreOnStatusPagesOnly)
{
    StatusBarVM vm = idleEncode();
    vm.lcd_locked = true;
    bar.updateFromVm(vm);
    EXPECT_TRUE(shown("lock_icon"));
    EXPECT_EQ(child("lock_icon")->geometry(), QRect(244, 3, 24, 24));

    vm.pageid = PAGE_MAIN_MENU_1;
    vm.is_status_page = false;
    bar.updateFromVm(vm);
    for (const char* name : {"lock_icon", "eth_icon", "wifi_icon", "ap_icon", "divider_1"})
        EXPECT_FALSE(shown(name)) << name;
}

TEST_F(StatusBarTest, RecordPageShowsRunningTimeAndFreeSpace)
{
    StatusBarVM vm;
    vm.pageid = PAGE_ENCODER_SHORTCUT_1;
    vm.is_status_page = false;
    vm.show_record_status = true;
    vm.record_status = 1;
    vm.record_duration = 3661;
    vm.disk_type = 0;
    vm.free_space = 2048;
    bar.updateFromVm(vm);
    EXPECT_TRUE(shown("rec_time"));
    EXPECT_EQ(child("rec_time")->text(), "01 : 01 : 01");
    EXPECT_TRUE(shown("free_space"));
    EXPECT_EQ(child("free_space")->text(), "2.0 GB");

    vm.record_duration = 360000;
    bar.updateFromVm(vm);
    EXPECT_EQ(child("rec_time")->text(), "100 : 00 : 00");

    // No task: no time; no disk: no free space.
    vm.record_status = 0;
    vm.disk_type = -1;
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("rec_time"));
    EXPECT_FALSE(shown("free_space"));

    // Elsewhere neither readout appears.
    vm.record_status = 1;
    vm.disk_type = 0;
    vm.show_record_status = false;
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("rec_time"));
    EXPECT_FALSE(shown("free_space"));
}

TEST(StatusBarFreeSpace, KeepsToFiveFigures)
{
    EXPECT_EQ(StatusBarWidget::diskCapacityText(0), "--");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(-5), "--");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(1), "1 MB");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(999), "999 MB");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(1000), "1.0 GB");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(102399), "100.0 GB");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(102400), "100 GB");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(1022976), "999 GB");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(1023000), "1.0 TB");
    EXPECT_EQ(StatusBarWidget::diskCapacityText(3 * 1048576LL + 524288), "3.5 TB");
}

TEST_F(StatusBarTest, FreeSpaceBelongsToTheEncoderRecordPageOnly)
{
    StatusBarVM vm;
    vm.pageid = PAGE_ENCODER_SHORTCUT_1;
    vm.is_status_page = false;
    vm.show_record_status = true;
    vm.disk_type = 3;
    vm.free_space = 0;
    bar.updateFromVm(vm);
    EXPECT_TRUE(shown("free_space"));
    EXPECT_EQ(child("free_space")->text(), "--");
    EXPECT_FALSE(shown("rec_time")) << "no task runs";

    // A paused task keeps its time on screen.
    vm.record_status = 2;
    vm.record_duration = 59;
    bar.updateFromVm(vm);
    EXPECT_EQ(child("rec_time")->text(), "00 : 00 : 59");

    vm.work_mode = 1;
    bar.updateFromVm(vm);
    EXPECT_FALSE(shown("free_space")) << "the decoder records nothing";
}

TEST_F(StatusBarTest, Screenshots)
{
    StatusBarVM vm = idleEncode();
    vm.disk_type = 1;
    vm.disk_icon_level = 3;
    vm.is_recording = true;
    vm.is_streaming = true;
    vm.eth_link = true;
    vm.wifi_on = true;
    vm.ap_on = true;
    vm.lcd_locked = true;
    bar.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&bar, "status_bar_encode_busy").size(), 2);

    vm.work_mode = 1;
    vm.is_decoding = true;
    vm.lcd_locked = false;
    bar.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&bar, "status_bar_decode").size(), 2);

    vm = StatusBarVM();
    vm.pageid = PAGE_ENCODER_SHORTCUT_1;
    vm.is_status_page = false;
    vm.context_text = "RECORD";
    vm.show_record_status = true;
    vm.record_status = 1;
    vm.record_duration = 4000;
    vm.disk_type = 0;
    vm.free_space = 250000;
    bar.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&bar, "status_bar_record_page").size(), 2);
}
