// The language file the panel ships: every language holds the same usable
// texts, and every key that the panel's code asks for, by a literal or by a
// number, stands in every language.
#include "ui/text_manager.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

#include <fstream>
#include <map>

using nlohmann::json;

namespace {

const char* const kLanguages[] = {"Chinese", "English", "Portuguese", "French", "Japanese"};

// Language name to its flattened texts; empty when the file can't be read.
const std::map<std::string, TextMap>& languageMaps()
{
    static const std::map<std::string, TextMap> maps = [] {
        std::map<std::string, TextMap> loaded;
        std::ifstream in(PANEL_SOURCE_DIR "/resources/language/language-vantor-ui.json");
        const json root = json::parse(in, nullptr, false);
        for (const char* language : kLanguages)
            if (root.is_object() && root.contains(language))
                flattenJson(root[language], std::string(), loaded[language]);
        return loaded;
    }();
    return maps;
}

QSet<QString> keysOf(const TextMap& map)
{
    return QSet<QString>(map.keyBegin(), map.keyEnd());
}

QSet<QString> placeholdersIn(const QString& text)
{
    static const QRegularExpression placeholder(QStringLiteral(R"(\{[A-Za-z_]+\})"));
    QSet<QString> found;
    for (auto it = placeholder.globalMatch(text); it.hasNext();)
        found.insert(it.next().captured());
    return found;
}

TEST(LanguageFile, EveryLanguageHoldsTheSameKeysWithUsableTexts)
{
    ASSERT_EQ(languageMaps().size(), std::size(kLanguages));
    const TextMap& english = languageMaps().at("English");
    ASSERT_GT(english.size(), 100);
    for (const auto& [language, map] : languageMaps()) {
        const QStringList lacking = (keysOf(english) - keysOf(map)).values();
        const QStringList extra = (keysOf(map) - keysOf(english)).values();
        EXPECT_TRUE(lacking.isEmpty()) << language << " lacks " << lacking.join(", ").toStdString();
        EXPECT_TRUE(extra.isEmpty()) << language << " has extra " << extra.join(", ").toStdString();
        for (auto it = map.constBegin(); it != map.constEnd(); ++it) {
            const std::string where = language + ": " + it.key().toStdString();
            EXPECT_FALSE(it.value().trimmed().isEmpty()) << where;
            EXPECT_NE(it.value(), it.key()) << where << " would show as untranslated";
            EXPECT_EQ(placeholdersIn(it.value()), placeholdersIn(english.value(it.key()))) << where;
        }
    }
}

TEST(LanguageFile, HoldsTheKeysThePanelBuildsFromNumbersAndThePlaceholdersItFills)
{
    // prefix + n + suffix for every n in [first, last]
    struct Range {
        std::string prefix;
        int first;
        int last;
        std::string suffix;
    };
    const Range ranges[] = {
        {"pull_status.status_", 0, 12, ""},   {"nas_status.nas_", 0, 4, ""},
        {"osd_status.osd_status_", 0, 4, ""}, {"push_status.push_stream_", 1, 12, ""},
        {"app_connect.Pair[", 0, 1, "]"},     {"app_connect.connect_status[", 0, 3, "]"},
    };
    for (const auto& [language, map] : languageMaps()) {
        for (const Range& range : ranges)
            for (int n = range.first; n <= range.last; ++n) {
                const std::string key = range.prefix + std::to_string(n) + range.suffix;
                EXPECT_TRUE(map.contains(QString::fromStdString(key)))
                    << language << " lacks " << key;
            }
        EXPECT_TRUE(map.value("system_settings.dcout_content").contains("{voltage}")) << language;
    }
}

// Keys in code: literal first arguments of the lookups, and any string literal
// shaped like a key of one of the file's top-level groups (tables of keys).
// A literal may name an array looked up by element; then its element 0 counts.
QStringList keysUsedIn(const QString& source, const QStringList& groups)
{
    static const QRegularExpression lookup(
        QString::fromLatin1(R"re(\bgetText(?:WithFallback)?\s*\(\s*)re"
                            R"re((?:(?:QStringLiteral|QLatin1String|QString)\s*\(\s*)?)re"
                            R"re("([^"\\%]*)"\s*\)?\s*[,)])re"));
    const QRegularExpression literal(
        QStringLiteral(R"re("((?:%1)(?:\.[A-Za-z0-9_ ]+|\[\d+\])+)")re").arg(groups.join('|')));
    static const QRegularExpression fileName(QStringLiteral(R"(\.(svg|png|jpg|qss|json|qrc)$)"));
    QStringList keys;
    for (auto it = lookup.globalMatch(source); it.hasNext();)
        keys << it.next().captured(1);
    for (auto it = literal.globalMatch(source); it.hasNext();) {
        const QString key = it.next().captured(1);
        if (!fileName.match(key).hasMatch())
            keys << key;
    }
    return keys;
}

TEST(LanguageFile, EveryKeyTheSourcesUseExistsInEveryLanguage)
{
    ASSERT_EQ(languageMaps().size(), std::size(kLanguages));
    QSet<QString> groups;
    for (const QString& key : languageMaps().at("English").keys())
        groups.insert(key.section(QRegularExpression(QStringLiteral("[.\\[]")), 0, 0));
    int found = 0;
    QDirIterator files(QStringLiteral(PANEL_SOURCE_DIR "/src"), {"*.cpp", "*.h"}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile source(files.next());
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        for (const QString& key :
             keysUsedIn(QString::fromUtf8(source.readAll()), groups.values())) {
            ++found;
            for (const auto& [language, map] : languageMaps())
                EXPECT_TRUE(map.contains(key) || map.contains(key + "[0]"))
                    << source.fileName().toStdString() << ": \"" << key.toStdString()
                    << "\" missing in " << language;
        }
    }
    EXPECT_GT(found, 200) << "the scan no longer finds the keys in the code";
}

} // namespace
