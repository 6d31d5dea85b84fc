// Video domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

#include <algorithm>

using appapi::forward;
using appapi::readInt;
using appapi::readSelectedId;

int AppManager::setEncNdiSwitch(int ndi_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setEncNdiSwitch, ndi_switch);
}

int AppManager::setEncNdiQuality(int mode_id)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setEncNdiQuality, mode_id);
}

int AppManager::setLoopOutSwitch(int loop_out_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setLoopOutSwitch, loop_out_switch);
}

int AppManager::setVideoOutMuteSwitch(int audio_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setVideoOutMuteSwitch, audio_switch);
}

int AppManager::setVideoOutFormat(const std::string& format)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setVideoOutFormat, format);
}

int AppManager::getVideoOutInfo(VideoOutInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getVideoOutInfo,
                              "getVideoOutInfo", [&](const json& value) {
                                  appapi::readText(value, "format", info.format);
                                  readInt(value, "audio_switch", info.audio_switch);
                                  readInt(value, "loop_out_switch", info.loop_out_switch);
                                  return 0;
                              });
}

int AppManager::getEncNdiInfo(EncNdiInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getEncNdiInfo, "getEncNdiInfo",
                              [&](const json& value) {
                                  readInt(value, "switch", info.switch_on);
                                  return 0;
                              });
}

int AppManager::getVideoEncParams(std::vector<VideoEncInfo>& list)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getVideoEncParams,
                              "getVideoEncParams", [&](const json& value) {
                                  auto venc = value.find("venc");
                                  if (venc == value.end() || !venc->is_array())
                                      return 0;
                                  for (const json& entry : *venc) {
                                      if (!entry.is_object())
                                          continue;
                                      VideoEncInfo info;
                                      readSelectedId(entry, "codec", info.codec);
                                      readSelectedId(entry, "profile", info.profile);
                                      readSelectedId(entry, "ratecontrol", info.ratecontrol);
                                      readInt(entry, "bitrate", info.bitrate);
                                      readInt(entry, "ndi_bitrate_pre", info.ndi_bitrate_pre);
                                      readInt(entry, "width", info.width);
                                      readInt(entry, "height", info.height);
                                      readInt(entry, "framerate", info.framerate);
                                      readInt(entry, "keyinterval", info.keyinterval);
                                      readInt(entry, "stream_id", info.stream_id);
                                      list.push_back(info);
                                  }
                                  return 0;
                              });
}

int AppManager::ndiQualityToUiIndex(int quality)
{
    return std::clamp(quality - 1, 0, 3);
}

int AppManager::uiIndexToNdiQuality(int index)
{
    return std::clamp(index + 1, 1, 4);
}
