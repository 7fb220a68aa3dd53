// SPDX-License-Identifier: GPL-3.0-or-later
// Time per frame of the detection, and of a plain loop over the same samples to compare it with.
#include "benchmarks/Samples.h"
#include "engine/PeriodDetector.h"
#include "tests/support/PortableMath.h"

#include <benchmark/benchmark.h>
#include <cmath>

namespace veltrano {
namespace {

/// The least that anybody does to a frame: its peak amplitude.
void plainPeakScan(benchmark::State& state) {
    const std::vector<float> frame = samples::frameOfKey(int(state.range(0)));
    for (auto _ : state) {
        const float* data = frame.data();
        benchmark::DoNotOptimize(data); // another frame every time, as far as the compiler knows
        float peak = 0;
        for (std::size_t i = 0; i < samples::kFrame; ++i) {
            const float x = std::abs(data[i]);
            if (x > peak) peak = x;
        }
        benchmark::DoNotOptimize(peak);
    }
}

void detect(benchmark::State& state) {
    const std::vector<float> frame = samples::frameOfKey(int(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            period_detector::detect(frame, samples::kRateHz, std::uint32_t(samples::kFrame)));
    }
}

void detectNoise(benchmark::State& state) {
    portable::Random random(1);
    std::vector<float> frame(samples::kFrame);
    for (float& x : frame)
        x = float(0.5 * random.bipolar());
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            period_detector::detect(frame, samples::kRateHz, std::uint32_t(samples::kFrame)));
    }
}

void keys(benchmark::internal::Benchmark* which) {
    for (const int key : samples::kKeys)
        which->Arg(key);
}

BENCHMARK(plainPeakScan)->Name("PlainPeakScan/key")->Apply(keys);
BENCHMARK(detect)->Name("PeriodDetector/key")->Apply(keys);
BENCHMARK(detectNoise)->Name("PeriodDetector/white_noise");

} // namespace
} // namespace veltrano
