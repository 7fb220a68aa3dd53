// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of the piano keyboard, drawn for comparison.
#pragma once

#include "tests/analysis/ViewPictures.h"

#include <string_view>

namespace veltrano::piano_pictures {

// White keys of 20 points, black ones of 12 that begin 14 points from the white key's left edge.
inline constexpr QSize kSize(1040, 100);
inline constexpr QRgb kLightGrey = 0xffd9d9d9; ///< 0.85 of white

struct Colors {
    AppearanceChoice choice;
    QRgb white, alternating, black;
};
inline constexpr Colors kColors[] = {
    {AppearanceChoice::light, kWhite, kLightGrey, kBlack},
    {AppearanceChoice::dark, kBlack, kDarkGrey, kWhite},
};

/// Rows of the keys from A0 to C8: true for those of every other octave, from C1 on.
inline bool isAlternating(int whiteKey) {
    return std::string_view(
               "..xxxxxxx.......xxxxxxx.......xxxxxxx.......xxxxxxx.")[static_cast<std::size_t>(
               whiteKey)] == 'x';
}

inline bool hasBlackKeyRight(int whiteKey) {
    return std::string_view("ABCDEFG")[static_cast<std::size_t>(whiteKey % 7)] != 'B' &&
           std::string_view("ABCDEFG")[static_cast<std::size_t>(whiteKey % 7)] != 'E' &&
           whiteKey < 51;
}

inline void fillUp(QPainter& painter, double x, double y, double width, double height, QRgb color) {
    painter.fillRect(QRectF(x, kSize.height() - y - height, width, height), QColor(color));
}

inline void frameUp(QPainter& painter, double x, double y, double width, double height,
                    QRgb color) {
    fillUp(painter, x, y, 1, height, color);
    fillUp(painter, x + width - 1, y, 1, height, color);
    fillUp(painter, x, y, width, 1, color);
    fillUp(painter, x, y + height - 1, width, 1, color);
}

/// @param red index of a white key, or of the gap whose black key is marked
inline QImage keyboard(const Colors& colors, double ratio, int redWhite = -1, int redGap = -1) {
    return drawn(kSize, ratio, [&](QPainter& painter) {
        for (int i = 0; i < 52; ++i) {
            const QRgb fill = isAlternating(i) ? colors.alternating : colors.white;
            fillUp(painter, i * 20, 0, 20, 100, i == redWhite ? kRed : fill);
            frameUp(painter, i * 20, 0, 20, 100, colors.black);
        }
        for (int gap = 0; gap < 51; ++gap) {
            if (!hasBlackKeyRight(gap)) continue;
            fillUp(painter, 14 + gap * 20, 37, 12, 62, gap == redGap ? kRed : colors.black);
            if (gap == redGap) frameUp(painter, 14 + gap * 20, 37, 12, 62, colors.black);
        }
    });
}

} // namespace veltrano::piano_pictures
