// SPDX-License-Identifier: GPL-3.0-or-later
// Time per frame from a frequency to key, deviation and target.
#include "engine/NoteEvaluation.h"

#include <array>
#include <benchmark/benchmark.h>

namespace veltrano {
namespace {

void evaluate(benchmark::State& state, bool isTempered) {
    std::array<double, 12> cents{};
    std::array<double, 108> stretch{};
    cents.fill(-2.5);
    stretch.fill(0.5);
    const TuningChoice tuning{.referencePitchHz = 440,
                              .isTemperamentSelected = isTempered,
                              .tonic = 2,
                              .temperament = cents,
                              .stretch = stretch};
    float hz = 439;
    for (auto _ : state) {
        benchmark::DoNotOptimize(hz);
        benchmark::DoNotOptimize(evaluateNote(hz, tuning));
    }
}

BENCHMARK_CAPTURE(evaluate, equal, false)->Name("NoteEvaluation/equal");
BENCHMARK_CAPTURE(evaluate, tempered, true)->Name("NoteEvaluation/tempered");

} // namespace
} // namespace veltrano
