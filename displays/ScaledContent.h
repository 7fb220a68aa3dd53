// SPDX-License-Identifier: GPL-3.0-or-later
// Content that is drawn in its original coordinates, whatever its widget's size is now.
#pragma once

#include "displays/Geometry.h"
#include "displays/SuperviewFollower.h"

#include <QSizeF>
#include <QWidget>
#include <optional>

class QPainter;

namespace veltrano {

/// Base of the views whose text or border grows with them: the frame follows the parent in
/// proportion, not rounded, and the painter is scaled so that the content still has its original
/// size. Thread: main.
///
/// The frame and the parent's size at the parent's first change of size are the original ones.
class ScaledContent : public QWidget {
    Q_OBJECT
public:
    explicit ScaledContent(QWidget* parent = nullptr);

    QSizeF contentSize() const; ///< original size [points]
    YUpRect frame() const;      ///< now, in the parent, y up [points]

protected:
    bool event(QEvent* event) override;
    /// Makes @p painter, which paints on this widget, draw in original coordinates (y down).
    void useContentCoordinates(QPainter& painter) const;

private:
    struct Original {
        YUpRect frame;
        Extent superviewSize;
    };
    void resizeWithSuperview(QSize present, QSize old);

    std::optional<Original> mOriginal;
    std::optional<YUpRect> mFrame; ///< once it follows
    SuperviewFollower mFollower;
};

} // namespace veltrano
