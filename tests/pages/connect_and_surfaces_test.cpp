// The app connect page with its QR code, and the full-screen surfaces:
// Bluetooth pairing, the screensaver and the upgrade screen.
#include "page_test_support.h"

#include "model/view_models/shortcut_view_models.h"
#include "pages/auto_bt_page_widget.h"
#include "pages/connect_app_widget.h"
#include "pages/dynamic_screensaver_widget.h"
#include "pages/page_ids.h"
#include "pages/upgrade_widget.h"
#include "ui/qrcode_widget.h"

#include <QFrame>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

class ConnectApp : public ::testing::Test {
protected:
    QString line(const char* name) const { return page.findChild<QLabel*>(name)->text(); }
    QString decodedQr() const { return decodeQrImage(renderOnWhite(page.qrcodeWidget())); }
    ConnectAppWidget page{texts(), nullptr};
};

TEST_F(ConnectApp, QrCodeJoinsTheHotspotOrSaysItIsClosed)
{
    ConnectAppVM vm;
    vm.ap_on = 1, vm.ap_ssid = "Studio-Box", vm.ap_psk = "12345678";
    page.updateFromVm(vm);
    EXPECT_EQ(page.currentPanel(), ConnectAppWidget::QrPanel);
    EXPECT_EQ(decodedQr(), "WIFI:S:Studio-Box;T:WPA;P:12345678;H:false;;");
    EXPECT_EQ(line("connectPairLabel"), english("network_settings.pair Device"));

    // In the current language, which the code must carry beyond ASCII.
    ConnectAppWidget chinese(texts(kChinese), nullptr);
    vm.ap_on = 0;
    chinese.updateFromVm(vm);
    const QString closed = texts(kChinese)->getTextWithFallback("network_settings.ap_closed");
    EXPECT_EQ(decodeQrImage(renderOnWhite(chinese.qrcodeWidget())), closed);
    EXPECT_EQ(chinese.findChild<QLabel*>("connectPairLabel")->text(), closed);
}

TEST_F(ConnectApp, PairingStepsShowTheirLinesAndEveryWayOutResetsThem)
{
    // The pairing status and Wi-Fi state, the phone's address once it has joined;
    // the title and body lines shown, and the status the page keeps.
    const std::tuple<int, int, const char*, int, int, int> cases[] = {
        {1, 0, "", 0, 0, 1},         {2, 3, "", 0, 1, 2}, {2, 4, "", 0, 2, 2},
        {2, 4, "10.0.0.7", 0, 2, 3}, {3, 0, "", 0, 2, 3}, {3, 4, "10.0.0.8", 0, 2, 3},
        {4, 0, "", 1, 3, 4}};
    QSignalSpy firstUse(&page, &ConnectAppWidget::appFirstUseCompletedRequested);
    for (const auto& [status, wifi, ip, title, body, kept] : cases) {
        ConnectAppVM vm;
        vm.connect_status = status, vm.wifi_status = wifi, vm.ip = ip;
        page.updateFromVm(vm);
        SCOPED_TRACE(status);
        const QString address = *ip ? QStringLiteral("\nWIFI:%1").arg(ip) : QString();
        EXPECT_EQ(page.currentPanel(), ConnectAppWidget::StatusPanel);
        EXPECT_EQ(line("connectStatusTitle"),
                  texts()->getTextWithFallback("app_connect.Pair", title));
        EXPECT_EQ(line("connectStatusBody"),
                  texts()->getTextWithFallback("app_connect.connect_status", body) + address);
        EXPECT_EQ(page.lastStatus(), kept);
    }
    page.updateFromVm({});
    EXPECT_EQ(page.currentPanel(), ConnectAppWidget::QrPanel) << "no pairing step: the code";
    page.app_connect_hint(4);
    EXPECT_EQ(firstUse.count(), 1) << "the first use is reported once";

    QSignalSpy reset(&page, &ConnectAppWidget::resetConnectStatus);
    for (auto gesture : {&ConnectAppWidget::onSwipeLeft, &ConnectAppWidget::onSwipeRight,
                         &ConnectAppWidget::onSwipeDown, &ConnectAppWidget::onSwipeUp,
                         &ConnectAppWidget::onEdgeSwipeToCenter}) {
        page.app_connect_hint(2);
        ASSERT_EQ(page.currentPanel(), ConnectAppWidget::StatusPanel);
        (page.*gesture)(0);
        EXPECT_EQ(page.currentPanel(), ConnectAppWidget::QrPanel);
    }
    EXPECT_EQ(reset.count(), 5);
}

TEST(BluetoothPairing, TitleFollowsThePairingStatusAndItIsLeftDownOrByItsButton)
{
    AutoBtPageWidget page(texts(), nullptr);
    const std::pair<int, const char*> cases[] = {{5, "bt.bt pair error"}, {6, "bt.bt pair timeout"},
                                                 {7, "bt.bt auto"},       {2, "bt.bt pair"},
                                                 {3, "bt.bt pair"},       {1, "bt.bt pair"}};
    for (const auto& [status, key] : cases) {
        page.btConnectHint(status); // 1 has no text of its own: the last one stays
        EXPECT_EQ(firstByClass(&page, "bt_title")->text(), english(key)) << status;
    }
    EXPECT_EQ(page.dispatchGesture(GestureKind::SwipeDown, 0),
              std::optional<int>(PAGE_NETWORK_SETTINGS_2));
    EXPECT_FALSE(page.dispatchGesture(GestureKind::SwipeLeft, 0)) << "no page beside it";
    QSignalSpy exit(&page, &AutoBtPageWidget::exitbtRequested);
    firstByClass<QPushButton>(&page, "standby-wake-button")->click();
    EXPECT_EQ(exit.count(), 1);
}

TEST(Screensaver, CardWandersOverTheWholeScreenAndShowsModeOrStandby)
{
    DynamicScreensaverWidget saver(texts(), nullptr);
    const QSize card = firstByClass<QFrame>(&saver, "dynamic-screensaver-card")->size();
    saver.resize(500, 150); // any screen, not only the panel's
    saver.start();
    EXPECT_TRUE(saver.isVisible() && saver.animationTimer()->isActive());
    QRect reached(saver.cardPosition(), card);
    for (int tick = 0; tick < 400; ++tick) {
        QMetaObject::invokeMethod(saver.animationTimer(), "timeout");
        reached |= QRect(saver.cardPosition(), card);
    }
    // It turns at equal margins on either side, wherever the screen ends.
    EXPECT_TRUE(saver.rect().contains(reached));
    EXPECT_EQ(reached.left(), 500 - 1 - reached.right());
    EXPECT_EQ(reached.top(), 150 - 1 - reached.bottom());
    saver.stop();
    EXPECT_FALSE(saver.isVisible() || saver.animationTimer()->isActive());

    auto* mode = firstByClass(&saver, "dynamic-screensaver-mode-text");
    const std::tuple<int, bool, const char*> badges[] = {{1, false, "statusbar.workmode.decode"},
                                                         {0, false, "statusbar.workmode.encode"},
                                                         {1, true, "standby_page.standby"}};
    for (const auto& [workMode, standby, key] : badges) {
        DynamicScreensaverVM vm{"", "", workMode, standby};
        saver.updateFromVm(vm);
        EXPECT_EQ(mode->text(), english(key));
    }
}

TEST(Upgrade, PictureStepsWithTheProgressAndRebootingShowsASecondAfterTheDownload)
{
    UpgradeWidget upgrade(texts(), nullptr);
    // The picture steps from upgrade40 to upgrade100, a step each sixth of the way.
    for (const auto& [progress, picture] : {std::pair(-5, 40), {16, 40}, {17, 50}, {150, 100}}) {
        upgrade.updateFromVm(progress);
        EXPECT_EQ(upgrade.shownImagePath(), QString(":/icons/upgrade/upgrade%1.png").arg(picture));
    }
    auto status = [&] { return upgrade.findChild<QLabel*>("upgradeStatus")->text(); };
    QTimer* delay = upgrade.rebootTextTimer();
    upgrade.updateFromVm(60);
    EXPECT_EQ(status(), english("upgrade.download"));
    upgrade.updateFromVm(100);
    EXPECT_EQ(status(), english("upgrade.download"));
    EXPECT_TRUE(delay->isActive() && delay->isSingleShot());
    EXPECT_EQ(delay->interval(), 1000);
    upgrade.updateFromVm(95);
    EXPECT_FALSE(delay->isActive()) << "a drop cancels the pending switch";
    upgrade.updateFromVm(100);
    delay->stop();
    QMetaObject::invokeMethod(delay, "timeout"); // its time has come
    EXPECT_EQ(status(), english("upgrade.rebooting"));
    upgrade.updateFromVm(20);
    EXPECT_EQ(status(), english("upgrade.download"));
    EXPECT_FALSE(upgrade.isRebooting());
}

} // namespace
