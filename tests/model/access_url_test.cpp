#include "model/vm_builders/access_url.h"

#include <gtest/gtest.h>

using nlohmann::json;

namespace {

TEST(QrAccessUrlTest, DefaultHttpPortIsLeftOut)
{
    EXPECT_EQ(buildQrAccessUrl("192.168.1.20", 80), "http://192.168.1.20");
}

TEST(QrAccessUrlTest, OtherPortsAreWrittenOut)
{
    EXPECT_EQ(buildQrAccessUrl("192.168.1.20", 8080), "http://192.168.1.20:8080");
    EXPECT_EQ(buildQrAccessUrl("box", 1), "http://box:1");
    EXPECT_EQ(buildQrAccessUrl("box", 81), "http://box:81");
}

TEST(QrAccessUrlTest, NoHostOrNoPortGivesNullString)
{
    EXPECT_TRUE(buildQrAccessUrl(QString(), 80).isNull());
    EXPECT_TRUE(buildQrAccessUrl(QString(""), 8080).isNull());
    EXPECT_TRUE(buildQrAccessUrl("box", 0).isNull());
    EXPECT_TRUE(buildQrAccessUrl("box", -1).isNull());
}

TEST(ApWifiQrTextTest, SsidAndKeyGoInUnescaped)
{
    EXPECT_EQ(buildApWifiQrText("cam;one", "p:ss"), "WIFI:S:cam;one;T:WPA;P:p:ss;H:false;;");
    // A placeholder-like SSID must not pull the key into its place.
    EXPECT_EQ(buildApWifiQrText("net%2", "key"), "WIFI:S:net%2;T:WPA;P:key;H:false;;");
}

TEST(ConfiguredHttpPortTest, AcceptsSignedAndUnsignedIntegers)
{
    EXPECT_EQ(parseConfiguredHttpPort(json{{"ports", {{"http", 8080}}}}), 8080);
    EXPECT_EQ(parseConfiguredHttpPort(json{{"ports", {{"http", 80u}}}}), 80);
    EXPECT_EQ(parseConfiguredHttpPort(json{{"ports", {{"http", -5}}}}), -5);
}

TEST(ConfiguredHttpPortTest, AnythingElseIsUnknown)
{
    const json configs[] = {json(),
                            json::array({8080}),
                            json{{"http", 8080}},
                            json{{"ports", 8080}},
                            json{{"ports", json::array({8080})}},
                            json{{"ports", {{"https", 443}}}},
                            json{{"ports", {{"http", 8080.0}}}},
                            json{{"ports", {{"http", "8080"}}}},
                            json{{"ports", {{"http", true}}}}};
    for (const json& cfg : configs) {
        EXPECT_EQ(parseConfiguredHttpPort(cfg), -1) << cfg.dump();
    }
}

} // namespace
