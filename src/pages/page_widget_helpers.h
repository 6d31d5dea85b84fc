#pragma once
// Small helpers the pages build their widgets with.
#include <QRect>
#include <QString>
#include <QVariant>
#include <QWidget>

// A new child of `parent` whose look the theme picks by its "class" property.
template <class W> W* makeStyled(QWidget* parent, const char* className)
{
    auto* widget = new W(parent);
    widget->setProperty("class", className);
    return widget;
}

template <class W> W* makeStyled(QWidget* parent, const char* className, const QRect& geometry)
{
    W* widget = makeStyled<W>(parent, className);
    widget->setGeometry(geometry);
    return widget;
}

// Shows `placeholder` while the device hasn't sent the value.
inline QString orPlaceholder(const QString& value, const char* placeholder)
{
    return value.isEmpty() ? QString::fromLatin1(placeholder) : value;
}
