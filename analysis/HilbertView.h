// SPDX-License-Identifier: GPL-3.0-or-later
// The phase scope.
#pragma once

#include "analysis/HilbertTransform.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/FocusRing.h"
#include "platform/realtime/Frame.h"

#include <QColor>
#include <QImage>
#include <QWidget>
#include <vector>

namespace veltrano {

class Preferences;

/// Plots the sound (upwards) against its Hilbert transform (to the right): a pure tone is a circle
/// whose radius is its level, overtones make loops of it, noise is a blob. Thread: main. Owns: a
/// reference to the frame shown and the picture into which traces are drawn, so that they can
/// decay.
///
/// Line or dots, decay and grid are asked of the settings at every drawing.
class HilbertView final : public QWidget, public AccessibleReadout {
    Q_OBJECT
public:
    explicit HilbertView(const Preferences& preferences, QWidget* parent = nullptr);

    /// The amplitude that reaches half the view's height; not 0. Takes effect at the next drawing.
    void setPeak(float amplitude) { mPeak = amplitude; }
    /// The same object again does nothing; null is an empty block.
    void setData(FrameRef frame);

    QString accessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void setColors();
    void frameChanged();
    void drawHilbert();
    std::vector<QPointF> points() const;
    void drawLine(QPainter& painter, const std::vector<QPointF>& points, double width) const;
    void drawDots(QPainter& painter, const std::vector<QPointF>& points, double size) const;
    void drawGrid(QPainter& painter) const;

    const Preferences& mPrefs;
    FrameRef mData;
    HilbertTransform mTransform;
    QImage mImage;
    float mPeak = 1.0f;
    bool isDark;
    QColor mHilbertColor;
    QColor mBackgroundColor;
    QColor mDecayColor;
    QColor mGridColor;
    FocusRing mFocusRing{*this};
};

} // namespace veltrano
