// SPDX-License-Identifier: GPL-3.0-or-later
// The keys in the drawing of the partials.
#include "analysis/PartialKeyboard.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace veltrano {
namespace {

namespace keyboard = partial_keyboard;
using keyboard::KeyType;

TEST(PartialKeyboard, KeysLieWhereTheDrawingHasThem) {
    constexpr double kOctaveOfC4[] = {352.5, 360.5, 367.5, 375.5, 382.5, 397.5,
                                      405.5, 412.5, 420.5, 427.5, 435.5, 442.5};
    for (int note = 0; note < 12; ++note) {
        SCOPED_TRACE(note);
        EXPECT_EQ(keyboard::centreOf(4, note), kOctaveOfC4[note]);
        EXPECT_EQ(keyboard::centreOf(48 + note), kOctaveOfC4[note]);
        EXPECT_EQ(keyboard::centreOf(5, note), kOctaveOfC4[note] + 105);
    }
    EXPECT_EQ(keyboard::centreOf(keyboard::kLowestKey), 7.5);
    EXPECT_EQ(keyboard::centreOf(keyboard::kHighestKey), 772.5);
}

TEST(PartialKeyboard, TheCentreLineIsAShareOfTheHeight) {
    EXPECT_EQ(keyboard::centreLine(keyboard::kHeight), 139.5);
    EXPECT_EQ(keyboard::centreLine(414), 278.5);
}

TEST(PartialKeyboard, ShapesFollowTheNeighbours) {
    struct {
        const char* name;
        int key;
        KeyType type;
    } const cases[] = {
        {"A0 has nothing on its left", 9, KeyType::whiteBlackRight},
        {"below A0", 2, KeyType::whiteBlackRight},
        {"Bb0", 10, KeyType::black},
        {"B0", 11, KeyType::whiteBlackLeft},
        {"C1", 12, KeyType::whiteBlackRight},
        {"C4", 48, KeyType::whiteBlackRight},
        {"C#4", 49, KeyType::black},
        {"D4", 50, KeyType::whiteBlackBoth},
        {"Eb4", 51, KeyType::black},
        {"E4", 52, KeyType::whiteBlackLeft},
        {"F4", 53, KeyType::whiteBlackRight},
        {"F#4", 54, KeyType::black},
        {"G4", 55, KeyType::whiteBlackBoth},
        {"G#4", 56, KeyType::black},
        {"A4", 57, KeyType::whiteBlackBoth},
        {"Bb4", 58, KeyType::black},
        {"B4", 59, KeyType::whiteBlackLeft},
        {"A1 has one again", 21, KeyType::whiteBlackBoth},
        {"B7", 95, KeyType::whiteBlackLeft},
        {"C8 stands alone", 96, KeyType::whiteAlone},
        {"above C8", 97, KeyType::whiteAlone},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(keyboard::keyType(c.key), c.type);
    }
}

TEST(PartialKeyboard, OutlinesLeaveRoomForTheBlackKeys) {
    constexpr double l = -6.5;
    struct {
        KeyType type;
        std::vector<std::pair<double, double>> corners;
    } const cases[] = {
        {KeyType::black, {{-4, 33}, {4, 33}, {4, 88}, {-4, 88}}},
        {KeyType::whiteBlackRight,
         {{l, 1}, {l, 88}, {l + 10, 88}, {l + 10, 32.5}, {l + 14, 32.5}, {l + 14, 1}}},
        {KeyType::whiteBlackLeft,
         {{l, 1}, {l, 32.5}, {l + 4, 32.5}, {l + 4, 88}, {l + 14, 88}, {l + 14, 1}}},
        {KeyType::whiteBlackBoth,
         {{l, 1},
          {l, 32.5},
          {l + 4, 32.5},
          {l + 4, 88},
          {l + 10, 88},
          {l + 10, 32.5},
          {l + 14, 32.5},
          {l + 14, 1}}},
        {KeyType::whiteAlone, {{l, 1}, {l + 14, 1}, {l + 14, 88}, {l, 88}}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<int>(c.type));
        std::vector<std::pair<double, double>> corners;
        for (const keyboard::Corner& corner : keyboard::outlineOf(c.type))
            corners.emplace_back(corner.x, corner.y);
        EXPECT_EQ(corners, c.corners);
    }
}

} // namespace
} // namespace veltrano
