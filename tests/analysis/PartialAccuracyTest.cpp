// SPDX-License-Identifier: GPL-3.0-or-later
// The partials of synthetic piano notes lie where their strings have them.
#include "tests/support/PartialAccuracy.h"

#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr int kLowestKey = 9, kHighestKey = 96; // A0 ... C8
constexpr std::size_t kSamples = 4 * 4096;
constexpr double kRatesHz[] = {44100, 48000};

PianoNote noteOf(int key, double sampleRate) {
    PianoNote note;
    note.key = key;
    note.sampleRate = sampleRate;
    note.seconds = 0.1 + kSamples / sampleRate; // the strike is not heard
    return note;
}

/// @param measure what is made of a note
template <class Measure>
void forEveryKey(Measure measure) {
    for (const double rate : kRatesHz) {
        for (int key = kLowestKey; key <= kHighestKey; ++key) {
            SCOPED_TRACE(testing::Message() << "key " << key << " at " << rate << " Hz");
            measure(noteOf(key, rate));
        }
    }
}

TEST(PartialAccuracy, TheLowKeysAreThinnedOut) {
    const auto isThinnedOut = [](int key) {
        const PianoNote note = noteOf(key, 44100);
        return partialAccuracy(note, evenlyFallingPartials(note, kSamples), true).isThinnedOut;
    };
    EXPECT_TRUE(isThinnedOut(9));
    EXPECT_TRUE(isThinnedOut(53));  // F4, 349 Hz: bin 32
    EXPECT_FALSE(isThinnedOut(54)); // F#4
    EXPECT_FALSE(isThinnedOut(96));
}

TEST(PartialAccuracy, PartialsThatFallAsOneToNLieWithinHalfABin) {
    int leftOut = 0, found = 0;
    forEveryKey([&](const PianoNote& note) {
        const PartialAccuracy key =
            partialAccuracy(note, evenlyFallingPartials(note, kSamples), true);
        EXPECT_GE(key.found, 1);
        EXPECT_EQ(key.astray, 0);
        EXPECT_EQ(key.missing, 0);
        EXPECT_LE(key.worstBins(), 0.5);
        EXPECT_TRUE(key.isThinnedOut || key.folded + key.hidden == 0);
        found += key.found;
        leftOut += key.folded + key.hidden;
    });
    // What is left out is what nothing filters away before the samples are thinned out.
    EXPECT_GT(found, 1500);
    EXPECT_LT(leftOut, found / 25);
}

TEST(PartialAccuracy, WithNothingToFoldTheyLieWithinAHundredthOfABin) {
    forEveryKey([](const PianoNote& note) {
        const auto sound = evenlyFallingPartials(note, kSamples, note.sampleRate / 8);
        const PartialAccuracy key = partialAccuracy(note, sound, true);
        EXPECT_GE(key.found, 1);
        EXPECT_EQ(key.astray, 0);
        EXPECT_EQ(key.folded, 0);
        EXPECT_EQ(key.hidden, 0);
        EXPECT_EQ(key.missing, 0);
        EXPECT_LT(key.worstBins(), 0.01);
    });
}

TEST(PartialAccuracy, ThoseOfAStruckNoteDoToo) {
    forEveryKey([](const PianoNote& note) {
        const PartialAccuracy key = partialAccuracy(note, note.render(), false);
        EXPECT_GE(key.found, 1);
        EXPECT_EQ(key.astray, 0);
        EXPECT_EQ(key.folded, 0);
        EXPECT_LT(key.worstBins(), 0.01);
    });
}

} // namespace
} // namespace veltrano
