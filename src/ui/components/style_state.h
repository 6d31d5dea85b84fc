#pragma once

#include <QString>
// Callers set the dynamic properties themselves too; QVariant makes that work.
#include <QVariant>

class QWidget;

// Qt evaluates property selectors only at polish time, so a state property
// takes effect once the widget has been polished again.
void repolish(QWidget* widget);

// Sets the dynamic property `name` (e.g. "state", "class") to `value` and
// re-polishes the widget. Null widgets are ignored.
void setStyleProperty(QWidget* widget, const char* name, const QString& value);
