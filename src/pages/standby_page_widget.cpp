#include "pages/standby_page_widget.h"

#include "pages/page_widget_helpers.h"
#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QFontMetrics>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace {

const char* const kUnknownIpText = "---.---.---.---";
constexpr int kStatusIconSize = 34;
constexpr int kTitleMaxWidth = 138;

} // namespace

StandbyPageWidget::StandbyPageWidget(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_manager(textManager)
{
    setAttribute(Qt::WA_StyledBackground);
    setProperty("class", "standby-page");
    setGeometry(0, 0, 640, 172);
    createComponents();
    layoutComponents();
}

void StandbyPageWidget::createComponents()
{
    main_panel = makeStyled<QFrame>(this, "standby-main-panel");
    status_panel = makeStyled<QFrame>(this, "standby-status-panel");
    wake_button_panel = makeStyled<QFrame>(this, "standby-wake-button-panel");

    time_label = makeStyled<QLabel>(this, "standby-time");
    date_label = makeStyled<QLabel>(this, "standby-date");
    ip_prefix_label = makeStyled<QLabel>(this, "standby-ip-prefix");
    ip_prefix_label->setText(QStringLiteral("IP:"));
    ip_value_label = makeStyled<QLabel>(this, "standby-ip-value");
    time_label->setText(QString::fromLatin1(kUnknownTimeText));
    date_label->setText(QString::fromLatin1(kUnknownDateText));
    ip_value_label->setText(QString::fromLatin1(kUnknownIpText));

    status_icon =
        createSvgIconLabel(this, QStringLiteral(":/icons/standby/standby.svg"),
                           QSize(kStatusIconSize, kStatusIconSize), QStringLiteral("standby-icon"));
    title_label = makeStyled<QLabel>(this, "standby-title");
    title_label->setText(QStringLiteral("STANDBY"));

    wake_button = makeStyled<QPushButton>(this, "standby-wake-button");
    wake_button->setFocusPolicy(Qt::NoFocus);
    wake_button->setIcon(QIcon(QStringLiteral(":/icons/standby/wakeup.svg")));
    wake_button->setIconSize(QSize(24, 24));
    wake_button->setProperty("icon-state", "active");
    wake_button->setText(QStringLiteral("  WAKEUP"));
    connect(wake_button, &QPushButton::clicked, this, &StandbyPageWidget::onWakeButtonClicked);
}

void StandbyPageWidget::layoutComponents()
{
    const int w = width();
    const int h = height();
    main_panel->setGeometry(24, 18, 390, 136);
    time_label->setGeometry(40, 28, 234, 58);
    date_label->setGeometry(286, 42, 116, 30);
    ip_prefix_label->setGeometry(40, 112, 40, 34);
    ip_value_label->setGeometry(94, 112, 300, 34);
    status_panel->setGeometry(w - 219, 18, 192, 60);
    wake_button_panel->setGeometry(w - 219, h - 73, 192, 60);
    wake_button->setGeometry(w - 213, h - 67, 180, 48);
    layoutStatusTitle();
}

// The icon and the title are centred as one pair inside the status panel, so
// the icon moves with the width of the translated title.
void StandbyPageWidget::layoutStatusTitle()
{
    title_label->ensurePolished();
    const int textWidth = QFontMetrics(title_label->font()).horizontalAdvance(title_label->text());
    const int titleWidth = qMin(textWidth + 4, kTitleMaxWidth);
    const int iconX =
        titleWidth >= kTitleMaxWidth ? width() - 213 : width() - 213 + (134 - textWidth) / 2;
    status_icon->setGeometry(iconX, 31, kStatusIconSize, kStatusIconSize);
    title_label->setGeometry(iconX + 42, 24, titleWidth, 48);
}

void StandbyPageWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layoutComponents();
}

void StandbyPageWidget::updateFromVm(const StandbyPageVM& vm)
{
    if (is_dirty) {
        onLanguageChanged();
        is_dirty = false;
    }
    ip_value_label->setText(orPlaceholder(vm.ip_text, kUnknownIpText));
    date_label->setText(orPlaceholder(vm.date_text, kUnknownDateText));
    time_label->setText(orPlaceholder(vm.time_text, kUnknownTimeText));
}

void StandbyPageWidget::onLanguageChanged()
{
    if (text_manager) {
        title_label->setText(
            text_manager->getTextWithFallback(QStringLiteral("standby_page.standby")));
        wake_button->setText(
            QStringLiteral("  ")
            + text_manager->getTextWithFallback(QStringLiteral("standby_page.wake")));
    }
    layoutStatusTitle();
}

void StandbyPageWidget::onWakeButtonClicked()
{
    emit wakeRequested();
}
