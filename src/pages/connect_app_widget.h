#pragma once

#include "model/view_models/shortcut_view_models.h"
#include "pages/basic_page.h"

class QLabel;
class QrcodeWidget;
class UITextManager;

// Texts of the pairing steps; null without a text manager.
QString appConnectPairText(const UITextManager* textManager, int index);
QString appConnectStatusText(const UITextManager* textManager, int index);

// The first-use page that pairs a phone: where to get the app and a QR code
// that joins the device's access point. While the phone goes through the
// pairing, a status panel takes the QR panel's place.
class ConnectAppWidget : public BasicPage {
    Q_OBJECT

public:
    enum Panel { QrPanel = 0, StatusPanel = 1 };

    ConnectAppWidget(UITextManager* textManager, QWidget* parent = nullptr);

    int onSwipeLeft(int workmode) override;
    int onSwipeRight(int workmode) override;
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeUp(int workmode) override;
    int onSwipeDown(int workmode) override;

    void onLanguageChanged();
    void updateStatusText(const ConnectAppVM& vm);
    void resetConnectStatusOnExit();

    int currentPanel() const { return current_panel; }
    int lastStatus() const { return last_status; }
    QrcodeWidget* qrcodeWidget() const { return qrcode; }

signals:
    void resetConnectStatus();
    void appFirstUseCompletedRequested();

public slots:
    void updateFromVm(const ConnectAppVM& vm);
    void app_connect_hint(int status);

private:
    void createComponents();
    QWidget* createQrPanel();
    QWidget* createStatusPanel();
    void status_change(int panel);

    int current_panel = QrPanel;
    int last_status = 0;
    bool first_use_signal_sent = false;

    QWidget* qr_panel = nullptr;
    QWidget* status_panel = nullptr;
    QLabel* android_image = nullptr;
    QrcodeWidget* qrcode = nullptr;
    QLabel* pair_label = nullptr;
    QLabel* title_label = nullptr;
    QLabel* body_label = nullptr;
};
