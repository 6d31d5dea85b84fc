// Cost of one refresh tick's model work: copying the caches, computing a
// view model from busy caches, and the compare-and-store that decides
// whether the page is repainted.
#include "busy_caches.h"
#include "model/view_models/view_models.h"
#include "model/view_models/vm_store.h"
#include "model/vm_builders/settings_vm_builders.h"
#include "model/vm_builders/shortcut_vm_builders.h"
#include "model/vm_builders/status_vm_builders.h"

#include <benchmark/benchmark.h>

#include <string>
#include <type_traits>

namespace {

using benchdata::busyCaches;
using benchdata::Caches;

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
