// SPDX-License-Identifier: GPL-3.0-or-later
// Time of an analysis beside its transforms alone, of a Hilbert transform, and of painting each
// view.
#include "analysis/HilbertView.h"
#include "analysis/PartialDetector.h"
#include "analysis/PartialView.h"
#include "analysis/PianoView.h"
#include "benchmarks/Samples.h"
#include "platform/foundation/NotificationNames.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"

#include <QImage>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>

namespace veltrano {
namespace {

constexpr std::size_t kAnalysis = 4096;

FrameRef frameOf(std::vector<float> samples) {
    struct Held {
        std::vector<float> samples;
        Frame frame;
    };
    auto held = std::make_shared<Held>();
    held->samples = std::move(samples);
    held->frame.samples = held->samples;
    return {held, &held->frame};
}

std::vector<float> noise() {
    std::mt19937 random(1);
    std::uniform_real_distribution<float> level(-1.0f, 1.0f);
    std::vector<float> samples(samples::kFrame);
    std::ranges::generate(samples, [&] { return level(random); });
    return samples;
}

struct Analysed {
    NotificationCenter notifications;
    PartialDetector detector{notifications};

    explicit Analysed(int key) {
        detector.setSampleRate(double{samples::kRateHz});
        const std::vector<float> frame = samples::frameOfKey(key);
        for (int i = 0; i < 4; ++i) // fills the history
            detector.setData(std::span(frame).first(kAnalysis));
    }
};

void detection(benchmark::State& state) {
    Analysed analysed(static_cast<int>(state.range(0)));
    for (auto _ : state)
        analysed.detector.detection();
}

/// The transforms of that analysis: two for low notes.
void transformsAlone(benchmark::State& state) {
    const std::vector<float> frame = samples::frameOfKey(static_cast<int>(state.range(0)));
    RealFFT fft(12);
    std::copy_n(frame.begin(), kAnalysis, fft.wave().begin());
    const bool isLow = Analysed(static_cast<int>(state.range(0))).detector.fundamental() < 345;
    for (auto _ : state) {
        fft.forward();
        if (isLow) fft.forward();
        benchmark::DoNotOptimize(fft.spectrum().data());
    }
}

void hilbertTransform(benchmark::State& state) {
    const std::vector<float> frame = samples::frameOfKey(57);
    HilbertTransform transform;
    for (auto _ : state) {
        transform.setData(frame);
        benchmark::DoNotOptimize(transform.hilbertWave().data());
    }
}

/// A view painted whole into a picture of two pixels per point.
class Painted {
public:
    Painted(QWidget& view, QSize points) : mView(view) {
        view.setAttribute(Qt::WA_DontShowOnScreen);
        view.resize(points);
        mImage = QImage(points * 2, QImage::Format_RGB32);
        mImage.setDevicePixelRatio(2);
    }
    void paint() { mView.render(&mImage, {}, {}, {}); }

private:
    QWidget& mView;
    QImage mImage;
};

struct Settings {
    UserDefaults defaults = UserDefaults::inMemory();
    NotificationCenter notifications;
    Preferences preferences{{defaults, notifications}};
};

/// @param state range: 0 dots, 1 line; then 0 a note, 1 noise; then 1 with decay
void scope(benchmark::State& state) {
    Settings settings;
    settings.preferences.setHilbertLine(state.range(0) != 0);
    settings.preferences.setHilbertDecay(state.range(2) != 0);
    HilbertView view(settings.preferences);
    view.setData(frameOf(state.range(1) != 0 ? noise() : samples::frameOfKey(57)));
    Painted painted(view, {400, 400});
    for (auto _ : state)
        painted.paint();
}

void partials(benchmark::State& state) {
    Settings settings;
    PartialView view({settings.preferences, settings.notifications});
    auto sound = std::make_shared<Partials>();
    for (int i = 1; i <= 16; ++i)
        sound->push_back({110.3f * static_cast<float>(i), 1.0f / static_cast<float>(i)});
    view.setPartials(sound);
    Painted painted(view, view.sizeHint());
    for (auto _ : state)
        painted.paint();
}

void piano(benchmark::State& state) {
    PianoView view;
    view.setMidiNote(61);
    Painted painted(view, {780, 96});
    for (auto _ : state)
        painted.paint();
}

BENCHMARK(detection)->Name("PartialDetector/key")->Arg(33)->Arg(57)->Arg(84);
BENCHMARK(transformsAlone)->Name("TransformsAlone/key")->Arg(33)->Arg(57)->Arg(84);
BENCHMARK(hilbertTransform)->Name("HilbertTransform");
BENCHMARK(scope)
    ->Name("HilbertView/2x/line/noise/decay")
    ->ArgsProduct({{0, 1}, {0, 1}, {0, 1}})
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(partials)->Name("PartialView/2x")->Unit(benchmark::kMicrosecond);
BENCHMARK(piano)->Name("PianoView/2x")->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veltrano
