// SPDX-License-Identifier: GPL-3.0-or-later
// Time per sample of the reference tone: blocks of 480 at full level, as the render callback asks.
#include "audio/ToneSynthesis.h"

#include <array>
#include <benchmark/benchmark.h>

namespace veltrano {
namespace {

constexpr float kRateHz = 48000;
constexpr int kFrames = 48'000; ///< per iteration: one second

void render(benchmark::State& state, int waveform, double cyclesSoFar) {
    std::array<float, 480> block{};
    ToneSynthesis tone;
    tone.setSampleRate(kRateHz);
    tone.play(std::int64_t(1) << 60);
    tone.render(block, {float(cyclesSoFar / 480 * double(kRateHz)), 1, 1});
    const ToneSynthesis::Sound sound{440, 0.7f, waveform};
    for (auto _ : state) {
        for (int done = 0; done < kFrames; done += int(block.size())) {
            benchmark::DoNotOptimize(tone.render(block, sound));
            benchmark::DoNotOptimize(block.data());
            benchmark::ClobberMemory();
        }
    }
    using Counter = benchmark::Counter;
    state.counters["s_per_sample"] =
        Counter(double(kFrames), Counter::kIsIterationInvariantRate | Counter::kInvert);
}

constexpr double kHour = 440.0 * 3600;
BENCHMARK_CAPTURE(render, sine, 0, 0)->Name("Tone/sine")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(render, triangle, 1, 0)->Name("Tone/triangle")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(render, sawtooth, 2, 0)->Name("Tone/sawtooth")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(render, square, 3, 0)->Name("Tone/square")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(render, sineHour, 0, kHour)
    ->Name("Tone/sine_after_an_hour")
    ->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace veltrano
