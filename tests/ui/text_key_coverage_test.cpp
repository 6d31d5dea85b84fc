// Guards the language file: every language holds the same keys, and every key
// that the panel's code asks for stands in every language.
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

// Keys that the pages, the shell and the overlays show by a fixed name.
const std::vector<std::string> kFixedKeys = {
    "app_connect.Pair[2]",
    "audio_settings.audio_source",
    "audio_settings.audio_sw",
    "audio_settings.audio_volume",
    "audio_source.bt",
    "audio_source.hdmi",
    "audio_source.line",
    "audio_source.mic",
    "audio_source.usb",
    "bt.bt auto",
    "bt.bt pair",
    "bt.bt pair error",
    "bt.bt pair timeout",
    "camera_settings.lcd_brightness",
    "camera_settings.lcd_lock",
    "camera_settings.lcd_sleep",
    "camera_settings.min",
    "camera_settings.ptz_protocol",
    "camera_settings.tally_enable",
    "camera_settings.tally_light",
    "camera_settings.tally_mode",
    "confirm_page.cancel",
    "confirm_page.confirm",
    "decoder_shortcut.ndi_empty",
    "decoder_shortcut.pull_empty",
    "decoder_shortcut.uvc_empty",
    "decoding_settings.rtmp_server",
    "decoding_settings.srt_server",
    "disk_status.disk_error",
    "disk_status.disk_fs_unsupported",
    "disk_status.disk_full",
    "disk_status.disk_other_error",
    "disk_status.disk_readonly",
    "disk_status.disk_unmounted",
    "disk_status.switch_disk_prompt",
    "edit_page.back",
    "encoder_shortcut.disk",
    "encoder_shortcut.osd_empty",
    "encoder_shortcut.pause",
    "encoder_shortcut.record",
    "encoder_shortcut.resume",
    "encoder_shortcut.stop",
    "encoder_shortcut.stream_empty",
    "fan_mode.performance",
    "fan_mode.silent",
    "fan_mode.standard",
    "gesture_guide.item_app",
    "gesture_guide.item_home",
    "gesture_guide.item_menu",
    "gesture_guide.item_pages",
    "gesture_guide.item_shortcut",
    "gesture_guide.item_unlock",
    "language.chinese",
    "language.english",
    "language.french",
    "language.japanese",
    "language.portuguese",
    "mainmenu.audio",
    "mainmenu.decoding",
    "mainmenu.network",
    "mainmenu.ptz",
    "mainmenu.streaming",
    "mainmenu.system",
    "mainmenu.video",
    "media_settings.disk_select",
    "media_settings.disk_speed",
    "media_settings.ndi_quality",
    "media_settings.ndi_switch",
    "media_settings.srt_switch",
    "network_settings.ap",
    "network_settings.ap_closed",
    "network_settings.nas_empty",
    "network_settings.pair Device",
    "network_settings.qr_ap_access",
    "network_settings.qr_connect_hotspot",
    "network_settings.qr_empty_hint",
    "network_settings.qr_network_access",
    "network_settings.wlan",
    "point_info.audio_no_valid_source",
    "point_info.audio_record_on",
    "point_info.busy",
    "point_info.close_ndi_before_stream",
    "point_info.disk_full",
    "point_info.disk_invalid",
    "point_info.disk_speed_started",
    "point_info.duplicate",
    "point_info.executing",
    "point_info.failed",
    "point_info.file_duplicate",
    "point_info.file_upload_failed",
    "point_info.function_not_support",
    "point_info.invalid_param",
    "point_info.loading",
    "point_info.lock",
    "point_info.mediaplayer_state_invalid",
    "point_info.mediaplayer_type_unsupported",
    "point_info.nas_already_opened",
    "point_info.ndi_search_finished",
    "point_info.ndi_search_started",
    "point_info.need_restart",
    "point_info.network_no_wifi_module",
    "point_info.no_signal",
    "point_info.not_open",
    "point_info.not_ready",
    "point_info.param_incomplete",
    "point_info.param_out_of_range",
    "point_info.product_not_support",
    "point_info.rebooting",
    "point_info.record_codec_unsupported",
    "point_info.record_disk_limit_4gb",
    "point_info.record_enable_too_fast",
    "point_info.record_index_invalid",
    "point_info.record_name_exists",
    "point_info.record_start_failed",
    "point_info.record_task_limit",
    "point_info.record_task_started",
    "point_info.record_task_started_cannot_delete",
    "point_info.recording_cannot_modify",
    "point_info.retry_later",
    "point_info.signal_missing",
    "point_info.space_not_enough",
    "point_info.storage_busy",
    "point_info.storage_format_failed",
    "point_info.storage_info_max",
    "point_info.storage_nas_busy",
    "point_info.storage_nas_closed",
    "point_info.storage_opened_cannot_modify",
    "point_info.storage_recording_busy",
    "point_info.storage_snap_format_error",
    "point_info.storage_snap_too_fast",
    "point_info.storage_speed_test_failed",
    "point_info.stream_close_failed",
    "point_info.stream_index_invalid",
    "point_info.stream_limit",
    "point_info.stream_ndi_conflict",
    "point_info.stream_need_close",
    "point_info.stream_start_failed",
    "point_info.stream_switch_too_fast",
    "point_info.stream_type_unsupported",
    "point_info.streamplay_failed",
    "point_info.streamplay_start_failed",
    "point_info.streamplay_start_push_first",
    "point_info.succeed",
    "point_info.switch_control_failed",
    "point_info.system_switching",
    "point_info.system_workmode_already_switched",
    "point_info.system_workmode_too_fast",
    "point_info.too_fast",
    "point_info.unlock",
    "point_info.verify_invalid",
    "point_info.video_no_signal_source",
    "pull_status.status_on",
    "pull_status.status_undefined",
    "standby_page.standby",
    "standby_page.wake",
    "statusbar.context.adjust",
    "statusbar.context.confirm",
    "statusbar.context.edit",
    "statusbar.context.menu",
    "statusbar.context.ndi_ctrl",
    "statusbar.context.osd_ctrl",
    "statusbar.context.pull_ctrl",
    "statusbar.context.record_ctrl",
    "statusbar.context.stream_ctrl",
    "statusbar.context.uvc_ctrl",
    "statusbar.workmode.decode",
    "statusbar.workmode.encode",
    "statusp1.badge.dhcp",
    "statusp1.badge.static",
    "statusp1.label.cpu",
    "statusp1.label.mem",
    "statusp2.badge.mainstream",
    "statusp2.badge.substream",
    "statusp2.dec_not_start",
    "statusp2.label.loopout",
    "statusp2.label.mute",
    "statusp2.no_signal",
    "statusp2.not_supported",
    "statusp3.audio_not_supported",
    "statusp3.label.audio",
    "statusp3.no_audio",
    "statusp3.status.off",
    "statusp3.status.on",
    "system_settings.dc_out",
    "system_settings.dcout_content",
    "system_settings.fan",
    "system_settings.language",
    "system_settings.reboot",
    "system_settings.reset",
    "system_settings.restart_content",
    "system_settings.restore_content",
    "system_settings.shutdown",
    "system_settings.standby",
    "system_settings.standby_content",
    "system_settings.theme",
    "system_settings.usbmode",
    "system_settings.workmode",
    "tally_light.green",
    "tally_light.off",
    "tally_light.red",
    "tally_mode.auto",
    "tally_mode.gameing",
    "tally_mode.manual",
    "tally_mode.tally",
    "theme.black",
    "theme.blue",
    "upgrade.download",
    "upgrade.rebooting",
    "upgrade.waring",
    "video_settings.ai_function",
    "video_settings.green_screen",
    "video_settings.gsk_resolution_invalid",
    "video_settings.loop_out",
    "video_settings.mute_out",
    "video_settings.no_backdrop",
    "video_settings.vo_format",
    "workmode.decode",
    "workmode.encode",
};

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

std::vector<std::string> requiredKeys()
{
    std::vector<std::string> keys = kFixedKeys;
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

TEST(TextLanguageFile, HoldsEveryKeyThatThePanelShows)
{
    const LanguageFile& file = languageFile();
    ASSERT_EQ(file.maps.size(), std::size(kLanguages));
    for (const std::string& key : requiredKeys())
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
