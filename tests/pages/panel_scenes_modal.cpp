// The edit, slider and confirm pages in every flow that opens them, with the
// breadcrumb of the page below and the flow's title, as the panel shows it.
#include "panel_scene_building.h"

#include "page_test_support.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"

#include <memory>

namespace pagetest::scenes {

namespace {

using Edit = GeneralEditPageWidget;
using Slider = GeneralSliderPageWidget;
using Confirm = GeneralConfirmPageWidget;

// Where a flow comes from: the page below it, that page's breadcrumb, and
// the title of the flow.
struct FlowOrigin {
    int return_page;
    QStringList base_keys;
    const char* title_key;
};

PanelScene modalScene(const QString& name, int pageId, const FlowOrigin& origin)
{
    PanelScene scene;
    scene.name = name;
    scene.bar = contextBar(pageId);
    scene.context_keys = origin.base_keys;
    if (origin.title_key)
        scene.context_keys << QString::fromLatin1(origin.title_key);
    scene.in_gallery = false;
    return scene;
}

// --- Edit page ------------------------------------------------------------

struct EditFlow {
    const char* name;
    int type;
    FlowOrigin origin;
    int actual_index;
};

void enter(Edit& page, const EditFlow& flow)
{
    page.setVoFormatContext(1920, 1080, 60, QStringLiteral("1080p60"), 0);
    page.setPtzProtoContext(1, 0);
    page.enterEditMode(flow.type, flow.origin.return_page, flow.actual_index);
}

int optionCount(const EditFlow& flow)
{
    Edit probe(texts());
    enter(probe, flow);
    return probe.optionTexts().size();
}

PanelScene editScene(const EditFlow& flow)
{
    PanelScene scene =
        modalScene(QStringLiteral("edit_%1").arg(flow.name), PAGE_GENERAL_EDIT, flow.origin);
    scene.build = page<Edit>([flow](Edit& p) { enter(p, flow); });
    for (int option = 1; option < optionCount(flow); ++option)
        scene.states << state<Edit>(QStringLiteral("option_%1").arg(option),
                                    [](Edit& p) { p.nextOption(); });
    return scene;
}

QVector<PanelScene> editScenes()
{
    const QStringList system = menuPath("mainmenu.system");
    const QStringList camera = menuPath("mainmenu.ptz");
    const QStringList streaming = menuPath("mainmenu.streaming");
    const QVector<EditFlow> flows = {
        {"language",
         Edit::EDIT_LANGUAGE,
         {PAGE_SYSTEM_SETTINGS_1, system, "system_settings.language"},
         1},
        {"theme", Edit::EDIT_THEME, {PAGE_SYSTEM_SETTINGS_1, system, "system_settings.theme"}, 0},
        {"work_mode",
         Edit::EDIT_WORK_MODE,
         {PAGE_SYSTEM_SETTINGS_2, system, "system_settings.workmode"},
         0},
        {"fan_mode",
         Edit::EDIT_FAN_MODE,
         {PAGE_SYSTEM_SETTINGS_2, system, "system_settings.fan"},
         1},
        {"usb_mode",
         Edit::EDIT_USB_MODE,
         {PAGE_SYSTEM_SETTINGS_2, system, "system_settings.usbmode"},
         0},
        {"ptz_protocol",
         Edit::EDIT_PTZ_PROTOCOL,
         {PAGE_CAMERA_SETTINGS_1, camera, "camera_settings.ptz_protocol"},
         0},
        {"tally_mode",
         Edit::EDIT_TALLY_MODE,
         {PAGE_CAMERA_SETTINGS_2, camera, "camera_settings.tally_mode"},
         1},
        {"tally_light",
         Edit::EDIT_TALLY_LIGHT,
         {PAGE_CAMERA_SETTINGS_2, camera, "camera_settings.tally_light"},
         1},
        {"vo_format",
         Edit::EDIT_VO_FORMAT,
         {PAGE_VIDEO_SETTINGS_1, menuPath("mainmenu.video"), "video_settings.vo_format"},
         -1},
        {"audio_source",
         Edit::EDIT_AUDIO_SOURCE,
         {PAGE_AUDIO_SETTINGS, menuPath("mainmenu.audio"), "audio_settings.audio_source"},
         0},
        {"ndi_quality",
         Edit::EDIT_NDI_QUALITY,
         {PAGE_MEDIA_SETTINGS_2, streaming, "media_settings.ndi_quality"},
         1},
        {"record_disk",
         Edit::EDIT_RECORD_DISK,
         {PAGE_MEDIA_SETTINGS_1, streaming, "media_settings.disk_select"},
         0},
        {"record_disk_from_shortcut",
         Edit::EDIT_RECORD_DISK,
         {PAGE_ENCODER_SHORTCUT_1, {"statusbar.context.record_ctrl"}, "media_settings.disk_select"},
         0},
    };
    QVector<PanelScene> all;
    for (const EditFlow& flow : flows)
        all << editScene(flow);
    all.first().in_gallery = true;
    return all;
}

// --- Slider page ----------------------------------------------------------

struct SliderFlow {
    const char* name;
    int type;
    FlowOrigin origin;
    int value;
    QVector<int> further_values;
};

PanelScene sliderScene(const SliderFlow& flow)
{
    PanelScene scene =
        modalScene(QStringLiteral("slider_%1").arg(flow.name), PAGE_GENERAL_SLIDER, flow.origin);
    scene.build = page<Slider>([flow](Slider& p) {
        p.updateFromVm({flow.type, flow.origin.return_page, flow.value});
    });
    scene.states = statesFor<Slider, int>(
        flow.further_values, [](const int& v) { return QStringLiteral("value_%1").arg(v); },
        [flow](Slider& p, const int& v) {
            p.updateFromVm({flow.type, flow.origin.return_page, v});
        });
    return scene;
}

QVector<PanelScene> sliderScenes()
{
    const QStringList camera = menuPath("mainmenu.ptz");
    const QVector<SliderFlow> flows = {
        {"brightness",
         Slider::SLIDER_LCD_BRIGHTNESS,
         {PAGE_CAMERA_SETTINGS_3, camera, "camera_settings.lcd_brightness"},
         80,
         {0, 100}},
        {"sleep",
         Slider::SLIDER_LCD_SLEEP,
         {PAGE_CAMERA_SETTINGS_3, camera, "camera_settings.lcd_sleep"},
         5,
         {1, 30}},
        {"encoder_volume",
         Slider::SLIDER_ENC_VOLUME,
         {PAGE_AUDIO_SETTINGS, menuPath("mainmenu.audio"), "audio_settings.audio_volume"},
         75,
         {0, 100}},
        {"output_volume",
         Slider::SLIDER_OUT_VOLUME,
         {PAGE_MAIN_MENU_1, {"statusbar.context.menu"}, "audio_settings.audio_volume"},
         40,
         {0, 100}},
    };
    QVector<PanelScene> all;
    for (const SliderFlow& flow : flows)
        all << sliderScene(flow);
    all.first().in_gallery = true;
    return all;
}

// --- Confirm page ---------------------------------------------------------

struct ConfirmFlow {
    const char* name;
    int action;
    FlowOrigin origin;
    int param;
};

PanelScene confirmScene(const ConfirmFlow& flow)
{
    PanelScene scene =
        modalScene(QStringLiteral("confirm_%1").arg(flow.name), PAGE_GENERAL_CONFIRM, flow.origin);
    scene.build = page<Confirm>([flow](Confirm& p) {
        p.updateFromVm({flow.action, flow.origin.return_page, 0, flow.param});
    });
    return scene;
}

QVector<PanelScene> confirmScenes()
{
    const QStringList system = menuPath("mainmenu.system");
    const QVector<ConfirmFlow> flows = {
        {"reboot",
         CONFIRM_ACTION_REBOOT,
         {PAGE_SYSTEM_SETTINGS_3, system, "system_settings.reboot"},
         1},
        {"reset",
         CONFIRM_ACTION_RESET,
         {PAGE_SYSTEM_SETTINGS_3, system, "system_settings.reset"},
         1},
        {"standby",
         CONFIRM_ACTION_STANDBY,
         {PAGE_SYSTEM_SETTINGS_3, system, "system_settings.standby"},
         1},
        {"dc_out_12v", CONFIRM_ACTION_DC_OUT, {PAGE_SYSTEM_SETTINGS_1, system, nullptr}, 2},
        {"dc_out_8v4", CONFIRM_ACTION_DC_OUT, {PAGE_SYSTEM_SETTINGS_1, system, nullptr}, 1},
        {"restart_from_shortcuts",
         CONFIRM_ACTION_REBOOT,
         {PAGE_SHORTCUT, {}, "system_settings.reboot"},
         1},
    };
    QVector<PanelScene> all;
    for (const ConfirmFlow& flow : flows)
        all << confirmScene(flow);
    all.first().in_gallery = true;
    return all;
}

} // namespace

QVector<PanelScene> modalScenes()
{
    QVector<PanelScene> all;
    all << editScenes() << sliderScenes() << confirmScenes();
    return all;
}

} // namespace pagetest::scenes
