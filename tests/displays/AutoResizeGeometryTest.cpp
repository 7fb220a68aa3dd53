// SPDX-License-Identifier: GPL-3.0-or-later
// Frames that follow the size of what holds them.
#include "displays/AutoResizeGeometry.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(AutoResizeGeometry, Factors) {
    const struct {
        const char* name;
        Extent original, present;
        AxisFactors expected;
    } kCases[] = {
        {"unchanged", {600, 340}, {600, 340}, {1, 1}},
        {"doubled", {600, 340}, {1200, 680}, {2, 2}},
        {"axes apart", {600, 340}, {900, 170}, {1.5f, 0.5f}},
        {"narrowed to single precision", {3, 3}, {1, 2}, {1.0f / 3.0f, 2.0f / 3.0f}},
        {"to nothing", {600, 340}, {0, 0}, {0, 0}},
        {"never in a superview", {0, 0}, {600, 340}, {1, 1}},
        {"one axis empty", {600, 0}, {1200, 340}, {2, 1}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(autoResizeFactors(c.original, c.present), c.expected);
    }
}

TEST(AutoResizeGeometry, WholePointFrame) {
    const struct {
        const char* name;
        YUpRect original;
        AxisFactors factors;
        YUpRect expected;
    } kCases[] = {
        {"superview doubled", {10.4, 5.2, 20.3, 8.9}, {2, 2}, {20, 10, 40, 17}},
        {"factor 1 rounds down too", {10.4, 5.2, 20.3, 8.9}, {1, 1}, {10, 5, 20, 8}},
        {"below zero goes down", {-10.4, -0.1, 5, 5}, {1, 1}, {-11, -1, 5, 5}},
        // 12 x 1.6666666 is 19.9999995 in double, and 20 once it is a single
        {"rounded down in single precision",
         {12, 12, 12, 12},
         {1000.0f / 600, 1000.0f / 600},
         {20, 20, 20, 20}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(wholePointFrame(c.original, c.factors), c.expected);
    }
}

TEST(AutoResizeGeometry, ScaledFrameIsNotRounded) {
    EXPECT_EQ(scaledFrame({10.4, 5.2, 20.3, 8.9}, {2, 2}), (YUpRect{20.8, 10.4, 40.6, 17.8}));
    const double third = static_cast<double>(1.0f / 3.0f);
    EXPECT_EQ(scaledFrame({1, 2, 3, 4}, {1.0f / 3.0f, 1}), (YUpRect{third, 2, 3 * third, 4}));
}

} // namespace
} // namespace veltrano
