// Every text on every screen of the panel fits the label that shows it, in all
// five languages and both themes, with the fonts the device has (DejaVu for
// Latin scripts, Noto CJK for Chinese and Japanese). A translation that is too
// long is fixed in the language file, never by shrinking a label.
#include "page_test_support.h"
#include "panel_scenes.h"
#include "text_fit_check.h"

#include "pages/page_ids.h"
#include "ui/operation_overlay_component.h"

#include <QAbstractScrollArea>
#include <QLabel>
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
    {QStringLiteral("status-rec-duration"),
     QStringLiteral("the record time \"hh : mm : ss\" in bold 18 px digits needs about 112 "
                    "of its 100 px")},
    {QStringLiteral("v2-p2-res-value"),
     QStringLiteral("an encoder resolution such as \"1920x1080\" in 28 px black digits needs "
                    "about 170 of its 150 px")},
    {QStringLiteral("dynamic-screensaver-time"),
     QStringLiteral("the clock \"hh:mm:ss\" in 32 px black monospace digits needs about 150 "
                    "of its 132 px")},
    {QStringLiteral("v2-p1-bandwidth-unit"),
     QStringLiteral("the unit \"Mbps\" reaches a pixel or two beyond its 44 px")},
    {QStringLiteral("v2-p1-badge-static"),
     QStringLiteral("the fixed word \"OFFLINE\" needs about 83 of the badge's 72 px inside "
                    "its padding")},
    {QStringLiteral("v2-p3-codec-value"),
     QStringLiteral("the codec name \"G.711A\" touches the edge of its 80 px")},
};

QString fixedTextExcuse(const QWidget* widget, const QString&)
{
    return kFixedTextLabels.value(widget->property("class").toString());
}

TextFitRules rulesFor(UITextManager* texts)
{
    TextFitRules rules;
    for (const QString& text : texts->textMap())
        rules.translations.insert(text);
    rules.excuse = fixedTextExcuse;
    return rules;
}

// What one run over all screens found.
struct FitReport {
    QStringList failures;
    std::set<QString> excused;
    QSet<QString> texts_on_screen;
    int screens = 0;
};

void collectTexts(const QWidget* screen, QSet<QString>& seen)
{
    for (const QLabel* label : screen->findChildren<QLabel*>())
        if (label->isVisibleTo(screen))
            seen.insert(label->text());
    for (const QAbstractButton* button : screen->findChildren<QAbstractButton*>())
        if (button->isVisibleTo(screen))
            seen.insert(button->text());
}

void checkScreen(const QWidget* screen, const QString& where, const TextFitRules& rules,
                 FitReport& report)
{
    ++report.screens;
    collectTexts(screen, report.texts_on_screen);
    for (const TextOverflow& overflow : findTextOverflows(screen, rules)) {
        if (overflow.excuse.isEmpty())
            report.failures << QStringLiteral("%1: %2").arg(where, describe(overflow));
        else
            report.excused.insert(
                QStringLiteral("%1 (%2)").arg(describe(overflow), overflow.excuse));
    }
}

FitReport checkAllScreens(UITextManager* texts, const QString& theme)
{
    const TextFitRules rules = rulesFor(texts);
    FitReport report;
    for (const PanelScene& scene : panelScenes()) {
        QWidget* page = nullptr;
        const auto screen = buildScreen(scene, texts, theme, &page);
        checkScreen(screen.get(), scene.name, rules, report);
        for (const SceneState& state : scene.states) {
            applyState(state, page, texts);
            checkScreen(screen.get(), scene.name + QLatin1Char('/') + state.name, rules, report);
        }
    }
    return report;
}

// Keys whose texts never appeared on any screen.
QStringList keysNeverShown(UITextManager* texts, const QSet<QString>& shown)
{
    QStringList keys;
    const TextMap& map = texts->textMap();
    for (auto it = map.begin(); it != map.end(); ++it) {
        bool found = shown.contains(it.value());
        for (auto text = shown.begin(); !found && text != shown.end(); ++text)
            found = text->contains(it.value().trimmed());
        if (!found)
            keys << it.key();
    }
    return keys;
}

const char* const kLanguageNames[] = {"Chinese", "English", "Portuguese", "French", "Japanese"};

class TextFit : public ::testing::TestWithParam<std::tuple<int, const char*>> {};

TEST_P(TextFit, EveryTextFitsItsLabelOnEveryScreen)
{
    const auto [language, theme] = GetParam();
    UITextManager* manager = texts(language);
    const FitReport report = checkAllScreens(manager, QString::fromLatin1(theme));

    EXPECT_GT(report.screens, 200) << "the scenes no longer walk the panel's states";
    for (const QString& failure : report.failures)
        ADD_FAILURE() << kLanguageNames[language] << "/" << theme << " " << failure.toStdString();
    for (const QString& excused : report.excused)
        std::cout << "[excused] " << excused.toStdString() << "\n";

    // The walk must show the language file: all but the texts of flows that
    // no screen here opens.
    const QStringList unseen = keysNeverShown(manager, report.texts_on_screen);
    for (const QString& key : unseen)
        std::cout << "[not on screen] " << key.toStdString() << "\n";
    EXPECT_LT(unseen.size(), manager->textMap().size() / 10)
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

// The operation card shortens a message that is too long for it, which
// leaves the user guessing; every message must show whole.
TEST_P(TextFit, EveryOperationMessageShowsWhole)
{
    const auto [language, theme] = GetParam();
    UITextManager* manager = texts(language);
    for (const PanelScene& scene : panelScenes()) {
        if (scene.name != QLatin1String("operation_card"))
            continue;
        QWidget* page = nullptr;
        const auto screen = buildScreen(scene, manager, QString::fromLatin1(theme), &page);
        auto* card = static_cast<OperationOverlayComponent*>(page);
        ASSERT_FALSE(scene.states.isEmpty());
        for (const SceneState& state : scene.states) {
            applyState(state, page, manager);
            EXPECT_EQ(card->textLabel()->text(), manager->getTextWithFallback(state.name))
                << state.name.toStdString();
        }
        return;
    }
    FAIL() << "no scene shows the operation card";
}

TEST(TextFitScenes, CoverEveryPageOfThePageTable)
{
    std::set<int> covered;
    std::set<QString> names;
    for (const PanelScene& scene : panelScenes()) {
        EXPECT_TRUE(names.insert(scene.name).second)
            << "two scenes named " << scene.name.toStdString();
        if (!scene.full_screen)
            covered.insert(scene.bar.pageid);
    }
    for (int page = 0; page < kPageCount; ++page) {
        if (page == PAGE_STANDBY || page == 31 || page == 33)
            continue; // the standby surface is full-screen; 31 and 33 have no page
        EXPECT_TRUE(covered.count(page)) << "no scene shows page " << page;
    }
    EXPECT_TRUE(names.count("standby") && names.count("screensaver") && names.count("upgrade")
                && names.count("splash") && names.count("bluetooth"));
}

// --- The check itself -----------------------------------------------------

QLabel* labelIn(QWidget* parent, const QRect& geometry, const QString& text)
{
    auto* label = new QLabel(text, parent);
    label->setGeometry(geometry);
    return label;
}

QStringList overflowingTexts(const QWidget* root, const TextFitRules& rules = {})
{
    QStringList texts;
    for (const TextOverflow& overflow : findTextOverflows(root, rules))
        if (overflow.excuse.isEmpty())
            texts << overflow.text;
    return texts;
}

TEST(TextFitCheck, FlagsTextsWiderThanTheirLabelOrButton)
{
    QWidget root;
    root.resize(400, 200);
    labelIn(&root, {0, 0, 40, 30}, QStringLiteral("Much too long for forty pixels"));
    labelIn(&root, {0, 40, 200, 30}, QStringLiteral("Fits"));
    QLabel* centred = labelIn(&root, {0, 80, 60, 30}, QStringLiteral("Centred but wide text"));
    centred->setAlignment(Qt::AlignCenter);
    auto* button = new QPushButton(QStringLiteral("A button with a long caption"), &root);
    button->setGeometry(0, 120, 50, 30);
    showAndSettle(&root);

    EXPECT_EQ(overflowingTexts(&root),
              QStringList({"Much too long for forty pixels", "Centred but wide text",
                           "A button with a long caption"}));
}

TEST(TextFitCheck, MeasuresWithTheStyleSheetFont)
{
    QWidget root;
    root.resize(400, 100);
    QLabel* label = labelIn(&root, {0, 0, 120, 40}, QStringLiteral("Twelve chars"));
    showAndSettle(&root);
    EXPECT_TRUE(overflowingTexts(&root).isEmpty());

    label->setStyleSheet(QStringLiteral("font-size: 40px; font-weight: bold;"));
    label->ensurePolished();
    EXPECT_EQ(overflowingTexts(&root), QStringList{"Twelve chars"});
}

TEST(TextFitCheck, WrappedTextsMustFitTheHeight)
{
    QWidget root;
    root.resize(400, 200);
    QLabel* tall = labelIn(&root, {0, 0, 100, 100}, QStringLiteral("Three short words"));
    tall->setWordWrap(true);
    QLabel* flat = labelIn(&root, {0, 100, 100, 16},
                           QStringLiteral("Several words that wrap onto more lines than fit"));
    flat->setWordWrap(true);
    showAndSettle(&root);

    const QVector<TextOverflow> found = findTextOverflows(&root, {});
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found.first().text, flat->text());
    EXPECT_TRUE(found.first().vertical);
}

TEST(TextFitCheck, IgnoresWhatNobodySeesButCountsRowsThatScrollIntoView)
{
    QWidget root;
    root.resize(300, 200);
    auto* strip = new QWidget(&root);
    strip->setGeometry(0, 0, 300, 0); // a zero-height strip clips its children away
    labelIn(strip, {0, 0, 20, 20}, QStringLiteral("Clipped away entirely"));
    labelIn(&root, {0, 30, 20, 20}, QStringLiteral("Hidden and too long"))->hide();

    auto* area = new QScrollArea(&root);
    area->setGeometry(0, 60, 200, 100);
    auto* content = new QWidget;
    content->resize(800, 100);
    labelIn(content, {600, 0, 150, 30}, QStringLiteral("Fits once in view"));
    labelIn(content, {600, 40, 30, 30}, QStringLiteral("Too long even in view"));
    area->setWidget(content);
    showAndSettle(&root);

    EXPECT_EQ(overflowingTexts(&root), QStringList{"Too long even in view"});
}

TEST(TextFitCheck, ExcusesShortenedTextsAndNumbersButNoTranslation)
{
    QWidget root;
    root.resize(400, 100);
    labelIn(&root, {0, 0, 30, 30}, QStringLiteral("Studio-Enc...er-01"));
    labelIn(&root, {0, 30, 30, 30}, QStringLiteral("Connecting\u2026"));
    QLabel* number = labelIn(&root, {0, 60, 30, 30}, QStringLiteral("3840x2160"));
    number->setProperty("class", "v2-p2-res-value");
    showAndSettle(&root);

    TextFitRules rules;
    rules.translations = {QStringLiteral("Connecting\u2026")};
    rules.excuse = fixedTextExcuse;
    EXPECT_EQ(overflowingTexts(&root, rules), QStringList{"Connecting\u2026"})
        << "a translation that ends in an ellipsis is still too long";

    number->setText(QStringLiteral("Connecting\u2026"));
    EXPECT_EQ(overflowingTexts(&root, rules).size(), 2)
        << "a translation in a number label is checked like any other";
}

} // namespace
