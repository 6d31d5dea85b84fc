#pragma once

#include "pages/basic_page.h"
#include "ui/components/main_menu_button_group_component.h"

// What both main menu pages share: three big buttons and the way home.
class MainMenuPageBase : public BasicPage {
    Q_OBJECT

public:
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeDown(int workmode) override;

    const MainMenuButtonItem& item(int index) const { return items[index]; }

signals:
    // `Widget` maps the key to the page of that menu.
    void menuItemClicked(const QString& menuKey);

protected:
    using BasicPage::BasicPage;

    void createItems(const QString& first, const QString& second, const QString& third);
    void layoutComponents();
    void setItemText(int index, const QString& key);

    MainMenuButtonItem items[3];
};

// VIDEO, AUDIO, and STREAMING or DECODING by work mode.
class MainMenuPage1Widget : public MainMenuPageBase {
    Q_OBJECT

public:
    MainMenuPage1Widget(UITextManager* textManager, QWidget* parent);

    int onSwipeLeft(int workmode) override;

public slots:
    void updateFromVm(int workMode);
    void onLanguageChanged();
    void onVideoClicked();
    void onAudioClicked();
    void onStreamingClicked();

private:
    void createComponents();
    void updateStreamingItem();

    int work_mode = 0;
};

// CAMERA, NETWORK, SYSTEM.
class MainMenuPage2Widget : public MainMenuPageBase {
    Q_OBJECT

public:
    MainMenuPage2Widget(UITextManager* textManager, QWidget* parent);

    int onSwipeRight(int workmode) override;

public slots:
    void updateFromVm(int workMode);
    void onLanguageChanged();
    void onCameraClicked();
    void onNetworkClicked();
    void onSystemClicked();

private:
    void createComponents();
};
