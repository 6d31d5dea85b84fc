#include "pages/status_bar_widget.h"

#include "model/view_models/status_view_models.h"
#include "pages/storage_icon_path.h"
#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QLabel>
#include <QVariant>

#include <utility>

namespace {

constexpr int kBarHeight = 30;
constexpr int kIconSize = 24;
constexpr int kIconGap = 6;
constexpr int kRightMargin = 16;
// A divider takes 33 pixels of the row: 16 before it, itself, 16 after it.
constexpr int kDividerOffset = 17;
constexpr int kDividerSpan = 33;

QLabel* createTextLabel(QWidget* parent, const char* className, const QRect& rect,
                        Qt::Alignment align, const QString& text = QString())
{
    auto* label = new QLabel(text, parent);
    label->setProperty("class", className);
    label->setGeometry(rect);
    label->setAlignment(align | Qt::AlignVCenter);
    return label;
}

// Status bar icons keep the colours of their files in both themes, so they
// are plain labels with the file's pixmap rather than tinted icon labels.
QLabel* createIconLabel(QWidget* parent, const QRect& rect, const QString& path = QString())
{
    auto* label = new QLabel(parent);
    label->setProperty("class", "statusbar-icon");
    label->setGeometry(rect);
    label->setScaledContents(true);
    if (!path.isEmpty())
        setSvgIconPath(label, path);
    return label;
}

void showIconFile(QLabel* label, const QString& path)
{
    if (path.isEmpty())
        label->setPixmap(QPixmap());
    else
        setSvgIconPath(label, path);
}

QLabel* createDivider(QWidget* parent, int x)
{
    auto* divider = new QLabel(parent);
    divider->setProperty("class", "status-divider");
    divider->setGeometry(x, 5, 1, 20);
    divider->hide();
    return divider;
}

// Places `icon` with its right edge at x - 1 and returns its left edge.
int placeLeftOf(QLabel* icon, int x)
{
    const int left = x - icon->width();
    icon->move(left, (kBarHeight - icon->height()) / 2);
    return left;
}

QString linkIconPath(const char* name, bool active)
{
    return QStringLiteral(":/icons/statusbar/%1_%2.svg")
        .arg(QLatin1String(name), active ? QStringLiteral("active") : QStringLiteral("inactive"));
}

} // namespace

StatusBarWidget::StatusBarWidget(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_manager(textManager)
{
    setAttribute(Qt::WA_StyledBackground);
    setProperty("class", "widget1");
    setFixedSize(640, kBarHeight);
    createComponents();
}

void StatusBarWidget::createComponents()
{
    context_label =
        createTextLabel(this, "statusbar-context", QRect(16, 0, 300, 30), Qt::AlignLeft);
    context_label->hide();

    mode_dot = new QLabel(this);
    mode_dot->setProperty("class", "status-mode-dot-encode");
    mode_dot->setGeometry(16, 7, 16, 16);
    mode_label = createTextLabel(this, "statusbar-context", QRect(42, 0, 100, 30), Qt::AlignLeft,
                                 QStringLiteral("ENCODE"));

    // The activity icons take the page background behind their drawings.
    auto createActivityIcon = [this](int x) {
        QLabel* icon = createIconLabel(this, QRect(x, 3, kIconSize, kIconSize));
        icon->setProperty("class", "widget1");
        icon->setProperty("icon-state", "hidden");
        icon->hide();
        return icon;
    };
    rec_icon = createActivityIcon(383);
    live_icon = createActivityIcon(413);
    dec_icon = createActivityIcon(443);
    rec_time_label = createTextLabel(this, "status-rec-duration", QRect(277, 0, 100, 30),
                                     Qt::AlignLeft, QStringLiteral("00:00:00"));
    rec_time_label->hide();

    lock_icon = createIconLabel(this, QRect(353, 3, kIconSize, kIconSize),
                                QStringLiteral(":/icons/camera_settings/lcd_lock.svg"));
    lock_icon->hide();

    udisk_icon = createIconLabel(this, QRect(476, 2, 31, 25));
    sdcard_icon = createIconLabel(this, QRect(483, 3, kIconSize, kIconSize));
    nas_icon = createIconLabel(this, QRect(483, 3, kIconSize, kIconSize));

    capacity_label =
        createTextLabel(this, "status-disk-capacity", QRect(534, 0, 90, 30), Qt::AlignRight);
    capacity_label->hide();
    first_divider = createDivider(this, 523);
    second_divider = createDivider(this, 523);

    eth_icon =
        createIconLabel(this, QRect(540, 3, kIconSize, kIconSize), linkIconPath("eth", false));
    wifi_icon =
        createIconLabel(this, QRect(570, 3, kIconSize, kIconSize), linkIconPath("wifi", false));
    ap_icon = createIconLabel(this, QRect(600, 3, kIconSize, kIconSize), linkIconPath("ap", false));

    // Names let the test interface and tools tell the look-alike icons apart.
    const std::pair<QLabel*, const char*> names[] = {
        {context_label, "context"},   {mode_dot, "mode_dot"},        {mode_label, "mode"},
        {rec_icon, "rec_icon"},       {rec_time_label, "rec_time"},  {live_icon, "live_icon"},
        {dec_icon, "dec_icon"},       {lock_icon, "lock_icon"},      {udisk_icon, "udisk_icon"},
        {sdcard_icon, "sdcard_icon"}, {nas_icon, "nas_icon"},        {capacity_label, "free_space"},
        {first_divider, "divider_1"}, {second_divider, "divider_2"}, {eth_icon, "eth_icon"},
        {wifi_icon, "wifi_icon"},     {ap_icon, "ap_icon"},
    };
    for (const auto& [label, name] : names)
        label->setObjectName(QLatin1String(name));
}

void StatusBarWidget::updateFromVm(const StatusBarVM& vm)
{
    applyPageContext(vm);
    applyWorkMode(vm);
    if (vm.is_status_page) {
        applyOperationStatus(vm);
        applyHardwareStatus(vm);
    } else {
        hideStatusPageIcons();
    }
    applyRecPageStatus(vm);
    // Repaint now, even if the GUI thread goes on with a long step.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void StatusBarWidget::hideStatusPageIcons()
{
    for (QLabel* label :
         {rec_icon, live_icon, dec_icon, lock_icon, udisk_icon, sdcard_icon, nas_icon, eth_icon,
          wifi_icon, ap_icon, rec_time_label, capacity_label, first_divider, second_divider})
        label->hide();
}

void StatusBarWidget::applyPageContext(const StatusBarVM& vm)
{
    const bool onStatusPage = vm.pageid < 3;
    mode_dot->setVisible(onStatusPage);
    mode_label->setVisible(onStatusPage);
    context_label->setVisible(!onStatusPage);
    if (!onStatusPage)
        context_label->setText(fittedContextText(vm.context_text));
}

// A deep breadcrumb ("Menu » group » title") can be wider than its label; the
// end names the page the user is on, so the leading steps give way first,
// whole, and only a last step that still doesn't fit is cut.
QString StatusBarWidget::fittedContextText(const QString& text) const
{
    context_label->ensurePolished();
    const QFontMetrics metrics(context_label->font());
    const int room = context_label->width() - kContextTextMargin;
    QString fitted = text;
    while (metrics.horizontalAdvance(fitted) > room) {
        const int separator = fitted.indexOf(QChar(0x00BB));
        if (separator < 0)
            return metrics.elidedText(fitted, Qt::ElideLeft, room);
        fitted = fitted.mid(separator + 1).trimmed();
    }
    return fitted;
}

void StatusBarWidget::applyWorkMode(const StatusBarVM& vm)
{
    if (!text_manager)
        return;
    mode_label->setText(text_manager->getTextWithFallback(
        vm.work_mode != 0 ? QStringLiteral("statusbar.workmode.decode")
                          : QStringLiteral("statusbar.workmode.encode")));
}

void StatusBarWidget::applyOperationStatus(const StatusBarVM& vm)
{
    if (vm.work_mode != 0) {
        rec_icon->hide();
        live_icon->hide();
        dec_icon->setVisible(vm.is_decoding);
        if (vm.is_decoding)
            showIconFile(dec_icon, QStringLiteral(":/icons/statusbar/dec.svg"));
    } else {
        const bool paused = vm.record_status == 2;
        const bool showRecord = vm.is_recording || paused;
        rec_icon->setVisible(showRecord);
        if (showRecord)
            showIconFile(rec_icon, paused ? QStringLiteral(":/icons/statusbar/rec_pause.svg")
                                          : QStringLiteral(":/icons/statusbar/rec.svg"));
        live_icon->setVisible(vm.is_streaming);
        if (vm.is_streaming)
            showIconFile(live_icon, QStringLiteral(":/icons/statusbar/live.svg"));
        dec_icon->hide();
    }
    lock_icon->setVisible(vm.lcd_locked);
}

QLabel* StatusBarWidget::getCurrentRecordDiskLabel(int diskType) const
{
    switch (diskType) {
    case 0:
        return sdcard_icon;
    case 1:
        return udisk_icon;
    case 3:
        return nas_icon;
    default:
        return nullptr;
    }
}

QString StatusBarWidget::getStorageIconPath(int diskType, int level) const
{
    return storageIconPath(diskType, level);
}

void StatusBarWidget::applyHardwareStatus(const StatusBarVM& vm)
{
    for (QLabel* label : {udisk_icon, sdcard_icon, nas_icon, first_divider, second_divider})
        label->hide();

    if (vm.work_mode == 0 && vm.disk_type >= 0) {
        if (QLabel* disk = getCurrentRecordDiskLabel(vm.disk_type)) {
            disk->show();
            showIconFile(disk, getStorageIconPath(vm.disk_type, vm.disk_icon_level));
        }
    }

    if (!vm.wifi_on)
        showIconFile(wifi_icon, QStringLiteral(":/icons/statusbar/wifi_off.svg"));
    else
        showIconFile(wifi_icon, linkIconPath("wifi", vm.wifi_connected));
    showIconFile(eth_icon, linkIconPath("eth", vm.eth_link));
    showIconFile(ap_icon, linkIconPath("ap", vm.ap_on));
    for (QLabel* label : {wifi_icon, eth_icon, ap_icon})
        label->show();

    layoutStatusIcons(vm);
}

void StatusBarWidget::layoutStatusIcons(const StatusBarVM& vm)
{
    int x = width() - kRightMargin;
    x = placeLeftOf(ap_icon, x);
    x = placeLeftOf(wifi_icon, x - kIconGap);
    x = placeLeftOf(eth_icon, x - kIconGap);

    const bool decode = vm.work_mode != 0;
    QLabel* disk = decode ? nullptr : getCurrentRecordDiskLabel(vm.disk_type);
    const bool decodeCounts = decode && vm.is_decoding;
    const bool recordCounts = !decode && (vm.is_recording || vm.record_status == 2);
    const bool liveCounts = !decode && vm.is_streaming;

    auto showDividerAt = [](QLabel* divider, int dividerX) {
        divider->move(dividerX, 5);
        divider->show();
    };

    if (decodeCounts || recordCounts || liveCounts) {
        showDividerAt(first_divider, x - kDividerOffset);
        x -= kDividerSpan;
        if (disk) {
            x = placeLeftOf(disk, x);
            showDividerAt(second_divider, x - kDividerOffset);
            x -= kDividerSpan;
        } else {
            second_divider->hide();
        }
        if (decodeCounts) {
            placeLeftOf(dec_icon, x);
        } else {
            if (liveCounts)
                x = placeLeftOf(live_icon, x) - kIconGap;
            if (recordCounts)
                placeLeftOf(rec_icon, x);
        }
    } else {
        second_divider->hide();
        if (disk) {
            showDividerAt(first_divider, x - kDividerOffset);
            x -= kDividerSpan;
            placeLeftOf(disk, x);
        } else {
            first_divider->hide();
        }
    }

    if (lock_icon->isVisibleTo(this)) {
        // The lock stands on its own, left of centre, wherever the rest ends.
        const int centre = width() * 4 / 10;
        lock_icon->setGeometry(centre - kIconSize / 2, 3, kIconSize, kIconSize);
        lock_icon->raise();
    }
}

void StatusBarWidget::applyRecPageStatus(const StatusBarVM& vm)
{
    const bool showTime = vm.show_record_status && vm.record_status != 0;
    rec_time_label->setVisible(showTime);
    if (showTime)
        rec_time_label->setText(formatDuration(vm.record_duration));
    applyDiskCapacityLabel(vm);
}

QString StatusBarWidget::formatDuration(int seconds) const
{
    const QChar zero(QLatin1Char('0'));
    return QStringLiteral("%1 : %2 : %3")
        .arg(seconds / 3600, 2, 10, zero)
        .arg(seconds % 3600 / 60, 2, 10, zero)
        .arg(seconds % 60, 2, 10, zero);
}

QString StatusBarWidget::diskCapacityText(qint64 f)
{
    if (f <= 0)
        return QStringLiteral("--");
    if (f <= 999)
        return QStringLiteral("%1 MB").arg(f);
    if (f < 102400)
        return QStringLiteral("%1 GB").arg(static_cast<double>(f) / 1024.0, 0, 'f', 1);
    if (f <= 1022976)
        return QStringLiteral("%1 GB").arg(f / 1024);
    return QStringLiteral("%1 TB").arg(static_cast<double>(f) / 1048576.0, 0, 'f', 1);
}

void StatusBarWidget::applyDiskCapacityLabel(const StatusBarVM& vm)
{
    const bool show = vm.show_record_status && vm.work_mode == 0 && vm.disk_type >= 0;
    capacity_label->setVisible(show);
    if (show)
        capacity_label->setText(diskCapacityText(vm.free_space));
}
