#pragma once

#include "ui/text_manager.h"

#include <QLabel>
#include <QList>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <algorithm>

namespace pagetest {

constexpr int kChinese = 0;
constexpr int kEnglish = 1;

// A text manager on the project's language file, one per language for the
// whole run; also makes the ":/" resources available.
UITextManager* texts(int language = kEnglish);

// The text of `key` in English, straight from the language file.
QString english(const QString& key);

// The children of `root` of type T whose `class` property is `className`,
// ordered left to right, then top to bottom.
template <typename T>
QList<T*> byClass(const QWidget* root, const QString& className)
{
    QList<T*> found;
    for (T* child : root->findChildren<T*>())
        if (child->property("class").toString() == className)
            found.append(child);
    std::sort(found.begin(), found.end(), [](const T* a, const T* b) {
        return a->x() != b->x() ? a->x() < b->x() : a->y() < b->y();
    });
    return found;
}

// The only child of type T with `class` `className`, or null.
template <typename T = QLabel>
T* oneByClass(const QWidget* root, const QString& className)
{
    const QList<T*> found = byClass<T>(root, className);
    return found.size() == 1 ? found.first() : nullptr;
}

// Whether `label` shows the pixmap of the file at `path`, as it is.
bool showsFile(const QLabel* label, const QString& path);
// The SVG path of a tinted icon label.
QString svgPathOf(const QWidget* icon);

// Applies ":/themes/<theme>.qss" to `widget`.
void applyTheme(QWidget* widget, const QString& theme);
// Renders `widget` in both themes into
// <build>/screenshots/pages/<name>_<theme>.png; returns the files written.
QStringList saveThemedScreenshots(QWidget* widget, const QString& name);

} // namespace pagetest
