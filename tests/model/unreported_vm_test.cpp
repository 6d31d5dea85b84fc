// A value counts only once its topic has reported or its group has been read:
// with every value in the caches but no flag set, each view model shows its
// defaults.
#include "device_caches.h"
#include "model/vm_builders/settings_vm_builders.h"
#include "model/vm_builders/shortcut_vm_builders.h"
#include "model/vm_builders/status_vm_builders.h"

namespace modeltest {
namespace {

TEST(UnreportedVm, EveryViewModelKeepsItsDefaults)
{
    const Caches c = unreportedCaches();
    const ZmqSubCache& s = c.sub;
    const ZmqGetCache& g = c.get;
    for (int stored : {kEncoder, kDecoder}) {
        SCOPED_TRACE(stored);

        StatusBarVM bar;
        bar.work_mode = stored;
        EXPECT_EQ(computeStatusBarVm(s, g, stored), bar);
        StatusPage1VM page1;
        page1.ip_text = "---.---.---.---";
        EXPECT_EQ(computeStatusPage1Vm(s, g), page1);
        StatusPage2VM page2;
        page2.work_mode = stored;
        EXPECT_EQ(computeStatusPage2Vm(s, g, stored), page2);
        EXPECT_EQ(computeStatusPage3Vm(s, g), StatusPage3VM());

        EXPECT_EQ(computeSystemSettingsPageVm(g), SystemSettingsPageVM());
        EXPECT_EQ(computeNetworkSettingsPageVm(s, g, c.http_port), NetworkSettingsPageVM());
        EXPECT_EQ(computeCameraSettingsPageVm(g), CameraSettingsPageVM());
        VideoSettingsPageVM video;
        video.work_mode = stored;
        EXPECT_EQ(computeVideoSettingsPageVm(s, g, stored), video);
        EXPECT_EQ(computeAudioSettingsPageVm(s, g, stored), AudioSettingsPageVM());
        MediaSettingsPageVM media;
        media.work_mode = stored;
        EXPECT_EQ(computeMediaSettingsPageVm(s, g, stored), media);
        EXPECT_EQ(computeDecodingSettingsPageVm(g), DecodingSettingsPageVM());

        EXPECT_EQ(computeEncoderShortcutPageVm(s, g), EncoderShortcutPageVM());
        EXPECT_EQ(computeDecoderShortcutPageVm(g), DecoderShortcutPageVM());
        EXPECT_EQ(computeConnectAppVm(s, g), ConnectAppVM());
    }
}

} // namespace
} // namespace modeltest
