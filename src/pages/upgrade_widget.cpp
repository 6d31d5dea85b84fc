#include "pages/upgrade_widget.h"

#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QPixmap>
#include <QTimer>
#include <QVariant>

#include <algorithm>
#include <cmath>

namespace {

// The picture starts at level 40: the part below stands for the steps before
// the download, and the download fills the remaining 60.
constexpr int kImageLevelAtStart = 40;
constexpr double kImageLevelPerPercent = 0.6;

QPixmap loadScaled(const QString& path, const QSize& size)
{
    QPixmap pixmap(path);
    if (pixmap.isNull())
        return pixmap;
    return pixmap.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

UpgradeWidget::UpgradeWidget(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_manager(textManager)
{
    setAttribute(Qt::WA_StyledBackground);
    setProperty("class", "widget2");
    setGeometry(0, 0, 640, 172);
    reboot_timer = new QTimer(this);
    reboot_timer->setSingleShot(true);
    reboot_timer->setInterval(kRebootTextDelayMs);
    connect(reboot_timer, &QTimer::timeout, this, &UpgradeWidget::onRebootTextDelayElapsed);
    createComponents();
    layoutComponents();
    onLanguageChanged();
}

void UpgradeWidget::createComponents()
{
    logo_label = new QLabel(this);
    logo_label->setAlignment(Qt::AlignCenter);
    logo_label->setPixmap(loadScaled(QStringLiteral(":/icons/upgrade/logo.png"), QSize(190, 132)));

    divider = new QLabel(this);
    divider->setProperty("class", "v2-p1-center-divider");

    progress_image = new QLabel(this);
    progress_image->setAlignment(Qt::AlignCenter);
    image_path = progressImagePath(0);
    progress_image->setPixmap(loadScaled(image_path, QSize(330, 100)));

    status_label = new QLabel(this);
    status_label->setObjectName(QStringLiteral("upgradeStatus"));
    status_label->setProperty("class", "v2-sys-card-label");
    status_label->setAlignment(Qt::AlignCenter);

    warning_icon = createSvgIconLabel(this, QStringLiteral(":/icons/upgrade/waring.svg"),
                                      QSize(18, 18), QString());
    warning_label = new QLabel(this);
    warning_label->setObjectName(QStringLiteral("upgradeWarning"));
    warning_label->setProperty("class", "v2-sys-card-label");
}

void UpgradeWidget::layoutComponents()
{
    logo_label->setGeometry(0, 0, 230, 172);
    divider->setGeometry(230, 36, 1, 100);
    progress_image->setGeometry(270, 8, 330, 100);
    status_label->setGeometry(240, 108, 390, 26);
    warning_icon->move(262, 143);
    warning_label->setGeometry(286, 136, 344, 32);
}

int UpgradeWidget::progressImageLevel(int progress)
{
    if (progress > 100)
        return 100;
    if (progress <= 0)
        return kImageLevelAtStart;
    const int level = int(std::trunc(kImageLevelAtStart + kImageLevelPerPercent * progress));
    return std::clamp(level, 0, 100);
}

QString UpgradeWidget::progressImagePath(int level)
{
    const char* name = "upgrade100";
    if (level < 40)
        name = "upgrade0";
    else if (level < 50)
        name = "upgrade40";
    else if (level < 60)
        name = "upgrade50";
    else if (level < 70)
        name = "upgrade60";
    else if (level < 80)
        name = "upgrade70";
    else if (level < 90)
        name = "upgrade80";
    else if (level <= 99)
        name = "upgrade90";
    return QStringLiteral(":/icons/upgrade/%1.png").arg(QLatin1String(name));
}

void UpgradeWidget::updateFromVm(int progress)
{
    const int shown = std::clamp(progress, 0, 100);
    const QString path = progressImagePath(progressImageLevel(progress));
    if (path != image_path) {
        image_path = path;
        progress_image->setPixmap(loadScaled(image_path, progress_image->size()));
    }

    if (shown != 100) {
        rebooting = false;
        reboot_pending = false;
        reboot_timer->stop();
    } else if (!rebooting && !reboot_pending) {
        reboot_pending = true;
        reboot_timer->start();
    }
    onLanguageChanged();
}

void UpgradeWidget::onRebootTextDelayElapsed()
{
    rebooting = true;
    reboot_pending = false;
    updateStatusText();
}

void UpgradeWidget::onLanguageChanged()
{
    if (text_manager)
        warning_label->setText(text_manager->getTextWithFallback(QStringLiteral("upgrade.waring")));
    updateStatusText();
}

void UpgradeWidget::updateStatusText()
{
    if (!text_manager)
        return;
    const QString key =
        rebooting ? QStringLiteral("upgrade.rebooting") : QStringLiteral("upgrade.download");
    status_label->setText(text_manager->getTextWithFallback(key));
}
