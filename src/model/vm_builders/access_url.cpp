#include "model/vm_builders/access_url.h"

QString buildQrAccessUrl(const QString& host, int port)
{
    if (host.isEmpty() || port < 1) {
        return QString();
    }
    if (port == 80) {
        return QStringLiteral("http://%1").arg(host);
    }
    return QStringLiteral("http://%1:%2").arg(host).arg(port);
}

QString buildApWifiQrText(const QString& ssid, const QString& psk)
{
    // The two-argument arg() fills both places in one pass, so a "%2" inside
    // the SSID is not mistaken for the key's place.
    return QStringLiteral("WIFI:S:%1;T:WPA;P:%2;H:false;;").arg(ssid, psk);
}

int parseConfiguredHttpPort(const nlohmann::json& network_config)
{
    if (!network_config.is_object()) {
        return -1;
    }
    const auto ports = network_config.find("ports");
    if (ports == network_config.end() || !ports->is_object()) {
        return -1;
    }
    const auto http = ports->find("http");
    if (http == ports->end() || !http->is_number_integer()) {
        return -1;
    }
    return http->get<int>();
}
