#pragma once
// The parts of the window that the idle, sleep, standby and upgrade states
// show, hide and ask about. The window implements this over its pages and
// overlays; the controllers of these states never touch a widget themselves.
#include "model/view_models/status_view_models.h"

class ShellSurfaces {
public:
    virtual ~ShellSurfaces() = default;

    // get_current_pageid: the modal page while one is open, else the page.
    virtual int currentPageId() const = 0;
    virtual void gotoPage(int page) = 0;

    virtual bool isSplashVisible() const = 0;
    virtual bool hasUpgradeWidget() const = 0;
    virtual bool isUpgradeVisible() const = 0;
    // UpgradeWidget::updateFromVm(progress), then show and raise it.
    virtual void showUpgradePage(int progress) = 0;
    virtual void hideUpgradePage() = 0;

    virtual bool hasScreensaver() const = 0;
    virtual bool isScreensaverVisible() const = 0;
    // DynamicScreensaverWidget::updateFromVm(vm) and start().
    virtual void startScreensaver(const DynamicScreensaverVM& vm) = 0;
    virtual void stopScreensaver() = 0;
    virtual void raiseScreensaver() = 0;

    virtual void hideGestureGuideOverlay() = 0;
    // modal_pageid -1, modal_active false.
    virtual void clearModalState() = 0;
    virtual void syncPageContextToAppMgr() = 0;

    virtual bool isStandbyWidgetVisible() const = 0;
    // Emit requestStandbyPageUpdate(vm); show and raise the standby page;
    // hide the chrome and the status bar; push the hidden nav dots.
    virtual void showStandbyPage(const StandbyPageVM& vm) = 0;
    // Hide the standby page; show and raise the chrome and the status bar
    // where they are hidden.
    virtual void hideStandbyPage() = 0;
};
