// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a temperament and as a stretch table.
#include "tests/fuzz/Require.h"
#include "tuning/StretchFile.h"
#include "tuning/Temperament.h"
#include "tuning/TemperamentFile.h"

#include <algorithm>
#include <cmath>

namespace veltrano::fuzz {
namespace {

/// A refusal is logged once: bad syntax with the line as a detail, other reasons without.
void requireLogged(const KeptLog& log, bool isTaken, std::string_view invalid,
                   std::string_view outOfRange) {
    if (isTaken) {
        require(log.lines.empty() && log.details.empty(), "what is taken logs nothing");
        return;
    }
    require(log.lines.size() == 1, "a refusal is one line");
    const bool isInvalid = log.lines.front() == invalid;
    require(isInvalid || log.lines.front() == outOfRange, "a refusal is one of two texts");
    require(log.details.size() == (isInvalid ? 1 : 0), "bad syntax says its line");
}

template <class Table>
bool allInRange(const Table& cents) {
    return std::ranges::all_of(cents, [](double c) { return c >= -50 && c <= 50; });
}

std::string writtenTemperament(const TemperamentEntry& entry) {
    return temperament_file::data(entry.temperament, entry.name.value_or(""),
                                  entry.description.value_or(""));
}

void checkTemperamentTaken(const TemperamentEntry& entry) {
    require(allInRange(entry.temperament), "values are in range");
    require(entry.temperament[9] == 0, "A is the reference");
    for (int tonic = 0; tonic < 12; ++tonic) {
        KeptLog log;
        Temperament document(440, tonic);
        document.setCents(entry.temperament, log);
        require(log.lines.size() <= 1, "a shift out of range is one line");
    }
    if (hasSeparator(entry.name.value_or(""))) return;
    KeptLog log;
    const auto again = temperament_file::readData(writtenTemperament(entry), log);
    require(again && log.lines.empty(), "what is written is read");
    require(again->name == entry.name.value_or("") &&
                again->description == entry.description.value_or(""),
            "texts come back");
    for (std::size_t row = 0; row < 12; ++row) {
        require(std::abs(again->temperament[row] - entry.temperament[row]) <= 0.5000001e-9,
                "cents come back to nine decimals");
    }
    const std::string second = writtenTemperament(*again);
    require(writtenTemperament(*temperament_file::readData(second, log)) == second,
            "a second writing is the first");
}

void checkStretchTaken(const StretchEntry& entry) {
    require(allInRange(entry.stretch), "offsets are in range");
    const std::string name = entry.name.value_or("");
    if (hasSeparator(name) || name.find('\r') != std::string::npos) return;
    KeptLog log;
    const std::string first =
        stretch_file::data(entry.stretch, name, entry.description.value_or(""));
    const auto again = stretch_file::readData(first, log);
    require(again && log.lines.empty(), "what is written is read");
    require(stretch_file::data(again->stretch, *again->name, *again->description) == first,
            "writing, reading and writing gives the same bytes");
}

void checkTyped(std::string_view text) {
    Temperament document(440, 3);
    const Temperament before = document;
    if (!document.setCell(Temperament::Column::hertz, 1, text))
        require(document == before, "a refused text changes nothing");
    require(allInRange(document.cents()), "a typed value is in range");
}

} // namespace
} // namespace veltrano::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace veltrano;
    const std::string_view text = fuzz::textOf(data, size);

    fuzz::KeptLog log;
    const auto temperament = temperament_file::readData(text, log);
    fuzz::requireLogged(log, temperament.has_value(), temperament_file::kInvalid,
                        temperament::kOutOfRange);
    if (temperament) fuzz::checkTemperamentTaken(*temperament);

    fuzz::KeptLog stretchLog;
    StretchTable table{};
    const auto names = stretch_file::readInto(table, text, stretchLog);
    fuzz::requireLogged(stretchLog, names.has_value(), stretch_file::kInvalid,
                        stretch_file::kOutOfRange);
    fuzz::require(fuzz::allInRange(table), "what was taken before a refusal is in range");
    if (names) fuzz::checkStretchTaken({names->name, names->description, table, {}});

    fuzz::checkTyped(text);
    return 0;
}
