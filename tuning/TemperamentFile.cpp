// SPDX-License-Identifier: GPL-3.0-or-later
// The file format of temperaments.
#include "tuning/TemperamentFile.h"

#include "platform/foundation/LenientNumber.h"
#include "tuning/PitchClass.h"
#include "tuning/Temperament.h"

#include <algorithm>
#include <cmath>

namespace veltrano::temperament_file {

namespace {

constexpr std::size_t kA = 9;           ///< pitch class of the reference
constexpr double kCommentPitch = 440.0; ///< kept: whatever reference pitch is in use
constexpr double kTenSemitones = 1.781797436;

std::string noteLine(int note, double cents) {
    const std::string_view name = temperament::noteName(note);
    const double ratio = std::pow(2.0, ((note - 9) * 100 + cents) / 1200.0);
    std::string line = "\"";
    line.append(name).append(name.size() < 2 ? "\" =\"" : "\"=\"");
    line += fixedDecimals(cents, 9) + "\";\t// " + fixedDecimals(ratio, 9) + " : ";
    return line + fixedDecimals(ratio * kCommentPitch, 6) + "\n";
}

/// Whether the values are ratios or frequencies instead of cents.
bool areProportional(const CentTable& values) {
    if (!std::ranges::all_of(values, temperament::isInRange)) return true;
    const double lowest = std::min(2.0, *std::ranges::min_element(values));
    const double highest = std::max(1.0, *std::ranges::max_element(values));
    return lowest != 0 && std::ranges::is_sorted(values) && lowest == values.front() &&
           highest == values.back() && highest / lowest <= 2.0 && highest / lowest > kTenSemitones;
}

bool isRead(std::string_view key) {
    return key == "Name" || key == "Description" || temperament::isNoteName(key);
}

CentTable centsOfProportional(const CentTable& values) {
    CentTable cents;
    for (int note = 0; note < kPitchClasses; ++note) {
        const auto i = static_cast<std::size_t>(note);
        cents[i] = 1200 * std::log2((values[i] / values[kA]) / std::pow(2.0, (note - 9) / 12.0));
    }
    return cents;
}

} // namespace

std::string commentString(std::string_view text) {
    std::string comment(text);
    std::ranges::replace(comment, '\n', ' ');
    std::ranges::replace(comment, '\r', ' ');
    return comment;
}

std::string data(const CentTable& cents, std::string_view name, std::string_view description) {
    std::string text = "// " + commentString(name) + " Temperament\n\n\"Name\"=\"";
    text += propertyString(name) + "\";\n\"Description\"=\"" + propertyString(description);
    text += "\";\n\n// key: C, A4: 440Hz\n// \"note\" = \"cent\";\t// ratio : hertz\n";
    for (int note = 0; note < kPitchClasses; ++note)
        text += noteLine(note, cents[static_cast<std::size_t>(note)] - cents[kA]);
    return text;
}

CentTable getCents(const StringsDictionary& pairs) {
    CentTable values{};
    for (int note = 0; note < kPitchClasses; ++note) {
        const auto found = pairs.find(temperament::noteName(note));
        if (found != pairs.end())
            values[static_cast<std::size_t>(note)] = lenientDouble(found->second);
    }
    return areProportional(values) ? centsOfProportional(values) : values;
}

std::optional<TemperamentEntry> readData(std::string_view bytes, Log& log) {
    const StringsFile file = parseStringsFile(bytes, isRead);
    if (!file.pairs) {
        log.line(kInvalid);
        log.detail("The first error is in line " + std::to_string(file.errorLine) + ".");
        return std::nullopt;
    }
    TemperamentEntry entry{valueOf(*file.pairs, "Name"),
                           valueOf(*file.pairs, "Description"),
                           getCents(*file.pairs),
                           {}};
    if (!temperament::normalizeCents(entry.temperament, 0, log)) return std::nullopt;
    return entry;
}

} // namespace veltrano::temperament_file
