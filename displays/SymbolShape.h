// SPDX-License-Identifier: GPL-3.0-or-later
// Musical and mathematical signs as shapes.
#pragma once

#include <QChar>
#include <QPainterPath>
#include <optional>

namespace veltrano {

/// A sign ready to fill: its left edge at x 0, standing on the baseline y 0, y down.
struct SymbolShape {
    QPainterPath path;
    double width = 0; ///< what the next character must keep clear of

    /// The sharp and flat signs, plus, minus (also for the hyphen) and plus-minus. Nothing for any
    /// other character: a font draws it. Fonts draw the accidentals badly or not at all.
    /// @param capHeight of the letters beside it  @param stroke thickness of their stems
    /// @param figureWidth of a digit beside it
    static std::optional<SymbolShape> of(QChar sign, double capHeight, double stroke,
                                         double figureWidth);
};

} // namespace veltrano
