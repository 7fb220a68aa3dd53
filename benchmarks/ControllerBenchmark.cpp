// SPDX-License-Identifier: GPL-3.0-or-later
// Time per frame of a whole update cycle: without painting, and with the tuner window painting it.
#include "app/TunerWindow.h"
#include "benchmarks/BenchmarkTuner.h"
#include "engine/HeadlessDisplay.h"

#include <QApplication>
#include <QImage>
#include <benchmark/benchmark.h>

namespace veltrano {
namespace {

void updateCycle(benchmark::State& state) {
    HeadlessDisplay display;
    BenchmarkTuner tuner(display);
    for (auto _ : state)
        tuner.update();
}

/// Counts the window's paint events: a frame that is not painted would look cheap.
class PaintCounter final : public QObject {
public:
    long paints = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::UpdateRequest) ++paints;
        return QObject::eventFilter(watched, event);
    }
};

struct ShownWindow {
    SilentLog log;
    ResourceFolder resources = ResourceFolder::find();
    ImageLibrary images{resources.images(), log};
    std::unique_ptr<TunerWindow> window = TunerWindow::create(resources, images, log);
    PaintCounter counter;

    explicit ShownWindow(double scale) {
        if (!window) return;
        window->setScale(scale);
        window->show();
        window->installEventFilter(&counter);
        QApplication::processEvents();
    }
};

/// What a frame costs: the cycle, and painting what it changed.
/// @param state range: the size in tenths
void paintedFrame(benchmark::State& state) {
    ShownWindow shown(double(state.range(0)) / 10);
    if (!shown.window) {
        state.SkipWithError("the window could not be made");
        return;
    }
    BenchmarkTuner tuner(*shown.window);
    QApplication::processEvents();
    shown.counter.paints = 0;
    for (auto _ : state) {
        tuner.update();
        QApplication::processEvents();
    }
    state.counters["paints_per_frame"] =
        benchmark::Counter(double(shown.counter.paints), benchmark::Counter::kAvgIterations);
}

/// Painting everything, as after a change of size.
void wholeWindow(benchmark::State& state) {
    ShownWindow shown(double(state.range(0)) / 10);
    if (!shown.window) {
        state.SkipWithError("the window could not be made");
        return;
    }
    BenchmarkTuner tuner(*shown.window);
    tuner.update();
    QImage image(shown.window->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        shown.window->render(&image);
}

BENCHMARK(updateCycle)->Name("Controller/update_cycle_without_painting");
BENCHMARK(paintedFrame)
    ->Name("Controller/painted_frame/size_in_tenths")
    ->Arg(10)
    ->Arg(20)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(wholeWindow)
    ->Name("TunerWindow/whole_window/size_in_tenths")
    ->Arg(10)
    ->Arg(20)
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veltrano
