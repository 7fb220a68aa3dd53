// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/content/FifthCircle.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace veltrano::content {

namespace {

constexpr std::size_t kWolf = 8; ///< G#-Eb in the circle

double centsOf(double ratio) { return 1200 * std::log2(ratio); }

double pureFifth() { return centsOf(3.0 / 2); }

/// [cents] that each fifth of kRest is narrowed by.
double shareOfRest(const FifthCircle& circle) {
    double rest = pythagoreanComma();
    for (const Fifth& fifth : circle)
        rest -= fifth.narrowCents;
    const auto sharing = std::ranges::count(circle, true, &Fifth::takesRest);
    return sharing == 0 ? 0 : rest / static_cast<double>(sharing);
}

} // namespace

double pythagoreanComma() { return 12 * pureFifth() - 7 * 1200.0; }
double syntonicComma() { return centsOf(81.0 / 80); }
double schisma() { return pythagoreanComma() - syntonicComma(); }

Fifth pythagorean(int numerator, int denominator) {
    return {pythagoreanComma() * numerator / denominator};
}

Fifth syntonic(int numerator, int denominator) {
    return {syntonicComma() * numerator / denominator};
}

NotesAboveC notesOf(const FifthCircle& circle) {
    const double share = shareOfRest(circle);
    NotesAboveC notes{};
    double above = 0;
    for (std::size_t step = 0; step + 1 < circle.size(); ++step) {
        const Fifth& fifth = circle[step];
        above += pureFifth() - (fifth.takesRest ? share : fifth.narrowCents);
        notes[(step + 1) * 7 % 12] = std::fmod(above, 1200.0);
    }
    return notes;
}

NotesAboveC meantone(const Fifth& fifth) {
    FifthCircle circle;
    circle.fill(fifth);
    circle[kWolf] = kRest;
    return notesOf(circle);
}

NotesAboveC meantoneOfParts(int fifth, int parts) {
    return meantone({pureFifth() - 1200.0 * fifth / parts});
}

NotesAboveC notesOf(const std::array<Fraction, 12>& ratios) {
    NotesAboveC notes{};
    std::ranges::transform(ratios, notes.begin(), [](const Fraction& ratio) {
        return centsOf(static_cast<double>(ratio.numerator) / ratio.denominator);
    });
    return notes;
}

NotesAboveC notesOfStringLengths(const std::array<int, 12>& lengths) {
    NotesAboveC notes{};
    std::ranges::transform(lengths, notes.begin(), [&lengths](int length) {
        return centsOf(static_cast<double>(lengths.front()) / length);
    });
    return notes;
}

} // namespace veltrano::content
