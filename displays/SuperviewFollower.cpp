// SPDX-License-Identifier: GPL-3.0-or-later
// Tells a view when what holds it changes its size.
#include "displays/SuperviewFollower.h"

#include <QEvent>
#include <QWidget>
#include <utility>

namespace veltrano {

SuperviewFollower::SuperviewFollower(QWidget& view, Handler onResize)
    : mView(view), mOnResize(std::move(onResize)) {
    superviewChanged();
}

void SuperviewFollower::superviewChanged() {
    QWidget* superview = mView.parentWidget();
    if (superview == mSuperview) return;
    if (mSuperview) mSuperview->removeEventFilter(this);
    mSuperview = superview;
    if (superview == nullptr) return;
    superview->installEventFilter(this);
    mSize = superview->size();
}

bool SuperviewFollower::eventFilter(QObject* watched, QEvent* event) {
    if (watched == mSuperview && event->type() == QEvent::Resize && mSuperview->size() != mSize) {
        const QSize old = std::exchange(mSize, mSuperview->size());
        mOnResize(mSize, old);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace veltrano
