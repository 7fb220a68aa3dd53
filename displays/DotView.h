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

    /// What the colour means.
    QString accessibleValue() const override;
    /// Neither grey nor without an image.
    bool isLit() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    /// @param colour of a light that is lit
    virtual QString meaning(const QString& colour) const;

private:
    QString colour() const; ///< the image's name up to its size: "gray", "green", ...

    ImageRef mImage;
};

// One class for each kind of light, so that interface files can tell them apart.
class InTuneDotView final : public DotView {
    Q_OBJECT
public:
    using DotView::DotView;

protected:
    QString meaning(const QString& colour) const override;
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

protected:
    QString meaning(const QString& colour) const override;
};

} // namespace veltrano
