// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of a keyboard that fills its view.
#include "analysis/PianoKeys.h"

#include "tuning/PitchClass.h"
#include "tuning/Temperament.h"

#include <array>

namespace veltrano::piano_keys {

namespace {

constexpr std::array<int, 12> kWhiteIndex{0, 0, 1, 1, 2, 3, 3, 4, 4, 5, 5, 6};
constexpr int kWhitePerOctave = 7;
constexpr int kFirstWhite = 5; ///< A0 in its octave

// Shares of a white key's width or of the view's height.
constexpr double kBlackWidth = 0.6;
constexpr double kBlackInset = 0.3;
constexpr double kBlackFoot = 0.37;
constexpr double kLabelRise = 0.15;

std::string nameOf(int key) {
    return std::string(temperament::noteName(key % kPitchClasses)) +
           std::to_string(key / kPitchClasses);
}

struct Mark {
    int index = -1;
    bool isWhite = false;
};

Mark markOf(int key) {
    if (key < 0) return {};
    return {whiteKeyIndex(key), isWhiteKey(key % kPitchClasses)};
}

void addWhiteKeys(Keyboard& keyboard, const Mark& mark, const Bounds& bounds) {
    const double width = bounds.width / kWhiteKeys;
    for (int i = 0; i < kWhiteKeys; ++i) {
        Key key;
        key.place = {bounds.x + i * width, bounds.y, width, bounds.height};
        key.isWhite = true;
        key.isMarked = mark.isWhite && mark.index == i;
        key.isAlternating = ((i + kFirstWhite) / kWhitePerOctave) % 2 == 1;
        keyboard.keys.push_back(key);
        if (!key.isMarked) continue;
        keyboard.label = Label{key.place.x + 0.5 * width,
                               bounds.y + kLabelRise * bounds.height,
                               kBlackWidth * width,
                               true,
                               {}};
    }
}

void addBlackKeys(Keyboard& keyboard, const Mark& mark, const Bounds& bounds) {
    const double white = bounds.width / kWhiteKeys;
    const double width = kBlackWidth * white;
    const double foot = kBlackFoot * bounds.height;
    const double height = bounds.height - foot - 1;
    constexpr int kE = 2, kB = 6; // no black key follows
    for (int gap = 0; gap < kWhiteKeys - 1; ++gap) {
        const int left = (gap + kFirstWhite) % kWhitePerOctave;
        if (left == kE || left == kB) continue;
        Key key;
        // kept: measured from 0, whatever the bounds' origin
        key.place = {white - kBlackInset * white + gap * white, foot, width, height};
        key.isMarked = !mark.isWhite && mark.index == gap;
        keyboard.keys.push_back(key);
        if (!key.isMarked) continue;
        keyboard.label =
            Label{key.place.x + kBlackInset * white, foot - kLabelRise * height, width, false, {}};
    }
}

} // namespace

int whiteKeyIndex(int key) {
    return kWhitePerOctave * (key / kPitchClasses) - kFirstWhite +
           kWhiteIndex[static_cast<std::size_t>(key % kPitchClasses)];
}

Keyboard keyboard(int markedKey, const Bounds& bounds) {
    const Mark mark = markOf(markedKey);
    Keyboard keyboard;
    addWhiteKeys(keyboard, mark, bounds);
    addBlackKeys(keyboard, mark, bounds);
    if (keyboard.label) keyboard.label->text = nameOf(markedKey);
    return keyboard;
}

} // namespace veltrano::piano_keys
