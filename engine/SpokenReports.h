// SPDX-License-Identifier: GPL-3.0-or-later
// The sentences that say what the tuner window shows.
#pragma once

#include <string>

namespace veltrano {

/// The sentences are made from the texts on the window, so they say what is shown.
/// Thread: any. Texts are UTF-8.
namespace spoken_reports {

/// What the fields show.
struct Shown {
    std::string note{}, accidental{}, octave{}, cent{}, frequency{};
    int inTuneThreshold = 3; ///< [cents]
};

/// What the details add.
struct Details {
    float referencePitchHz = 440.0f;
    std::string tuningName, stretchName, inputDevice, level;
    int tonic = -1; ///< 0 (C) ... 11 when a temperament is selected, -1 otherwise
};

/// "ay flat", with the octave where @p withOctave is set and an octave is shown.
std::string noteName(const Shown& shown, bool withOctave);
/// "ay flat, in tune" or "ay flat, +12.3 cent".
std::string tuneSpeech(const Shown& shown, bool withOctave);
/// "440.000 hertz".
std::string hertzSpeech(const Shown& shown);
/// Tune and hertz.
std::string status(const Shown& shown);
std::string details(const Shown& shown, const Details& details);

} // namespace spoken_reports

} // namespace veltrano
