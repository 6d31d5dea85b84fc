// LAN port, Wi-Fi client, access point and mDNS.
#include "handlers/field_update.h"
#include "handlers/handlers.h"
#include "handlers/replies.h"
#include "state/device_rules.h"

namespace sim {

namespace {

const char* const kNetworkModule = "network_api";

json& network(Request& r)
{
    return r.state["network"];
}

json wifiSwitch(Request& r)
{
    if (network(r)["wifi_module"] != 1)
        return reply::refuse(code::kNoWifiModule, "no Wi-Fi module");
    const auto on = r.intArg("switch");
    if (!on || (*on != 0 && *on != 1))
        return reply::refuse(code::kNetworkInvalid, "switch must be 0 or 1");
    if (*on == 1) {
        rules::restoreWifi(r.state);
    } else {
        json& wifi = network(r)["wifi"];
        wifi["switch"] = 0;
        wifi["status"] = rules::kWifiIdle;
    }
    return reply::ok();
}

json apSwitch(Request& r)
{
    const auto on = r.intArg("switch");
    if (!on || (*on != 0 && *on != 1))
        return reply::refuse(code::kNetworkInvalid, "switch must be 0 or 1");
    network(r)["ap"]["switch"] = *on;
    return reply::ok();
}

json updateApInfo(Request& r)
{
    const auto ssid = r.stringArg("ssid");
    const auto psk = r.stringArg("psk");
    if (!ssid || ssid->empty() || !psk || psk->size() < 8)
        return reply::refuse(code::kNetworkInvalid, "ssid empty or psk shorter than 8");
    network(r)["ap"]["ssid"] = *ssid;
    network(r)["ap"]["psk"] = *psk;
    return reply::ok();
}

json wifiConnect(Request& r)
{
    const auto ssid = r.stringArg("ssid");
    if (!ssid || ssid->empty() || !r.stringArg("password"))
        return reply::refuse(code::kNetworkInvalid, "ssid and password needed");
    json& wifi = network(r)["wifi"];
    wifi["known_ssid"] = *ssid;
    rules::restoreWifi(r.state);
    wifi["signalLevel"] = r.intArg("signalLevel").value_or(3);
    return reply::ok();
}

json wifiClear(Request& r)
{
    json& wifi = network(r)["wifi"];
    wifi["known_ssid"] = "";
    rules::dropWifi(r.state);
    return reply::ok();
}

json setMdns(Request& r)
{
    const auto host = r.stringArg("host_name");
    const auto domain = r.stringArg("domain_name");
    if (!host || host->empty() || !domain)
        return reply::refuse(code::kNetworkInvalid, "host_name and domain_name needed");
    network(r)["mdns"] = {{"host_name", *host}, {"domain_name", *domain}};
    return reply::ok();
}

json setLanInfo(Request& r)
{
    json& lan = network(r)["lan"];
    if (!updateIntFields(r.data(), lan, {{"ip_dhcp_switch", 0, 1}}))
        return reply::refuse(code::kNetworkInvalid, "ip_dhcp_switch must be 0 or 1");
    for (const char* key : {"ip", "mask", "gateway", "dns"})
        if (r.stringArg(key))
            lan[key] = *r.stringArg(key);
    return reply::ok();
}

json wifiInfo(Request& r)
{
    json info = network(r)["wifi"];
    info.erase("known_ssid");
    return reply::okData(info);
}

json ping(Request& r)
{
    const bool reachable = !rules::mainIp(r.state).empty();
    return reply::okData({{"result", reachable ? 1 : 0}, {"time_ms", reachable ? 3 : -1}});
}

} // namespace

void registerNetworkHandlers(HandlerTable& t)
{
    const OpKind W = OpKind::Write;
    const OpKind R = OpKind::Read;
    t.add(kNetworkModule, "ap", "ap_switch", W, apSwitch);
    t.add(kNetworkModule, "ap", "update_ap_info", W, updateApInfo);
    t.add(kNetworkModule, "wifi", "wifi_switch", W, wifiSwitch);
    t.add(kNetworkModule, "wifi", "wifi_connect", W, wifiConnect);
    t.add(kNetworkModule, "wifi", "wifi_clear", W, wifiClear);
    t.add(kNetworkModule, "lan", "set_p2p_mode", W,
          intSetter("/network/lan", {{"p2p_switch", 0, 1}}, code::kNetworkInvalid));
    t.add(kNetworkModule, "lan", "set_lan_info", W, setLanInfo);
    t.add(kNetworkModule, "mdns", "set_mdns_info", W, setMdns);

    t.add(kNetworkModule, "wifi", "get_wifi_info", R, wifiInfo);
    t.add(kNetworkModule, "wifi", "get_wifi_list", R, objectReader("/network/wifi_list"));
    t.add(kNetworkModule, "ap", "get_ap_info", R, objectReader("/network/ap"));
    t.add(kNetworkModule, "lan", "get_lan_info", R, objectReader("/network/lan"));
    t.add(kNetworkModule, "lan", "get_lan_ping", R, ping);
    t.add(kNetworkModule, "lan", "get_local_ping", R, ping);
    t.add(kNetworkModule, "mdns", "get_mdns_info", R, objectReader("/network/mdns"));
    t.add(kNetworkModule, "get_main_ip", "", R, [](Request& r) {
        return reply::okData({{"ip", rules::mainIp(r.state)}});
    });
}

} // namespace sim
