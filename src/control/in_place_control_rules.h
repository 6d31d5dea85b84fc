#pragma once
// The decisions behind the switches and list items that act in place on
// their page: which operation with which argument, or which card instead.
// Each function is named after the page signal it answers and takes the
// state that the page shows now.
#include "control/control_action.h"
#include "model/view_models/settings_view_models.h"
#include "model/view_models/shortcut_view_models.h"
#include "zmqapi/api_records.h"

#include <vector>

// The pages that a slow control refreshes when it is done.
enum InPlaceRefreshPage : int {
    REFRESH_NETWORK_SETTINGS = 10,
    REFRESH_VIDEO_SETTINGS = 16,
    REFRESH_DECODING_SETTINGS = 20,
    REFRESH_RECORD = 21,
    REFRESH_PUSH_STREAM = 23,
    REFRESH_PULL_STREAM = 24,
    REFRESH_UVC = 25,
    REFRESH_DEC_NDI = 26,
};

// Pixels of 1920 x 1080, the largest picture the green screen keys.
inline constexpr long long kGreenScreenMaxPixels = 1920LL * 1080LL;

ControlAction dcOutClickedAction(bool enabled, int voltage);
ControlAction wlanClickedAction(bool targetEnabled);
ControlAction apClickedAction(bool targetEnabled);
ControlAction nasClickedAction(const NetworkSettingsPageVM& vm, int index, bool isSwitch);
ControlAction tallyEnableClickedAction(bool enabled);
ControlAction muteOutClickedAction(bool enabled);
ControlAction loopOutClickedAction(bool enabled);
ControlAction aiTrackingClickedAction(bool enabled);
// `venc` is the encoder's stream list; its first entry is the main picture.
ControlAction greenScreenClickedAction(const VideoSettingsPageVM& vm,
                                       const std::vector<VideoEncInfo>& venc, bool enabled);
// The page already passes the switch's target.
ControlAction audioSwClickedAction(bool isMuted);
ControlAction srtSwitchClickedAction(bool enabled);
ControlAction ndiSwitchClickedAction(const EncoderShortcutPageVM& vm, bool enabled);
ControlAction rtmpServerClickedAction(bool enabled);
ControlAction srtServerClickedAction(bool enabled);
ControlAction srtPlayClickedAction(bool enabled);
ControlAction pushStreamItemClickedAction(const MediaSettingsPageVM& media,
                                          const EncoderShortcutPageVM& vm, int index,
                                          bool isEnabled);
ControlAction osdItemClickedAction(const EncoderShortcutPageVM& vm, int id, bool isEnabled);
ControlAction pullItemClickedAction(const DecoderShortcutPageVM& vm, int id, bool isEnabled);
ControlAction uvcItemClickedAction(const DecoderShortcutPageVM& vm, int id, bool isEnabled);
ControlAction ndiItemClickedAction(const DecoderShortcutPageVM& vm, int id, bool isEnabled);
ControlAction pauseClickedAction(const EncoderShortcutPageVM& vm);

// The quick action keys of the shortcut list page.
enum class ShortcutKey { Ignored, LockLcd, Standby, Restart };
ShortcutKey shortcutKeyFor(const QString& function);
// The confirm dialog that a key opens; Nothing for the other keys.
ControlAction shortcutKeyAction(ShortcutKey key);
