// SPDX-License-Identifier: GPL-3.0-or-later
// Shows which view has the keyboard focus.
#include "platform/desktop/FocusRing.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QWidget>

namespace veltrano {

namespace {

void paintFrame(QPainter& painter, const QRectF& bounds, double inset, double width,
                const QColor& color) {
    const double middle = inset + width / 2;
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(bounds.adjusted(middle, middle, -middle, -middle));
}

bool movesFocus(const QKeyEvent& key) {
    return key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab || key.key() == Qt::Key_F6;
}

} // namespace

FocusRing::FocusRing(QWidget& view) : mView(view) { view.installEventFilter(this); }

bool FocusRing::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        switch (static_cast<QFocusEvent*>(event)->reason()) {
        case Qt::ActiveWindowFocusReason: // as it was when the focus left
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            break;
        case Qt::MouseFocusReason:
            mIsByKeys = false;
            break;
        default:
            mIsByKeys = true;
        }
    } else if (event->type() == QEvent::KeyPress && movesFocus(*static_cast<QKeyEvent*>(event))) {
        mIsByKeys = true; // also where there is no other view to go to
        mView.update();
    }
    return false;
}

bool FocusRing::isShown() const { return mIsByKeys && mView.hasFocus(); }

void FocusRing::paint(QPainter& painter) const {
    if (!isShown()) return;
    painter.save();
    painter.resetTransform();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
    const QPalette& palette = mView.palette();
    paintFrame(painter, mView.rect(), 0, kWidth, palette.color(QPalette::Highlight));
    paintFrame(painter, mView.rect(), kWidth, kEdge, palette.color(QPalette::Window));
    painter.restore();
}

} // namespace veltrano
