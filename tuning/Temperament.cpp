// SPDX-License-Identifier: GPL-3.0-or-later
// The values of one temperament.
#include "tuning/Temperament.h"

#include "platform/foundation/LenientNumber.h"
#include "tuning/PitchClass.h"

#include <algorithm>
#include <cmath>

namespace veltrano {

namespace temperament {

namespace {

constexpr std::array<std::string_view, 12> kNoteNames{"C",  "C#", "D",  "Eb", "E",  "F",
                                                      "F#", "G",  "G#", "A",  "Bb", "B"};

} // namespace

std::string_view noteName(int index) { return kNoteNames[static_cast<std::size_t>(index % 12)]; }

bool isNoteName(std::string_view name) {
    return std::ranges::find(kNoteNames, name) != kNoteNames.end();
}

double equalRatio(int row, int key) {
    const int note = (key + row) % kPitchClasses;
    return std::pow(2.0, (note - 9) / 12.0);
}

bool isInRange(double cents) { return cents >= -kMaxOffsetCents && cents <= kMaxOffsetCents; }

bool normalizeCents(CentTable& cents, int key, Log& log) {
    const double a = cents[static_cast<std::size_t>(rowOfA(key))];
    for (double& cent : cents) {
        const double shifted = cent - a;
        if (!isInRange(shifted)) {
            log.line(kOutOfRange);
            return false; // kept: the rows before this one stay shifted
        }
        cent = shifted;
    }
    return true;
}

bool normalizeRatios(RatioTable& ratios, int key, Log& log) {
    const double a = ratios[static_cast<std::size_t>(rowOfA(key))];
    if (a == 0) {
        log.line(kOutOfRange);
        return false;
    }
    for (int row = 0; row < kPitchClasses; ++row) {
        double& ratio = ratios[static_cast<std::size_t>(row)];
        ratio /= a;
        if (row >= kPitchClasses - key) ratio /= 2; // the note lies below the tonic
    }
    return true;
}

std::string centText(double cents) {
    const std::string text = signedDecimals(cents, 3);
    if (text == "+0.000" || text == "-0.000") return "\u00B10.000";
    return text;
}

double typedNumber(std::string_view utf8) {
    constexpr std::string_view kPlusMinus = "\u00B1";
    if (utf8.starts_with(kPlusMinus) && utf8.size() > kPlusMinus.size()) {
        utf8.remove_prefix(kPlusMinus.size());
    }
    return lenientDouble(utf8);
}

} // namespace temperament

namespace {

using temperament::isInRange;

constexpr std::array<std::string_view, 12> kIntervals{" (PU)", " (m2)", " (M2)", " (m3)",
                                                      " (M3)", " (P4)", " (TT)", " (P5)",
                                                      " (m6)", " (M6)", " (m7)", " (M7)"};

constexpr std::size_t at(int row) { return static_cast<std::size_t>(row); }

double ratioOf(int note, double cents) {
    return std::pow(2.0, ((note - 9) * 100 + cents) / 1200.0);
}

} // namespace

Temperament::Temperament(double referencePitch, int tonic)
    : mReferencePitch(referencePitch), mTonic(tonic) {
    clearTemperament();
}

std::string_view Temperament::noteName(int row) const {
    return temperament::noteName(row + mTonic);
}

std::string Temperament::noteIntervalName(int row) const {
    return std::string(noteName(row)).append(kIntervals[at(row)]);
}

void Temperament::clearTemperament() {
    for (int row = 0; row < kPitchClasses; ++row) {
        mCent[at(row)] = 0;
        mRatio[at(row)] = temperament::equalRatio(row, mTonic);
        mHertz[at(row)] = mRatio[at(row)] * mReferencePitch;
    }
}

void Temperament::setReferencePitch(double hz) {
    mReferencePitch = hz;
    updateHertz();
}

void Temperament::setTonic(int tonic) {
    mTonic = tonic;
    updateAll();
}

void Temperament::updateHertzAtIndex(int row) {
    mHertz[at(row)] = mReferencePitch * mRatio[at(row)];
}

void Temperament::updateHertz() {
    for (int row = 0; row < kPitchClasses; ++row)
        updateHertzAtIndex(row);
}

void Temperament::updateAll() {
    const double a = mCent[at(temperament::rowOfA(mTonic))];
    for (double& cent : mCent)
        cent -= a; // kept: no range check
    updateRatiosAndHertz();
}

void Temperament::updateRatiosAndHertz() {
    for (int row = 0; row < kPitchClasses; ++row) {
        mRatio[at(row)] = ratioOf(noteOfRow(row), mCent[at(row)]);
        mHertz[at(row)] = mRatio[at(row)] * mReferencePitch;
    }
}

bool Temperament::updateCentsAndHertz(Log& log) {
    for (int row = 0; row < kPitchClasses; ++row) {
        const double cents =
            1200 * std::log2(mRatio[at(row)] / temperament::equalRatio(row, mTonic));
        if (!isInRange(cents)) {
            log.line(temperament::kOutOfRange);
            return false;
        }
        mCent[at(row)] = cents;
        mHertz[at(row)] = mReferencePitch * mRatio[at(row)];
    }
    return true;
}

void Temperament::setCents(const CentTable& cents, Log& log) {
    mCent = cents;
    temperament::normalizeCents(mCent, mTonic, log); // kept: its result is ignored
    updateRatiosAndHertz();
}

bool Temperament::setScalaRatios(const RatioTable& ratios, Log& log) {
    mRatio = ratios;
    return temperament::normalizeRatios(mRatio, mTonic, log) && updateCentsAndHertz(log);
}

bool Temperament::mayEdit(Column column, int row) const {
    return column != Column::label && row != temperament::rowOfA(mTonic);
}

std::string Temperament::cell(Column column, int row) const {
    switch (column) {
    case Column::cent:
        return temperament::centText(mCent[at(row)]);
    case Column::ratio:
        return fixedDecimals(mRatio[at(row)], 9);
    case Column::hertz:
        return fixedDecimals(mHertz[at(row)], 6);
    case Column::label:
        break;
    }
    return noteIntervalName(row);
}

bool Temperament::setCell(Column column, int row, std::string_view text) {
    const double value = temperament::typedNumber(text);
    switch (column) {
    case Column::cent:
        return setCent(row, value);
    case Column::ratio:
        return setRatio(row, value);
    case Column::hertz:
        return setHertz(row, value);
    case Column::label:
        break;
    }
    return false;
}

bool Temperament::setCent(int row, double cents) {
    if (!isInRange(cents)) return false;
    mCent[at(row)] = cents;
    mRatio[at(row)] = std::pow(2.0, (cents + (noteOfRow(row) - 9) * 100) / 1200.0);
    updateHertzAtIndex(row);
    return true;
}

bool Temperament::setRatio(int row, double ratio) {
    if (!(ratio > 0.5 && ratio < 2.0)) return false;
    const double cents = 1200 * std::log2(ratio / temperament::equalRatio(row, mTonic));
    if (!isInRange(cents)) return false;
    mRatio[at(row)] = ratio;
    mCent[at(row)] = cents;
    updateHertzAtIndex(row);
    return true;
}

bool Temperament::setHertz(int row, double hz) {
    if (hz == 0) return false;
    const double difference =
        1200 * std::log2(hz / (temperament::equalRatio(row, mTonic) * mReferencePitch));
    if (!isInRange(difference)) return false;
    mHertz[at(row)] = hz; // kept: as typed, not computed from the ratio
    mCent[at(row)] = difference + mCent[at(temperament::rowOfA(mTonic))];
    mRatio[at(row)] = ratioOf(noteOfRow(row), mCent[at(row)]);
    return true;
}

} // namespace veltrano
