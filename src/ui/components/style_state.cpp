#include "ui/components/style_state.h"

#include <QStyle>
#include <QWidget>
#include <QVariant>

void repolish(QWidget* widget)
{
    if (!widget)
        return;
    widget->style()->unpolish(widget);
    widget->style()->polish(widget);
}

void setStyleProperty(QWidget* widget, const char* name, const QString& value)
{
    if (!widget)
        return;
    widget->setProperty(name, value);
    repolish(widget);
}
