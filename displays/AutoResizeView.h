// SPDX-License-Identifier: GPL-3.0-or-later
// A view that keeps its place and its share of what holds it.
#pragma once

#include "displays/Geometry.h"
#include "displays/SuperviewFollower.h"

#include <QWidget>
#include <optional>

namespace veltrano {

/// Re-sizes itself in proportion to its parent, in whole points, rounded down. What it holds fills
/// it by means of a layout. Thread: main.
class AutoResizeView : public QWidget {
    Q_OBJECT
public:
    /// For interface files: the geometry given there is the original frame.
    explicit AutoResizeView(QWidget* parent = nullptr);
    /// @param frame the original frame in the parent, y up
    AutoResizeView(const YUpRect& frame, QWidget* parent);

protected:
    bool event(QEvent* event) override;

private:
    void moveToSuperview();
    void resizeWithSuperview(QSize present);

    std::optional<YUpRect> mOriginalFrame;
    std::optional<Extent> mOriginalSuperviewBounds; ///< set once, when there is a parent
    SuperviewFollower mFollower;
};

} // namespace veltrano
