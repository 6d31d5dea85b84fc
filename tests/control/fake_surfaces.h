// The window's surfaces as plain flags, so that the state controllers can be
// watched without building the pages.
#pragma once

#include "control/shell_surfaces.h"

#include <vector>

namespace controltest {

class FakeSurfaces : public ShellSurfaces {
public:
    int currentPageId() const override { return page; }
    void gotoPage(int target) override
    {
        gotos.push_back(target);
        page = target;
    }
    bool isSplashVisible() const override { return splash_visible; }
    bool hasUpgradeWidget() const override { return true; }
    bool isUpgradeVisible() const override { return !upgrade_progress.empty(); }
    void showUpgradePage(int progress) override { upgrade_progress.push_back(progress); }
    void hideUpgradePage() override { upgrade_progress.clear(); }
    bool hasScreensaver() const override { return true; }
    bool isScreensaverVisible() const override { return screensaver_visible; }
    void startScreensaver(const DynamicScreensaverVM& vm) override
    {
        screensaver_visible = true;
        screensaver_vm = vm;
    }
    void stopScreensaver() override { screensaver_visible = false; }
    void raiseScreensaver() override { ++screensaver_raises; }
    void hideGestureGuideOverlay() override { ++guide_hides; }
    void clearModalState() override { modal_open = false; }
    void syncPageContextToAppMgr() override {}
    bool isStandbyWidgetVisible() const override { return standby_shown; }
    void showStandbyPage(const StandbyPageVM&) override
    {
        standby_shown = true;
        ++standby_entries;
    }
    void hideStandbyPage() override { standby_shown = false; }

    int page = 0;
    std::vector<int> gotos;
    bool splash_visible = false;
    std::vector<int> upgrade_progress;
    bool screensaver_visible = false;
    DynamicScreensaverVM screensaver_vm;
    int screensaver_raises = 0;
    int guide_hides = 0;
    bool modal_open = false;
    bool standby_shown = false;
    int standby_entries = 0;
};

} // namespace controltest
