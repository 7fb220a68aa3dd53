// SPDX-License-Identifier: GPL-3.0-or-later
// A text that grows with the window.
#pragma once

#include "displays/LineSetter.h"
#include "displays/ScaledContent.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/FocusRing.h"

#include <QString>

namespace veltrano {

/// One line of text, set in the original size of the field and scaled with it. Thread: main.
///
/// Words that do not fit are elided and shown whole in the tool tip; figures that do not fit are
/// made narrower, because a number must never be cut.
class AutoResizeTextField final : public ScaledContent, public AccessibleReadout {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)
    Q_PROPERTY(Qt::Alignment alignment MEMBER mAlignment)
    Q_PROPERTY(Qt::TextElideMode elideMode READ elideMode WRITE setElideMode)
    Q_PROPERTY(int pixelSize READ pixelSize WRITE setPixelSize)
    Q_PROPERTY(int weight READ weight WRITE setWeight)
    Q_PROPERTY(bool figures READ isFigures WRITE setFigures)
    Q_PROPERTY(bool caption MEMBER mIsCaption)
    Q_PROPERTY(double baseline MEMBER mBaseline)
public:
    explicit AutoResizeTextField(QWidget* parent = nullptr);

    const QString& text() const { return mText; }
    void setText(const QString& text); ///< an equal text does nothing
    const QString& tip() const { return mTip; }
    void setTip(const QString& tip); ///< shown below the whole text when that is elided
    QString shownText() const;       ///< elided if need be

    Qt::TextElideMode elideMode() const { return mElideMode; }
    void setElideMode(Qt::TextElideMode mode);
    int pixelSize() const { return mPixelSize; } ///< [points of the original size]
    void setPixelSize(int size);
    int weight() const { return mWeight; } ///< 100 ... 900
    void setWeight(int weight);
    bool isFigures() const { return mIsFigures; }
    void setFigures(bool figures);

    QString accessibleValue() const override { return mText; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    const LineSetter& setter() const;
    void paintText(QPainter& painter) const;
    void styleChanged();
    void updateToolTip();
    QPointF lineStart(double lineWidth) const;

    QString mText;
    QString mTip;
    Qt::Alignment mAlignment = Qt::AlignLeft; ///< left, right or centred
    Qt::TextElideMode mElideMode = Qt::ElideRight;
    int mPixelSize = 12;
    int mWeight = 400;
    bool mIsFigures = false;
    bool mIsCaption = false; ///< in the captions' colour
    double mBaseline = -1;   ///< [points above the bottom] below 0: capitals are centred
    mutable std::optional<LineSetter> mSetter; ///< made anew after a change of style
    FocusRing mFocusRing{*this};
};

} // namespace veltrano
