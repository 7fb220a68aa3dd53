// SPDX-License-Identifier: GPL-3.0-or-later
// The lights.
#include "displays/DotView.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace veltrano {

DotView::DotView(QWidget* parent)
    : QWidget(parent), AccessibleReadout(*this, QAccessible::Indicator) {}

void DotView::setImage(ImageRef image) {
    if (image == mImage) return;
    mImage = std::move(image);
    update();
    accessibleValueChanged();
}

QString DotView::accessibleValue() const {
    if (!mImage) return {};
    const QString& name = mImage->name();
    const auto size = std::ranges::find_if(name, [](QChar c) { return c.isDigit(); });
    return name.left(std::distance(name.begin(), size));
}

void DotView::paintEvent(QPaintEvent*) {
    if (!mImage) return;
    QPainter painter(this);
    mImage->draw(painter, rect());
}

} // namespace veltrano
