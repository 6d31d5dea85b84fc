// The three encoder shortcut pages: record controls, OSD layouts, push streams.
#include "pages/encoder_shortcut_page_widget.h"
#include "pages/page_ids.h"
#include "shortcut_list_rows.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using pagetest::readRow;

// ------------------------------------------------------------ page 1

class EncoderRecordPageTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    EncoderShortcutPage1Widget page{texts.get(), nullptr};

    struct Look {
        QString state, icon, iconState, textState, text;
        bool enabled;
    };
    Look look(int slot) const
    {
        const QPushButton* buttons[] = {page.pauseButton(), page.recordButton(), page.diskButton()};
        const QLabel* icon = page.buttonIcon(slot);
        const QLabel* label = page.buttonLabel(slot);
        return {buttons[slot]->property("state").toString(),
                icon->property("svgPath").toString(),
                icon->property("icon-state").toString(),
                label->property("text-state").toString(),
                label->text(),
                buttons[slot]->isEnabled()};
    }
    void show(int recordStatus, int diskType = 0, int level = 2, bool speedTest = false)
    {
        EncoderShortcutPageVM vm;
        vm.record_status = recordStatus;
        vm.disk_type = diskType;
        vm.disk_icon_level = level;
        vm.disk_speed_testing = speedTest;
        page.updateFromVm(vm);
    }
    QString text(const char* key) const { return texts->getTextWithFallback(key); }
};

TEST_F(EncoderRecordPageTest, StartLooks)
{
    EXPECT_EQ(page.pauseButton()->property("state").toString(), "disabled");
    EXPECT_EQ(page.recordButton()->property("state").toString(), "normal");
    EXPECT_EQ(page.buttonIcon(0)->property("svgPath").toString(), ":/icons/shortcut/pause.svg");
    EXPECT_EQ(page.buttonIcon(1)->property("svgPath").toString(), ":/icons/shortcut/record.svg");
    EXPECT_EQ(page.buttonIcon(2)->property("svgPath").toString(),
              ":/icons/media_settings/disk.svg");
    EXPECT_EQ(page.recordButton()->geometry(), QRect(282, 14, 76, 76));
    EXPECT_EQ(page.buttonLabel(2)->geometry(), QRect(442, 96, 108, 22));
}

TEST_F(EncoderRecordPageTest, IdleRecordingAndPausedLooks)
{
    show(0);
    Look pause = look(0), record = look(1);
    EXPECT_EQ(pause.state, "disabled");
    EXPECT_FALSE(pause.enabled);
    EXPECT_EQ(pause.icon, ":/icons/shortcut/pause.svg");
    EXPECT_EQ(pause.iconState, "disabled");
    EXPECT_EQ(pause.textState, "disabled");
    EXPECT_EQ(pause.text, text("encoder_shortcut.pause"));
    EXPECT_EQ(record.state, "normal");
    EXPECT_EQ(record.icon, ":/icons/shortcut/record.svg");
    EXPECT_EQ(record.iconState, "recording");
    EXPECT_EQ(record.text, text("encoder_shortcut.record"));

    show(1);
    pause = look(0);
    record = look(1);
    EXPECT_EQ(pause.state, "normal");
    EXPECT_TRUE(pause.enabled);
    EXPECT_EQ(pause.icon, ":/icons/shortcut/pause.svg");
    EXPECT_EQ(pause.iconState, "active");
    EXPECT_EQ(pause.textState, "normal");
    EXPECT_EQ(record.icon, ":/icons/shortcut/stop.svg");
    EXPECT_EQ(record.text, text("encoder_shortcut.stop"));

    show(2);
    pause = look(0);
    record = look(1);
    EXPECT_EQ(pause.icon, ":/icons/shortcut/resume.svg");
    EXPECT_EQ(pause.text, text("encoder_shortcut.resume"));
    EXPECT_TRUE(pause.enabled);
    EXPECT_EQ(record.icon, ":/icons/shortcut/stop.svg");
    EXPECT_EQ(record.state, "normal");

    show(7); // unknown numbers count as idle
    EXPECT_FALSE(look(0).enabled);
    EXPECT_EQ(look(1).icon, ":/icons/shortcut/record.svg");
}

TEST_F(EncoderRecordPageTest, DiskButtonAvailability)
{
    show(0, 0, 2);
    EXPECT_TRUE(look(2).enabled);
    EXPECT_EQ(look(2).state, "normal");
    EXPECT_EQ(look(2).text, text("encoder_shortcut.disk"));

    for (int status : {1, 2}) {
        show(status, 0, 2);
        EXPECT_FALSE(look(2).enabled) << status;
        EXPECT_EQ(look(2).state, "disabled");
        EXPECT_EQ(look(2).textState, "disabled");
    }
    show(0, 0, 2, true); // a disk speed test holds the disk
    EXPECT_FALSE(look(2).enabled);
    EXPECT_EQ(page.diskButton()->property("class").toString(), "v2-record-btn");
}

TEST_F(EncoderRecordPageTest, DiskIconFollowsTheStatusBarTableOrFallsBackToAnUnmountedCard)
{
    // The table itself is the status bar's; the page only adds a fallback.
    show(1, 1, 3);
    EXPECT_EQ(look(2).icon, ":/icons/statusbar/udisk_60.svg");
    for (int noRecordDisk : {-1, 2}) {
        show(0, noRecordDisk, 2);
        EXPECT_EQ(look(2).icon, ":/icons/statusbar/sdcard_unmount.svg") << noRecordDisk;
    }
}

TEST_F(EncoderRecordPageTest, DiskIconStateShowsALevelEvenWhenDisabled)
{
    show(2, 0, 3); // paused with a level: lit
    EXPECT_EQ(look(2).iconState, "active");
    show(2, 0, 0); // paused without a level: the disabled look
    EXPECT_EQ(look(2).iconState, "disabled");
    show(0, 0, 0);
    EXPECT_EQ(look(2).iconState, "normal");
    show(0, 2, 3); // not a record disk
    EXPECT_EQ(look(2).iconState, "normal");
}

TEST_F(EncoderRecordPageTest, ButtonsRaiseTheirSignals)
{
    QSignalSpy pause(&page, &EncoderShortcutPage1Widget::pauseClicked);
    QSignalSpy record(&page, &EncoderShortcutPage1Widget::recordClicked);
    QSignalSpy disk(&page, &EncoderShortcutPage1Widget::diskSelectClicked);
    show(1);
    page.pauseButton()->click();
    page.recordButton()->click();
    page.recordButton()->click();
    show(0);
    page.diskButton()->click();
    EXPECT_EQ(pause.count(), 1);
    EXPECT_EQ(record.count(), 2);
    EXPECT_EQ(disk.count(), 1);
}

TEST_F(EncoderRecordPageTest, Gestures)
{
    EXPECT_EQ(page.onSwipeLeft(0), PAGE_STATUS_1);
    EXPECT_EQ(page.onSwipeRight(0), PAGE_ENCODER_SHORTCUT_3);
    EXPECT_EQ(page.onEdgeSwipeToCenter(0), PAGE_STATUS_1);
    EXPECT_EQ(page.onSwipeUp(0), PAGE_MAIN_MENU_1);
    EXPECT_EQ(page.onSwipeDown(0), PAGE_CONNECT_APP);
    EXPECT_EQ(page.onLongPress(0), -1);
    EXPECT_EQ(page.onAutoSwitch(0), -1);
}

TEST_F(EncoderRecordPageTest, Snapshots)
{
    show(0, 0, 2);
    pagetest::saveThemedScreenshots(&page, "encoder_shortcut_1_idle");
    show(1, 1, 4);
    pagetest::saveThemedScreenshots(&page, "encoder_shortcut_1_recording");
    show(2, 1, 3);
    pagetest::saveThemedScreenshots(&page, "encoder_shortcut_1_paused");
    EXPECT_EQ(look(0).icon, ":/icons/shortcut/resume.svg");
}

// ------------------------------------------------------------ pages 2 and 3

QList<OsdItemInfo> osdItems(int count)
{
    QList<OsdItemInfo> items;
    for (int i = 0; i < count; ++i)
        items.append({100 + i, QStringLiteral("Layout %1").arg(i), i % 2 == 0, 1});
    return items;
}

QList<PushStreamItemInfo> streamItems(int count)
{
    QList<PushStreamItemInfo> items;
    for (int i = 0; i < count; ++i)
        items.append({i, QStringLiteral("Stream%1").arg(i), i == 1, i, 0});
    return items;
}

class EncoderListPagesTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    EncoderShortcutPage2Widget osd{texts.get(), nullptr};
    EncoderShortcutPage3Widget streams{texts.get(), nullptr};

    void SetUp() override
    {
        pagetest::showAndSettle(&osd);
        pagetest::showAndSettle(&streams);
    }
    void showOsd(const QList<OsdItemInfo>& items)
    {
        EncoderShortcutPageVM vm;
        vm.osd_items = items;
        osd.updateFromVm(vm);
    }
    void showStreams(const QList<PushStreamItemInfo>& items)
    {
        EncoderShortcutPageVM vm;
        vm.push_streams = items;
        streams.updateFromVm(vm);
    }
};

TEST_F(EncoderListPagesTest, RowsShowNameStatusAndSwitch)
{
    QList<OsdItemInfo> items = osdItems(3);
    items[0].name = "abcdefghij";
    items[1].status = 3;
    items[2].status = 9;
    showOsd(items);
    ASSERT_EQ(osd.rowCount(), 3);
    const pagetest::ShownRow first = readRow(osd.rowButton(0));
    EXPECT_EQ(first.name, "abcd...ghij");
    EXPECT_EQ(first.status, texts->getTextWithFallback("osd_status.osd_status_1"));
    EXPECT_EQ(first.statusState, "mounted");
    EXPECT_EQ(first.btnState, "active");
    EXPECT_EQ(readRow(osd.rowButton(1)).btnState, "normal");
    EXPECT_EQ(readRow(osd.rowButton(1)).statusState, "error");
    EXPECT_EQ(readRow(osd.rowButton(2)).statusState, "normal");
    EXPECT_EQ(osd.contentWidget()->width(), 3 * 160 + 2 * 10);
    EXPECT_EQ(osd.rowButton(2)->geometry(), QRect(340, 0, 160, 100));
    EXPECT_FALSE(osd.scrollArea()->isHidden());
    EXPECT_TRUE(osd.emptyHint()->isHidden());

    showStreams(streamItems(6));
    ASSERT_EQ(streams.rowCount(), 6);
    EXPECT_EQ(readRow(streams.rowButton(0)).status, "-");
    EXPECT_EQ(readRow(streams.rowButton(1)).btnState, "active");
    EXPECT_EQ(readRow(streams.rowButton(5)).statusState, "warning");
    EXPECT_EQ(readRow(streams.rowButton(5)).status,
              texts->getTextWithFallback("push_status.push_stream_5"));
}

TEST_F(EncoderListPagesTest, TapsReportTheRowAndItsStateBeforeTheTap)
{
    QSignalSpy osdSpy(&osd, &EncoderShortcutPage2Widget::osdItemClicked);
    showOsd(osdItems(2));
    osd.rowButton(1)->click();
    osd.rowButton(0)->click();
    ASSERT_EQ(osdSpy.count(), 2);
    EXPECT_EQ(osdSpy.at(0), (QList<QVariant>{101, false}));
    EXPECT_EQ(osdSpy.at(1), (QList<QVariant>{100, true}));

    QSignalSpy streamSpy(&streams, &EncoderShortcutPage3Widget::pushStreamItemClicked);
    showStreams(streamItems(3));
    streams.rowButton(1)->click();
    ASSERT_EQ(streamSpy.count(), 1);
    EXPECT_EQ(streamSpy.at(0), (QList<QVariant>{1, true}));
}

TEST_F(EncoderListPagesTest, ThirteenItemsShowTwelveAndScrollStopsAtTheTwelfth)
{
    showOsd(osdItems(13));
    EXPECT_EQ(osd.rowCount(), 12);
    EXPECT_EQ(osd.contentWidget()->width(), 2030);

    int leftSwipes = 0;
    while (osd.onSwipeLeft(0) == -1) {
        ++leftSwipes;
        ASSERT_LT(leftSwipes, 20);
    }
    // 2030 - 540 = 1490 to scroll in steps of one row: nine swipes.
    EXPECT_EQ(leftSwipes, 9);
    EXPECT_EQ(pagetest::scrollValue(osd.scrollArea()), 1490);
    const QRect lastRow = osd.rowButton(11)->geometry();
    EXPECT_EQ(lastRow.right() + 1 - 1490, 540);
    EXPECT_EQ(osd.onSwipeLeft(0), PAGE_ENCODER_SHORTCUT_3);

    EXPECT_EQ(osd.onSwipeRight(0), -1);
    EXPECT_EQ(pagetest::scrollValue(osd.scrollArea()), 1320);
}

TEST_F(EncoderListPagesTest, GesturesScrollFirstThenNavigate)
{
    showStreams(streamItems(5)); // 840 wide: 300 to scroll
    EXPECT_EQ(streams.onSwipeRight(0), PAGE_ENCODER_SHORTCUT_2);
    EXPECT_EQ(streams.onSwipeLeft(0), -1);
    EXPECT_EQ(pagetest::scrollValue(streams.scrollArea()), 170);
    EXPECT_EQ(streams.onSwipeLeft(0), -1);
    EXPECT_EQ(pagetest::scrollValue(streams.scrollArea()), 300);
    EXPECT_EQ(streams.onSwipeLeft(0), PAGE_ENCODER_SHORTCUT_1);
    EXPECT_EQ(streams.onSwipeRight(0), -1);
    EXPECT_EQ(streams.onSwipeRight(0), -1);
    EXPECT_EQ(pagetest::scrollValue(streams.scrollArea()), 0);
    EXPECT_EQ(streams.onSwipeRight(0), PAGE_ENCODER_SHORTCUT_2);

    for (IGestureHandler* page :
         {static_cast<IGestureHandler*>(&osd), static_cast<IGestureHandler*>(&streams)}) {
        EXPECT_EQ(page->onEdgeSwipeToCenter(0), PAGE_STATUS_1);
        EXPECT_EQ(page->onSwipeUp(0), PAGE_MAIN_MENU_1);
        EXPECT_EQ(page->onSwipeDown(0), PAGE_CONNECT_APP);
        EXPECT_EQ(page->onLongPress(0), -1);
    }
}

TEST_F(EncoderListPagesTest, ShortListDoesNotScroll)
{
    showOsd(osdItems(3));
    EXPECT_FALSE(osd.canScrollLeft());
    EXPECT_FALSE(osd.canScrollRight());
    EXPECT_EQ(osd.onSwipeLeft(0), PAGE_ENCODER_SHORTCUT_3);
    EXPECT_EQ(osd.onSwipeRight(0), -1);
}

TEST_F(EncoderListPagesTest, EmptyListShowsTheHintAndSwipesLeaveAtOnce)
{
    showOsd(osdItems(8));
    osd.onSwipeLeft(0);
    showOsd({});
    EXPECT_EQ(osd.rowCount(), 0);
    EXPECT_TRUE(osd.scrollArea()->isHidden());
    EXPECT_FALSE(osd.emptyHint()->isHidden());
    EXPECT_EQ(osd.emptyHint()->text(), texts->getTextWithFallback("encoder_shortcut.osd_empty"));
    EXPECT_EQ(osd.onSwipeLeft(0), PAGE_ENCODER_SHORTCUT_3);
    EXPECT_EQ(osd.onSwipeRight(0), -1);

    showStreams({});
    EXPECT_EQ(streams.emptyHint()->text(),
              texts->getTextWithFallback("encoder_shortcut.stream_empty"));

    showOsd(osdItems(2));
    EXPECT_TRUE(osd.emptyHint()->isHidden());
    EXPECT_FALSE(osd.scrollArea()->isHidden());
}

TEST_F(EncoderListPagesTest, RebuildKeepsTheScrollPositionWithinTheNewRange)
{
    showOsd(osdItems(12));
    osd.onSwipeLeft(0);
    osd.onSwipeLeft(0);
    EXPECT_EQ(pagetest::scrollValue(osd.scrollArea()), 340);
    showOsd(osdItems(12));
    EXPECT_EQ(pagetest::scrollValue(osd.scrollArea()), 340);
    showOsd(osdItems(4)); // 670 wide: at most 130
    EXPECT_EQ(pagetest::scrollValue(osd.scrollArea()), 130);
}

TEST_F(EncoderListPagesTest, NothingIsBuiltWithoutTexts)
{
    EncoderShortcutPage2Widget page(nullptr, nullptr);
    EncoderShortcutPageVM vm;
    vm.osd_items = osdItems(3);
    page.updateFromVm(vm);
    EXPECT_EQ(page.rowCount(), 0);
}

TEST_F(EncoderListPagesTest, Snapshots)
{
    QList<OsdItemInfo> items = osdItems(5);
    items[1].status = 2;
    items[3].status = 7;
    showOsd(items);
    pagetest::saveThemedScreenshots(&osd, "encoder_shortcut_2_osd");
    showStreams({});
    pagetest::saveThemedScreenshots(&streams, "encoder_shortcut_3_empty");
    showStreams(streamItems(4));
    pagetest::saveThemedScreenshots(&streams, "encoder_shortcut_3_streams");
    EXPECT_EQ(streams.rowCount(), 4);
}

} // namespace
