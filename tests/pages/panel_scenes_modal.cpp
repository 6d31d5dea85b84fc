// The edit, slider and confirm pages in every flow that opens them, with the
// breadcrumb of the page below and the flow's title, as the panel shows it.
#include "panel_scenes.h"

#include "page_test_support.h"
#include "pages/general_confirm_page_widget.h"
#include "pages/general_edit_page_widget.h"
#include "pages/general_slider_page_widget.h"

namespace pagetest::scenes {

namespace {

using Edit = GeneralEditPageWidget;
using Slider = GeneralSliderPageWidget;
using Confirm = GeneralConfirmPageWidget;

// One flow: the page it opens from, that page's breadcrumb (a settings group
// or a single context key), the flow's title, and the value it opens with.
struct Flow {
    const char* name;
    int type;
    int return_page;
    const char* group;
    const char* title_key;
    int value;
    int low = 0, high = 0; // a slider's ends
};

QStringList breadcrumb(const Flow& flow)
{
    QStringList keys;
    if (QString::fromLatin1(flow.group).startsWith("mainmenu."))
        keys = menuPath(flow.group);
    else if (*flow.group)
        keys << QString::fromLatin1(flow.group);
    if (flow.title_key)
        keys << QString::fromLatin1(flow.title_key);
    return keys;
}

PanelScene modalScene(const char* prefix, int pageId, const Flow& flow)
{
    PanelScene scene;
    scene.name = QStringLiteral("%1_%2").arg(prefix, flow.name);
    scene.bar = contextBar(pageId);
    scene.context_keys = breadcrumb(flow);
    scene.in_gallery = false;
    return scene;
}

void enter(Edit& page, const Flow& flow)
{
    page.setVoFormatContext(1920, 1080, 60, QStringLiteral("1080p60"), 0);
    page.setPtzProtoContext(1, 0);
    page.enterEditMode(flow.type, flow.return_page, flow.value);
}

// Each edit flow opens at its value in force; its further states show every
// other option in turn.
PanelScene editScene(const Flow& flow)
{
    PanelScene scene = modalScene("edit", PAGE_GENERAL_EDIT, flow);
    scene.build = page<Edit>([flow](Edit& p) { enter(p, flow); });
    Edit probe(texts());
    enter(probe, flow);
    for (int option = 1; option < probe.optionTexts().size(); ++option)
        scene.states << state<Edit>(QStringLiteral("option_%1").arg(option),
                                    [](Edit& p) { p.nextOption(); });
    return scene;
}

// Each slider flow opens at `value`; further states show its two ends.
PanelScene sliderScene(const Flow& flow)
{
    PanelScene scene = modalScene("slider", PAGE_GENERAL_SLIDER, flow);
    auto showValue = [flow](int value) {
        return [flow, value](Slider& p) { p.updateFromVm({flow.type, flow.return_page, value}); };
    };
    scene.build = page<Slider>(showValue(flow.value));
    for (int value : {flow.low, flow.high})
        scene.states << state<Slider>(QStringLiteral("value_%1").arg(value), showValue(value));
    return scene;
}

PanelScene confirmScene(const Flow& flow)
{
    PanelScene scene = modalScene("confirm", PAGE_GENERAL_CONFIRM, flow);
    scene.build = page<Confirm>([flow](Confirm& p) {
        p.updateFromVm({flow.type, flow.return_page, 0, flow.value});
    });
    return scene;
}

const char* const kSystem = "mainmenu.system";
const char* const kCamera = "mainmenu.ptz";
const char* const kStreaming = "mainmenu.streaming";

const Flow kEditFlows[] = {
    {"language", Edit::EDIT_LANGUAGE, PAGE_SYSTEM_SETTINGS_1, kSystem, "system_settings.language",
     1},
    {"theme", Edit::EDIT_THEME, PAGE_SYSTEM_SETTINGS_1, kSystem, "system_settings.theme", 0},
    {"work_mode", Edit::EDIT_WORK_MODE, PAGE_SYSTEM_SETTINGS_2, kSystem, "system_settings.workmode",
     0},
    {"fan_mode", Edit::EDIT_FAN_MODE, PAGE_SYSTEM_SETTINGS_2, kSystem, "system_settings.fan", 1},
    {"usb_mode", Edit::EDIT_USB_MODE, PAGE_SYSTEM_SETTINGS_2, kSystem, "system_settings.usbmode",
     0},
    {"ptz_protocol", Edit::EDIT_PTZ_PROTOCOL, PAGE_CAMERA_SETTINGS_1, kCamera,
     "camera_settings.ptz_protocol", 0},
    {"tally_mode", Edit::EDIT_TALLY_MODE, PAGE_CAMERA_SETTINGS_2, kCamera,
     "camera_settings.tally_mode", 1},
    {"tally_light", Edit::EDIT_TALLY_LIGHT, PAGE_CAMERA_SETTINGS_2, kCamera,
     "camera_settings.tally_light", 1},
    {"vo_format", Edit::EDIT_VO_FORMAT, PAGE_VIDEO_SETTINGS_1, "mainmenu.video",
     "video_settings.vo_format", -1},
    {"audio_source", Edit::EDIT_AUDIO_SOURCE, PAGE_AUDIO_SETTINGS, "mainmenu.audio",
     "audio_settings.audio_source", 0},
    {"ndi_quality", Edit::EDIT_NDI_QUALITY, PAGE_MEDIA_SETTINGS_2, kStreaming,
     "media_settings.ndi_quality", 1},
    {"record_disk", Edit::EDIT_RECORD_DISK, PAGE_MEDIA_SETTINGS_1, kStreaming,
     "media_settings.disk_select", 0},
    {"record_disk_from_shortcut", Edit::EDIT_RECORD_DISK, PAGE_ENCODER_SHORTCUT_1,
     "statusbar.context.record_ctrl", "media_settings.disk_select", 0},
};

const Flow kSliderFlows[] = {
    {"brightness", Slider::SLIDER_LCD_BRIGHTNESS, PAGE_CAMERA_SETTINGS_3, kCamera,
     "camera_settings.lcd_brightness", 80, 0, 100},
    {"sleep", Slider::SLIDER_LCD_SLEEP, PAGE_CAMERA_SETTINGS_3, kCamera,
     "camera_settings.lcd_sleep", 5, 1, 30},
    {"encoder_volume", Slider::SLIDER_ENC_VOLUME, PAGE_AUDIO_SETTINGS, "mainmenu.audio",
     "audio_settings.audio_volume", 75, 0, 100},
    {"output_volume", Slider::SLIDER_OUT_VOLUME, PAGE_MAIN_MENU_1, "statusbar.context.menu",
     "audio_settings.audio_volume", 40, 0, 100},
};

// The value of a confirmation is its parameter: 2 the 12 V output, 1 the 8.4 V one.
const Flow kConfirmFlows[] = {
    {"reboot", CONFIRM_ACTION_REBOOT, PAGE_SYSTEM_SETTINGS_3, kSystem, "system_settings.reboot", 1},
    {"reset", CONFIRM_ACTION_RESET, PAGE_SYSTEM_SETTINGS_3, kSystem, "system_settings.reset", 1},
    {"standby", CONFIRM_ACTION_STANDBY, PAGE_SYSTEM_SETTINGS_3, kSystem, "system_settings.standby",
     1},
    {"dc_out_12v", CONFIRM_ACTION_DC_OUT, PAGE_SYSTEM_SETTINGS_1, kSystem, nullptr, 2},
    {"dc_out_8v4", CONFIRM_ACTION_DC_OUT, PAGE_SYSTEM_SETTINGS_1, kSystem, nullptr, 1},
    {"restart_from_shortcuts", CONFIRM_ACTION_REBOOT, PAGE_SHORTCUT, "", "system_settings.reboot",
     1},
};

} // namespace

QVector<PanelScene> modalScenes()
{
    QVector<PanelScene> all;
    // The first flow of each page goes into the gallery.
    for (const Flow& flow : kEditFlows)
        all << editScene(flow);
    all.first().in_gallery = true;
    const int sliders = all.size();
    for (const Flow& flow : kSliderFlows)
        all << sliderScene(flow);
    all[sliders].in_gallery = true;
    const int confirms = all.size();
    for (const Flow& flow : kConfirmFlows)
        all << confirmScene(flow);
    all[confirms].in_gallery = true;
    return all;
}

} // namespace pagetest::scenes
