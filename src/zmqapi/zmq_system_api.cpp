// System domain operations of ZmqSubWorker.
#include "link/json_values.h"
#include "zmqapi/zmq_api_patterns.h"

#include <QMutexLocker>

using zmqapi::command;
using zmqapi::kDataReply;
using zmqapi::kFailure;
using zmqapi::request;

namespace {

constexpr zmqapi::InfoFunction kSystemInfo = &ZmqSubWorker::getSystemApiInfo;

// Stores `value` in `held` under `mutex`; true when it differed.
bool replaceHeld(QMutex& mutex, int& held, int value)
{
    QMutexLocker lock(&mutex);
    if (held == value)
        return false;
    held = value;
    return true;
}

// Reads one value that the worker also learns from its topic and hands it to
// `take` when the reply holds it as a number; a reply without it changes nothing.
template <class Take>
int readStateValue(ZmqSubWorker& worker, const char* group, const char* opt,
                   const zmqapi::ReplyForm& form, const char* key, Take take)
{
    json result;
    const int status = zmqapi::get(worker, kSystemInfo, group, opt, result, form);
    if (status < 0)
        return status;
    if (const std::optional<int> value = zmqapi::numberAt(result, key))
        take(*value);
    return 0;
}

} // namespace

int ZmqSubWorker::setAppConnectionStatus(int connect_status)
{
    return sendSystemApiControl(
        command("app", "set_app_connection_status", {{"connect_status", connect_status}}));
}

int ZmqSubWorker::setReboot()
{
    return sendSystemApiControl(command("syscontrol", "set_reboot_info", {{"command", "reboot"}}));
}

int ZmqSubWorker::setReset()
{
    return sendSystemApiControl(command("syscontrol", "set_reset_info", {{"command", "reset"}}));
}

int ZmqSubWorker::setStandby()
{
    return sendSystemApiControl(request("syscontrol", "power_off"));
}

int ZmqSubWorker::exitStandby()
{
    return sendSystemApiControl(request("syscontrol", "power_on"));
}

int ZmqSubWorker::setLcdInfo(int lock_stat, int lcd_bright)
{
    return sendSystemApiControl(
        command("lcd", "set_lcd_info", {{"lock_stat", lock_stat}, {"lcd_bright", lcd_bright}}));
}

int ZmqSubWorker::setLcdInfo(int lock_stat, int lcd_bright, int sleep_bright, int lcd_sleep,
                             int selector)
{
    json req = request("lcd", "set_lcd_info");
    switch (selector) {
    case 0:
        req["data"] = {{"lock_stat", lock_stat}, {"lcd_bright", lcd_bright}};
        break;
    case 1:
        req["data"] = {{"sleep_bright", sleep_bright}, {"lcd_bright", lcd_bright}};
        break;
    case 3:
        req["data"] = {{"LCD_sleep", lcd_sleep}};
        break;
    default:
        break; // the backend gets the request without data all the same
    }
    return sendSystemApiControl(req);
}

int ZmqSubWorker::setLcdSleep(int sleep_bright, int lcd_bright)
{
    return sendSystemApiControl(command(
        "lcd", "set_lcd_info", {{"sleep_bright", sleep_bright}, {"lcd_bright", lcd_bright}}));
}

int ZmqSubWorker::setFanMode(int mode)
{
    return sendSystemApiControl(command("fan", "set_fan_mode", {{"mode", mode}}));
}

int ZmqSubWorker::setWorkMode(int workmode_id)
{
    return sendSystemApiControl(
        command("workmode", "change_workmode", {{"workmode_id", workmode_id}}));
}

int ZmqSubWorker::setLanguageID(int language_id)
{
    return sendSystemApiControl(
        command("sys_attr", "set_sys_attr_info", {{"language_id", language_id}}));
}

int ZmqSubWorker::setLcdThemeId(int lcd_theme_id)
{
    return sendSystemApiControl(command("lcd", "set_lcd_theme", {{"lcd_theme_id", lcd_theme_id}}));
}

int ZmqSubWorker::setSystemTimeInfo(int ntp_enable, int ntp_port, const std::string& ntp_server,
                                    int setting_mode_id, int year, int month, int day, int hour,
                                    int minute, int second, int time_type_id,
                                    const std::string& time_zone_id)
{
    const json time = {{"year", year}, {"month", month},   {"day", day},
                       {"hour", hour}, {"minute", minute}, {"second", second}};
    return sendSystemApiControl(command("systime", "set_systime_info",
                                        {{"ntp_enable", ntp_enable},
                                         {"ntp_port", ntp_port},
                                         {"ntp_server", ntp_server},
                                         {"setting_mode_id", setting_mode_id},
                                         {"time", time},
                                         {"time_type_id", time_type_id},
                                         {"time_zone_id", time_zone_id}}));
}

int ZmqSubWorker::setSystemTimeZone(const std::string& time_zone_id)
{
    return sendSystemApiControl(
        command("systime", "set_systime_zone", {{"time_zone_id", time_zone_id}}));
}

int ZmqSubWorker::setTimeFormat(int time_format)
{
    return sendSystemApiControl(
        command("systime", "set_time_format", {{"time_format", time_format}}));
}

int ZmqSubWorker::setRemoteCtrlSwitch(int remote_ctrl_switch)
{
    return sendSystemApiControl(command("remote_ctrl", "set_remote_crtl_switch",
                                        {{"remote_ctrl_switch", remote_ctrl_switch}}));
}

int ZmqSubWorker::setRemoteCtrlAddr(int remote_ctrl_addr)
{
    return sendSystemApiControl(
        command("remote_ctrl", "set_remote_crtl_addr", {{"remote_ctrl_addr", remote_ctrl_addr}}));
}

int ZmqSubWorker::setLocationInfo(const std::string& city, const std::string& country)
{
    return sendSystemApiControl(
        command("sys_attr", "set_sys_location_info", {{"city", city}, {"country", country}}));
}

int ZmqSubWorker::setLogSaveFlag(int save_flag)
{
    return sendSystemApiControl(command("log", "modify_logsave_flag", {{"save_flag", save_flag}}));
}

int ZmqSubWorker::removeAllLogFile()
{
    return sendSystemApiControl(request("log", "remove_all_logfile"));
}

int ZmqSubWorker::setTallyInfo(int mode_id, int color_id)
{
    return sendSystemApiControl(
        command("tally_led", "set_tally_led_info", {{"mode_id", mode_id}, {"color_id", color_id}}));
}

int ZmqSubWorker::setTallySwitch(int tally_switch)
{
    return sendSystemApiControl(
        command("tally_led", "set_tally_led_switch", {{"switch", tally_switch}}));
}

int ZmqSubWorker::setUsbOtgId(int usb_otg_id)
{
    return sendSystemApiControl(command("usb_otg", "set_usb_otg_id", {{"usb_otg_id", usb_otg_id}}));
}

int ZmqSubWorker::setBeepSwitch(int beep_switch)
{
    return sendSystemApiControl(
        command("syscontrol", "set_beep_status", {{"beep_switch", beep_switch}}));
}

int ZmqSubWorker::setGestureGuide(const json& guide)
{
    return sendSystemApiControl(command("lcd", "set_gesture_guide", guide));
}

// The backend wants the voltage with the switch; it is taken from the
// backend's own state, and only a known voltage is sent back.
int ZmqSubWorker::setDcOutSwitch(int dc_switch)
{
    return zmqapi::sendWithState(
        *this, &ZmqSubWorker::getDcOutStatus, &ZmqSubWorker::sendSystemApiControl,
        request("set_dcout_status"), [&](json& req, const json& state) {
            if (jsonvalue::isEmpty(state) || !state.is_object() || !state.contains("voltage")) {
                return kFailure;
            }
            const int voltage = state["voltage"].get<int>();
            if (voltage != 1 && voltage != 2)
                return kFailure;
            req["data"] = {{"switch", dc_switch}, {"voltage", voltage}};
            return 0;
        });
}

// Goes to the hardware module, beside the system control path.
int ZmqSubWorker::setConnectAppFirstUseFlag(int app_first_use_flag)
{
    json req = command("set_first_use", nullptr, {{"app_first_use_flag", app_first_use_flag}});
    req["func_module"] = "hardware_api";
    return processApiResponse(sendZmqRequest(req), nullptr);
}

int ZmqSubWorker::getStandbyStatus()
{
    return readStateValue(*this, "syscontrol", "get_run_status", kDataReply, "run_status",
                          [this](int value) {
                              if (replaceHeld(sub_cache_mutex, last_run_status, value))
                                  emit runStatusUpdate(value);
                          });
}

// The work mode stands at the top level of the reply.
int ZmqSubWorker::getWorkMode()
{
    return readStateValue(*this, "workmode", "get_workmode_id", zmqapi::resultAt(nullptr),
                          "workmode_id", [this](int value) {
                              if (replaceHeld(sub_cache_mutex, last_workmode_id, value))
                                  emit workModeUpdate(value);
                          });
}

int ZmqSubWorker::getSystemLanguage()
{
    return readStateValue(*this, "sys_language", "get_sys_language_info", kDataReply, "language_id",
                          [this](int value) {
                              if (replaceHeld(sub_cache_mutex, last_language_id, value))
                                  emit systemLanguageUpdate(value);
                          });
}

int ZmqSubWorker::getLcdThemeId(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "lcd", "get_lcd_theme", out);
}

int ZmqSubWorker::getLcdInfo(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "lcd", "get_lcd_info", out);
}

int ZmqSubWorker::getAppConnectionStatus(int& connect_status)
{
    connect_status = 0;
    const std::string reply = getSystemApiInfo(request("app", "get_app_connection_status"));
    if (reply.empty()) {
        LOG_WAR("getAppConnectionStatus response is empty\n");
        return kFailure;
    }
    try {
        const json doc = json::parse(reply);
        if (!doc.is_object() || doc.value("rsp", std::string()) != "succeed")
            return kFailure;
        auto data = doc.find("data");
        const std::optional<int> value =
            data == doc.end() ? std::nullopt : zmqapi::numberAt(*data, "connect_status");
        if (!value)
            return kFailure;
        connect_status = *value;
        return 0;
    } catch (const json::exception& e) {
        LOG_ERR("getAppConnectionStatus JSON parse error: %s\n", e.what());
        return kFailure;
    }
}

int ZmqSubWorker::getGestureGuide(json& out)
{
    return zmqapi::fetch(*this, &ZmqSubWorker::getSystemApiInfo,
                         request("lcd", "get_gesture_guide"), kDataReply, out,
                         {"getGestureGuide JSON parse error: %s\n", false, true});
}

int ZmqSubWorker::getSystemInfo(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "sys_attr", "get_sys_attr_info", out);
}

int ZmqSubWorker::getFanMode(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "fan", "get_fan_mode", out);
}

int ZmqSubWorker::getSystemTimeInfo(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "systime", "get_systime_info", out);
}

int ZmqSubWorker::getTimeFormat(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "systime", "get_time_format", out);
}

int ZmqSubWorker::getAllSystemInfo(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "sys_attr", "get_sys_all_info", out);
}

int ZmqSubWorker::getRemoteCtrlInfo(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "remote_ctrl", "get_remote_crtl_info", out);
}

int ZmqSubWorker::getLogSaveFlag(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "log", "get_logsave_flag", out);
}

int ZmqSubWorker::getTallyInfo(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "tally_led", "get_tally_led_info", out);
}

int ZmqSubWorker::getDiscoverDevList(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "device_search", "get_devices_list", out);
}

int ZmqSubWorker::getDcOutStatus(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "get_dcout_status", nullptr, out);
}

int ZmqSubWorker::getUsbOtgId(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "usb_otg", "get_usb_otg_id", out);
}

int ZmqSubWorker::getBeepStatus(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "syscontrol", "get_beep_status", out);
}

int ZmqSubWorker::getProductId(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "get_product_id", nullptr, out,
                       zmqapi::resultAt("product_id"));
}

int ZmqSubWorker::getDashboardInfo(json& out)
{
    return zmqapi::get(*this, kSystemInfo, "get_dashboard_info", nullptr, out);
}

// The flag lives in the hardware configuration, not behind a request of its own.
int ZmqSubWorker::getConnectAppFirstUseFlag(int& app_first_use_flag)
{
    app_first_use_flag = 0;
    json cfg;
    GetJsonCfg("get_hardwaredom", cfg);
    app_first_use_flag = zmqapi::numberOr(cfg, "app_first_use_flag", 0);
    return 0;
}
