// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a Scala file.
#include "tests/fuzz/Require.h"
#include "tuning/LineData.h"
#include "tuning/ScalaScaleData.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace veltrano::fuzz {
namespace {

constexpr std::array<std::string_view, 3> kReasons{
    "Veltrano only supports 12-note scales.", "Invalid \"ratio\" value in Scala Scale file (.scl).",
    "Invalid \"cent\" value in Scala Scale file (.scl)."};

void checkLines(std::string_view text) {
    LineData lines(text);
    std::size_t taken = 0;
    while (const auto line = lines.nextLine()) {
        require(line->find_first_of("\n\r\x85") == std::string_view::npos,
                "a line has no line end");
        require(text.substr(taken).starts_with(*line), "lines come in order");
        taken += line->size();
        if (taken == text.size()) break;
        taken += text.substr(taken).starts_with("\r\n") ? 2 : 1;
    }
    require(taken == text.size(), "every byte is in a line or ends one");
    require(!lines.nextLine(), "the end stays the end");
}

/// Whether a written scale can be read: a cent line may be neither 0 nor no number.
bool isWritable(const RatioTable& ratios) {
    return std::ranges::all_of(ratios.begin() + 1, ratios.end(), [](double ratio) {
        const double cents = 1200 * std::log2(ratio);
        return ratio > 1e-300 && ratio < 1e300 && std::abs(cents) > 1e-6;
    });
}

void checkWritten(const ScalaScaleData& scale) {
    const std::string description = scale.description().value_or("");
    if (!isWritable(scale.scaleData()) || description.find("\u0085") != std::string::npos) return;
    ScalaScaleData again;
    require(again.parseData(
                ScalaScaleData::scaleDataWithName(description, description, scale.scaleData())),
            "what is written is read");
    require(again.description() == trimmedUtf8(ScalaScaleData::trimString(description)),
            "the description comes back");
    for (std::size_t degree = 1; degree < 12; ++degree) {
        const double error = again.scaleData()[degree] / scale.scaleData()[degree] - 1;
        require(std::abs(error) < 1e-9, "ratios come back to six decimals of a cent");
    }
}

void checkDocument(const ScalaScaleData& scale, int tonic) {
    KeptLog log;
    Temperament document(440, tonic);
    const bool isTaken = document.setScalaRatios(scale.scaleData(), log);
    require(log.lines.size() == (isTaken ? 0 : 1), "a refusal is logged once");
    require(std::ranges::all_of(document.cents(), [](double c) { return c >= -50 && c <= 50; }),
            "cents are in range");
    require(!isTaken || document.cents()[std::size_t(temperament::rowOfA(tonic))] == 0,
            "A is the reference");
}

void checkTrimmed(std::string_view text) {
    std::string cleaned = ScalaScaleData::trimString(text);
    std::string_view rest = cleaned;
    int characters = 0;
    for (; const auto character = firstUtf8(rest); ++characters) {
        require(character->code >= 32, "control characters are gone");
        rest.remove_prefix(character->length);
    }
    require(rest.empty() && characters <= 80, "at most 80 characters");
}

} // namespace
} // namespace veltrano::fuzz

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    using namespace veltrano;
    const std::string_view text = fuzz::textOf(data, size);
    fuzz::checkLines(text);
    fuzz::checkTrimmed(text);
    ScalaScaleData scale;
    if (scale.parseData(text)) {
        fuzz::require(!scale.errorMessage(), "what is taken has no error");
        fuzz::require(scale.scaleData()[0] == 1, "the tonic is 1");
        fuzz::checkWritten(scale);
        for (int tonic = 0; tonic < 12; ++tonic)
            fuzz::checkDocument(scale, tonic);
    } else if (scale.errorMessage()) {
        fuzz::require(std::ranges::find(fuzz::kReasons, *scale.errorMessage()) !=
                          fuzz::kReasons.end(),
                      "the reason is one of three");
    }
    return 0;
}
