// System domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

using appapi::forward;
using appapi::readInt;
using appapi::readText;

int AppManager::setLcdInfo(int lock_stat, int lcd_bright)
{
    return appapi::withWorker(zmq_sub_worker.get(), [&](ZmqSubWorker& worker) {
        return worker.setLcdInfo(lock_stat, lcd_bright);
    });
}

int AppManager::setLcdInfo(int lock_stat, int lcd_bright, int sleep_bright, int lcd_sleep,
                           int selector)
{
    return appapi::withWorker(zmq_sub_worker.get(), [&](ZmqSubWorker& worker) {
        return worker.setLcdInfo(lock_stat, lcd_bright, sleep_bright, lcd_sleep, selector);
    });
}

int AppManager::setLcdSleep(int sleep_bright, int lcd_bright)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setLcdSleep, sleep_bright, lcd_bright);
}

int AppManager::setLanguageID(int language_id)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setLanguageID, language_id);
}

int AppManager::setFanMode(int mode)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setFanMode, mode);
}

int AppManager::setWorkMode(int workmode_id)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setWorkMode, workmode_id);
}

int AppManager::setReboot()
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setReboot);
}
int AppManager::setReset()
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setReset);
}
int AppManager::setStandby()
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setStandby);
}
int AppManager::exitStandby()
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::exitStandby);
}

int AppManager::setDcOutSwitch(int dc_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setDcOutSwitch, dc_switch);
}

int AppManager::setTallySwitch(int tally_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setTallySwitch, tally_switch);
}

int AppManager::setTallyInfo(int mode_id, int color_id)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setTallyInfo, mode_id, color_id);
}

int AppManager::setAppConnectionStatus(int connect_status)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setAppConnectionStatus, connect_status);
}

int AppManager::getGestureGuide(json& out)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::getGestureGuide, out);
}

int AppManager::setGestureGuide(const json& guide)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setGestureGuide, guide);
}

int AppManager::setConnectAppFirstUseFlag(int app_first_use_flag)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setConnectAppFirstUseFlag,
                   app_first_use_flag);
}

int AppManager::getConnectAppFirstUseFlag(int& app_first_use_flag)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::getConnectAppFirstUseFlag,
                   app_first_use_flag);
}

int AppManager::setUsbOtgMode(int usb_otg_id)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setUsbOtgId, usb_otg_id);
}

int AppManager::setThemeID(int theme_id)
{
    if (theme_id != 0 && theme_id != 1) {
        LOG_ERR("Invalid theme_id: %d\n", theme_id);
        return -2;
    }
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setLcdThemeId, theme_id);
}

int AppManager::getFanMode()
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getFanMode, "getFanMode",
                              [](const json& value) { return appapi::intOr(value, "mode", 0); });
}

int AppManager::getThemeID()
{
    return appapi::decodeRead(
        zmq_sub_worker.get(), &ZmqSubWorker::getLcdThemeId, "getThemeID",
        [](const json& value) { return appapi::intOr(value, "lcd_theme_id", 0); });
}

int AppManager::getTallyInfo(TallyInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getTallyInfo, "getTallyInfo",
                              [&](const json& value) {
                                  readInt(value, "switch", info.switch_on);
                                  readInt(value, "mode_id", info.mode_id);
                                  readInt(value, "color_id", info.color_id);
                                  return 0;
                              });
}

int AppManager::getSystemInfo(VersionInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getSystemInfo, "getSystemInfo",
                              [&](const json& value) {
                                  readText(value, "hardware_version", info.hardware_version);
                                  readText(value, "firmware_version", info.firmware_version);
                                  readText(value, "device_name", info.device_name);
                                  readText(value, "SN", info.SN);
                                  return 0;
                              });
}

int AppManager::getDashboardInfo(DashBoardInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getDashboardInfo,
                              "getDashboardInfo", [&](const json& value) {
                                  try {
                                      readText(value, "persistent_time", info.persistent_time);
                                      readText(value, "device_strat_time", info.device_strat_time);
                                      return 0;
                                  } catch (const json::exception&) {
                                      throw; // logged as a parse error by decodeRead
                                  } catch (const std::exception& e) {
                                      LOG_ERR("getDashboardInfo error: %s\n", e.what());
                                      return appapi::kFailure;
                                  }
                              });
}

void AppManager::GetJsonCfg(std::string opt, json& out)
{
    if (!zmq_sub_worker) {
        LOG_ERR("zmq_sub_worker is not initialized.\n");
        out = nullptr;
        return;
    }
    zmq_sub_worker->GetJsonCfg(std::move(opt), out);
}

int AppManager::fanModeToUiIndex(int mode)
{
    switch (mode) {
    case 1:
        return 0;
    case 2:
        return 2;
    default:
        return 1;
    }
}

int AppManager::uiIndexToFanMode(int index)
{
    switch (index) {
    case 0:
        return 1;
    case 2:
        return 2;
    default:
        return 0;
    }
}
