// Locking and unlocking the touch screen. The lock lives in the backend; the
// window keeps a copy (taken at every goto_page) and changes it right after
// the backend accepted a change, with the usual operation card.
#include "shell/widget.h"

#include "model/app_manager.h"

bool Widget::changeLcdLock(bool locked)
{
    showOperationLoading();
    // The brightness is written back as it stands; only the lock changes.
    const int brightness = appMgr->buildCameraSettingsPageVm(nullptr).lcd_bright;
    const int rc = appMgr->setLcdInfo(locked ? 1 : 0, brightness);
    if (rc < 0) {
        showOperationResult(rc);
        return false;
    }
    setLcdTouchLocked(locked);
    lcd_lock_awaited = locked ? 1 : 0;
    lcd_lock_awaited_since.start();
    return true;
}

bool Widget::lockStateFromModel(bool modelLocked)
{
    if (lcd_lock_awaited < 0)
        return modelLocked;
    if (modelLocked == (lcd_lock_awaited == 1)
        || lcd_lock_awaited_since.elapsed() > kLockConfirmGraceMs) {
        lcd_lock_awaited = -1;
        return modelLocked;
    }
    return lcd_lock_awaited == 1;
}

void Widget::unlockLcdByLongPress()
{
    if (!appMgr)
        return;
    if (!changeLcdLock(false))
        return;
    first_use_connect_bypass = false;
    showOperationResult(kStatusUnlocked);
}

void Widget::onLcdLockClicked(bool enabled)
{
    if (!appMgr)
        return;
    const bool lock = !enabled;
    if (!changeLcdLock(lock))
        return;
    if (lock && get_current_pageid() == PAGE_CAMERA_SETTINGS_3)
        goto_page(PAGE_STATUS_1);
    showOperationResult(lock ? kStatusLocked : kStatusUnlocked);
}

void Widget::onLcdLockKeyPressed()
{
    if (!appMgr)
        return;
    const bool lock = !appMgr->buildCameraSettingsPageVm(nullptr).lcd_lock_on;
    if (!changeLcdLock(lock))
        return;
    if (lock)
        goto_page(PAGE_STATUS_1);
    showOperationResult(lock ? kStatusLocked : kStatusUnlocked);
}
