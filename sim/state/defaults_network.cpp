#include "state/defaults.h"
#include "state/device_rules.h"

namespace sim {

namespace {

json rates(double rx, double tx)
{
    return {{"rx_mbps", rx}, {"tx_mbps", tx}};
}

} // namespace

json defaultNetworkState()
{
    return {
        {"network",
         {{"wifi_module", 1},
          {"lan",
           {{"state", 1},
            {"ip_dhcp_switch", 1},
            {"ip", "192.168.1.100"},
            {"mask", "255.255.255.0"},
            {"gateway", "192.168.1.1"},
            {"dns", "192.168.1.1"},
            {"p2p_switch", 0}}},
          {"wifi",
           {{"switch", 1},
            {"status", rules::kWifiConnected},
            {"ssid", "Studio-5G"},
            {"ip", "192.168.1.150"},
            {"signalLevel", 3},
            {"known_ssid", "Studio-5G"}}},
          {"wifi_list", json::array({{{"ssid", "Studio-5G"}, {"signalLevel", 3}},
                                     {{"ssid", "Guest"}, {"signalLevel", 2}}})},
          {"ap", {{"switch", 0}, {"ssid", "VantorBox-AP"}, {"psk", "vantor1234"}}},
          {"mdns", {{"host_name", "vantorbox"}, {"domain_name", "local"}}},
          {"ports", {{"http", 80}, {"rtsp", 554}}}}},
        {"cpu",
         {{"cpu_temp", 48},
          {"cpu_payload", 22},
          {"memory_total", 2048},
          {"memory_used", 820},
          {"rates",
           {{"eth0", rates(2.5, 8.0)}, {"wlan0", rates(0.4, 0.2)}, {"wlan1", rates(0, 0)}}}}},
    };
}

} // namespace sim
