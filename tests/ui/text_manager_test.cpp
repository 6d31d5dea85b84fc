#include "ui/text_manager.h"

#include "support/qt_capture.h"
#include "support/test_support.h"

#include <QSignalSpy>
#include <QStringList>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <optional>
#include <vector>

using nlohmann::json;

// Readable QString values in failure messages.
static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

using testsupport::ScopedEnv;
using WarningCapture = testsupport::MessageCapture;

void writeFile(const std::string& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary) << content;
}

std::string languageFile(const json& english, const std::optional<json>& chinese = std::nullopt)
{
    json root = {{"English", english}};
    if (chinese)
        root["Chinese"] = *chinese;
    return root.dump();
}

QString translationWarning(const QString& issue, const QString& key, const QString& details)
{
    return QStringLiteral("[Translation Issue] %1 - Key: %2 - Details: %3")
        .arg(issue, key, details);
}

const QString kKeyIssue = QStringLiteral("Translation key not found or invalid");
const QString kPlaceholderIssue = QStringLiteral("Template placeholder not found");

constexpr int kChinese = 0;
constexpr int kEnglish = 1;

// ---------------------------------------------------------------------------
// Loading

class TextManagerLoading : public ::testing::Test {
protected:
    std::string primary() const { return dir.file("primary.json"); }
    std::string backup() const { return dir.file("backup.json"); }
    UITextManager load(int language = kEnglish) const
    {
        return UITextManager(nullptr, language, QString::fromStdString(primary()),
                             QString::fromStdString(backup()));
    }

    testsupport::TempDir dir;
};

TEST_F(TextManagerLoading, PrimaryFileWinsOverBackup)
{
    writeFile(primary(), languageFile({{"k", "from primary"}}));
    writeFile(backup(), languageFile({{"k", "from backup"}}));
    const UITextManager texts = load(kEnglish);
    EXPECT_EQ(texts.getText("k"), "from primary");
    EXPECT_EQ(texts.primaryPath(), primary());
    EXPECT_EQ(texts.backupPath(), backup());
}

TEST_F(TextManagerLoading, BackupIsUsedWhenPrimaryIsMissing)
{
    writeFile(backup(), languageFile({{"k", "from backup"}}));
    const UITextManager texts = load(kEnglish);
    EXPECT_EQ(texts.getText("k"), "from backup");
}

TEST_F(TextManagerLoading, BackupIsUsedWhenPrimaryCannotBeUsed)
{
    const std::string unusablePrimaries[] = {
        R"({"English": {"k": "from primary"})",  // cut short
        R"({"English": {"k": "a" "b"}})",        // syntax error inside
        R"(["English", {"k": "from primary"}])", // root is an array
        R"("English")",                          // root is a string
    };
    writeFile(backup(), languageFile({{"k", "from backup"}}));
    for (const auto& content : unusablePrimaries) {
        writeFile(primary(), content);
        const UITextManager texts = load(kEnglish);
        EXPECT_EQ(texts.getText("k"), "from backup") << content;
    }
}

TEST_F(TextManagerLoading, NoUsableFileLeavesAnEmptyMapThatWarnsAtEachLookup)
{
    writeFile(backup(), "{ not json");
    const UITextManager texts = load(kEnglish);
    EXPECT_TRUE(texts.textMap().isEmpty());

    WarningCapture capture;
    EXPECT_EQ(texts.getTextWithFallback("mainmenu.video"), "mainmenu.video");
    EXPECT_EQ(texts.getTextWithFallback("mainmenu.video"), "mainmenu.video");
    EXPECT_EQ(capture.warnings().size(), 2);
}

TEST_F(TextManagerLoading, FileWithoutTheCurrentLanguageCountsAsLoaded)
{
    writeFile(primary(), languageFile({{"k", "english"}}));
    writeFile(backup(), languageFile({{"k", "english backup"}}, json{{"k", "chinese backup"}}));
    UITextManager texts = load(kChinese);
    EXPECT_TRUE(texts.textMap().isEmpty()) << "the backup must not be tried";

    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    texts.switchLanguage(kEnglish);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(texts.getText("k"), "english");
}

TEST_F(TextManagerLoading, NullRootCountsAsLoaded)
{
    writeFile(primary(), "null");
    writeFile(backup(), languageFile({{"k", "from backup"}}));
    const UITextManager texts = load(kEnglish);
    EXPECT_TRUE(texts.textMap().isEmpty());
}

TEST_F(TextManagerLoading, TextsAreDecodedAsUtf8)
{
    writeFile(primary(), languageFile({{"k", "x"}}, json{{"mainmenu", {{"video", "视频"}}}}));
    const UITextManager texts = load(kChinese);
    EXPECT_EQ(texts.getText("mainmenu.video"), QString::fromUtf8("视频"));
}

TEST_F(TextManagerLoading, LoadFromFileReportsEachOutcome)
{
    UITextManager texts = load();
    writeFile(primary(), languageFile({{"k", "one"}}));
    EXPECT_TRUE(texts.loadFromFile(QString::fromStdString(primary())));
    EXPECT_EQ(texts.getText("k"), "one");

    EXPECT_FALSE(texts.loadFromFile(QString::fromStdString(dir.file("absent.json"))));
    writeFile(backup(), "{");
    EXPECT_FALSE(texts.loadFromFile(QString::fromStdString(backup())));
    EXPECT_EQ(texts.getText("k"), "one") << "a failed load keeps the texts in force";
}

TEST_F(TextManagerLoading, DefaultInstanceUsesTheDevicePaths)
{
    const ScopedEnv noOverride(UITextManager::kLanguageFileEnv, nullptr);
    const UITextManager texts;
    EXPECT_EQ(texts.getCurrentLanguage(), kChinese);
    EXPECT_EQ(texts.primaryPath(), "/usr/local/config/language/language-vantor-ui.json");
    EXPECT_EQ(texts.backupPath(), "/mnt/config/language/language-vantor-ui.json");
}

TEST_F(TextManagerLoading, EnvironmentFileIsTriedBeforeTheDevicePaths)
{
    writeFile(primary(), languageFile({{"k", "x"}}, json{{"k", "from environment"}}));
    const ScopedEnv override(UITextManager::kLanguageFileEnv, primary().c_str());
    const UITextManager texts;
    EXPECT_EQ(texts.getText("k"), "from environment");
    EXPECT_EQ(texts.primaryPath(), UITextManager::kPrimaryLanguagePath);
}

TEST_F(TextManagerLoading, ExplicitPathsIgnoreTheEnvironment)
{
    writeFile(primary(), languageFile({{"k", "explicit"}}));
    writeFile(backup(), languageFile({{"k", "from environment"}}));
    const ScopedEnv override(UITextManager::kLanguageFileEnv, backup().c_str());
    const UITextManager texts = load();
    EXPECT_EQ(texts.getText("k"), "explicit");
}

// ---------------------------------------------------------------------------
// Flattening

TextMap flatten(const json& language)
{
    TextMap map;
    flattenJson(language, std::string(), map);
    return map;
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
    for (const Case& c : cases)
        EXPECT_EQ(flatten(json::parse(c.document)), c.expected) << c.document;
}

TEST(TextFlatten, PrefixIsJoinedAndValuesOfTheWrongKindAddNothing)
{
    TextMap map;
    flattenJson(json::parse(R"({"a":{"b":"x"}})"), "root", map);
    flattenJsonArray(json::parse(R"(["y"])"), "arr", map);
    flattenJson(json("text"), std::string(), map);
    flattenJson(json::array({"x"}), std::string(), map);
    flattenJsonArray(json::object({{"k", "v"}}), "p", map);
    flattenJson(json(), std::string(), map);
    EXPECT_EQ(map, (TextMap{{"root.a.b", "x"}, {"arr[0]", "y"}}));
}

// ---------------------------------------------------------------------------
// Lookups

class TextLookup : public ::testing::Test {
protected:
    void SetUp() override
    {
        writeFile(dir.file("texts.json"), languageFile(json::parse(R"({
            "k": "x",
            "same": "same",
            "empty": "",
            "param": "{param} and {param}",
            "dc": "Turn on {voltage}? {voltage} it is.",
            "plain": "No placeholder",
            "multi": "{a} and {b}",
            "arr": ["zero", "one"],
            "self": ["self[0]"],
            "label": "L"
        })")));
        texts.emplace(nullptr, kEnglish, QString::fromStdString(dir.file("texts.json")), QString());
    }

    testsupport::TempDir dir;
    std::optional<UITextManager> texts;
};

TEST_F(TextLookup, GetTextReturnsTheKeyForAMissingTextWithoutWarning)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getText("k"), "x");
    EXPECT_EQ(texts->getText("absent"), "absent");
    EXPECT_EQ(texts->getText("empty"), "");
    EXPECT_EQ(texts->getText("param", "P"), "P and P");
    EXPECT_EQ(texts->getText("absent", "P"), "absent");
    EXPECT_TRUE(capture.warnings().isEmpty());
}

TEST_F(TextLookup, EveryFormGivesItsTextWithoutWarning)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getTextWithFallback("k"), "x");
    EXPECT_EQ(texts->getTextWithFallback("dc", "12V", "{voltage}"), "Turn on 12V? 12V it is.");
    EXPECT_EQ(texts->getTextWithFallback("multi", QHash<QString, QString>{{"a", "1"}, {"b", "2"}}),
              "1 and 2");
    EXPECT_EQ(texts->getTextWithFallback("arr", 0), "zero");
    EXPECT_EQ(texts->getTextWithFallback("arr", 1), "one");
    EXPECT_EQ(texts->getTextWithFallback("label", 3), "L") << "falls back to the plain key";
    EXPECT_TRUE(capture.warnings().isEmpty());
}

TEST_F(TextLookup, EveryFormFallsBackWithOneWarning)
{
    using Texts = UITextManager;
    struct Case {
        const char* what;
        std::function<QString(const Texts&)> lookup;
        QString shown;
        QString warning;
    };
    const QHash<QString, QString> wrongParam{{"a", "1"}, {"c", "3"}};
    // A text equal to its key counts as untranslated, and so does an empty one.
    const Case cases[] = {
        {"absent", [](const Texts& t) { return t.getTextWithFallback("absent"); }, "absent",
         translationWarning(kKeyIssue, "absent", "Original text: 'absent'")},
        {"same as key", [](const Texts& t) { return t.getTextWithFallback("same"); }, "same",
         translationWarning(kKeyIssue, "same", "Original text: 'same'")},
        {"empty", [](const Texts& t) { return t.getTextWithFallback("empty"); }, "empty",
         translationWarning(kKeyIssue, "empty", "Original text: ''")},
        {"no such placeholder",
         [](const Texts& t) { return t.getTextWithFallback("plain", "12V", "{voltage}"); },
         "plain [error]",
         translationWarning(kPlaceholderIssue, "plain",
                            "Text: 'No placeholder', Placeholder: '{voltage}', Param: '12V'")},
        {"placeholder of an absent text",
         [](const Texts& t) { return t.getTextWithFallback("absent", "12", "{voltage}"); },
         "absent [error]",
         translationWarning(kKeyIssue, "absent", "Original text: 'absent', Param: '12'")},
        // The hash form warns per missing placeholder and goes on.
        {"hash with a wrong name",
         [&](const Texts& t) { return t.getTextWithFallback("multi", wrongParam); }, "1 and {b}",
         translationWarning(kPlaceholderIssue, "multi",
                            "Placeholder: '{c}' not found in text: '{a} and {b}'")},
        {"hash of an absent text",
         [](const Texts& t) {
             return t.getTextWithFallback("absent", QHash<QString, QString>{{"a", "1"}});
         },
         "absent [error]", translationWarning(kKeyIssue, "absent", "Original text: 'absent'")},
        // An array has no entry of its own, so a missing element ends at the key.
        {"index past the array", [](const Texts& t) { return t.getTextWithFallback("arr", 2); },
         "arr", translationWarning(kKeyIssue, "arr", "Original text: 'arr'")},
        // An element equal to its own composed key is no translation either.
        {"element named as its key",
         [](const Texts& t) { return t.getTextWithFallback("self", 0); }, "self",
         translationWarning(kKeyIssue, "self", "Original text: 'self'")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        WarningCapture capture;
        EXPECT_EQ(c.lookup(*texts), c.shown);
        EXPECT_EQ(capture.onlyWarning(), c.warning);
        EXPECT_EQ(capture.all().front().category, "default");
    }
}

TEST_F(TextLookup, WarningWithoutDetailsHasNoDetailsPart)
{
    WarningCapture capture;
    texts->logTranslationIssue("some.key", "Some issue", QString());
    const QString message = capture.onlyWarning();
    EXPECT_TRUE(message.startsWith("[Translation Issue] Some issue - Key: some.key"))
        << message.toStdString();
    EXPECT_FALSE(message.contains("Details")) << message.toStdString();
}

// ---------------------------------------------------------------------------
// Languages

TEST(TextLanguageTable, NamesAndIdsMatchTheBackendNumbers)
{
    const QStringList names{"Chinese", "English", "Portuguese", "French", "Japanese"};
    for (int id = 0; id < names.size(); ++id) {
        EXPECT_EQ(UITextManager::getLanguageKey(id), names[id]);
        EXPECT_EQ(UITextManager::getLanguageID(names[id]), id);
    }
    EXPECT_EQ(UITextManager::getLanguageKey(-1), "Chinese");
    EXPECT_EQ(UITextManager::getLanguageKey(5), "Chinese");
    EXPECT_EQ(UITextManager::getLanguageID("english"), 0) << "names compare case-sensitively";
    EXPECT_EQ(UITextManager::getLanguageID("Klingon"), 0);
}

class TextLanguageSwitch : public ::testing::Test {
protected:
    void SetUp() override
    {
        const json root = {{"Chinese", {{"k", "中"}}},
                           {"English", {{"k", "en"}}},
                           {"French", {{"k", "fr"}, {"only_fr", "seul"}}}};
        writeFile(dir.file("texts.json"), root.dump());
    }
    UITextManager make(int language) const
    {
        return UITextManager(nullptr, language, QString::fromStdString(dir.file("texts.json")),
                             QString());
    }

    testsupport::TempDir dir;
};

TEST_F(TextLanguageSwitch, SwitchRebuildsTheMapAndSignals)
{
    UITextManager texts = make(kEnglish);
    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    texts.switchLanguage(3);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(texts.getCurrentLanguage(), 3);
    EXPECT_EQ(texts.getPreviousLanguage(), kEnglish);
    EXPECT_EQ(texts.getText("k"), "fr");
    EXPECT_EQ(texts.getText("only_fr"), "seul");

    texts.switchLanguage(kEnglish);
    EXPECT_EQ(texts.getText("only_fr"), "only_fr") << "no text of the old language remains";
}

TEST_F(TextLanguageSwitch, SwitchesThatFindNothingNewChangeNothing)
{
    struct Case {
        const char* what;
        const char* file;
        int to;
    };
    const Case cases[] = {
        {"same language", "texts.json", kEnglish},
        {"same language, nothing loaded", "none.json", kEnglish},
        {"language missing from the file", "texts.json", 4},
        {"nothing loaded", "none.json", kChinese},
    };
    for (const Case& c : cases) {
        UITextManager texts(nullptr, kEnglish, QString::fromStdString(dir.file(c.file)), QString());
        const QString before = texts.getText("k");
        QSignalSpy changed(&texts, &UITextManager::languageChanged);
        texts.switchLanguage(c.to);
        EXPECT_EQ(changed.count(), 0) << c.what;
        EXPECT_EQ(texts.getCurrentLanguage(), kEnglish) << c.what;
        EXPECT_EQ(texts.getText("k"), before) << c.what;
    }
}

TEST_F(TextLanguageSwitch, UnknownIdSelectsChineseAndIsKept)
{
    UITextManager texts = make(kEnglish);
    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    texts.switchLanguage(9);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(texts.getCurrentLanguage(), 9);
    EXPECT_EQ(texts.getText("k"), QString::fromUtf8("中"));
}

TEST_F(TextLanguageSwitch, BackendLanguageSlotSwitches)
{
    UITextManager texts = make(kChinese);
    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    ASSERT_TRUE(QMetaObject::invokeMethod(&texts, "onSystemLanguageChanged", Qt::DirectConnection,
                                          Q_ARG(int, kEnglish)));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(texts.getText("k"), "en");

    texts.onSystemLanguageChanged(kEnglish);
    EXPECT_EQ(changed.count(), 1) << "the backend repeating the language in force is harmless";
}

} // namespace
