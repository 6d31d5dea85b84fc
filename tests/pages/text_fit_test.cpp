// Every text on every screen of the panel fits the label that shows it, in all
// five languages and both themes, with the fonts the device has (DejaVu for
// Latin scripts, Noto CJK for Chinese and Japanese). A translation that is too
// long is fixed in the language file, never by shrinking a label.
#include "page_test_support.h"
#include "panel_scenes.h"
#include "text_fit_check.h"

#include "ui/operation_overlay_component.h"

#include <QAbstractButton>
#include <QPushButton>
#include <QScrollArea>

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

TextFitRules rulesFor(UITextManager* texts)
{
    TextFitRules rules;
    if (texts)
        for (const QString& text : texts->textMap())
            rules.translations.insert(text);
    rules.excuse = [](const QWidget* widget, const QString&) {
        return kFixedTextLabels.value(widget->property("class").toString());
    };
    return rules;
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
    const TextFitRules rules = rulesFor(manager);
    QSet<QString> shown;
    std::set<QString> excused;
    int screens = 0;
    forEachScreen(
        manager, theme,
        [&](const QWidget* screen, QWidget* page, const QString& where, const SceneState* state) {
            ++screens;
            for (const QWidget* widget : screen->findChildren<QWidget*>()) {
                if (widget->isVisibleTo(screen) && qobject_cast<const QLabel*>(widget))
                    shown.insert(static_cast<const QLabel*>(widget)->text());
                else if (widget->isVisibleTo(screen)
                         && qobject_cast<const QAbstractButton*>(widget))
                    shown.insert(static_cast<const QAbstractButton*>(widget)->text());
            }
            for (const TextOverflow& overflow : findTextOverflows(screen, rules)) {
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

    TextFitRules rules = rulesFor(nullptr);
    rules.translations = {QStringLiteral("Connecting…")};
    QStringList flagged, excused;
    for (const TextOverflow& overflow : findTextOverflows(&root, rules)) {
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

} // namespace
