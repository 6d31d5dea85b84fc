// PTZ domain operations of AppManager.
#include "model/app_manager.h"

#include "appmgrapi/app_api_forward.h"
#include "appmgrapi/app_json_fields.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int kViscaOverIp = 1;
constexpr int kDecodeMode = 1;

std::vector<int> protocolsOnOffer(int usb2serial, int workmode)
{
    std::vector<int> protocols{kViscaOverIp};
    if (usb2serial == 1)
        protocols.insert(protocols.end(), {3, 4, 5}); // VISCA, PELCO D, PELCO P
    if (workmode == kDecodeMode)
        protocols.insert(protocols.end(), {7, 9}); // NDI, UVC
    return protocols;
}

} // namespace

int AppManager::setPtzProtocol(int protocol)
{
    return appapi::forward(zmq_sub_worker.get(), &ZmqSubWorker::setPtzProtocol, protocol);
}

int AppManager::getPtzctrlInfo(PtzctrlInfo& info)
{
    return appapi::decodeRead(zmq_sub_worker.get(), &ZmqSubWorker::getPtzctrlInfo, "getPtzctrlInfo",
                              [&](const json& value) {
                                  appapi::readInt(value, "protocol", info.protocol);
                                  appapi::readInt(value, "usb2serial", info.usb2serial);
                                  return 0;
                              });
}

int AppManager::ptzProtocolToUiIndex(int protocol, int usb2serial, int workmode)
{
    const std::vector<int> protocols = protocolsOnOffer(usb2serial, workmode);
    auto it = std::find(protocols.begin(), protocols.end(), protocol);
    return it == protocols.end() ? 0 : static_cast<int>(it - protocols.begin());
}

int AppManager::uiIndexToPtzProtocol(int index, int usb2serial, int workmode)
{
    const std::vector<int> protocols = protocolsOnOffer(usb2serial, workmode);
    if (index < 0 || index >= static_cast<int>(protocols.size()))
        return kViscaOverIp;
    return protocols[index];
}
