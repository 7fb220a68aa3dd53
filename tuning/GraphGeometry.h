// SPDX-License-Identifier: GPL-3.0-or-later
// Where everything stands in a graph of cents.
#pragma once

#include <string>

namespace veltrano {

/// A graph of -50 ... +50 cents over equally wide columns. All lengths in the graph's own units, y
/// grows upwards, the origin is the lower left corner.
class GraphGeometry {
public:
    struct Plot {
        double left = 0;
        double bottom = 0;
        double width = 0;
        double height = 0;
        double top() const { return bottom + height; }
    };

    static constexpr double kInset = 3;            ///< on every side
    static constexpr double kScaleLabelRoom = 19;  ///< further left
    static constexpr double kColumnLabelRoom = 10; ///< further up
    static constexpr double kScaleLabelGap = 4;    ///< between a label's end and its line
    static constexpr double kLabelSize = 9;        ///< of the letters
    static constexpr double kCurveWidth = 3;
    static constexpr int kGridStep = 10;  ///< [cents] between lines
    static constexpr int kLabelStep = 20; ///< [cents] between labels
    static constexpr int kEdge = 50;      ///< [cents] at the top; the bottom is the same below 0

    /// @param width, height of the whole graph  @param columns at least 1
    GraphGeometry(double width, double height, int columns);

    const Plot& plot() const { return mPlot; }
    int columns() const { return mColumns; }
    double columnWidth() const { return mPlot.width / mColumns; }
    double columnCentre(int column) const; ///< x
    double heightOf(double cents) const;   ///< y; beyond the edges for cents beyond them
    double scaleLabelEnd() const { return columnCentre(0) - kScaleLabelGap; } ///< x

private:
    Plot mPlot;
    int mColumns;
};

/// "+40", "\u00B10", "-20": a label of the scale, UTF-8.
std::string scaleLabel(int cents);

} // namespace veltrano
