#include "pages/status_page1_widget.h"

#include "model/view_models/status_view_models.h"
#include "pages/page_building.h"
#include "pages/page_ids.h"
#include "ui/components/style_state.h"
#include "ui/text_ellipsis.h"

#include <QLabel>
#include <QProgressBar>
#include <QVariant>

namespace {

constexpr int kWarningTemperature = 70;

} // namespace

StatusPage1Widget::StatusPage1Widget(UITextManager* textManager, QWidget* parent)
    : StatusPageBase(textManager, parent)
{
    createComponents();
    layoutComponents();
}

void StatusPage1Widget::createComponents()
{
    temp_icon = createPageIcon(this, "v2-p1-icon", ":/icons/statusp1/temp.svg", QRect(20, 12, 24, 24));
    temp_c_label = createPageLabel(this, "v2-p1-temp-value", QRect(), QStringLiteral("45°C"));
    temp_f_label = createPageLabel(this, "v2-p1-temp-f", QRect(), QStringLiteral("/ 113°F"));

    cpu_icon = createPageIcon(this, "v2-p1-icon", ":/icons/statusp1/cpu.svg", QRect(20, 48, 24, 24));
    cpu_label = createPageLabel(this, "v2-p1-label", QRect(), QStringLiteral("CPU"));
    cpu_percent_label = createPageLabel(this, "v2-p1-percent", QRect(), QStringLiteral("12%"));
    cpu_bar = createPageBar(this, "v2-p1-cpu-bar", QRect(), 12);

    mem_icon = createPageIcon(this, "v2-p1-icon", ":/icons/statusp1/mem.svg", QRect(20, 92, 24, 24));
    mem_label = createPageLabel(this, "v2-p1-label", QRect(), QStringLiteral("MEM"));
    mem_percent_label = createPageLabel(this, "v2-p1-percent", QRect(), QStringLiteral("34%"));
    mem_bar = createPageBar(this, "v2-p1-mem-bar", QRect(), 34);

    center_divider = createPageLabel(this, "v2-p1-center-divider", QRect());
    device_icon = createPageIcon(this, "v2-p1-device-icon", ":/icons/statusp1/devname.svg",
                                 QRect(280, 10, 24, 24));
    device_name_label =
        createPageLabel(this, "v2-p1-device-name", QRect(), QStringLiteral("Unit_Mk_A1"));
    device_divider = createPageLabel(this, "v2-p1-device-divider", QRect());
    badge_label = createPageLabel(this, "v2-p1-badge-dhcp", QRect(), QStringLiteral("DHCP"),
                                  Qt::AlignHCenter);
    ip_label = createPageLabel(this, "v2-p1-ip-value", QRect(), QStringLiteral("255.255.255.255"));

    up_value_label = createPageLabel(this, "v2-p1-bandwidth-value", QRect(), QStringLiteral("0.00"),
                                     Qt::AlignRight);
    up_unit_label = createPageLabel(this, "v2-p1-bandwidth-unit", QRect(), QStringLiteral("Mbps"),
                                    Qt::AlignRight);
    up_arrow_label =
        createPageLabel(this, "v2-p1-bandwidth-arrow-up", QRect(), QStringLiteral("↑"));
    down_value_label = createPageLabel(this, "v2-p1-bandwidth-value", QRect(),
                                       QStringLiteral("0.00"), Qt::AlignRight);
    down_unit_label = createPageLabel(this, "v2-p1-bandwidth-unit", QRect(), QStringLiteral("Mbps"),
                                      Qt::AlignRight);
    down_arrow_label =
        createPageLabel(this, "v2-p1-bandwidth-arrow-down", QRect(), QStringLiteral("↓"));
    ssid_label = createPageLabel(this, "v2-p1-bandwidth-value", QRect());
    ssid_label->hide();
}

void StatusPage1Widget::layoutComponents()
{
    temp_c_label->setGeometry(96, 8, 80, 32);
    temp_f_label->setGeometry(176, 8, 60, 32);
    cpu_label->setGeometry(56, 50, 50, 24);
    cpu_percent_label->setGeometry(176, 50, 60, 24);
    cpu_bar->setGeometry(20, 76, 216, 8);
    mem_label->setGeometry(56, 94, 50, 24);
    mem_percent_label->setGeometry(176, 94, 60, 24);
    mem_bar->setGeometry(20, 120, 216, 8);

    center_divider->setGeometry(width() * 4 / 10, 15, 1, 112);
    device_name_label->setGeometry(316, 8, 300, 28);
    device_divider->setGeometry(280, 40, 336, 1);
    badge_label->setGeometry(280, 48, 90, 24);
    ip_label->setGeometry(380, 44, 256, 32);
    up_value_label->setGeometry(280, 88, 84, 24);
    up_unit_label->setGeometry(368, 88, 44, 24);
    up_arrow_label->setGeometry(416, 88, 16, 24);
    down_value_label->setGeometry(448, 88, 84, 24);
    down_unit_label->setGeometry(536, 88, 44, 24);
    down_arrow_label->setGeometry(584, 88, 16, 24);
    ssid_label->setGeometry(280, 88, 336, 24);
}

int StatusPage1Widget::onSwipeLeft(int) { return PAGE_STATUS_2; }

int StatusPage1Widget::onSwipeRight(int workmode)
{
    if (workmode == 0)
        return PAGE_ENCODER_SHORTCUT_1;
    if (workmode == 1)
        return PAGE_DECODER_SHORTCUT_1;
    return -1;
}

int StatusPage1Widget::onAutoSwitch(int) { return PAGE_STATUS_2; }

void StatusPage1Widget::onLanguageChanged()
{
    setKeyText(cpu_label, text_manager, QStringLiteral("statusp1.label.cpu"));
    setKeyText(mem_label, text_manager, QStringLiteral("statusp1.label.mem"));
}

void StatusPage1Widget::updateFromVm(const StatusPage1VM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    applySystemResources(vm);
    applyNetworkInfo(vm);
}

void StatusPage1Widget::applySystemResources(const StatusPage1VM& vm)
{
    temp_c_label->setText(QStringLiteral("%1°C").arg(vm.cpu_temp_c));
    setStyleProperty(temp_c_label, "state",
                     vm.cpu_temp_c > kWarningTemperature ? QStringLiteral("warning")
                                                         : QStringLiteral("normal"));
    temp_f_label->setText(QStringLiteral("%1°F").arg(vm.cpu_temp_f));
    cpu_percent_label->setText(QStringLiteral("%1%").arg(vm.cpu_payload));
    cpu_bar->setValue(vm.cpu_payload);
    mem_percent_label->setText(QStringLiteral("%1%").arg(vm.memory_percent));
    mem_bar->setValue(vm.memory_percent);
}

void StatusPage1Widget::applyNetworkInfo(const StatusPage1VM& vm)
{
    const bool hasLink = vm.eth_link || vm.wifi_link;
    device_name_label->setText(buildEllipsisName(vm.device_name, 2));

    QString badge;
    const char* badgeClass = "v2-p1-badge-dhcp";
    if (vm.dhcp_on && vm.eth_link) {
        badge = pageText(text_manager, QStringLiteral("statusp1.badge.dhcp"), QStringLiteral("DHCP"));
    } else if (vm.eth_link) {
        badge = pageText(text_manager, QStringLiteral("statusp1.badge.static"),
                         QStringLiteral("STATIC"));
    } else if (vm.wifi_link) {
        badge = QStringLiteral("WiFi");
    } else if (vm.ap_on) {
        badge = QStringLiteral("AP");
    } else {
        badge = QStringLiteral("OFFLINE");
        badgeClass = "v2-p1-badge-static";
    }
    badge_label->setText(badge);
    setStyleProperty(badge_label, "class", QLatin1String(badgeClass));

    ip_label->setText(vm.ip_text);

    for (QLabel* label : {up_value_label, up_unit_label, up_arrow_label, down_value_label,
                          down_unit_label, down_arrow_label})
        label->setVisible(hasLink);
    ssid_label->setVisible(!hasLink);
    if (hasLink) {
        // `up_mbps` carries the receive rate and `down_mbps` the transmit
        // rate; the up arrow shows what the device sends, hence the crossing.
        up_value_label->setText(QString::number(vm.down_mbps, 'f', 2));
        down_value_label->setText(QString::number(vm.up_mbps, 'f', 2));
    } else {
        const QString ssid = vm.ap_ssid.isEmpty() ? QStringLiteral("---") : vm.ap_ssid;
        ssid_label->setText(QStringLiteral("SSID:%1").arg(buildEllipsisName(ssid, 3)));
    }
}
