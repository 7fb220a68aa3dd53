// SPDX-License-Identifier: GPL-3.0-or-later
// Where the keys lie in the drawing of the partials.
#include "analysis/PartialKeyboard.h"

#include <array>

namespace veltrano::partial_keyboard {

namespace {

constexpr std::array<double, 12> kOffsets{7, 15, 22, 30, 37, 52, 60, 67, 75, 82, 90, 97};

constexpr double kLeft = -6.5; ///< of a white key, from its middle
constexpr double kFoot = 1;
constexpr double kNotch = 32.5; ///< where the black keys end
constexpr double kTop = 88;

constexpr Corner kBlack[] = {{-4, 33}, {4, 33}, {4, 88}, {-4, 88}};
constexpr Corner kBlackRight[] = {{kLeft, kFoot},       {kLeft, kTop},        {kLeft + 10, kTop},
                                  {kLeft + 10, kNotch}, {kLeft + 14, kNotch}, {kLeft + 14, kFoot}};
constexpr Corner kBlackLeft[] = {{kLeft, kFoot},    {kLeft, kNotch},    {kLeft + 4, kNotch},
                                 {kLeft + 4, kTop}, {kLeft + 14, kTop}, {kLeft + 14, kFoot}};
constexpr Corner kBlackBoth[] = {{kLeft, kFoot},       {kLeft, kNotch},    {kLeft + 4, kNotch},
                                 {kLeft + 4, kTop},    {kLeft + 10, kTop}, {kLeft + 10, kNotch},
                                 {kLeft + 14, kNotch}, {kLeft + 14, kFoot}};
constexpr Corner kAlone[] = {
    {kLeft, kFoot}, {kLeft + 14, kFoot}, {kLeft + 14, kTop}, {kLeft, kTop}};

constexpr std::array<KeyType, 12> kTypes{
    KeyType::whiteBlackRight, KeyType::black,          KeyType::whiteBlackBoth,
    KeyType::black,           KeyType::whiteBlackLeft, KeyType::whiteBlackRight,
    KeyType::black,           KeyType::whiteBlackBoth, KeyType::black,
    KeyType::whiteBlackBoth,  KeyType::black,          KeyType::whiteBlackLeft};

} // namespace

double centreOf(std::int64_t octave, std::int64_t note) {
    return kOctaveWidth * static_cast<double>(octave) + kOffsets[static_cast<std::size_t>(note)] +
           0.5 - kLeftOut;
}

KeyType keyType(std::int64_t noteNumber) {
    if (noteNumber < 10) return KeyType::whiteBlackRight;
    if (noteNumber > 95) return KeyType::whiteAlone;
    return kTypes[static_cast<std::size_t>(noteNumber % 12)];
}

std::span<const Corner> outlineOf(KeyType type) {
    switch (type) {
    case KeyType::black:
        return kBlack;
    case KeyType::whiteBlackRight:
        return kBlackRight;
    case KeyType::whiteBlackLeft:
        return kBlackLeft;
    case KeyType::whiteBlackBoth:
        return kBlackBoth;
    case KeyType::whiteAlone:
        return kAlone;
    }
    return {};
}

} // namespace veltrano::partial_keyboard
