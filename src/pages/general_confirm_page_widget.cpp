#include "pages/general_confirm_page_widget.h"

#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVariant>

GeneralConfirmPageWidget::GeneralConfirmPageWidget(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_mgr(textManager)
{
    setFixedSize(640, 142);
    setAttribute(Qt::WA_StyledBackground);
    setProperty("class", "confirm-page");
    createComponents();
    layoutComponents();
}

void GeneralConfirmPageWidget::createComponents()
{
    warning_icon = createSvgIconLabel(this, QStringLiteral(":/icons/general/warning.svg"),
                                      QSize(32, 32), QStringLiteral("confirm-warning-icon"));
    warning_icon->setProperty("icon-state", "normal");

    message_label = new QLabel(this);
    message_label->setProperty("class", "confirm-message");
    message_label->setFixedWidth(592);
    message_label->setAlignment(Qt::AlignCenter);
    message_label->setWordWrap(true);

    cancel_btn = new QPushButton(this);
    cancel_btn->setProperty("class", "confirm-cancel-btn");
    confirm_btn = new QPushButton(this);
    confirm_btn->setProperty("class", "confirm-confirm-btn");
    for (QPushButton* button : {cancel_btn, confirm_btn}) {
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(150, 40);
    }
    connect(cancel_btn, &QPushButton::clicked, this,
            &GeneralConfirmPageWidget::onCancelButtonClicked);
    connect(confirm_btn, &QPushButton::clicked, this,
            &GeneralConfirmPageWidget::onConfirmButtonClicked);
}

void GeneralConfirmPageWidget::layoutComponents()
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(24, 10, 24, 12);
    column->setSpacing(4);

    auto* iconRow = new QHBoxLayout;
    iconRow->addStretch();
    iconRow->addWidget(warning_icon);
    iconRow->addStretch();
    column->addLayout(iconRow);
    column->addWidget(message_label, 0, Qt::AlignHCenter);
    column->addStretch();

    auto* buttonRow = new QHBoxLayout;
    buttonRow->setSpacing(16);
    buttonRow->addStretch();
    buttonRow->addWidget(cancel_btn);
    buttonRow->addWidget(confirm_btn);
    buttonRow->addStretch();
    column->addLayout(buttonRow);
}

void GeneralConfirmPageWidget::setAction(int actionType, int returnPage, int returnIndex, int param)
{
    action_type = static_cast<ConfirmActionType>(actionType);
    return_page = returnPage;
    return_index = returnIndex;
    voltage_id = param == 2 ? 2 : 1;
}

QString GeneralConfirmPageWidget::messageText() const
{
    return message_label->text();
}

void GeneralConfirmPageWidget::updateFromVm(const ConfirmDialogPageVM& vm)
{
    setAction(vm.actionType, vm.returnPage, vm.returnIndex, vm.param);
    updateMessageText();
    if (dirty) {
        onLanguageChanged();
        dirty = false;
    }
}

void GeneralConfirmPageWidget::updateMessageText()
{
    if (!text_mgr) {
        return;
    }
    QString message;
    switch (action_type) {
    case CONFIRM_ACTION_REBOOT:
        message = text_mgr->getTextWithFallback(QStringLiteral("system_settings.restart_content"));
        break;
    case CONFIRM_ACTION_RESET:
        message = text_mgr->getTextWithFallback(QStringLiteral("system_settings.restore_content"));
        break;
    case CONFIRM_ACTION_STANDBY:
        message = text_mgr->getTextWithFallback(QStringLiteral("system_settings.standby_content"));
        break;
    case CONFIRM_ACTION_DC_OUT:
        message = text_mgr->getTextWithFallback(QStringLiteral("system_settings.dcout_content"),
                                                voltage_id == 2 ? QStringLiteral("12V")
                                                                : QStringLiteral("8.4V"),
                                                QStringLiteral("{voltage}"));
        break;
    default:
        break;
    }
    message_label->setText(message);
}

void GeneralConfirmPageWidget::onLanguageChanged()
{
    if (!text_mgr) {
        return;
    }
    cancel_btn->setText(text_mgr->getTextWithFallback(QStringLiteral("confirm_page.cancel")));
    confirm_btn->setText(text_mgr->getTextWithFallback(QStringLiteral("confirm_page.confirm")));
    updateMessageText();
}

void GeneralConfirmPageWidget::onConfirmButtonClicked()
{
    emit confirmed(action_type);
}

void GeneralConfirmPageWidget::onCancelButtonClicked()
{
    emit cancelled(return_page);
}
