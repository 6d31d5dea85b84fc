#include "cache_builders.h"
#include "model/view_models/view_models.h"
#include "model/view_models/vm_store.h"
#include "model/vm_builders/settings_vm_builders.h"
#include "model/vm_builders/shortcut_vm_builders.h"
#include "model/vm_builders/status_vm_builders.h"

#include <gtest/gtest.h>

using namespace modeltest;

namespace {

TEST(StoredViewModelTest, ClearingANonZeroRecordReportsChangeOnce)
{
    StoredViewModel<ConnectBTVM> store;
    store.update(ConnectBTVM{3, true}, nullptr);
    bool changed = false;
    store.update(ConnectBTVM{}, &changed);
    EXPECT_TRUE(changed);
    store.update(ConnectBTVM{}, &changed);
    EXPECT_FALSE(changed);
}

TEST(StoredViewModelTest, RebuildWithoutBackendLeavesTheStoredRecord)
{
    StoredViewModel<DecodingSettingsPageVM> store;
    ZmqGetCache get;
    get.dec_rtmp_valid = true;
    get.dec_rtmp_switch = 1;
    auto compute = [&get] { return computeDecodingSettingsPageVm(get); };
    bool changed = false;
    EXPECT_TRUE(store.rebuild(true, compute, &changed).rtmp_on);
    EXPECT_TRUE(changed);

    int computed = 0;
    changed = true;
    const DecodingSettingsPageVM offline = store.rebuild(
        false,
        [&] {
            ++computed;
            return compute();
        },
        &changed);
    EXPECT_FALSE(offline.rtmp_on);
    EXPECT_FALSE(changed);
    EXPECT_EQ(computed, 0);
    EXPECT_TRUE(store.get().rtmp_on);

    store.rebuild(true, compute, &changed);
    EXPECT_FALSE(changed);
}

TEST(StoredViewModelTest, RatesCompareExactly)
{
    StoredViewModel<StatusPage1VM> store;
    StatusPage1VM vm;
    vm.up_mbps = 1.0;
    store.update(vm, nullptr);
    bool changed = false;
    vm.up_mbps = 1.0 + 1e-12;
    store.update(vm, &changed);
    EXPECT_TRUE(changed);
}

TEST(StoredViewModelTest, ApDataRefreshChangesTheWifiQr)
{
    StoredViewModel<NetworkSettingsPageVM> store;
    ZmqGetCache get;
    get.ap_valid = true;
    get.ap_ssid = "box";
    get.ap_psk = "old";
    store.update(computeNetworkSettingsPageVm(ZmqSubCache{}, get, 80), nullptr);

    get.ap_psk = "new";
    bool changed = false;
    const NetworkSettingsPageVM vm =
        store.update(computeNetworkSettingsPageVm(ZmqSubCache{}, get, 80), &changed);
    EXPECT_TRUE(changed);
    EXPECT_EQ(vm.ap_wifi_qr, "WIFI:S:box;T:WPA;P:new;H:false;;");
}

// Lists compare item by item: a change deep inside one row of an otherwise
// equal list must count.
TEST(ViewModelListEqualityTest, OneFieldOfOneRowMakesTheRecordsDiffer)
{
    EncoderShortcutPageVM a;
    a.osd_items = {{1, "Logo", true, 1}, {2, "Clock", false, 0}};
    a.push_streams = {{0, "A", true, 1, 0}};
    EncoderShortcutPageVM b = a;
    EXPECT_EQ(a, b);
    b.osd_items[1].status = 1;
    EXPECT_NE(a, b);
    b = a;
    b.push_streams[0].reserved = 1;
    EXPECT_NE(a, b);

    DecoderShortcutPageVM d1;
    d1.uvc_items = {DecoderShortcutItemInfo{}, DecoderShortcutItemInfo{}};
    DecoderShortcutPageVM d2 = d1;
    d2.uvc_items[1].fps_check = 0;
    EXPECT_NE(d1, d2);

    NetworkSettingsPageVM n1;
    n1.nas_list = {{"share", true, 1}};
    NetworkSettingsPageVM n2 = n1;
    n2.nas_list[0].switch_on = false;
    EXPECT_NE(n1, n2);
}

TEST(ViewModelListEqualityTest, ListOrderMatters)
{
    DecoderShortcutItemInfo first;
    first.id = 1;
    DecoderShortcutItemInfo second;
    second.id = 2;
    DecoderShortcutPageVM a;
    a.net_items = {first, second};
    DecoderShortcutPageVM b;
    b.net_items = {second, first};
    EXPECT_NE(a, b);
}

TEST(ViewModelEqualityTest, ChromeFieldsSetByTheWindowCount)
{
    StatusBarVM a;
    StatusBarVM b;
    b.context_text = "Settings";
    EXPECT_NE(a, b);
    b = a;
    b.hide_chrome = true;
    EXPECT_NE(a, b);
}

} // namespace
