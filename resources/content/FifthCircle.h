// SPDX-License-Identifier: GPL-3.0-or-later
// Twelve notes from the definitions that sources give: tempered fifths, ratios, string lengths.
#pragma once

#include <array>

namespace veltrano::content {

using NotesAboveC = std::array<double, 12>; ///< [cents] of C, C# ... B above C; the first is 0

/// [cents] by which twelve pure fifths pass seven octaves: about 23.46.
double pythagoreanComma();
/// [cents] by which four pure fifths pass two octaves and a pure third: about 21.51.
double syntonicComma();
/// [cents] the difference of both: about 1.95.
double schisma();

/// How one fifth is tuned: pure, narrower (negative: wider), or sharing what is left to close the
/// circle with the others that do.
struct Fifth {
    double narrowCents = 0;
    bool takesRest = false;
};
inline constexpr Fifth kPure{};
inline constexpr Fifth kRest{0, true};

/// A part of a comma off a fifth; a negative numerator widens it.
Fifth pythagorean(int numerator, int denominator);
Fifth syntonic(int numerator, int denominator);

/// Twelve fifths from C on: C-G, G-D, D-A, A-E, E-B, B-F#, F#-C#, C#-G#, G#-Eb, Eb-Bb, Bb-F, F-C.
/// They must close; kRest sees to it.
using FifthCircle = std::array<Fifth, 12>;
NotesAboveC notesOf(const FifthCircle& circle);

/// Eleven equal fifths from Eb to G#; G#-Eb, the wolf, takes the rest.
NotesAboveC meantone(const Fifth& fifth);
/// The same with fifths of that many parts of an octave of @p parts equal ones.
NotesAboveC meantoneOfParts(int fifth, int parts);

struct Fraction {
    int numerator;
    int denominator;
};
/// Ratios to C.
NotesAboveC notesOf(const std::array<Fraction, 12>& ratios);
/// Sounding lengths of one string, from C on.
NotesAboveC notesOfStringLengths(const std::array<int, 12>& lengths);

} // namespace veltrano::content
