// Renders every settings page with a typical record in both themes, into the
// build's screenshots/pages folder, for a look by eye.
#include "page_test_support.h"
#include "pages/audio_settings_page_widget.h"
#include "pages/camera_settings_page_widget.h"
#include "pages/decoding_settings_page_widget.h"
#include "pages/media_settings_page_widget.h"
#include "pages/network_settings_page_widget.h"
#include "pages/system_settings_page_widget.h"
#include "pages/video_settings_page_widget.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace {

class SettingsScreenshots : public ::testing::Test {
protected:
    std::unique_ptr<UITextManager> texts = pagetest::makeTextManager();

    template <class Page, class VM> void snap(const char* name, const VM& vm)
    {
        Page page(texts.get());
        page.updateFromVm(vm);
        pagetest::showAndSettle(&page);
        pagetest::saveThemedScreenshots(&page, QString::fromLatin1(name));
        const QString file =
            QStringLiteral(PANEL_BINARY_DIR "/screenshots/pages/%1_blue.png").arg(name);
        EXPECT_TRUE(QFileInfo::exists(file)) << file.toStdString();
    }
};

TEST_F(SettingsScreenshots, SystemPages)
{
    SystemSettingsPageVM vm;
    vm.dc_out_on = true;
    vm.device_name = "Studio Left";
    vm.device_start_time = "2025-03-01 10:00:00";
    vm.persistent_time = "01:02:03";
    vm.firmware_version = "V2.1.0";
    vm.hardware_version = "V1.2";
    vm.serial_number = "QP24001234";
    snap<SystemSettingsPage1Widget>("settings_system_1", vm);
    snap<SystemSettingsPage2Widget>("settings_system_2", vm);
    snap<SystemSettingsPage3Widget>("settings_system_3", vm);
    snap<SystemSettingsPage4Widget>("settings_system_4", vm);
}

TEST_F(SettingsScreenshots, NetworkPages)
{
    NetworkSettingsPageVM vm;
    vm.wifi_on = true;
    vm.ap_on = true;
    vm.client_link = true;
    vm.ap_wifi_qr = "WIFI:S:box;T:WPA;P:secret;H:false;;";
    vm.ap_http_url = "http://170.128.88.1:80";
    vm.http_url = "http://192.168.1.77:80";
    vm.nas_list = {{"archive", true, 2}, {"backup-long-share-name", false, 3}, {"media", false, 1}};
    snap<NetworkSettingsPage1Widget>("settings_network_1", vm);
    snap<NetworkSettingsPage2Widget>("settings_network_2", vm);
    snap<NetworkSettingsPage3Widget>("settings_network_3", vm);
    snap<NetworkSettingsPage1Widget>("settings_network_1_empty", NetworkSettingsPageVM{});
}

TEST_F(SettingsScreenshots, CameraPages)
{
    CameraSettingsPageVM vm;
    vm.tally_on = true;
    vm.lcd_lock_on = true;
    snap<CameraSettingsPage1Widget>("settings_camera_1", vm);
    snap<CameraSettingsPage2Widget>("settings_camera_2", vm);
    snap<CameraSettingsPage3Widget>("settings_camera_3", vm);
}

TEST_F(SettingsScreenshots, VideoAudioMediaDecodingPages)
{
    VideoSettingsPageVM video;
    video.loop_out_on = true;
    video.ai_tracking_on = true;
    snap<VideoSettingsPage1Widget>("settings_video_1", video);
    snap<VideoSettingsPage2Widget>("settings_video_2", video);
    video.work_mode = 1;
    snap<VideoSettingsPage1Widget>("settings_video_1_decode", video);

    AudioSettingsPageVM audio;
    audio.ai_type = 3;
    snap<Audio_settings_page_widget>("settings_audio", audio);

    MediaSettingsPageVM media;
    media.srt_on = true;
    media.record_status = 1;
    media.ndi_on = true;
    media.ndi_mode_id = 2;
    media.ndi_machinename = "STUDIO-ENCODER-LEFT";
    snap<MediaSettingsPage1Widget>("settings_media_1", media);
    snap<MediaSettingsPage2Widget>("settings_media_2", media);

    DecodingSettingsPageVM decoding;
    decoding.rtmp_on = true;
    snap<Decoding_settings_page_widget>("settings_decoding", decoding);
}

} // namespace
