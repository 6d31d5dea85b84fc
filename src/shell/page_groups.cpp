#include "shell/page_groups.h"

#include "pages/page_ids.h"

#include <array>

const QString kContextSeparator = QStringLiteral("  \u00BB  ");

namespace {

bool inRange(int page, int first, int last)
{
    return page >= first && page <= last;
}

// The home rows, left to right. The record shortcut page stands next to the
// status pages, hence the 2, 3, 1 order of the encoder pages.
constexpr std::array<int, 6> kEncodeHomeRow = {PAGE_ENCODER_SHORTCUT_2, PAGE_ENCODER_SHORTCUT_3,
                                               PAGE_ENCODER_SHORTCUT_1, PAGE_STATUS_1,
                                               PAGE_STATUS_2,           PAGE_STATUS_3};
constexpr std::array<int, 5> kDecodeHomeRow = {PAGE_DECODER_SHORTCUT_3, PAGE_DECODER_SHORTCUT_2,
                                               PAGE_DECODER_SHORTCUT_1, PAGE_STATUS_1,
                                               PAGE_STATUS_2};

template <std::size_t N> int indexInRow(const std::array<int, N>& row, int page)
{
    for (std::size_t i = 0; i < N; ++i) {
        if (row[i] == page)
            return static_cast<int>(i);
    }
    return 0;
}

// First page of each multi-page group, for the index within the group.
int firstPageOfGroup(int page)
{
    if (isMainMenuPage(page))
        return PAGE_MAIN_MENU_1;
    if (isSystemSettingsPage(page))
        return PAGE_SYSTEM_SETTINGS_1;
    if (isNetworkSettingsPage(page))
        return PAGE_NETWORK_SETTINGS_1;
    if (isCameraSettingsPage(page))
        return PAGE_CAMERA_SETTINGS_1;
    if (isVideoSettingsPage(page))
        return PAGE_VIDEO_SETTINGS_1;
    if (isMediaSettingsPage(page))
        return PAGE_MEDIA_SETTINGS_1;
    return -1;
}

QString settingsGroupKey(int page)
{
    if (isSystemSettingsPage(page))
        return QStringLiteral("mainmenu.system");
    if (isNetworkSettingsPage(page))
        return QStringLiteral("mainmenu.network");
    if (isCameraSettingsPage(page))
        return QStringLiteral("mainmenu.ptz");
    if (isVideoSettingsPage(page))
        return QStringLiteral("mainmenu.video");
    if (isAudioSettingsPage(page))
        return QStringLiteral("mainmenu.audio");
    if (isMediaSettingsPage(page))
        return QStringLiteral("mainmenu.streaming");
    if (isDecodeSettingsPage(page))
        return QStringLiteral("mainmenu.decoding");
    return QString();
}

QString singleContextKey(int page)
{
    switch (page) {
    case PAGE_ENCODER_SHORTCUT_1:
        return QStringLiteral("statusbar.context.record_ctrl");
    case PAGE_ENCODER_SHORTCUT_2:
        return QStringLiteral("statusbar.context.osd_ctrl");
    case PAGE_ENCODER_SHORTCUT_3:
        return QStringLiteral("statusbar.context.stream_ctrl");
    case PAGE_DECODER_SHORTCUT_1:
        return QStringLiteral("statusbar.context.pull_ctrl");
    case PAGE_DECODER_SHORTCUT_2:
        return QStringLiteral("statusbar.context.uvc_ctrl");
    case PAGE_DECODER_SHORTCUT_3:
        return QStringLiteral("statusbar.context.ndi_ctrl");
    case PAGE_GENERAL_EDIT:
        return QStringLiteral("statusbar.context.edit");
    case PAGE_GENERAL_SLIDER:
        return QStringLiteral("statusbar.context.adjust");
    case PAGE_GENERAL_CONFIRM:
        return QStringLiteral("statusbar.context.confirm");
    default:
        return QString();
    }
}

const std::array<const char*, 12> kEditTitleKeys = {
    "system_settings.language",    "system_settings.theme",       "system_settings.workmode",
    "system_settings.fan",         "system_settings.usbmode",     "camera_settings.ptz_protocol",
    "camera_settings.tally_mode",  "camera_settings.tally_light", "video_settings.vo_format",
    "audio_settings.audio_source", "media_settings.ndi_quality",  "media_settings.disk_select",
};

QString sliderTitleKey(int sliderType)
{
    switch (sliderType) {
    case 0:
        return QStringLiteral("camera_settings.lcd_brightness");
    case 1:
        return QStringLiteral("camera_settings.lcd_sleep");
    case 2:
    case 3:
        return QStringLiteral("audio_settings.audio_volume");
    default:
        return QString();
    }
}

QString confirmTitleKey(int actionType)
{
    switch (actionType) {
    case 1:
        return QStringLiteral("system_settings.reboot");
    case 2:
        return QStringLiteral("system_settings.reset");
    case 3:
        return QStringLiteral("system_settings.standby");
    default:
        return QString();
    }
}

} // namespace

bool isStatusPage(int page)
{
    return inRange(page, PAGE_STATUS_1, PAGE_STATUS_3);
}

bool isShortcutPage(int page)
{
    return inRange(page, PAGE_ENCODER_SHORTCUT_1, PAGE_DECODER_SHORTCUT_3);
}

bool isMixedHomePage(int page)
{
    return isStatusPage(page) || isShortcutPage(page);
}

bool isMainMenuPage(int page)
{
    return inRange(page, PAGE_MAIN_MENU_1, PAGE_MAIN_MENU_2);
}

bool isSystemSettingsPage(int page)
{
    return inRange(page, PAGE_SYSTEM_SETTINGS_1, PAGE_SYSTEM_SETTINGS_4);
}

bool isNetworkSettingsPage(int page)
{
    return inRange(page, PAGE_NETWORK_SETTINGS_1, PAGE_NETWORK_SETTINGS_3);
}

bool isCameraSettingsPage(int page)
{
    return inRange(page, PAGE_CAMERA_SETTINGS_1, PAGE_CAMERA_SETTINGS_3);
}

bool isVideoSettingsPage(int page)
{
    return inRange(page, PAGE_VIDEO_SETTINGS_1, PAGE_VIDEO_SETTINGS_2);
}

bool isAudioSettingsPage(int page)
{
    return page == PAGE_AUDIO_SETTINGS;
}

bool isMediaSettingsPage(int page)
{
    return inRange(page, PAGE_MEDIA_SETTINGS_1, PAGE_MEDIA_SETTINGS_2);
}

bool isDecodeSettingsPage(int page)
{
    return page == PAGE_DECODING_SETTINGS;
}

bool isSubMenuPage(int page)
{
    return inRange(page, PAGE_SYSTEM_SETTINGS_1, PAGE_DECODING_SETTINGS);
}

bool isSettingsPage(int page)
{
    return isSubMenuPage(page);
}

bool shouldShowSubmenuArrowButtons(int page)
{
    return isSubMenuPage(page);
}

bool isModalPage(int page)
{
    return inRange(page, PAGE_GENERAL_EDIT, PAGE_GENERAL_CONFIRM);
}

bool isContentPage(int page)
{
    return isMixedHomePage(page) || isMainMenuPage(page) || isSubMenuPage(page);
}

bool isEncoderMixedHomePage(int page)
{
    return isStatusPage(page) || inRange(page, PAGE_ENCODER_SHORTCUT_1, PAGE_ENCODER_SHORTCUT_3);
}

bool isDecoderMixedHomePage(int page)
{
    return inRange(page, PAGE_STATUS_1, PAGE_STATUS_2)
           || inRange(page, PAGE_DECODER_SHORTCUT_1, PAGE_DECODER_SHORTCUT_3);
}

int mixedHomePageCount(int workMode)
{
    if (workMode == 0)
        return static_cast<int>(kEncodeHomeRow.size());
    if (workMode == 1)
        return static_cast<int>(kDecodeHomeRow.size());
    return 1;
}

int mixedHomePageIndex(int page, int workMode)
{
    if (workMode == 0)
        return indexInRow(kEncodeHomeRow, page);
    if (workMode == 1)
        return indexInRow(kDecodeHomeRow, page);
    return 0;
}

int mixedHomePageAt(int index, int workMode)
{
    if (index < 0 || index >= mixedHomePageCount(workMode))
        return -1;
    if (workMode == 0)
        return kEncodeHomeRow[static_cast<std::size_t>(index)];
    if (workMode == 1)
        return kDecodeHomeRow[static_cast<std::size_t>(index)];
    return PAGE_STATUS_1;
}

int pageGroupCount(int page, int workMode)
{
    if (isMixedHomePage(page))
        return mixedHomePageCount(workMode);
    if (isMainMenuPage(page))
        return 2;
    if (isSystemSettingsPage(page))
        return 4;
    if (isNetworkSettingsPage(page) || isCameraSettingsPage(page))
        return 3;
    if (isVideoSettingsPage(page))
        return workMode == 0 ? 2 : 1;
    if (isMediaSettingsPage(page))
        return 2;
    return 1;
}

int pageIndexInGroup(int page, int workMode)
{
    if (isMixedHomePage(page))
        return mixedHomePageIndex(page, workMode);
    const int first = firstPageOfGroup(page);
    return first < 0 ? 0 : page - first;
}

int settingsMenuReturnPage(int page)
{
    if (isSystemSettingsPage(page) || isNetworkSettingsPage(page) || isCameraSettingsPage(page))
        return PAGE_MAIN_MENU_2;
    if (isVideoSettingsPage(page) || isAudioSettingsPage(page) || isMediaSettingsPage(page)
        || isDecodeSettingsPage(page))
        return PAGE_MAIN_MENU_1;
    return -1;
}

QStringList pageContextKeys(int page)
{
    const QString menuKey = QStringLiteral("statusbar.context.menu");
    if (isMainMenuPage(page))
        return {menuKey};
    if (isSubMenuPage(page))
        return {menuKey, settingsGroupKey(page)};
    const QString key = singleContextKey(page);
    return key.isEmpty() ? QStringList() : QStringList{key};
}

QString modalTitleKey(int page, int selector)
{
    switch (page) {
    case PAGE_GENERAL_EDIT:
        if (selector >= 0 && selector < static_cast<int>(kEditTitleKeys.size()))
            return QString::fromLatin1(kEditTitleKeys[static_cast<std::size_t>(selector)]);
        return QString();
    case PAGE_GENERAL_SLIDER:
        return sliderTitleKey(selector);
    case PAGE_GENERAL_CONFIRM:
        return confirmTitleKey(selector);
    default:
        return QString();
    }
}
