#include "state/defaults.h"

namespace sim {

json defaultSystemState()
{
    return {
        {"system",
         {{"workmode_id", 0},
          {"language_id", 0},
          {"run_status", 1},
          {"fan_mode", 1},
          {"usb_otg_id", 0},
          {"beep_switch", 1},
          {"app_connection_status", 0},
          {"app_first_use_flag", 1},
          {"product_id", "VX-2000"},
          {"uptime_seconds", 0},
          {"version",
           {{"hardware_version", "HW 1.2"},
            {"firmware_version", "FW 3.4.1"},
            {"device_name", "Vantor Box"},
            {"SN", "SIM000123"}}},
          {"dashboard", {{"persistent_time", "1024h"}, {"device_strat_time", "0h 0m"}}},
          {"tally", {{"switch", 1}, {"mode_id", 0}, {"color_id", 0}}},
          {"dc_out", {{"switch", 0}, {"voltage", 1}}},
          {"remote_ctrl", {{"remote_ctrl_switch", 0}, {"remote_ctrl_addr", 1}}},
          {"location", {{"city", "Berlin"}, {"country", "DE"}}},
          {"log", {{"save_flag", 0}}},
          {"discovered_devices",
           json::array({{{"name", "Vantor Box 2"}, {"ip", "192.168.1.101"}}})}}},
        {"lcd",
         {{"lock_stat", 0},
          {"lcd_bright", 80},
          {"sleep_bright", 20},
          {"LCD_sleep", 5},
          {"lcd_theme_id", 0},
          {"gesture_guide",
           {{"force_show", 0}, {"shown_counts", {0, 0, 0, 0, 0, 0, 0}}, {"max_count", 3}}}}},
        {"systime",
         {{"ntp_enable", 1},
          {"ntp_port", 123},
          {"ntp_server", "pool.ntp.org"},
          {"setting_mode_id", 0},
          {"time_type_id", 0},
          {"time_zone_id", "UTC+00:00"},
          {"time_format", 0},
          {"offset_seconds", 0},
          {"time", json::object()}}},
        {"upgrade", {{"progress", -1}, {"step", 5}}},
    };
}

json defaultDeviceState()
{
    json state = json::object();
    for (const json& part : {defaultSystemState(), defaultNetworkState(), defaultStorageState(),
                             defaultEncoderState(), defaultDecoderState()})
        state.update(part);
    return state;
}

} // namespace sim
