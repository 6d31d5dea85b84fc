// The app connect page: the QR code that joins the access point, the status
// panel of the pairing steps and the one-time first-use report.
#include "page_test_support.h"
#include "pages/connect_app_widget.h"
#include "ui/qrcode_widget.h"

#include <QImage>
#include <QLabel>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

using pagetest::firstByClass;

class ConnectAppPageTest : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager(pagetest::kEnglish);
    ConnectAppWidget page{texts.get(), nullptr};

    QString pairText(int i) const { return texts->getTextWithFallback("app_connect.Pair", i); }
    QString statusText(int i) const
    {
        return texts->getTextWithFallback("app_connect.connect_status", i);
    }
    QLabel* titleLabel() const { return page.findChild<QLabel*>("connectStatusTitle"); }
    QLabel* bodyLabel() const { return page.findChild<QLabel*>("connectStatusBody"); }
    QLabel* pairLabel() const { return page.findChild<QLabel*>("connectPairLabel"); }
    QString decodedQr() const
    {
        return pagetest::decodeQrImage(pagetest::renderOnWhite(page.qrcodeWidget()));
    }
    static ConnectAppVM vmWithStatus(int status, int wifi = 0, const std::string& ip = {})
    {
        ConnectAppVM vm;
        vm.ap_on = 1;
        vm.ap_ssid = "Box";
        vm.ap_psk = "pw";
        vm.connect_status = status;
        vm.wifi_status = wifi;
        vm.ip = ip;
        return vm;
    }
};

TEST_F(ConnectAppPageTest, AccessPointOnEncodesTheWifiJoinString)
{
    ConnectAppVM vm;
    vm.ap_on = 1;
    vm.ap_ssid = "Studio-Box";
    vm.ap_psk = "12345678";
    page.updateFromVm(vm);

    EXPECT_EQ(decodedQr(), QStringLiteral("WIFI:S:Studio-Box;T:WPA;P:12345678;H:false;;"));
    ASSERT_NE(pairLabel(), nullptr);
    EXPECT_EQ(pairLabel()->text(), texts->getTextWithFallback("network_settings.pair Device"));
    EXPECT_EQ(page.currentPanel(), ConnectAppWidget::QrPanel);
}

TEST_F(ConnectAppPageTest, AccessPointOffEncodesTheClosedSentence)
{
    ConnectAppVM vm;
    vm.ap_on = 0;
    vm.ap_ssid = "Studio-Box";
    page.updateFromVm(vm);

    const QString closed = texts->getTextWithFallback("network_settings.ap_closed");
    EXPECT_EQ(decodedQr(), closed);
    EXPECT_EQ(pairLabel()->text(), closed);
}

TEST_F(ConnectAppPageTest, StatusPicksPanelAndLines)
{
    struct Case {
        ConnectAppVM vm;
        int title;
        int body;
        QString suffix;
        int stored;
    };
    const Case cases[] = {
        {vmWithStatus(1), 0, 0, {}, 1},
        {vmWithStatus(2, 3), 0, 1, {}, 2},
        {vmWithStatus(2, 4), 0, 2, {}, 2},
        {vmWithStatus(2, 4, "10.0.0.7"), 0, 2, QStringLiteral("\nWIFI:10.0.0.7"), 3},
        {vmWithStatus(3), 0, 2, {}, 3},
        {vmWithStatus(3, 4, "10.0.0.8"), 0, 2, QStringLiteral("\nWIFI:10.0.0.8"), 3},
        {vmWithStatus(4), 1, 3, {}, 4},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.vm.connect_status);
        page.updateFromVm(c.vm);
        EXPECT_EQ(page.currentPanel(), ConnectAppWidget::StatusPanel);
        EXPECT_EQ(titleLabel()->text(), pairText(c.title));
        EXPECT_EQ(bodyLabel()->text(), statusText(c.body) + c.suffix);
        EXPECT_EQ(page.lastStatus(), c.stored);
        EXPECT_TRUE(titleLabel()->parentWidget()->isVisibleTo(&page));
    }
    for (int other : {0, 5, -1}) {
        page.updateFromVm(vmWithStatus(other));
        EXPECT_EQ(page.currentPanel(), ConnectAppWidget::QrPanel);
        EXPECT_FALSE(titleLabel()->parentWidget()->isVisibleTo(&page));
        EXPECT_TRUE(page.qrcodeWidget()->isVisibleTo(&page));
    }
}

TEST_F(ConnectAppPageTest, FirstUseIsReportedOnce)
{
    QSignalSpy spy(&page, &ConnectAppWidget::appFirstUseCompletedRequested);
    page.updateFromVm(vmWithStatus(3));
    EXPECT_EQ(spy.count(), 0);
    page.updateFromVm(vmWithStatus(4));
    page.updateFromVm(vmWithStatus(4));
    page.app_connect_hint(0);
    page.app_connect_hint(4);
    EXPECT_EQ(spy.count(), 1);
}

TEST_F(ConnectAppPageTest, HintShowsAStatusWithoutANetwork)
{
    page.app_connect_hint(2);
    EXPECT_EQ(page.currentPanel(), ConnectAppWidget::StatusPanel);
    EXPECT_EQ(bodyLabel()->text(), statusText(1));
}

TEST_F(ConnectAppPageTest, EveryWayOutResetsToTheQrPanel)
{
    using Gesture = int (ConnectAppWidget::*)(int);
    const std::pair<Gesture, int> gestures[] = {
        {&ConnectAppWidget::onSwipeLeft, -1},        {&ConnectAppWidget::onSwipeRight, -1},
        {&ConnectAppWidget::onSwipeDown, -1},        {&ConnectAppWidget::onSwipeUp, 0},
        {&ConnectAppWidget::onEdgeSwipeToCenter, 0},
    };
    QSignalSpy reset(&page, &ConnectAppWidget::resetConnectStatus);
    for (const auto& [gesture, expected] : gestures) {
        page.updateFromVm(vmWithStatus(1));
        ASSERT_EQ(page.currentPanel(), ConnectAppWidget::StatusPanel);
        EXPECT_EQ((page.*gesture)(0), expected);
        EXPECT_EQ(page.currentPanel(), ConnectAppWidget::QrPanel);
    }
    EXPECT_EQ(reset.count(), 5);
    EXPECT_EQ(page.onLongPress(0), -1);
    EXPECT_EQ(page.onAutoSwitch(0), -1);
    EXPECT_EQ(reset.count(), 5);
}

TEST(ConnectAppLanguageTest, ClosedSentenceIsEncodedInTheCurrentLanguage)
{
    auto texts = pagetest::makeTextManager(pagetest::kChinese);
    ConnectAppWidget page(texts.get(), nullptr);
    page.updateFromVm(ConnectAppVM());
    EXPECT_EQ(pagetest::decodeQrImage(pagetest::renderOnWhite(page.qrcodeWidget())),
              texts->getTextWithFallback("network_settings.ap_closed"));
}

TEST(ConnectAppLanguageTest, AndroidImageFollowsTheLanguageAtTheNextUpdate)
{
    auto texts = pagetest::makeTextManager(pagetest::kChinese);
    ConnectAppWidget page(texts.get(), nullptr);
    QLabel* image = firstByClass<QLabel>(&page, "v2-p2-type");
    ASSERT_NE(image, nullptr);
    page.updateFromVm(ConnectAppVM());
    EXPECT_EQ(image->property("imagePath").toString(), QStringLiteral(":/icons/QR/android_ch.jpg"));

    texts->switchLanguage(pagetest::kEnglish);
    page.setDirty(true);
    EXPECT_EQ(image->property("imagePath").toString(), QStringLiteral(":/icons/QR/android_ch.jpg"));
    page.updateFromVm(ConnectAppVM());
    EXPECT_EQ(image->property("imagePath").toString(), QStringLiteral(":/icons/QR/android.jpg"));
}

TEST(ConnectAppLanguageTest, WithoutTextsTheLinesAreEmptyAndTheImageIsTheDefault)
{
    EXPECT_TRUE(appConnectPairText(nullptr, 0).isNull());
    EXPECT_TRUE(appConnectStatusText(nullptr, 1).isNull());
    ConnectAppWidget page(nullptr, nullptr);
    page.updateFromVm(ConnectAppVM());
    EXPECT_EQ(firstByClass<QLabel>(&page, "v2-p2-type")->property("imagePath").toString(),
              QStringLiteral(":/icons/QR/android.jpg"));
    EXPECT_FALSE(page.qrcodeWidget()->hasValidData());
}

TEST(ConnectAppSnapshotTest, BothPanelsInBothThemes)
{
    for (int language : {pagetest::kEnglish, pagetest::kChinese}) {
        auto texts = pagetest::makeTextManager(language);
        ConnectAppWidget page(texts.get(), nullptr);
        ConnectAppVM vm;
        vm.ap_on = 1;
        vm.ap_ssid = "Studio-Box";
        vm.ap_psk = "12345678";
        page.updateFromVm(vm);
        const QString suffix = language == pagetest::kEnglish ? "en" : "zh";
        pagetest::saveThemedScreenshots(&page, "connect_app_qr_" + suffix);
        vm.connect_status = 3;
        vm.wifi_status = 4;
        vm.ip = "192.168.10.42";
        page.updateFromVm(vm);
        pagetest::saveThemedScreenshots(&page, "connect_app_status_" + suffix);
        EXPECT_EQ(page.currentPanel(), ConnectAppWidget::StatusPanel);
    }
}

} // namespace
