// Device control, LCD, fan, tally, time, USB mode, DC output and the like.
#include "handlers/field_update.h"
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/defaults.h"
#include "state/device_rules.h"
#include "state/dynamics.h"

#include <ctime>

namespace sim {

namespace {

const char* const kSystemModule = "system_api";

json& system(Request& r)
{
    return r.state["system"];
}

Handler setInts(const std::string& pointer, std::vector<IntField> fields)
{
    return intSetter(pointer, std::move(fields), code::kSystemInvalid);
}

json lcdInfo(const json& lcd)
{
    return {{"lock_stat", lcd["lock_stat"]},
            {"lcd_bright", lcd["lcd_bright"]},
            {"sleep_bright", lcd["sleep_bright"]},
            {"LCD_sleep", lcd["LCD_sleep"]}};
}

json setLcdInfo(Request& r)
{
    const bool applied = updateIntFields(r.data(), r.state["lcd"],
                                         {{"lock_stat", 0, 1},
                                          {"lcd_bright", 0, 100},
                                          {"sleep_bright", 0, 100},
                                          {"LCD_sleep", 0, 60}});
    return applied ? reply::ok() : reply::refuse(code::kSystemInvalid, "no valid LCD setting");
}

json changeWorkmode(Request& r)
{
    const auto mode = r.intArg("workmode_id");
    if (!mode || (*mode != 0 && *mode != 1))
        return reply::refuse(code::kSystemInvalid, "workmode_id must be 0 or 1");
    if (*mode == rules::workMode(r.state))
        return reply::refuse(code::kWorkmodeAlreadySet, "already in this work mode");
    rules::switchWorkMode(r.state, *mode);
    return reply::ok();
}

json setRunStatus(Request& r, int run_status)
{
    system(r)["run_status"] = run_status;
    return reply::ok();
}

json setSystemTime(Request& r)
{
    json& systime = r.state["systime"];
    const json& args = r.data();
    if (!updateIntFields(args, systime,
                         {{"ntp_enable", 0, 1},
                          {"ntp_port", 1, 65535},
                          {"setting_mode_id", 0, 9},
                          {"time_type_id", 0, 9}}))
        return reply::refuse(code::kSystemInvalid, "invalid time settings");
    if (args.contains("ntp_server") && args["ntp_server"].is_string())
        systime["ntp_server"] = args["ntp_server"];
    if (args.contains("time_zone_id") && args["time_zone_id"].is_string())
        systime["time_zone_id"] = args["time_zone_id"];
    const auto time = args.find("time");
    if (time != args.end() && time->is_object()) {
        std::tm wanted{};
        wanted.tm_year = time->value("year", 1970) - 1900;
        wanted.tm_mon = time->value("month", 1) - 1;
        wanted.tm_mday = time->value("day", 1);
        wanted.tm_hour = time->value("hour", 0);
        wanted.tm_min = time->value("minute", 0);
        wanted.tm_sec = time->value("second", 0);
        const std::time_t now = std::time(nullptr);
        systime["offset_seconds"] = static_cast<long long>(timegm(&wanted) - now);
        systime["time"] = deviceTime(r.state, now);
    }
    return reply::ok();
}

json setStringFields(Request& r, json& target, std::initializer_list<const char*> keys)
{
    for (const char* key : keys)
        if (!r.stringArg(key))
            return reply::refuse(code::kSystemInvalid, std::string(key) + " missing");
    for (const char* key : keys)
        target[key] = *r.stringArg(key);
    return reply::ok();
}

json setDcOut(Request& r)
{
    if (!updateIntFields(r.data(), system(r)["dc_out"], {{"switch", 0, 1}, {"voltage", 1, 2}}))
        return reply::refuse(code::kSystemInvalid, "invalid DC out setting");
    return reply::ok();
}

json reset(Request& r)
{
    // A factory reset keeps the box in its work mode; everything else returns
    // to the defaults, and the box restarts.
    const int mode = rules::workMode(r.state);
    json fresh = defaultDeviceState();
    fresh["system"]["workmode_id"] = mode;
    r.state = fresh;
    return reply::refuse(code::kRebooting, "rebooting");
}

json systemTimeInfo(Request& r)
{
    json info = r.state["systime"];
    info.erase("offset_seconds");
    info["time"] = deviceTime(r.state, std::time(nullptr));
    return reply::okData(info);
}

void registerControl(HandlerTable& t)
{
    const OpKind W = OpKind::Write;
    t.add(kSystemModule, "app", "set_app_connection_status", W, [](Request& r) {
        const auto status = r.intArg("connect_status");
        if (!status || *status < 0 || *status > 9)
            return reply::refuse(code::kSystemInvalid, "invalid connect_status");
        system(r)["app_connection_status"] = *status;
        return reply::ok();
    });
    t.add(kSystemModule, "syscontrol", "set_reboot_info", W, [](Request& r) {
        rules::restart(r.state);
        return reply::refuse(code::kRebooting, "rebooting");
    });
    t.add(kSystemModule, "syscontrol", "set_reset_info", W, reset);
    t.add(kSystemModule, "syscontrol", "power_off", W,
          [](Request& r) { return setRunStatus(r, 0); });
    t.add(kSystemModule, "syscontrol", "power_on", W,
          [](Request& r) { return setRunStatus(r, 1); });
    t.add(kSystemModule, "syscontrol", "set_beep_status", W,
          setInts("/system", {{"beep_switch", 0, 1}}));
    t.add(kSystemModule, "lcd", "set_lcd_info", W, setLcdInfo);
    t.add(kSystemModule, "lcd", "set_lcd_theme", W, setInts("/lcd", {{"lcd_theme_id", 0, 1}}));
    t.add(kSystemModule, "lcd", "set_gesture_guide", W, [](Request& r) {
        if (!r.body.contains("data") || !r.body["data"].is_object())
            return reply::refuse(code::kSystemInvalid, "gesture guide record must be an object");
        r.state["lcd"]["gesture_guide"] = r.body["data"];
        return reply::ok();
    });
    t.add(kSystemModule, "fan", "set_fan_mode", W, [](Request& r) {
        const auto mode = r.intArg("mode");
        if (!mode || *mode < 0 || *mode > 2)
            return reply::refuse(code::kSystemInvalid, "fan mode must be 0 to 2");
        system(r)["fan_mode"] = *mode;
        return reply::ok();
    });
    t.add(kSystemModule, "workmode", "change_workmode", W, changeWorkmode);
    t.add(kSystemModule, "sys_attr", "set_sys_attr_info", W,
          setInts("/system", {{"language_id", 0, 4}}));
    t.add(kSystemModule, "sys_attr", "set_sys_location_info", W, [](Request& r) {
        return setStringFields(r, system(r)["location"], {"city", "country"});
    });
    t.add(kSystemModule, "systime", "set_systime_info", W, setSystemTime);
    t.add(kSystemModule, "systime", "set_systime_zone", W,
          [](Request& r) { return setStringFields(r, r.state["systime"], {"time_zone_id"}); });
    t.add(kSystemModule, "systime", "set_time_format", W,
          setInts("/systime", {{"time_format", 0, 1}}));
    t.add(kSystemModule, "remote_ctrl", "set_remote_crtl_switch", W,
          setInts("/system/remote_ctrl", {{"remote_ctrl_switch", 0, 1}}));
    t.add(kSystemModule, "remote_ctrl", "set_remote_crtl_addr", W,
          setInts("/system/remote_ctrl", {{"remote_ctrl_addr", 0, 255}}));
    t.add(kSystemModule, "log", "modify_logsave_flag", W,
          setInts("/system/log", {{"save_flag", 0, 1}}));
    t.add(kSystemModule, "log", "remove_all_logfile", W, [](Request&) { return reply::ok(); });
    t.add(kSystemModule, "tally_led", "set_tally_led_info", W,
          setInts("/system/tally", {{"mode_id", 0, 3}, {"color_id", 0, 3}}));
    t.add(kSystemModule, "tally_led", "set_tally_led_switch", W,
          setInts("/system/tally", {{"switch", 0, 1}}));
    t.add(kSystemModule, "usb_otg", "set_usb_otg_id", W,
          setInts("/system", {{"usb_otg_id", 0, 2}}));
    t.add(kSystemModule, "set_dcout_status", "", W, setDcOut);
    t.add("hardware_api", "set_first_use", "", W,
          setInts("/system", {{"app_first_use_flag", 0, 1}}));
}

void registerReads(HandlerTable& t)
{
    const OpKind R = OpKind::Read;
    t.add(kSystemModule, "syscontrol", "get_run_status", R, [](Request& r) {
        return reply::okData({{"run_status", system(r)["run_status"]}});
    });
    t.add(kSystemModule, "syscontrol", "get_beep_status", R, [](Request& r) {
        return reply::okData({{"beep_switch", system(r)["beep_switch"]}});
    });
    t.add(kSystemModule, "workmode", "get_workmode_id", R, [](Request& r) {
        json body = reply::okTop("workmode_id", system(r)["workmode_id"]);
        body["data"] = {{"workmode_id", system(r)["workmode_id"]}};
        return body;
    });
    t.add(kSystemModule, "sys_language", "get_sys_language_info", R, [](Request& r) {
        return reply::okData({{"language_id", system(r)["language_id"]}});
    });
    t.add(kSystemModule, "lcd", "get_lcd_theme", R, [](Request& r) {
        return reply::okData({{"lcd_theme_id", r.state["lcd"]["lcd_theme_id"]}});
    });
    t.add(kSystemModule, "lcd", "get_lcd_info", R,
          [](Request& r) { return reply::okData(lcdInfo(r.state["lcd"])); });
    t.add(kSystemModule, "lcd", "get_gesture_guide", R, objectReader("/lcd/gesture_guide"));
    t.add(kSystemModule, "app", "get_app_connection_status", R, [](Request& r) {
        return reply::okData({{"connect_status", system(r)["app_connection_status"]}});
    });
    t.add(kSystemModule, "sys_attr", "get_sys_attr_info", R, [](Request& r) {
        json info = system(r)["version"];
        info["language_id"] = system(r)["language_id"];
        return reply::okData(info);
    });
    t.add(kSystemModule, "sys_attr", "get_sys_all_info", R, [](Request& r) {
        json info = system(r)["version"];
        info.update(system(r)["dashboard"]);
        info["location"] = system(r)["location"];
        info["language_id"] = system(r)["language_id"];
        info["workmode_id"] = system(r)["workmode_id"];
        return reply::okData(info);
    });
    t.add(kSystemModule, "fan", "get_fan_mode", R, [](Request& r) {
        return reply::okData({{"mode", system(r)["fan_mode"]}});
    });
    t.add(kSystemModule, "systime", "get_systime_info", R, systemTimeInfo);
    t.add(kSystemModule, "systime", "get_time_format", R, [](Request& r) {
        return reply::okData({{"time_format", r.state["systime"]["time_format"]}});
    });
    t.add(kSystemModule, "remote_ctrl", "get_remote_crtl_info", R,
          objectReader("/system/remote_ctrl"));
    t.add(kSystemModule, "log", "get_logsave_flag", R, objectReader("/system/log"));
    t.add(kSystemModule, "tally_led", "get_tally_led_info", R, objectReader("/system/tally"));
    t.add(kSystemModule, "device_search", "get_devices_list", R,
          objectReader("/system/discovered_devices"));
    t.add(kSystemModule, "get_dcout_status", "", R, objectReader("/system/dc_out"));
    t.add(kSystemModule, "usb_otg", "get_usb_otg_id", R, [](Request& r) {
        return reply::okData({{"usb_otg_id", system(r)["usb_otg_id"]}});
    });
    t.add(kSystemModule, "get_product_id", "", R,
          [](Request& r) { return reply::okTop("product_id", system(r)["product_id"]); });
    t.add(kSystemModule, "get_dashboard_info", "", R, objectReader("/system/dashboard"));
}

} // namespace

void registerSystemHandlers(HandlerTable& table)
{
    registerControl(table);
    registerReads(table);
}

} // namespace sim
