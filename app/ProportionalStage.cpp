// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps what a window shows in proportion while the window takes any size.
#include "app/ProportionalStage.h"

#include "displays/WidgetFrame.h"
#include "platform/desktop/EventLoopTimer.h"
#include "platform/desktop/WindowPlacement.h"

#include <QGuiApplication>
#include <QScreen>
#include <cmath>
#include <utility>

namespace veltrano {

namespace {

// Asks the window system, because no key reaches the program while the frame is dragged.
ResizeKeys keysHeldNow() {
    const Qt::KeyboardModifiers keys = QGuiApplication::queryKeyboardModifiers();
    return {.alt = keys.testFlag(Qt::AltModifier), .shift = keys.testFlag(Qt::ShiftModifier)};
}

QSize rounded(Extent size) {
    return {static_cast<int>(std::lround(size.width)), static_cast<int>(std::lround(size.height))};
}

// Rounding to whole points leaves a size that is off the proportions by less than a point.
bool isClose(Extent a, Extent b) {
    return std::abs(a.width - b.width) < 1 && std::abs(a.height - b.height) < 1;
}

} // namespace

ProportionalStage::ProportionalStage(std::unique_ptr<QWidget> contents,
                                     std::unique_ptr<OneShotTimer> timer, QWidget* parent)
    : QWidget(parent), mContents(contents.release()), mMinimum(extentOf(mContents->size())),
      mTimer(timer ? std::move(timer) : std::make_unique<EventLoopTimer>()),
      mKeysSource(keysHeldNow) {
    mContents->setParent(this);
    mContents->setMinimumSize(0, 0);
    setMinimumSize(rounded(mMinimum));
}

ProportionalStage::~ProportionalStage() { mTimer->cancel(); }

QSize ProportionalStage::sizeHint() const { return rounded(mMinimum); }

void ProportionalStage::resizeEvent(QResizeEvent*) {
    mKeys = mKeysSource();
    layOut();
    mTimer->start(kSettleMilliseconds, [this] { settle(); });
}

void ProportionalStage::layOut() {
    const Extent wanted = proposedSize(mMinimum, extentOf(size()), mKeys);
    const QSize taken = isClose(wanted, extentOf(size())) ? size() : rounded(wanted);
    const QSize spare = size() - taken;
    mContents->setGeometry(spare.width() / 2, spare.height() / 2, taken.width(), taken.height());
}

void ProportionalStage::settle() {
    const Extent wanted = proposedSize(mMinimum, extentOf(size()), mKeys);
    QWidget* frame = window();
    const QScreen* screen = frame->screen();
    if (screen == nullptr) return;
    const QRect available = screen->availableGeometry();
    if (!isFloating(frame->windowState(), frame->frameGeometry(), available)) return;
    if (isClose(wanted, extentOf(size()))) return;
    frame->resize(frame->size() + rounded(wanted) - size());
}

} // namespace veltrano
