// Cost of classifying one whole touch sequence, from begin to end, through
// the event filter of a panel-sized window with buttons and a slider on it.
#include "input/touch_event_handler.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTouchDevice>

#include <vector>

namespace {

QApplication& ensureApplication()
{
    if (auto* existing = qobject_cast<QApplication*>(QCoreApplication::instance()))
        return *existing;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "panel_bench";
    static char* argv[] = {name, nullptr};
    static QApplication app(argc, argv);
    return app;
}

// Events are sent straight to the window, so the device needs no registering
// with the window system.
QTouchDevice* touchDevice()
{
    static QTouchDevice device;
    return &device;
}

// A 640x172 window: a row of eight buttons, each with an icon label on it,
// above a slider; the handler attached with a clock the sequence drives.
class BenchPanel {
public:
    BenchPanel()
    {
        window.setFixedSize(640, 172);
        for (int i = 0; i < 8; ++i) {
            auto* button = new QPushButton(&window);
            button->setGeometry(i * 80, 0, 78, 70);
            auto* icon = new QLabel(button);
            icon->setGeometry(20, 10, 38, 38);
        }
        auto* slider = new QSlider(Qt::Horizontal, &window);
        slider->setRange(0, 100);
        slider->setGeometry(64, 100, 512, 36);
        window.show();
        handler.setClock([this] { return now; });
        handler.attachTo(&window);
        auto count = [this] { ++signals_seen; };
        QObject::connect(&handler, &TouchEventHandler::buttonTapDetected, count);
        QObject::connect(&handler, &TouchEventHandler::swipeLeftDetected, count);
        QObject::connect(&handler, &TouchEventHandler::edgeSwipeToCenterDetected, count);
        QObject::connect(&handler, &TouchEventHandler::sliderValueChangedDetected, count);
        QObject::connect(&handler, &TouchEventHandler::sliderReleaseDetected, count);
    }

    // Sends begin at path.front(), one update per further point, end at
    // path.back(), `durationMs` after the begin.
    void run(const std::vector<QPointF>& path, qint64 durationMs)
    {
        send(QEvent::TouchBegin, path.front(), Qt::TouchPointPressed);
        for (size_t i = 1; i < path.size(); ++i)
            send(QEvent::TouchUpdate, path[i], Qt::TouchPointMoved);
        now += durationMs;
        send(QEvent::TouchEnd, path.back(), Qt::TouchPointReleased);
    }

    long signals_seen = 0;

private:
    void send(QEvent::Type type, const QPointF& pos, Qt::TouchPointState state)
    {
        QTouchEvent::TouchPoint point(0);
        point.setPos(pos);
        point.setState(state);
        QTouchEvent event(type, touchDevice(), Qt::NoModifier, state, {point});
        QCoreApplication::sendEvent(&window, &event);
    }

    QApplication& app = ensureApplication(); // before any widget
    QWidget window;
    TouchEventHandler handler;
    qint64 now = 0;
};

void runSequence(benchmark::State& state, const std::vector<QPointF>& path, qint64 durationMs)
{
    BenchPanel panel;
    for (auto _ : state) {
        panel.run(path, durationMs);
        benchmark::DoNotOptimize(panel.signals_seen);
    }
    if (panel.signals_seen == 0)
        state.SkipWithError("the sequence was not recognised as any gesture");
    state.SetItemsProcessed(state.iterations());
}

void BM_TapOnButtonIcon(benchmark::State& state)
{
    runSequence(state, {{280, 30}}, 60);
}
BENCHMARK(BM_TapOnButtonIcon);

void BM_SwipeLeftWithFiveUpdates(benchmark::State& state)
{
    runSequence(state, {{500, 140}, {470, 141}, {430, 142}, {380, 143}, {330, 144}, {300, 144}},
                250);
}
BENCHMARK(BM_SwipeLeftWithFiveUpdates);

void BM_EdgeSwipeFromRight(benchmark::State& state)
{
    runSequence(state, {{620, 150}, {520, 150}, {400, 152}, {300, 152}}, 300);
}
BENCHMARK(BM_EdgeSwipeFromRight);

void BM_SliderDragWithFiveUpdates(benchmark::State& state)
{
    runSequence(state, {{100, 118}, {150, 118}, {200, 119}, {260, 120}, {330, 60}, {400, 20}}, 600);
}
BENCHMARK(BM_SliderDragWithFiveUpdates);

} // namespace
