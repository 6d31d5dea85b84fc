#include "panel_controls.h"

#include "control/async_control_runner.h"
#include "pages/shortcut_list_page.h"
#include "ui/components/settings_card.h"
#include "ui/text_manager.h"

#include <QCoreApplication>
#include <QLabel>
#include <QVariant>
#include <gtest/gtest.h>

namespace shelltest {

void tap(Widget& panel, QPushButton* button)
{
    ASSERT_NE(button, nullptr);
    panel.button_tap(button);
    QCoreApplication::processEvents();
}

void touch(Widget& panel)
{
    panel.onTouchBeginReq();
}

QPushButton* settingsCard(Widget& panel, int page, const char* key)
{
    auto* cards = dynamic_cast<SettingsCardPage*>(panel.pageid_to_widget(page));
    if (!cards)
        return nullptr;
    const QString wanted = text(panel, key);
    for (int card = 0; card < cards->cardCount(); ++card) {
        if (cards->cardItem(card).label->text() == wanted)
            return cards->cardButton(card);
    }
    return nullptr;
}

QString settingsCardLook(Widget& panel, int page, const char* key)
{
    auto* cards = dynamic_cast<SettingsCardPage*>(panel.pageid_to_widget(page));
    QPushButton* button = settingsCard(panel, page, key);
    for (int card = 0; cards && card < cards->cardCount(); ++card) {
        if (cards->cardButton(card) == button)
            return cards->cardState(card);
    }
    return QString();
}

QPushButton* listRow(Widget& panel, int page, int index)
{
    auto* list = dynamic_cast<ShortcutListPage*>(panel.pageid_to_widget(page));
    return list ? list->rowButton(index) : nullptr;
}

QPushButton* buttonWithClass(QWidget* root, const char* styleClass)
{
    for (QPushButton* button : root->findChildren<QPushButton*>()) {
        if (button->property("class").toString() == QLatin1String(styleClass))
            return button;
    }
    return nullptr;
}

QString text(Widget& panel, const char* key)
{
    return panel.textManager()->getTextWithFallback(key);
}

QString cardText(Widget& panel)
{
    return panel.operationOverlay()->textLabel()->text();
}

OperationStateType cardState(Widget& panel)
{
    return panel.operationOverlay()->state();
}

bool cardVisible(Widget& panel)
{
    return panel.isOperationOverlayActive();
}

bool waitUntilSettled(Widget& panel, std::chrono::milliseconds deadline)
{
    return testsupport::waitUntil(
        [&] {
            return !panel.controlRunner()->isControlRequestActive()
                   && !panel.isOperationInProgress();
        },
        deadline);
}

int deviceInt(PanelRig& rig, const std::string& pointer)
{
    return rig.simulator().state().at(pointer).get<int>();
}

bool showPageWhen(PanelRig& rig, int page, const std::function<bool()>& ready)
{
    rig.panel().goto_page(page);
    return rig.shownPageId() == page && rig.tickUntil(ready);
}

} // namespace shelltest
