#include "pages/media_settings_page_widget.h"

#include "model/view_models/record_task_status.h"
#include "ui/svg_icon_label.h"
#include "ui/text_ellipsis.h"

#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace {

// The NDI name wraps onto a second line after this many UTF-16 units.
constexpr int kNdiLineCjk = 7;
constexpr int kNdiLineLatin = 12;
// Name kind of buildEllipsisName for the second line.
constexpr int kNdiNameEllipsis = 5;
const char* const kNoValue = "--";

bool isCjkName(const QString& name)
{
    for (const QChar c : name) {
        const ushort u = c.unicode();
        if ((u >= 0x3400 && u <= 0x4DBF) || (u >= 0x4E00 && u <= 0x9FFF)
            || (u >= 0xF900 && u <= 0xFAFF)) {
            return true;
        }
    }
    return false;
}

QString ndiModeText(int modeId)
{
    switch (modeId) {
    case 1:
        return QStringLiteral("NDI\u00ae | HX1");
    case 2:
        return QStringLiteral("NDI\u00ae | HX2");
    case 3:
        return QStringLiteral("NDI\u00ae | HX3");
    case 4:
        return QStringLiteral("Live");
    default:
        return QString::fromLatin1(kNoValue);
    }
}

} // namespace

// ---- Page 1 ----------------------------------------------------------------

MediaSettingsPage1Widget::MediaSettingsPage1Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    srt_card = addSwitchCard(":/icons/media_settings/srt_switch.svg", "media_settings.srt_switch",
                             &MediaSettingsPage1Widget::srtSwitchClicked);
    disk_card = addCard(":/icons/media_settings/disk.svg", "media_settings.disk_select",
                        &MediaSettingsPage1Widget::diskSelectClicked);
    speed_card = addCard(":/icons/media_settings/disk_speed.svg", "media_settings.disk_speed",
                         &MediaSettingsPage1Widget::diskSpeedClicked);
    layoutAllCards();
}

void MediaSettingsPage1Widget::updateFromVm(const MediaSettingsPageVM& vm)
{
    renewTextsIfDirty();
    updateSwitch(srt_card, vm.srt_on);
    const bool diskBusy = vm.record_status == kRecordRunning || vm.record_status == kRecordPaused
                          || vm.disk_speed_testing;
    showAvailable(disk_card, !diskBusy);
    showAvailable(speed_card, !diskBusy);
}

// ---- Page 2 ----------------------------------------------------------------

MediaSettingsPage2Widget::MediaSettingsPage2Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    ndi_card = addSwitchCard(":/icons/media_settings/ndi_switch.svg", "media_settings.ndi_switch",
                             &MediaSettingsPage2Widget::ndiSwitchClicked);
    quality_card = addCard(":/icons/media_settings/ndi_quality.svg", "media_settings.ndi_quality",
                           &MediaSettingsPage2Widget::ndiQualityClicked);
    createNdiInfoSection();
    layoutComponents();
}

void MediaSettingsPage2Widget::createNdiInfoSection()
{
    ndi_info_btn = new QPushButton(this);
    ndi_info_btn->setProperty("class", "v2-sys-card-btn");
    ndi_info_btn->setProperty("btn-state", kNormal);
    ndi_info_btn->setFocusPolicy(Qt::NoFocus);
    ndi_info_btn->setFixedSize(155, 110);
    const int lineTops[] = {16, 40, 72};
    QLabel** lines[] = {&ndi_name_label, &ndi_name_rest_label, &ndi_mode_label};
    for (int i = 0; i < 3; ++i) {
        auto* label = new QLabel(QString::fromLatin1(kNoValue), ndi_info_btn);
        label->setProperty("class", "v2-sys-card-label");
        label->setAlignment(Qt::AlignCenter);
        label->setGeometry(8, lineTops[i], 139, 22);
        *lines[i] = label;
    }
}

void MediaSettingsPage2Widget::layoutComponents()
{
    // The info card takes the third place of the row.
    SubmenuButtonGroupComponent::layoutButtons(
        this, {cardItem(ndi_card), cardItem(quality_card), SubmenuButtonItem{ndi_info_btn}});
    for (int card : {ndi_card, quality_card}) {
        cardItem(card).icon->move(60, 22);
        cardItem(card).label->setGeometry(0, 66, 155, 20);
    }
}

QLabel* MediaSettingsPage2Widget::ndiInfoLabel(int line) const
{
    QLabel* const lines[] = {ndi_name_label, ndi_name_rest_label, ndi_mode_label};
    return (line >= 0 && line < 3) ? lines[line] : nullptr;
}

void MediaSettingsPage2Widget::updateFromVm(const MediaSettingsPageVM& vm)
{
    renewTextsIfDirty();
    updateSwitch(ndi_card, vm.ndi_on);
    showAvailable(quality_card, vm.ndi_on);
    updateNdiInfoSection(vm);
}

void MediaSettingsPage2Widget::updateNdiInfoSection(const MediaSettingsPageVM& vm)
{
    const QString name =
        vm.ndi_machinename.isEmpty() ? QString::fromLatin1(kNoValue) : vm.ndi_machinename;
    const int limit = isCjkName(name) ? kNdiLineCjk : kNdiLineLatin;
    if (name != QLatin1String(kNoValue) && name.size() > limit) {
        ndi_name_label->setText(name.left(limit));
        ndi_name_rest_label->setText(buildEllipsisName(name.mid(limit), kNdiNameEllipsis));
    } else {
        ndi_name_label->setText(name);
        ndi_name_rest_label->clear();
    }
    ndi_name_rest_label->setVisible(!ndi_name_rest_label->text().isEmpty());
    ndi_mode_label->setText(ndiModeText(vm.ndi_mode_id));

    const char* state = vm.ndi_on ? kActive : kNormal;
    if (ndi_info_btn->property("btn-state").toString() != QLatin1String(state)) {
        ndi_info_btn->setProperty("btn-state", state);
        refreshStyledIcon(ndi_info_btn, nullptr, nullptr);
    }
}
