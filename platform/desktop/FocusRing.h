// SPDX-License-Identifier: GPL-3.0-or-later
// Shows which view has the keyboard focus.
#pragma once

#include <QObject>

class QPainter;
class QWidget;

namespace veltrano {

/// A ring inside the bounds of a view, in the highlight colour with an edge in the window colour,
/// so that it stands out from whatever the view shows. It appears once the keys have moved the
/// focus to the view or tried to move it on; a window that merely comes up, or a click, shows none.
/// Thread: main.
class FocusRing final : public QObject {
public:
    static constexpr double kWidth = 2; ///< [points] of the ring itself
    static constexpr double kEdge = 1;  ///< [points] further inside

    /// @param view owns this as a member
    explicit FocusRing(QWidget& view);

    bool isShown() const;
    /// Does nothing unless it is shown. The last thing to be painted.
    void paint(QPainter& painter) const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& mView;
    bool mIsByKeys = false;
};

} // namespace veltrano
