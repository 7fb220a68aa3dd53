// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-demo-recording OUT.wav: a short recording of a piano that needs a tuner.
#include "tests/support/PianoNote.h"
#include "tests/support/WavFile.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <vector>

namespace {

using namespace veltrano;

constexpr unsigned kRateHz = 44100;
constexpr double kLongStrings = 0.3; ///< a concert grand's are less stiff than most

struct Note {
    int key;
    double cents;
    double seconds;
    double peak;
};

/// A few keys from the tenor to the treble, in tune, flat and sharp.
constexpr Note kNotes[] = {
    {57, 0, 2.6, 0.60},    // A4
    {45, -3.5, 2.6, 0.65}, // A3
    {48, 6, 2.6, 0.55},    // C4
    {40, -9, 2.4, 0.60},   // E3
    {64, 2, 2.2, 0.50},    // E5
    {67, 14, 2.0, 0.50},   // G5
    {51, -22, 2.4, 0.55},  // Eb4
    {36, 4, 2.4, 0.60},    // C3
};

void appendNote(std::vector<float>& recording, const Note& note, std::uint64_t seed) {
    PianoNote piano;
    piano.key = note.key;
    piano.centsOff = note.cents;
    piano.inharmonicity = kLongStrings * piano.stiffness();
    piano.sampleRate = kRateHz;
    piano.seconds = note.seconds;
    piano.releaseSeconds = 0.15;
    piano.peak = note.peak;
    piano.seed = seed;
    const std::vector<float> samples = piano.render();
    recording.insert(recording.end(), samples.begin(), samples.end());
    recording.resize(recording.size() + kRateHz / 8); // the hand moves on
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2 || std::string_view(argv[1]).starts_with('-')) {
        std::fputs("usage: veltrano-demo-recording OUT.wav\n", stderr);
        return 2;
    }
    std::vector<float> recording(kRateHz / 4);
    std::uint64_t seed = 0;
    for (const Note& note : kNotes)
        appendNote(recording, note, ++seed);
    if (!writeWav(argv[1], recording, kRateHz)) {
        std::fprintf(stderr, "%s cannot be written.\n", argv[1]);
        return 1;
    }
    return 0;
}
