#pragma once
// Helpers of the page tests: texts from the project's language file, lookup
// of children by their style class, rendering, QR decoding, and PNGs of a
// page in both themes.
#include "ui/text_manager.h"

#include <QImage>
#include <QLabel>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QWidget>

#include <algorithm>
#include <memory>

namespace pagetest {

enum Language { kChinese = 0, kEnglish = 1, kPortuguese = 2, kFrench = 3, kJapanese = 4 };

// A text manager on the project's language file, one per language for the
// whole run; also makes the ":/" resources available.
UITextManager* texts(int language = kEnglish);
// A text manager of its own, for tests that switch its language.
std::unique_ptr<UITextManager> makeTextManager(int language = kEnglish);

// The text of `key` in English, straight from the language file.
QString english(const QString& key);

// The children of `root` of type T whose `class` property is `className`,
// ordered left to right, then top to bottom.
template <typename T> QList<T*> byClass(const QWidget* root, const QString& className)
{
    QList<T*> found;
    for (T* child : root->findChildren<T*>())
        if (child->property("class").toString() == className)
            found.append(child);
    std::stable_sort(found.begin(), found.end(), [](const T* a, const T* b) {
        return a->x() != b->x() ? a->x() < b->x() : a->y() < b->y();
    });
    return found;
}

// The only child of type T with `class` `className`, or null.
template <typename T = QLabel> T* oneByClass(const QWidget* root, const QString& className)
{
    const QList<T*> found = byClass<T>(root, className);
    return found.size() == 1 ? found.first() : nullptr;
}

// The leftmost (then topmost) child of type T with `class` `className`, or null.
template <typename T = QLabel> T* firstByClass(const QWidget* root, const QString& className)
{
    const QList<T*> found = byClass<T>(root, className);
    return found.isEmpty() ? nullptr : found.first();
}

// Whether `label` shows the pixmap of the file at `path`, as it is.
bool showsFile(const QLabel* label, const QString& path);
// The SVG path of a tinted icon label.
QString svgPathOf(const QWidget* icon);

// Shows the widget on the offscreen screen and lets pending resizes land, so
// that scroll ranges and geometry are real.
void showAndSettle(QWidget* widget);

// Applies ":/themes/<theme>.qss" to `widget`.
void applyTheme(QWidget* widget, const QString& theme);
// Renders `widget` in both themes into
// <build>/screenshots/pages/<name>_<theme>.png; returns the files written.
QStringList saveThemedScreenshots(QWidget* widget, const QString& name);

// The widget's own painting over a white ground, without the backgrounds of
// its parents, as a reader would see a code drawn on a white card.
QImage renderOnWhite(QWidget* widget);

// Decodes the QR code in `image` with zbarimg; empty when none is found.
QString decodeQrImage(const QImage& image);

} // namespace pagetest
