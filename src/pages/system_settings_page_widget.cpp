#include "pages/system_settings_page_widget.h"

#include "ui/svg_icon_label.h"
#include "ui/text_ellipsis.h"

#include <QLabel>
#include <QMutexLocker>
#include <QVariant>

namespace {

constexpr int kInfoLeft = 75;
constexpr int kInfoIconSize = 28;
constexpr int kInfoTextLeft = kInfoLeft + kInfoIconSize + 12;
constexpr int kInfoRowTop[] = {14, 55, 96};
constexpr int kInfoRowHeight = 32;

// Name kind of buildEllipsisName for the device name on this page.
constexpr int kDeviceNameEllipsis = 4;

QLabel* makeInfoLabel(QWidget* parent, const char* className, const char* startText)
{
    auto* label = new QLabel(QString::fromUtf8(startText), parent);
    label->setProperty("class", className);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return label;
}

} // namespace

// ---- Page 1 ----------------------------------------------------------------

SystemSettingsPage1Widget::SystemSettingsPage1Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    addCard(":/icons/system_settings/language.svg", "system_settings.language",
            &SystemSettingsPage1Widget::languageClicked);
    addCard(":/icons/system_settings/theme.svg", "system_settings.theme",
            &SystemSettingsPage1Widget::themeClicked);
    dc_out_card = addCard(":/icons/system_settings/dcout.svg", "system_settings.dc_out",
                          &SystemSettingsPage1Widget::onDcOutBtnClicked);
    layoutAllCards();
}

void SystemSettingsPage1Widget::updateFromVm(const SystemSettingsPageVM& vm)
{
    renewTextsIfDirty();
    {
        QMutexLocker lock(&state_mutex);
        dc_out_on = vm.dc_out_on;
        dc_out_voltage = vm.dc_out_voltage;
    }
    updateDcOutState();
}

void SystemSettingsPage1Widget::updateDcOutState()
{
    bool on = false;
    {
        QMutexLocker lock(&state_mutex);
        on = dc_out_on;
    }
    showSwitch(dc_out_card, on);
    cardButton(dc_out_card)->update();
}

void SystemSettingsPage1Widget::onDcOutBtnClicked()
{
    bool on = false;
    int voltage = 1;
    {
        QMutexLocker lock(&state_mutex);
        on = dc_out_on;
        voltage = dc_out_voltage;
    }
    emit dcOutClicked(on, voltage);
}

// ---- Page 2 ----------------------------------------------------------------

SystemSettingsPage2Widget::SystemSettingsPage2Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    addCard(":/icons/system_settings/workmode.svg", "system_settings.workmode",
            &SystemSettingsPage2Widget::workmodeClicked);
    addCard(":/icons/system_settings/usbmode.svg", "system_settings.usbmode",
            &SystemSettingsPage2Widget::usbModeClicked);
    addCard(":/icons/system_settings/fanmode.svg", "system_settings.fan",
            &SystemSettingsPage2Widget::fanModeClicked);
    layoutAllCards();
}

void SystemSettingsPage2Widget::updateFromVm(const SystemSettingsPageVM&)
{
    renewTextsIfDirty();
}

// ---- Page 3 ----------------------------------------------------------------

SystemSettingsPage3Widget::SystemSettingsPage3Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    addCard(":/icons/standby/standby.svg", "system_settings.standby",
            &SystemSettingsPage3Widget::standbyClicked);
    const int reboot = addCard(":/icons/system_settings/reboot.svg", "system_settings.reboot",
                               &SystemSettingsPage3Widget::rebootClicked);
    const int reset = addCard(":/icons/system_settings/reset.svg", "system_settings.reset",
                              &SystemSettingsPage3Widget::resetClicked);
    setCardLook(reboot, kDanger, -1);
    setCardLook(reset, kDanger, -1);
    layoutAllCards();
}

void SystemSettingsPage3Widget::updateFromVm(const SystemSettingsPageVM&)
{
    renewTextsIfDirty();
}

// ---- Page 4 ----------------------------------------------------------------

SystemSettingsPage4Widget::SystemSettingsPage4Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    createComponents();
    layoutComponents();
}

void SystemSettingsPage4Widget::createComponents()
{
    const QSize iconSize(kInfoIconSize, kInfoIconSize);
    const QString iconClass = QStringLiteral("v2-sys-info-icon");
    name_icon = createSvgIconLabel(this, ":/icons/statusp1/devname.svg", iconSize, iconClass);
    time_icon = createSvgIconLabel(this, ":/icons/system_settings/time.svg", iconSize, iconClass);
    version_icon =
        createSvgIconLabel(this, ":/icons/system_settings/version.svg", iconSize, iconClass);

    name_value = makeInfoLabel(this, "v2-sys-info-value", "Quorrel Pro");
    time_value = makeInfoLabel(this, "v2-sys-info-time", "2024-01-15 08:30:00");
    separator = makeInfoLabel(this, "v2-sys-info-separator", "|");
    separator->setAlignment(Qt::AlignCenter);
    runtime_value = makeInfoLabel(this, "v2-sys-info-runtime", "12:34:56");
    version_value = makeInfoLabel(this, "v2-sys-info-version", "FW:V1.0.0 HW:V1.0 SN:12345678");
}

void SystemSettingsPage4Widget::layoutComponents()
{
    const int iconOffset = (kInfoRowHeight - kInfoIconSize) / 2;
    const int textWidth = width() - kInfoTextLeft - kInfoLeft / 2;
    QLabel* icons[] = {name_icon, time_icon, version_icon};
    for (int row = 0; row < 3; ++row) {
        icons[row]->move(kInfoLeft, kInfoRowTop[row] + iconOffset);
    }
    name_value->setGeometry(kInfoTextLeft, kInfoRowTop[0], textWidth, kInfoRowHeight);
    // The date and time in the monospaced face need some 230 pixels.
    constexpr int kTimeWidth = 240;
    time_value->setGeometry(kInfoTextLeft, kInfoRowTop[1], kTimeWidth, kInfoRowHeight);
    separator->setGeometry(kInfoTextLeft + kTimeWidth, kInfoRowTop[1], 20, kInfoRowHeight);
    runtime_value->setGeometry(kInfoTextLeft + kTimeWidth + 24, kInfoRowTop[1],
                               textWidth - kTimeWidth - 24, kInfoRowHeight);
    version_value->setGeometry(kInfoTextLeft, kInfoRowTop[2], textWidth, kInfoRowHeight);
}

void SystemSettingsPage4Widget::updateFromVm(const SystemSettingsPageVM& vm)
{
    renewTextsIfDirty();
    name_value->setText(buildEllipsisName(vm.device_name, kDeviceNameEllipsis));
    time_value->setText(vm.device_start_time);
    runtime_value->setText(vm.persistent_time);
    version_value->setText(QStringLiteral("FW:%1   HW:%2   SN:%3")
                               .arg(vm.firmware_version, vm.hardware_version, vm.serial_number));
}

QString SystemSettingsPage4Widget::deviceNameText() const
{
    return name_value->text();
}
QString SystemSettingsPage4Widget::startTimeText() const
{
    return time_value->text();
}
QString SystemSettingsPage4Widget::runTimeText() const
{
    return runtime_value->text();
}
QString SystemSettingsPage4Widget::versionText() const
{
    return version_value->text();
}
