#pragma once
// Status bar, status pages, standby page and screensaver, computed from cache
// copies. `stored_work_mode` is the application's own work mode, used until
// the system state topic has reported one.
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"
#include "model/view_models/status_view_models.h"

#include <QString>
#include <nlohmann/json.hpp>

StatusBarVM computeStatusBarVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                               int stored_work_mode);
StatusPage1VM computeStatusPage1Vm(const ZmqSubCache& sub, const ZmqGetCache& get);
StatusPage2VM computeStatusPage2Vm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                   int stored_work_mode);
StatusPage3VM computeStatusPage3Vm(const ZmqSubCache& sub, const ZmqGetCache& get);

// `system_time` is the reply of the backend clock read, or null when there is
// none (no backend, or the read failed); the texts then keep their placeholders.
StandbyPageVM computeStandbyPageVm(const QString& ip_text, const nlohmann::json* system_time);
DynamicScreensaverVM computeDynamicScreensaverVm(bool standby, int work_mode,
                                                 const nlohmann::json* system_time);
