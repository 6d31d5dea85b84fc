#include "page_test_support.h"
#include "pages/network_settings_page_widget.h"
#include "ui/qrcode_widget.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace {

class NetworkPagesTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager();
};

// ---- WLAN and hotspot: the shown state runs ahead of the backend ----------

TEST_F(NetworkPagesTest, WlanTapHoldsItsLookUntilTheBackendAgrees)
{
    NetworkSettingsPage2Widget page(texts.get());
    QSignalSpy wlan(&page, &NetworkSettingsPage2Widget::wlanClicked);
    NetworkSettingsPageVM vm;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "normal");

    page.cardButton(0)->click();
    ASSERT_EQ(wlan.count(), 1);
    EXPECT_TRUE(wlan.at(0).at(0).toBool()) << "the state asked for";
    EXPECT_EQ(page.cardState(0), "active");

    page.updateFromVm(vm);
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "active") << "refreshes with the old value don't undo the tap";
    EXPECT_TRUE(page.isWlanPending());

    vm.wifi_on = true;
    page.updateFromVm(vm);
    EXPECT_FALSE(page.isWlanPending());
    vm.wifi_on = false;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(0), "normal") << "once caught up the backend rules again";
}

TEST_F(NetworkPagesTest, RefusedWlanRequestFallsBackOnClear)
{
    NetworkSettingsPage2Widget page(texts.get());
    page.updateFromVm({});
    page.cardButton(0)->click();
    page.updateFromVm({});
    EXPECT_EQ(page.cardState(0), "active");
    page.clearSwitchPending();
    EXPECT_EQ(page.cardState(0), "normal");
    EXPECT_FALSE(page.isWlanPending());
}

TEST_F(NetworkPagesTest, HotspotTapSurvivesOneRefreshOnly)
{
    NetworkSettingsPage2Widget page(texts.get());
    QSignalSpy ap(&page, &NetworkSettingsPage2Widget::apClicked);
    NetworkSettingsPageVM vm;
    vm.ap_on = true;
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "active");

    page.cardButton(1)->click();
    ASSERT_EQ(ap.count(), 1);
    EXPECT_FALSE(ap.at(0).at(0).toBool());
    EXPECT_EQ(page.cardState(1), "normal");
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "normal");
    EXPECT_FALSE(page.isApPending());
    page.updateFromVm(vm);
    EXPECT_EQ(page.cardState(1), "active");
}

// ---- QR cards ------------------------------------------------------------

TEST_F(NetworkPagesTest, HintReplacesQrCardsWithoutAnyLink)
{
    NetworkSettingsPage1Widget page(texts.get());
    NetworkSettingsPageVM vm;
    vm.http_url = "http://10.0.0.5:8080";
    page.updateFromVm(vm);
    pagetest::showAndSettle(&page);
    EXPECT_TRUE(page.emptyHint()->isVisible());
    EXPECT_EQ(page.emptyHint()->text(),
              texts->getTextWithFallback("network_settings.qr_empty_hint"));
    for (int card = 0; card < NetworkSettingsPage1Widget::QR_CARD_COUNT; ++card) {
        EXPECT_FALSE(page.qrCard(card)->isVisible());
    }

    vm.client_link = true;
    vm.http_url.clear();
    page.updateFromVm(vm);
    EXPECT_TRUE(page.emptyHint()->isVisible()) << "a link without an address gives no card";
}

TEST_F(NetworkPagesTest, QrCardsShareTheRow)
{
    NetworkSettingsPage1Widget page(texts.get());
    pagetest::showAndSettle(&page);
    NetworkSettingsPageVM vm;
    vm.ap_on = true;
    vm.ap_wifi_qr = "WIFI:S:box;T:WPA;P:secret;H:false;;";
    vm.ap_http_url = "http://170.128.88.1:80";
    page.updateFromVm(vm);
    EXPECT_FALSE(page.emptyHint()->isVisible());
    EXPECT_EQ(page.qrCard(0)->geometry(), QRect(75, 2, 241, 118));
    EXPECT_EQ(page.qrCard(1)->geometry(), QRect(324, 2, 241, 118));
    EXPECT_FALSE(page.qrCard(2)->isVisible());
    EXPECT_EQ(page.qrCode(0)->pos(), QPoint((241 - 92) / 2, 26));

    vm.client_link = true;
    vm.http_url = "http://10.0.0.5:8080";
    page.updateFromVm(vm);
    EXPECT_EQ(page.qrCard(2)->geometry(), QRect(75 + 2 * (158 + 8), 2, 158, 118));

    vm.ap_on = false;
    page.updateFromVm(vm);
    EXPECT_FALSE(page.qrCard(0)->isVisible());
    EXPECT_FALSE(page.qrCode(0)->hasValidData()) << "a hidden card is cleared";
    EXPECT_EQ(page.qrCard(2)->geometry(), QRect(75, 2, 490, 118));
}

TEST_F(NetworkPagesTest, QrCardDecodesBackToItsText)
{
    NetworkSettingsPage1Widget page(texts.get());
    pagetest::showAndSettle(&page);
    NetworkSettingsPageVM vm;
    vm.client_link = true;
    vm.http_url = "http://192.168.1.77:8080";
    page.updateFromVm(vm);
    EXPECT_EQ(pagetest::decodeQrImage(page.qrCode(2)->grab().toImage()), vm.http_url);
    EXPECT_EQ(page.qrCard(2)->findChild<QLabel*>()->text(),
              texts->getTextWithFallback("network_settings.qr_network_access"));
}

// ---- NAS list ------------------------------------------------------------

QList<NasMountInfo> nasList(int count)
{
    QList<NasMountInfo> list;
    for (int i = 0; i < count; ++i) {
        list.append({QStringLiteral("nas%1").arg(i), i % 2 == 0, i % 5});
    }
    return list;
}

TEST_F(NetworkPagesTest, NasListShowsAtMostTwelveRows)
{
    NetworkSettingsPage3Widget page(texts.get());
    pagetest::showAndSettle(&page);
    NetworkSettingsPageVM vm;
    vm.nas_list = nasList(13);
    page.updateFromVm(vm);
    ASSERT_EQ(page.rowCount(), 12);
    EXPECT_FALSE(page.canScrollNasLeft());
    EXPECT_TRUE(page.canScrollNasRight());

    int swipes = 0;
    while (page.onSwipeLeft(0) == -1 && page.canScrollNasRight() && swipes < 20) {
        ++swipes;
    }
    EXPECT_FALSE(page.canScrollNasRight());
    EXPECT_EQ(page.onSwipeLeft(0), -1) << "the list's end leads nowhere";
    EXPECT_EQ(page.onSwipeRight(0), -1) << "first scrolls back";
}

TEST_F(NetworkPagesTest, NasRowsShowMountStatusAndReportTaps)
{
    NetworkSettingsPage3Widget page(texts.get());
    QSignalSpy nas(&page, &NetworkSettingsPage3Widget::nasClicked);
    NetworkSettingsPageVM vm;
    vm.nas_list = {
        {"archive", true, 2}, {"backup", false, 3}, {"media", false, 4}, {"other", false, 9}};
    page.updateFromVm(vm);
    ASSERT_EQ(page.rowCount(), 4);

    auto status = [&](int row) {
        return pagetest::firstByClass<QLabel>(page.rowButton(row), "v2-shortcut-status");
    };
    EXPECT_EQ(page.rowButton(0)->property("btn-state").toString(), "active");
    EXPECT_EQ(page.rowButton(1)->property("btn-state").toString(), "normal");
    EXPECT_EQ(status(0)->property("state").toString(), "mounted");
    EXPECT_EQ(status(0)->text(), texts->getTextWithFallback("nas_status.nas_2"));
    EXPECT_EQ(status(1)->property("state").toString(), "error");
    EXPECT_EQ(status(2)->property("state").toString(), "warning");
    EXPECT_EQ(status(2)->text(), texts->getTextWithFallback("nas_status.nas_4"));
    EXPECT_EQ(status(3)->property("state").toString(), "error");
    EXPECT_EQ(status(3)->text(), texts->getTextWithFallback("nas_status.nas_0"));

    page.rowButton(0)->click();
    page.rowButton(2)->click();
    ASSERT_EQ(nas.count(), 2);
    EXPECT_EQ(nas.at(0).at(0).toInt(), 0);
    EXPECT_TRUE(nas.at(0).at(1).toBool());
    EXPECT_EQ(nas.at(1).at(0).toInt(), 2);
    EXPECT_FALSE(nas.at(1).at(1).toBool());
}

TEST_F(NetworkPagesTest, EmptyNasListShowsTheHint)
{
    NetworkSettingsPage3Widget page(texts.get());
    pagetest::showAndSettle(&page);
    page.updateFromVm({});
    EXPECT_EQ(page.rowCount(), 0);
    EXPECT_TRUE(page.emptyHint()->isVisible());
    EXPECT_EQ(page.emptyHint()->text(), texts->getTextWithFallback("network_settings.nas_empty"));
    EXPECT_EQ(page.onSwipeRight(0), PAGE_NETWORK_SETTINGS_2);
}

} // namespace
