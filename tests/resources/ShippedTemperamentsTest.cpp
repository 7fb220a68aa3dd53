// SPDX-License-Identifier: GPL-3.0-or-later
// Every shipped temperament against its intervals as the literature gives them.
#include "resources/content/ShippedFiles.h"
#include "tests/resources/ShippedFolder.h"
#include "tests/support/RecordingLog.h"
#include "tuning/TemperamentFile.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace veltrano {
namespace {

const double kPureFifth = 1200 * std::log2(3.0 / 2);      // 701.955
const double kPythagorean = 12 * kPureFifth - 8400;       // 23.460
const double kSyntonic = 1200 * std::log2(81.0 / 80);     // 21.506
const double kPureThird = 1200 * std::log2(5.0 / 4);      // 386.314
const double kPureMinorThird = 1200 * std::log2(6.0 / 5); // 315.641
constexpr double kRounding = 2e-9;                        // [cents] two values of nine decimals

struct Read {
    TemperamentEntry entry;
    std::vector<std::string> log;
};

Read read(const std::string& name) {
    static const std::map<std::string, std::string> files = shippedFolder("Temperaments");
    const auto file = files.find(name + ".temperament");
    if (file == files.end()) {
        ADD_FAILURE() << "no such file: " << name;
        return {};
    }
    RecordingLog log;
    const auto entry = temperament_file::readData(file->second, log);
    if (!entry) ADD_FAILURE() << name << " is refused";
    return {entry.value_or(TemperamentEntry{}), log.lines};
}

/// [cents] from pitch class @p low up to @p high, within an octave.
double interval(const CentTable& cents, int low, int high) {
    const auto at = [&cents](int note) { return cents[static_cast<std::size_t>(note)]; };
    return (high - low + 12) % 12 * 100 + at(high) - at(low);
}

/// [cents] by which the fifths C-G, G-D ... F-C are narrow.
std::array<double, 12> narrowFifths(const CentTable& cents) {
    std::array<double, 12> narrow{};
    for (int step = 0; step < 12; ++step) {
        const int low = step * 7 % 12;
        narrow[static_cast<std::size_t>(step)] = kPureFifth - interval(cents, low, (low + 7) % 12);
    }
    return narrow;
}

struct CircleCase {
    const char* name;
    double unit;                 ///< [cents]
    std::array<int, 12> narrow;  ///< units off C-G, G-D, D-A, A-E, E-B, B-F#, F#-C#, C#-G#, G#-Eb,
                                 ///< Eb-Bb, Bb-F, F-C; kElse: the case below says
    std::array<int, 12> printed; ///< cents above C as reference tables print them
};
constexpr int kElse = 99;

TEST(ShippedTemperaments, HaveTheirTemperedFifths) {
    const double p = kPythagorean, s = kSyntonic;
    const CircleCase cases[] = {
        {"Pythagorean",
         p,
         {0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0},
         {0, 114, 204, 294, 408, 498, 612, 702, 816, 906, 996, 1110}},
        {"Pythagorean, Wolf at B",
         p,
         {0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0},
         {0, 90, 204, 294, 408, 498, 588, 702, 792, 906, 996, 1110}},
        {"Ramos de Pareja",
         s,
         {0, 1, 0, 0, 0, 0, 0, kElse, 0, 0, 0, 0},
         {0, 92, 182, 294, 386, 498, 590, 702, 792, 884, 996, 1088}},
        {"Grammateus",
         p / 2,
         {0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0},
         {0, 102, 204, 306, 408, 498, 600, 702, 804, 906, 1008, 1110}},
        {"Third-Comma Meantone",
         s / 3,
         {1, 1, 1, 1, 1, 1, 1, 1, kElse, 1, 1, 1},
         {0, 64, 190, 316, 379, 505, 569, 695, 758, 884, 1010, 1074}},
        {"Two-Sevenths-Comma Meantone",
         s / 7,
         {2, 2, 2, 2, 2, 2, 2, 2, kElse, 2, 2, 2},
         {0, 71, 192, 313, 383, 504, 575, 696, 766, 887, 1008, 1079}},
        {"Quarter-Comma Meantone",
         s / 4,
         {1, 1, 1, 1, 1, 1, 1, 1, kElse, 1, 1, 1},
         {0, 76, 193, 310, 386, 503, 579, 697, 773, 890, 1007, 1083}},
        {"Fifth-Comma Meantone",
         s / 5,
         {1, 1, 1, 1, 1, 1, 1, 1, kElse, 1, 1, 1},
         {0, 84, 195, 307, 391, 502, 586, 698, 781, 893, 1005, 1088}},
        {"Sixth-Comma Meantone",
         s / 6,
         {1, 1, 1, 1, 1, 1, 1, 1, kElse, 1, 1, 1},
         {0, 89, 197, 305, 393, 502, 590, 698, 787, 895, 1003, 1092}},
        {"Silbermann",
         p / 6,
         {1, 1, 1, 1, 1, 1, 1, 1, -5, 1, 1, 1},
         {0, 86, 196, 306, 392, 502, 588, 698, 784, 894, 1004, 1090}},
        {"Smith's Equal Harmony",
         s / 18,
         {5, 5, 5, 5, 5, 5, 5, 5, kElse, 5, 5, 5},
         {0, 72, 192, 312, 384, 504, 576, 696, 768, 888, 1008, 1080}},
        {"Werckmeister III",
         p / 4,
         {1, 1, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0},
         {0, 90, 192, 294, 390, 498, 588, 696, 792, 888, 996, 1092}},
        {"Werckmeister IV",
         p / 3,
         {1, 0, 1, 0, 1, 0, 1, 0, -1, -1, 1, 0},
         {0, 82, 196, 294, 392, 498, 588, 694, 784, 890, 1004, 1086}},
        {"Werckmeister V",
         p / 4,
         {0, 0, 1, 1, 0, 0, 1, 1, -1, 0, 0, 1},
         {0, 96, 204, 300, 396, 504, 600, 702, 792, 900, 1002, 1098}},
        {"Kirnberger I",
         s,
         {0, 0, 1, 0, 0, 0, kElse, 0, 0, 0, 0, 0},
         {0, 90, 204, 294, 386, 498, 590, 702, 792, 884, 996, 1088}},
        {"Kirnberger II",
         s / 2,
         {0, 0, 1, 1, 0, 0, kElse, 0, 0, 0, 0, 0},
         {0, 90, 204, 294, 386, 498, 590, 702, 792, 895, 996, 1088}},
        {"Kirnberger III",
         s / 4,
         {1, 1, 1, 1, 0, 0, kElse, 0, 0, 0, 0, 0},
         {0, 90, 193, 294, 386, 498, 590, 697, 792, 890, 996, 1088}},
        {"Neidhardt 1724, Village",
         p / 12,
         {2, 2, 2, 2, 1, 1, 0, 0, 1, 1, 0, 0},
         {0, 94, 196, 296, 392, 498, 592, 698, 796, 894, 996, 1092}},
        {"Neidhardt 1724, Small Town",
         p / 12,
         {2, 2, 2, 1, 0, 1, 1, 1, 0, 0, 1, 1},
         {0, 96, 196, 298, 394, 500, 596, 698, 796, 894, 1000, 1096}},
        {"Neidhardt 1724, Big Town",
         p / 12,
         {2, 2, 2, 1, 0, 1, 1, 1, 0, 1, 1, 0},
         {0, 96, 196, 298, 394, 498, 596, 698, 796, 894, 998, 1096}},
        {"Neidhardt 1724, Court",
         p / 12,
         {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1},
         {0, 100, 200, 300, 400, 500, 600, 700, 800, 900, 1000, 1100}},
        {"Bendeler III",
         p / 4,
         {1, 1, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0},
         {0, 96, 192, 294, 396, 498, 594, 696, 798, 894, 996, 1092}},
        {"Rameau",
         s / 4,
         {1, 1, 1, 1, 1, 0, 0, 0, kElse, kElse, 1, 1},
         {0, 87, 193, 298, 386, 503, 585, 697, 789, 890, 1007, 1083}},
        {"Vallotti",
         p / 6,
         {1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1},
         {0, 94, 196, 298, 392, 502, 592, 698, 796, 894, 1000, 1090}},
        {"Young I",
         s / 16,
         {3, 3, 3, 3, kElse, kElse, 0, 0, 0, 0, kElse, kElse},
         {0, 94, 196, 298, 392, 500, 592, 698, 796, 894, 1000, 1092}},
        {"Young II",
         p / 6,
         {1, 1, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0},
         {0, 90, 196, 294, 392, 498, 588, 698, 792, 894, 996, 1090}},
        {"Kellner",
         p / 5,
         {1, 1, 1, 1, 0, 1, 0, 0, 0, 0, 0, 0},
         {0, 90, 195, 294, 389, 498, 588, 697, 792, 892, 996, 1091}},
        {"Barnes",
         p / 6,
         {1, 1, 1, 1, 0, 1, 0, 0, 0, 0, 0, 1},
         {0, 94, 196, 298, 392, 502, 592, 698, 796, 894, 1000, 1094}},
        {"Lehman",
         p / 12,
         {2, 2, 2, 2, 0, 0, 0, 1, 1, 1, -1, 2},
         {0, 98, 196, 298, 392, 502, 596, 698, 798, 894, 998, 1094}},
    };
    for (const CircleCase& c : cases) {
        SCOPED_TRACE(c.name);
        const CentTable cents = read(c.name).entry.temperament;
        const std::array<double, 12> narrow = narrowFifths(cents);
        for (std::size_t step = 0; step < 12; ++step) {
            if (c.narrow[step] == kElse) continue;
            EXPECT_NEAR(narrow[step], c.narrow[step] * c.unit, kRounding) << "fifth " << step;
        }
        for (int note = 0; note < 12; ++note) {
            EXPECT_NEAR(interval(cents, 0, note), c.printed[static_cast<std::size_t>(note)], 0.51)
                << "note " << note;
        }
    }
}

// The twelve deviations from pure fifths of any twelve notes make one Pythagorean comma; so these
// are what is left for the fifths that the circles above leave open.
TEST(ShippedTemperaments, HaveTheirOtherFifths) {
    const struct {
        const char* name;
        std::size_t step;
        double narrow; ///< [cents]
    } cases[] = {
        {"Ramos de Pareja", 7, kPythagorean - kSyntonic},
        {"Kirnberger I", 6, kPythagorean - kSyntonic},
        {"Kirnberger II", 6, kPythagorean - kSyntonic},
        {"Kirnberger III", 6, kPythagorean - kSyntonic},
        {"Rameau", 8, (kPythagorean - kSyntonic * 7 / 4) / 2},
        {"Rameau", 9, (kPythagorean - kSyntonic * 7 / 4) / 2},
        {"Young I", 4, (kPythagorean - kSyntonic * 3 / 4) / 4},
        {"Young I", 5, (kPythagorean - kSyntonic * 3 / 4) / 4},
        {"Young I", 10, (kPythagorean - kSyntonic * 3 / 4) / 4},
        {"Young I", 11, (kPythagorean - kSyntonic * 3 / 4) / 4},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_NEAR(narrowFifths(read(c.name).entry.temperament)[c.step], c.narrow, kRounding);
    }
}

TEST(ShippedTemperaments, HaveTheirPureIntervals) {
    const struct {
        const char* name;
        double pure;
        int halfTones;
        std::vector<int> from; ///< every such interval from these notes is pure, no other one
    } cases[] = {
        {"Quarter-Comma Meantone", kPureThird, 4, {0, 2, 3, 4, 5, 7, 9, 10}},
        {"Third-Comma Meantone", kPureMinorThird, 3, {0, 1, 2, 4, 6, 7, 9, 11, 8}},
        {"Ramos de Pareja", kPureThird, 4, {0, 5, 7, 10}},
        {"Kirnberger I", kPureThird, 4, {0, 2, 5, 7}},
        {"Kirnberger II", kPureThird, 4, {0, 2, 7}},
        {"Kirnberger III", kPureThird, 4, {0}},
        {"Rameau", kPureThird, 4, {0, 5, 7, 10}},
        {"Just Intonation, Malcolm", kPureThird, 4, {0, 1, 2, 3, 5, 7, 8}},
        {"Just Intonation, Malcolm", kPureMinorThird, 3, {0, 4, 5, 9, 10, 11}},
        {"Just Intonation, Malcolm", kPureFifth, 7, {0, 1, 4, 5, 7, 8, 9, 10, 11}},
        {"Fifth-Comma Meantone", 1200 * std::log2(15.0 / 8), 11, {0, 2, 3, 5, 7, 9, 10}},
        {"Sixth-Comma Meantone", 1200 * std::log2(45.0 / 32), 6, {0, 2, 3, 5, 7, 10}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CentTable cents = read(c.name).entry.temperament;
        for (int note = 0; note < 12; ++note) {
            const double width = interval(cents, note, (note + c.halfTones) % 12);
            const bool isPure = std::abs(width - c.pure) < kRounding;
            EXPECT_EQ(isPure, std::ranges::count(c.from, note) == 1) << "from note " << note;
        }
    }
}

TEST(ShippedTemperaments, ZarlinosThirdsAreEquallyNarrow) {
    const CentTable cents = read("Two-Sevenths-Comma Meantone").entry.temperament;
    EXPECT_NEAR(kPureThird - interval(cents, 0, 4), kSyntonic / 7, kRounding);
    EXPECT_NEAR(kPureMinorThird - interval(cents, 4, 7), kSyntonic / 7, kRounding);
}

TEST(ShippedTemperaments, EqualPartsOfTheOctave) {
    const struct {
        const char* name;
        int parts;
        std::array<int, 12> notes; ///< parts above C of the keys E flat to G sharp
    } cases[] = {
        {"Huygens, 31 Parts", 31, {0, 2, 5, 8, 10, 13, 15, 18, 20, 23, 26, 28}},
        {"Sauveur, 43 Parts", 43, {0, 3, 7, 11, 14, 18, 21, 25, 28, 32, 36, 39}},
        {"Telemann, 55 Parts", 55, {0, 4, 9, 14, 18, 23, 27, 32, 36, 41, 46, 50}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CentTable cents = read(c.name).entry.temperament;
        for (int note = 0; note < 12; ++note) {
            EXPECT_NEAR(interval(cents, 0, note),
                        1200.0 * c.notes[static_cast<std::size_t>(note)] / c.parts, kRounding)
                << "note " << note;
        }
    }
}

TEST(ShippedTemperaments, TheSeptenariusHasItsStringLengths) {
    const CentTable cents = read("Werckmeister VI").entry.temperament;
    constexpr std::array<double, 12> kLengths{196, 186, 175, 165, 156, 147,
                                              139, 131, 124, 117, 110, 104};
    for (int note = 0; note < 12; ++note) {
        EXPECT_NEAR(196 / std::exp2(interval(cents, 0, note) / 1200),
                    kLengths[static_cast<std::size_t>(note)], 1e-9)
            << "note " << note;
    }
}

TEST(ShippedTemperaments, MalcolmsRatios) {
    const CentTable cents = read("Just Intonation, Malcolm").entry.temperament;
    constexpr std::array<double, 12> kRatios{1,        16. / 15, 9. / 8, 6. / 5, 5. / 4,  4. / 3,
                                             45. / 32, 3. / 2,   8. / 5, 5. / 3, 16. / 9, 15. / 8};
    for (int note = 0; note < 12; ++note) {
        EXPECT_NEAR(std::exp2(interval(cents, 0, note) / 1200),
                    kRatios[static_cast<std::size_t>(note)], 1e-11)
            << "note " << note;
    }
}

TEST(ShippedTemperaments, ReadBackAsTheSameCents) {
    const auto files = shippedFolder("Temperaments");
    EXPECT_GE(files.size(), 20u);
    std::set<std::string> names;
    for (const auto& [fileName, bytes] : files) {
        SCOPED_TRACE(fileName);
        RecordingLog log;
        const auto entry = temperament_file::readData(bytes, log);
        EXPECT_EQ(log.lines, std::vector<std::string>{});
        ASSERT_TRUE(entry);
        ASSERT_TRUE(entry->name && entry->description);
        EXPECT_EQ(*entry->name + ".temperament", fileName);
        EXPECT_LE(entry->description->size(), 240u) << "too long for a tool tip";
        EXPECT_GE(entry->description->size(), 40u);
        EXPECT_EQ(temperament_file::data(entry->temperament, *entry->name, *entry->description),
                  bytes)
            << "taken for ratios";
        std::string folded = *entry->name;
        std::ranges::transform(folded, folded.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        });
        EXPECT_TRUE(names.insert(folded).second) << "a name that occurs twice";
    }
}

TEST(ShippedTemperaments, AreWhatTheProgramMakes) {
    std::map<std::string, std::string> made;
    for (const auto& file : content::shippedFiles()) {
        constexpr std::string_view kFolder = "Temperaments/";
        if (file.path.starts_with(kFolder)) made[file.path.substr(kFolder.size())] = file.bytes;
    }
    EXPECT_EQ(made, shippedFolder("Temperaments")) << "run the target \"content\"";
}

} // namespace
} // namespace veltrano
