// SPDX-License-Identifier: GPL-3.0-or-later
// Prints how near the partials found in synthetic piano notes come to those of the strings.
#include "tests/support/PartialAccuracy.h"
#include "tuning/Temperament.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace veltrano {
namespace {

constexpr int kLowestKey = 9, kHighestKey = 96; // A0 ... C8
constexpr std::size_t kSamples = 4 * 4096;
constexpr double kStrikeSeconds = 0.1; ///< left out of a struck note

struct Sum {
    double worstBins = 0;
    int found = 0, folded = 0, hidden = 0, astray = 0, missing = 0;

    void add(const PartialAccuracy& key) {
        worstBins = std::max(worstBins, key.worstBins());
        found += key.found;
        folded += key.folded;
        astray += key.astray;
        hidden += key.hidden;
        missing += key.missing;
    }
    void print(const char* name) const {
        std::printf("%s: %d partials, the farthest %.4f bins away; %d folded and %d hidden by "
                    "folded ones, %d astray, %d missing\n",
                    name, found, worstBins, folded, hidden, astray, missing);
    }
};

void printKey(const PartialAccuracy& key) {
    std::printf("  %-7s %3d %3d %9.4f %8.4f", key.isThinnedOut ? "quarter" : "full", key.found,
                key.folded + key.hidden, key.worstHz, key.worstBins());
}

void printTable(double sampleRate) {
    std::printf("%.0f Hz. Left: partials of amplitude 1/n. Right: a struck note.\n", sampleRate);
    std::printf(
        "found: within half a bin of a string's partial; out: left out, being a folded partial or\n"
        "hidden by one\n"
        "key     path  found out worst Hz    bins   path  found out worst Hz    bins\n");
    Sum falling, struck;
    for (int key = kLowestKey; key <= kHighestKey; ++key) {
        PianoNote note;
        note.key = key;
        note.sampleRate = sampleRate;
        note.seconds = kStrikeSeconds + kSamples / sampleRate;
        const PartialAccuracy ofFalling =
            partialAccuracy(note, evenlyFallingPartials(note, kSamples), true);
        const PartialAccuracy ofStruck = partialAccuracy(note, note.render(), false);
        const std::string name =
            std::string(temperament::noteName(key % 12)) + std::to_string(key / 12);
        std::printf("%-4s", name.c_str());
        printKey(ofFalling);
        printKey(ofStruck);
        std::printf("\n");
        falling.add(ofFalling);
        struck.add(ofStruck);
    }
    falling.print("1/n");
    struck.print("struck");
}

} // namespace
} // namespace veltrano

int main() {
    for (const double rate : {44100.0, 48000.0})
        veltrano::printTable(rate);
}
