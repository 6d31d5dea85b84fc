#include "page_test_support.h"

#include "model/view_models/status_view_models.h"
#include "pages/page_ids.h"
#include "pages/status_page1_widget.h"
#include "ui/text_manager.h"

#include <QProgressBar>

#include <gtest/gtest.h>

using namespace pagetest;

namespace {

class StatusPage1Test : public ::testing::Test {
protected:
    StatusPage1Test() : page(texts(), nullptr) { applyTheme(&page, "black"); }

    QLabel* label(const char* className) const { return oneByClass(&page, className); }
    // The badge carries one of two classes.
    QLabel* badge() const
    {
        QLabel* dhcp = oneByClass(&page, "v2-p1-badge-dhcp");
        return dhcp ? dhcp : oneByClass(&page, "v2-p1-badge-static");
    }
    // Upstream value, downstream value, SSID line; the SSID line is the wide one.
    QList<QLabel*> bandwidthValues() const
    {
        return byClass<QLabel>(&page, "v2-p1-bandwidth-value");
    }

    static StatusPage1VM ethernet()
    {
        StatusPage1VM vm;
        vm.cpu_temp_c = 45;
        vm.cpu_temp_f = 113;
        vm.eth_link = true;
        vm.dhcp_on = true;
        vm.ip_text = "192.168.1.20";
        vm.device_name = "Box";
        return vm;
    }

    StatusPage1Widget page;
};

} // namespace

TEST_F(StatusPage1Test, TemperatureTurnsAmberAboveSeventy)
{
    StatusPage1VM vm = ethernet();
    vm.cpu_temp_c = 70;
    vm.cpu_temp_f = 158;
    page.updateFromVm(vm);
    QLabel* celsius = label("v2-p1-temp-value");
    EXPECT_EQ(celsius->text(), QStringLiteral("70°C"));
    EXPECT_EQ(label("v2-p1-temp-f")->text(), QStringLiteral("158°F"));
    EXPECT_EQ(celsius->property("state").toString(), "normal");
    const QColor normal = celsius->palette().color(QPalette::WindowText);

    vm.cpu_temp_c = 71;
    page.updateFromVm(vm);
    EXPECT_EQ(celsius->property("state").toString(), "warning");
    EXPECT_EQ(celsius->palette().color(QPalette::WindowText), QColor("#f59e0b"));

    vm.cpu_temp_c = 60;
    page.updateFromVm(vm);
    EXPECT_EQ(celsius->palette().color(QPalette::WindowText), normal);
}

TEST_F(StatusPage1Test, LoadFillsPercentsAndBars)
{
    StatusPage1VM vm = ethernet();
    vm.cpu_payload = 87;
    vm.memory_percent = 41;
    page.updateFromVm(vm);
    const auto percents = byClass<QLabel>(&page, "v2-p1-percent");
    ASSERT_EQ(percents.size(), 2);
    EXPECT_EQ(percents[0]->text(), "87%"); // CPU row is above the memory row
    EXPECT_EQ(percents[1]->text(), "41%");
    EXPECT_EQ(oneByClass<QProgressBar>(&page, "v2-p1-cpu-bar")->value(), 87);
    EXPECT_EQ(oneByClass<QProgressBar>(&page, "v2-p1-mem-bar")->value(), 41);
    EXPECT_FALSE(oneByClass<QProgressBar>(&page, "v2-p1-cpu-bar")->isTextVisible());
}

TEST_F(StatusPage1Test, BadgeByLinkKind)
{
    struct Case {
        bool dhcp, eth, wifi, ap;
        QString text;
        const char* className;
    };
    const Case cases[] = {
        {true, true, false, false, english("statusp1.badge.dhcp"), "v2-p1-badge-dhcp"},
        {false, true, true, false, english("statusp1.badge.static"), "v2-p1-badge-dhcp"},
        {true, false, true, false, "WiFi", "v2-p1-badge-dhcp"},
        {false, false, false, true, "AP", "v2-p1-badge-dhcp"},
        {true, false, false, false, "OFFLINE", "v2-p1-badge-static"},
    };
    for (const Case& c : cases) {
        StatusPage1VM vm;
        vm.dhcp_on = c.dhcp;
        vm.eth_link = c.eth;
        vm.wifi_link = c.wifi;
        vm.ap_on = c.ap;
        page.updateFromVm(vm);
        ASSERT_NE(badge(), nullptr);
        EXPECT_EQ(badge()->text(), c.text);
        EXPECT_EQ(badge()->property("class").toString(), c.className) << c.text.toStdString();
    }
    // The offline look is the amber one.
    EXPECT_EQ(badge()->palette().color(QPalette::WindowText), QColor("#fbbf24"));
}

TEST_F(StatusPage1Test, RatesCrossOverToTheArrows)
{
    StatusPage1VM vm = ethernet();
    vm.up_mbps = 1.5;     // received
    vm.down_mbps = 12.25; // sent
    page.updateFromVm(vm);
    EXPECT_EQ(label("v2-p1-ip-value")->text(), "192.168.1.20");
    const auto values = bandwidthValues();
    ASSERT_EQ(values.size(), 3);
    QLabel* beforeUpArrow = values[0]->isHidden() ? values[1] : values[0];
    QLabel* beforeDownArrow = values[2];
    ASSERT_EQ(beforeUpArrow->x(), 280);
    ASSERT_EQ(beforeDownArrow->x(), 448);
    EXPECT_EQ(beforeUpArrow->text(), "12.25");
    EXPECT_EQ(beforeDownArrow->text(), "1.50");
    EXPECT_FALSE(label("v2-p1-bandwidth-arrow-up")->isHidden());
    for (QLabel* l : byClass<QLabel>(&page, "v2-p1-bandwidth-unit"))
        EXPECT_FALSE(l->isHidden());
}

TEST_F(StatusPage1Test, WithoutLinkTheSsidReplacesTheRates)
{
    StatusPage1VM vm;
    vm.ap_on = true;
    vm.ap_ssid = "StudioLink";
    page.updateFromVm(vm);
    QList<QLabel*> shownValues;
    for (QLabel* l : bandwidthValues())
        if (!l->isHidden())
            shownValues << l;
    ASSERT_EQ(shownValues.size(), 1);
    EXPECT_EQ(shownValues[0]->geometry(), QRect(280, 88, 336, 24));
    EXPECT_EQ(shownValues[0]->text(), "SSID:StudioLink");
    EXPECT_TRUE(label("v2-p1-bandwidth-arrow-up")->isHidden());
    EXPECT_TRUE(label("v2-p1-bandwidth-arrow-down")->isHidden());

    vm.ap_ssid.clear();
    page.updateFromVm(vm);
    EXPECT_EQ(shownValues[0]->text(), "SSID:---");

    // A link brings the rates back.
    vm.wifi_link = true;
    page.updateFromVm(vm);
    EXPECT_TRUE(shownValues[0]->isHidden());
    EXPECT_FALSE(label("v2-p1-bandwidth-arrow-down")->isHidden());
}

TEST_F(StatusPage1Test, LongDeviceNameIsShortened)
{
    StatusPage1VM vm = ethernet();
    vm.device_name = "Encoder-Rack-07-Left-Bay";
    page.updateFromVm(vm);
    const QString shown = label("v2-p1-device-name")->text();
    EXPECT_LT(shown.size(), vm.device_name.size());
    EXPECT_TRUE(shown.startsWith("Encoder-Rack-0"));
}

TEST_F(StatusPage1Test, LanguageChangeWaitsForTheNextUpdate)
{
    StatusPage1Widget chinese(texts(kChinese), nullptr);
    chinese.updateFromVm(StatusPage1VM());
    const auto labels = byClass<QLabel>(&chinese, "v2-p1-label");
    ASSERT_EQ(labels.size(), 2);
    EXPECT_EQ(labels[0]->text(), texts(kChinese)->getText("statusp1.label.cpu"));
    EXPECT_EQ(labels[1]->text(), texts(kChinese)->getText("statusp1.label.mem"));

    // Without the dirty flag an update leaves the static texts alone.
    labels[0]->setText("stale");
    chinese.updateFromVm(StatusPage1VM());
    EXPECT_EQ(labels[0]->text(), "stale");
    chinese.setDirty(true);
    chinese.updateFromVm(StatusPage1VM());
    EXPECT_EQ(labels[0]->text(), texts(kChinese)->getText("statusp1.label.cpu"));
}

TEST_F(StatusPage1Test, WithoutTextsTheBadgeUsesItsOwnWords)
{
    StatusPage1Widget bare(nullptr, nullptr);
    StatusPage1VM vm = ethernet();
    bare.updateFromVm(vm);
    EXPECT_EQ(oneByClass(&bare, "v2-p1-badge-dhcp")->text(), "DHCP");
    vm.dhcp_on = false;
    bare.updateFromVm(vm);
    EXPECT_EQ(oneByClass(&bare, "v2-p1-badge-dhcp")->text(), "STATIC");
    EXPECT_EQ(byClass<QLabel>(&bare, "v2-p1-label")[0]->text(), "CPU");
}

TEST_F(StatusPage1Test, Gestures)
{
    EXPECT_EQ(page.onSwipeLeft(0), PAGE_STATUS_2);
    EXPECT_EQ(page.onSwipeRight(0), PAGE_ENCODER_SHORTCUT_1);
    EXPECT_EQ(page.onSwipeRight(1), PAGE_DECODER_SHORTCUT_1);
    EXPECT_EQ(page.onSwipeRight(5), -1);
    EXPECT_EQ(page.onEdgeSwipeToCenter(1), PAGE_STATUS_1);
    EXPECT_EQ(page.onSwipeUp(0), PAGE_MAIN_MENU_1);
    EXPECT_EQ(page.onSwipeDown(0), PAGE_CONNECT_APP);
    EXPECT_EQ(page.onLongPress(0), PAGE_SHORTCUT);
    EXPECT_EQ(page.onAutoSwitch(1), PAGE_STATUS_2);
    EXPECT_FALSE(page.dispatchGesture(GestureKind::ButtonLongPress, 0).has_value());
}

TEST_F(StatusPage1Test, Screenshots)
{
    StatusPage1VM vm = ethernet();
    vm.cpu_temp_c = 72;
    vm.cpu_temp_f = 161;
    vm.cpu_payload = 37;
    vm.memory_percent = 62;
    vm.device_name = "Encoder-Rack-07";
    vm.up_mbps = 3.2;
    vm.down_mbps = 8.75;
    page.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&page, "status_page1").size(), 2);
    vm.eth_link = false;
    vm.ap_on = true;
    vm.ap_ssid = "PanelAP";
    vm.ip_text = "170.128.88.1";
    page.updateFromVm(vm);
    EXPECT_EQ(saveThemedScreenshots(&page, "status_page1_ap").size(), 2);
}
