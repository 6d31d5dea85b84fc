// The decoder shortcut pages: network pulls, USB cameras and NDI sources.
#include "pages/decoder_shortcut_page_widget.h"
#include "pages/page_ids.h"
#include "shortcut_list_rows.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using pagetest::readRow;

DecoderShortcutItemInfo item(int id, int status, bool isOn, const QString& name = "Src")
{
    DecoderShortcutItemInfo info;
    info.id = id;
    info.name = name;
    info.status = status;
    info.is_on = isOn;
    return info;
}

QList<DecoderShortcutItemInfo> items(int count)
{
    QList<DecoderShortcutItemInfo> list;
    for (int i = 0; i < count; ++i)
        list.append(item(10 + i, 1, false, QStringLiteral("Source %1").arg(100 + i)));
    return list;
}

class DecoderPagesTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    DecoderShortcutPage1Widget pull{texts.get(), nullptr};
    DecoderShortcutPage2Widget uvc{texts.get(), nullptr};
    DecoderShortcutPage3Widget ndi{texts.get(), nullptr};

    void SetUp() override
    {
        for (QWidget* page : {static_cast<QWidget*>(&pull), static_cast<QWidget*>(&uvc),
                              static_cast<QWidget*>(&ndi)})
            pagetest::showAndSettle(page);
    }
    void showAll(const QList<DecoderShortcutItemInfo>& list)
    {
        DecoderShortcutPageVM vm;
        vm.net_items = list;
        vm.uvc_items = list;
        vm.ndi_items = list;
        pull.updateFromVm(vm);
        uvc.updateFromVm(vm);
        ndi.updateFromVm(vm);
    }
    QString text(const char* key) const { return texts->getTextWithFallback(key); }
};

TEST_F(DecoderPagesTest, EachPageTakesItsOwnList)
{
    DecoderShortcutPageVM vm;
    vm.net_items = items(2);
    vm.uvc_items = items(3);
    vm.ndi_items = items(4);
    pull.updateFromVm(vm);
    uvc.updateFromVm(vm);
    ndi.updateFromVm(vm);
    EXPECT_EQ(pull.rowCount(), 2);
    EXPECT_EQ(uvc.rowCount(), 3);
    EXPECT_EQ(ndi.rowCount(), 4);
    EXPECT_EQ(readRow(ndi.rowButton(3)).name, "Sour... 103");
}

TEST_F(DecoderPagesTest, StatusZeroReadsDifferentlyPerPage)
{
    showAll({item(1, 0, false)});
    const pagetest::ShownRow pullRow = readRow(pull.rowButton(0));
    EXPECT_EQ(pullRow.status, text("pull_status.status_undefined"));
    EXPECT_EQ(pullRow.statusState, "error");
    const pagetest::ShownRow uvcRow = readRow(uvc.rowButton(0));
    EXPECT_EQ(uvcRow.status, text("pull_status.status_0"));
    EXPECT_EQ(uvcRow.statusState, "error");
    const pagetest::ShownRow ndiRow = readRow(ndi.rowButton(0));
    EXPECT_EQ(ndiRow.status, text("pull_status.status_on"));
    EXPECT_EQ(ndiRow.statusState, "mounted");
    EXPECT_EQ(ndiRow.btnState, "normal");
}

TEST_F(DecoderPagesTest, ActiveLookFollowsSwitchOrNdiStatus)
{
    showAll({item(1, 0, true), item(2, 3, false), item(3, 12, true)});
    EXPECT_EQ(readRow(pull.rowButton(0)).btnState, "active");
    EXPECT_EQ(readRow(pull.rowButton(1)).btnState, "normal");
    EXPECT_EQ(readRow(uvc.rowButton(0)).btnState, "active");
    EXPECT_EQ(readRow(ndi.rowButton(0)).btnState, "normal");
    EXPECT_EQ(readRow(ndi.rowButton(1)).btnState, "active");
    EXPECT_EQ(readRow(ndi.rowButton(2)).btnState, "active");
    EXPECT_EQ(readRow(uvc.rowButton(2)).statusState, "error");
    EXPECT_EQ(readRow(uvc.rowButton(1)).statusState, "mounted");
}

TEST_F(DecoderPagesTest, TapsReportIdAndSwitch)
{
    QSignalSpy pullSpy(&pull, &DecoderShortcutPage1Widget::pullItemClicked);
    QSignalSpy uvcSpy(&uvc, &DecoderShortcutPage2Widget::uvcItemClicked);
    QSignalSpy ndiSpy(&ndi, &DecoderShortcutPage3Widget::ndiItemClicked);
    showAll({item(7, 1, true), item(8, 1, false)});
    pull.rowButton(0)->click();
    uvc.rowButton(1)->click();
    ndi.rowButton(1)->click();
    ASSERT_EQ(pullSpy.count(), 1);
    EXPECT_EQ(pullSpy.at(0), (QList<QVariant>{7, true}));
    ASSERT_EQ(uvcSpy.count(), 1);
    EXPECT_EQ(uvcSpy.at(0), (QList<QVariant>{8, false}));
    ASSERT_EQ(ndiSpy.count(), 1);
    EXPECT_EQ(ndiSpy.at(0), (QList<QVariant>{8, false}));
}

TEST_F(DecoderPagesTest, TwelveFillTheContentAndThirteenShowTwelve)
{
    showAll(items(12));
    EXPECT_EQ(pull.contentWidget()->width(), 2030);
    showAll(items(13));
    EXPECT_EQ(pull.rowCount(), 12);
    EXPECT_EQ(ndi.rowCount(), 12);
    EXPECT_EQ(uvc.contentWidget()->width(), 2030);
}

TEST_F(DecoderPagesTest, GesturesScrollThenNavigate)
{
    struct Expect {
        DecoderShortcutPageBase* page;
        int leftAtEnd;
        int rightAtStart;
    };
    const Expect pages[] = {{&pull, PAGE_STATUS_1, PAGE_DECODER_SHORTCUT_2},
                            {&uvc, PAGE_DECODER_SHORTCUT_1, PAGE_DECODER_SHORTCUT_3},
                            {&ndi, PAGE_DECODER_SHORTCUT_2, -1}};
    showAll(items(4)); // 670 wide: one step of 130
    for (const Expect& e : pages) {
        EXPECT_EQ(e.page->onSwipeRight(0), e.rightAtStart);
        EXPECT_EQ(e.page->onSwipeLeft(0), -1);
        EXPECT_EQ(e.page->onSwipeLeft(0), e.leftAtEnd);
        EXPECT_EQ(e.page->onSwipeRight(0), -1);
        EXPECT_EQ(e.page->onSwipeRight(0), e.rightAtStart);
        EXPECT_EQ(e.page->onEdgeSwipeToCenter(0), PAGE_STATUS_1);
        EXPECT_EQ(e.page->onSwipeUp(0), PAGE_MAIN_MENU_1);
        EXPECT_EQ(e.page->onSwipeDown(0), PAGE_CONNECT_APP);
        EXPECT_EQ(e.page->onAutoSwitch(0), -1);
    }
}

TEST_F(DecoderPagesTest, EmptyListsShowTheirHints)
{
    showAll({});
    EXPECT_EQ(pull.emptyHint()->text(), text("decoder_shortcut.pull_empty"));
    EXPECT_EQ(uvc.emptyHint()->text(), text("decoder_shortcut.uvc_empty"));
    EXPECT_EQ(ndi.emptyHint()->text(), text("decoder_shortcut.ndi_empty"));
    EXPECT_FALSE(ndi.emptyHint()->isHidden());
    EXPECT_TRUE(ndi.scrollArea()->isHidden());
    EXPECT_EQ(ndi.onSwipeLeft(0), PAGE_DECODER_SHORTCUT_2);
}

TEST_F(DecoderPagesTest, LanguageChangeRenewsHintAndRowsWithoutANewViewModel)
{
    showAll({});
    texts->switchLanguage(pagetest::kFrench);
    pull.onLanguageChanged();
    EXPECT_EQ(pull.emptyHint()->text(), text("decoder_shortcut.pull_empty"));
    EXPECT_NE(pull.emptyHint()->text(), pagetest::makeTextManager(pagetest::kEnglish)
                                            ->getTextWithFallback("decoder_shortcut.pull_empty"));

    showAll({item(1, 5, true)});
    texts->switchLanguage(pagetest::kJapanese);
    uvc.onLanguageChanged();
    EXPECT_EQ(readRow(uvc.rowButton(0)).status, text("pull_status.status_5"));
}

TEST_F(DecoderPagesTest, DirtyPageRenewsItsTitleAtTheNextUpdate)
{
    auto title = [this] {
        for (QLabel* label : ndi.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (label->property("class").toString() == "v2-sys-card-label")
                return label;
        }
        return static_cast<QLabel*>(nullptr);
    };
    showAll(items(2));
    ASSERT_NE(title(), nullptr);
    EXPECT_TRUE(title()->isHidden());
    const QString english = text("statusbar.context.ndi_ctrl");
    EXPECT_EQ(title()->text(), english);

    texts->switchLanguage(pagetest::kPortuguese);
    showAll(items(2));
    EXPECT_EQ(title()->text(), english);
    ndi.setDirty(true);
    showAll(items(2));
    EXPECT_EQ(title()->text(), text("statusbar.context.ndi_ctrl"));
    EXPECT_NE(title()->text(), english);
}

TEST_F(DecoderPagesTest, Snapshots)
{
    showAll({item(1, 0, false, "Camera North"), item(2, 2, true, "Studio"),
             item(3, 11, false, "Remote"), item(4, 1, true, "Pitch")});
    pagetest::saveThemedScreenshots(&pull, "decoder_shortcut_1_pull");
    pagetest::saveThemedScreenshots(&ndi, "decoder_shortcut_3_ndi");
    pagetest::saveThemedScreenshots(&uvc, "decoder_shortcut_2_uvc");
    showAll({});
    pagetest::saveThemedScreenshots(&uvc, "decoder_shortcut_2_empty");
    EXPECT_EQ(uvc.rowCount(), 0);
}

} // namespace
