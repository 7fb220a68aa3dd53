// SPDX-License-Identifier: GPL-3.0-or-later
// Where everything stands in a graph of cents.
#include "tuning/GraphGeometry.h"

namespace veltrano {

GraphGeometry::GraphGeometry(double width, double height, int columns)
    : mPlot{kInset + kScaleLabelRoom, kInset, width - 2 * kInset - kScaleLabelRoom,
            height - 2 * kInset - kColumnLabelRoom},
      mColumns(columns) {}

double GraphGeometry::columnCentre(int column) const {
    return mPlot.left + (column + 0.5) * columnWidth();
}

double GraphGeometry::heightOf(double cents) const {
    return mPlot.bottom + (cents + kEdge) * (mPlot.height / (2 * kEdge));
}

std::string scaleLabel(int cents) {
    if (cents == 0) return "\u00B10";
    return (cents > 0 ? "+" : "") + std::to_string(cents);
}

} // namespace veltrano
