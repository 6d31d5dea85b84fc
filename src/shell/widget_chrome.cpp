// What surrounds the page: the status bar with its breadcrumb, the page dots
// and the arrows of the settings groups.
#include "shell/widget.h"

#include "control/modal_flows.h"
#include "model/app_manager.h"
#include "pages/status_bar_widget.h"
#include "shell/page_groups.h"
#include "ui/components/nav_dots_component.h"
#include "ui/components/submenu_arrows_component.h"
#include "ui/text_manager.h"

#include <QStackedWidget>

namespace {

QString joinContext(const QString& base, const QString& title)
{
    if (base.isEmpty())
        return title;
    if (title.isEmpty())
        return base;
    return base + kContextSeparator + title;
}

} // namespace

void Widget::initNavDots()
{
    nav_dots = new NavDotsComponent(chrome_container);
    nav_dots->updateState(NavDotsState());
}

void Widget::initSubmenuArrowButtons()
{
    submenu_arrows = new SubmenuArrowsComponent(chrome_container);
    connect(submenu_arrows, &SubmenuArrowsComponent::leftClicked, this,
            &Widget::onSubmenuLeftArrowClicked);
    connect(submenu_arrows, &SubmenuArrowsComponent::rightClicked, this,
            &Widget::onSubmenuRightArrowClicked);
}

void Widget::onSubmenuLeftArrowClicked()
{
    const int page = get_current_pageid();
    if (!isSubMenuPage(page))
        return;
    if (getPageIndexInGroup(page) == 0) {
        const int menu = getSettingsMenuReturnPage(page);
        if (menu >= 0)
            goto_page(menu);
        return;
    }
    swipe_right();
}

void Widget::onSubmenuRightArrowClicked()
{
    const int page = get_current_pageid();
    if (!isSubMenuPage(page))
        return;
    if (getPageIndexInGroup(page) < getPageGroupCount(page) - 1) {
        swipe_left();
        return;
    }
    const int menu = getSettingsMenuReturnPage(page);
    if (menu >= 0)
        goto_page(menu);
}

void Widget::updateDisplayedPageChrome(int page)
{
    if (inStandby()) {
        if (nav_dots)
            updateNavDots(NavDotsState());
        updateSubmenuArrowButtons(-1);
        return;
    }
    const bool bar_was_hidden = status_bar && !status_bar->isVisible();
    if (bar_was_hidden) {
        status_bar->show();
        status_bar->raise();
    }
    if (!splash_visible) {
        if (!chrome_container->isVisible()) {
            chrome_container->show();
            chrome_container->raise();
        }
        if (!page_stack->isVisible())
            page_stack->show();
    }
    if (isModalPage(page)) {
        updateNavDots(NavDotsState());
        updateSubmenuArrowButtons(-1);
        return;
    }
    updateNavDots(buildNavDotsState(page));
    updateSubmenuArrowButtons(page);
}

NavDotsState Widget::buildNavDotsState(int page) const
{
    NavDotsState state;
    state.pageid = page;
    state.count = getPageGroupCount(page);
    state.current = getPageIndexInGroup(page);
    state.visible = isContentPage(page) && state.count >= 2 && !modal_active && !inStandby();
    return state;
}

void Widget::updateNavDots(const NavDotsState& state)
{
    if (nav_dots)
        nav_dots->updateState(state);
}

void Widget::updateSubmenuArrowButtons(int page)
{
    if (!submenu_arrows)
        return;
    if (!shouldShowSubmenuArrowButtons(page)) {
        submenu_arrows->hideArrows();
        return;
    }
    const int index = getPageIndexInGroup(page);
    const int count = getPageGroupCount(page);
    submenu_arrows->updateState(true, index < 1, !(index < count - 1));
}

QString Widget::getPageContextText(int page) const
{
    if (!text_mgr)
        return QString();
    QString text = QLatin1String("");
    for (const QString& key : pageContextKeys(page))
        text = joinContext(text, text_mgr->getTextWithFallback(key));
    return text;
}

QString Widget::getModalPageContextText(int page) const
{
    if (!text_mgr)
        return QString();
    int selector = -1;
    if (page == PAGE_GENERAL_EDIT)
        selector = modal_flows->editVm().editType;
    else if (page == PAGE_GENERAL_SLIDER)
        selector = modal_flows->sliderVm().sliderType;
    else if (page == PAGE_GENERAL_CONFIRM)
        selector = modal_flows->confirmVm().actionType;
    const QString key = modalTitleKey(page, selector);
    const QString title = key.isEmpty() ? QString() : text_mgr->getTextWithFallback(key);
    return joinContext(getPageContextText(current_pageid), title);
}

StatusBarVM Widget::buildStatusBarVmForPage(int page) const
{
    StatusBarVM vm;
    if (appMgr)
        vm = appMgr->getStatusBarVm();
    fillStatusBarPageFields(vm, page);
    return vm;
}

void Widget::fillStatusBarPageFields(StatusBarVM& vm, int page) const
{
    vm.pageid = page;
    vm.context_text = isModalPage(page) ? getModalPageContextText(page) : getPageContextText(page);
    vm.show_record_status = page == PAGE_ENCODER_SHORTCUT_1;
    vm.is_modal = isModalPage(page);
    vm.is_status_page = isStatusPage(page);
    vm.hide_chrome = false;
}
