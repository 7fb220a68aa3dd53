// SPDX-License-Identifier: GPL-3.0-or-later
// Blocks of every layout become mono frames of two periods of C0.
#include "engine/FrameAssembler.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace veltrano {
namespace {

constexpr float kRate = 44100.0f;
constexpr std::uint32_t kFrame = 5393;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// One buffer of a block with its samples.
struct Buffer {
    std::uint32_t channels = 1;
    std::vector<float> samples;
    int extraBytes = 0; ///< bytes beyond the samples that the buffer claims, may be negative
};

struct Collected {
    std::vector<std::vector<float>> frames;
    std::vector<std::uint64_t> samplesSoFar;
};

void feed(FrameAssembler& assembler, std::vector<Buffer> block, Collected& collected,
          double sampleTime = 1.0) {
    std::vector<AudioBuffer> list;
    for (Buffer& buffer : block) {
        const auto bytes = static_cast<std::int64_t>(buffer.samples.size() * 4) + buffer.extraBytes;
        list.push_back({buffer.channels, static_cast<std::uint32_t>(bytes), buffer.samples.data()});
    }
    assembler.process(list, sampleTime, [&](std::span<const float> frame, std::uint64_t count) {
        collected.frames.emplace_back(frame.begin(), frame.end());
        collected.samplesSoFar.push_back(count);
    });
}

/// The first samples that a block adds to a frame, seen by filling the frame up with zeros.
std::vector<float> mixed(std::vector<Buffer> block, std::size_t count) {
    FrameAssembler assembler;
    assembler.invalidate(kRate);
    Collected collected;
    feed(assembler, std::move(block), collected);
    feed(assembler, {{1, std::vector<float>(kFrame, 0.25f)}}, collected);
    std::vector<float> start = collected.frames.at(0);
    EXPECT_EQ(start.at(count), 0.25f) << "the block added another number of samples";
    start.resize(count);
    return start;
}

TEST(FrameAssembler, SpansTwoPeriodsOfTheLowestKeyAtEveryRate) {
    struct {
        float rate;
        std::uint32_t frames;
    } const cases[] = {{44100, 5393},
                       {48000, 5870},
                       {96000, 11741},
                       {8000, 978},
                       {32229, 3942},
                       {8.1f, 0},
                       {384000.f, 46967},
                       {768000, 0},
                       {-1.0f, 0},
                       {kNaN, 0},
                       {std::numeric_limits<float>::infinity(), 0}};
    for (const auto& c : cases)
        EXPECT_EQ(FrameAssembler::bufferFramesAt(c.rate), c.frames) << c.rate;
    EXPECT_EQ(FrameAssembler::kMaxBufferFrames, FrameAssembler::bufferFramesAt(384000.0f));
}

TEST(FrameAssembler, MonoPassesUnchangedThenClipped) {
    const std::vector<float> in{0.5f, -0.25f, 1.7f, -3.0f, 1.0f, -1.0f, 1e-30f};
    const std::vector<float> out{0.5f, -0.25f, 1.0f, -1.0f, 1.0f, -1.0f, 1e-30f};
    EXPECT_EQ(mixed({{1, in}}, in.size()), out);
}

TEST(FrameAssembler, NanPassesTheClip) { EXPECT_TRUE(std::isnan(mixed({{1, {kNaN}}}, 1)[0])); }

TEST(FrameAssembler, MixesEveryLayout) {
    struct {
        const char* name;
        std::vector<Buffer> block;
        std::vector<float> expected;
    } const cases[] = {
        {"identical stereo keeps its level", {{2, {0.5f, 0.5f, -0.75f, -0.75f}}}, {0.5f, -0.75f}},
        {"one differing pair anywhere: the whole block is summed without the half",
         {{2, {0.25f, 0.25f, 0.25f, 0.5f, 0.125f, 0.125f}}},
         {0.5f, 0.75f, 0.25f}},
        {"NaN in both channels counts as different",
         {{2, {0.25f, 0.25f, kNaN, kNaN}}},
         {0.5f, kNaN}},
        {"two identical mono buffers are summed without scaling and clip",
         {{1, {0.25f, 0.75f}}, {1, {0.25f, 0.75f}}},
         {0.5f, 1.0f}},
        {"two identical stereo buffers are not duplicated mono",
         {{2, {0.125f, 0.125f}}, {2, {0.125f, 0.125f}}},
         {0.5f}},
        {"three interleaved channels are summed", {{3, {0.125f, 0.25f, 0.5f}}}, {0.875f}},
        {"a third buffer of another length ends the list",
         {{1, {0.125f, 0.125f}}, {1, {0.125f, 0.125f}}, {1, {0.5f}}, {1, {0.5f, 0.5f}}},
         {0.25f, 0.25f}},
        {"channel counts differ, length per channel agrees",
         {{1, {0.125f, 0.25f}}, {2, {0.125f, 0.25f, 0.25f, 0.25f}}},
         {0.5f, 0.75f}},
        {"a later buffer without channels adds nothing",
         {{1, {0.125f}}, {0, {0.5f}}, {1, {0.25f}}},
         {0.375f}},
        {"a stray byte at the end is ignored", {{1, {0.5f, 0.25f, 0.125f}, -1}}, {0.5f, 0.25f}},
        {"a sample that lacks its second channel is ignored",
         {{2, {0.5f, 0.25f, 0.125f}}},
         {0.75f}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const std::vector<float> actual = mixed(c.block, c.expected.size());
        for (std::size_t i = 0; i < actual.size(); ++i) {
            if (std::isnan(c.expected[i])) {
                EXPECT_TRUE(std::isnan(actual[i]));
            } else {
                EXPECT_EQ(actual[i], c.expected[i]) << i;
            }
        }
    }
}

TEST(FrameAssembler, SkipsWhatHoldsNoSound) {
    struct {
        const char* name;
        std::vector<Buffer> block;
        double sampleTime;
    } const cases[] = {
        {"sample time 0.0", {{1, {0.5f}}}, 0.0},
        {"sample time below 0", {{1, {0.5f}}}, -1.0},
        {"sample time not a number", {{1, {0.5f}}}, double(kNaN)},
        {"a buffer too small for one sample of every channel", {{2, {0.5f}}}, 1.0},
        {"an empty buffer", {{1, {}}}, 1.0},
        {"a first buffer without channels", {{0, {0.5f}}}, 1.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        FrameAssembler assembler;
        assembler.invalidate(kRate);
        Collected collected;
        feed(assembler, c.block, collected, c.sampleTime);
        EXPECT_EQ(assembler.bufferFrames(), kFrame) << "the re-size comes before the skip";
        feed(assembler, {{1, std::vector<float>(kFrame, 0.25f)}}, collected);
        ASSERT_EQ(collected.frames.size(), 1u);
        EXPECT_EQ(collected.frames[0][0], 0.25f);
    }
}

TEST(FrameAssembler, NoBuffersDoNotEvenResize) {
    FrameAssembler assembler;
    assembler.invalidate(kRate);
    Collected collected;
    feed(assembler, {}, collected);
    EXPECT_EQ(assembler.bufferFrames(), 0u);
}

TEST(FrameAssembler, FramesFollowEachOtherWithoutGapOrOverlap) {
    FrameAssembler assembler;
    assembler.invalidate(kRate);
    Collected collected;
    float next = 0;
    for (const std::size_t size : {1u, 5392u, 4000u, 3u, 16000u, 777u}) {
        std::vector<float> ramp(size);
        for (float& x : ramp)
            x = (next += 1.0f) * 1e-5f;
        feed(assembler, {{1, ramp}}, collected);
    }
    ASSERT_EQ(collected.frames.size(), 4u); // one block completed several, others none
    float expected = 0;
    for (std::size_t i = 0; i < collected.frames.size(); ++i) {
        ASSERT_EQ(collected.frames[i].size(), kFrame);
        for (const float x : collected.frames[i])
            ASSERT_EQ(x, (expected += 1.0f) * 1e-5f);
        EXPECT_EQ(collected.samplesSoFar[i], (i + 1) * kFrame);
    }
}

TEST(FrameAssembler, RateChangeStartsANewFrameAndDropsThePartialOne) {
    FrameAssembler assembler;
    assembler.invalidate(kRate);
    Collected collected;
    feed(assembler, {{1, std::vector<float>(kFrame - 1, 0.5f)}}, collected);
    assembler.invalidate(8000.0f);
    feed(assembler, {{1, std::vector<float>(978, 0.25f)}}, collected);
    ASSERT_EQ(collected.frames.size(), 1u);
    EXPECT_EQ(collected.frames[0], std::vector<float>(978, 0.25f));
    EXPECT_EQ(collected.samplesSoFar[0], 978u);
}

TEST(FrameAssembler, ARateWithoutAFrameTakesNothing) {
    FrameAssembler assembler;
    assembler.invalidate(0.0f);
    Collected collected;
    feed(assembler, {{1, std::vector<float>(100000, 0.5f)}}, collected);
    EXPECT_TRUE(collected.frames.empty());
    assembler.invalidate(kRate);
    feed(assembler, {{1, std::vector<float>(kFrame, 0.5f)}}, collected);
    EXPECT_EQ(collected.frames.size(), 1u);
}

} // namespace
} // namespace veltrano
