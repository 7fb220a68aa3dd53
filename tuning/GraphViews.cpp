// SPDX-License-Identifier: GPL-3.0-or-later
// The graphs in the windows of temperaments and stretch tables.
#include "tuning/GraphViews.h"

#include "platform/foundation/LenientNumber.h"
#include "tuning/MVStretchDocument.h"
#include "tuning/MVTemperamentDocument.h"
#include "tuning/PitchClass.h"

#include <QPainter>
#include <algorithm>

namespace veltrano {

namespace {

constexpr int kPitchClassA = 9;

QString fromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// "lowest Ab -12.3 cents, highest C +4.0 cents": what a glance at a curve tells.
/// @param nameOf names a column
template <class NameOf>
QString extremesOf(std::span<const double> cents, NameOf nameOf) {
    if (cents.empty()) return {};
    const auto lowest = std::ranges::min_element(cents);
    const auto highest = std::ranges::max_element(cents);
    const QString least = fromUtf8(signedDecimals(*lowest, 1));
    const QString most = fromUtf8(signedDecimals(*highest, 1));
    if (least == most) return GraphView::tr("all %1 cents").arg(least);
    const auto name = [&](auto at) { return nameOf(static_cast<int>(at - cents.begin())); };
    return GraphView::tr("lowest %1 %2 cents, highest %3 %4 cents")
        .arg(name(lowest), least, name(highest), most);
}

} // namespace

GraphView::GraphView(QWidget* parent)
    : QWidget(parent), AccessibleReadout(static_cast<QWidget&>(*this), QAccessible::Chart) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void GraphView::refresh() {
    update();
    accessibleValueChanged();
}

void GraphView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    graph().paint(painter, width(), height());
    mFocusRing.paint(painter);
}

CentGraph TemperamentGraphView::graphOf(const MVTemperamentDocument& document) {
    const Temperament& values = document.values();
    CentGraph graph;
    for (int row = 0; row < kPitchClasses; ++row)
        graph.columns.push_back({CentGraph::grid(), fromUtf8(values.noteName(row))});
    graph.cents = values.cents();
    return graph;
}

void TemperamentGraphView::setTemperamentDocument(const MVTemperamentDocument* document) {
    mTemperamentDocument = document;
    refresh();
}

CentGraph TemperamentGraphView::graph() const {
    if (mTemperamentDocument) return graphOf(*mTemperamentDocument);
    return {std::vector<CentGraph::Column>(kPitchClasses, {CentGraph::grid(), {}}), {}};
}

QString TemperamentGraphView::accessibleValue() const {
    if (!mTemperamentDocument) return {};
    const Temperament& values = mTemperamentDocument->values();
    return extremesOf(values.cents(), [&](int row) { return fromUtf8(values.noteName(row)); });
}

CentGraph StretchGraphView::graphOf(const MVStretchDocument& document) {
    CentGraph graph;
    for (int key = 0; key < kKeys; ++key) {
        const bool isA = key % kPitchClasses == kPitchClassA;
        graph.columns.push_back({isA ? QColor(Qt::black) : CentGraph::grid(),
                                 isA ? QStringLiteral("A%1").arg(key / kPitchClasses) : QString()});
    }
    graph.cents = document.stretchDoubles();
    return graph;
}

void StretchGraphView::setStretchDocument(const MVStretchDocument* document) {
    mStretchDocument = document;
    refresh();
}

CentGraph StretchGraphView::graph() const {
    if (mStretchDocument) return graphOf(*mStretchDocument);
    return {std::vector<CentGraph::Column>(kKeys, {CentGraph::grid(), {}}), {}};
}

QString StretchGraphView::accessibleValue() const {
    if (!mStretchDocument) return {};
    return extremesOf(mStretchDocument->stretchDoubles(), [](int key) {
        return fromUtf8(MVStretchDocument::noteName(key % kPitchClasses)) +
               QString::number(key / kPitchClasses);
    });
}

} // namespace veltrano
