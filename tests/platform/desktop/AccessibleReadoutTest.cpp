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
    QString accessibleValue() const override { return value; }
    std::optional<AccessibleRange> accessibleRange() const override { return range; }
    void set(const QString& text) {
        value = text;
        accessibleValueChanged();
    }

    QString value;
    std::optional<AccessibleRange> range;
};

QStringList gValues;
int gNames = 0;
int gNumbers = 0;
void keepEvent(QAccessibleEvent* event) {
    if (event->type() == QAccessible::NameChanged) ++gNames;
    if (event->type() == QAccessible::ValueChanged) ++gNumbers;
    if (event->type() != QAccessible::TextUpdated) return;
    gValues += static_cast<QAccessibleTextUpdateEvent*>(event)->textInserted();
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

TEST(AccessibleReadout, IsATextAndAScaleIsANumber) {
    Readout readout;
    readout.set("+12.3");
    QAccessibleInterface* seen = QAccessible::queryAccessibleInterface(&readout);
    QAccessibleTextInterface* text = seen->textInterface();
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->characterCount(), 5);
    EXPECT_EQ(text->text(0, 5), "+12.3");
    EXPECT_EQ(text->text(1, 3), "12");
    EXPECT_EQ(seen->valueInterface(), nullptr);
    readout.range = AccessibleRange{-50, 50, 12.3};
    QAccessibleValueInterface* number = seen->valueInterface();
    ASSERT_NE(number, nullptr);
    EXPECT_EQ(number->currentValue(), 12.3);
    EXPECT_EQ(number->minimumValue(), -50.0);
    EXPECT_EQ(number->maximumValue(), 50.0);
}

TEST(AccessibleReadout, IsSeenAsOneEvenBeforeAnyoneAskedForIt) {
    Readout readout;
    // What a desktop's accessibility does while an interface file is being read.
    readout.setAccessibleName("Cents");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&readout)->role(), QAccessible::StaticText);
}

TEST(AccessibleReadout, AFollowerSaysThatItChanged) {
    AccessibleReadout::setListener({[] { return true; }, keepEvent});
    gValues.clear();
    Readout member;
    {
        Readout brief;
        member.addFollower(brief);
    }
    Readout group;
    member.addFollower(group);
    group.value = "of all";
    member.set("of one");
    runFor(20);
    EXPECT_EQ(gValues, (QStringList{"of all", "of one"}));
    AccessibleReadout::setListener({});
}

TEST(AccessibleReadout, WhatReadsTheSameIsNotHeardAgain) {
    AccessibleReadout::setListener({[] { return true; }, keepEvent});
    gValues.clear();
    Readout readout;
    readout.set("1");
    runFor(20);
    readout.set("1");
    runFor(300);
    EXPECT_EQ(gValues, QStringList{"1"});
    AccessibleReadout::setListener({});
}

TEST(AccessibleReadout, OnlyAScaleTellsOfANewNumber) {
    AccessibleReadout::setListener({[] { return true; }, keepEvent});
    gNumbers = 0;
    Readout readout;
    readout.set("1");
    runFor(20);
    EXPECT_EQ(gNumbers, 0) << "the desktop's bridge complains of a value where there is no number";
    readout.range = AccessibleRange{0, 10, 2};
    readout.set("2");
    runFor(300);
    EXPECT_EQ(gNumbers, 1);
    AccessibleReadout::setListener({});
}

TEST(AccessibleReadout, ChangesAreHeardAtMostFourTimesASecondTheLastAlways) {
    AccessibleReadout::setListener({[] { return true; }, keepEvent});
    gValues.clear();
    gNames = 0;
    Readout readout;
    QElapsedTimer elapsed;
    elapsed.start();
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
    EXPECT_LE(gValues.size(), 1 + elapsed.elapsed() / 250) << "however slow the machine is";
    EXPECT_EQ(gNames, gValues.size());
    AccessibleReadout::setListener({[] { return false; }, keepEvent});
    readout.set("unheard");
    runFor(300);
    EXPECT_EQ(gValues.last(), "last");
    AccessibleReadout::setListener({});
}

} // namespace
} // namespace veltrano
