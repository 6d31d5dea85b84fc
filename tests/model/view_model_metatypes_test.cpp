#include "model/view_models/view_model_metatypes.h"
#include "model/view_models/view_models.h"

#include <QVariant>
#include <gtest/gtest.h>

namespace {

TEST(ViewModelMetaTypesTest, EveryRecordIsKnownByItsName)
{
    registerViewModelMetaTypes();
    registerViewModelMetaTypes(); // a second call must be harmless

    const char* const names[] = {"StatusBarVM",
                                 "StatusPage1VM",
                                 "StatusPage2VM",
                                 "StatusPage3VM",
                                 "SystemSettingsPageVM",
                                 "NetworkSettingsPageVM",
                                 "CameraSettingsPageVM",
                                 "VideoSettingsPageVM",
                                 "AudioSettingsPageVM",
                                 "MediaSettingsPageVM",
                                 "DecodingSettingsPageVM",
                                 "StandbyPageVM",
                                 "EditModePageVM",
                                 "SliderModePageVM",
                                 "ConfirmDialogPageVM",
                                 "OperationOverlayVM",
                                 "NavDotsState",
                                 "UiLayerState",
                                 "PresentationState",
                                 "EncoderShortcutPageVM",
                                 "DecoderShortcutPageVM",
                                 "ConnectAppVM",
                                 "ConnectBTVM",
                                 "ShortcutVM",
                                 "DynamicScreensaverVM"};
    for (const char* name : names) {
        EXPECT_NE(QMetaType::type(name), QMetaType::UnknownType) << name;
    }
    EXPECT_EQ(QMetaType::type("StatusBarVM"), qMetaTypeId<StatusBarVM>());
    EXPECT_EQ(QMetaType::type("ConnectBTVM"), qMetaTypeId<ConnectBTVM>());
}

TEST(ViewModelMetaTypesTest, RecordSurvivesAVariantCopy)
{
    registerViewModelMetaTypes();
    DecoderShortcutPageVM vm;
    DecoderShortcutItemInfo row;
    row.id = 7;
    row.name = "CAM";
    vm.ndi_items = {row};
    const QVariant copy = QVariant::fromValue(vm);
    EXPECT_EQ(copy.value<DecoderShortcutPageVM>(), vm);
}

} // namespace
