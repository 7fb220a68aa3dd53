// SPDX-License-Identifier: GPL-3.0-or-later
// The strobe display.
#pragma once

#include "displays/StrobePattern.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/FocusRing.h"
#include "platform/desktop/ImageLibrary.h"
#include "platform/realtime/Frame.h"

#include <QImage>
#include <QWidget>

namespace veltrano {

/// A strip on which the positive half-waves of two target periods appear as bars, cut from the bar
/// artwork. The phase moves on by one frame with every drawing pass, whatever caused the pass.
/// Thread: main. Owns: a reference to the frame shown.
class StrobeView final : public QWidget, public AccessibleReadout {
    Q_OBJECT
public:
    explicit StrobeView(ImageLibrary& images, QWidget* parent = nullptr);

    void setSampleRate(float hz) { mPattern.setSampleRate(hz); }
    void setFrequency(float hz) { mPattern.setFrequency(hz); } ///< the target
    /// Null: only the background shows. The same object again does nothing.
    void setData(FrameRef frame);
    void setPeak(float amplitude) { mPeak = amplitude; } ///< stored, not used in drawing

    float peak() const { return mPeak; }
    QString accessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawBars(QPainter& painter, const QRectF& bounds);
    void composeBars(QSize pixels);

    const ImageRef mBackgroundImage;
    const ImageRef mBarImage;
    const QSizeF mBarSize; ///< [points] of the bar artwork
    StrobePattern mPattern;
    FrameRef mData;
    float mPeak = 0;
    QImage mBars; ///< the off-screen image, kept to save its allocation
    FocusRing mFocusRing{*this};
};

} // namespace veltrano
