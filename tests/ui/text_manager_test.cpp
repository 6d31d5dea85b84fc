#include "ui/text_manager.h"

#include "support/test_support.h"

#include <QSignalSpy>
#include <QStringList>
#include <gtest/gtest.h>

#include <fstream>
#include <optional>
#include <vector>

using nlohmann::json;

// Readable QString values in failure messages.
static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

struct CapturedMessage {
    QtMsgType type;
    QString category;
    QString text;
};

// Collects everything that goes through Qt's message handler while alive.
class WarningCapture {
public:
    WarningCapture()
    {
        messages().clear();
        previous_ = qInstallMessageHandler(&WarningCapture::handle);
    }
    ~WarningCapture() { qInstallMessageHandler(previous_); }
    WarningCapture(const WarningCapture&) = delete;
    WarningCapture& operator=(const WarningCapture&) = delete;

    const std::vector<CapturedMessage>& all() const { return messages(); }
    std::size_t warningCount() const
    {
        std::size_t count = 0;
        for (const auto& message : messages())
            count += message.type == QtWarningMsg ? 1 : 0;
        return count;
    }
    QString onlyWarning() const
    {
        EXPECT_EQ(warningCount(), 1u);
        for (const auto& message : messages())
            if (message.type == QtWarningMsg)
                return message.text;
        return QString();
    }

private:
    static std::vector<CapturedMessage>& messages()
    {
        static std::vector<CapturedMessage> store;
        return store;
    }
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        messages().push_back({type, QString::fromLatin1(context.category), text});
    }

    QtMessageHandler previous_ = nullptr;
};

// Sets or clears an environment variable for one scope and restores it after.
class ScopedEnv {
public:
    ScopedEnv(const char* name, const std::optional<std::string>& value) : name_(name)
    {
        if (qEnvironmentVariableIsSet(name))
            saved_ = qgetenv(name).toStdString();
        if (value)
            qputenv(name, QByteArray::fromStdString(*value));
        else
            qunsetenv(name);
    }
    ~ScopedEnv()
    {
        if (saved_)
            qputenv(name_, QByteArray::fromStdString(*saved_));
        else
            qunsetenv(name_);
    }

private:
    const char* name_;
    std::optional<std::string> saved_;
};

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
    EXPECT_EQ(capture.warningCount(), 2u);
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
    const ScopedEnv noOverride(UITextManager::kLanguageFileEnv, std::nullopt);
    const UITextManager texts;
    EXPECT_EQ(texts.getCurrentLanguage(), kChinese);
    EXPECT_EQ(texts.primaryPath(), "/usr/local/config/language/language-vantor-ui.json");
    EXPECT_EQ(texts.backupPath(), "/mnt/config/language/language-vantor-ui.json");
}

TEST_F(TextManagerLoading, EnvironmentFileIsTriedBeforeTheDevicePaths)
{
    writeFile(primary(), languageFile({{"k", "x"}}, json{{"k", "from environment"}}));
    const ScopedEnv override(UITextManager::kLanguageFileEnv, primary());
    const UITextManager texts;
    EXPECT_EQ(texts.getText("k"), "from environment");
    EXPECT_EQ(texts.primaryPath(), UITextManager::kPrimaryLanguagePath);
}

TEST_F(TextManagerLoading, ExplicitPathsIgnoreTheEnvironment)
{
    writeFile(primary(), languageFile({{"k", "explicit"}}));
    writeFile(backup(), languageFile({{"k", "from environment"}}));
    const ScopedEnv override(UITextManager::kLanguageFileEnv, backup());
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

TEST(TextFlatten, CommentsAndNonStringsAreDropped)
{
    const TextMap map = flatten(json::parse(
        R"({"a":{"b":"x"},"_comment_a":"y","_comment":{"c":"z"},"n":5,"t":true,"z":null})"));
    EXPECT_EQ(map, (TextMap{{"a.b", "x"}}));
}

TEST(TextFlatten, CommentsAreSkippedAtEveryDepthOfObjects)
{
    const TextMap map = flatten(json::parse(
        R"({"g":{"_commentary":["x"],"k":"v","h":{"_comment":"c","i":"w"}},"comment":"kept"})"));
    EXPECT_EQ(map, (TextMap{{"g.k", "v"}, {"g.h.i", "w"}, {"comment", "kept"}}));
}

TEST(TextFlatten, ArraysAreIndexedAndNestAnyDepth)
{
    const TextMap map = flatten(json::parse(
        R"({"list":["a",{"name":"n","_comment":"c"},["p","q"],3,null,false,"_comment x"]})"));
    const TextMap expected{{"list[0]", "a"},
                           {"list[1].name", "n"},
                           {"list[2][0]", "p"},
                           {"list[2][1]", "q"},
                           {"list[6]", "_comment x"}};
    EXPECT_EQ(map, expected);
}

TEST(TextFlatten, PrefixIsJoinedWithADot)
{
    TextMap map;
    flattenJson(json::parse(R"({"a":{"b":"x"}})"), "root", map);
    flattenJsonArray(json::parse(R"(["y"])"), "arr", map);
    EXPECT_EQ(map, (TextMap{{"root.a.b", "x"}, {"arr[0]", "y"}}));
}

TEST(TextFlatten, LaterMemberReplacesAnEarlierOneWithTheSameKey)
{
    // "a" sorts before "a.b" in the document, so the flat member comes last.
    const TextMap map = flatten(json::parse(R"({"a":{"b":"nested"},"a.b":"flat"})"));
    EXPECT_EQ(map, (TextMap{{"a.b", "flat"}}));
}

TEST(TextFlatten, ValuesOfTheWrongKindAddNothing)
{
    TextMap map;
    flattenJson(json("text"), std::string(), map);
    flattenJson(json::array({"x"}), std::string(), map);
    flattenJsonArray(json::object({{"k", "v"}}), "p", map);
    flattenJson(json(), std::string(), map);
    EXPECT_TRUE(map.isEmpty());
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
    EXPECT_EQ(capture.warningCount(), 0u);
}

TEST_F(TextLookup, OneKeyFormReturnsTheText)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getTextWithFallback("k"), "x");
    EXPECT_EQ(capture.warningCount(), 0u);
}

TEST_F(TextLookup, OneKeyFormFallsBackToTheKeyAndWarns)
{
    struct Case {
        const char* key;
        const char* shownText;
    };
    // A text equal to its key counts as untranslated; so does an empty one.
    for (const Case& c : {Case{"absent", "absent"}, Case{"same", "same"}, Case{"empty", ""}}) {
        WarningCapture capture;
        EXPECT_EQ(texts->getTextWithFallback(c.key), c.key);
        EXPECT_EQ(capture.onlyWarning(),
                  translationWarning(kKeyIssue, c.key,
                                     QStringLiteral("Original text: '%1'").arg(c.shownText)));
        EXPECT_EQ(capture.all().front().category, "default");
    }
}

TEST_F(TextLookup, PlaceholderFormReplacesEveryOccurrence)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getTextWithFallback("dc", "12V", "{voltage}"), "Turn on 12V? 12V it is.");
    EXPECT_EQ(capture.warningCount(), 0u);
}

TEST_F(TextLookup, PlaceholderFormMarksAMissingPlaceholder)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getTextWithFallback("plain", "12V", "{voltage}"), "plain [error]");
    EXPECT_EQ(capture.onlyWarning(),
              translationWarning(kPlaceholderIssue, "plain",
                                 "Text: 'No placeholder', Placeholder: '{voltage}', Param: '12V'"));
}

TEST_F(TextLookup, PlaceholderFormMarksAMissingText)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getTextWithFallback("absent", "12", "{voltage}"), "absent [error]");
    EXPECT_EQ(capture.onlyWarning(),
              translationWarning(kKeyIssue, "absent", "Original text: 'absent', Param: '12'"));
}

TEST_F(TextLookup, HashFormReplacesNamedPlaceholders)
{
    WarningCapture capture;
    const QHash<QString, QString> params{{"a", "1"}, {"b", "2"}};
    EXPECT_EQ(texts->getTextWithFallback("multi", params), "1 and 2");
    EXPECT_EQ(capture.warningCount(), 0u);
}

TEST_F(TextLookup, HashFormWarnsPerMissingPlaceholderAndKeepsGoing)
{
    WarningCapture capture;
    const QHash<QString, QString> params{{"a", "1"}, {"c", "3"}};
    EXPECT_EQ(texts->getTextWithFallback("multi", params), "1 and {b}");
    EXPECT_EQ(capture.onlyWarning(),
              translationWarning(kPlaceholderIssue, "multi",
                                 "Placeholder: '{c}' not found in text: '{a} and {b}'"));
}

TEST_F(TextLookup, HashFormMarksAMissingText)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getTextWithFallback("absent", QHash<QString, QString>{{"a", "1"}}),
              "absent [error]");
    EXPECT_EQ(capture.onlyWarning(),
              translationWarning(kKeyIssue, "absent", "Original text: 'absent'"));
}

TEST_F(TextLookup, IndexFormReturnsTheElement)
{
    WarningCapture capture;
    EXPECT_EQ(texts->getTextWithFallback("arr", 0), "zero");
    EXPECT_EQ(texts->getTextWithFallback("arr", 1), "one");
    EXPECT_EQ(texts->getTextWithFallback("label", 3), "L") << "falls back to the plain key";
    EXPECT_EQ(capture.warningCount(), 0u);
}

TEST_F(TextLookup, IndexFormFallsBackToTheKeyAndWarns)
{
    {
        // An array has no entry of its own, so a missing element ends at the key.
        WarningCapture capture;
        EXPECT_EQ(texts->getTextWithFallback("arr", 2), "arr");
        EXPECT_EQ(capture.onlyWarning(),
                  translationWarning(kKeyIssue, "arr", "Original text: 'arr'"));
    }
    {
        // An element equal to its own composed key is no translation either.
        WarningCapture capture;
        EXPECT_EQ(texts->getTextWithFallback("self", 0), "self");
        EXPECT_EQ(capture.warningCount(), 1u);
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

TEST_F(TextLookup, ValidTranslationIsNonEmptyAndDiffersFromItsKey)
{
    EXPECT_TRUE(texts->isValidTranslation("x", "k"));
    EXPECT_FALSE(texts->isValidTranslation("", "k"));
    EXPECT_FALSE(texts->isValidTranslation("k", "k"));
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

TEST_F(TextLanguageSwitch, SameLanguageSendsNothing)
{
    UITextManager texts = make(kEnglish);
    UITextManager unloaded(nullptr, kEnglish, QString::fromStdString(dir.file("none.json")),
                           QString());
    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    QSignalSpy unloadedChanged(&unloaded, &UITextManager::languageChanged);
    texts.switchLanguage(kEnglish);
    unloaded.switchLanguage(kEnglish);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(unloadedChanged.count(), 0);
}

TEST_F(TextLanguageSwitch, LanguageMissingFromTheFileChangesNothing)
{
    UITextManager texts = make(kEnglish);
    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    texts.switchLanguage(4);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(texts.getCurrentLanguage(), kEnglish);
    EXPECT_EQ(texts.getText("k"), "en");
}

TEST_F(TextLanguageSwitch, NothingLoadedChangesNothing)
{
    UITextManager texts(nullptr, kEnglish, QString::fromStdString(dir.file("none.json")),
                        QString());
    QSignalSpy changed(&texts, &UITextManager::languageChanged);
    texts.switchLanguage(kChinese);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(texts.getCurrentLanguage(), kEnglish);
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
