#include "pages/connect_app_widget.h"

#include "pages/page_ids.h"
#include "ui/qrcode_widget.h"
#include "ui/svg_icon_label.h"
#include "ui/text_manager.h"

#include <QBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QVariant>

namespace {

// Phase of the app's pairing, as the backend reports it.
enum ConnectStatus {
    kPhoneConnected = 1,
    kJoiningWifi = 2,
    kWifiJoined = 3,
    kSetupDone = 4,
};
constexpr int kWifiConnected = 4;

QLabel* makeLabel(const char* className, const QString& text = QString())
{
    auto* label = new QLabel(text);
    label->setProperty("class", className);
    return label;
}

// A picture drawn with its own colours, scaled into a fixed box.
QLabel* makePicture(const QString& path, const QSize& size, const char* className = nullptr)
{
    auto* label = new QLabel;
    if (className)
        label->setProperty("class", className);
    label->setFixedSize(size);
    label->setScaledContents(true);
    setSvgIconPath(label, path);
    return label;
}

// The picture of a store link with its platform mark and name beneath.
QVBoxLayout* makeStoreColumn(QLabel* image, const QString& markPath, const QString& name,
                             int markSpacing)
{
    auto* column = new QVBoxLayout;
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(image, 0, Qt::AlignHCenter);
    auto* caption = new QHBoxLayout;
    caption->setSpacing(markSpacing);
    caption->addStretch();
    caption->addWidget(makePicture(markPath, QSize(28, 28)));
    caption->addWidget(makeLabel("v2-sys-card-label", name));
    caption->addStretch();
    column->addLayout(caption);
    return column;
}

QString wifiJoinText(const ConnectAppVM& vm)
{
    return QStringLiteral("WIFI:S:") + QString::fromStdString(vm.ap_ssid)
           + QStringLiteral(";T:WPA;P:") + QString::fromStdString(vm.ap_psk)
           + QStringLiteral(";H:false;;");
}

} // namespace

QString appConnectPairText(const UITextManager* textManager, int index)
{
    return textManager ? textManager->getTextWithFallback(QStringLiteral("app_connect.Pair"), index)
                       : QString();
}

QString appConnectStatusText(const UITextManager* textManager, int index)
{
    return textManager ? textManager->getTextWithFallback(
               QStringLiteral("app_connect.connect_status"), index)
                       : QString();
}

ConnectAppWidget::ConnectAppWidget(UITextManager* textManager, QWidget* parent)
    : BasicPage(textManager, parent)
{
    createComponents();
}

void ConnectAppWidget::createComponents()
{
    qr_panel = createQrPanel();
    status_panel = createStatusPanel();
    status_panel->hide();
}

QWidget* ConnectAppWidget::createQrPanel()
{
    auto* panel = new QWidget(this);
    panel->setProperty("class", "widget1");
    panel->setGeometry(rect());

    android_image = new QLabel;
    android_image->setProperty("class", "v2-p2-type");
    android_image->setFixedSize(92, 92);
    android_image->setScaledContents(true);
    onLanguageChanged();
    auto* androidColumn = makeStoreColumn(
        android_image, QStringLiteral(":/icons/QR/android_icon.svg"), QStringLiteral("Android"), 4);

    auto* appleImage =
        makePicture(QStringLiteral(":/icons/QR/apple.jpg"), QSize(92, 92), "v2-p2-type");
    auto* iosColumn =
        makeStoreColumn(appleImage, QStringLiteral(":/icons/QR/ios.svg"), QStringLiteral("IOS"), 0);

    auto* middleColumn = new QVBoxLayout;
    middleColumn->setSpacing(6);
    middleColumn->addStretch();
    middleColumn->addWidget(
        makePicture(QStringLiteral(":/icons/QR/harvelin.svg"), QSize(100, 30), "status-net-ele"), 0,
        Qt::AlignHCenter);
    middleColumn->addWidget(makePicture(QStringLiteral(":/icons/QR/arrows.svg"), QSize(100, 32)), 0,
                            Qt::AlignHCenter);
    middleColumn->addWidget(makeLabel("v2-sys-card-label"), 0, Qt::AlignHCenter);
    middleColumn->addStretch();

    auto* frame = new QWidget;
    frame->setAttribute(Qt::WA_StyledBackground);
    frame->setProperty("class", "widget3");
    frame->setFixedSize(92, 92);
    qrcode = new QrcodeWidget(frame);
    qrcode->setGeometry(3, 3, 86, 86);
    qrcode->setForegroundColor(Qt::black);
    qrcode->setBackgroundColor(QColor(0, 0, 0, 0));
    pair_label = makeLabel("v2-sys-card-label", QStringLiteral("Pair Device"));
    pair_label->setObjectName(QStringLiteral("connectPairLabel"));
    pair_label->setAlignment(Qt::AlignCenter);
    auto* qrColumn = new QVBoxLayout;
    qrColumn->setSpacing(6);
    qrColumn->addWidget(frame, 0, Qt::AlignHCenter);
    qrColumn->addWidget(pair_label, 0, Qt::AlignHCenter);

    auto* row = new QHBoxLayout;
    row->addLayout(androidColumn);
    row->addStretch();
    row->addLayout(iosColumn);
    row->addStretch();
    row->addLayout(middleColumn);
    row->addStretch();
    row->addLayout(qrColumn);

    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(50, 0, 40, 0);
    layout->addStretch();
    layout->addLayout(row);
    layout->addStretch();
    return panel;
}

QWidget* ConnectAppWidget::createStatusPanel()
{
    auto* panel = new QWidget(this);
    panel->setProperty("class", "widget1");
    panel->setGeometry(rect());

    auto* divider = makeLabel("v2-p1-center-divider");
    divider->setFixedSize(1, 100);

    title_label = makeLabel("title");
    title_label->setObjectName(QStringLiteral("connectStatusTitle"));
    title_label->setAlignment(Qt::AlignCenter);
    body_label = makeLabel("v2-sys-card-label");
    body_label->setObjectName(QStringLiteral("connectStatusBody"));
    body_label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    body_label->setWordWrap(true);
    auto* texts = new QVBoxLayout;
    texts->addStretch();
    texts->addWidget(title_label);
    texts->addWidget(body_label);
    texts->addStretch();

    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(40, 0, 40, 0);
    row->setSpacing(20);
    row->addWidget(
        makePicture(QStringLiteral(":/icons/QR/harvelin.svg"), QSize(180, 45), "ctr-btn-label"), 1,
        Qt::AlignCenter);
    row->addWidget(divider, 0, Qt::AlignVCenter);
    row->addLayout(texts, 3);
    return panel;
}

int ConnectAppWidget::onSwipeLeft(int)
{
    resetConnectStatusOnExit();
    return -1;
}

int ConnectAppWidget::onSwipeRight(int)
{
    resetConnectStatusOnExit();
    return -1;
}

int ConnectAppWidget::onSwipeDown(int)
{
    resetConnectStatusOnExit();
    return -1;
}

int ConnectAppWidget::onSwipeUp(int)
{
    resetConnectStatusOnExit();
    return PAGE_STATUS_1;
}

int ConnectAppWidget::onEdgeSwipeToCenter(int)
{
    resetConnectStatusOnExit();
    return PAGE_STATUS_1;
}

void ConnectAppWidget::resetConnectStatusOnExit()
{
    emit resetConnectStatus();
    app_connect_hint(0);
}

void ConnectAppWidget::onLanguageChanged()
{
    const bool chinese = text_manager && text_manager->getCurrentLanguage() == 0;
    const QString path = chinese ? QStringLiteral(":/icons/QR/android_ch.jpg")
                                 : QStringLiteral(":/icons/QR/android.jpg");
    android_image->setPixmap(QPixmap(path));
    android_image->setProperty("imagePath", path);
}

void ConnectAppWidget::updateFromVm(const ConnectAppVM& vm)
{
    if (takeDirty())
        onLanguageChanged();
    if (vm.ap_on) {
        qrcode->generateString(wifiJoinText(vm));
        pair_label->setText(text_manager ? text_manager->getTextWithFallback(
                                QStringLiteral("network_settings.pair Device"))
                                         : QString());
    } else {
        // With the access point off there is no network to join; the code then
        // carries the sentence that says so, which a phone shows as text.
        const QString closed =
            text_manager
                ? text_manager->getTextWithFallback(QStringLiteral("network_settings.ap_closed"))
                : QString();
        pair_label->setText(closed);
        qrcode->generateString(closed);
    }
    updateStatusText(vm);
}

void ConnectAppWidget::app_connect_hint(int status)
{
    ConnectAppVM vm;
    vm.connect_status = status;
    updateStatusText(vm);
}

void ConnectAppWidget::updateStatusText(const ConnectAppVM& vm)
{
    int status = vm.connect_status;
    const bool wifiUp = vm.wifi_status == kWifiConnected;
    int titleIndex = 0;
    int bodyIndex = 0;
    QString bodySuffix;

    if (status == kPhoneConnected) {
        bodyIndex = 0;
    } else if (status == kJoiningWifi && !wifiUp) {
        bodyIndex = 1;
    } else if (status == kJoiningWifi || status == kWifiJoined) {
        bodyIndex = 2;
        if (wifiUp && !vm.ip.empty()) {
            bodySuffix = QStringLiteral("\nWIFI:") + QString::fromStdString(vm.ip);
            status = kWifiJoined;
        }
    } else if (status == kSetupDone) {
        titleIndex = 1;
        bodyIndex = 3;
        if (!first_use_signal_sent) {
            first_use_signal_sent = true;
            emit appFirstUseCompletedRequested();
        }
    } else {
        status_change(QrPanel);
        last_status = status;
        return;
    }

    status_change(StatusPanel);
    title_label->setText(appConnectPairText(text_manager, titleIndex));
    body_label->setText(appConnectStatusText(text_manager, bodyIndex) + bodySuffix);
    last_status = status;
}

void ConnectAppWidget::status_change(int panel)
{
    if (panel == current_panel)
        return;
    current_panel = panel;
    qr_panel->setVisible(panel == QrPanel);
    status_panel->setVisible(panel == StatusPanel);
}
