#include "model/view_models/view_model_metatypes.h"

#include "model/view_models/view_models.h"

#include <mutex>

void registerViewModelMetaTypes()
{
    static std::once_flag once;
    std::call_once(once, [] {
        qRegisterMetaType<StatusBarVM>("StatusBarVM");
        qRegisterMetaType<StatusPage1VM>("StatusPage1VM");
        qRegisterMetaType<StatusPage2VM>("StatusPage2VM");
        qRegisterMetaType<StatusPage3VM>("StatusPage3VM");
        qRegisterMetaType<SystemSettingsPageVM>("SystemSettingsPageVM");
        qRegisterMetaType<NetworkSettingsPageVM>("NetworkSettingsPageVM");
        qRegisterMetaType<CameraSettingsPageVM>("CameraSettingsPageVM");
        qRegisterMetaType<VideoSettingsPageVM>("VideoSettingsPageVM");
        qRegisterMetaType<AudioSettingsPageVM>("AudioSettingsPageVM");
        qRegisterMetaType<MediaSettingsPageVM>("MediaSettingsPageVM");
        qRegisterMetaType<DecodingSettingsPageVM>("DecodingSettingsPageVM");
        qRegisterMetaType<StandbyPageVM>("StandbyPageVM");
        qRegisterMetaType<EditModePageVM>("EditModePageVM");
        qRegisterMetaType<SliderModePageVM>("SliderModePageVM");
        qRegisterMetaType<ConfirmDialogPageVM>("ConfirmDialogPageVM");
        qRegisterMetaType<OperationOverlayVM>("OperationOverlayVM");
        qRegisterMetaType<NavDotsState>("NavDotsState");
        qRegisterMetaType<UiLayerState>("UiLayerState");
        qRegisterMetaType<PresentationState>("PresentationState");
        qRegisterMetaType<EncoderShortcutPageVM>("EncoderShortcutPageVM");
        qRegisterMetaType<DecoderShortcutPageVM>("DecoderShortcutPageVM");
        qRegisterMetaType<ConnectAppVM>("ConnectAppVM");
        qRegisterMetaType<ConnectBTVM>("ConnectBTVM");
        qRegisterMetaType<ShortcutVM>("ShortcutVM");
        qRegisterMetaType<DynamicScreensaverVM>("DynamicScreensaverVM");
    });
}
