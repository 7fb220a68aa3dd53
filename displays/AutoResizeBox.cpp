// SPDX-License-Identifier: GPL-3.0-or-later
// A panel behind other views.
#include "displays/AutoResizeBox.h"

#include "platform/desktop/Appearance.h"

#include <QPainter>

namespace veltrano {

AutoResizeBox::AutoResizeBox(QWidget* parent)
    : ScaledContent(parent), AccessibleReadout(*this, QAccessible::StaticText) {}

// Only now are the views there that stand behind it in the interface file.
void AutoResizeBox::showEvent(QShowEvent* event) {
    ScaledContent::showEvent(event);
    if (mGroup || !parentWidget()) return;
    std::vector<QWidget*> members;
    for (const QString& name : mReadouts) {
        if (auto* member = parentWidget()->findChild<QWidget*>(name)) members.push_back(member);
    }
    mGroup.emplace(members, *this);
    accessibleValueChanged();
}

QString AutoResizeBox::accessibleValue() const {
    using enum ReadoutGroup::Joining;
    return mGroup ? mGroup->value(mIsList ? list : words) : QString();
}

void AutoResizeBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!mIsPlain) paintPanel(painter);
    mFocusRing.paint(painter);
}

void AutoResizeBox::paintPanel(QPainter& painter) const {
    constexpr double kHalfLine = 0.5;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    useContentCoordinates(painter);
    painter.setPen(QPen(Appearance::hairlineColor(palette()), 2 * kHalfLine));
    painter.setBrush(palette().color(QPalette::Base));
    const QRectF outline =
        QRectF(QPointF(), contentSize()).adjusted(kHalfLine, kHalfLine, -kHalfLine, -kHalfLine);
    painter.drawRoundedRect(outline, mRadius, mRadius);
    painter.restore();
}

} // namespace veltrano
