// Cost of AppManager's view-model builds as the refresh tick calls them:
// a copy of each cache under its mutex, the compute, and the compare-and-store
// under vm_mutex. The common tick is the unchanged rebuild; the changed one
// adds the cache write that a worker would have made.
#include "busy_caches.h"
#include "model/app_manager.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace {

using benchdata::busyCaches;

// A manager around a worker whose caches hold the busy data. The worker's
// endpoints lead nowhere (a fresh folder), so its start-up reads time out
// once; nothing runs in the background afterwards.
AppManager& busyApp()
{
    static std::unique_ptr<AppManager> app = [] {
        char folder[] = "/tmp/panel-bench-XXXXXX";
        const std::string dir = mkdtemp(folder) ? folder : "/tmp";
        auto manager = std::make_unique<AppManager>(
            std::make_unique<ZmqSubWorker>(BackendEndpoints::local(dir, 1)));
        manager->subWorker()->updateSubCache([](ZmqSubCache& sub) { sub = busyCaches().sub; });
        manager->subWorker()->updateGetCache([](ZmqGetCache& get) { get = busyCaches().get; });
        return manager;
    }();
    return *app;
}

template <class VM> using Build = VM (AppManager::*)(bool*);

template <class VM> void BM_RebuildUnchanged(benchmark::State& state, Build<VM> build)
{
    AppManager& app = busyApp();
    (app.*build)(nullptr);
    bool changed = false;
    bool any_changed = false;
    for (auto _ : state) {
        benchmark::DoNotOptimize((app.*build)(&changed));
        any_changed = any_changed || changed;
    }
    if (any_changed)
        state.SkipWithError("unchanged caches reported as changed");
}

#define UNCHANGED(Name) BENCHMARK_CAPTURE(BM_RebuildUnchanged, Name, &AppManager::build##Name)

UNCHANGED(StatusBarVm);
UNCHANGED(StatusPage1Vm);
UNCHANGED(StatusPage2Vm);
UNCHANGED(StatusPage3Vm);
UNCHANGED(SystemSettingsPageVm);
UNCHANGED(NetworkSettingsPageVm);
UNCHANGED(CameraSettingsPageVm);
UNCHANGED(VideoSettingsPageVm);
UNCHANGED(AudioSettingsPageVm);
UNCHANGED(MediaSettingsPageVm);
UNCHANGED(DecodingSettingsPageVm);
UNCHANGED(EncoderShortcutPageVm);
UNCHANGED(DecoderShortcutPageVm);
UNCHANGED(ConnectAppVm);
UNCHANGED(ShortcutVM);

// A worker write that moves the model, then the build that reports it. The
// value flips each round, so every build differs from the one before.
template <class VM, class Flip>
void BM_RebuildChanged(benchmark::State& state, Build<VM> build, Flip flip)
{
    AppManager& app = busyApp();
    flip(*app.subWorker(), false);
    (app.*build)(nullptr);
    bool changed = false;
    bool missed = false;
    int round = 0;
    for (auto _ : state) {
        flip(*app.subWorker(), ++round % 2 == 1);
        benchmark::DoNotOptimize((app.*build)(&changed));
        missed = missed || !changed;
    }
    flip(*app.subWorker(), false);
    if (missed)
        state.SkipWithError("a real change was not reported");
}

BENCHMARK_CAPTURE(BM_RebuildChanged, StatusBarVm, &AppManager::buildStatusBarVm,
                  [](ZmqSubWorker& worker, bool on) {
                      worker.updateSubCache([on](ZmqSubCache& sub) { sub.ap_switch = on; });
                  });
BENCHMARK_CAPTURE(BM_RebuildChanged, NetworkSettingsPageVm, &AppManager::buildNetworkSettingsPageVm,
                  [](ZmqSubWorker& worker, bool on) {
                      worker.updateGetCache(
                          [on](ZmqGetCache& get) { get.nas_list.back().status = on ? 2 : 1; });
                  });
BENCHMARK_CAPTURE(BM_RebuildChanged, EncoderShortcutPageVm, &AppManager::buildEncoderShortcutPageVm,
                  [](ZmqSubWorker& worker, bool on) {
                      worker.updateSubCache(
                          [on](ZmqSubCache& sub) { sub.osd_items.back().switch_on = on; });
                  });
BENCHMARK_CAPTURE(BM_RebuildChanged, DecoderShortcutPageVm, &AppManager::buildDecoderShortcutPageVm,
                  [](ZmqSubWorker& worker, bool on) {
                      worker.updateGetCache([on](ZmqGetCache& get) {
                          get.dec_net_stream_list.back().switch_on = on ? 1 : 0;
                      });
                  });

// What the tick delivers to a page: the stored record, copied under vm_mutex.
template <class VM>
void BM_Get(benchmark::State& state, Build<VM> build, VM (AppManager::*get)() const)
{
    AppManager& app = busyApp();
    (app.*build)(nullptr);
    for (auto _ : state)
        benchmark::DoNotOptimize((app.*get)());
}

BENCHMARK_CAPTURE(BM_Get, StatusBarVm, &AppManager::buildStatusBarVm, &AppManager::getStatusBarVm);
BENCHMARK_CAPTURE(BM_Get, DecoderShortcutPageVm, &AppManager::buildDecoderShortcutPageVm,
                  &AppManager::getDecoderShortcutPageVm);

} // namespace
