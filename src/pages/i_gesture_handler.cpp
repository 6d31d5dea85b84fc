#include "pages/i_gesture_handler.h"

int IGestureHandler::onSwipeLeft(int) { return defaultAnswer(); }
int IGestureHandler::onSwipeRight(int) { return defaultAnswer(); }
int IGestureHandler::onEdgeSwipeToCenter(int) { return defaultAnswer(); }
int IGestureHandler::onSwipeUp(int) { return defaultAnswer(); }
int IGestureHandler::onSwipeDown(int) { return defaultAnswer(); }
int IGestureHandler::onLongPress(int) { return defaultAnswer(); }
int IGestureHandler::onButtonLongPress(int, QPushButton*) { return defaultAnswer(); }
int IGestureHandler::onAutoSwitch(int) { return defaultAnswer(); }
void IGestureHandler::setDirty(bool) {}

int IGestureHandler::defaultAnswer()
{
    default_reached = true;
    return -1;
}

std::optional<int> IGestureHandler::dispatchGesture(GestureKind kind, int workmode,
                                                    QPushButton* btn)
{
    default_reached = false;
    int answer = -1;
    switch (kind) {
    case GestureKind::SwipeLeft:
        answer = onSwipeLeft(workmode);
        break;
    case GestureKind::SwipeRight:
        answer = onSwipeRight(workmode);
        break;
    case GestureKind::EdgeSwipeToCenter:
        answer = onEdgeSwipeToCenter(workmode);
        break;
    case GestureKind::SwipeUp:
        answer = onSwipeUp(workmode);
        break;
    case GestureKind::SwipeDown:
        answer = onSwipeDown(workmode);
        break;
    case GestureKind::LongPress:
        answer = onLongPress(workmode);
        break;
    case GestureKind::ButtonLongPress:
        answer = onButtonLongPress(workmode, btn);
        break;
    case GestureKind::AutoSwitch:
        answer = onAutoSwitch(workmode);
        break;
    }
    if (default_reached)
        return std::nullopt;
    return answer;
}
