#pragma once

#include <QHash>
#include <QMap>
#include <QObject>
#include <QString>

#include <nlohmann/json.hpp>

#include <string>

// Dotted key ("mainmenu.video", "app_connect.Pair[2]") to text, for one language.
using TextMap = QMap<QString, QString>;

// Fills `map` from the members of a language subtree. Nested objects join their
// names with ".", arrays add "[i]"; members whose name starts with "_comment"
// are skipped with everything below them; numbers, booleans and nulls are
// dropped. A later member that flattens to an existing key replaces it.
void flattenJson(const nlohmann::json& value, const std::string& prefix, TextMap& map);
void flattenJsonArray(const nlohmann::json& value, const std::string& prefix, TextMap& map);

// Every word shown on the panel, looked up by dotted key in the current
// language. A missing text never fails: the key (or the key with " [error]")
// comes back and a warning is logged through qWarning.
class UITextManager : public QObject {
    Q_OBJECT

public:
    static constexpr const char* kPrimaryLanguagePath =
        "/usr/local/config/language/language-vantor-ui.json";
    static constexpr const char* kBackupLanguagePath =
        "/mnt/config/language/language-vantor-ui.json";
    // When set and not empty, this file is tried before the device paths, so
    // that the panel can run off the device with the project's own file.
    static constexpr const char* kLanguageFileEnv = "PANEL_LANGUAGE_FILE";

    explicit UITextManager(QObject* parent = nullptr, int language = 0);
    // Reads the given files instead of the device paths and ignores the
    // environment; for tests and tools.
    UITextManager(QObject* parent, int language, const QString& primaryPath,
                  const QString& backupPath);

    int getCurrentLanguage() const { return current_language; }
    int getPreviousLanguage() const { return previous_language; }
    const std::string& primaryPath() const { return primary_path; }
    const std::string& backupPath() const { return backup_path; }
    const TextMap& textMap() const { return text_map; }

    static QString getLanguageKey(int id);
    static int getLanguageID(const QString& name);

    QString getText(const QString& key) const;
    QString getText(const QString& key, const QString& param) const;

    QString getTextWithFallback(const QString& key) const;
    QString getTextWithFallback(const QString& key, const QString& param,
                                const QString& placeholder) const;
    QString getTextWithFallback(const QString& key, const QHash<QString, QString>& params) const;
    QString getTextWithFallback(const QString& key, int index) const;

    void switchLanguage(int id);

    bool isValidTranslation(const QString& text, const QString& key) const;
    void logTranslationIssue(const QString& key, const QString& issue,
                             const QString& details) const;

    bool loadFromFile(const QString& path);
    void initLanguage();
    void initLanguage(const QString& primaryPath, const QString& backupPath);
    void buildQStringCache();

signals:
    void languageChanged();

public slots:
    void onSystemLanguageChanged(int language_id);

private:
    bool loadAndReport(const std::string& path);
    void loadFromStoredPaths();

    std::string primary_path;
    std::string backup_path;
    nlohmann::json root_document;
    nlohmann::json language_document;
    TextMap text_map;
    int current_language;
    int previous_language;
};
