// SPDX-License-Identifier: GPL-3.0-or-later
// Stretch tables computed from the inharmonicity of a piano's strings.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace veltrano::content {

/// The inharmonicity of a scale of strings by key: the n-th partial of a string lies at
/// n * f * sqrt(1 + B n^2). B(key) is the sum of two straight lines in logarithmic scale; wound
/// bass strings follow the falling one, plain strings the rising one, and the break lies where they
/// cross. docs/stretch-model.md tells the whole.
struct Inharmonicity {
    double bassAtA0;   ///< B of the falling line at A0
    double bassFall;   ///< [1 / key] of its natural logarithm
    double trebleAtA4; ///< B of the rising line at A4
    double trebleRise; ///< [1 / key] of its natural logarithm

    double at(double key) const; ///< @param key 57 is A4; parts of keys and keys beyond are allowed
};

/// [cents] by which an octave is wider than 2:1, measured between the first partials, when partial
/// 2 * @p partial of the lower note meets @p partial of the upper one (1: 2:1, 2: 4:2, 3: 6:3).
/// @param lower, upper B of both
double octaveStretchCents(int partial, double lower, double upper);

/// [cents] the octave around key @p centre (half of it on either side), as a tuner would blend
/// octave types there: 6:3 in the bass, 4:2 in the middle, 2:1 in the treble.
double blendedOctaveCents(const Inharmonicity& strings, double centre);

/// [cents] by key number C0 ... B8, 0 at A4.
std::array<double, 108> stretchTable(const Inharmonicity& strings);

struct PianoSize {
    std::string name; ///< unique in any case of letters; the file is named so too
    std::string description;
    Inharmonicity strings;
};

/// From the largest to the smallest.
std::vector<PianoSize> pianoSizes();

} // namespace veltrano::content
