// SPDX-License-Identifier: GPL-3.0-or-later
// A panel behind other views.
#pragma once

#include "displays/ReadoutGroup.h"
#include "displays/ScaledContent.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/FocusRing.h"

#include <QStringList>
#include <optional>

namespace veltrano {

/// A bordered panel with rounded corners, behind views that belong together and are read together:
/// it can have the keyboard focus for them. Thread: main.
class AutoResizeBox final : public ScaledContent, public AccessibleReadout {
    Q_OBJECT
    Q_PROPERTY(double radius MEMBER mRadius)
    Q_PROPERTY(bool plain MEMBER mIsPlain)
    Q_PROPERTY(QStringList readouts MEMBER mReadouts)
    Q_PROPERTY(bool list MEMBER mIsList)
public:
    explicit AutoResizeBox(QWidget* parent = nullptr);

    /// What the readouts that it names say together; empty before it has been shown.
    QString accessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void paintPanel(QPainter& painter) const;

    double mRadius = 6;    ///< [points] of the corners
    bool mIsPlain = false; ///< nothing is drawn but the focus
    QStringList mReadouts; ///< names of views with the same parent, in the order of reading
    bool mIsList = false;  ///< each by its name
    std::optional<ReadoutGroup> mGroup;
    FocusRing mFocusRing{*this};
};

} // namespace veltrano
