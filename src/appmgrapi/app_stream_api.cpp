// Stream domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

int AppManager::setEncSrtServerSwitch(int srt_switch)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setEncSrtServerSwitch, srt_switch);
}

int AppManager::setEncNetStreamSwitch(int index, int stream_switch)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setEncNetStreamSwitch, index,
                           stream_switch);
}

int AppManager::getEncLocalServerList(std::vector<EncRtspInfo>& rtsp_list, EncSrtInfo& srt_info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getEncLocalServerList,
                              "getEncLocalServerList", [&](const json& value) {
                                  rtsp_list.clear();
                                  auto srt = value.find("srt");
                                  if (srt != value.end() && srt->is_array() && !srt->empty()) {
                                      appapi::readInt(srt->front(), "switch", srt_info.switch_on);
                                  }
                                  return 0;
                              });
}
