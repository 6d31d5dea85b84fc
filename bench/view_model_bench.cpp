// Cost of one refresh tick's model work: copying the caches, computing a
// view model from busy caches, and the compare-and-store that decides
// whether the page is repainted.
#include "model/view_models/view_models.h"
#include "model/view_models/vm_store.h"
#include "model/vm_builders/settings_vm_builders.h"
#include "model/vm_builders/shortcut_vm_builders.h"
#include "model/vm_builders/status_vm_builders.h"

#include <benchmark/benchmark.h>

#include <string>
#include <type_traits>

namespace {

struct Caches {
    ZmqSubCache sub;
    ZmqGetCache get;
};

void fillSubCache(ZmqSubCache& sub)
{
    sub.network_ready = sub.cpu_memory_ready = sub.storage_ready = true;
    sub.video_input_ready = sub.record_ready = sub.net_stream_ready = true;
    sub.osd_ready = sub.system_state_ready = true;
    sub.ip = "192.168.100.23";
    sub.lan_state = 1;
    sub.wifi_switch = true;
    sub.wifi_status = 4;
    sub.ap_switch = true;
    sub.cpu_temp = 61;
    sub.eth0_rx_mbps = 12.5;
    sub.eth0_tx_mbps = 8.25;
    for (int slot = 0; slot < ZmqSubCache::kDiskSlots; ++slot) {
        sub.disk_present[slot] = true;
        sub.disk_status[slot] = 1;
        sub.disk_total[slot] = 120000 * (slot + 1);
        sub.disk_used[slot] = 50000;
        sub.disk_free[slot] = sub.disk_total[slot] - 50000;
    }
    sub.record_task_id[0] = "sdcard_0";
    sub.record_status[0] = 1;
    sub.record_active = true;
    sub.video_width = 1920;
    sub.video_height = 1080;
    sub.video_fps = 60;
    for (int i = 0; i < 8; ++i) {
        sub.push_streams.push_back({i, QString("Platform stream %1").arg(i), i % 2 == 0, 1, 0});
        sub.osd_items.push_back({i, QString("Overlay layout %1").arg(i), i < 3, i < 3 ? 1 : 0});
    }
}

void fillGetCache(ZmqGetCache& get)
{
    get.version_valid = get.dashboard_valid = get.lcd_valid = get.ap_valid = true;
    get.nas_valid = get.video_out_valid = get.enc_ndi_valid = get.venc_valid = true;
    get.audio_valid = get.decoder_valid = get.present_storage_valid = true;
    get.dec_ndi_valid = get.dec_net_stream_valid = get.dec_uvc_valid = true;
    get.usb_otg_valid = get.app_connection_valid = true;
    get.version = {"V1.2", "3.4.5-build77", "Encoder-Studio-A", "SN0012345678"};
    get.dashboard = {"123h", "2025-03-01 08:00:00"};
    get.ap_ssid = "Encoder-AP-5G";
    get.ap_psk = "correct horse battery";
    get.video_out.format = "1080p60";
    get.enc_ndi_switch = 1;
    get.enc_ndi_machinename = "ENCODER-STUDIO-A";
    get.present_storage_id = 0;
    for (int i = 0; i < 3; ++i) {
        get.nas_list.push_back({QString("nas-share-%1").arg(i), i == 0, 1});
    }
    VideoEncInfo main_stream;
    main_stream.width = 1920;
    main_stream.height = 1080;
    main_stream.bitrate = 8000;
    VideoEncInfo sub_stream = main_stream;
    sub_stream.width = 640;
    sub_stream.height = 360;
    get.venc_list = {main_stream, sub_stream};
    for (int i = 0; i < 12; ++i) {
        get.dec_ndi_list.push_back({i, QString("STUDIO-PC-%1 (OBS)").arg(i), i == 0 ? 1 : 0});
        get.dec_net_stream_list.push_back({i, QString("rtmp://10.0.0.%1/live").arg(i), i == 1, 0});
    }
    for (int i = 0; i < 4; ++i) {
        UvcDevInfo dev;
        dev.id = i;
        dev.name = "hub" + std::to_string(i);
        dev.present = true;
        dev.switch_on = i == 0;
        get.dec_uvc_list.push_back(dev);
    }
}

const Caches& busyCaches()
{
    static const Caches caches = [] {
        Caches c;
        fillSubCache(c.sub);
        fillGetCache(c.get);
        return c;
    }();
    return caches;
}

template <class Compute> void BM_Compute(benchmark::State& state, Compute compute)
{
    const Caches& c = busyCaches();
    for (auto _ : state) {
        benchmark::DoNotOptimize(compute(c));
    }
}

BENCHMARK_CAPTURE(BM_Compute, StatusBar,
                  [](const Caches& c) { return computeStatusBarVm(c.sub, c.get, 0); });
BENCHMARK_CAPTURE(BM_Compute, StatusPage1,
                  [](const Caches& c) { return computeStatusPage1Vm(c.sub, c.get); });
BENCHMARK_CAPTURE(BM_Compute, StatusPage2,
                  [](const Caches& c) { return computeStatusPage2Vm(c.sub, c.get, 0); });
BENCHMARK_CAPTURE(BM_Compute, StatusPage3,
                  [](const Caches& c) { return computeStatusPage3Vm(c.sub, c.get); });
BENCHMARK_CAPTURE(BM_Compute, SystemSettings,
                  [](const Caches& c) { return computeSystemSettingsPageVm(c.get); });
BENCHMARK_CAPTURE(BM_Compute, NetworkSettings,
                  [](const Caches& c) { return computeNetworkSettingsPageVm(c.sub, c.get, 8080); });
BENCHMARK_CAPTURE(BM_Compute, CameraSettings,
                  [](const Caches& c) { return computeCameraSettingsPageVm(c.get); });
BENCHMARK_CAPTURE(BM_Compute, VideoSettings,
                  [](const Caches& c) { return computeVideoSettingsPageVm(c.sub, c.get, 0); });
BENCHMARK_CAPTURE(BM_Compute, AudioSettings,
                  [](const Caches& c) { return computeAudioSettingsPageVm(c.sub, c.get, 0); });
BENCHMARK_CAPTURE(BM_Compute, MediaSettings,
                  [](const Caches& c) { return computeMediaSettingsPageVm(c.sub, c.get, 0); });
BENCHMARK_CAPTURE(BM_Compute, DecodingSettings,
                  [](const Caches& c) { return computeDecodingSettingsPageVm(c.get); });
BENCHMARK_CAPTURE(BM_Compute, EncoderShortcut,
                  [](const Caches& c) { return computeEncoderShortcutPageVm(c.sub, c.get); });
BENCHMARK_CAPTURE(BM_Compute, DecoderShortcut,
                  [](const Caches& c) { return computeDecoderShortcutPageVm(c.get); });
BENCHMARK_CAPTURE(BM_Compute, Shortcut, [](const Caches&) { return computeShortcutVm(); });
BENCHMARK_CAPTURE(BM_Compute, ConnectApp,
                  [](const Caches& c) { return computeConnectAppVm(c.sub, c.get); });
BENCHMARK_CAPTURE(BM_Compute, Standby, [](const Caches&) {
    static const nlohmann::json reply = {
        {"time",
         {{"year", 2025}, {"month", 6}, {"day", 7}, {"hour", 8}, {"minute", 9}, {"second", 10}}}};
    return computeStandbyPageVm(QStringLiteral("192.168.100.23"), &reply);
});

// Each build starts from one deep copy of each cache.
BENCHMARK_CAPTURE(BM_Compute, CopySubCache, [](const Caches& c) { return ZmqSubCache(c.sub); });
BENCHMARK_CAPTURE(BM_Compute, CopyGetCache, [](const Caches& c) { return ZmqGetCache(c.get); });

// The common tick: the data did not move, so the store compares, finds the
// records equal and reports no change. Two separately built records take
// turns, so that the lists are compared row by row as after a real build and
// not short-cut through shared list data.
template <class Compute> void BM_StoreUnchanged(benchmark::State& state, Compute compute)
{
    const Caches& c = busyCaches();
    using VM = std::decay_t<decltype(compute(c))>;
    const VM builds[2] = {compute(c), compute(c)};
    StoredViewModel<VM> store;
    store.update(builds[1], nullptr);
    bool changed = false;
    bool any_changed = false;
    int turn = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(store.update(builds[turn], &changed));
        any_changed = any_changed || changed;
        turn ^= 1;
    }
    if (any_changed) {
        state.SkipWithError("equal records reported as changed");
    }
}

BENCHMARK_CAPTURE(BM_StoreUnchanged, StatusBar,
                  [](const Caches& c) { return computeStatusBarVm(c.sub, c.get, 0); });
BENCHMARK_CAPTURE(BM_StoreUnchanged, NetworkSettings,
                  [](const Caches& c) { return computeNetworkSettingsPageVm(c.sub, c.get, 80); });
BENCHMARK_CAPTURE(BM_StoreUnchanged, EncoderShortcut,
                  [](const Caches& c) { return computeEncoderShortcutPageVm(c.sub, c.get); });
BENCHMARK_CAPTURE(BM_StoreUnchanged, DecoderShortcut,
                  [](const Caches& c) { return computeDecoderShortcutPageVm(c.get); });
BENCHMARK_CAPTURE(BM_StoreUnchanged, Shortcut, [](const Caches&) { return computeShortcutVm(); });

} // namespace

// panel_bench is one program made of every file in bench/; the entry point is
// weak so that a file bringing its own main() takes precedence over this one.
__attribute__((weak)) int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
