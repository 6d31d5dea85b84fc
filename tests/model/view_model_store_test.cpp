// Change detection: a stored view model reports a change only when a field
// differs, deep inside list rows too and exactly for rates.
#include "device_caches.h"
#include "model/view_models/view_models.h"
#include "model/view_models/vm_store.h"

namespace modeltest {
namespace {

TEST(ViewModelStore, ReportsAChangeOnceAndNothingWithoutABackend)
{
    StoredViewModel<ConnectBTVM> store;
    bool changed = false;
    store.update(ConnectBTVM{3, true}, &changed);
    EXPECT_TRUE(changed);
    store.update(ConnectBTVM{3, true}, &changed);
    EXPECT_FALSE(changed);
    store.update(ConnectBTVM{}, &changed);
    EXPECT_TRUE(changed) << "back to the defaults is a change too";

    int computed = 0;
    changed = true;
    const ConnectBTVM offline = store.rebuild(
        false,
        [&] {
            ++computed;
            return ConnectBTVM{5, true};
        },
        &changed);
    EXPECT_EQ(offline, ConnectBTVM());
    EXPECT_FALSE(changed);
    EXPECT_EQ(computed, 0);
    store.rebuild(
        true, [] { return ConnectBTVM{}; }, &changed);
    EXPECT_FALSE(changed) << "the offline rebuild stored nothing";
    EXPECT_EQ(store.get(), ConnectBTVM());
}

template <class VM, class Change> bool differsAfter(const VM& vm, Change change)
{
    VM changed = vm;
    change(changed);
    return changed != vm;
}

TEST(ViewModelStore, OneFieldAnywhereMakesTheRecordsDiffer)
{
    const Caches c = reportedCaches();
    EncoderShortcutPageVM encoder;
    encoder.osd_items = QList<OsdItemInfo>(c.sub.osd_items.begin(), c.sub.osd_items.end());
    encoder.push_streams = {{0, "A", true, 1, 0}};
    DecoderShortcutPageVM decoder;
    decoder.uvc_items = {DecoderShortcutItemInfo{}, DecoderShortcutItemInfo{}};
    decoder.net_items = {DecoderShortcutItemInfo{}, DecoderShortcutItemInfo{}};
    decoder.net_items[1].id = 2;
    NetworkSettingsPageVM network;
    network.nas_list = {{"share", true, 1}};
    StatusPage1VM rates;
    rates.up_mbps = 1.0;
    EXPECT_TRUE(differsAfter(encoder, [](auto& v) { v.osd_items[1].status = 1; }));
    EXPECT_TRUE(differsAfter(encoder, [](auto& v) { v.push_streams[0].reserved = 1; }));
    EXPECT_TRUE(differsAfter(decoder, [](auto& v) { v.uvc_items[1].fps_check = 0; }));
    EXPECT_TRUE(differsAfter(decoder, [](auto& v) { std::swap(v.net_items[0], v.net_items[1]); }));
    EXPECT_TRUE(differsAfter(network, [](auto& v) { v.nas_list[0].switch_on = false; }));
    EXPECT_TRUE(differsAfter(rates, [](auto& v) { v.up_mbps += 1e-12; }));
    // Fields that the window sets for the page shown count as well.
    EXPECT_TRUE(differsAfter(StatusBarVM(), [](auto& v) { v.context_text = "Settings"; }));
    EXPECT_TRUE(differsAfter(StatusBarVM(), [](auto& v) { v.hide_chrome = true; }));
}

} // namespace
} // namespace modeltest
