// SPDX-License-Identifier: GPL-3.0-or-later
// When the graphs are painted again, and what is told of them.
#include "tuning/GraphViews.h"
#include "tests/support/Pictures.h"
#include "tests/tuning/TuningTestBase.h"

#include <QAccessible>
#include <QTest>
#include <utility>
#include <vector>

namespace veltrano {
namespace {

class GraphViewsTest : public TuningTestBase {};

TEST_F(GraphViewsTest, ADocumentIsShownAsSoonAsItIsSet) {
    MVTemperamentDocument temperament(temperamentPorts());
    MVStretchDocument stretch(stretchPorts());
    TemperamentGraphView temperamentView;
    StretchGraphView stretchView;
    for (QWidget* view :
         {static_cast<QWidget*>(&temperamentView), static_cast<QWidget*>(&stretchView)}) {
        view->resize(400, 200);
        view->show();
    }
    PaintCounter first(temperamentView), second(stretchView);
    first.take();
    second.take();
    EXPECT_EQ(first.take() + second.take(), 0) << "nothing has changed";
    temperamentView.setTemperamentDocument(&temperament);
    stretchView.setStretchDocument(&stretch);
    EXPECT_GT(first.take(), 0);
    EXPECT_GT(second.take(), 0);
    // An edit reaches the view that the document has as its graph.
    stretch.windowControllerDidLoadNib({.graph = &stretchView});
    second.take();
    stretch.setCell(9, 4, "12");
    EXPECT_GT(second.take(), 0);
    stretch.windowControllerDidLoadNib({});
}

std::vector<std::pair<QAccessible::Event, QString>> heard;
void hear(QAccessibleEvent* event) {
    const auto* change = dynamic_cast<const QAccessibleTextUpdateEvent*>(event);
    heard.emplace_back(event->type(), change ? change->textInserted() : QString());
}

TEST_F(GraphViewsTest, ANewValueIsAnnounced) {
    AccessibleReadout::setListener({[] { return true; }, hear});
    MVStretchDocument stretch(stretchPorts());
    StretchGraphView view;
    view.setStretchDocument(&stretch);
    stretch.setCell(9, 4, "12");
    view.refresh();
    QTest::qWait(1);
    AccessibleReadout::setListener({});
    ASSERT_FALSE(heard.empty());
    EXPECT_EQ(heard.back(), std::pair(QAccessible::TextUpdated,
                                  QString("lowest C0 +0.0 cents, highest A4 +12.0 cents")));
}

} // namespace
} // namespace veltrano
