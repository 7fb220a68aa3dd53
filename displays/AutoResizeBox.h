// SPDX-License-Identifier: GPL-3.0-or-later
// A panel behind other views.
#pragma once

#include "displays/ScaledContent.h"

namespace veltrano {

/// A bordered panel with rounded corners. Thread: main.
class AutoResizeBox final : public ScaledContent {
    Q_OBJECT
    Q_PROPERTY(double radius MEMBER mRadius)
public:
    using ScaledContent::ScaledContent;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double mRadius = 6; ///< [points] of the corners
};

} // namespace veltrano
