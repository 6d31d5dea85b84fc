#pragma once

#include "pages/basic_page.h"

// The gestures that lead out of the status group, the same on all three
// status pages.
class StatusPageBase : public BasicPage {
    Q_OBJECT

public:
    int onEdgeSwipeToCenter(int workmode) override;
    int onSwipeUp(int workmode) override;
    int onSwipeDown(int workmode) override;
    int onLongPress(int workmode) override;

protected:
    using BasicPage::BasicPage;
};
