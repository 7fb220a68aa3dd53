// SPDX-License-Identifier: GPL-3.0-or-later
// The values of one temperament: cents, ratios and hertz of its twelve degrees.
#pragma once

#include "platform/foundation/Log.h"
#include "tuning/TuningLibraries.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

using RatioTable = std::array<double, 12>;

constexpr double kMaxOffsetCents = 50; ///< [cents] of a temperament or stretch value, both ways

/// Operations on tables that lie by scale degree: row r is the pitch class (key + r) mod 12.
namespace temperament {

inline constexpr std::string_view kOutOfRange =
    "Temperament value is out of range. It has to be between -50 and +50 cents.";

/// "C", "C#", "D", "Eb" ... of pitch class @p index mod 12. @p index >= 0
std::string_view noteName(int index);

/// Whether @p name is one of the twelve, spelled as noteName() spells it.
bool isNoteName(std::string_view name);

/// The row on which A lies. @param key 0 (C) ... 11
constexpr int rowOfA(int key) { return (21 - key) % 12; }

/// 2^((k - 9) / 12) for the pitch class k of @p row: the equal-tempered ratio to A of one octave.
double equalRatio(int row, int key);

/// Whether a value lies in -50 ... +50; what is not finite does not.
bool isInRange(double cents);

/// Shifts @p cents so that A's row is 0. False, with kOutOfRange logged, at the first value outside
/// -50 ... +50 or not finite; kept: the rows before it stay shifted.
bool normalizeCents(CentTable& cents, int key, Log& log);

/// Turns ratios to the tonic into ratios to A of the octave C4 ... B4. False, with kOutOfRange
/// logged and nothing changed, when the ratio on A's row is 0.
bool normalizeRatios(RatioTable& ratios, int key, Log& log);

/// "%+.3f" of @p cents; zero is shown with the plus-minus sign.
std::string centText(double cents);

/// The number of a text typed into a cell: a leading plus-minus sign is dropped when there is more
/// than it, then a lenient number.
double typedNumber(std::string_view utf8);

} // namespace temperament

/// One temperament being edited. Its three tables agree at every row:
/// ratio = 2^(((k - 9) * 100 + cent) / 1200), hertz = reference pitch * ratio, and cent is 0 on A.
///
/// Thread: main. Values outside -50 ... +50 can arise after a change of the root key.
class Temperament {
public:
    enum class Column { label, cent, ratio, hertz };

    /// Equal temperament. @param referencePitch [Hz] of A4 @param tonic 0 (C) ... 11
    Temperament(double referencePitch, int tonic);

    double referencePitch() const { return mReferencePitch; }
    int tonic() const { return mTonic; }
    const CentTable& cents() const { return mCent; }
    const RatioTable& ratios() const { return mRatio; }
    const std::array<double, 12>& hertz() const { return mHertz; }

    std::string_view noteName(int row) const;    ///< name of the row's pitch class
    std::string noteIntervalName(int row) const; ///< such as "F# (M3)"

    void clearTemperament();
    void setReferencePitch(double hz); ///< ratios and cents stay
    void setTonic(int tonic);          ///< lays the same degrees onto the new tonic (updateAll)
    void updateHertzAtIndex(int row);
    void updateHertz();
    void updateAll();
    void updateRatiosAndHertz();
    /// From the ratios. False, with the text logged, at the first row outside -50 ... +50; the rows
    /// before it stay as updated.
    bool updateCentsAndHertz(Log& log);

    /// Takes the cents of a file (key C) onto the tonic. kept: when the shift for the tonic leaves
    /// the range (logged), the rows before stay shifted, and this is no failure.
    void setCents(const CentTable& cents, Log& log);
    /// Takes the ratios of a Scala file, by degree. False, logged, when they do not fit; the tables
    /// are then partly changed.
    bool setScalaRatios(const RatioTable& ratios, Log& log);

    bool mayEdit(Column column, int row) const; ///< never the label, never A's row
    std::string cell(Column column, int row) const;
    /// Takes a typed text into a cell. False: refused, nothing changed. Does not ask mayEdit().
    bool setCell(Column column, int row, std::string_view text);

    bool operator==(const Temperament&) const = default; ///< bit for bit, but for signed zeros

private:
    int noteOfRow(int row) const { return (mTonic + row) % 12; }
    bool setHertz(int row, double hz);
    bool setRatio(int row, double ratio);
    bool setCent(int row, double cents);

    RatioTable mRatio{}; ///< to A4
    CentTable mCent{};   ///< [cents] against equal temperament
    std::array<double, 12> mHertz{};
    double mReferencePitch;
    int mTonic;
};

} // namespace veltrano
