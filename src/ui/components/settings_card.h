#pragma once

#include "ui/components/submenu_button_group_component.h"

#include <QMutex>
#include <QPushButton>
#include <QString>
#include <QVector>
#include <QWidget>

class UITextManager;

// The common body of the settings pages: a row of up to three cards, each a
// switch whose look shows a state or an entry that opens a modal page. A
// card's text comes from its key and is renewed on a language change; what a
// tap means is left to the page.
class SettingsCardPage : public QWidget {
    Q_OBJECT

public:
    static constexpr const char* kNormal = "normal";
    static constexpr const char* kActive = "active";
    static constexpr const char* kDisabled = "disabled";
    static constexpr const char* kDanger = "danger";

    int cardCount() const { return cards.size(); }
    QPushButton* cardButton(int card) const;
    const SubmenuButtonItem& cardItem(int card) const { return cards.at(card).item; }
    // The look word a card shows now ("normal", "active", "disabled", ...).
    QString cardState(int card) const;

public slots:
    // Renews every card's text; pages with more texts extend it.
    virtual void onLanguageChanged();

protected:
    SettingsCardPage(UITextManager* textManager, QWidget* parent);

    // Returns the card's index; a tap calls `onClick` of the page, which must
    // be the page that adds the card.
    template <class Page>
    int addCard(const QString& iconPath, const QString& textKey, void (Page::*onClick)())
    {
        const int card = createCard(iconPath, textKey);
        connect(cardButton(card), &QPushButton::clicked, static_cast<Page*>(this), onClick);
        return card;
    }
    // A switch card: it keeps the state last given by setSwitchValue, and a
    // tap raises `clicked` of the page with that state, the one shown.
    template <class Page>
    int addSwitchCard(const QString& iconPath, const QString& textKey, void (Page::*clicked)(bool))
    {
        const int card = createCard(iconPath, textKey);
        Page* page = static_cast<Page*>(this);
        connect(cardButton(card), &QPushButton::clicked, page,
                [page, card, clicked] { emit(page->*clicked)(page->switchValue(card)); });
        return card;
    }
    void setSwitchValue(int card, bool on);
    bool switchValue(int card) const;
    // Stores the state for the next tap and shows it.
    void updateSwitch(int card, bool on);

    // Centres the given cards in the row, in the order given; the others are hidden.
    void layoutCards(const QVector<int>& shown);
    void layoutAllCards();

    // A switch: "active" when on; the enabled flag stays as it is.
    void showSwitch(int card, bool on);
    // An entry that can be unavailable: "normal" and enabled, or "disabled".
    void showAvailable(int card, bool available);
    void setCardLook(int card, const QString& state, int enabled);
    void setCardIcon(int card, const QString& iconPath);

    void markDirty(bool dirty) { is_dirty = dirty; }
    // Renews the texts when a language change is pending.
    void renewTextsIfDirty();

    UITextManager* text_mgr;

private:
    struct Card {
        SubmenuButtonItem item;
        QString text_key;
        bool switch_on = false;
    };

    int createCard(const QString& iconPath, const QString& textKey);

    QVector<Card> cards;
    bool is_dirty = true;
    // Guards the switch states between a refresh and a tap.
    mutable QMutex state_mutex;
};
