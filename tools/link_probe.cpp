// panel-link-probe: follows the backend's state topics with the panel's own
// link layer and prints what the panel would know, once a second. A quick way
// to see a backend (the device's daemons or panel-sim) from the panel's side.
#include "link/zmq_get_cache.h"
#include "link/zmq_sub_worker.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimer>

#include <cstdio>

namespace {

void printSnapshot(const ZmqSubCache& c)
{
    std::printf("mode=%d run=%d lang=%d | ip=%s lan=%d wifi=%d | cpu %d C %d%% mem %d%% | "
                "video %dx%d@%d | disks %d/%d/%d | recording=%d streaming=%d | osd=%zu push=%zu\n",
                c.workmode_id, c.run_status, c.language_id, c.ip.c_str(), c.lan_state,
                c.wifi_status, c.cpu_temp, c.cpu_payload, c.memory_percent, c.video_width,
                c.video_height, c.video_fps, c.disk_present[0], c.disk_present[1],
                c.disk_present[2], c.record_active, c.stream_active, c.osd_items.size(),
                c.push_streams.size());
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const BackendEndpoints endpoints = BackendEndpoints::fromEnvironment();
    std::printf("link probe: requests on %s, topics from %s\n", endpoints.webserver.c_str(),
                endpoints.topics_sub.c_str());

    auto* worker = new ZmqSubWorker(endpoints);
    QThread thread;
    worker->moveToThread(&thread);
    QObject::connect(&thread, &QThread::started, worker, &ZmqSubWorker::process);
    thread.start();

    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [worker] { printSnapshot(worker->getSubCache()); });
    tick.start(1000);

    const int code = app.exec();
    worker->stop();
    thread.quit();
    thread.wait(3000);
    delete worker;
    return code;
}
