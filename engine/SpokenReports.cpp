// SPDX-License-Identifier: GPL-3.0-or-later
// What the tuner says.
#include "engine/SpokenReports.h"

#include "platform/foundation/LenientNumber.h"
#include "tuning/PitchClass.h"

#include <cmath>

namespace veltrano::spoken_reports {

namespace {

/// The first character of UTF-8 @p text; empty when there is none.
std::string firstCharacter(const std::string& text) {
    std::size_t length = text.empty() ? 0 : 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        ++length;
    return text.substr(0, length);
}

std::string accidentalWord(const std::string& accidental) {
    if (accidental == kNoAccidental) return accidental;
    return accidental == kFlatSign ? "flat" : "sharp";
}

/// One decimal, with a sign also for positive values and zero.
std::string signedDecimal(float cents) {
    return (std::signbit(cents) ? "" : "+") + fixedDecimals(double(cents), 1);
}

std::string tonicName(int tonic) {
    const NoteSpelling& spelling = spellingOfKey(tonic);
    std::string name(1, spelling.letter);
    if (spelling.accidental != kNoAccidental) name += spelling.accidental;
    return name;
}

} // namespace

std::string noteName(const Shown& shown, bool withOctave) {
    const std::string letter = firstCharacter(shown.note);
    std::string name = letter == "A" ? "ay" : letter;
    name += " " + accidentalWord(shown.accidental);
    if (withOctave && shown.octave != "-") name += " " + shown.octave;
    return name;
}

std::string tuneSpeech(const Shown& shown, bool withOctave) {
    const float cents = lenientFloat(shown.cent);
    const auto threshold = static_cast<float>(shown.inTuneThreshold);
    const bool inTune = -threshold <= cents && cents <= threshold;
    return noteName(shown, withOctave) + ", " +
           (inTune ? "in tune" : signedDecimal(cents) + " cent");
}

std::string hertzSpeech(const Shown& shown) {
    return fixedDecimals(double(lenientFloat(shown.frequency)), 3) + " hertz";
}

std::string status(const Shown& shown) {
    return tuneSpeech(shown, false) + ", " + hertzSpeech(shown);
}

std::string details(const Shown& shown, const Details& details) {
    std::string text = status(shown) + ". ";
    text += "Reference Pitch: " + fixedDecimals(double(details.referencePitchHz), 3) + " hertz. ";
    text += "Temperament: " + details.tuningName + ". ";
    if (details.tonic >= 0) text += "Key: " + tonicName(details.tonic) + ". ";
    text += "Stretch: " + details.stretchName + ". ";
    text += "Input Device: " + details.inputDevice + ". ";
    text += "Input Peak Level: " + std::to_string(lenientInt(details.level)) + " dB. ";
    return text;
}

} // namespace veltrano::spoken_reports
