// SPDX-License-Identifier: GPL-3.0-or-later
// The lights.
#include "displays/DotView.h"

#include <QPainter>
#include <algorithm>
#include <utility>

namespace veltrano {

DotView::DotView(QWidget* parent)
    : QWidget(parent), AccessibleReadout(*this, QAccessible::Graphic) {}

void DotView::setImage(ImageRef image) {
    if (image == mImage) return;
    mImage = std::move(image);
    update();
    accessibleValueChanged();
}

QString DotView::colour() const {
    if (!mImage) return {};
    const QString& name = mImage->name();
    const auto size = std::ranges::find_if(name, [](QChar c) { return c.isDigit(); });
    return name.left(std::distance(name.begin(), size));
}

bool DotView::isLit() const { return mImage && colour() != u"gray"; }

QString DotView::accessibleValue() const {
    if (!mImage) return {};
    return isLit() ? meaning(colour()) : tr("off");
}

QString DotView::meaning(const QString&) const { return tr("on"); }

QString InTuneDotView::meaning(const QString& colour) const {
    return colour == u"green" ? tr("yes") : tr("no");
}

QString LevelDotView::meaning(const QString& colour) const {
    if (colour == u"yellow") return tr("peak");
    return colour == u"red" ? tr("overload") : tr("on");
}

void DotView::paintEvent(QPaintEvent*) {
    if (!mImage) return;
    QPainter painter(this);
    mImage->draw(painter, rect());
}

} // namespace veltrano
