#include "pages/auto_bt_page_widget.h"

#include "pages/page_ids.h"
#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QPushButton>
#include <QVariant>

namespace {

QString statusTextKey(int status)
{
    switch (status) {
    case 5:
        return QStringLiteral("bt.bt pair error");
    case 6:
        return QStringLiteral("bt.bt pair timeout");
    case 7:
        return QStringLiteral("bt.bt auto");
    case 2:
    case 3:
        return QStringLiteral("bt.bt pair");
    default:
        return QString();
    }
}

} // namespace

AutoBtPageWidget::AutoBtPageWidget(UITextManager* textManager, QWidget* parent)
    : BasicPage(textManager, parent)
{
    // It shares the standby page's darker ground rather than the page one.
    setProperty("class", "standby-page");
    createComponents();
    layoutComponents();
}

void AutoBtPageWidget::createComponents()
{
    icon_label = new QLabel(this);
    setSvgIconPath(icon_label, QStringLiteral(":/icons/network_settings/btyindao.svg"));
    icon_label->setScaledContents(true);

    title_label = new QLabel(this);
    title_label->setProperty("class", "bt_title");
    title_label->setAlignment(Qt::AlignCenter);
    title_label->setWordWrap(true);

    exit_button = new QPushButton(QStringLiteral("EXIT"), this);
    exit_button->setProperty("class", "standby-wake-button");
    exit_button->setFocusPolicy(Qt::NoFocus);
    connect(exit_button, &QPushButton::clicked, this, &AutoBtPageWidget::onExitBtnClicked);
}

void AutoBtPageWidget::layoutComponents()
{
    icon_label->setGeometry(30, 31, 80, 80);
    title_label->setGeometry(130, 21, 290, 100);
    exit_button->setGeometry(440, 47, 170, 48);
}

int AutoBtPageWidget::onSwipeDown(int)
{
    return PAGE_NETWORK_SETTINGS_2;
}

int AutoBtPageWidget::onEdgeSwipeToCenter(int)
{
    return PAGE_STATUS_1;
}

void AutoBtPageWidget::updateFromVm(const ConnectBTVM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    btConnectHint(vm.status);
}

void AutoBtPageWidget::btConnectHint(int newStatus)
{
    status = newStatus;
    applyStatusText();
}

void AutoBtPageWidget::applyStatusText()
{
    const QString key = statusTextKey(status);
    if (key.isEmpty() || !text_manager)
        return;
    title_label->setText(text_manager->getTextWithFallback(key));
}

void AutoBtPageWidget::onLanguageChanged()
{
    applyStatusText();
}

void AutoBtPageWidget::onExitBtnClicked()
{
    emit exitbtRequested();
}
