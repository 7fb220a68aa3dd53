// SPDX-License-Identifier: GPL-3.0-or-later
// The places of the keys of a keyboard that fills its view.
#include "analysis/PianoKeys.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using piano_keys::Bounds;
using piano_keys::Key;
using piano_keys::Keyboard;
using piano_keys::kWhiteKeys;

constexpr Bounds kBounds{0, 0, 520, 100}; // white keys are 10 wide

std::vector<std::size_t> markedOf(const Keyboard& keyboard) {
    std::vector<std::size_t> marked;
    for (std::size_t i = 0; i < keyboard.keys.size(); ++i) {
        if (keyboard.keys[i].isMarked) marked.push_back(i);
    }
    return marked;
}

void expectPlace(const Bounds& place, const Bounds& expected) {
    EXPECT_NEAR(place.x, expected.x, 1e-9);
    EXPECT_NEAR(place.y, expected.y, 1e-9);
    EXPECT_NEAR(place.width, expected.width, 1e-9);
    EXPECT_NEAR(place.height, expected.height, 1e-9);
}

TEST(WhiteKeyIndex, ABlackKeyHasThatOfTheWhiteKeyToItsLeft) {
    constexpr std::array kOctave{0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};
    for (int note = 0; note < 12; ++note) {
        SCOPED_TRACE(note);
        EXPECT_EQ(piano_keys::whiteKeyIndex(48 + note), 23 + kOctave[std::size_t(note)]);
    }
    EXPECT_EQ(piano_keys::whiteKeyIndex(9), 0);   // A0
    EXPECT_EQ(piano_keys::whiteKeyIndex(10), 0);  // Bb0
    EXPECT_EQ(piano_keys::whiteKeyIndex(57), 28); // A4
    EXPECT_EQ(piano_keys::whiteKeyIndex(96), 51); // C8
    EXPECT_EQ(piano_keys::whiteKeyIndex(97), 51); // C#8
    EXPECT_EQ(piano_keys::whiteKeyIndex(0), -5);
    EXPECT_EQ(piano_keys::whiteKeyIndex(100), 53);
}

TEST(PianoKeys, FiftyTwoWhiteKeysFillTheBounds) {
    const Keyboard keyboard = piano_keys::keyboard(-1, {30, 7, 104, 50});
    ASSERT_EQ(keyboard.keys.size(), 88u);
    for (std::size_t i = 0; i < kWhiteKeys; ++i) {
        SCOPED_TRACE(i);
        EXPECT_TRUE(keyboard.keys[i].isWhite);
        expectPlace(keyboard.keys[i].place, {30 + 2.0 * double(i), 7, 2, 50});
    }
}

TEST(PianoKeys, EveryOtherOctaveIsAlternating) {
    const Keyboard keyboard = piano_keys::keyboard(-1, kBounds);
    for (std::size_t i = 0; i < kWhiteKeys; ++i) {
        SCOPED_TRACE(i);
        const bool isOdd = (i >= 2 && i < 9) || (i >= 16 && i < 23) || (i >= 30 && i < 37) ||
                           (i >= 44 && i < 51); // from C1, C3, C5 and C7
        EXPECT_EQ(keyboard.keys[i].isAlternating, isOdd);
    }
}

TEST(PianoKeys, BlackKeysLieBetweenAllButEFAndBC) {
    const Keyboard keyboard = piano_keys::keyboard(-1, {30, 7, 520, 100});
    std::vector<int> gaps;
    for (std::size_t i = kWhiteKeys; i < keyboard.keys.size(); ++i) {
        const Key& key = keyboard.keys[i];
        const double gap = (key.place.x - 7) / 10; // from 0, whatever the bounds' origin
        gaps.push_back(static_cast<int>(gap + 0.5));
        EXPECT_FALSE(key.isWhite);
        EXPECT_FALSE(key.isAlternating);
        expectPlace(key.place, {7 + 10.0 * gaps.back(), 37, 6, 62});
    }
    std::vector<int> expected{0};
    for (int octave = 0; octave < 7; ++octave) {
        for (const int white : {0, 1, 3, 4, 5})
            expected.push_back(2 + 7 * octave + white);
    }
    EXPECT_EQ(gaps, expected);
}

TEST(PianoKeys, MarksAKeyAndNamesIt) {
    struct {
        const char* name;
        int key;
        std::size_t marked; ///< place in the order of drawing
        const char* label;
        double x, y;
    } const cases[] = {
        {"key 9 is the leftmost white key", 9, 0, "A0", 5, 15},
        {"key 96 is the rightmost white key", 96, 51, "C8", 515, 15},
        {"key 10 is the first black key", 10, 52, "Bb0", 10, 37 - 0.15 * 62},
        {"the last black key", 94, 87, "Bb7", 500, 37 - 0.15 * 62},
        {"key 57 is white key 28", 57, 28, "A4", 285, 15},
        {"beside it", 58, 52 + 20, "Bb4", 290, 37 - 0.15 * 62},
        {"the second black key", 13, 53, "C#1", 30, 37 - 0.15 * 62},
        {"C", 48, 23, "C4", 235, 15},
        {"C#", 49, 52 + 16, "C#4", 240, 37 - 0.15 * 62},
        {"D", 50, 24, "D4", 245, 15},
        {"Eb", 51, 52 + 17, "Eb4", 250, 37 - 0.15 * 62},
        {"E", 52, 25, "E4", 255, 15},
        {"F", 53, 26, "F4", 265, 15},
        {"F#", 54, 52 + 18, "F#4", 270, 37 - 0.15 * 62},
        {"G", 55, 27, "G4", 275, 15},
        {"G#", 56, 52 + 19, "G#4", 280, 37 - 0.15 * 62},
        {"B", 59, 29, "B4", 295, 15},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Keyboard keyboard = piano_keys::keyboard(c.key, kBounds);
        EXPECT_EQ(markedOf(keyboard), std::vector{c.marked});
        ASSERT_TRUE(keyboard.label);
        EXPECT_EQ(keyboard.label->text, c.label);
        EXPECT_NEAR(keyboard.label->x, c.x, 1e-9);
        EXPECT_NEAR(keyboard.label->y, c.y, 1e-9);
        EXPECT_EQ(keyboard.label->isOnWhite, c.marked < kWhiteKeys);
        EXPECT_NEAR(keyboard.label->fontSize, 6, 1e-9);
    }
}

TEST(PianoKeys, TheFirstBlackKeyIsDrawnFromSevenTenthsOfAWhiteKey) {
    const Keyboard keyboard = piano_keys::keyboard(10, {0, 0, 780, 96});
    expectPlace(keyboard.keys[52].place, {0.7 * 15, 0.37 * 96, 9, 0.63 * 96 - 1});
}

TEST(PianoKeys, AnyWidthIsDividedInDoublePrecision) {
    const Keyboard keyboard = piano_keys::keyboard(94, {0, 0, 1000, 77.7});
    expectPlace(keyboard.keys[51].place, {51 * 1000 / 52.0, 0, 1000 / 52.0, 77.7});
    expectPlace(keyboard.keys[87].place,
                {49.7 * 1000 / 52, 0.37 * 77.7, 600 / 52.0, 0.63 * 77.7 - 1});
    EXPECT_NEAR(keyboard.label->x, 50.0 * 1000 / 52, 1e-9);
    EXPECT_NEAR(keyboard.label->fontSize, 600 / 52.0, 1e-9);
}

TEST(PianoKeys, ALabelFollowsTheOrigin) {
    const Keyboard white = piano_keys::keyboard(57, {30, 7, 520, 100});
    EXPECT_NEAR(white.label->x, 30 + 285, 1e-9);
    EXPECT_NEAR(white.label->y, 7 + 15, 1e-9);
    const Keyboard black = piano_keys::keyboard(58, {30, 7, 520, 100});
    EXPECT_NEAR(black.label->x, 290, 1e-9); // as the black keys do not
    EXPECT_NEAR(black.label->y, 37 - 0.15 * 62, 1e-9);
}

TEST(PianoKeys, EveryKeyOfThePianoIsMarkedOnceWithItsName) {
    std::vector<bool> seen(88);
    for (int key = 9; key <= 96; ++key) {
        SCOPED_TRACE(key);
        const Keyboard keyboard = piano_keys::keyboard(key, kBounds);
        const std::vector<std::size_t> marked = markedOf(keyboard);
        ASSERT_EQ(marked.size(), 1u);
        EXPECT_FALSE(seen[marked[0]]);
        seen[marked[0]] = true;
        ASSERT_TRUE(keyboard.label);
        EXPECT_EQ(keyboard.label->text.back(), char('0' + key / 12));
    }
}

TEST(PianoKeys, WhatIsNotOnTheKeyboardMarksNothing) {
    for (const int key : {-1, -7, 0, 5, 6, 7, 8, 97, 98, 99, 100, 1000000}) {
        SCOPED_TRACE(key);
        const Keyboard keyboard = piano_keys::keyboard(key, kBounds);
        EXPECT_EQ(keyboard.keys.size(), 88u);
        EXPECT_TRUE(markedOf(keyboard).empty());
        EXPECT_FALSE(keyboard.label);
    }
}

} // namespace
} // namespace veltrano
