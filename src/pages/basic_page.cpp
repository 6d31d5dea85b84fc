#include "pages/basic_page.h"

#include <QVariant>

BasicPage::BasicPage(UITextManager* textManager, QWidget* parent)
    : QWidget(parent), text_manager(textManager)
{
    setFixedSize(640, 142);
    setProperty("class", "widget1");
    // Lets the page paint its own themed background, also outside the stack.
    setAttribute(Qt::WA_StyledBackground);
}

bool BasicPage::takeDirty()
{
    const bool wasDirty = is_dirty;
    is_dirty = false;
    return wasDirty;
}
