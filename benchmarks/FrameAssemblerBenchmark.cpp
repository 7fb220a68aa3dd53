// SPDX-License-Identifier: GPL-3.0-or-later
// Time per frame: blocks of 512 mixed and appended until one frame is full and handed over.
#include "benchmarks/Samples.h"
#include "engine/FrameAssembler.h"
#include "platform/realtime/FramePool.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>

namespace veltrano {
namespace {

constexpr std::uint32_t kBlock = 512;

/// Two channels that are alike or not, or one.
std::vector<float> interleaved(int channels, bool isDuplicated) {
    std::vector<float> sound;
    for (const float x : samples::frameOfKey(57)) {
        for (int channel = 0; channel < channels; ++channel) {
            sound.push_back(isDuplicated || channel == 0 ? x : -x * 0.5F);
        }
    }
    return sound;
}

void assemble(benchmark::State& state, int channels, bool isDuplicated) {
    std::vector<float> sound = interleaved(channels, isDuplicated);
    FrameAssembler assembler;
    assembler.invalidate(samples::kRateHz);
    const auto pool = FramePool::create(FramePool::kDefaultSlots, FrameAssembler::kMaxBufferFrames);
    const auto stride = std::uint32_t(channels);
    for (auto _ : state) {
        for (std::uint32_t start = 0; start < samples::kFrame; start += kBlock) {
            const std::uint32_t frames = std::min(kBlock, std::uint32_t(samples::kFrame) - start);
            AudioBuffer buffer{stride, frames * stride * std::uint32_t(sizeof(float)),
                               sound.data() + start * stride};
            assembler.process(AudioBufferList(&buffer, 1), 1.0,
                              [&](std::span<const float> frame, std::uint64_t soFar) {
                                  pool->publish(frame, soFar);
                              });
        }
        benchmark::DoNotOptimize(pool->take());
    }
    if (pool->dropped() != 0) state.SkipWithError("frames were dropped");
}

BENCHMARK_CAPTURE(assemble, mono, 1, false)->Name("FrameAssembler/mono");
BENCHMARK_CAPTURE(assemble, duplicated, 2, true)->Name("FrameAssembler/duplicated_stereo");
BENCHMARK_CAPTURE(assemble, stereo, 2, false)->Name("FrameAssembler/stereo");

} // namespace
} // namespace veltrano
