// SPDX-License-Identifier: GPL-3.0-or-later
// Drawing with y pointing up.
#pragma once

#include <QPointF>
#include <QRectF>

namespace veltrano {

/// Turns coordinates whose origin is the lower left corner into the painter's, whose origin is the
/// upper left corner. The same operation turns them back.
class YUp {
public:
    /// @param height of whatever is drawn into
    explicit YUp(double height) : mHeight(height) {}

    QPointF point(double x, double y) const { return {x, mHeight - y}; }
    QRectF rect(double x, double y, double width, double height) const {
        return {x, mHeight - y - height, width, height};
    }
    QRectF rect(const QRectF& r) const { return rect(r.x(), r.y(), r.width(), r.height()); }

private:
    double mHeight;
};

} // namespace veltrano
