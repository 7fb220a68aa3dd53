// SPDX-License-Identifier: GPL-3.0-or-later
// A partials view with settings of its own, and what it is to draw.
#pragma once

#include "analysis/PartialView.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/NotificationNames.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"
#include "tests/analysis/ViewPictures.h"
#include "tests/settings/ScriptedLibraries.h"
#include "tests/support/RecordingSpeech.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace veltrano {

/// A partial of a key, that many cents away from where it is with A4 at 440 Hz.
inline Partial partialAt(int key, double cents = 0, float power = 1) {
    return {static_cast<float>(440 * std::exp2((key - 57 + cents / 100) / 12)), power};
}

inline PartialsRef published(Partials partials) {
    return std::make_shared<const Partials>(std::move(partials));
}

class PartialsTest : public testing::Test {
protected:
    static constexpr QSize kSize{781, 207};

    PartialsTest() {
        mPreferences.setPartialsHold(false);
        mPreferences.setInTuneThreshold(3);
        mView.resize(kSize);
    }

    /// The first drawing of those partials.
    QImage pictureOfPartials(Partials partials, double ratio = 1, QSize size = kSize) {
        PartialView view({mPreferences, mNotifications});
        view.resize(size);
        view.setPartials(published(std::move(partials)));
        return pictureOf(view, ratio);
    }
    Seen seenPartials(Partials partials, double ratio = 1, QSize size = kSize) {
        return Seen(pictureOfPartials(std::move(partials), ratio, size));
    }
    /// What is in the fields of the last drawing's records.
    std::vector<double> cents() const {
        std::vector<double> cents;
        for (const PartialData& record : mView.records())
            cents.push_back(static_cast<double>(record.cent));
        return cents;
    }

    UserDefaults mDefaults = UserDefaults::inMemory();
    NotificationCenter mNotifications;
    ScriptedTemperaments mTemperaments;
    Preferences mPreferences{{mDefaults, mNotifications, &mTemperaments}};
    RecordingSpeech mSpeech;
    PartialView mView{{mPreferences, mNotifications, &mSpeech}};
};

namespace partial_pictures {

struct Colors {
    AppearanceChoice choice;
    QRgb background, oddOctave, key, line, text, blackName;
    double nameBacking; ///< alpha of the white behind a black key's name
};
inline constexpr Colors kColors[] = {
    {AppearanceChoice::light, kWhite, 0xffd9d9d9, kBlack, kGrey, kBlack, kBlack, 0.75},
    {AppearanceChoice::dark, kBlack, 0xff262626, kWhite, kDarkGrey, kWhite, kWhite, 0.25},
};

inline constexpr std::array<const char*, 12> kNames{"C",  "C#", "D",  "Eb", "E",  "F",
                                                    "F#", "G",  "G#", "A",  "Bb", "B"};
inline bool isWhite(int key) { return std::string(kNames[std::size_t(key % 12)]).size() == 1; }

/// The middle of a key: white keys lie 15 points apart, black ones between two of them.
inline double middleOf(int key) {
    constexpr std::array<double, 12> kInOctave{7, 15, 22, 30, 37, 52, 60, 67, 75, 82, 90, 97};
    return 105 * (key / 12) + kInOctave[std::size_t(key % 12)] + 0.5 - 75;
}

inline void fill(QPainter& painter, double x, double y, double width, double height,
                 const QColor& color) {
    painter.fillRect(QRectF(x, 207 - y - height, width, height), color);
}

inline void drawKeyboard(QPainter& painter, const Colors& colors) {
    fill(painter, 0, 0, 781, 207, QColor(colors.background));
    fill(painter, 0, 139, 781, 1, QColor(colors.line));
    for (const double left : {30.5, 240.5, 450.5, 660.5})
        fill(painter, left, 0.5, 105, 88, QColor(colors.oddOctave));
    for (int key = 9; key <= 96; ++key) {
        if (!isWhite(key)) continue;
        const double x = middleOf(key);
        fill(painter, x - 7.5, 0, 1, 89, QColor(colors.key));
        fill(painter, x + 7.5, 0, 1, 89, QColor(colors.key));
        fill(painter, x - 7.5, 0, 16, 1, QColor(colors.key));
        fill(painter, x - 7.5, 88, 16, 1, QColor(colors.key));
    }
    for (int key = 9; key <= 96; ++key) {
        if (!isWhite(key)) fill(painter, middleOf(key) - 4.5, 32.5, 9, 56, QColor(colors.key));
    }
}

/// The red of a marked key, which is cut out where black keys are.
inline void drawMark(QPainter& painter, int key) {
    const double x = middleOf(key);
    if (!isWhite(key)) {
        fill(painter, x - 4, 33, 8, 55, Qt::red);
        return;
    }
    const bool hasBlackLeft = key != 9 && key != 96 && !isWhite(key - 1);
    const bool hasBlackRight = key != 96 && !isWhite(key + 1);
    const double left = hasBlackLeft ? 4 : 0;
    const double right = hasBlackRight ? 4 : 0;
    if (hasBlackLeft) fill(painter, x - 6.5, 1, 4, 31.5, Qt::red);
    fill(painter, x - 6.5 + left, 1, 14 - left - right, 87, Qt::red);
    if (hasBlackRight) fill(painter, x + 3.5, 1, 4, 31.5, Qt::red);
}

/// @param y lower edge of the text
inline void drawTextUp(QPainter& painter, const QString& text, const QFont& font, double x,
                       double y, const QColor& color) {
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(
        QPointF(x - metrics.horizontalAdvance(text) / 2, 207 - y - metrics.descent()), text);
}

inline void drawName(QPainter& painter, int key, const Colors& colors) {
    const QString name = QString::fromLatin1(kNames[std::size_t(key % 12)]);
    const QFont font = textFont(8, true);
    const double x = middleOf(key);
    if (isWhite(key)) {
        drawTextUp(painter, name, font, x, 2, Qt::white);
        return;
    }
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(name);
    const double height = metrics.ascent() + metrics.descent();
    fill(painter, x - width / 2 - 2, 30 - height, width + 4, height,
         QColor::fromRgbF(1, 1, 1, static_cast<float>(colors.nameBacking)));
    drawTextUp(painter, name, font, x, 30 - height, QColor(colors.blackName));
}

struct Shown {
    int key;
    double cents;
    const char* number; ///< above the bar
    QRgb color;         ///< of the bar
    bool isRoot;        ///< of the root's pitch class
    double from, to;    ///< of the bar, from the centre line [points]
};

/// The whole drawing.
/// @param shown lowest first
inline QImage drawing(const Colors& colors, const std::vector<Shown>& shown, double ratio = 1) {
    return drawn(QSize(781, 207), ratio, [&](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        drawKeyboard(painter, colors);
        for (const Shown& s : shown) {
            const double x = middleOf(s.key);
            if (s.isRoot) fill(painter, x - 0.5, 139.5 - 50, 1, 100, QColor(colors.line));
            fill(painter, x - 3.5, 139.5 + s.from, 7, s.to - s.from, QColor(s.color));
            drawTextUp(painter, QString::fromLatin1(s.number), textFont(7, false), x,
                       isWhite(s.key) ? 189 : 197, QColor(colors.text));
            drawMark(painter, s.key);
        }
        for (const Shown& s : shown)
            drawName(painter, s.key, colors);
    });
}

} // namespace partial_pictures
} // namespace veltrano
