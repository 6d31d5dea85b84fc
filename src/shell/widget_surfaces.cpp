#include "shell/widget_surfaces.h"

#include "pages/dynamic_screensaver_widget.h"
#include "pages/standby_page_widget.h"
#include "pages/status_bar_widget.h"
#include "pages/upgrade_widget.h"
#include "shell/widget.h"

namespace {

void showAndRaise(QWidget* widget)
{
    if (widget && !widget->isVisible()) {
        widget->show();
        widget->raise();
    }
}

} // namespace

int WidgetSurfaces::currentPageId() const
{
    return w.get_current_pageid();
}

void WidgetSurfaces::gotoPage(int page)
{
    w.goto_page(page);
}

bool WidgetSurfaces::isSplashVisible() const
{
    return w.splash_visible;
}

bool WidgetSurfaces::hasUpgradeWidget() const
{
    return w.upgrade_page != nullptr;
}

bool WidgetSurfaces::isUpgradeVisible() const
{
    return w.upgrade_page && w.upgrade_page->isVisible();
}

void WidgetSurfaces::showUpgradePage(int progress)
{
    w.upgrade_page->updateFromVm(progress);
    w.upgrade_page->show();
    w.upgrade_page->raise();
}

void WidgetSurfaces::hideUpgradePage()
{
    if (w.upgrade_page)
        w.upgrade_page->hide();
}

bool WidgetSurfaces::hasScreensaver() const
{
    return w.screensaver != nullptr;
}

bool WidgetSurfaces::isScreensaverVisible() const
{
    return w.screensaver && w.screensaver->isVisible();
}

void WidgetSurfaces::startScreensaver(const DynamicScreensaverVM& vm)
{
    w.screensaver->updateFromVm(vm);
    w.screensaver->start();
}

void WidgetSurfaces::stopScreensaver()
{
    if (w.screensaver)
        w.screensaver->stop();
}

void WidgetSurfaces::raiseScreensaver()
{
    if (w.screensaver)
        w.screensaver->raise();
}

void WidgetSurfaces::hideGestureGuideOverlay()
{
    w.hideGestureGuideOverlay();
}

void WidgetSurfaces::clearModalState()
{
    w.clearModalState();
}

void WidgetSurfaces::syncPageContextToAppMgr()
{
    w.syncPageContextToAppMgr();
}

bool WidgetSurfaces::isStandbyWidgetVisible() const
{
    return w.standby_page && w.standby_page->isVisible();
}

void WidgetSurfaces::showStandbyPage(const StandbyPageVM& vm)
{
    emit w.requestStandbyPageUpdate(vm);
    if (w.standby_page) {
        w.standby_page->show();
        w.standby_page->raise();
    }
    w.chrome_container->hide();
    if (w.status_bar)
        w.status_bar->hide();
    w.updateNavDots(NavDotsState());
}

void WidgetSurfaces::hideStandbyPage()
{
    if (w.standby_page)
        w.standby_page->hide();
    showAndRaise(w.chrome_container);
    showAndRaise(w.status_bar);
}
