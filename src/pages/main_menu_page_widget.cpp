#include "pages/main_menu_page_widget.h"

#include "pages/page_building.h"
#include "pages/page_ids.h"
#include "ui/svg_icon_label.h"

#include <QLabel>
#include <QPushButton>
#include <QVariant>

int MainMenuPageBase::onEdgeSwipeToCenter(int) { return PAGE_STATUS_1; }
int MainMenuPageBase::onSwipeDown(int) { return PAGE_STATUS_1; }

void MainMenuPageBase::createItems(const QString& first, const QString& second,
                                   const QString& third)
{
    items[0] = MainMenuButtonGroupComponent::createButton(this, first);
    items[1] = MainMenuButtonGroupComponent::createButton(this, second);
    items[2] = MainMenuButtonGroupComponent::createButton(this, third);
}

void MainMenuPageBase::layoutComponents()
{
    MainMenuButtonGroupComponent::layoutButtons(this, {items[0], items[1], items[2]});
}

void MainMenuPageBase::setItemText(int index, const QString& key)
{
    setKeyText(items[index].label, text_manager, key);
}

MainMenuPage1Widget::MainMenuPage1Widget(UITextManager* textManager, QWidget* parent)
    : MainMenuPageBase(textManager, parent)
{
    createComponents();
    layoutComponents();
}

void MainMenuPage1Widget::createComponents()
{
    createItems(QStringLiteral(":/icons/mainmenu/video.svg"),
                QStringLiteral(":/icons/mainmenu/audio.svg"),
                QStringLiteral(":/icons/mainmenu/stream.svg"));
    connect(items[0].button, &QPushButton::clicked, this, &MainMenuPage1Widget::onVideoClicked);
    connect(items[1].button, &QPushButton::clicked, this, &MainMenuPage1Widget::onAudioClicked);
    connect(items[2].button, &QPushButton::clicked, this, &MainMenuPage1Widget::onStreamingClicked);
    onLanguageChanged();
}

int MainMenuPage1Widget::onSwipeLeft(int) { return PAGE_MAIN_MENU_2; }

void MainMenuPage1Widget::updateFromVm(int workMode)
{
    work_mode = workMode;
    if (takeDirty())
        onLanguageChanged();
    updateStreamingItem();
}

void MainMenuPage1Widget::onLanguageChanged()
{
    setItemText(0, QStringLiteral("mainmenu.video"));
    setItemText(1, QStringLiteral("mainmenu.audio"));
    updateStreamingItem();
}

void MainMenuPage1Widget::updateStreamingItem()
{
    const bool decode = work_mode != 0;
    const MainMenuButtonItem& item = items[2];
    setSvgIconPath(item.icon, decode ? QStringLiteral(":/icons/mainmenu/decode.svg")
                                     : QStringLiteral(":/icons/mainmenu/stream.svg"));
    item.icon->setProperty("icon-state", "normal");
    setItemText(2, decode ? QStringLiteral("mainmenu.decoding") : QStringLiteral("mainmenu.streaming"));
    refreshStyledIcon(nullptr, item.icon, nullptr);
}

void MainMenuPage1Widget::onVideoClicked() { emit menuItemClicked(QStringLiteral("VIDEO")); }
void MainMenuPage1Widget::onAudioClicked() { emit menuItemClicked(QStringLiteral("AUDIO")); }

void MainMenuPage1Widget::onStreamingClicked()
{
    emit menuItemClicked(work_mode != 0 ? QStringLiteral("DECODING") : QStringLiteral("STREAMING"));
}

MainMenuPage2Widget::MainMenuPage2Widget(UITextManager* textManager, QWidget* parent)
    : MainMenuPageBase(textManager, parent)
{
    createComponents();
    layoutComponents();
}

void MainMenuPage2Widget::createComponents()
{
    createItems(QStringLiteral(":/icons/mainmenu/ptz.svg"),
                QStringLiteral(":/icons/mainmenu/network.svg"),
                QStringLiteral(":/icons/mainmenu/system.svg"));
    connect(items[0].button, &QPushButton::clicked, this, &MainMenuPage2Widget::onCameraClicked);
    connect(items[1].button, &QPushButton::clicked, this, &MainMenuPage2Widget::onNetworkClicked);
    connect(items[2].button, &QPushButton::clicked, this, &MainMenuPage2Widget::onSystemClicked);
    onLanguageChanged();
}

int MainMenuPage2Widget::onSwipeRight(int) { return PAGE_MAIN_MENU_1; }

void MainMenuPage2Widget::updateFromVm(int)
{
    if (takeDirty())
        onLanguageChanged();
}

void MainMenuPage2Widget::onLanguageChanged()
{
    setItemText(0, QStringLiteral("mainmenu.ptz"));
    setItemText(1, QStringLiteral("mainmenu.network"));
    setItemText(2, QStringLiteral("mainmenu.system"));
}

// The camera menu's button reads "mainmenu.ptz".
void MainMenuPage2Widget::onCameraClicked() { emit menuItemClicked(QStringLiteral("CAMERA")); }
void MainMenuPage2Widget::onNetworkClicked() { emit menuItemClicked(QStringLiteral("NETWORK")); }
void MainMenuPage2Widget::onSystemClicked() { emit menuItemClicked(QStringLiteral("SYSTEM")); }
