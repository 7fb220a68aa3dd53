// SPDX-License-Identifier: GPL-3.0-or-later
// The lights.
#pragma once

#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/ImageLibrary.h"

#include <QWidget>

namespace veltrano {

/// Shows one image, stretched to its bounds. Thread: main.
class DotView : public QWidget, public AccessibleReadout {
    Q_OBJECT
public:
    explicit DotView(QWidget* parent = nullptr);

    /// The same object again does nothing. Null: nothing is shown.
    void setImage(ImageRef image);
    const ImageRef& image() const { return mImage; }

    /// The colour, which is the image's name up to its size: "gray", "green", ...
    QString accessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ImageRef mImage;
};

// One class for each kind of light, so that interface files can tell them apart.
class InTuneDotView final : public DotView {
    Q_OBJECT
public:
    using DotView::DotView;
};
class OutOfTuneDotView final : public DotView {
    Q_OBJECT
public:
    using DotView::DotView;
};
class LevelDotView final : public DotView {
    Q_OBJECT
public:
    using DotView::DotView;
};

} // namespace veltrano
