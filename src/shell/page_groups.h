#pragma once
// The map of the pages: which page belongs to which group, where a page sits
// in its group's row of dots for a work mode, where a settings page returns
// to, and the text keys of the status bar's breadcrumb. Pure functions of the
// page id (and the work mode), so that the window and its tests share them.
#include <QStringList>

bool isStatusPage(int page);
bool isShortcutPage(int page);
bool isMixedHomePage(int page);
bool isMainMenuPage(int page);
bool isSystemSettingsPage(int page);
bool isNetworkSettingsPage(int page);
bool isCameraSettingsPage(int page);
bool isVideoSettingsPage(int page);
bool isAudioSettingsPage(int page);
bool isMediaSettingsPage(int page);
bool isDecodeSettingsPage(int page);
// Any of the seven settings groups.
bool isSubMenuPage(int page);
bool isSettingsPage(int page);
bool shouldShowSubmenuArrowButtons(int page);
bool isModalPage(int page);
bool isContentPage(int page);
bool isEncoderMixedHomePage(int page);
bool isDecoderMixedHomePage(int page);

// Pages in the home group: 6 when encoding, 5 when decoding, else 1.
int mixedHomePageCount(int workMode);
// Dot index of a home page: shortcut pages left of the status pages, the
// record page next to them. 0 for a page not on the mode's row.
int mixedHomePageIndex(int page, int workMode);
// The home page at `index` of the mode's row, or -1.
int mixedHomePageAt(int index, int workMode);
int pageGroupCount(int page, int workMode);
int pageIndexInGroup(int page, int workMode);
// The menu page holding a settings group's entry, or -1.
int settingsMenuReturnPage(int page);

// Text keys of the breadcrumb of a page: empty, one key, or the menu key
// followed by the group's key.
QStringList pageContextKeys(int page);
// Title key of the open modal flow: `selector` is the edit type, slider type
// or confirm action of the page. Empty when there is none.
QString modalTitleKey(int page, int selector);

// The separator between the parts of a breadcrumb.
extern const QString kContextSeparator;
