// SPDX-License-Identifier: GPL-3.0-or-later
// What assistive technologies hear.
#include "platform/desktop/AccessibleReadout.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

class Readout : public QWidget, public AccessibleReadout {
public:
    Readout() : AccessibleReadout(*this, QAccessible::StaticText) {}
    QString accessibleValue() const override { return mValue; }
    void set(const QString& value) {
        mValue = value;
        accessibleValueChanged();
    }

private:
    QString mValue;
};

QStringList gValues;
int gNames = 0;
void keepEvent(QAccessibleEvent* event) {
    if (event->type() == QAccessible::NameChanged) ++gNames;
    if (event->type() != QAccessible::ValueChanged) return;
    gValues += static_cast<QAccessibleValueChangeEvent*>(event)->value().toString();
}

void runFor(int milliseconds) {
    QElapsedTimer elapsed;
    elapsed.start();
    while (elapsed.elapsed() < milliseconds)
        QCoreApplication::processEvents();
}

TEST(AccessibleReadout, NameAndValue) {
    AccessibleReadout::install();
    Readout readout;
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&readout);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::StaticText);
    EXPECT_EQ(seen->text(QAccessible::Name), "");
    readout.set("+12.3");
    EXPECT_EQ(seen->text(QAccessible::Name), "+12.3");
    readout.setAccessibleName("Cents");
    EXPECT_EQ(seen->text(QAccessible::Name), "Cents: +12.3");
    EXPECT_EQ(seen->text(QAccessible::Value), "+12.3");
    readout.set("");
    EXPECT_EQ(seen->text(QAccessible::Name), "Cents");
}

TEST(AccessibleReadout, ChangesAreHeardAtMostFourTimesASecondTheLastAlways) {
    AccessibleReadout::setListener({[] { return true; }, keepEvent});
    gValues.clear();
    gNames = 0;
    Readout readout;
    readout.set("1");
    runFor(20);
    ASSERT_EQ(gValues, QStringList{"1"}) << "the first at once";
    for (int i = 2; i < 40; ++i) {
        readout.set(QString::number(i));
        runFor(5);
    }
    readout.set("last");
    runFor(400);
    EXPECT_EQ(gValues.last(), "last");
    EXPECT_LE(gValues.size(), 4);
    EXPECT_EQ(gNames, gValues.size());
    AccessibleReadout::setListener({[] { return false; }, keepEvent});
    readout.set("unheard");
    runFor(300);
    EXPECT_EQ(gValues.last(), "last");
    AccessibleReadout::setListener({});
}

} // namespace
} // namespace veltrano
