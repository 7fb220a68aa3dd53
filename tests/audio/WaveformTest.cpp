// SPDX-License-Identifier: GPL-3.0-or-later
// The four waveforms, point by point and against the exact means of the plain waves.
#include "audio/Waveform.h"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <random>

namespace veltrano {
namespace {

struct Point {
    const char* name;
    double phase, increment;
    double triangle, sawtooth, square;
};

// Worked out in rational numbers; all phases and increments are exact in binary.
constexpr Point kPoints[] = {
    {"the beginning", 0, 0.125, 0, 0.125, 1},
    {"up to the jump: the plain means", 0.375, 0.125, 0.5, 0.875, 1},
    {"the jump in the middle of a sample", 0.4375, 0.125, 0.25, 0, 0},
    {"the jump at a quarter of a sample", 0.46875, 0.125, 0.125, -0.4375, -0.5},
    {"from the jump on", 0.5, 0.125, 0, -0.875, -1},
    {"the top of the triangle", 0.25, 0.125, 1, 0.625, 1},
    {"the bottom of the triangle", 0.75, 0.125, -1, -0.375, -1},
    {"up to the wrap", 0.875, 0.125, -0.5, -0.125, -1},
    {"the wrap in the middle of a sample", 0.9375, 0.125, -0.25, 0, 0},
    {"the wrap at a quarter of a sample", 0.96875, 0.125, -0.125, 0.0625, 0.5},
    {"standing still, high", 0, 0, 0, 0, 1},
    {"standing still, low", 0.75, 0, -1, -0.5, -1},
    {"standing still at the jump", 0.5, 0, 0, -1, -1},
    {"half a cycle per sample, from the rise", 0.25, 0.5, 1, 0, 0},
    {"half a cycle per sample, from the fall", 0.75, 0.5, -1, 0, 0},
    {"both edges in a sample, high to high", 0.25, 0.75, 1, -0.08333333333333333, 1},
    {"the high half skipped", 0.875, 0.75, -0.5, -1.5, 0.3333333333333333},
    {"a whole cycle per sample", 0.25, 1, 1, 0.5, 1},
    {"more than a cycle per sample", 0.125, 1.25, 0.5, 0.5, 1},
    {"later: the beginning", 5, 0.125, 0, 0.125, 1},
    {"later: the jump", 5.4375, 0.125, 0.25, 0, 0},
    {"later: the wrap", 5.9375, 0.125, -0.25, 0, 0},
};

TEST(WaveformTest, PointByPoint) {
    for (const Point& point : kPoints) {
        SCOPED_TRACE(point.name);
        const double p = point.phase, d = point.increment;
        EXPECT_EQ(waveform::sine(p, d), std::sin(2 * std::numbers::pi * p));
        EXPECT_EQ(waveform::triangle(p, d), point.triangle);
        EXPECT_DOUBLE_EQ(waveform::sawtooth(p, d), point.sawtooth);
        EXPECT_DOUBLE_EQ(waveform::square(p, d), point.square);
    }
}

/// Up to any phase, of the wave without band limit.
double sawtoothArea(double phase) {
    const double f = phase - std::floor(phase);
    return f < 0.5 ? f * f : (f - 1) * (f - 1); // over whole cycles it is 0
}
double squareArea(double phase) {
    const double f = phase - std::floor(phase);
    return f < 0.5 ? f : 1 - f;
}

TEST(WaveformTest, SawtoothAndSquareAreTheMeansOverTheSampleUpToHalfTheSampleRate) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> phases(0, 1000), increments(1e-4, 0.4999);
    for (int i = 0; i < 100'000; ++i) {
        const double p = phases(random), d = increments(random);
        ASSERT_NEAR(waveform::sawtooth(p, d), (sawtoothArea(p + d) - sawtoothArea(p)) / d, 1e-8);
        ASSERT_NEAR(waveform::square(p, d), (squareArea(p + d) - squareArea(p)) / d, 1e-8);
    }
}

TEST(WaveformTest, StaysWithinFullScaleUpToHalfTheSampleRate) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> phases(0, 10), increments(0, 0.5);
    for (int i = 0; i < 100'000; ++i) {
        const double p = phases(random), d = increments(random);
        for (int index = 0; index < 4; ++index)
            ASSERT_LE(std::abs(waveform::function(index)(p, d)), 1 + 1e-12) << index << ' ' << p;
    }
}

TEST(WaveformTest, OnlyTheSamplesAtTheEdgesOfASquareLieBetween) {
    const double d = double(440.0f / 44100.0f);
    double phase = 0;
    int between = 0, edges = 0;
    for (int i = 0; i < 44100; ++i, phase += d) {
        const bool hasEdge = std::floor(2 * phase) != std::floor(2 * (phase + d));
        const double x = waveform::square(phase, d);
        edges += hasEdge;
        between += std::abs(x) < 1;
        ASSERT_TRUE(hasEdge || std::abs(x) == 1) << i;
    }
    EXPECT_NEAR(edges, 880, 1);
    EXPECT_NEAR(between, edges, 3); // an edge may meet the end of its sample
}

TEST(WaveformTest, KeepsItsShapeForYears) {
    // After 2^32 cycles at 8 kHz, six days; after 2^40, four years.
    for (const double cycles : {1.0, 4294967295.0, 4294967296.0, 8589934592.0, 1099511627776.0}) {
        for (double p = 0; p < 1; p += 1.0 / 1024) {
            constexpr double d = 3.0 / 1024;
            ASSERT_EQ(waveform::triangle(cycles + p, d), waveform::triangle(p, d));
            ASSERT_EQ(waveform::sawtooth(cycles + p, d), waveform::sawtooth(p, d));
            ASSERT_EQ(waveform::square(cycles + p, d), waveform::square(p, d));
            // The product with 2 pi is rounded, to a thousandth of a radian at the most.
            ASSERT_NEAR(waveform::sine(cycles + p, d), waveform::sine(p, d), 1e-3);
        }
    }
}

TEST(WaveformTest, IndicesFollowTheSettingsAndOddOnesAreTheSine) {
    const waveform::Function sine = &waveform::sine;
    EXPECT_EQ(waveform::function(0), sine);
    EXPECT_EQ(waveform::function(1), &waveform::triangle);
    EXPECT_EQ(waveform::function(2), &waveform::sawtooth);
    EXPECT_EQ(waveform::function(3), &waveform::square);
    for (const int odd : {4, -1, 100, INT_MAX, INT_MIN})
        EXPECT_EQ(waveform::function(odd), sine) << odd;
}

} // namespace
} // namespace veltrano
