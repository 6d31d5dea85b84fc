#pragma once

#include "pages/i_gesture_handler.h"

#include <QWidget>

class UITextManager;

// The frame of an ordinary 640 by 142 page: the text manager, and the dirty
// flag that defers a language change to the page's next update, so that
// pages nobody looks at don't redo their texts.
class BasicPage : public QWidget, public IGestureHandler {
    Q_OBJECT

public:
    void setDirty(bool dirty) override { is_dirty = dirty; }
    bool isDirty() const { return is_dirty; }

protected:
    BasicPage(UITextManager* textManager, QWidget* parent);

    // Consumes a pending language change; true when the texts must be renewed.
    bool takeDirty();

    UITextManager* text_manager;

private:
    bool is_dirty = true;
};
