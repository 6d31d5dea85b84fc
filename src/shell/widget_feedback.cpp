// The operation card over the page: "working" while a backend call runs, then
// the text of its status. Whatever shows the card goes through here.
#include "shell/widget.h"

#include "ui/operation_overlay_component.h"
#include "ui/text_manager.h"

#include <QCoreApplication>

void Widget::initOperationOverlay()
{
    operation_overlay = new OperationOverlayComponent(chrome_container);
    operation_overlay->hide();
    connect(operation_overlay, &OperationOverlayComponent::autoHideTimeout, this,
            &Widget::onOperationHideTimeout);
}

void Widget::showOperationLoading()
{
    if (!operation_overlay || !text_mgr)
        return;
    overlay_min_display = false;
    operation_overlay->showLoading(text_mgr->getTextWithFallback("point_info.loading"));
    // Paint the card before the blocking call that follows starts.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents
                                    | QEventLoop::ExcludeSocketNotifiers);
}

void Widget::showOperationResult(int status)
{
    overlay_min_display = false;
    if (!operation_overlay)
        return;
    if (!text_mgr) {
        operation_overlay->hideOverlay();
        return;
    }
    // After a lock change the page's own guide is due once the card is gone.
    if (status == kStatusLocked || status == kStatusUnlocked)
        guide_after_overlay = true;
    operation_overlay->showResultCode(
        status, [this](const QString& key) { return text_mgr->getTextWithFallback(key); },
        kResultDisplayMs);
}

void Widget::showOperationResult(bool ok)
{
    showOperationResult(ok ? 0 : -3);
}

void Widget::showOperationResult(bool ok, const QString& text)
{
    overlay_min_display = false;
    if (operation_overlay)
        operation_overlay->showResult(ok, text, kResultDisplayMs);
}

void Widget::showOperationWarning(const QString& text)
{
    overlay_min_display = false;
    if (operation_overlay)
        operation_overlay->showWarning(text, kResultDisplayMs);
}

void Widget::hideOperationOverlay()
{
    overlay_min_display = false;
    if (operation_overlay)
        operation_overlay->hideOverlay();
    if (guide_after_overlay) {
        guide_after_overlay = false;
        showGestureGuideForPage(get_current_pageid(), true);
    }
}

void Widget::onOperationHideTimeout()
{
    hideOperationOverlay();
}

bool Widget::isOperationOverlayActive() const
{
    return operation_overlay && operation_overlay->isActive();
}

bool Widget::isOperationInProgress() const
{
    return operation_overlay && operation_overlay->isInProgress();
}

bool Widget::consumeTouchBeginForOperationOverlay()
{
    if (!isOperationOverlayActive())
        return false;
    const bool held =
        operation_overlay->isInProgress()
        || (overlay_min_display && overlay_min_display_ms > 0 && overlay_min_display_timer.isValid()
            && overlay_min_display_timer.elapsed() < overlay_min_display_ms);
    // A result is dismissed by the touch; loading (or a card still inside its
    // minimum display time) stays. Either way the touch is used up.
    if (!held)
        hideOperationOverlay();
    consumeCurrentTouchSequence();
    return true;
}
