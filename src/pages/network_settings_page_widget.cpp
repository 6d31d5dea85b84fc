#include "pages/network_settings_page_widget.h"

#include "ui/qrcode_widget.h"
#include "ui/text_manager.h"

#include <QLabel>
#include <QMutexLocker>
#include <QVariant>

namespace {

constexpr int kQrRowWidth = 490;
constexpr int kQrRowTop = 2;
constexpr int kQrCardGap = 8;
constexpr int kQrCardHeight = 118;
constexpr int kQrTitleHeight = 20;
constexpr int kQrCodeTop = 26;
constexpr int kQrCodeSize = 92;

const char* const kQrTitleKeys[] = {"network_settings.qr_connect_hotspot",
                                    "network_settings.qr_ap_access",
                                    "network_settings.qr_network_access"};

ShortcutStatusLook nasStatusLook(const UITextManager* textManager, int status)
{
    QString key = QStringLiteral("nas_status.nas_0");
    QString state = QStringLiteral("error");
    switch (status) {
    case 2:
        key = QStringLiteral("nas_status.nas_2");
        state = QStringLiteral("mounted");
        break;
    case 3:
        key = QStringLiteral("nas_status.nas_3");
        break;
    case 1:
    case 4:
        key = QStringLiteral("nas_status.nas_%1").arg(status);
        state = QStringLiteral("warning");
        break;
    default:
        break;
    }
    return {textManager ? textManager->getTextWithFallback(key) : key, state};
}

} // namespace

// ---- Page 1: QR codes ------------------------------------------------------

NetworkSettingsPage1Widget::NetworkSettingsPage1Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    createComponents();
    updateQrCodes();
}

void NetworkSettingsPage1Widget::createComponents()
{
    for (QrCardWidgets& qr : qr_cards) {
        qr.card = new QWidget(this);
        qr.title = new QLabel(qr.card);
        qr.title->setProperty("class", "v2-sys-card-label");
        qr.title->setAlignment(Qt::AlignCenter);
        qr.code = new QrcodeWidget(qr.card);
        qr.code->setFixedSize(kQrCodeSize, kQrCodeSize);
        qr.card->hide();
    }
    empty_hint = new QLabel(this);
    empty_hint->setProperty("class", "v2-shortcut-empty-hint");
    empty_hint->setAlignment(Qt::AlignCenter);
    empty_hint->setWordWrap(true);
    empty_hint->setGeometry(50, (height() - 110) / 2, width() - 100, 100);
    empty_hint->hide();
}

void NetworkSettingsPage1Widget::updateFromVm(const NetworkSettingsPageVM& vm)
{
    renewTextsIfDirty();
    ap_on = vm.ap_on;
    client_link = vm.client_link;
    qr_cards[QR_HOTSPOT].text = vm.ap_wifi_qr;
    qr_cards[QR_HOTSPOT].wanted = vm.ap_on && !vm.ap_wifi_qr.isEmpty();
    qr_cards[QR_AP_ACCESS].text = vm.ap_http_url;
    qr_cards[QR_AP_ACCESS].wanted = vm.ap_on && !vm.ap_http_url.isEmpty();
    qr_cards[QR_NETWORK_ACCESS].text = vm.http_url;
    qr_cards[QR_NETWORK_ACCESS].wanted = vm.client_link && !vm.http_url.isEmpty();
    updateQrCodes();
}

void NetworkSettingsPage1Widget::updateQrCodes()
{
    int shown = 0;
    for (const QrCardWidgets& qr : qr_cards) {
        shown += qr.wanted ? 1 : 0;
    }
    if ((!ap_on && !client_link) || shown == 0) {
        for (QrCardWidgets& qr : qr_cards) {
            qr.code->clear();
            qr.card->hide();
        }
        if (text_mgr) {
            empty_hint->setText(
                text_mgr->getTextWithFallback(QStringLiteral("network_settings.qr_empty_hint")));
        }
        empty_hint->show();
        return;
    }

    empty_hint->hide();
    const int cardWidth = (kQrRowWidth - (shown - 1) * kQrCardGap) / shown;
    int x = (width() - kQrRowWidth) / 2;
    for (QrCardWidgets& qr : qr_cards) {
        if (!qr.wanted) {
            qr.code->clear();
            qr.card->hide();
            continue;
        }
        qr.card->setGeometry(x, kQrRowTop, cardWidth, kQrCardHeight);
        qr.title->setGeometry(0, 0, cardWidth, kQrTitleHeight);
        qr.code->move((cardWidth - kQrCodeSize) / 2, kQrCodeTop);
        qr.code->generateString(qr.text);
        qr.card->show();
        x += cardWidth + kQrCardGap;
    }
}

void NetworkSettingsPage1Widget::onLanguageChanged()
{
    SettingsCardPage::onLanguageChanged();
    if (!text_mgr) {
        return;
    }
    for (int i = 0; i < QR_CARD_COUNT; ++i) {
        qr_cards[i].title->setText(text_mgr->getTextWithFallback(kQrTitleKeys[i]));
    }
    empty_hint->setText(
        text_mgr->getTextWithFallback(QStringLiteral("network_settings.qr_empty_hint")));
}

// ---- Page 2: WLAN and hotspot ---------------------------------------------

NetworkSettingsPage2Widget::NetworkSettingsPage2Widget(UITextManager* textManager, QWidget* parent)
    : SettingsCardPage(textManager, parent)
{
    wlan_card = addCard(":/icons/network_settings/wlan.svg", "network_settings.wlan",
                        &NetworkSettingsPage2Widget::onWlanBtnClicked);
    ap_card = addCard(":/icons/network_settings/ap.svg", "network_settings.ap",
                      &NetworkSettingsPage2Widget::onApBtnClicked);
    layoutAllCards();
}

bool NetworkSettingsPage2Widget::isWlanPending() const
{
    QMutexLocker lock(&switch_mutex);
    return wlan.pending;
}

bool NetworkSettingsPage2Widget::isApPending() const
{
    QMutexLocker lock(&switch_mutex);
    return ap.pending;
}

void NetworkSettingsPage2Widget::updateFromVm(const NetworkSettingsPageVM& vm)
{
    renewTextsIfDirty();
    {
        QMutexLocker lock(&switch_mutex);
        // WLAN waits for the backend through any number of refreshes.
        wlan.backend = vm.wifi_on;
        if (!wlan.pending) {
            wlan.shown = wlan.backend;
        } else if (wlan.shown == wlan.backend) {
            wlan.pending = false;
        }
        // The hotspot waits through one refresh only.
        ap.backend = vm.ap_on;
        if (!(ap.pending && ap.shown != ap.backend)) {
            ap.shown = ap.backend;
        }
        ap.pending = false;
    }
    redraw();
}

void NetworkSettingsPage2Widget::clearSwitchPending()
{
    {
        QMutexLocker lock(&switch_mutex);
        for (PendingSwitch* sw : {&wlan, &ap}) {
            sw->shown = sw->backend;
            sw->pending = false;
        }
    }
    redraw();
}

void NetworkSettingsPage2Widget::onWlanBtnClicked()
{
    bool target = false;
    {
        QMutexLocker lock(&switch_mutex);
        wlan.shown = !wlan.shown;
        wlan.pending = true;
        target = wlan.shown;
    }
    redraw();
    emit wlanClicked(target);
}

void NetworkSettingsPage2Widget::onApBtnClicked()
{
    bool target = false;
    {
        QMutexLocker lock(&switch_mutex);
        ap.shown = !ap.shown;
        ap.pending = true;
        target = ap.shown;
    }
    redraw();
    emit apClicked(target);
}

void NetworkSettingsPage2Widget::redraw()
{
    bool wlanShown = false;
    bool apShown = false;
    {
        QMutexLocker lock(&switch_mutex);
        wlanShown = wlan.shown;
        apShown = ap.shown;
    }
    showSwitch(wlan_card, wlanShown);
    showSwitch(ap_card, apShown);
}

// ---- Page 3: NAS list ------------------------------------------------------

NetworkSettingsPage3Widget::NetworkSettingsPage3Widget(UITextManager* textManager, QWidget* parent)
    : ShortcutListPage(textManager, parent)
{
}

void NetworkSettingsPage3Widget::updateFromVm(const NetworkSettingsPageVM& vm)
{
    if (takeDirty()) {
        onLanguageChanged();
    }
    updateNasList(vm.nas_list);
}

void NetworkSettingsPage3Widget::updateNasList(const QList<NasMountInfo>& list)
{
    if (!text_manager) {
        return;
    }
    QVector<Row> rows;
    for (int i = 0; i < list.size() && i < kMaxRows; ++i) {
        const NasMountInfo& nas = list.at(i);
        Row row;
        row.key = i;
        row.on = nas.switch_on;
        row.name = nas.name;
        row.status = nasStatusLook(text_manager, nas.status);
        row.active = nas.switch_on;
        rows.append(row);
    }
    showRows(rows, text_manager->getTextWithFallback(QStringLiteral("network_settings.nas_empty")));
}

void NetworkSettingsPage3Widget::clearNasItems()
{
    clearItems();
}

void NetworkSettingsPage3Widget::onLanguageChanged()
{
    // The row and hint texts are set at each rebuild.
}

void NetworkSettingsPage3Widget::onRowClicked(int key, bool on)
{
    emit nasClicked(key, on);
}
