// The gesture guide: offered whenever a guided page comes up, limited by the
// counter record kept in the backend, and shown on request while the LCD is
// locked.
#include "shell/widget.h"

#include "control/idle_sleep_controller.h"
#include "model/app_manager.h"
#include "ui/text_manager.h"

void Widget::initGestureGuideOverlay()
{
    gesture_guide = new GestureGuideOverlayComponent(chrome_container);
    gesture_guide->hide();
    connect(gesture_guide, &GestureGuideOverlayComponent::autoHideTimeout, this,
            &Widget::hideGestureGuideOverlay);

    GestureGuideRecordAccess access;
    access.read = [this](nlohmann::json& record) {
        return appMgr ? appMgr->getGestureGuide(record) : -3;
    };
    access.write = [this](const nlohmann::json& record) {
        return appMgr ? appMgr->setGestureGuide(record) : -3;
    };
    guide_counter = std::make_unique<GestureGuideCounter>(std::move(access));
}

void Widget::showGestureGuideForPage(int page, bool autoShow)
{
    if (!gesture_guide || !text_mgr || !guide_counter)
        return;
    if (idle_sleep->gestureGuideRefused() || splash_visible || isOperationOverlayActive())
        return;
    const int type = getActiveGestureGuideTypeForPage(page, lcd_touch_locked);
    if (guide_counter->admit(type, autoShow))
        rebuildGestureGuideItems(type);
}

void Widget::rebuildGestureGuideItems(int type)
{
    const GestureGuideItems items = getGestureGuideItemsForType(type);
    if (!gesture_guide || !text_mgr || items.isEmpty())
        return;
    gesture_guide->showGuide(
        items, [this](const QString& key) { return text_mgr->getTextWithFallback(key); },
        kGuideDisplayMs);
}

GestureGuideItems Widget::getGestureGuideItemsForType(int type) const
{
    return GestureGuideOverlayComponent::guideItemsForType(type);
}

void Widget::hideGestureGuideOverlay()
{
    if (gesture_guide)
        gesture_guide->hideGuide();
}

const QSet<int>& Widget::guidesSeen() const
{
    static const QSet<int> none;
    return guide_counter ? guide_counter->guidesSeen() : none;
}
