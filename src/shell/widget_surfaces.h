#pragma once
// The window's pages and overlays as the idle, sleep, standby and upgrade
// controller sees them.
#include "control/shell_surfaces.h"

class Widget;

class WidgetSurfaces : public ShellSurfaces {
public:
    explicit WidgetSurfaces(Widget& window) : w(window) {}

    int currentPageId() const override;
    void gotoPage(int page) override;
    bool isSplashVisible() const override;
    bool hasUpgradeWidget() const override;
    bool isUpgradeVisible() const override;
    void showUpgradePage(int progress) override;
    void hideUpgradePage() override;
    bool hasScreensaver() const override;
    bool isScreensaverVisible() const override;
    void startScreensaver(const DynamicScreensaverVM& vm) override;
    void stopScreensaver() override;
    void raiseScreensaver() override;
    void hideGestureGuideOverlay() override;
    void clearModalState() override;
    void syncPageContextToAppMgr() override;
    bool isStandbyWidgetVisible() const override;
    void showStandbyPage(const StandbyPageVM& vm) override;
    void hideStandbyPage() override;

private:
    Widget& w;
};
