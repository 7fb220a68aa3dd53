// SPDX-License-Identifier: GPL-3.0-or-later
// Musical and mathematical signs as shapes.
#include "displays/SymbolShape.h"

#include <QTransform>
#include <algorithm>

namespace veltrano {

namespace {

constexpr char16_t kSharp = u'\u266F';
constexpr char16_t kFlat = u'\u266D';
constexpr char16_t kPlusMinus = u'\u00B1';
constexpr char16_t kMinus = u'\u2212';

// The accidentals are drawn for letters of height 1 and scaled.
QPainterPath unitSharp(double stroke) {
    const double stem = std::min(0.085, stroke * 0.7);
    const double bar = std::clamp(stroke * 1.15, 0.11, 0.17);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRect(0.19 - stem / 2, -1.05, stem, 1.21);
    path.addRect(0.43 - stem / 2, -1.16, stem, 1.21);
    for (const double middle : {-0.30, -0.67}) {
        path.moveTo(0.02, middle + 0.07 - bar / 2);
        path.lineTo(0.60, middle - 0.10 - bar / 2);
        path.lineTo(0.60, middle - 0.10 + bar / 2);
        path.lineTo(0.02, middle + 0.07 + bar / 2);
        path.closeSubpath();
    }
    return path;
}

QPainterPath unitFlat(double stroke) {
    const double stem = std::min(0.085, stroke * 0.7);
    const double x = 0.05 + stem;
    QPainterPath path; // odd-even: the inner curve is a hole
    path.moveTo(0.05, -1.18);
    path.lineTo(x, -1.18);
    path.lineTo(x, -0.42);
    path.cubicTo(0.24, -0.60, 0.55, -0.62, 0.55, -0.36);
    path.cubicTo(0.55, -0.17, 0.32, -0.04, 0.05, 0.10);
    path.closeSubpath();
    path.moveTo(x, -0.31);
    path.cubicTo(0.20, -0.45, 0.37, -0.47, 0.37, -0.31);
    path.cubicTo(0.37, -0.19, 0.25, -0.10, x, -0.02);
    path.closeSubpath();
    return path;
}

// Bars of the width of a figure, the cross in the middle of the capitals.
QPainterPath signBars(char16_t sign, double capHeight, double stroke, double figureWidth) {
    const double length = 0.80 * figureWidth;
    const double left = (figureWidth - length) / 2;
    const double middle = sign == kPlusMinus ? -0.56 * capHeight : -0.47 * capHeight;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addRect(left, middle - stroke / 2, length, stroke);
    if (sign == u'+' || sign == kPlusMinus) {
        const double half = std::min(length / 2, 0.42 * capHeight);
        path.addRect(figureWidth / 2 - stroke / 2, middle - half, stroke, 2 * half);
    }
    if (sign == kPlusMinus) path.addRect(left, -stroke, length, stroke);
    return path;
}

} // namespace

std::optional<SymbolShape> SymbolShape::of(QChar sign, double capHeight, double stroke,
                                           double figureWidth) {
    const char16_t code = sign.unicode();
    const auto scale = QTransform::fromScale(capHeight, capHeight);
    switch (code) {
    case kSharp:
        return SymbolShape{scale.map(unitSharp(stroke / capHeight)), 0.66 * capHeight};
    case kFlat:
        return SymbolShape{scale.map(unitFlat(stroke / capHeight)), 0.62 * capHeight};
    case u'-':
    case kMinus:
    case u'+':
    case kPlusMinus:
        return SymbolShape{signBars(code, capHeight, stroke, figureWidth), figureWidth};
    default:
        return std::nullopt;
    }
}

} // namespace veltrano
