#pragma once

#include "model/view_models/settings_view_models.h"
#include "pages/i_gesture_handler.h"
#include "pages/page_ids.h"
#include "pages/shortcut_list_page.h"
#include "ui/components/settings_card.h"

#include <QMutex>

class QLabel;
class QrcodeWidget;

// QR codes to reach the device: join its hotspot, open its web page through
// the hotspot, open it through the network. Only the codes that work now are
// shown; with none, a hint takes their place.
class NetworkSettingsPage1Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    enum QrCard { QR_HOTSPOT = 0, QR_AP_ACCESS = 1, QR_NETWORK_ACCESS = 2, QR_CARD_COUNT = 3 };

    NetworkSettingsPage1Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return PAGE_NETWORK_SETTINGS_2; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

    QWidget* qrCard(int card) const { return qr_cards[card].card; }
    QrcodeWidget* qrCode(int card) const { return qr_cards[card].code; }
    QLabel* emptyHint() const { return empty_hint; }

public slots:
    void updateFromVm(const NetworkSettingsPageVM& vm);
    void onLanguageChanged() override;

private:
    struct QrCardWidgets {
        QWidget* card = nullptr;
        QLabel* title = nullptr;
        QrcodeWidget* code = nullptr;
        QString text;
        bool wanted = false;
    };

    void createComponents();
    void updateQrCodes();

    QrCardWidgets qr_cards[QR_CARD_COUNT];
    QLabel* empty_hint = nullptr;
    bool ap_on = false;
    bool client_link = false;
};

// WLAN and hotspot switches. A tap shows its result at once and keeps it
// against refreshes until the backend agrees (WLAN) or for one refresh
// (hotspot), or until the shell reports that the request is over.
class NetworkSettingsPage2Widget : public SettingsCardPage, public IGestureHandler {
    Q_OBJECT

public:
    NetworkSettingsPage2Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return PAGE_NETWORK_SETTINGS_3; }
    int onSwipeRight(int) override { return PAGE_NETWORK_SETTINGS_1; }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }
    void setDirty(bool dirty) override { markDirty(dirty); }

    bool isWlanPending() const;
    bool isApPending() const;

signals:
    // The state asked for, not the one shown before the tap.
    void wlanClicked(bool targetEnabled);
    void apClicked(bool targetEnabled);

public slots:
    void updateFromVm(const NetworkSettingsPageVM& vm);
    void clearSwitchPending();
    void onWlanBtnClicked();
    void onApBtnClicked();

private:
    struct PendingSwitch {
        bool backend = false;
        bool shown = false;
        bool pending = false;
    };

    void redraw();

    int wlan_card = -1;
    int ap_card = -1;
    mutable QMutex switch_mutex;
    PendingSwitch wlan;
    PendingSwitch ap;
};

// The NAS mounts, as a list that scrolls one row per swipe.
class NetworkSettingsPage3Widget : public ShortcutListPage {
    Q_OBJECT

public:
    NetworkSettingsPage3Widget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int) override { return swipeLeftOr(PAGE_NONE); }
    int onSwipeRight(int) override { return swipeRightOr(PAGE_NETWORK_SETTINGS_2); }
    int onEdgeSwipeToCenter(int) override { return PAGE_STATUS_1; }
    int onSwipeDown(int) override { return PAGE_MAIN_MENU_2; }

    bool canScrollNasLeft() const { return canScrollLeft(); }
    bool canScrollNasRight() const { return canScrollRight(); }
    bool scrollNasListLeft() { return scrollListLeft(); }
    bool scrollNasListRight() { return scrollListRight(); }

signals:
    // `isSwitch` is whether the mount is on at the tap.
    void nasClicked(int index, bool isSwitch);

public slots:
    void updateFromVm(const NetworkSettingsPageVM& vm);
    void updateNasList(const QList<NasMountInfo>& list);
    void clearNasItems();
    void onLanguageChanged();

protected:
    void onRowClicked(int key, bool on) override;
};
