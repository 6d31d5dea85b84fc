// The window's surfaces as plain flags and logs, so that the state
// controllers can be watched without building the pages.
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
    bool hasUpgradeWidget() const override { return has_upgrade; }
    bool isUpgradeVisible() const override { return upgrade_visible; }
    void showUpgradePage(int progress) override
    {
        upgrade_visible = true;
        upgrade_progress.push_back(progress);
    }
    void hideUpgradePage() override { upgrade_visible = false; }
    bool hasScreensaver() const override { return has_screensaver; }
    bool isScreensaverVisible() const override { return screensaver_visible; }
    void startScreensaver(const DynamicScreensaverVM& vm) override
    {
        screensaver_visible = true;
        screensaver_vm = vm;
        ++screensaver_starts;
    }
    void stopScreensaver() override { screensaver_visible = false; }
    void raiseScreensaver() override { ++screensaver_raises; }
    void hideGestureGuideOverlay() override { ++guide_hides; }
    void clearModalState() override { modal_open = false; }
    void syncPageContextToAppMgr() override { ++context_syncs; }
    bool isStandbyWidgetVisible() const override { return standby_widget_visible; }
    void showStandbyPage(const StandbyPageVM& vm) override
    {
        standby_widget_visible = true;
        chrome_visible = false;
        standby_vm = vm;
        ++standby_shows;
    }
    void hideStandbyPage() override
    {
        standby_widget_visible = false;
        chrome_visible = true;
    }

    int page = 0;
    std::vector<int> gotos;
    bool splash_visible = false;
    bool has_upgrade = true;
    bool upgrade_visible = false;
    std::vector<int> upgrade_progress;
    bool has_screensaver = true;
    bool screensaver_visible = false;
    DynamicScreensaverVM screensaver_vm;
    int screensaver_starts = 0;
    int screensaver_raises = 0;
    int guide_hides = 0;
    bool modal_open = false;
    int context_syncs = 0;
    bool standby_widget_visible = false;
    bool chrome_visible = true;
    StandbyPageVM standby_vm;
    int standby_shows = 0;
};

} // namespace controltest
