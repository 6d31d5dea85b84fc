// Guards the language file: every language holds the same keys, and every key
// that the panel's code asks for, by a literal or a number, stands in every
// language.
#include "ui/text_manager.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

using nlohmann::json;

namespace {

const char* const kLanguages[] = {"Chinese", "English", "Portuguese", "French", "Japanese"};

const QString kLanguageFile =
    QStringLiteral(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json");
const QString kSourceDir = QStringLiteral(PANEL_SOURCE_DIR "/src");

// Keys that code builds at run time from a number: prefix + n + suffix for
// every n in [first, last].
struct KeyRange {
    std::string prefix;
    int first;
    int last;
    std::string suffix;
};

const std::vector<KeyRange> kNumberedKeys = {
    {"pull_status.status_", 0, 12, ""},         // decoder and source list states
    {"nas_status.nas_", 0, 4, ""},              // NAS mount states
    {"osd_status.osd_status_", 0, 4, ""},       // OSD layout states
    {"push_status.push_stream_", 1, 12, ""},    // push stream states; 0 shows "-"
    {"app_connect.Pair[", 0, 1, "]"},           // pairing title lines
    {"app_connect.connect_status[", 0, 3, "]"}, // pairing body lines
};

// The keys that code asks for by a literal name are found in the sources by
// the scan at the end.
std::vector<std::string> numberedKeys()
{
    std::vector<std::string> keys;
    for (const KeyRange& range : kNumberedKeys)
        for (int n = range.first; n <= range.last; ++n)
            keys.push_back(range.prefix + std::to_string(n) + range.suffix);
    return keys;
}

struct LanguageFile {
    json root;
    std::map<std::string, TextMap> maps; // language name -> flattened texts
};

const LanguageFile& languageFile()
{
    static const LanguageFile file = [] {
        LanguageFile loaded;
        std::ifstream in(kLanguageFile.toStdString(), std::ios::binary);
        if (!in.is_open())
            return loaded;
        loaded.root = json::parse(in, nullptr, false);
        if (!loaded.root.is_object())
            return loaded;
        for (const char* language : kLanguages) {
            TextMap& map = loaded.maps[language];
            if (loaded.root.contains(language))
                flattenJson(loaded.root[language], std::string(), map);
        }
        return loaded;
    }();
    return file;
}

// A key found in code. `indexBase` marks a literal that may name an array,
// looked up by element: it is present if the key or its element 0 is.
struct KeyUse {
    QString key;
    bool indexBase;
    int line;
};

int lineOf(const QString& text, int offset)
{
    return text.left(offset).count('\n') + 1;
}

// Literal keys passed to the lookup calls of UITextManager, plus every string
// literal shaped like a key of one of `groups` (tables of keys such as the
// status-to-text map or the gesture guide items).
std::vector<KeyUse> extractTextKeys(const QString& source, const QStringList& groups)
{
    std::vector<KeyUse> uses;
    static const QRegularExpression lookupCall(QStringLiteral(
        R"re(\b(?:getTextWithFallback|getText)\s*\(\s*(?:(QStringLiteral|QLatin1String|QString)\s*\(\s*)?"((?:[^"\\]|\\.)*)"\s*)re"));
    auto it = lookupCall.globalMatch(source);
    while (it.hasNext()) {
        const QRegularExpressionMatch match = it.next();
        int next = match.capturedEnd();
        if (match.capturedLength(1) > 0) {
            if (next >= source.size() || source[next] != ')')
                continue; // e.g. QString("x_%1").arg(n): built at run time
            ++next;
            while (next < source.size() && source[next].isSpace())
                ++next;
        }
        const QChar follower = next < source.size() ? source[next] : QChar();
        const QString key = match.captured(2);
        if ((follower != ')' && follower != ',') || key.contains('%'))
            continue;
        uses.push_back({key, follower == ',', lineOf(source, match.capturedStart())});
    }

    if (groups.isEmpty())
        return uses;
    const QRegularExpression keyLiteral(
        QStringLiteral(R"re("((?:%1)(?:\.[A-Za-z0-9_ ]+|\[\d+\])+)")re").arg(groups.join('|')));
    static const QRegularExpression fileName(
        QStringLiteral(R"re(\.(svg|png|jpg|qss|json|qrc)$)re"));
    auto literal = keyLiteral.globalMatch(source);
    while (literal.hasNext()) {
        const QRegularExpressionMatch match = literal.next();
        if (!fileName.match(match.captured(1)).hasMatch())
            uses.push_back({match.captured(1), true, lineOf(source, match.capturedStart())});
    }
    return uses;
}

QStringList topLevelGroups(const TextMap& map)
{
    QSet<QString> groups;
    for (const QString& key : map.keys())
        groups.insert(key.section(QRegularExpression(QStringLiteral("[.\\[]")), 0, 0));
    QStringList sorted = groups.values();
    sorted.sort();
    return sorted;
}

bool holds(const TextMap& map, const KeyUse& use)
{
    return map.contains(use.key) || (use.indexBase && map.contains(use.key + "[0]"));
}

QSet<QString> placeholdersIn(const QString& text)
{
    static const QRegularExpression placeholder(QStringLiteral(R"(\{[A-Za-z_]+\})"));
    QSet<QString> found;
    auto it = placeholder.globalMatch(text);
    while (it.hasNext())
        found.insert(it.next().captured());
    return found;
}

// ---------------------------------------------------------------------------

TEST(TextLanguageFile, HoldsAllFiveLanguagesWithTheSameKeys)
{
    const LanguageFile& file = languageFile();
    ASSERT_TRUE(file.root.is_object()) << "cannot read " << kLanguageFile.toStdString();
    const TextMap& reference = file.maps.at("Chinese");
    ASSERT_FALSE(reference.isEmpty());
    const QSet<QString> referenceKeys(reference.keyBegin(), reference.keyEnd());
    for (const char* language : kLanguages) {
        ASSERT_TRUE(file.root.contains(language)) << language;
        const TextMap& map = file.maps.at(language);
        const QSet<QString> keys(map.keyBegin(), map.keyEnd());
        EXPECT_TRUE((referenceKeys - keys).isEmpty())
            << language
            << " lacks: " << QStringList((referenceKeys - keys).values()).join(", ").toStdString();
        EXPECT_TRUE((keys - referenceKeys).isEmpty())
            << language << " has extra: "
            << QStringList((keys - referenceKeys).values()).join(", ").toStdString();
    }
}

TEST(TextLanguageFile, EveryTextIsAUsableTranslation)
{
    const LanguageFile& file = languageFile();
    ASSERT_EQ(file.maps.size(), std::size(kLanguages));
    const TextMap& english = file.maps.at("English");
    for (const auto& [language, map] : file.maps) {
        for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
            EXPECT_FALSE(it.value().trimmed().isEmpty())
                << language << ": " << it.key().toStdString();
            EXPECT_NE(it.value(), it.key())
                << language << ": " << it.key().toStdString() << " would show as untranslated";
            EXPECT_EQ(placeholdersIn(it.value()), placeholdersIn(english.value(it.key())))
                << language << ": placeholders of " << it.key().toStdString();
        }
    }
}

TEST(TextLanguageFile, HoldsEveryNumberedKeyThatThePanelBuilds)
{
    const LanguageFile& file = languageFile();
    ASSERT_EQ(file.maps.size(), std::size(kLanguages));
    for (const std::string& key : numberedKeys())
        for (const auto& [language, map] : file.maps)
            EXPECT_TRUE(map.contains(QString::fromStdString(key))) << language << " lacks " << key;
}

TEST(TextLanguageFile, ConfirmTextKeepsItsVoltagePlaceholder)
{
    for (const auto& [language, map] : languageFile().maps)
        EXPECT_TRUE(map.value("system_settings.dcout_content").contains("{voltage}")) << language;
}

TEST(TextKeyScan, FindsLiteralKeysInLookupsAndKeyTables)
{
    const QString code = QStringLiteral(R"cpp(
        label->setText(text_mgr->getTextWithFallback("mainmenu.video"));
        title = tm->getText( "a.b" );
        line = tm->getTextWithFallback("app_connect.Pair", index);
        msg = tm->getTextWithFallback(QStringLiteral("system_settings.dcout_content"), v, "{voltage}");
        dyn = tm->getTextWithFallback(QString("pull_status.status_%1").arg(n));
        glued = tm->getTextWithFallback("nas_status.nas_" + QString::number(n));
        {5, "point_info.unlock"},
        icon = ":/icons/mainmenu/video.svg"; other = "theme.qss";
        label = "network_settings.pair Device";
    )cpp");
    const std::vector<KeyUse> uses =
        extractTextKeys(code, {"mainmenu", "point_info", "network_settings", "theme"});
    std::map<QString, bool> found; // key -> index base
    for (const KeyUse& use : uses)
        found[use.key] = found.count(use.key) ? found[use.key] || use.indexBase : use.indexBase;
    const std::map<QString, bool> expected{
        {"mainmenu.video", true}, // also matched as a key-shaped literal
        {"a.b", false},
        {"app_connect.Pair", true},
        {"system_settings.dcout_content", true},
        {"point_info.unlock", true},
        {"network_settings.pair Device", true},
    };
    EXPECT_EQ(found, expected);
}

TEST(TextKeyScan, EveryKeyUsedInTheSourcesExistsInEveryLanguage)
{
    const LanguageFile& file = languageFile();
    ASSERT_EQ(file.maps.size(), std::size(kLanguages));
    const QStringList groups = topLevelGroups(file.maps.at("Chinese"));
    ASSERT_TRUE(QFile::exists(kSourceDir));

    QDirIterator files(kSourceDir, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString path = files.next();
        QFile source(path);
        ASSERT_TRUE(source.open(QIODevice::ReadOnly)) << path.toStdString();
        const QString text = QString::fromUtf8(source.readAll());
        QSet<QString> reported; // a lookup of a key-shaped literal is found twice
        for (const KeyUse& use : extractTextKeys(text, groups)) {
            const QString where = QStringLiteral("%1:%2").arg(use.key).arg(use.line);
            if (reported.contains(where))
                continue;
            reported.insert(where);
            for (const auto& [language, map] : file.maps) {
                EXPECT_TRUE(holds(map, use))
                    << path.toStdString() << ":" << use.line << ": \"" << use.key.toStdString()
                    << "\" missing in " << language;
            }
        }
    }
}

} // namespace
