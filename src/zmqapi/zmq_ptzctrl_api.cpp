// PTZ domain operations of ZmqSubWorker.
#include "link/json_values.h"
#include "zmqapi/zmq_api_patterns.h"

int ZmqSubWorker::getPtzctrlInfo(json& out)
{
    return zmqapi::get(*this, &ZmqSubWorker::getPtzctrlApiInfo, "client", "get_client_info", out,
                       zmqapi::mappedFailures(&ZmqSubWorker::mapPtzctrlStatusCodeToValue));
}

int ZmqSubWorker::setPtzProtocol(int protocol)
{
    return zmqapi::sendWithState(
        *this, &ZmqSubWorker::getPtzctrlInfo, &ZmqSubWorker::sendPtzctrlApiControl,
        zmqapi::request("client", "set_client_info"), [&](json& req, const json& state) {
            if (jsonvalue::isEmpty(state))
                return zmqapi::kFailure;
            json entry = json::object();
            auto list = state.is_object() ? state.find("protocol_list") : state.end();
            if (list != state.end() && list->is_array() && protocol >= 0
                && static_cast<std::size_t>(protocol) < list->size()
                && (*list)[protocol].is_object()) {
                entry = (*list)[protocol];
            }
            json data = {{"protocol", entry}};
            if (state.is_object() && state.contains("usb2serial"))
                data["usb2serial"] = state["usb2serial"];
            req["data"] = std::move(data);
            return 0;
        });
}
