#include "ui/components/settings_card.h"

#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QMutexLocker>
#include <QPushButton>
#include <QVariant>

SettingsCardPage::SettingsCardPage(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_mgr(textManager)
{
    setFixedSize(640, 142);
    setProperty("class", "widget1");
}

int SettingsCardPage::createCard(const QString& iconPath, const QString& textKey)
{
    Card card;
    card.item = SubmenuButtonGroupComponent::createButton(this, iconPath);
    card.item.button->setFocusPolicy(Qt::NoFocus);
    card.item.button->setProperty("btn-state", kNormal);
    card.text_key = textKey;
    cards.append(card);
    return cards.size() - 1;
}

QPushButton* SettingsCardPage::cardButton(int card) const
{
    return (card >= 0 && card < cards.size()) ? cards.at(card).item.button : nullptr;
}

QString SettingsCardPage::cardState(int card) const
{
    QPushButton* button = cardButton(card);
    return button ? button->property("btn-state").toString() : QString();
}

void SettingsCardPage::setSwitchValue(int card, bool on)
{
    QMutexLocker lock(&state_mutex);
    cards[card].switch_on = on;
}

bool SettingsCardPage::switchValue(int card) const
{
    QMutexLocker lock(&state_mutex);
    return cards.at(card).switch_on;
}

void SettingsCardPage::updateSwitch(int card, bool on)
{
    setSwitchValue(card, on);
    showSwitch(card, on);
}

void SettingsCardPage::layoutCards(const QVector<int>& shown)
{
    QVector<SubmenuButtonItem> items;
    for (int i = 0; i < cards.size(); ++i) {
        cards[i].item.button->setVisible(shown.contains(i));
    }
    for (int card : shown) {
        items.append(cards.at(card).item);
    }
    SubmenuButtonGroupComponent::layoutButtons(this, items);
}

void SettingsCardPage::layoutAllCards()
{
    QVector<int> all;
    for (int i = 0; i < cards.size(); ++i) {
        all.append(i);
    }
    layoutCards(all);
}

void SettingsCardPage::setCardLook(int card, const QString& state, int enabled)
{
    SubmenuButtonGroupComponent::setItemState(cards.at(card).item, state, enabled);
}

void SettingsCardPage::showSwitch(int card, bool on)
{
    setCardLook(card, on ? kActive : kNormal, -1);
}

void SettingsCardPage::showAvailable(int card, bool available)
{
    setCardLook(card, available ? kNormal : kDisabled, available ? 1 : 0);
}

void SettingsCardPage::setCardIcon(int card, const QString& iconPath)
{
    setSvgIconPath(cards.at(card).item.icon, iconPath);
}

void SettingsCardPage::renewTextsIfDirty()
{
    if (is_dirty) {
        onLanguageChanged();
        is_dirty = false;
    }
}

void SettingsCardPage::onLanguageChanged()
{
    if (!text_mgr) {
        return;
    }
    for (const Card& card : cards) {
        card.item.label->setText(text_mgr->getTextWithFallback(card.text_key));
    }
}
