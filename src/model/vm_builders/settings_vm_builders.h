#pragma once
// Settings groups, computed from cache copies; none of them makes a request.
// `stored_work_mode` is the application's own work mode, used until the
// system state topic has reported one; `http_port` is the web server's
// configured port (-1 when unknown).
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_cache.h"
#include "model/view_models/settings_view_models.h"

SystemSettingsPageVM computeSystemSettingsPageVm(const ZmqGetCache& get);
NetworkSettingsPageVM computeNetworkSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                                   int http_port);
CameraSettingsPageVM computeCameraSettingsPageVm(const ZmqGetCache& get);
VideoSettingsPageVM computeVideoSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                               int stored_work_mode);
AudioSettingsPageVM computeAudioSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                               int stored_work_mode);
MediaSettingsPageVM computeMediaSettingsPageVm(const ZmqSubCache& sub, const ZmqGetCache& get,
                                               int stored_work_mode);
DecodingSettingsPageVM computeDecodingSettingsPageVm(const ZmqGetCache& get);
