#pragma once
// Helpers of the page tests: texts from the project's language file, lookup of
// children by style class, signals by name, rendering and QR decoding.
#include "ui/text_manager.h"

#include <QImage>
#include <QLabel>
#include <QList>
#include <QSignalSpy>
#include <QString>
#include <QVariant>
#include <QVector>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <ostream>
#include <vector>

// Lets test messages and failures show texts as texts.
inline std::ostream& operator<<(std::ostream& out, const QString& text)
{
    return out << '"' << text.toStdString() << '"';
}

namespace pagetest {

enum Language { kChinese = 0, kEnglish = 1, kPortuguese = 2, kFrench = 3, kJapanese = 4 };

// A text manager on the project's language file, one per language for the
// whole run; also makes the ":/" resources available.
UITextManager* texts(int language = kEnglish);
// A text manager of its own, for tests that switch its language.
std::unique_ptr<UITextManager> makeTextManager(int language = kEnglish);
QString english(const QString& key);

// The children of `root` of type T whose `class` is `className`, ordered left
// to right, then top to bottom; with `shownOnly`, those not hidden.
template <typename T = QLabel>
QList<T*> byClass(const QWidget* root, const QString& className, bool shownOnly = false)
{
    QList<T*> found;
    for (T* child : root->findChildren<T*>())
        if (child->property("class").toString() == className && !(shownOnly && child->isHidden()))
            found.append(child);
    std::stable_sort(found.begin(), found.end(), [](const T* a, const T* b) {
        return a->x() != b->x() ? a->x() < b->x() : a->y() < b->y();
    });
    return found;
}
template <typename T = QLabel>
T* firstByClass(const QWidget* root, const QString& className, bool shownOnly = false)
{
    return byClass<T>(root, className, shownOnly).value(0);
}

inline QString svgPathOf(const QWidget* icon)
{
    return icon->property("svgPath").toString();
}
inline QString stateOf(const QWidget* widget, const char* property = "state")
{
    return widget->property(property).toString();
}

// The view model that `Page` renders through its updateFromVm.
template <class Page, class VM> VM viewModelOf(void (Page::*)(const VM&));
template <class Page> using VmOf = decltype(viewModelOf(&Page::updateFromVm));

// A `Page` on the English texts showing a default record changed by `change`.
template <class Page> std::unique_ptr<Page> pageShowing(std::function<void(VmOf<Page>&)> change)
{
    auto page = std::make_unique<Page>(texts(), nullptr);
    VmOf<Page> vm;
    if (change)
        change(vm);
    page->updateFromVm(vm);
    return page;
}

// What a test expects of a page: the `index`-th shown label of style class
// `cls` (left to right, then top down) shows `text` (any text when null), or
// none is shown when `text` is kHidden; and, when given, carries `state`.
inline const QString kHidden = QStringLiteral("<hidden>");
struct Shown {
    const char* cls;
    QString text;
    const char* state = nullptr;
    int index = 0;
};
void expectShown(const QWidget* page, const QVector<Shown>& facts);

// A record to render, `what` a base record with `change`, and what the page
// must show then.
template <class Page> struct Render {
    const char* what;
    std::function<void(VmOf<Page>&)> change;
    QVector<Shown> facts;
};

// Renders each case on one `page` in turn and checks its facts.
template <class Page>
void expectRenders(Page& page, const VmOf<Page>& base, const std::vector<Render<Page>>& cases)
{
    for (const Render<Page>& c : cases) {
        VmOf<Page> vm = base;
        if (c.change)
            c.change(vm);
        page.updateFromVm(vm);
        SCOPED_TRACE(c.what);
        expectShown(&page, c.facts);
    }
}

// Whether `label` shows the pixmap of the file at `path`, as it is.
bool showsFile(const QLabel* label, const QString& path);
// Shows the widget offscreen and lets pending resizes land.
void showAndSettle(QWidget* widget);
// Applies ":/themes/<theme>.qss" to `widget`.
void applyTheme(QWidget* widget, const QString& theme);
// The widget's own painting over a white ground, as a code on a white card.
QImage renderOnWhite(QWidget* widget);
// Decodes the QR code in `image` with zbarimg; empty when none is found.
QString decodeQrImage(const QImage& image);

} // namespace pagetest
