#pragma once
// The window's operation feedback: what `Widget::showOperationLoading`,
// `showOperationResult` (all three forms), `showOperationWarning`,
// `hideOperationOverlay`, `onOperationHideTimeout`,
// `isOperationOverlayActive`, `isOperationInProgress`,
// `updateOperationOverlayLayout` and `consumeTouchBeginForOperationOverlay`
// do, with the minimum display gate (`overlay_min_display*`) and
// `guide_after_overlay`. The overlay and the translation may be absent; every
// call then degrades quietly.
#include "control/control_time.h"
#include "control/operation_texts.h"
#include "ui/operation_overlay_component.h"

#include <QObject>
#include <QPointer>

class OperationFeedback : public QObject {
    Q_OBJECT

public:
    OperationFeedback(OperationOverlayComponent* overlay, OperationTranslate translate,
                      ControlTimeSource& time = systemTimeSource(), QObject* parent = nullptr);

    OperationOverlayComponent* overlay() const { return operation_overlay; }
    // The window builds its card after the controllers that use it.
    void setOverlay(OperationOverlayComponent* overlay);
    // An empty function means that the panel has no text manager.
    void setTranslate(OperationTranslate translate) { translate_text = std::move(translate); }
    bool canTranslate() const { return static_cast<bool>(translate_text); }
    // The text of `key`, or the key itself without translation.
    QString text(const QString& key) const;
    QString text(const CardText& cardText) const
    {
        return resolveCardText(translate_text, cardText);
    }

    // The loading card, painted before the caller blocks on the backend.
    void showOperationLoading();
    void showOperationResult(int status);
    void showOperationResult(bool ok);
    void showOperationResult(bool ok, const QString& text);
    void showOperationWarning(const QString& text);
    void hideOperationOverlay();
    void onOperationHideTimeout() { hideOperationOverlay(); }

    bool isOperationOverlayActive() const;
    bool isOperationInProgress() const;
    void updateOperationOverlayLayout(const QString& text);

    // The minimum display gate: a card armed with it ignores touches for
    // `ms` from now, so that a result worth reading isn't dismissed by a
    // touch that was meant for the page.
    void armMinimumDisplay(int ms);
    void clearMinimumDisplay();
    bool isMinimumDisplayHolding() const;

    // Decides what a touch begin does to the card. True: the touch is used
    // up (the caller consumes the sequence), either swallowed by a loading or
    // gated card, or spent on dismissing a result. False: no card stands.
    bool consumeTouchBeginForOperationOverlay();

    bool guideAfterOverlay() const { return guide_after_overlay; }
    void setGuideAfterOverlay(bool on) { guide_after_overlay = on; }

signals:
    // The card that a lock or unlock result put up has gone: time for the
    // page's gesture guide.
    void guideAfterOverlayDue();

private:
    QPointer<OperationOverlayComponent> operation_overlay;
    OperationTranslate translate_text;
    bool guide_after_overlay = false;
    bool overlay_min_display = false;
    int overlay_min_display_ms = 0;
    ControlStopwatch overlay_min_display_timer;
};
