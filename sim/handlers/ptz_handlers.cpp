// The protocol by which the box drives a camera head.
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/device_rules.h"

namespace sim {

namespace {

const char* const kPtzModule = "ptzctrl_api";

// The protocols on offer depend on the serial adapter and the work mode.
bool offered(const json& state, int protocol)
{
    if (protocol == 1)
        return true;
    if (protocol >= 3 && protocol <= 5)
        return state["ptz"]["usb2serial"] == 1;
    if (protocol == 7 || protocol == 9)
        return rules::workMode(state) == 1;
    return false;
}

// The panel sends the protocol's whole list entry; a bare number is taken too.
std::optional<int> requestedProtocol(Request& r)
{
    const json& args = r.data();
    const auto it = args.find("protocol");
    if (it == args.end())
        return std::nullopt;
    if (it->is_number_integer())
        return it->get<int>();
    if (it->is_object() && it->contains("protocol") && (*it)["protocol"].is_number_integer())
        return (*it)["protocol"].get<int>();
    return std::nullopt;
}

json setClient(Request& r)
{
    const auto protocol = requestedProtocol(r);
    if (!protocol || !offered(r.state, *protocol))
        return reply::refuse(code::kPtzInvalidProtocol, "protocol not on offer");
    r.state["ptz"]["protocol"] = *protocol;
    return reply::ok();
}

} // namespace

void registerPtzHandlers(HandlerTable& t)
{
    t.add(kPtzModule, "client", "set_client_info", OpKind::Write, setClient);
    t.add(kPtzModule, "client", "get_client_info", OpKind::Read,
          [](Request& r) { return reply::okData(r.state["ptz"]); });
}

} // namespace sim
