// Network domain operations of ZmqSubWorker.
#include "zmqapi/zmq_api_patterns.h"

using zmqapi::command;
using zmqapi::request;

namespace {

constexpr zmqapi::InfoFunction kNetworkInfo = &ZmqSubWorker::getNetworkApiInfo;

} // namespace

int ZmqSubWorker::setApSwitch(int ap_switch)
{
    return sendNetworkApiControl(command("ap", "ap_switch", {{"switch", ap_switch}}));
}

int ZmqSubWorker::setWifiSwitch(int wifi_switch)
{
    return sendNetworkApiControl(command("wifi", "wifi_switch", {{"switch", wifi_switch}}));
}

int ZmqSubWorker::setLanP2pMode(int p2p_switch)
{
    return sendNetworkApiControl(command("lan", "set_p2p_mode", {{"p2p_switch", p2p_switch}}));
}

int ZmqSubWorker::setApInfo(const std::string& ssid, const std::string& psk)
{
    return sendNetworkApiControl(command("ap", "update_ap_info", {{"psk", psk}, {"ssid", ssid}}));
}

int ZmqSubWorker::connectWifi(const std::string& ssid, const std::string& password, int signalLevel)
{
    return sendNetworkApiControl(
        command("wifi", "wifi_connect",
                {{"password", password}, {"ssid", ssid}, {"signalLevel", signalLevel}}));
}

int ZmqSubWorker::clearWifi()
{
    return sendNetworkApiControl(request("wifi", "wifi_clear"));
}

int ZmqSubWorker::setMdnsInfo(const std::string& host_name, const std::string& domain_name)
{
    return sendNetworkApiControl(
        command("mdns", "set_mdns_info", {{"host_name", host_name}, {"domain_name", domain_name}}));
}

int ZmqSubWorker::setLanDhcpMode(int ip_dhcp_switch)
{
    return zmqapi::sendStateAsData(
        *this, &ZmqSubWorker::getLanInfo, &ZmqSubWorker::sendNetworkApiControl,
        request("lan", "set_lan_info"), "ip_dhcp_switch", ip_dhcp_switch);
}

int ZmqSubWorker::getWifiInfo(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "wifi", "get_wifi_info", out);
}
int ZmqSubWorker::getApInfo(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "ap", "get_ap_info", out);
}
int ZmqSubWorker::getLanInfo(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "lan", "get_lan_info", out);
}
int ZmqSubWorker::getMainIp(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "get_main_ip", nullptr, out);
}
int ZmqSubWorker::getWifiList(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "wifi", "get_wifi_list", out);
}
int ZmqSubWorker::getMdnsInfo(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "mdns", "get_mdns_info", out);
}
int ZmqSubWorker::getLanPing(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "lan", "get_lan_ping", out);
}
int ZmqSubWorker::getLocalPing(json& out)
{
    return zmqapi::get(*this, kNetworkInfo, "lan", "get_local_ping", out);
}
