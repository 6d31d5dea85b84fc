// The status bar: mode or breadcrumb, the icons packed from the right edge,
// and the record page's running time and free space.
#include "page_test_support.h"

#include "model/view_models/status_view_models.h"
#include "pages/page_ids.h"
#include "pages/status_bar_widget.h"

#include <QFile>
#include <QFontMetrics>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

class StatusBar : public ::testing::Test {
protected:
    QLabel* child(const QString& name) const { return bar.findChild<QLabel*>(name); }
    bool shown(const QString& name) const { return !child(name)->isHidden(); }
    bool showsIcon(const QString& name, const QString& file) const
    {
        return showsFile(child(name), QStringLiteral(":/icons/statusbar/%1.svg").arg(file));
    }
    // A status page in encode mode with nothing running and no disk.
    static StatusBarVM idle()
    {
        StatusBarVM vm;
        vm.pageid = PAGE_STATUS_1, vm.is_status_page = true;
        return vm;
    }
    QString contextFor(const QString& breadcrumb)
    {
        StatusBarVM vm;
        vm.pageid = PAGE_SYSTEM_SETTINGS_1, vm.context_text = breadcrumb;
        bar.updateFromVm(vm);
        EXPECT_FALSE(shown("mode"));
        QLabel* context = child("context");
        EXPECT_LE(QFontMetrics(context->font()).horizontalAdvance(context->text()),
                  context->width());
        return context->text();
    }
    StatusBarWidget bar{texts(), nullptr};
};

TEST_F(StatusBar, StatusPagesShowTheWorkModeOtherPagesTheirBreadcrumb)
{
    StatusBarVM vm = idle();
    for (const char* mode : {"encode", "decode"}) {
        bar.updateFromVm(vm);
        EXPECT_TRUE(shown("mode") && shown("mode_dot") && !shown("context"));
        EXPECT_EQ(child("mode")->text(), english(QStringLiteral("statusbar.workmode.") + mode));
        vm.work_mode = 1;
    }
    EXPECT_EQ(contextFor("SYSTEM > 1/4"), "SYSTEM > 1/4");
    // Too wide, it drops its leading steps, keeping the page's own title; a
    // single step too long is cut at its start.
    const QString wide(40, QLatin1Char('W'));
    EXPECT_EQ(contextFor("Menu \u00bb " + wide + " \u00bb Brightness of the picture"),
              "Brightness of the picture");
    EXPECT_EQ(contextFor(wide + " \u00bb Camera \u00bb Brightness"), "Camera \u00bb Brightness");
    const QString cut = contextFor(wide + wide + "end");
    EXPECT_TRUE(cut.startsWith(QChar(0x2026)) && cut.endsWith("end")) << cut;
}

TEST_F(StatusBar, LinkAndDiskIconsShowTheirState)
{
    StatusBarVM vm = idle();
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsIcon("wifi_icon", "wifi_off") && showsIcon("eth_icon", "eth_inactive"));
    vm.wifi_on = true;
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsIcon("wifi_icon", "wifi_inactive") && showsIcon("ap_icon", "ap_inactive"));
    vm.wifi_connected = vm.eth_link = vm.ap_on = true;
    bar.updateFromVm(vm);
    EXPECT_TRUE(showsIcon("wifi_icon", "wifi_active") && showsIcon("eth_icon", "eth_active")
                && showsIcon("ap_icon", "ap_active"));

    const std::tuple<int, int, const char*> disks[] = {
        {0, 1, "sdcard_0"},    {1, 2, "udisk_30"},      {3, 3, "nas_60"},
        {0, 4, "sdcard_full"}, {1, 0, "udisk_unmount"}, {3, 9, "nas_unmount"}};
    for (const auto& [disk, level, file] : disks)
        EXPECT_EQ(bar.getStorageIconPath(disk, level),
                  QStringLiteral(":/icons/statusbar/%1.svg").arg(file));
    EXPECT_TRUE(bar.getStorageIconPath(2, 1).isEmpty() && bar.getStorageIconPath(-1, 1).isEmpty());
    for (int disk : {0, 1, 3})
        for (int level = 0; level <= 5; ++level)
            EXPECT_TRUE(QFile::exists(bar.getStorageIconPath(disk, level))) << disk << "/" << level;
}

// Which icons a status page shows, packed from the right edge in the order
// given, each left of the one before; all others hidden.
TEST_F(StatusBar, IconsPackFromTheRightWithDividersBetweenGroups)
{
    const QStringList all = QString("ap_icon wifi_icon eth_icon divider_1 nas_icon udisk_icon "
                                    "sdcard_icon divider_2 live_icon rec_icon dec_icon lock_icon")
                                .split(' ');
    const QString links = "ap_icon wifi_icon eth_icon";
    struct Case {
        const char* what;
        std::function<void(StatusBarVM&)> set;
        QString packed;
        const char* activity; // the drawing of the leftmost icon
    };
    const Case cases[] = {
        {"idle", {}, links, nullptr},
        {"disk only", [](auto& vm) { vm.disk_type = 3; }, links + " divider_1 nas_icon", nullptr},
        {"recording and streaming on the USB disk",
         [](auto& vm) { vm.disk_type = 1, vm.is_recording = vm.is_streaming = true; },
         links + " divider_1 udisk_icon divider_2 live_icon rec_icon", "rec"},
        {"recording without disk", [](auto& vm) { vm.is_recording = true; },
         links + " divider_1 rec_icon", "rec"},
        {"paused recording", [](auto& vm) { vm.record_status = 2; }, links + " divider_1 rec_icon",
         "rec_pause"},
        {"decoding shows no disk nor encoder activity",
         [](auto& vm) {
             vm.work_mode = 1, vm.disk_type = 0;
             vm.is_recording = vm.is_streaming = vm.is_decoding = true;
         },
         links + " divider_1 dec_icon", "dec"},
        {"decoder idle", [](auto& vm) { vm.work_mode = 1, vm.disk_type = 0; }, links, nullptr},
        {"locked", [](auto& vm) { vm.lcd_locked = true; }, links + " lock_icon", nullptr},
        {"not a status page",
         [](auto& vm) {
             vm.pageid = PAGE_MAIN_MENU_1, vm.is_status_page = false;
             vm.lcd_locked = vm.eth_link = vm.is_recording = true;
         },
         "", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        StatusBarVM vm = idle();
        if (c.set)
            c.set(vm);
        bar.updateFromVm(vm);
        const QStringList packed = c.packed.split(' ', Qt::SkipEmptyParts);
        for (const QString& name : all)
            EXPECT_EQ(shown(name), packed.contains(name)) << name;
        int leftEdge = bar.width();
        for (const QString& name : packed) {
            if (name == "lock_icon")
                continue; // left of the centre, away from the packed row
            EXPECT_LT(child(name)->geometry().right(), leftEdge) << name;
            leftEdge = child(name)->x();
        }
        EXPECT_TRUE(!c.activity || showsIcon(packed.last(), c.activity));
    }
}

TEST_F(StatusBar, RecordPageShowsRunningTimeAndFreeSpaceOfTheEncoder)
{
    const QString gigabytes = StatusBarWidget::diskCapacityText(2048);
    const std::tuple<bool, int, int, int, int, QString, QString> cases[] = {
        // record page, work mode, record status, seconds, disk; time and space, empty if hidden
        {true, 0, 1, 3661, 0, "01 : 01 : 01", gigabytes},
        {true, 0, 1, 360000, 0, "100 : 00 : 00", gigabytes},
        {true, 0, 2, 59, 0, "00 : 00 : 59", gigabytes}, // a paused task keeps its time
        {true, 0, 0, 59, 0, "", gigabytes},
        {true, 0, 1, 59, -1, "00 : 00 : 59", ""},
        {true, 1, 1, 59, 0, "00 : 00 : 59", ""}, // the decoder records nothing
        {false, 0, 1, 59, 0, "", ""}};
    for (const auto& [recordPage, workMode, status, seconds, disk, time, space] : cases) {
        StatusBarVM vm;
        vm.pageid = PAGE_ENCODER_SHORTCUT_1, vm.show_record_status = recordPage;
        vm.work_mode = workMode, vm.record_status = status, vm.record_duration = seconds;
        vm.disk_type = disk, vm.free_space = 2048;
        bar.updateFromVm(vm);
        EXPECT_EQ(shown("rec_time") ? child("rec_time")->text() : "", time);
        EXPECT_EQ(shown("free_space") ? child("free_space")->text() : "", space);
    }
    const std::pair<qint64, const char*> sizes[] = {
        {0, "--"},           {1, "1 MB"},          {999, "999 MB"},
        {1000, "1.0 GB"},    {102399, "100.0 GB"}, {102400, "100 GB"},
        {1023000, "1.0 TB"}, {3670016, "3.5 TB"}};
    for (const auto& [megabytes, text] : sizes)
        EXPECT_EQ(StatusBarWidget::diskCapacityText(megabytes), text) << megabytes;
}

} // namespace
