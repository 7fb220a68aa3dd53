// SPDX-License-Identifier: GPL-3.0-or-later
// Scala scale files of twelve notes.
#include "tuning/ScalaScaleData.h"

#include "platform/foundation/LenientNumber.h"
#include "platform/foundation/Utf8.h"
#include "tuning/LineData.h"

#include <cmath>

namespace veltrano {

namespace {

constexpr std::size_t kLongestText = 80; ///< characters of a written name or description

constexpr std::string_view kOnlyTwelve = "Veltrano only supports 12-note scales.";
constexpr std::string_view kInvalidRatio = "Invalid \"ratio\" value in Scala Scale file (.scl).";
constexpr std::string_view kInvalidCent = "Invalid \"cent\" value in Scala Scale file (.scl).";

// Lines that are no comments, counted from 0.
constexpr int kDescriptionLine = 0;
constexpr int kCountLine = 1;
constexpr int kLastPitchLine = 12;

/// The ratio of a pitch line; nullopt and the reason in @p error.
std::optional<double> ratioOf(const std::string& line, std::optional<std::string>& error) {
    const std::size_t slash = line.find('/');
    if (slash == std::string::npos) {
        const double cents = lenientDouble(line); // kept: whole numbers are cents, too
        if (cents != 0) return std::pow(2.0, cents / 1200.0);
        error = kInvalidCent;
        return std::nullopt;
    }
    const double numerator = lenientWhole(std::string_view(line).substr(0, slash));
    const double denominator = lenientWhole(std::string_view(line).substr(slash + 1));
    if (numerator != 0 && denominator != 0) return numerator / denominator;
    error = kInvalidRatio;
    return std::nullopt;
}

} // namespace

ScalaScaleData::ScalaScaleData() {
    for (std::size_t degree = 0; degree < mRatio.size(); ++degree)
        mRatio[degree] = std::pow(2.0, static_cast<double>(degree) / 12.0);
}

bool ScalaScaleData::parseData(std::string_view bytes) {
    LineData lines = LineData::lineDataWithData(bytes);
    int count = 0;
    while (const auto latin1 = lines.nextLine()) {
        if (latin1->empty()) return false;
        if (latin1->front() == '!') continue;
        // The lines after the pitches are ignored, however many there are.
        if (count > kLastPitchLine) continue;
        if (!takeLine(count, utf8OfLatin1(*latin1))) return false;
        ++count;
    }
    return true;
}

bool ScalaScaleData::takeLine(int number, const std::string& line) {
    if (number == kDescriptionLine) {
        mDescription = std::string(trimmedUtf8(line));
        return true;
    }
    if (number == kCountLine) {
        if (lenientInt(line) == 12) return true;
        mErrorMessage = kOnlyTwelve;
        return false;
    }
    const std::optional<double> ratio = ratioOf(line, mErrorMessage);
    if (ratio) mRatio[static_cast<std::size_t>(number - 1)] = *ratio;
    return ratio.has_value();
}

std::string ScalaScaleData::trimString(std::string_view utf8) {
    std::string cleaned;
    std::string_view rest = trimmedUtf8(utf8);
    for (std::size_t count = 0; count < kLongestText && !rest.empty(); ++count) {
        const Utf8Character character = firstUtf8(rest).value_or(Utf8Character{U'?', 1});
        appendUtf8(cleaned, character.code < 32 ? U' ' : character.code);
        rest.remove_prefix(character.length);
    }
    return cleaned;
}

std::string ScalaScaleData::scaleDataWithName(std::string_view name, std::string_view description,
                                              const RatioTable& ratios) {
    std::string text = "! " + trimString(name) + "\n!\n " + trimString(description) + "\n 12\n!\n";
    for (std::size_t row = 1; row < ratios.size(); ++row)
        text += fixedDecimals(1200 * std::log2(ratios[row]), 6) + "\n";
    return latin1OfUtf8(text + "2/1\n");
}

} // namespace veltrano
