// SPDX-License-Identifier: GPL-3.0-or-later
// The model of stretch tables against the partials that it is about.
#include "resources/content/StretchModel.h"

#include <cmath>
#include <gtest/gtest.h>

namespace veltrano::content {
namespace {

/// [Hz] partial @p n of a string with the first partial at @p first.
double partialHz(double first, double inharmonicity, int n) {
    const double stiffness = (1 + inharmonicity * n * n) / (1 + inharmonicity);
    return n * first * std::sqrt(stiffness);
}

TEST(StretchModel, TheOctaveBringsItsPartialsTogether) {
    const struct {
        int partial;
        double lower, upper;
    } cases[] = {{1, 6e-4, 1.8e-3}, {2, 3e-4, 4e-4}, {3, 5e-4, 2e-4}, {1, 9e-3, 2.2e-2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.partial);
        const double low = 220;
        const double high =
            2 * low * std::exp2(octaveStretchCents(c.partial, c.lower, c.upper) / 1200);
        EXPECT_NEAR(partialHz(low, c.lower, 2 * c.partial), partialHz(high, c.upper, c.partial),
                    1e-9);
    }
    EXPECT_EQ(octaveStretchCents(2, 0, 0), 0) << "strings without stiffness need no stretch";
}

TEST(StretchModel, InharmonicityIsLeastAtTheBreak) {
    for (const PianoSize& piano : pianoSizes()) {
        SCOPED_TRACE(piano.name);
        int least = 9;
        for (int key = 9; key <= 96; ++key) {
            if (piano.strings.at(key) < piano.strings.at(least)) least = key;
        }
        EXPECT_GE(least, 18); // F#1
        EXPECT_LE(least, 42); // F#3
        EXPECT_GT(piano.strings.at(9), 5e-5);
        EXPECT_LT(piano.strings.at(9), 1e-3);
        EXPECT_GT(piano.strings.at(96), 1e-2);
        EXPECT_LT(piano.strings.at(96), 4e-2);
    }
}

TEST(StretchModel, OctaveTypesReignInTheirRegisters) {
    const Inharmonicity strings{4e-4, 0.085, 7e-4, 0.09};
    const struct {
        double centre;
        int partial;
    } cases[] = {{15, 3}, {24, 3}, {48, 2}, {54, 2}, {78, 1}, {90, 1}};
    for (const auto& c : cases) {
        EXPECT_DOUBLE_EQ(
            blendedOctaveCents(strings, c.centre),
            octaveStretchCents(c.partial, strings.at(c.centre - 6), strings.at(c.centre + 6)))
            << c.centre;
    }
    const double halfWay = blendedOctaveCents(strings, 36);
    EXPECT_NEAR(halfWay,
                (octaveStretchCents(3, strings.at(30), strings.at(42)) +
                 octaveStretchCents(2, strings.at(30), strings.at(42))) /
                    2,
                1e-12);
}

// The curve's slope is taken at each octave's centre, so its octaves only come near their own
// width.
TEST(StretchModel, OctavesOfTheTableAreNearTheirWidth) {
    for (const PianoSize& piano : pianoSizes()) {
        SCOPED_TRACE(piano.name);
        const std::array<double, 108> cents = stretchTable(piano.strings);
        EXPECT_EQ(cents[57], 0);
        for (std::size_t key = 9; key + 12 <= 96; ++key) {
            const double wanted = blendedOctaveCents(piano.strings, static_cast<double>(key) + 6);
            EXPECT_NEAR(cents[key + 12] - cents[key], wanted, 1.3) << key;
        }
    }
}

} // namespace
} // namespace veltrano::content
