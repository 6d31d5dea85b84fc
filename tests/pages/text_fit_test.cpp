// Every screen of the panel, as the scenes compose them: the text-fit walk
// and the gallery.
//
// Every text on every screen fits the label that shows it, in all five
// languages and both themes, with the fonts the device has (DejaVu for Latin
// scripts, Noto CJK for Chinese and Japanese). A translation that is too long
// is fixed in the language file, never by shrinking a label.
#include "page_test_support.h"
#include "panel_scenes.h"

#include "pages/page_ids.h"
#include "ui/operation_overlay_component.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QSet>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextStream>

#include <gtest/gtest.h>

#include <iostream>
#include <set>

using namespace pagetest;

namespace {

// Labels whose texts are numbers, units or fixed names, which no translation
// can shorten. At the sizes the layout gives them, the widest of these texts
// don't fit in the Latin font, and the layout stays as designed.
const QMap<QString, QString> kFixedTextLabels = {
    {"status-rec-duration",
     "the record time \"hh : mm : ss\" in bold 18 px digits needs about 112 of its 100 px"},
    {"v2-p2-res-value", "an encoder resolution such as \"1920x1080\" in 28 px black digits needs "
                        "about 170 of its 150 px"},
    {"dynamic-screensaver-time", "the clock \"hh:mm:ss\" in 32 px black monospace digits needs "
                                 "about 150 of its 132 px"},
    {"v2-p1-bandwidth-unit", "the unit \"Mbps\" reaches a pixel or two beyond its 44 px"},
    {"v2-p1-badge-static",
     "the fixed word \"OFFLINE\" needs about 83 of the badge's 72 px inside its padding"},
    {"v2-p3-codec-value", "the codec name \"G.711A\" touches the edge of its 80 px"},
};

// The gap that QPushButton leaves between its icon and its text.
constexpr int kButtonIconSpacing = 4;
// Room around a text's layout box for glyphs that reach beyond it.
constexpr int kInkMargin = 16;
// Coverage from which a pixel counts as ink; below it is the faint fringe of
// antialiasing, whose loss nobody sees.
constexpr int kInkAlpha = 96;

struct TextOverflow {
    QString widget; // type, style class and object name
    QString text;
    bool vertical = false;
    int needed = 0, available = 0; // pixels of text and of room
    QString excuse;                // why it doesn't count; empty when it does
};

QString describe(const TextOverflow& overflow)
{
    return QStringLiteral("%1 \"%2\": %3 px %4 in %5 px")
        .arg(overflow.widget, overflow.text)
        .arg(overflow.needed)
        .arg(overflow.vertical ? QStringLiteral("high") : QStringLiteral("wide"))
        .arg(overflow.available);
}

// A translation of the current language is never taken for a text that a
// page shortened on purpose, even when it ends in an ellipsis, nor excused as
// a fixed text.
QString excuseFor(const QWidget* widget, const QString& text, const QSet<QString>& translations)
{
    if (translations.contains(text))
        return QString();
    if (text.contains(QStringLiteral("\u2026")) || text.contains(QStringLiteral("...")))
        return QStringLiteral("shortened on purpose");
    return kFixedTextLabels.value(widget->property("class").toString());
}

QRect rectIn(const QWidget* widget, const QRect& rect, const QWidget* root)
{
    return rect.translated(widget->mapTo(root, QPoint(0, 0)));
}

// The part of `rect` (in `widget`) that its parents leave visible, in root
// coordinates; a scroll area's content counts whole.
QRect visiblePart(const QWidget* widget, const QRect& rect, const QWidget* root)
{
    QRect visible = rectIn(widget, rect, root);
    for (const QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        const QWidget* viewport = parent->parentWidget();
        const auto* area =
            viewport ? qobject_cast<const QAbstractScrollArea*>(viewport->parentWidget()) : nullptr;
        if (area && area->viewport() == viewport)
            return visible;
        visible &= rectIn(parent, parent->rect(), root);
        if (parent == root)
            break;
    }
    return visible;
}

// Where QLabel lays out its text: the contents rectangle less the indent
// (QLabelPrivate::documentRect; no label here has a margin).
QRect labelTextArea(const QLabel* label)
{
    int indent = label->indent();
    if (indent < 0 && label->frameWidth() > 0)
        indent = label->fontMetrics().horizontalAdvance(QLatin1Char('x')) / 2;
    const Qt::Alignment align =
        QStyle::visualAlignment(label->layoutDirection(), label->alignment());
    indent = qMax(indent, 0);
    return label->contentsRect().adjusted(
        align & Qt::AlignLeft ? indent : 0, align & Qt::AlignTop ? indent : 0,
        align & Qt::AlignRight ? -indent : 0, align & Qt::AlignBottom ? -indent : 0);
}

int textFlags(const QLabel* label)
{
    return static_cast<int>(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0);
}

// Where the text's pixels land when QLabel draws it in `area` without
// clipping: glyphs have side bearings, and lines leave room for accents and
// descenders, so the layout's box overstates what a reader sees. An empty
// rectangle for a text without visible ink.
QRect inkRect(const QLabel* label, const QRect& area, const QString& text, const QRect& laid)
{
    const QRect canvas =
        laid.united(area).adjusted(-kInkMargin, -kInkMargin, kInkMargin, kInkMargin);
    QImage image(canvas.size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setFont(label->font());
    painter.setPen(Qt::black);
    painter.drawText(area.translated(-canvas.topLeft()), textFlags(label) | Qt::TextDontClip, text);
    painter.end();
    int left = image.width(), right = -1, top = image.height(), bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) >= kInkAlpha) {
                left = qMin(left, x), right = qMax(right, x);
                top = qMin(top, y), bottom = qMax(bottom, y);
            }
        }
    }
    if (right < 0)
        return QRect();
    return QRect(QPoint(left, top), QPoint(right, bottom)).translated(canvas.topLeft());
}

// The text of a label or button, or a null string for other widgets.
QString textOf(const QWidget* widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(widget))
        return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return button->text();
    return QString();
}

// Every text under `root` that doesn't fit, measured with the widget's own
// font: a label's text must fit its width, and when it is word-wrapped or has
// several lines also its height; a button's caption, with its icon, must fit
// the button's contents.
QVector<TextOverflow> findTextOverflows(const QWidget* root, const QSet<QString>& translations)
{
    QVector<TextOverflow> found;
    for (const QWidget* widget : root->findChildren<QWidget*>()) {
        const QString text = textOf(widget);
        if (!widget->isVisibleTo(root) || text.trimmed().isEmpty())
            continue;
        QString name = QString::fromLatin1(widget->metaObject()->className());
        if (!widget->property("class").toString().isEmpty())
            name += QStringLiteral("[%1]").arg(widget->property("class").toString());
        if (!widget->objectName().isEmpty())
            name += QStringLiteral("#%1").arg(widget->objectName());
        auto overflow = [&](bool vertical, int needed, int available) {
            found.push_back(
                {name, text, vertical, needed, available, excuseFor(widget, text, translations)});
        };
        if (const auto* label = qobject_cast<const QLabel*>(widget)) {
            const QRect area = labelTextArea(label);
            const QRect room = visiblePart(label, area, root);
            if (room.isEmpty())
                continue; // clipped away as a whole: nobody sees it
            const QRect laid =
                QFontMetrics(label->font()).boundingRect(area, textFlags(label), text);
            const bool lines = label->wordWrap() || text.contains(QLatin1Char('\n'));
            const QRect box = rectIn(label, laid, root);
            if (box.left() >= room.left() && box.right() <= room.right()
                && (!lines || (box.top() >= room.top() && box.bottom() <= room.bottom())))
                continue;
            const QRect ink = rectIn(label, inkRect(label, area, text, laid), root);
            if (ink.left() < room.left() || ink.right() > room.right())
                overflow(false, ink.width(), room.width());
            if (lines && (ink.top() < room.top() || ink.bottom() > room.bottom()))
                overflow(true, ink.height(), room.height());
        } else {
            const auto* button = static_cast<const QAbstractButton*>(widget);
            QStyleOptionButton option;
            option.initFrom(button);
            option.text = text;
            option.icon = button->icon();
            option.iconSize = button->iconSize();
            const QRect room = visiblePart(
                button,
                button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button),
                root);
            int needed = QFontMetrics(button->font()).horizontalAdvance(text);
            if (!option.icon.isNull())
                needed += option.iconSize.width() + kButtonIconSpacing;
            if (!room.isEmpty() && needed > room.width())
                overflow(false, needed, room.width());
        }
    }
    return found;
}

QSet<QString> translationsOf(UITextManager* texts)
{
    QSet<QString> translations;
    for (const QString& text : texts->textMap())
        translations.insert(text);
    return translations;
}

const char* const kLanguageNames[] = {"Chinese", "English", "Portuguese", "French", "Japanese"};

class TextFit : public ::testing::TestWithParam<std::tuple<int, const char*>> {
protected:
    UITextManager* manager = texts(std::get<0>(GetParam()));
    QString theme = QString::fromLatin1(std::get<1>(GetParam()));
};

// The operation card would shorten a message too long for it, which leaves
// the user guessing: its states, named by their keys, must show them whole.
TEST_P(TextFit, EveryTextFitsItsLabelOnEveryScreen)
{
    const QSet<QString> translations = translationsOf(manager);
    QSet<QString> shown;
    std::set<QString> excused;
    int screens = 0;
    forEachScreen(
        manager, theme,
        [&](const QWidget* screen, QWidget* page, const QString& where, const SceneState* state) {
            ++screens;
            for (const QWidget* widget : screen->findChildren<QWidget*>())
                if (widget->isVisibleTo(screen) && !textOf(widget).isNull())
                    shown.insert(textOf(widget));
            for (const TextOverflow& overflow : findTextOverflows(screen, translations)) {
                if (overflow.excuse.isEmpty())
                    ADD_FAILURE() << kLanguageNames[std::get<0>(GetParam())] << "/" << theme << " "
                                  << where << ": " << describe(overflow);
                else
                    excused.insert(describe(overflow) + " (" + overflow.excuse + ")");
            }
            if (auto* card = qobject_cast<OperationOverlayComponent*>(page); card && state) {
                EXPECT_EQ(card->textLabel()->text(), manager->getTextWithFallback(state->name));
            }
        });
    EXPECT_GT(screens, 200) << "the scenes no longer walk the panel's states";
    for (const QString& line : excused)
        std::cout << "[excused] " << line.toStdString() << "\n";

    // The walk must show the language file: all but the texts of flows that
    // no screen here opens.
    int unseen = 0;
    for (auto it = manager->textMap().begin(); it != manager->textMap().end(); ++it) {
        bool found = shown.contains(it.value());
        for (auto text = shown.begin(); !found && text != shown.end(); ++text)
            found = text->contains(it.value().trimmed());
        if (!found) {
            ++unseen;
            std::cout << "[not on screen] " << it.key().toStdString() << "\n";
        }
    }
    EXPECT_LT(unseen, manager->textMap().size() / 10)
        << "most texts of the language file were never on screen";
}

INSTANTIATE_TEST_SUITE_P(LanguagesAndThemes, TextFit,
                         ::testing::Combine(::testing::Values(kChinese, kEnglish, kPortuguese,
                                                              kFrench, kJapanese),
                                            ::testing::Values("black", "blue")),
                         [](const ::testing::TestParamInfo<TextFit::ParamType>& info) {
                             return std::string(kLanguageNames[std::get<0>(info.param)]) + "_"
                                    + std::get<1>(info.param);
                         });

TEST(TextFitScenes, CoverEveryPageOfThePageTable)
{
    std::set<int> covered;
    std::set<QString> names;
    for (const PanelScene& scene : panelScenes()) {
        EXPECT_TRUE(names.insert(scene.name).second) << "two scenes named " << scene.name;
        if (!scene.full_screen)
            covered.insert(scene.bar.pageid);
    }
    // Standby is a full-screen surface; 31 and 33 have no page.
    for (int page = 0; page < kPageCount; ++page)
        EXPECT_TRUE(page == PAGE_STANDBY || page == 31 || page == 33 || covered.count(page))
            << "no scene shows page " << page;
    for (const char* surface : {"standby", "screensaver", "upgrade", "splash", "bluetooth"})
        EXPECT_TRUE(names.count(surface)) << surface;
}

// The check itself, on labels and buttons whose fit is known by construction.
TEST(TextFitCheck, FlagsWhatOverflowsItsVisibleRoomAndExcusesOnlyWhatNoTranslationIs)
{
    QWidget root;
    root.resize(600, 400);
    auto label = [](QWidget* parent, const QRect& geometry, const char* text) {
        auto* created = new QLabel(QString::fromUtf8(text), parent);
        created->setGeometry(geometry);
        return created;
    };
    label(&root, {0, 0, 40, 30}, "Much too long for forty pixels");
    label(&root, {0, 40, 200, 30}, "Fits");
    label(&root, {0, 80, 60, 30}, "Centred but wide text")->setAlignment(Qt::AlignCenter);
    (new QPushButton("A button with a long caption", &root))->setGeometry(0, 120, 50, 30);
    label(&root, {300, 0, 160, 40}, "Big font")
        ->setStyleSheet("font-size: 40px; font-weight: bold;");
    label(&root, {300, 40, 100, 100}, "Three short words")->setWordWrap(true);
    QLabel* flat = label(&root, {300, 140, 100, 16}, "Several words that wrap onto more lines");
    flat->setWordWrap(true);
    auto* strip = new QWidget(&root);
    strip->setGeometry(0, 160, 300, 0); // a zero-height strip clips its children away
    label(strip, {0, 0, 20, 20}, "Clipped away entirely");
    label(&root, {0, 170, 20, 20}, "Hidden and too long")->hide();
    auto* area = new QScrollArea(&root);
    area->setGeometry(0, 200, 200, 100);
    auto* content = new QWidget;
    content->resize(800, 100);
    label(content, {600, 0, 150, 30}, "Fits once in view");
    label(content, {600, 40, 30, 30}, "Too long even in view");
    area->setWidget(content);
    label(&root, {300, 200, 30, 30}, "Studio-Enc...er-01");
    label(&root, {300, 240, 30, 30}, "Connecting…");
    label(&root, {300, 280, 30, 30}, "3840x2160")->setProperty("class", "v2-p2-res-value");
    label(&root, {300, 320, 30, 30}, "Connecting…")->setProperty("class", "v2-p2-res-value");
    showAndSettle(&root);

    QStringList flagged, excused;
    for (const TextOverflow& overflow : findTextOverflows(&root, {QStringLiteral("Connecting…")})) {
        (overflow.excuse.isEmpty() ? flagged : excused) << overflow.text;
        EXPECT_EQ(overflow.vertical, overflow.text.startsWith("Several")) << overflow.text;
    }
    flagged.sort();
    excused.sort();
    // A translation ending in an ellipsis, even in a number label, is still too long.
    EXPECT_EQ(flagged,
              QStringList({"A button with a long caption", "Big font", "Centred but wide text",
                           "Connecting…", "Connecting…", "Much too long for forty pixels",
                           "Several words that wrap onto more lines", "Too long even in view"}));
    EXPECT_EQ(excused, QStringList({"3840x2160", "Studio-Enc...er-01"}));
}

// Draws every page (and full-screen surface) in both themes, as the screen
// shows it, into $PANEL_GALLERY_DIR as <scene>_<theme>.png, with gallery.md, a
// Markdown table of the pictures whose links are relative to the source tree.
// scripts/gallery.sh runs it into docs/screenshots. Without the variable
// there is nothing to do.
TEST(Gallery, DrawsEveryPageInBothThemes)
{
    const QString folder = qEnvironmentVariable("PANEL_GALLERY_DIR");
    if (folder.isEmpty())
        GTEST_SKIP() << "set PANEL_GALLERY_DIR to draw the gallery";
    ASSERT_TRUE(QDir().mkpath(folder));
    const QDir gallery(QDir(folder).absolutePath());
    const QDir source(QStringLiteral(PANEL_SOURCE_DIR));

    QStringList table{QStringLiteral("| Page | Black theme | Blue theme |"),
                      QStringLiteral("|---|---|---|")};
    for (const PanelScene& scene : panelScenes()) {
        if (!scene.in_gallery)
            continue;
        QString row = QStringLiteral("| `%1` |").arg(scene.name);
        for (const QString theme : {"black", "blue"}) {
            const QImage image = buildScreen(scene, texts(kEnglish), theme)->grab().toImage();
            EXPECT_EQ(image.size(), QSize(640, 172)) << scene.name;
            const QString path =
                gallery.filePath(QStringLiteral("%1_%2.png").arg(scene.name, theme));
            EXPECT_TRUE(image.save(path)) << path;
            row += QStringLiteral(" ![%1, %2](%3) |")
                       .arg(scene.name, theme, source.relativeFilePath(path));
        }
        table << row;
    }
    QFile index(gallery.filePath(QStringLiteral("gallery.md")));
    ASSERT_TRUE(index.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text));
    QTextStream(&index) << table.join(QLatin1Char('\n')) << '\n';
}

} // namespace
