// UITextManager: which language file it reads, how it flattens the texts,
// what a lookup shows and warns when a text is missing, and language switches.
#include "ui/text_manager.h"

#include "support/qt_capture.h"
#include "support/test_support.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <functional>

using nlohmann::json;

// Readable QString values in failure messages.
static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

using testsupport::MessageCapture;
using testsupport::ScopedEnv;

constexpr int kChinese = 0;
constexpr int kEnglish = 1;

class TextFiles : public ::testing::Test {
protected:
    // Writes the file, or removes it for a null text.
    void put(const std::string& name, const char* text) const
    {
        if (text)
            std::ofstream(dir.file(name), std::ios::binary) << text;
        else
            std::remove(dir.file(name).c_str());
    }
    QString path(const std::string& name) const { return QString::fromStdString(dir.file(name)); }
    UITextManager load(int language) const
    {
        return UITextManager(nullptr, language, path("primary.json"), path("backup.json"));
    }

    testsupport::TempDir dir;
};

TEST_F(TextFiles, PrimaryFileUnlessItCannotBeUsedThenTheBackup)
{
    const char* const backup = R"({"English": {"k": "from backup"}, "Chinese": {"k": "备份"}})";
    struct Case {
        const char* what;
        const char* primary;
        int language;
        QString shown;
    };
    const Case cases[] = {
        {"primary wins", R"({"English": {"k": "from primary"}})", kEnglish, "from primary"},
        {"texts are UTF-8", R"({"Chinese": {"k": "视频"}})", kChinese, QString::fromUtf8("视频")},
        {"missing primary", nullptr, kEnglish, "from backup"},
        {"primary cut short", R"({"English": {"k": "from primary"})", kEnglish, "from backup"},
        {"root is an array", R"(["English", {"k": "from primary"}])", kEnglish, "from backup"},
        // A parsed object counts as loaded even without the current language.
        {"language missing from the primary", R"({"English": {"k": "x"}})", kChinese, "k"},
        {"null root", "null", kEnglish, "k"},
    };
    put("backup.json", backup);
    for (const Case& c : cases) {
        put("primary.json", c.primary);
        EXPECT_EQ(load(c.language).getText("k"), c.shown) << c.what;
    }
}

TEST_F(TextFiles, WithoutAUsableFileEveryLookupShowsTheKeyAndWarns)
{
    put("backup.json", "{ not json");
    const UITextManager texts = load(kEnglish);
    EXPECT_TRUE(texts.textMap().isEmpty());
    MessageCapture capture;
    EXPECT_EQ(texts.getTextWithFallback("mainmenu.video"), "mainmenu.video");
    EXPECT_EQ(texts.getTextWithFallback("mainmenu.video"), "mainmenu.video");
    EXPECT_EQ(capture.warnings().size(), 2);
}

TEST_F(TextFiles, EnvironmentFileComesBeforeTheDevicePathsButNotBeforeGivenOnes)
{
    put("primary.json", R"({"Chinese": {"k": "given"}})");
    put("env.json", R"({"Chinese": {"k": "from environment"}})");
    const ScopedEnv set(UITextManager::kLanguageFileEnv, dir.file("env.json").c_str());
    EXPECT_EQ(UITextManager().getText("k"), "from environment");
    EXPECT_EQ(load(kChinese).getText("k"), "given");
}

TEST(TextFlatten, KeysJoinWithDotsAndIndexesAndDropCommentsAndNonStrings)
{
    struct Case {
        const char* document;
        TextMap expected;
    };
    const Case cases[] = {
        {R"({"a":{"b":"x"},"_comment_a":"y","_comment":{"c":"z"},"n":5,"t":true,"z":null})",
         {{"a.b", "x"}}},
        // Comments go at every depth of objects, but not as array elements.
        {R"({"g":{"_commentary":["x"],"k":"v","h":{"_comment":"c","i":"w"}},"comment":"kept"})",
         {{"g.k", "v"}, {"g.h.i", "w"}, {"comment", "kept"}}},
        {R"({"list":["a",{"name":"n","_comment":"c"},["p","q"],3,null,false,"_comment x"]})",
         {{"list[0]", "a"},
          {"list[1].name", "n"},
          {"list[2][0]", "p"},
          {"list[2][1]", "q"},
          {"list[6]", "_comment x"}}},
        // "a" sorts before "a.b" in the document, so the flat member comes last.
        {R"({"a":{"b":"nested"},"a.b":"flat"})", {{"a.b", "flat"}}},
    };
    for (const Case& c : cases) {
        TextMap map;
        flattenJson(json::parse(c.document), std::string(), map);
        EXPECT_EQ(map, c.expected) << c.document;
    }
}

class TextLookup : public TextFiles {
protected:
    void SetUp() override
    {
        put("primary.json", R"({"English": {
            "k": "x", "same": "same", "empty": "", "param": "{param} and {param}",
            "dc": "Turn on {voltage}? {voltage} it is.", "plain": "No placeholder",
            "multi": "{a} and {b}", "arr": ["zero", "one"], "self": ["self[0]"], "label": "L"}})");
    }
};

TEST_F(TextLookup, FoundTextsInEveryFormWithoutAWarning)
{
    const UITextManager texts = load(kEnglish);
    MessageCapture capture;
    EXPECT_EQ(texts.getText("k"), "x");
    EXPECT_EQ(texts.getText("absent"), "absent") << "the plain form shows the key silently";
    EXPECT_EQ(texts.getText("param", "P"), "P and P");
    EXPECT_EQ(texts.getTextWithFallback("dc", "12V", "{voltage}"), "Turn on 12V? 12V it is.");
    EXPECT_EQ(texts.getTextWithFallback("multi", QHash<QString, QString>{{"a", "1"}, {"b", "2"}}),
              "1 and 2");
    EXPECT_EQ(texts.getTextWithFallback("arr", 1), "one");
    EXPECT_EQ(texts.getTextWithFallback("label", 3), "L") << "falls back to the plain key";
    EXPECT_TRUE(capture.warnings().isEmpty()) << capture.warnings().join('\n').toStdString();
}

TEST_F(TextLookup, EveryFormFallsBackWithOneWarningThatNamesTheKey)
{
    const UITextManager texts = load(kEnglish);
    using T = const UITextManager&;
    const QHash<QString, QString> wrongName{{"a", "1"}, {"c", "3"}};
    // A text equal to its key counts as untranslated, and so does an empty one.
    // The hash form warns per missing placeholder and goes on. An array has
    // no entry of its own, so a missing element ends at the key.
    const std::tuple<const char*, std::function<QString(T)>, QString> cases[] = {
        {"absent", [](T t) { return t.getTextWithFallback("absent"); }, "absent"},
        {"same", [](T t) { return t.getTextWithFallback("same"); }, "same"},
        {"empty", [](T t) { return t.getTextWithFallback("empty"); }, "empty"},
        {"plain", [](T t) { return t.getTextWithFallback("plain", "12V", "{voltage}"); },
         "plain [error]"},
        {"absent", [](T t) { return t.getTextWithFallback("absent", "12", "{voltage}"); },
         "absent [error]"},
        {"multi", [&](T t) { return t.getTextWithFallback("multi", wrongName); }, "1 and {b}"},
        {"absent", [&](T t) { return t.getTextWithFallback("absent", wrongName); },
         "absent [error]"},
        {"arr", [](T t) { return t.getTextWithFallback("arr", 2); }, "arr"},
        {"self", [](T t) { return t.getTextWithFallback("self", 0); }, "self"},
    };
    for (const auto& [key, lookup, shown] : cases) {
        MessageCapture capture;
        EXPECT_EQ(lookup(texts), shown);
        EXPECT_TRUE(capture.onlyWarning().contains(QStringLiteral("Key: %1 ").arg(key)))
            << shown.toStdString();
    }
}

TEST_F(TextFiles, SwitchRebuildsTheTextsAndSignalsOnlyWhenItFindsTheLanguage)
{
    put("primary.json",
        R"({"Chinese": {"k": "中"}, "English": {"k": "en"}, "French": {"k": "fr", "only": "seul"}})");
    UITextManager texts(nullptr, kEnglish, path("primary.json"), QString());
    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    struct Step {
        int to;
        int emitted;
        int current;
        QString k;
        QString only;
    };
    const Step steps[] = {
        {3, 1, 3, "fr", "seul"},
        {kEnglish, 2, kEnglish, "en", "only"},      // nothing of French is left
        {kEnglish, 2, kEnglish, "en", "only"},      // the language in force
        {4, 2, kEnglish, "en", "only"},             // not in the file
        {9, 3, 9, QString::fromUtf8("中"), "only"}, // unknown ids read Chinese
    };
    for (const Step& step : steps) {
        texts.onSystemLanguageChanged(step.to);
        EXPECT_EQ(changed.count(), step.emitted) << "to " << step.to;
        EXPECT_EQ(texts.getCurrentLanguage(), step.current) << "to " << step.to;
        EXPECT_EQ(texts.getText("k"), step.k) << "to " << step.to;
        EXPECT_EQ(texts.getText("only"), step.only) << "to " << step.to;
    }
    EXPECT_EQ(texts.getPreviousLanguage(), kEnglish);

    // A file without the first language still lets a later switch work.
    put("primary.json", R"({"English": {"k": "en"}})");
    UITextManager late(nullptr, kChinese, path("primary.json"), QString());
    late.switchLanguage(kEnglish);
    EXPECT_EQ(late.getText("k"), "en");
}

} // namespace
