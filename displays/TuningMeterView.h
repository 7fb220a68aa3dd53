// SPDX-License-Identifier: GPL-3.0-or-later
// The needle meter.
#pragma once

#include "displays/Dial.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/FocusRing.h"
#include "platform/desktop/ImageLibrary.h"

#include <QWidget>

namespace veltrano {

/// A dial whose needle moves sideways with the deviation. Thread: main.
class TuningMeterView final : public QWidget, public AccessibleReadout {
    Q_OBJECT
public:
    explicit TuningMeterView(ImageLibrary& images, QWidget* parent = nullptr);

    // Equal values do nothing.
    void setCent(float cents);
    void setThreshold(long cents); ///< in tune below this
    void setEnabled(bool enabled); ///< whether there is a needle; hides QWidget's, kept interactive

    QString accessibleValue() const override;
    std::optional<AccessibleRange> accessibleRange() const override; ///< [cents]

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void drawNeedle(QPainter& painter, const dial::Pose& pose) const;
    const ImageRef& imageOf(dial::Needle needle) const;

    const ImageRef mDialImage;
    const ImageRef mScaleImage;
    const ImageRef mNeedleImage;
    const ImageRef mInTuneNeedleImage;
    const ImageRef mEndStopNeedleImage;
    float mCent = 0;
    long mThreshold = dial::kDefaultThreshold;
    bool mEnabled = false;
    FocusRing mFocusRing{*this};
};

} // namespace veltrano
