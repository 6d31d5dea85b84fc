// The operation card and the slow control jobs: the window's side of
// OperationFeedback and AsyncControlRunner, plus the page refresh that a
// finished job asks for.
#include "shell/widget.h"

#include "control/async_control_runner.h"
#include "control/operation_feedback.h"
#include "model/app_manager.h"
#include "ui/operation_overlay_component.h"

void Widget::initOperationOverlay()
{
    operation_overlay = new OperationOverlayComponent(chrome_container);
    operation_overlay->hide();
    feedback->setOverlay(operation_overlay);
}

void Widget::showOperationLoading()
{
    feedback->showOperationLoading();
}

void Widget::showOperationResult(int status)
{
    feedback->showOperationResult(status);
}

void Widget::showOperationResult(bool ok)
{
    feedback->showOperationResult(ok);
}

void Widget::showOperationResult(bool ok, const QString& text)
{
    feedback->showOperationResult(ok, text);
}

void Widget::showOperationWarning(const QString& text)
{
    feedback->showOperationWarning(text);
}

void Widget::hideOperationOverlay()
{
    feedback->hideOperationOverlay();
}

void Widget::onOperationHideTimeout()
{
    feedback->onOperationHideTimeout();
}

bool Widget::isOperationOverlayActive() const
{
    return feedback->isOperationOverlayActive();
}

bool Widget::isOperationInProgress() const
{
    return feedback->isOperationInProgress();
}

void Widget::updateOperationOverlayLayout(const QString& text)
{
    feedback->updateOperationOverlayLayout(text);
}

bool Widget::consumeTouchBeginForOperationOverlay()
{
    if (!feedback->consumeTouchBeginForOperationOverlay())
        return false;
    consumeCurrentTouchSequence();
    return true;
}

bool Widget::startAsyncControlRequest(std::function<int()> job, int refreshPage,
                                      const QString& warningText)
{
    return control_runner->startAsyncControlRequest(std::move(job), refreshPage, warningText);
}

bool Widget::finishPendingPushStreamSwitchIfReady(const EncoderShortcutPageVM& vm)
{
    return control_runner->finishPendingPushStreamSwitchIfReady(vm);
}

void Widget::refreshCurrentPageAfterAsyncControl(int page)
{
    if (!appMgr || page < 0 || page != get_current_pageid())
        return;
    if (page == PAGE_ENCODER_SHORTCUT_3) {
        const EncoderShortcutPageVM vm = appMgr->buildEncoderShortcutPageVm(nullptr);
        finishPendingPushStreamSwitchIfReady(vm);
        emit requestEncoderShortcutPage3Update(vm);
        return;
    }
    // Rebuild first, so that the model's last-seen value is the fresh one and
    // the next tick doesn't deliver the same state again.
    switch (asyncRefreshModelForPage(page)) {
    case AsyncRefreshModel::EncoderShortcut:
        appMgr->buildEncoderShortcutPageVm(nullptr);
        break;
    case AsyncRefreshModel::DecoderShortcut:
        appMgr->buildDecoderShortcutPageVm(nullptr);
        break;
    case AsyncRefreshModel::Decoding:
        appMgr->buildDecodingSettingsPageVm(nullptr);
        break;
    case AsyncRefreshModel::None:
        break;
    }
    emit requestPageRefresh(page);
}
