// Audio domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

using appapi::forward;
using appapi::readInt;
using appapi::readSelectedId;

int AppManager::setAudioEncSwitch(int audio_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setAudioEncSwitch, audio_switch);
}

int AppManager::setAudioEncVolume(int volume)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setAudioEncVolume, volume);
}

int AppManager::setAudioEncSource(int source)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setAudioEncSource, source);
}

int AppManager::setAudioOutVolume(int ao_volume)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setAudioOutVolume, ao_volume);
}

int AppManager::getAudioAllInfo(AudioAllInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getAudioConfig,
                              "getAudioAllInfo", [&](const json& value) {
                                  readInt(value, "switch", info.switch_on);
                                  readSelectedId(value, "ai_type", info.ai_type);
                                  readSelectedId(value, "codec", info.codec);
                                  readSelectedId(value, "bitrate", info.bitrate);
                                  readSelectedId(value, "sample_rate", info.sample_rate);
                                  readInt(value, "volume", info.volume);
                                  readInt(value, "ao_volume", info.ao_volume);
                                  return 0;
                              });
}
