#pragma once
// Helpers of the page tests: texts from the project's language file, lookup
// of children by their style class, and PNGs of a page in both themes.
#include "ui/text_manager.h"

#include <QImage>
#include <QList>
#include <QString>
#include <QVariant>
#include <QWidget>

#include <memory>

namespace pagetest {

enum Language { kChinese = 0, kEnglish = 1, kPortuguese = 2, kFrench = 3, kJapanese = 4 };

std::unique_ptr<UITextManager> makeTextManager(int language = kEnglish);

template <class T> QList<T*> childrenOfClass(const QWidget* root, const char* className)
{
    QList<T*> found;
    for (T* child : root->findChildren<T*>()) {
        if (child->property("class").toString() == QLatin1String(className))
            found.append(child);
    }
    return found;
}

template <class T> T* childOfClass(const QWidget* root, const char* className)
{
    const QList<T*> found = childrenOfClass<T>(root, className);
    return found.isEmpty() ? nullptr : found.first();
}

// Shows the widget on the offscreen screen and lets pending resizes land, so
// that scroll ranges and geometry are real.
void showAndSettle(QWidget* widget);

// Writes <name>_black.png and <name>_blue.png under the build's
// screenshots/pages folder, each rendered with that theme's sheet.
void saveThemedSnapshots(QWidget* widget, const QString& name);

// The widget's own painting over a white ground, without the backgrounds of
// its parents, as a reader would see a code drawn on a white card.
QImage renderOnWhite(QWidget* widget);

// Decodes the QR code in `image` with zbarimg; empty when none is found.
QString decodeQrImage(const QImage& image);

} // namespace pagetest
