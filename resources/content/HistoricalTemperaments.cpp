// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/content/HistoricalTemperaments.h"

#include <cmath>
#include <cstddef>

namespace veltrano::content {

namespace {

using List = std::vector<HistoricalTemperament>;

void append(List& list, List more) { list.insert(list.end(), more.begin(), more.end()); }

List pureFifths() {
    FifthCircle medieval;
    medieval.fill(kPure);
    medieval[5] = kRest; // B-F#
    FifthCircle ramos;
    ramos.fill(kPure);
    ramos[1] = syntonic(1, 1); // G-D
    ramos[7] = kRest;          // C#-G#, by a schisma
    FifthCircle grammateus;
    grammateus.fill(kPure);
    grammateus[5] = grammateus[10] = pythagorean(1, 2); // B-F#, Bb-F
    return {
        {"Pythagorean",
         "Eleven pure fifths from E flat to G sharp; the fifth G sharp - E flat is narrow by the "
         "whole Pythagorean comma. The tuning of medieval theory.",
         meantone(kPure)},
        {"Pythagorean, Wolf at B",
         "Henri Arnaut de Zwolle, manuscript treatise, about 1440: pure fifths from G flat to B, "
         "so that the thirds D - F sharp, A - C sharp and E - G sharp are nearly pure. The fifth "
         "B - F sharp is narrow by the Pythagorean comma.",
         notesOf(medieval)},
        {"Ramos de Pareja",
         "Bartolomeo Ramos de Pareja, Musica practica, 1482: two chains of pure fifths, A flat to "
         "G and D to C sharp, with G - D narrow by a syntonic comma; pure major thirds on B flat, "
         "F, C and G.",
         notesOf(ramos)},
        {"Grammateus",
         "Heinrich Schreyber (Grammateus), Ayn new kunstlich Buech, 1518: white keys in pure "
         "fifths; each black key halves its whole tone, so B - F sharp and B flat - F are narrow "
         "by half a Pythagorean comma.",
         notesOf(grammateus)},
    };
}

List meantones() {
    return {
        {"Third-Comma Meantone",
         "Francisco de Salinas, De musica, 1577: fifths from E flat to G sharp narrow by a third "
         "of a syntonic comma; pure minor thirds.",
         meantone(syntonic(1, 3))},
        {"Two-Sevenths-Comma Meantone",
         "Gioseffo Zarlino, Le istitutioni harmoniche, 1558: fifths from E flat to G sharp narrow "
         "by 2/7 of a syntonic comma; major and minor thirds are equally narrow.",
         meantone(syntonic(2, 7))},
        {"Quarter-Comma Meantone",
         "After Pietro Aaron, Toscanello, 1523: fifths from E flat to G sharp narrow by a quarter "
         "of a syntonic comma; eight pure major thirds.",
         meantone(syntonic(1, 4))},
        {"Fifth-Comma Meantone",
         "Described by Lemme Rossi, Sistema musico, 1666: fifths from E flat to G sharp narrow by "
         "a fifth of a syntonic comma; the leading tone C - B is pure (15/8).",
         meantone(syntonic(1, 5))},
        {"Sixth-Comma Meantone",
         "Fifths from E flat to G sharp narrow by a sixth of a syntonic comma; the tritone C - F "
         "sharp is pure (45/32). A common reading of 18th-century meantone.",
         meantone(syntonic(1, 6))},
        {"Silbermann",
         "Gottfried Silbermann's organ tuning as Georg Andreas Sorge reported it (1748): fifths "
         "from E flat to G sharp narrow by a sixth of a Pythagorean comma.",
         meantone(pythagorean(1, 6))},
        {"Smith's Equal Harmony",
         "Robert Smith, Harmonics, 1749: fifths from E flat to G sharp narrow by 5/18 of a "
         "syntonic comma.",
         meantone(syntonic(5, 18))},
        {"Huygens, 31 Parts",
         "Christiaan Huygens, Lettre touchant le cycle harmonique, 1691: twelve notes from E flat "
         "to G sharp out of 31 equal parts of the octave; the fifth has 18.",
         meantoneOfParts(18, 31)},
        {"Sauveur, 43 Parts",
         "Joseph Sauveur, 1701: twelve notes from E flat to G sharp out of 43 equal parts of the "
         "octave (merides); the fifth has 25.",
         meantoneOfParts(25, 43)},
        {"Telemann, 55 Parts",
         "Georg Philipp Telemann, Neues musikalisches System, 1743: twelve notes from E flat to G "
         "sharp out of 55 equal parts of the octave; the fifth has 32.",
         meantoneOfParts(32, 55)},
    };
}

List werckmeister() {
    const Fifth quarter = pythagorean(1, 4);
    const Fifth third = pythagorean(1, 3);
    const Fifth wideQuarter = pythagorean(-1, 4);
    const Fifth wideThird = pythagorean(-1, 3);
    constexpr Fifth pure = kPure;
    return {
        {"Werckmeister III",
         "Andreas Werckmeister, Musicalische Temperatur, 1691, no. III: C - G, G - D, D - A and B "
         "- F sharp narrow by a quarter of a Pythagorean comma, the others pure.",
         notesOf(FifthCircle{quarter, quarter, quarter, pure, pure, quarter, pure, pure, pure, pure,
                             pure, pure})},
        {"Werckmeister IV",
         "Andreas Werckmeister, 1691, no. IV: C - G, D - A, E - B, F sharp - C sharp and B flat - "
         "F narrow by a third of a Pythagorean comma, G sharp - E flat and E flat - B flat wide by "
         "it.",
         notesOf(FifthCircle{third, pure, third, pure, third, pure, third, pure, wideThird,
                             wideThird, third, pure})},
        {"Werckmeister V",
         "Andreas Werckmeister, 1691, no. V: D - A, A - E, F sharp - C sharp, C sharp - G sharp "
         "and F - C narrow by a quarter of a Pythagorean comma, G sharp - E flat wide by it.",
         notesOf(FifthCircle{pure, pure, quarter, quarter, pure, pure, quarter, quarter,
                             wideQuarter, pure, pure, quarter})},
        {"Werckmeister VI",
         "Andreas Werckmeister, 1691, no. VI, the septenarius, from its string lengths (C = 196, "
         "divisible by seven). D has 175; the printed 176 is taken for a slip.",
         notesOfStringLengths({196, 186, 175, 165, 156, 147, 139, 131, 124, 117, 110, 104})},
    };
}

List kirnberger() {
    const Fifth half = syntonic(1, 2);
    const Fifth quarter = syntonic(1, 4);
    constexpr Fifth pure = kPure;
    constexpr Fifth rest = kRest; // F#-C#, by a schisma
    return {
        {"Kirnberger I",
         "Johann Philipp Kirnberger, 1766: D - A narrow by a whole syntonic comma, F sharp - C "
         "sharp by a schisma, the others pure.",
         notesOf(FifthCircle{pure, pure, syntonic(1, 1), pure, pure, pure, rest, pure, pure, pure,
                             pure, pure})},
        {"Kirnberger II",
         "Johann Philipp Kirnberger, Die Kunst des reinen Satzes, 1771: D - A and A - E narrow by "
         "half a syntonic comma, F sharp - C sharp by a schisma, the others pure.",
         notesOf(
             FifthCircle{pure, pure, half, half, pure, pure, rest, pure, pure, pure, pure, pure})},
        {"Kirnberger III",
         "Johann Philipp Kirnberger, letter to Forkel, 1779: C - G, G - D, D - A and A - E narrow "
         "by a quarter of a syntonic comma, F sharp - C sharp by a schisma, the others pure.",
         notesOf(FifthCircle{quarter, quarter, quarter, quarter, pure, pure, rest, pure, pure, pure,
                             pure, pure})},
    };
}

List neidhardt() {
    const Fifth sixth = pythagorean(1, 6);
    const Fifth twelfth = pythagorean(1, 12);
    constexpr Fifth pure = kPure;
    FifthCircle equal;
    equal.fill(twelfth);
    return {
        {"Neidhardt 1724, Village",
         "Johann Georg Neidhardt, Sectio canonis harmonici, 1724, for a village: C - G - D - A - E "
         "narrow by a sixth of a Pythagorean comma, E - B - F sharp and G sharp - E flat - B flat "
         "by a twelfth.",
         notesOf(FifthCircle{sixth, sixth, sixth, sixth, twelfth, twelfth, pure, pure, twelfth,
                             twelfth, pure, pure})},
        {"Neidhardt 1724, Small Town",
         "Johann Georg Neidhardt, Sectio canonis harmonici, 1724, for a small town: C - G - D - A "
         "narrow by a sixth of a Pythagorean comma; by a twelfth A - E, B - F sharp - C sharp - G "
         "sharp and B flat - F - C.",
         notesOf(FifthCircle{sixth, sixth, sixth, twelfth, pure, twelfth, twelfth, twelfth, pure,
                             pure, twelfth, twelfth})},
        {"Neidhardt 1724, Big Town",
         "Johann Georg Neidhardt, Sectio canonis harmonici, 1724, for a big town: C - G - D - A "
         "narrow by a sixth of a Pythagorean comma; by a twelfth A - E, B - F sharp - C sharp - G "
         "sharp and E flat - B flat - F.",
         notesOf(FifthCircle{sixth, sixth, sixth, twelfth, pure, twelfth, twelfth, twelfth, pure,
                             twelfth, twelfth, pure})},
        {"Neidhardt 1724, Court",
         "Johann Georg Neidhardt, Sectio canonis harmonici, 1724, for the court: every fifth "
         "narrow by a twelfth of a Pythagorean comma, which is equal temperament.",
         notesOf(equal)},
    };
}

List wellTempered() {
    const Fifth sixth = pythagorean(1, 6);
    const Fifth quarter = pythagorean(1, 4);
    const Fifth youngs = syntonic(3, 16);
    const Fifth meantones = syntonic(1, 4);
    constexpr Fifth pure = kPure;
    constexpr Fifth rest = kRest;
    return {
        {"Bendeler III",
         "Johann Philipp Bendeler, Organopoeia, about 1690, third method: C - G, G - D, E - B and "
         "G sharp - E flat narrow by a quarter of a Pythagorean comma, the others pure.",
         notesOf(FifthCircle{quarter, quarter, pure, pure, quarter, pure, pure, pure, quarter, pure,
                             pure, pure})},
        {"Rameau",
         "Jean-Philippe Rameau, Nouveau systeme, 1726, in a usual modern reading: B flat to B in "
         "fifths narrow by a quarter of a syntonic comma, B to G sharp pure, the last two fifths "
         "equally wide.",
         notesOf(FifthCircle{meantones, meantones, meantones, meantones, meantones, pure, pure,
                             pure, rest, rest, meantones, meantones})},
        {"Vallotti",
         "Francesco Antonio Vallotti, 18th century: the six fifths from F to B narrow by a sixth "
         "of a Pythagorean comma, the others pure.",
         notesOf(FifthCircle{sixth, sixth, sixth, sixth, sixth, pure, pure, pure, pure, pure, pure,
                             sixth})},
        {"Young I",
         "Thomas Young, Philosophical Transactions, 1800: C - G - D - A - E narrow by 3/16 of a "
         "syntonic comma, F sharp to B flat pure; the four fifths between share the rest.",
         notesOf(FifthCircle{youngs, youngs, youngs, youngs, rest, rest, pure, pure, pure, pure,
                             rest, rest})},
        {"Young II",
         "Thomas Young, Philosophical Transactions, 1800, the simpler way: the six fifths from C "
         "to F sharp narrow by a sixth of a Pythagorean comma, the others pure.",
         notesOf(FifthCircle{sixth, sixth, sixth, sixth, sixth, sixth, pure, pure, pure, pure, pure,
                             pure})},
    };
}

List forBach() {
    const Fifth fifth = pythagorean(1, 5);
    const Fifth sixth = pythagorean(1, 6);
    const Fifth twelfth = pythagorean(1, 12);
    constexpr Fifth pure = kPure;
    return {
        {"Kellner",
         "Herbert Anton Kellner's proposal for Bach, 1970s: C - G, G - D, D - A, A - E and B - F "
         "sharp narrow by a fifth of a Pythagorean comma, the others pure.",
         notesOf(FifthCircle{fifth, fifth, fifth, fifth, pure, fifth, pure, pure, pure, pure, pure,
                             pure})},
        {"Barnes",
         "John Barnes, Early Music, 1979, from the thirds in Bach's Well-Tempered Clavier: F - C - "
         "G - D - A - E and B - F sharp narrow by a sixth of a Pythagorean comma, the others pure.",
         notesOf(FifthCircle{sixth, sixth, sixth, sixth, pure, sixth, pure, pure, pure, pure, pure,
                             sixth})},
        {"Lehman",
         "Bradley Lehman's proposal for Bach, Early Music, 2005: F to E narrow by a sixth of a "
         "Pythagorean comma, E to C sharp pure, C sharp to B flat narrow by a twelfth, B flat - F "
         "wide by it.",
         notesOf(FifthCircle{sixth, sixth, sixth, sixth, pure, pure, pure, twelfth, twelfth,
                             twelfth, pythagorean(-1, 12), sixth})},
    };
}

List justIntonation() {
    return {{"Just Intonation, Malcolm",
             "Alexander Malcolm, A Treatise of Musick, 1721: ratios to C of 16/15, 9/8, 6/5, 5/4, "
             "4/3, 45/32, 3/2, 8/5, 5/3, 16/9 and 15/8.",
             notesOf(std::array<Fraction, 12>{{{1, 1},
                                               {16, 15},
                                               {9, 8},
                                               {6, 5},
                                               {5, 4},
                                               {4, 3},
                                               {45, 32},
                                               {3, 2},
                                               {8, 5},
                                               {5, 3},
                                               {16, 9},
                                               {15, 8}}})}};
}

} // namespace

std::vector<HistoricalTemperament> historicalTemperaments() {
    List all = pureFifths();
    for (const auto family :
         {justIntonation, meantones, werckmeister, kirnberger, neidhardt, wellTempered, forBach}) {
        append(all, family());
    }
    return all;
}

std::array<double, 12> deviationsFromA(const NotesAboveC& notes) {
    constexpr double kNoDeviation = 1e-9; // [cents] below what a file holds
    std::array<double, 12> deviations{};
    const double a = notes[9] - 900;
    for (std::size_t note = 0; note < notes.size(); ++note) {
        const double cents = notes[note] - 100.0 * static_cast<double>(note) - a;
        deviations[note] = std::abs(cents) < kNoDeviation ? 0 : cents;
    }
    return deviations;
}

} // namespace veltrano::content
