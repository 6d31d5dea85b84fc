#include "control/operation_feedback.h"

#include <QCoreApplication>

namespace {

// Statuses of the LCD lock and unlock; their cards lead to the page's guide.
bool isLockStatus(int status)
{
    return status == 4 || status == 5;
}

} // namespace

OperationFeedback::OperationFeedback(OperationOverlayComponent* overlay,
                                     OperationTranslate translate, ControlTimeSource& time,
                                     QObject* parent)
    : QObject(parent), translate_text(std::move(translate)), overlay_min_display_timer(time)
{
    setOverlay(overlay);
}

void OperationFeedback::setOverlay(OperationOverlayComponent* overlay)
{
    if (operation_overlay)
        disconnect(operation_overlay, nullptr, this, nullptr);
    operation_overlay = overlay;
    if (operation_overlay)
        connect(operation_overlay, &OperationOverlayComponent::autoHideTimeout, this,
                &OperationFeedback::onOperationHideTimeout);
}

QString OperationFeedback::text(const QString& key) const
{
    return translate_text ? translate_text(key) : key;
}

void OperationFeedback::showOperationLoading()
{
    if (!operation_overlay || !translate_text)
        return;
    clearMinimumDisplay();
    operation_overlay->showLoading(translate_text(QStringLiteral("point_info.loading")));
    // Paint the card now: the caller is about to block the GUI thread.
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents
                                    | QEventLoop::ExcludeSocketNotifiers);
}

void OperationFeedback::showOperationResult(int status)
{
    clearMinimumDisplay();
    if (!operation_overlay)
        return;
    if (!translate_text) {
        operation_overlay->hideOverlay();
        return;
    }
    if (isLockStatus(status))
        guide_after_overlay = true;
    operation_overlay->showResultCode(status, translate_text,
                                      OperationOverlayComponent::kDefaultResultMs);
}

void OperationFeedback::showOperationResult(bool ok)
{
    showOperationResult(ok ? 0 : -3);
}

void OperationFeedback::showOperationResult(bool ok, const QString& message)
{
    clearMinimumDisplay();
    if (operation_overlay)
        operation_overlay->showResult(ok, message, OperationOverlayComponent::kDefaultResultMs);
}

void OperationFeedback::showOperationWarning(const QString& message)
{
    clearMinimumDisplay();
    if (operation_overlay)
        operation_overlay->showWarning(message, OperationOverlayComponent::kDefaultResultMs);
}

void OperationFeedback::hideOperationOverlay()
{
    clearMinimumDisplay();
    if (operation_overlay)
        operation_overlay->hideOverlay();
    if (guide_after_overlay) {
        guide_after_overlay = false;
        emit guideAfterOverlayDue();
    }
}

bool OperationFeedback::isOperationOverlayActive() const
{
    return operation_overlay && operation_overlay->isActive();
}

bool OperationFeedback::isOperationInProgress() const
{
    return operation_overlay && operation_overlay->isInProgress();
}

void OperationFeedback::updateOperationOverlayLayout(const QString& message)
{
    if (operation_overlay)
        operation_overlay->updateLayoutForText(message);
}

void OperationFeedback::armMinimumDisplay(int ms)
{
    overlay_min_display = true;
    overlay_min_display_ms = ms;
    overlay_min_display_timer.restart();
}

void OperationFeedback::clearMinimumDisplay()
{
    overlay_min_display = false;
    overlay_min_display_ms = 0;
    overlay_min_display_timer.invalidate();
}

bool OperationFeedback::isMinimumDisplayHolding() const
{
    return overlay_min_display && overlay_min_display_ms > 0 && overlay_min_display_timer.isValid()
           && overlay_min_display_timer.elapsed() < overlay_min_display_ms;
}

bool OperationFeedback::consumeTouchBeginForOperationOverlay()
{
    if (!isOperationOverlayActive())
        return false;
    if (isOperationInProgress() || isMinimumDisplayHolding())
        return true;
    hideOperationOverlay();
    return true;
}
