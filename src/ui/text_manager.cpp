#include "ui/text_manager.h"

#include "transport/harvelin_log.h"

#include <QDebug>
#include <QtGlobal>

#include <fstream>
#include <iterator>

using nlohmann::json;

namespace {

const char* const kLanguageKeys[] = {"Chinese", "English", "Portuguese", "French", "Japanese"};
constexpr int kLanguageCount = int(sizeof(kLanguageKeys) / sizeof(kLanguageKeys[0]));

const char* const kCommentPrefix = "_comment";
const char* const kIssueKeyInvalid = "Translation key not found or invalid";
const char* const kIssuePlaceholderMissing = "Template placeholder not found";

void insertValue(const json& value, const std::string& key, TextMap& map)
{
    if (value.is_object()) {
        flattenJson(value, key, map);
    } else if (value.is_array()) {
        flattenJsonArray(value, key, map);
    } else if (value.is_string()) {
        map.insert(QString::fromStdString(key), QString::fromStdString(value.get<std::string>()));
    }
}

QString errorMarked(const QString& key)
{
    return QStringLiteral("%1 [error]").arg(key);
}

} // namespace

void flattenJson(const json& value, const std::string& prefix, TextMap& map)
{
    if (!value.is_object()) {
        return;
    }
    for (auto it = value.begin(); it != value.end(); ++it) {
        const std::string& name = it.key();
        if (name.rfind(kCommentPrefix, 0) == 0) {
            continue;
        }
        insertValue(it.value(), prefix.empty() ? name : prefix + "." + name, map);
    }
}

void flattenJsonArray(const json& value, const std::string& prefix, TextMap& map)
{
    if (!value.is_array()) {
        return;
    }
    for (std::size_t i = 0; i < value.size(); ++i) {
        insertValue(value[i], prefix + "[" + std::to_string(i) + "]", map);
    }
}

UITextManager::UITextManager(QObject* parent, int language)
    : QObject(parent), current_language(language), previous_language(language)
{
    initLanguage();
}

UITextManager::UITextManager(QObject* parent, int language, const QString& primaryPath,
                             const QString& backupPath)
    : QObject(parent), current_language(language), previous_language(language)
{
    initLanguage(primaryPath, backupPath);
}

QString UITextManager::getLanguageKey(int id)
{
    const int index = (id >= 0 && id < kLanguageCount) ? id : 0;
    return QString::fromLatin1(kLanguageKeys[index]);
}

int UITextManager::getLanguageID(const QString& name)
{
    for (int id = 0; id < kLanguageCount; ++id) {
        if (name == QLatin1String(kLanguageKeys[id])) {
            return id;
        }
    }
    return 0;
}

QString UITextManager::getText(const QString& key) const
{
    return text_map.value(key, key);
}

QString UITextManager::getText(const QString& key, const QString& param) const
{
    return getText(key).replace(QStringLiteral("{param}"), param);
}

QString UITextManager::getTextWithFallback(const QString& key) const
{
    const QString text = getText(key);
    if (isValidTranslation(text, key)) {
        return text;
    }
    logTranslationIssue(key, kIssueKeyInvalid, QStringLiteral("Original text: '%1'").arg(text));
    return key;
}

QString UITextManager::getTextWithFallback(const QString& key, const QString& param,
                                           const QString& placeholder) const
{
    QString text = getText(key);
    if (!isValidTranslation(text, key)) {
        logTranslationIssue(key, kIssueKeyInvalid,
                            QStringLiteral("Original text: '%1', Param: '%2'").arg(text, param));
        return errorMarked(key);
    }
    if (!text.contains(placeholder)) {
        logTranslationIssue(key, kIssuePlaceholderMissing,
                            QStringLiteral("Text: '%1', Placeholder: '%2', Param: '%3'")
                                .arg(text, placeholder, param));
        return errorMarked(key);
    }
    return text.replace(placeholder, param);
}

QString UITextManager::getTextWithFallback(const QString& key,
                                           const QHash<QString, QString>& params) const
{
    const QString text = getText(key);
    if (!isValidTranslation(text, key)) {
        logTranslationIssue(key, kIssueKeyInvalid, QStringLiteral("Original text: '%1'").arg(text));
        return errorMarked(key);
    }
    QString result = text;
    for (auto it = params.constBegin(); it != params.constEnd(); ++it) {
        const QString placeholder = QStringLiteral("{%1}").arg(it.key());
        if (result.contains(placeholder)) {
            result.replace(placeholder, it.value());
        } else {
            logTranslationIssue(
                key, kIssuePlaceholderMissing,
                QStringLiteral("Placeholder: '%1' not found in text: '%2'").arg(placeholder, text));
        }
    }
    return result;
}

QString UITextManager::getTextWithFallback(const QString& key, int index) const
{
    const QString elementKey = key + QLatin1Char('[') + QString::number(index) + QLatin1Char(']');
    QString text = getText(elementKey);
    if (isValidTranslation(text, elementKey)) {
        return text;
    }
    text = getText(key);
    if (isValidTranslation(text, key)) {
        return text;
    }
    logTranslationIssue(key, kIssueKeyInvalid, QStringLiteral("Original text: '%1'").arg(text));
    return key;
}

void UITextManager::switchLanguage(int id)
{
    if (id == current_language) {
        return;
    }
    const std::string name = getLanguageKey(id).toStdString();
    if (!root_document.is_object() || !root_document.contains(name)) {
        LOG_DB("Language not found: %s\n", name.c_str());
        return;
    }
    previous_language = current_language;
    current_language = id;
    language_document = root_document[name];
    buildQStringCache();
    emit languageChanged();
}

void UITextManager::onSystemLanguageChanged(int language_id)
{
    switchLanguage(language_id);
}

bool UITextManager::isValidTranslation(const QString& text, const QString& key) const
{
    return !text.isEmpty() && text != key;
}

void UITextManager::logTranslationIssue(const QString& key, const QString& issue,
                                        const QString& details) const
{
    qWarning().noquote() << "[Translation Issue]" << issue << "- Key:" << key
                         << (details.isEmpty() ? QString()
                                               : QStringLiteral("- Details: %1").arg(details));
}

bool UITextManager::loadFromFile(const QString& path)
{
    const std::string narrowPath = path.toStdString();
    std::ifstream file(narrowPath, std::ios::binary);
    if (!file.is_open()) {
        return false;
    }
    try {
        const std::string content((std::istreambuf_iterator<char>(file)),
                                  std::istreambuf_iterator<char>());
        root_document = json::parse(content);
        // The inserting lookup is wanted: a file without the current language
        // still counts as loaded, with an empty map, so that a later switch to
        // a language it does hold can work.
        language_document = root_document[getLanguageKey(current_language).toStdString()];
        buildQStringCache();
        return true;
    } catch (const std::exception& e) {
        LOG_ERR("Error loading language file:%s - %s", narrowPath.c_str(), e.what());
        return false;
    }
}

bool UITextManager::loadAndReport(const std::string& path)
{
    if (!loadFromFile(QString::fromStdString(path))) {
        return false;
    }
    LOG_DB("Language JSON loaded from file: %s \n", path.c_str());
    return true;
}

void UITextManager::initLanguage()
{
    primary_path = kPrimaryLanguagePath;
    backup_path = kBackupLanguagePath;
    const QByteArray overridePath = qgetenv(kLanguageFileEnv);
    if (!overridePath.isEmpty()) {
        if (loadAndReport(overridePath.toStdString())) {
            return;
        }
        LOG_WAR("Language file from %s not loaded: %s\n", kLanguageFileEnv,
                overridePath.constData());
    }
    loadFromStoredPaths();
}

void UITextManager::initLanguage(const QString& primaryPath, const QString& backupPath)
{
    primary_path = primaryPath.toStdString();
    backup_path = backupPath.toStdString();
    loadFromStoredPaths();
}

void UITextManager::loadFromStoredPaths()
{
    if (loadAndReport(primary_path) || loadAndReport(backup_path)) {
        return;
    }
    LOG_ERR("Language JSON load failed: %s\n", primary_path.c_str());
    LOG_ERR("Language bak JSON load failed: %s\n", backup_path.c_str());
}

void UITextManager::buildQStringCache()
{
    text_map.clear();
    flattenJson(language_document, std::string(), text_map);
}
