#include "pages/encoder_shortcut_page_widget.h"

#include "model/view_models/record_task_status.h"
#include "pages/page_ids.h"
#include "pages/storage_icon_path.h"
#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QMutexLocker>
#include <QPushButton>
#include <QVariant>

namespace {

constexpr int kButtonSize = 76;
constexpr int kButtonY = 14;
constexpr int kButtonX[] = {106, 282, 458};
constexpr int kIconSize = 32;
constexpr int kLabelY = 96;
constexpr int kLabelWidth = 108;

const char* const kFallbackDiskIcon = ":/icons/statusbar/sdcard_unmount.svg";

QString shortcutIcon(const char* name)
{
    return QStringLiteral(":/icons/shortcut/%1.svg").arg(QLatin1String(name));
}

bool isRecordDisk(int diskType)
{
    return diskType == 0 || diskType == 1 || diskType == 3;
}

} // namespace

QString buildDiskIconPath(int diskType, int level)
{
    return storageIconPath(diskType, level);
}

// ---------------------------------------------------------------- page 1

EncoderShortcutPage1Widget::EncoderShortcutPage1Widget(UITextManager* textManager, QWidget* parent)
    : BasicPage(textManager, parent)
{
    createComponents();
    layoutComponents();
}

void EncoderShortcutPage1Widget::createComponents()
{
    const QString startIcons[] = {shortcutIcon("pause"), shortcutIcon("record"),
                                  QStringLiteral(":/icons/media_settings/disk.svg")};
    for (int i = 0; i < 3; ++i) {
        RoundButton& item = buttons[i];
        item.button = new QPushButton(this);
        item.button->setFocusPolicy(Qt::NoFocus);
        item.button->setProperty("class", "v2-record-btn");
        item.button->setProperty("state", i == kPause ? "disabled" : "normal");
        item.icon = createSvgIconLabel(item.button, startIcons[i], QSize(kIconSize, kIconSize),
                                       QStringLiteral("v2-sys-card-icon"));
        item.icon->setProperty("icon-state", "normal");
        item.label = new QLabel(this);
        item.label->setProperty("class", "v2-sys-card-label");
        item.label->setAlignment(Qt::AlignCenter);
    }
    connect(buttons[kPause].button, &QPushButton::clicked, this,
            &EncoderShortcutPage1Widget::onPauseBtnClicked);
    connect(buttons[kRecord].button, &QPushButton::clicked, this,
            &EncoderShortcutPage1Widget::onRecordBtnClicked);
    connect(buttons[kDisk].button, &QPushButton::clicked, this,
            &EncoderShortcutPage1Widget::onDiskSelectBtnClicked);
}

void EncoderShortcutPage1Widget::layoutComponents()
{
    for (int i = 0; i < 3; ++i) {
        buttons[i].button->setGeometry(kButtonX[i], kButtonY, kButtonSize, kButtonSize);
        buttons[i].icon->move(22, 22);
        buttons[i].label->setGeometry(kButtonX[i] - 16, kLabelY, kLabelWidth, 22);
    }
}

int EncoderShortcutPage1Widget::onSwipeLeft(int)
{
    return PAGE_STATUS_1;
}
int EncoderShortcutPage1Widget::onSwipeRight(int)
{
    return PAGE_ENCODER_SHORTCUT_3;
}
int EncoderShortcutPage1Widget::onEdgeSwipeToCenter(int)
{
    return PAGE_STATUS_1;
}
int EncoderShortcutPage1Widget::onSwipeUp(int)
{
    return PAGE_MAIN_MENU_1;
}
int EncoderShortcutPage1Widget::onSwipeDown(int)
{
    return PAGE_CONNECT_APP;
}

QString EncoderShortcutPage1Widget::text(const char* key) const
{
    return text_manager ? text_manager->getTextWithFallback(QString::fromLatin1(key)) : QString();
}

void EncoderShortcutPage1Widget::updateFromVm(const EncoderShortcutPageVM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    {
        QMutexLocker lock(&state_mutex);
        record_status = vm.record_status;
        disk_speed_testing = vm.disk_speed_testing;
        disk_type = vm.disk_type;
        disk_icon_level = vm.disk_icon_level;
    }
    updateRecordState();
}

void EncoderShortcutPage1Widget::onLanguageChanged()
{
    buttons[kDisk].label->setText(text("encoder_shortcut.disk"));
    updateRecordState();
}

void EncoderShortcutPage1Widget::applyLook(const RoundButton& item, const ButtonLook& look)
{
    item.button->setEnabled(look.enabled);
    item.button->setProperty("state", look.state);
    setSvgIconPath(item.icon, look.iconPath);
    item.icon->setProperty("icon-state", look.iconState);
    item.label->setProperty("text-state", look.textState);
    if (!look.text.isNull())
        item.label->setText(look.text);
    refreshStyledIcon(item.button, item.icon, item.label);
}

void EncoderShortcutPage1Widget::updateRecordState()
{
    int status;
    bool speedTesting;
    int type;
    int level;
    {
        QMutexLocker lock(&state_mutex);
        status = record_status;
        speedTesting = disk_speed_testing;
        type = disk_type;
        level = disk_icon_level;
    }
    const bool paused = status == kRecordPaused;
    const bool recording = status == kRecordRunning || paused;
    const QString normal = QStringLiteral("normal");
    const QString disabled = QStringLiteral("disabled");

    ButtonLook pause;
    pause.enabled = recording;
    pause.state = recording ? normal : disabled;
    pause.iconPath = shortcutIcon(paused ? "resume" : "pause");
    pause.iconState = recording ? QStringLiteral("active") : disabled;
    pause.textState = pause.state;
    pause.text = text(paused ? "encoder_shortcut.resume" : "encoder_shortcut.pause");
    applyLook(buttons[kPause], pause);

    ButtonLook record;
    record.state = normal;
    record.iconPath = shortcutIcon(recording ? "stop" : "record");
    record.iconState = QStringLiteral("recording");
    record.textState = normal;
    record.text = text(recording ? "encoder_shortcut.stop" : "encoder_shortcut.record");
    applyLook(buttons[kRecord], record);

    // The disk can't change under a running record, nor while a speed test
    // holds it.
    ButtonLook disk;
    disk.enabled = !recording && !speedTesting;
    disk.state = disk.enabled ? normal : disabled;
    disk.textState = disk.state;
    disk.iconPath = buildDiskIconPath(type, level);
    if (disk.iconPath.isEmpty())
        disk.iconPath = QString::fromLatin1(kFallbackDiskIcon);
    if (isRecordDisk(type) && level != 0)
        disk.iconState = QStringLiteral("active");
    else
        disk.iconState = disk.state;
    buttons[kDisk].button->setProperty("class", "v2-record-btn");
    applyLook(buttons[kDisk], disk);
}

void EncoderShortcutPage1Widget::onRecordBtnClicked()
{
    emit recordClicked();
}
void EncoderShortcutPage1Widget::onPauseBtnClicked()
{
    emit pauseClicked();
}
void EncoderShortcutPage1Widget::onDiskSelectBtnClicked()
{
    emit diskSelectClicked();
}

// ---------------------------------------------------------------- page 2

EncoderShortcutPage2Widget::EncoderShortcutPage2Widget(UITextManager* textManager, QWidget* parent)
    : ShortcutListPage(textManager, parent)
{
}

int EncoderShortcutPage2Widget::onSwipeLeft(int)
{
    return swipeLeftOr(PAGE_ENCODER_SHORTCUT_3);
}
int EncoderShortcutPage2Widget::onSwipeRight(int)
{
    return swipeRightOr(-1);
}
int EncoderShortcutPage2Widget::onEdgeSwipeToCenter(int)
{
    return PAGE_STATUS_1;
}
int EncoderShortcutPage2Widget::onSwipeUp(int)
{
    return PAGE_MAIN_MENU_1;
}
int EncoderShortcutPage2Widget::onSwipeDown(int)
{
    return PAGE_CONNECT_APP;
}

void EncoderShortcutPage2Widget::updateFromVm(const EncoderShortcutPageVM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    updateOsdList(vm.osd_items);
}

void EncoderShortcutPage2Widget::updateOsdList(const QList<OsdItemInfo>& list)
{
    if (!text_manager)
        return;
    QVector<Row> rows;
    for (const OsdItemInfo& item : list)
        rows.append({item.id, item.switch_on, item.name, osdStatusLook(text_manager, item.status),
                     item.switch_on});
    showRows(rows, text_manager->getTextWithFallback(QStringLiteral("encoder_shortcut.osd_empty")));
}

// ---------------------------------------------------------------- page 3

EncoderShortcutPage3Widget::EncoderShortcutPage3Widget(UITextManager* textManager, QWidget* parent)
    : ShortcutListPage(textManager, parent)
{
}

int EncoderShortcutPage3Widget::onSwipeLeft(int)
{
    return swipeLeftOr(PAGE_ENCODER_SHORTCUT_1);
}
int EncoderShortcutPage3Widget::onSwipeRight(int)
{
    return swipeRightOr(PAGE_ENCODER_SHORTCUT_2);
}
int EncoderShortcutPage3Widget::onEdgeSwipeToCenter(int)
{
    return PAGE_STATUS_1;
}
int EncoderShortcutPage3Widget::onSwipeUp(int)
{
    return PAGE_MAIN_MENU_1;
}
int EncoderShortcutPage3Widget::onSwipeDown(int)
{
    return PAGE_CONNECT_APP;
}

void EncoderShortcutPage3Widget::updateFromVm(const EncoderShortcutPageVM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    updatePushStreamList(vm.push_streams);
}

void EncoderShortcutPage3Widget::updatePushStreamList(const QList<PushStreamItemInfo>& list)
{
    if (!text_manager)
        return;
    QVector<Row> rows;
    for (const PushStreamItemInfo& item : list)
        rows.append({item.index, item.switch_on, item.name,
                     pushStreamStatusLook(text_manager, item.status), item.switch_on});
    showRows(rows,
             text_manager->getTextWithFallback(QStringLiteral("encoder_shortcut.stream_empty")));
}
