// The shortcut pages: the record controls, the six lists that scroll one row
// per swipe (OSD layouts, push streams, decoder sources, NAS mounts), the
// status line of their rows, and the quick action list.
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

    // Recording, pause and stop answer; idle, record and the disk choice.
    const auto pause = spyOn(&page, "pauseClicked");
    const auto record = spyOn(&page, "recordClicked");
    const auto disk = spyOn(&page, "diskSelectClicked");
    for (int status : {1, 0}) {
        EncoderShortcutPageVM vm;
        vm.record_status = status;
        page.updateFromVm(vm);
        for (QPushButton* button : {page.pauseButton(), page.recordButton(), page.diskButton()})
            button->click();
    }
    EXPECT_EQ(QVector<int>({pause->count(), record->count(), disk->count()}),
              QVector<int>({1, 2, 1}));
}

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
        {"osd", {0, 2, 3, 4}, "osd_status.osd_status_%1", "error"},
        {"osd", {5, -1}, "osd_status.osd_status_0", "normal"}, // unknown: "off", but grey
        {"push", {1}, "push_status.push_stream_%1", "mounted"},
        {"push", {2, 3, 4, 6, 7, 8, 11}, "push_status.push_stream_%1", "error"},
        {"push", {5, 9, 10, 12}, "push_status.push_stream_%1", "warning"},
        {"push", {0, 13, -2}, "-", "normal"},
        // The decoder's numbers mean the same on every source, except 0.
        {"pull uvc ndi", {1, 3, 5, 8, 9, 10}, "pull_status.status_%1", "mounted"},
        {"pull uvc ndi", {2, 4, 6}, "pull_status.status_%1", "warning"},
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
    nas.updateFromVm([] {
        NetworkSettingsPageVM vm;
        vm.nas_list = {{"a", true, 2}, {"b", false, 3}, {"c", false, 4}, {"d", false, 9}};
        return vm;
    }());
    const std::tuple<int, const char*, const char*> mounts[] = {
        {2, "2", "mounted"}, {3, "3", "error"}, {4, "4", "warning"}, {9, "0", "error"}};
    for (int row = 0; row < 4; ++row) {
        QLabel* line = firstByClass(nas.rowButton(row), "v2-shortcut-status");
        EXPECT_EQ(line->text(),
                  english(QStringLiteral("nas_status.nas_%1").arg(std::get<1>(mounts[row]))));
        EXPECT_EQ(stateOf(line), std::get<2>(mounts[row]));
    }
}

class QuickActions : public ::testing::Test {
protected:
    void show(const QStringList& functions)
    {
        ShortcutVM vm;
        vm.config = {{"list", nlohmann::json::array()}};
        for (const QString& function : functions)
            vm.config["list"].push_back({{"function", function.toStdString()}});
        page.updateFromVm(vm);
    }
    static QStringList standbyRows(int count)
    {
        QStringList rows;
        while (rows.size() < count)
            rows << "Standby";
        return rows;
    }
    // The rows that the lit dots mark.
    QVector<int> litDots() const
    {
        QVector<int> lit;
        for (int i = 0; i < page.dots().size(); ++i)
            if (page.dots()[i]->styleSheet().contains(QLatin1String("#4080FF")))
                lit << i;
        return lit;
    }
    ShortcutPageWidget page{texts(), nullptr};
};

TEST_F(QuickActions, RowsNameTheirActionAndReportItsFunctionEvenWhenUnknown)
{
    const auto spy = spyOn(&page, "shortcutKeyClicked");
    const QStringList functions = {"LockLcd", "Standby", "ShutDown",
                                   "Restart", "lockLcd", "Teleport"};
    const QStringList keys = {"camera_settings.lcd_lock", "system_settings.standby",
                              "system_settings.shutdown", "system_settings.reboot"};
    show(functions);
    ASSERT_EQ(page.rowCount(), functions.size());
    for (int row = 0; row < functions.size(); ++row) {
        // Names match exactly; an unknown one shows no text but still reports.
        EXPECT_EQ(page.rowLabel(row)->text(), row < keys.size() ? english(keys[row]) : "");
        page.rowButton(row)->click();
        EXPECT_EQ(spy->last(), QVariantList{functions[row]});
    }
}

TEST_F(QuickActions, DotsMarkTheRowsInViewAndFollowTheScroll)
{
    showAndSettle(&page);
    show(standbyRows(3));
    EXPECT_TRUE(page.dotStrip()->isHidden()) << "all rows in view";
    show(standbyRows(15));
    EXPECT_EQ(page.rowCount(), ShortcutPageWidget::kMaxRows);
    show(standbyRows(6));
    EXPECT_EQ(litDots(), QVector<int>({0, 1, 2}));
    EXPECT_EQ(page.onSwipeLeft(0), -1);
    EXPECT_EQ(litDots(), QVector<int>({1, 2, 3}));
    QPushButton* first = page.rowButton(0);
    show(standbyRows(6));
    EXPECT_EQ(page.rowButton(0), first) << "an unchanged list keeps its rows and place";
    EXPECT_EQ(litDots(), QVector<int>({1, 2, 3}));
    while (page.canScrollRight())
        page.onSwipeLeft(0);
    EXPECT_EQ(litDots(), QVector<int>({3, 4, 5}));
    page.setShortcut_num(2);
    show(standbyRows(5));
    EXPECT_EQ(litDots().size(), 2);

    show({});
    EXPECT_TRUE(page.scrollArea()->isHidden());
    page.onReturnPage(PAGE_STATUS_2);
    EXPECT_EQ(page.onSwipeUp(0), PAGE_STATUS_2) << "back where the long press came from";
}

// One of the list pages, filled with `rows` items of one status: item i
// keyed `first_key` + i and switched on when i is even.
struct ListPage {
    const char* name;
    std::function<std::unique_ptr<ShortcutListPage>()> create;
    std::function<void(ShortcutListPage&, int rows, int status)> show;
    int first_key;
    const char* empty_key;
    int left_at_end, right_at_start;
    const char* signal;
    std::function<ShortcutStatusLook(int status)> look; // null: checked elsewhere
    std::function<bool(bool on, int status)> active;
};

template <class Item> QList<Item> items(int rows, int status)
{
    QList<Item> list;
    for (int i = 0; i < rows; ++i) {
        Item item;
        if constexpr (std::is_same_v<Item, DecoderShortcutItemInfo>)
            item.id = 100 + i, item.is_on = i % 2 == 0;
        else if constexpr (std::is_same_v<Item, OsdItemInfo>)
            item.id = 100 + i, item.switch_on = i % 2 == 0;
        else if constexpr (std::is_same_v<Item, PushStreamItemInfo>)
            item.index = 100 + i, item.switch_on = i % 2 == 0;
        else
            item.switch_on = i % 2 == 0;
        item.name = QStringLiteral("Source %1").arg(i);
        item.status = status;
        list << item;
    }
    return list;
}

bool litWhenOn(bool on, int)
{
    return on;
}

template <class Page, class Item>
ListPage listPage(const char* name, QList<Item> VmOf<Page>::*list, int firstKey,
                  const char* emptyKey, int leftAtEnd, int rightAtStart, const char* signal,
                  std::function<ShortcutStatusLook(int)> look,
                  std::function<bool(bool, int)> active = litWhenOn)
{
    ListPage page{name,      nullptr,      nullptr, firstKey, emptyKey,
                  leftAtEnd, rightAtStart, signal,  look,     active};
    page.create = [] { return std::make_unique<Page>(texts(), nullptr); };
    page.show = [list](ShortcutListPage& shown, int rows, int status) {
        VmOf<Page> vm;
        vm.*list = items<Item>(rows, status);
        static_cast<Page&>(shown).updateFromVm(vm);
    };
    return page;
}

auto decoderLook(DecoderSource source)
{
    return [source](int status) { return decoderStatusLook(texts(), source, status); };
}

void PrintTo(const ListPage& list, std::ostream* out)
{
    *out << list.name;
}

class ListPages : public ::testing::TestWithParam<ListPage> {
protected:
    void SetUp() override { showAndSettle(page.get()); }
    int scrolled() const { return page->scrollArea()->horizontalScrollBar()->value(); }
    const ListPage& list = GetParam();
    std::unique_ptr<ShortcutListPage> page = list.create();
};

TEST_P(ListPages, ShowAtMostTwelveRowsAndScrollOneRowPerSwipeBeforeLeaving)
{
    list.show(*page, 13, 1);
    ASSERT_EQ(page->rowCount(), ShortcutListPage::kMaxRows);
    EXPECT_EQ(page->onSwipeRight(0), list.right_at_start);
    const int step = page->rowButton(1)->x();
    for (int swipes = 0; page->canScrollRight() && swipes < 20; ++swipes) {
        const int previous = scrolled();
        EXPECT_EQ(page->onSwipeLeft(0), -1) << "scrolls while it can";
        EXPECT_GT(scrolled(), previous);
        EXPECT_LE(scrolled() - previous, step) << "a row per swipe";
    }
    EXPECT_EQ(page->rowButton(11)->geometry().right() - scrolled(),
              page->scrollArea()->viewport()->width() - 1)
        << "the twelfth row ends the list";
    EXPECT_EQ(page->onSwipeLeft(0), list.left_at_end);

    page->onSwipeRight(0);
    const int position = scrolled();
    list.show(*page, 12, 1);
    EXPECT_EQ(scrolled(), position) << "a rebuilt list keeps its place";
    list.show(*page, 4, 1);
    EXPECT_EQ(scrolled(), page->scrollArea()->horizontalScrollBar()->maximum())
        << "within the shorter list's range";
}

TEST_P(ListPages, RowsShowTheirItemAndTapsReportItAsShown)
{
    for (int status : {0, 3}) {
        list.show(*page, 3, status);
        const auto spy = spyOn(page.get(), list.signal);
        for (int row = 0; row < 3; ++row) {
            QPushButton* button = page->rowButton(row);
            const bool on = row % 2 == 0;
            EXPECT_EQ(stateOf(button, "btn-state"), list.active(on, status) ? "active" : "normal");
            QLabel* line = firstByClass(button, "v2-shortcut-status");
            if (list.look) {
                EXPECT_EQ(line->text(), list.look(status).text) << status;
                EXPECT_EQ(stateOf(line), list.look(status).state) << status;
            }
            button->click();
            EXPECT_EQ(spy->last(), (QVariantList{list.first_key + row, on}));
        }
    }
}

TEST_P(ListPages, EmptiedListShowsItsHintAndSwipesLeaveAtOnce)
{
    list.show(*page, 5, 1);
    page->onSwipeLeft(0);
    list.show(*page, 0, 1);
    EXPECT_EQ(page->rowCount(), 0);
    EXPECT_TRUE(page->scrollArea()->isHidden());
    EXPECT_FALSE(page->emptyHint()->isHidden());
    EXPECT_EQ(page->emptyHint()->text(), english(list.empty_key));
    EXPECT_EQ(page->onSwipeLeft(0), list.left_at_end) << "nothing to scroll";
}

INSTANTIATE_TEST_SUITE_P(
    AllLists, ListPages,
    ::testing::Values(
        listPage<EncoderShortcutPage2Widget>(
            "Osd", &EncoderShortcutPageVM::osd_items, 100, "encoder_shortcut.osd_empty",
            PAGE_ENCODER_SHORTCUT_3, -1, "osdItemClicked",
            [](int status) { return osdStatusLook(texts(), status); }),
        listPage<EncoderShortcutPage3Widget>(
            "PushStreams", &EncoderShortcutPageVM::push_streams, 100,
            "encoder_shortcut.stream_empty", PAGE_ENCODER_SHORTCUT_1, PAGE_ENCODER_SHORTCUT_2,
            "pushStreamItemClicked",
            [](int status) { return pushStreamStatusLook(texts(), status); }),
        listPage<DecoderShortcutPage1Widget>("Pull", &DecoderShortcutPageVM::net_items, 100,
                                             "decoder_shortcut.pull_empty", PAGE_STATUS_1,
                                             PAGE_DECODER_SHORTCUT_2, "pullItemClicked",
                                             decoderLook(DecoderSource::Pull)),
        listPage<DecoderShortcutPage2Widget>("Uvc", &DecoderShortcutPageVM::uvc_items, 100,
                                             "decoder_shortcut.uvc_empty", PAGE_DECODER_SHORTCUT_1,
                                             PAGE_DECODER_SHORTCUT_3, "uvcItemClicked",
                                             decoderLook(DecoderSource::Uvc)),
        // An NDI source is lit while it is seen, whatever its switch says.
        listPage<DecoderShortcutPage3Widget>("Ndi", &DecoderShortcutPageVM::ndi_items, 100,
                                             "decoder_shortcut.ndi_empty", PAGE_DECODER_SHORTCUT_2,
                                             -1, "ndiItemClicked", decoderLook(DecoderSource::Ndi),
                                             [](bool, int status) { return status != 0; }),
        listPage<NetworkSettingsPage3Widget>("Nas", &NetworkSettingsPageVM::nas_list, 0,
                                             "network_settings.nas_empty", -1,
                                             PAGE_NETWORK_SETTINGS_2, "nasClicked", nullptr)),
    [](const ::testing::TestParamInfo<ListPage>& info) { return std::string(info.param.name); });

} // namespace
