// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/RecordingTunerDisplay.h"

#include <charconv>
#include <utility>

namespace veltrano {

namespace {

constexpr std::array<std::string_view, kTunerTexts> kTextNames{
    "inputDevice",   "frequency",  "note",        "level",         "referencePitch",
    "accidental",    "octave",     "cent",        "frequencyDiff", "idealFrequency",
    "stretchOffset", "tuningName", "stretchName",
};

constexpr std::array<std::string_view, kTunerLights> kLightNames{
    "level0", "level1", "level2", "level3", "level4", "level5",
    "level6", "level7", "flat",   "inTune", "sharp",
};

constexpr std::array<std::string_view, 9> kImageNames{
    "gray16x16",  "green16x16", "yellow16x16", "red16x16", "gray28x28",
    "green28x28", "blue28x28",  "gray24x24",   "red24x24",
};

template <class Number>
std::string number(Number value) {
    std::array<char, 64> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    return std::string(text.data(), result.ptr);
}

std::string yesOrNo(bool value) { return value ? "yes" : "no"; }

std::string joined(std::string_view operation, std::string_view argument) {
    return std::string(operation) + ' ' + std::string(argument);
}

std::string lengthOf(const FrameRef& frame) {
    return frame ? number(frame->samples.size()) : std::string("none");
}

} // namespace

std::string_view nameOf(TunerText field) { return kTextNames[std::size_t(field)]; }
std::string_view nameOf(TunerLight light) { return kLightNames[std::size_t(light)]; }
std::string_view nameOf(LightImage image) { return kImageNames[std::size_t(image)]; }

void RecordingTunerDisplay::setText(TunerText field, std::string_view text) {
    texts[std::size_t(field)] = text;
    calls.push_back(joined(joined("text", nameOf(field)), text));
}

void RecordingTunerDisplay::setTip(TunerText field, std::string_view tip) {
    tips[std::size_t(field)] = tip;
    calls.push_back(joined(joined("tip", nameOf(field)), tip));
}

void RecordingTunerDisplay::setHidden(TunerText field, bool isHidden) {
    hidden[std::size_t(field)] = isHidden;
    calls.push_back(joined(joined("hidden", nameOf(field)), yesOrNo(isHidden)));
}

void RecordingTunerDisplay::setLight(TunerLight light, LightImage image) {
    lights[std::size_t(light)] = image;
    calls.push_back(joined(joined("light", nameOf(light)), nameOf(image)));
}

void RecordingTunerDisplay::setMeterCent(float cents) {
    meterCent = cents;
    calls.push_back(joined("meterCent", number(cents)));
}

void RecordingTunerDisplay::setMeterThreshold(long cents) {
    meterThreshold = cents;
    calls.push_back(joined("meterThreshold", number(cents)));
}

void RecordingTunerDisplay::setMeterEnabled(bool enabled) {
    meterEnabled = enabled;
    calls.push_back(joined("meterEnabled", yesOrNo(enabled)));
}

void RecordingTunerDisplay::setStrobeSampleRate(float hz) {
    strobeSampleRate = hz;
    calls.push_back(joined("strobeSampleRate", number(hz)));
}

void RecordingTunerDisplay::setStrobeFrequency(float hz) {
    strobeFrequency = hz;
    calls.push_back(joined("strobeFrequency", number(hz)));
}

void RecordingTunerDisplay::setStrobePeak(float amplitude) {
    strobePeak = amplitude;
    calls.push_back(joined("strobePeak", number(amplitude)));
}

void RecordingTunerDisplay::setStrobeData(FrameRef frame) {
    calls.push_back(joined("strobeData", lengthOf(frame)));
    strobeData = std::move(frame);
}

void RecordingTunerDisplay::setScopePeak(float amplitude) {
    scopePeak = amplitude;
    calls.push_back(joined("scopePeak", number(amplitude)));
}

void RecordingTunerDisplay::setScopeData(FrameRef frame) {
    calls.push_back(joined("scopeData", lengthOf(frame)));
    scopeData = std::move(frame);
}

void RecordingTunerDisplay::setPianoNote(int key) {
    pianoNote = key;
    calls.push_back(joined("pianoNote", number(key)));
}

std::vector<std::string> RecordingTunerDisplay::takeCalls() { return std::exchange(calls, {}); }

std::vector<std::string> RecordingTunerDisplay::callsOf(std::string_view operation) const {
    std::vector<std::string> found;
    const std::string start = std::string(operation) + ' ';
    for (const std::string& call : calls) {
        if (call.starts_with(start)) found.push_back(call);
    }
    return found;
}

} // namespace veltrano
