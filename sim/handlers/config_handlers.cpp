// Configuration sections read with "get_json_cfg": no module, the section
// name in `opt`.
#include "handlers/handlers.h"
#include "handlers/replies.h"

namespace sim {

namespace {

json osdSection(Request& r)
{
    json layouts = json::array();
    if (r.state["system"]["workmode_id"] == 0)
        for (const json& layout : r.state["osd"]["osd_layout"])
            layouts.push_back({{"id", layout["id"]},
                               {"name", layout["name"]},
                               {"switch", layout["switch"]},
                               {"status", layout["switch"]}});
    return reply::okData({{"osd_layout", layouts}});
}

json hardwareSection(Request& r)
{
    const json& system = r.state["system"];
    return reply::okData({{"app_first_use_flag", system["app_first_use_flag"]},
                          {"product_id", system["product_id"]},
                          {"hardware_version", system["version"]["hardware_version"]},
                          {"usb2serial", r.state["ptz"]["usb2serial"]},
                          {"wifi_module", r.state["network"]["wifi_module"]}});
}

json networkSection(Request& r)
{
    const json& network = r.state["network"];
    return reply::okData(
        {{"ports", network["ports"]}, {"lan", network["lan"]}, {"mdns", network["mdns"]}});
}

} // namespace

void registerConfigHandlers(HandlerTable& t)
{
    t.add("", "get_json_cfg", "get_osddom", OpKind::Read, osdSection);
    t.add("", "get_json_cfg", "get_hardwaredom", OpKind::Read, hardwareSection);
    t.add("", "get_json_cfg", "get_networkdom", OpKind::Read, networkSection);
}

} // namespace sim
