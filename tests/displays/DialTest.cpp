// SPDX-License-Identifier: GPL-3.0-or-later
// Where the needle stands.
#include "displays/Dial.h"

#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

using dial::Needle;

TEST(Dial, NeedlePose) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const struct {
        const char* name;
        float cents;
        long threshold;
        dial::Pose expected;
    } kCases[] = {
        {"in the middle", 0, 3, {Needle::inTune, 202}},
        {"2.9 cents are below 3", 2.9f, 3, {Needle::inTune, 2.9f * 4.0f + 202.0f}},
        {"exactly 3.0 cents are not in tune on the meter", 3.0f, 3, {Needle::normal, 214}},
        {"-2.9 cents", -2.9f, 3, {Needle::inTune, -2.9f * 4.0f + 202.0f}},
        {"-3.0 cents", -3.0f, 3, {Needle::normal, 190}},
        {"threshold 0 is never in tune", 0, 0, {Needle::normal, 202}},
        {"just below the end stop", 48.9f, 3, {Needle::normal, 48.9f * 4.0f + 202.0f}},
        {"at the end stop", 49.0f, 3, {Needle::endStop, 398}},
        {"49.9 is drawn at 49", 49.9f, 3, {Needle::endStop, 398}},
        {"60 cents", 60, 3, {Needle::endStop, 398}},
        {"-60 cents", -60, 3, {Needle::endStop, 6}},
        {"a wide threshold goes before the end stop", 49.5f, 50, {Needle::inTune, 400}},
        {"beyond every integer", 3e38f, 3, {Needle::endStop, 398}},
        {"infinitely flat", -kInfinity, 3, {Needle::endStop, 6}},
        {"infinite, greatest threshold",
         kInfinity,
         std::numeric_limits<long>::max(),
         {Needle::endStop, 398}},
        {"not a number", std::numeric_limits<float>::quiet_NaN(), 3, {Needle::endStop, 6}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        const dial::Pose pose = dial::needlePose(c.cents, c.threshold);
        EXPECT_EQ(pose.needle, c.expected.needle);
        EXPECT_EQ(pose.centreX, c.expected.centreX);
    }
    EXPECT_FLOAT_EQ(dial::needlePose(2.9f, 3).centreX, 213.6f);
}

TEST(Dial, NeedleRect) {
    const Extent needle{10, 90};
    const Extent face{404, 100};
    const struct {
        const char* name;
        float centreX;
        Extent dial, bounds;
        YUpRect expected;
    } kCases[] = {
        {"natural size", 202, face, face, {197, 3, 10, 90}},
        {"twice the size doubles everything", 202, face, {808, 200}, {394, 6, 20, 180}},
        {"axes apart", 6, face, {808, 50}, {2, 1.5, 20, 45}},
        {"no dial, no needle", 202, {0, 0}, {808, 200}, {0, 0, 0, 0}},
        {"no bounds", 202, face, {0, 0}, {0, 0, 0, 0}},
        // 500 / 404 in single precision, used as such
        {"factor in single precision",
         202,
         face,
         {500, 100},
         {197.0 * static_cast<double>(static_cast<float>(500.0 / 404.0)), 3,
          10.0 * static_cast<double>(static_cast<float>(500.0 / 404.0)), 90}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(dial::needleRect(c.centreX, needle, c.dial, c.bounds), c.expected);
    }
}

} // namespace
} // namespace veltrano
