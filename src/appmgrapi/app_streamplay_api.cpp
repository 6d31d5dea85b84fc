// Stream play domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

using appapi::forward;
using appapi::readInt;
using appapi::readText;

namespace {

// Replaces `list` by one record per element of the array `value`.
template <class Record, class Decode>
int decodeList(const json& value, std::vector<Record>& list, const char* name, Decode decode)
{
    list.clear();
    if (!value.is_array()) {
        LOG_ERR("%s: data is not an array\n", name);
        return appapi::kFailure;
    }
    for (const json& element : value) {
        Record record;
        decode(element, record);
        list.push_back(record);
    }
    return 0;
}

} // namespace

int AppManager::findDecNdi()
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::findDecNdi);
}

int AppManager::setDecNetStreamSwitch(int index, int stream_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setDecNetStreamSwitch, index,
                   stream_switch);
}

int AppManager::setDecNdiRecv(const std::string& ndi_name)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setDecNdiRecv, ndi_name);
}

int AppManager::setDecNdiClose()
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setDecNdiClose);
}

int AppManager::setDecSrtPlaySwitch(int play_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setDecSrtPlaySwitch, play_switch);
}

int AppManager::setDecRtmpServerSwitch(int index, int server_switch)
{
    return forward(zmq_sub_worker.get(), &ZmqSubWorker::setDecRtmpServerSwitch, index,
                   server_switch);
}

// The panel has one SRT switch for the listener and its playback. The play
// switch is sent even when the listener failed; nothing is rolled back.
int AppManager::setDecSrtServerSwitch(int server_switch)
{
    return appapi::withWorker(zmq_sub_worker.get(), [&](ZmqSubWorker& worker) {
        const int server_status = worker.setDecSrtServerSwitch(server_switch);
        const int play_status = worker.setDecSrtPlaySwitch(server_switch);
        return (play_status < 0 && server_status >= 0) ? play_status : server_status;
    });
}

int AppManager::getDecSrtServerInfo(DecSrtServerInfo&)
{
    return appapi::withWorker(zmq_sub_worker.get(), [](ZmqSubWorker& worker) {
        json info;
        const int status = worker.getDecSrtServerInfo(info);
        return status > 0 ? 0 : status;
    });
}

int AppManager::getDecNetStreamList(std::vector<DecNetStreamInfo>& list)
{
    return appapi::decodeRead(
        zmq_sub_worker.get(), &ZmqSubWorker::getDecNetStreamList, "getDecNetStreamList",
        [&](const json& value) {
            return decodeList(value, list, "getDecNetStreamList",
                              [](const json& element, DecNetStreamInfo& info) {
                                  readInt(element, "index", info.index);
                                  readText(element, "name", info.name);
                                  readInt(element, "switch", info.switch_on);
                                  readInt(element, "streamplay_status", info.streamplay_status);
                              });
        });
}

int AppManager::getDecNdiList(std::vector<DecNdiInfo>& list)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getDecNdiList, "getDecNdiList",
                              [&](const json& value) {
                                  return decodeList(value, list, "getDecNdiList",
                                                    [](const json& element, DecNdiInfo& info) {
                                                        readInt(element, "index", info.index);
                                                        readText(element, "name", info.name);
                                                        readInt(element, "streamplay_status",
                                                                info.streamplay_status);
                                                    });
                              });
}
