#include "pages/status_page_base.h"

#include "pages/page_ids.h"

int StatusPageBase::onEdgeSwipeToCenter(int) { return PAGE_STATUS_1; }
int StatusPageBase::onSwipeUp(int) { return PAGE_MAIN_MENU_1; }
int StatusPageBase::onSwipeDown(int) { return PAGE_CONNECT_APP; }
int StatusPageBase::onLongPress(int) { return PAGE_SHORTCUT; }
