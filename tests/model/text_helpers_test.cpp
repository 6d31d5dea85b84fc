// The texts the model makes from backend values: the app's URLs and Wi-Fi QR
// payload, the configured HTTP port, and the backend clock.
#include "model/vm_builders/access_url.h"
#include "model/vm_builders/backend_time_text.h"

#include <gtest/gtest.h>

namespace {

using nlohmann::json;

// The URLs of the settings page show the ports; here the hosts and ports
// that give none.
TEST(TextHelpers, NoAccessUrlWithoutHostOrPortAndTheQrKeepsItsText)
{
    for (const auto& [host, port] :
         {std::pair<QString, int>{QString(), 80}, {"", 8080}, {"box", 0}, {"box", -1}})
        EXPECT_TRUE(buildQrAccessUrl(host, port).isNull()) << host.toStdString() << ":" << port;
    EXPECT_EQ(buildQrAccessUrl("box", 1), "http://box:1");
    // SSID and key go in unescaped; a placeholder-like SSID must not pull the key in.
    EXPECT_EQ(buildApWifiQrText("net%2", "key"), "WIFI:S:net%2;T:WPA;P:key;H:false;;");
}

TEST(TextHelpers, ConfiguredHttpPortMustBeAnInteger)
{
    const std::pair<json, int> cases[] = {{json{{"ports", {{"http", 8080}}}}, 8080},
                                          {json(), -1},
                                          {json{{"ports", 8080}}, -1},
                                          {json{{"ports", {{"https", 443}}}}, -1},
                                          {json{{"ports", {{"http", 8080.0}}}}, -1},
                                          {json{{"ports", {{"http", "8080"}}}}, -1},
                                          {json{{"ports", {{"http", true}}}}, -1}};
    for (const auto& [config, port] : cases)
        EXPECT_EQ(parseConfiguredHttpPort(config), port) << config.dump();
}

json clockReply(int year, int month, int day, int hour, int minute, int second)
{
    return {{"time",
             {{"year", year},
              {"month", month},
              {"day", day},
              {"hour", hour},
              {"minute", minute},
              {"second", second}}}};
}

TEST(TextHelpers, BackendClockIsPaddedOrLeftAlone)
{
    QString date;
    QString time;
    buildBackendDateTimeText(clockReply(987, 3, 5, 7, 8, 9), date, time);
    EXPECT_EQ(date + " " + time, "0987-03-05 07:08:09");

    json missing = clockReply(2024, 1, 2, 3, 4, 5);
    missing["time"].erase("second");
    json text = clockReply(2024, 1, 2, 3, 4, 5);
    text["time"]["month"] = "January";
    for (const json& reply : {json(), json{{"time", "12:00:00"}}, missing, text}) {
        date = "keep-date";
        time = "keep-time";
        buildBackendDateTimeText(reply, date, time);
        EXPECT_EQ(date + " " + time, "keep-date keep-time") << reply.dump();
    }
}

} // namespace
