// The shortcut pages: the record controls, the lists that scroll one row per
// swipe (OSD layouts, push streams, decoder sources, NAS mounts), the status
// line of their rows, and the quick action list.
#include "page_test_support.h"

#include "model/view_models/settings_view_models.h"
#include "model/view_models/shortcut_view_models.h"
#include "pages/decoder_shortcut_page_widget.h"
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/shortcut_page_widget.h"
#include "pages/shortcut_status_looks.h"
#include "pages/status_bar_widget.h"

#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

TEST(RecordPage, ButtonsFollowTheRecordTaskAndTheDisk)
{
    // The pause and record buttons' drawing and word share a name.
    struct Case {
        int status, disk, level;
        bool speed_test;
        const char* pause;
        bool pause_enabled;
        const char* record;
        bool disk_enabled;
        const char* disk_icon_state; // lit while the disk has a level, even when held
    };
    const Case cases[] = {
        {0, 0, 2, false, "pause", false, "record", true, "active"},
        {7, 0, 0, false, "pause", false, "record", true, "normal"}, // unknown: idle
        {1, 1, 3, false, "pause", true, "stop", false, "active"},
        {2, 0, 3, false, "resume", true, "stop", false, "active"},
        {2, 0, 0, false, "resume", true, "stop", false, "disabled"},
        {0, 0, 2, true, "pause", false, "record", false, "active"},
        {0, 2, 3, false, "pause", false, "record", true, "normal"}, // no record disk
    };
    EncoderShortcutPage1Widget page(texts());
    for (const Case& c : cases) {
        EncoderShortcutPageVM vm;
        vm.record_status = c.status, vm.disk_type = c.disk, vm.disk_icon_level = c.level;
        vm.disk_speed_testing = c.speed_test;
        page.updateFromVm(vm);
        SCOPED_TRACE(testing::Message() << c.status << "/" << c.disk << "/" << c.level);
        const QString icon = QStringLiteral(":/icons/shortcut/%1.svg");
        const QString key = QStringLiteral("encoder_shortcut.%1");
        EXPECT_EQ(svgPathOf(page.buttonIcon(0)), icon.arg(c.pause));
        EXPECT_EQ(page.buttonLabel(0)->text(), english(key.arg(c.pause)));
        EXPECT_EQ(page.pauseButton()->isEnabled(), c.pause_enabled);
        EXPECT_EQ(stateOf(page.pauseButton()), c.pause_enabled ? "normal" : "disabled");
        EXPECT_EQ(svgPathOf(page.buttonIcon(1)), icon.arg(c.record));
        EXPECT_EQ(page.buttonLabel(1)->text(), english(key.arg(c.record)));
        EXPECT_EQ(page.diskButton()->isEnabled(), c.disk_enabled);
        EXPECT_EQ(stateOf(page.buttonIcon(2), "icon-state"), c.disk_icon_state);
        // The status bar's disk drawing, or an unmounted card for no record disk.
        const QString diskIcon =
            StatusBarWidget(texts(), nullptr).getStorageIconPath(c.disk, c.level);
        EXPECT_EQ(svgPathOf(page.buttonIcon(2)),
                  diskIcon.isEmpty() ? ":/icons/statusbar/sdcard_unmount.svg" : diskIcon);
    }
}

// One status of each colour, and the numbers each look treats apart.
TEST(StatusLooks, EachNumberHasItsTextAndColour)
{
    const std::map<QString, std::function<ShortcutStatusLook(int)>> looks = {
        {"osd", [](int status) { return osdStatusLook(texts(), status); }},
        {"push", [](int status) { return pushStreamStatusLook(texts(), status); }},
        {"pull",
         [](int status) { return decoderStatusLook(texts(), DecoderSource::Pull, status); }},
        {"uvc", [](int status) { return decoderStatusLook(texts(), DecoderSource::Uvc, status); }},
        {"ndi", [](int status) { return decoderStatusLook(texts(), DecoderSource::Ndi, status); }}};
    // Looks, statuses, their text's key (%1: the status) or the text itself, colour.
    const std::tuple<const char*, QVector<int>, const char*, const char*> cases[] = {
        {"osd", {1}, "osd_status.osd_status_%1", "mounted"},
        {"osd", {0, 4}, "osd_status.osd_status_%1", "error"},
        {"osd", {5, -1}, "osd_status.osd_status_0", "normal"}, // unknown: "off", but grey
        {"push", {1}, "push_status.push_stream_%1", "mounted"},
        {"push", {2, 11}, "push_status.push_stream_%1", "error"},
        {"push", {5, 12}, "push_status.push_stream_%1", "warning"},
        {"push", {0, 13}, "-", "normal"},
        // The decoder's numbers mean the same on every source, except 0.
        {"pull uvc ndi", {1, 10}, "pull_status.status_%1", "mounted"},
        {"pull uvc ndi", {2, 6}, "pull_status.status_%1", "warning"},
        {"pull uvc ndi", {11, 12}, "pull_status.status_%1", "error"},
        {"pull uvc ndi", {7}, "pull_status.status_7", "normal"},
        {"pull", {0}, "pull_status.status_undefined", "error"},
        {"uvc", {0}, "pull_status.status_0", "error"},
        {"ndi", {0}, "pull_status.status_on", "mounted"}};
    for (const auto& [names, statuses, text, state] : cases) {
        for (const QString& name : QString(names).split(' ')) {
            for (int status : statuses) {
                const QString key = QString(text).contains("%1") ? QString(text).arg(status) : text;
                const ShortcutStatusLook look = looks.at(name)(status);
                EXPECT_EQ(look.text, key.contains('.') ? english(key) : key) << name << status;
                EXPECT_EQ(look.state, state) << name << status;
            }
        }
    }

    // A NAS mount: 2 mounted, 4 busy, others failed; unknown numbers read as 0.
    NetworkSettingsPage3Widget nas(texts());
    NetworkSettingsPageVM vm;
    vm.nas_list = {{"a", true, 2}, {"b", false, 3}, {"c", false, 4}, {"d", false, 9}};
    nas.updateFromVm(vm);
    const std::pair<const char*, const char*> mounts[] = {
        {"2", "mounted"}, {"3", "error"}, {"4", "warning"}, {"0", "error"}};
    for (int row = 0; row < 4; ++row) {
        QLabel* line = firstByClass(nas.rowButton(row), "v2-shortcut-status");
        EXPECT_EQ(line->text(), english(QStringLiteral("nas_status.nas_") + mounts[row].first));
        EXPECT_EQ(stateOf(line), mounts[row].second);
    }
}

TEST(QuickActions, RowsNameTheirActionAndReportItsFunctionEvenWhenUnknown)
{
    ShortcutPageWidget page(texts(), nullptr);
    QSignalSpy spy(&page, &ShortcutPageWidget::shortcutKeyClicked);
    const QStringList functions = {"LockLcd", "Standby", "ShutDown",
                                   "Restart", "lockLcd", "Teleport"};
    const QStringList keys = {"camera_settings.lcd_lock", "system_settings.standby",
                              "system_settings.shutdown", "system_settings.reboot"};
    ShortcutVM vm;
    vm.config = {{"list", nlohmann::json::array()}};
    for (const QString& function : functions)
        vm.config["list"].push_back({{"function", function.toStdString()}});
    page.updateFromVm(vm);
    ASSERT_EQ(page.rowCount(), functions.size());
    for (int row = 0; row < functions.size(); ++row) {
        // Names match exactly; an unknown one shows no text but still reports.
        EXPECT_EQ(page.rowLabel(row)->text(), row < keys.size() ? english(keys[row]) : "");
        page.rowButton(row)->click();
        EXPECT_EQ(spy.last(), QVariantList{functions[row]});
    }
}

// A list page filled with `rows` items of one status, item i switched on
// when i is even; the hint it shows without items, how its rows read a status
// and whether a row is lit.
struct ListPage {
    const char* name;
    std::function<std::unique_ptr<ShortcutListPage>(int rows, int status)> make;
    const char* empty_key;
    std::function<ShortcutStatusLook(int status)> look; // null: checked above
    std::function<bool(bool on, int status)> lit = [](bool on, int) { return on; };
};

template <class Item> QList<Item> items(int rows, int status)
{
    QList<Item> list;
    for (int i = 0; i < rows; ++i) {
        Item item;
        if constexpr (std::is_same_v<Item, DecoderShortcutItemInfo>)
            item.is_on = i % 2 == 0;
        else
            item.switch_on = i % 2 == 0;
        item.name = QStringLiteral("Source %1").arg(i);
        item.status = status;
        list << item;
    }
    return list;
}

template <class Page, class Item> auto listOf(QList<Item> VmOf<Page>::*list)
{
    return [list](int rows, int status) -> std::unique_ptr<ShortcutListPage> {
        return pageShowing<Page>([=](VmOf<Page>& vm) { vm.*list = items<Item>(rows, status); });
    };
}

auto decoderLook(DecoderSource source)
{
    return [source](int status) { return decoderStatusLook(texts(), source, status); };
}

// What a tap on a row does is walked end to end; here how each list reads its
// items, in a status each look treats apart (0) and one they share (3).
TEST(ListPages, RowsShowTheirItemsStatusAndNoItemsTheHint)
{
    const ListPage lists[] = {
        {"osd", listOf<EncoderShortcutPage2Widget>(&EncoderShortcutPageVM::osd_items),
         "encoder_shortcut.osd_empty", [](int status) { return osdStatusLook(texts(), status); }},
        {"push streams", listOf<EncoderShortcutPage3Widget>(&EncoderShortcutPageVM::push_streams),
         "encoder_shortcut.stream_empty",
         [](int status) { return pushStreamStatusLook(texts(), status); }},
        {"pull", listOf<DecoderShortcutPage1Widget>(&DecoderShortcutPageVM::net_items),
         "decoder_shortcut.pull_empty", decoderLook(DecoderSource::Pull)},
        {"uvc", listOf<DecoderShortcutPage2Widget>(&DecoderShortcutPageVM::uvc_items),
         "decoder_shortcut.uvc_empty", decoderLook(DecoderSource::Uvc)},
        // An NDI source is lit while it is seen, whatever its switch says.
        {"ndi", listOf<DecoderShortcutPage3Widget>(&DecoderShortcutPageVM::ndi_items),
         "decoder_shortcut.ndi_empty", decoderLook(DecoderSource::Ndi),
         [](bool, int status) { return status != 0; }},
        {"nas", listOf<NetworkSettingsPage3Widget>(&NetworkSettingsPageVM::nas_list),
         "network_settings.nas_empty", nullptr}};
    for (const ListPage& list : lists) {
        for (int status : {0, 3}) {
            SCOPED_TRACE(testing::Message() << list.name << " " << status);
            const auto page = list.make(2, status);
            for (int row = 0; row < 2; ++row) {
                QPushButton* button = page->rowButton(row);
                EXPECT_EQ(stateOf(button, "btn-state"),
                          list.lit(row == 0, status) ? "active" : "normal");
                QLabel* line = firstByClass(button, "v2-shortcut-status");
                if (list.look) {
                    EXPECT_EQ(line->text(), list.look(status).text);
                    EXPECT_EQ(stateOf(line), list.look(status).state);
                }
            }
        }
        const auto empty = list.make(0, 1);
        EXPECT_TRUE(empty->scrollArea()->isHidden() && !empty->emptyHint()->isHidden());
        EXPECT_EQ(empty->emptyHint()->text(), english(list.empty_key)) << list.name;
    }
}

// The scrolling all list pages share, on the push streams' page.
TEST(ListPages, ShowAtMostTwelveRowsAndScrollOneRowPerSwipeBeforeLeaving)
{
    EncoderShortcutPage3Widget page(texts());
    showAndSettle(&page);
    auto show = [&](int rows) {
        EncoderShortcutPageVM vm;
        vm.push_streams = items<PushStreamItemInfo>(rows, 1);
        page.updateFromVm(vm);
    };
    auto scrolled = [&] { return page.scrollArea()->horizontalScrollBar()->value(); };
    show(13);
    ASSERT_EQ(page.rowCount(), ShortcutListPage::kMaxRows);
    EXPECT_EQ(page.onSwipeRight(0), PAGE_ENCODER_SHORTCUT_2);
    const int step = page.rowButton(1)->x();
    for (int swipes = 0; page.canScrollRight() && swipes < 20; ++swipes) {
        const int previous = scrolled();
        EXPECT_EQ(page.onSwipeLeft(0), -1) << "scrolls while it can";
        EXPECT_GT(scrolled(), previous);
        EXPECT_LE(scrolled() - previous, step) << "a row per swipe";
    }
    EXPECT_EQ(page.rowButton(11)->geometry().right() - scrolled(),
              page.scrollArea()->viewport()->width() - 1)
        << "the twelfth row ends the list";
    EXPECT_EQ(page.onSwipeLeft(0), PAGE_ENCODER_SHORTCUT_1);

    page.onSwipeRight(0);
    const int position = scrolled();
    show(12);
    EXPECT_EQ(scrolled(), position) << "a rebuilt list keeps its place";
    show(4);
    EXPECT_EQ(scrolled(), page.scrollArea()->horizontalScrollBar()->maximum())
        << "within the shorter list's range";
    show(0);
    EXPECT_EQ(page.onSwipeLeft(0), PAGE_ENCODER_SHORTCUT_1) << "nothing to scroll";
}

} // namespace
