#pragma once
// Addresses the phone app is pointed at, as URLs and QR payloads.
#include <QString>
#include <nlohmann/json.hpp>

// The box's own address on its access point network.
inline const char* const kAccessPointAddress = "170.128.88.1";

// "http://host" for port 80, "http://host:port" otherwise; a null string when
// the host is empty or the port is not a real port.
QString buildQrAccessUrl(const QString& host, int port);

// The Wi-Fi join payload for the access point. The SSID and key go in as they
// are: phones accept them unescaped from this device.
QString buildApWifiQrText(const QString& ssid, const QString& psk);

// `ports.http` of the network configuration when it is a JSON integer, else -1.
int parseConfiguredHttpPort(const nlohmann::json& network_config);
