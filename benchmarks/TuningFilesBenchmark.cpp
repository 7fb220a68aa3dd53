// SPDX-License-Identifier: GPL-3.0-or-later
// Time and memory of reading files of temperaments, stretch tables and Scala scales, however large.
#include "platform/desktop/TextFile.h"
#include "platform/foundation/StringsFile.h"
#include "tests/support/RecordingLog.h"
#include "tuning/ScalaScaleData.h"
#include "tuning/StretchFile.h"
#include "tuning/TemperamentFile.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <string>

namespace veltrano {
namespace {

constexpr std::int64_t kLeastBytes = std::int64_t{1} << 20;
constexpr auto kMostBytes = static_cast<std::int64_t>(kMaxTextFileBytes);

/// @p start, then what @p piece gives for 0, 1, 2 ... , then @p end: @p bytes or a little less.
std::string filled(std::size_t bytes, const std::string& start,
                   const std::function<std::string(std::size_t)>& piece,
                   const std::string& end = {}) {
    std::string text = start;
    for (std::size_t i = 0;; ++i) {
        const std::string next = piece(i);
        if (text.size() + next.size() + end.size() > bytes) return text + end;
        text += next;
    }
}

std::string pair(const std::string& key) { return '"' + key + "\"=\"1.5\";\n"; }

std::string otherKeys(std::size_t bytes) {
    return filled(bytes, {}, [](std::size_t i) { return pair("key " + std::to_string(i)); });
}
std::string keysAgain(std::size_t bytes) {
    return filled(bytes, {}, [](std::size_t i) {
        return pair(std::string(1, static_cast<char>('A' + i % 7)) + "4");
    });
}
std::string longDescription(std::size_t bytes) {
    return filled(
        bytes, "\"Description\"=\"", [](std::size_t) { return std::string("a\\n\u00E9"); }, "\";");
}
std::string comments(std::size_t bytes) {
    return filled(bytes, {}, [](std::size_t) { return std::string("/**/ // \n"); });
}
/// What opens and never ends must not be tried again from every place.
std::string openEnds(std::size_t bytes) {
    return filled(bytes, "\"C\"=\"", [](std::size_t) { return std::string("/*\\\""); });
}
std::string scalaComments(std::size_t bytes) {
    return filled(bytes, {}, [](std::size_t) { return std::string("! \r\n"); });
}
std::string scalaDescription(std::size_t bytes) {
    return filled(bytes, {}, [](std::size_t) { return std::string("\xE9 "); });
}
std::string scalaLongRatio(std::size_t bytes) {
    const std::string digits(bytes / 2 - 8, '3');
    return "a\n12\n" + digits + "/" + digits + "\n";
}
std::string scalaManyLines(std::size_t bytes) {
    return filled(bytes, "a\n12\n", [](std::size_t i) { return std::to_string(i + 1) + ".\n"; });
}

/// [bytes] of this process in memory. @param name "VmRSS" now, "VmHWM" the most
double memoryOf(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name + ":")) return std::atof(line.c_str() + name.size() + 1) * 1024;
    }
    return 0;
}

void forgetMostMemory() { std::ofstream("/proc/self/clear_refs") << 5; }

using MakeText = std::string (*)(std::size_t bytes);
using ReadText = void (*)(const std::string& text);

void read(benchmark::State& state, MakeText make, ReadText readText) {
    const std::string text = make(static_cast<std::size_t>(state.range(0)));
    ::malloc_trim(0);
    forgetMostMemory();
    const double before = memoryOf("VmRSS");
    readText(text);
    state.counters["memory_per_byte"] =
        (memoryOf("VmHWM") - before) / static_cast<double>(text.size());
    for (auto _ : state)
        readText(text);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void readPairs(const std::string& text) { benchmark::DoNotOptimize(parseStringsFile(text)); }
void readTemperament(const std::string& text) {
    RecordingLog log;
    benchmark::DoNotOptimize(temperament_file::readData(text, log));
}
void readStretch(const std::string& text) {
    RecordingLog log;
    benchmark::DoNotOptimize(stretch_file::readData(text, log));
}
void readScala(const std::string& text) {
    ScalaScaleData scale;
    benchmark::DoNotOptimize(scale.parseData(text));
}

void add(const std::string& name, MakeText make, ReadText readText) {
    benchmark::RegisterBenchmark(
        name.c_str(), [make, readText](benchmark::State& state) { read(state, make, readText); })
        ->RangeMultiplier(4)
        ->Range(kLeastBytes, kMostBytes)
        ->Unit(benchmark::kMillisecond);
}

/// At the start of the program, as BENCHMARK does.
const bool kAreAdded = [] {
    add("ReadPairs/same_keys", keysAgain, readPairs);
    add("ReadTemperament/other_keys", otherKeys, readTemperament);
    add("ReadTemperament/description", longDescription, readTemperament);
    add("ReadTemperament/comments", comments, readTemperament);
    add("ReadTemperament/no_end", openEnds, readTemperament);
    add("ReadStretch/other_keys", otherKeys, readStretch);
    add("ReadStretch/same_keys", keysAgain, readStretch);
    add("ReadScala/comments", scalaComments, readScala);
    add("ReadScala/description", scalaDescription, readScala);
    add("ReadScala/ratio", scalaLongRatio, readScala);
    add("ReadScala/lines", scalaManyLines, readScala);
    return true;
}();

} // namespace
} // namespace veltrano
