#pragma once
// Finds the texts on a screen that don't fit the label (or button) showing
// them, measured with the widget's own font after the style sheet is applied.
// A single-line text must fit the width; a word-wrapped or multi-line text
// must also fit the height. The room is the label's contents rectangle as far
// as its parents leave it visible; rows of a scroll area count whole, since
// they scroll into view.
#include <QSet>
#include <QString>
#include <QVector>

#include <functional>

class QWidget;

namespace pagetest {

struct TextOverflow {
    QString widget; // type, style class and object name
    QString text;
    bool vertical = false;
    int needed = 0;    // pixels of text
    int available = 0; // pixels of room
    QString excuse;    // why it doesn't count; empty when it does
};

struct TextFitRules {
    // The texts of the current language. One of them is never taken for a
    // text that a page shortened on purpose, even when it ends in an ellipsis.
    QSet<QString> translations;
    // Why a text that isn't a translation (a number, a unit, a composed
    // line) may be cut in `widget`, or an empty string when it may not.
    std::function<QString(const QWidget* widget, const QString& text)> excuse;
};

// Every text under `root` that doesn't fit, excused ones included.
QVector<TextOverflow> findTextOverflows(const QWidget* root, const TextFitRules& rules);

QString describe(const TextOverflow& overflow);

} // namespace pagetest
