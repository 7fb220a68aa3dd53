// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ReadingTable.h"

#include "engine/FrequencyGate.h"
#include "platform/foundation/LenientNumber.h"

#include <algorithm>
#include <utility>

namespace veltrano {

namespace {

constexpr double kSilenceSeconds = 1.0; ///< without an estimate, until a note has ended

/// Columns as people see them: a continuation byte of UTF-8 takes no place.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::string right(const std::string& text, std::size_t width) {
    const std::size_t taken = widthOf(text);
    return std::string(taken < width ? width - taken : 0, ' ') + text;
}

std::string left(const std::string& text, std::size_t width) {
    const std::size_t taken = widthOf(text);
    return text + std::string(taken < width ? width - taken : 0, ' ');
}

std::string noteOf(const TunerDisplay& display) {
    std::string note = display.text(TunerText::note);
    const std::string accidental = display.text(TunerText::accidental);
    if (accidental != " ") note += accidental;
    return note + display.text(TunerText::octave);
}

std::string columnsOf(const TunerDisplay& display) {
    return right(display.text(TunerText::cent), 8) + right(display.text(TunerText::frequency), 12) +
           right(display.text(TunerText::idealFrequency), 12) +
           right(display.text(TunerText::frequencyDiff), 10) +
           right(display.text(TunerText::level), 8);
}

} // namespace

ReadingTable::ReadingTable(std::function<void(const std::string&)> write)
    : mWrite(std::move(write)) {}

void ReadingTable::add(const ReadingRecord& record, const TunerDisplay& display) {
    if (record.seconds > mLast + kSilenceSeconds) finish();
    if (!record.shown || !frequency_gate::isAccepted(record.rawFrequency)) return;
    if (const std::string note = noteOf(display); note != mNote) {
        finish();
        mNote = note;
        mStart = record.seconds;
    }
    mLast = record.seconds;
    mReadings.push_back({record.deviation, columnsOf(display)});
}

void ReadingTable::finish() {
    if (mReadings.empty()) return;
    if (!std::exchange(mHasHeading, true)) {
        mWrite(right("from s", 9) + "  " + left("note", 6) + right("cents", 8) + right("Hz", 12) +
               right("target Hz", 12) + right("off Hz", 10) + right("level", 8) +
               right("frames", 8));
    }
    const auto middle = mReadings.begin() + static_cast<std::ptrdiff_t>(mReadings.size() / 2);
    std::nth_element(mReadings.begin(), middle, mReadings.end(),
                     [](const Reading& a, const Reading& b) { return a.deviation < b.deviation; });
    mWrite(right(fixedDecimals(mStart, 2), 9) + "  " + left(mNote, 6) + middle->columns +
           right(std::to_string(mReadings.size()), 8));
    mReadings.clear();
    mNote.clear();
}

} // namespace veltrano
