// SPDX-License-Identifier: GPL-3.0-or-later
// The size of a window of fixed proportions.
#include "displays/ProposedSize.h"

#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

constexpr Extent kMinimum{600, 340};
constexpr ResizeKeys kNone{};
constexpr ResizeKeys kAlt{.alt = true};
constexpr ResizeKeys kShift{.shift = true};
constexpr ResizeKeys kBoth{.alt = true, .shift = true};

TEST(ProposedSize, Rule) {
    const double third = static_cast<double>(static_cast<float>(800.0 / 600.0));
    const struct {
        const char* name;
        Extent proposed;
        ResizeKeys keys;
        Extent expected;
    } kCases[] = {
        {"the minimum itself", {600, 340}, kNone, {600, 340}},
        {"the width decides", {900, 2000}, kNone, {900, 510}},
        {"the height decides", {2000, 510}, kNone, {900, 510}},
        {"the ratio is in single precision", {800, 2000}, kNone, {600 * third, 340 * third}},
        {"Shift keeps the proposal", {1234, 345}, kShift, {1234, 345}},
        {"Shift below the minimum", {10, 20}, kShift, {10, 20}},
        {"Alt: 1.7 snaps to 1", {1020, 578}, kAlt, {600, 340}},
        {"Alt: 2.9 snaps to 2", {1740, 986}, kAlt, {1200, 680}},
        {"Alt: a whole multiple stays", {1800, 1020}, kAlt, {1800, 1020}},
        {"Alt goes before Shift", {1020, 578}, kBoth, {600, 340}},
        {"below the minimum the rule holds", {300, 340}, kNone, {300, 170}},
        {"Alt below the minimum does not vanish", {300, 340}, kAlt, {600, 340}},
        {"nothing", {0, 0}, kNone, {0, 0}},
        {"Alt with nothing", {0, 0}, kAlt, {600, 340}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(proposedSize(kMinimum, c.proposed, c.keys), c.expected);
    }
}

TEST(ProposedSize, WithoutAMinimumTheProposalIsAccepted) {
    for (const Extent minimum : {Extent{0, 340}, Extent{600, 0}, Extent{0, 0}, Extent{-1, -1}}) {
        for (const ResizeKeys keys : {kNone, kAlt, kShift}) {
            EXPECT_EQ(proposedSize(minimum, {700, 350}, keys), (Extent{700, 350}));
        }
    }
}

} // namespace
} // namespace veltrano
