// SPDX-License-Identifier: GPL-3.0-or-later
// A number that is typed or stepped.
#include "settings/NumberField.h"

#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>
#include <vector>

namespace veltrano {
namespace {

class NumberFieldTest : public testing::Test {
protected:
    NumberFieldTest() {
        field.setRange(20, 2000);
        field.setSingleStep(0.1);
        field.setSuffix(" Hz");
        field.showValue(440);
        QObject::connect(&field, &QDoubleSpinBox::valueChanged,
                         [this](double value) { announced.push_back(value); });
        field.show();
        field.activateWindow();
        field.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&field));
    }
    void type(const char* text) {
        field.selectAll();
        QTest::keyClicks(&field, QLatin1String(text));
    }
    void enter() { QTest::keyClick(&field, Qt::Key_Return); }
    std::vector<double> take() { return std::exchange(announced, {}); }

    NumberField field;
    std::vector<double> announced;
};

using Numbers = std::vector<double>;

TEST_F(NumberFieldTest, ShowsAsManyDecimalsAsNeededSixAtMostWithAPoint) {
    const struct {
        double value;
        const char* text;
    } kRows[] = {{440, "440 Hz"},
                 {442.5, "442.5 Hz"},
                 {440.123456, "440.123456 Hz"},
                 {440.1234564, "440.123456 Hz"},
                 {1000, "1000 Hz"},
                 {1999.9999996, "2000 Hz"},
                 {100.000001, "100.000001 Hz"}};
    for (const auto& row : kRows) {
        field.showValue(row.value);
        EXPECT_EQ(field.text(), row.text);
    }
    EXPECT_EQ(announced, Numbers{});
}

TEST_F(NumberFieldTest, UnderstandsPointAndComma) {
    const struct {
        const char *name, *typed;
        double value;
        const char* shown;
    } kRows[] = {{"point", "441.5", 441.5, "441.5 Hz"},
                 {"comma", "442,5", 442.5, "442.5 Hz"},
                 {"six decimals", "440.123456", 440.123456, "440.123456 Hz"},
                 {"six decimals after a comma", "440,654321", 440.654321, "440.654321 Hz"},
                 {"with the unit", "443,25 Hz", 443.25, "443.25 Hz"},
                 {"whole", "444", 444, "444 Hz"}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        type(row.typed);
        enter();
        EXPECT_EQ(field.text(), row.shown);
        EXPECT_EQ(take(), Numbers{row.value});
    }
}

TEST_F(NumberFieldTest, AnnouncesWhenTheNumberIsCompleteAndNotWhileItIsTyped) {
    type("442.5");
    EXPECT_EQ(take(), Numbers{});
    enter();
    EXPECT_EQ(take(), Numbers{442.5});
    enter();
    EXPECT_EQ(take(), Numbers{}) << "nothing is new";
    type("443,5");
    EXPECT_EQ(take(), Numbers{});
    field.clearFocus();
    EXPECT_EQ(take(), Numbers{443.5});
}

TEST_F(NumberFieldTest, StepsByKeysAndAnnouncesEachStep) {
    QTest::keyClick(&field, Qt::Key_Up);
    QTest::keyClick(&field, Qt::Key_Up);
    QTest::keyClick(&field, Qt::Key_Down);
    const Numbers steps = take();
    ASSERT_EQ(steps.size(), 3u);
    EXPECT_DOUBLE_EQ(steps[0], 440.1);
    EXPECT_DOUBLE_EQ(steps[1], 440.2);
    EXPECT_DOUBLE_EQ(steps[2], 440.1);
    type("442,5");
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.text(), "442.6 Hz") << "steps from what was typed";
}

TEST_F(NumberFieldTest, KeysThatMakeNoNumberAreNotTaken) {
    const struct {
        const char *typed, *shown;
    } kRows[] = {{"a", "440 Hz"},        {"-", "440 Hz"},
                 {"4 4", "44 Hz"},       {"1e23", "123 Hz"},
                 {"44,0,5", "44.05 Hz"}, {"44.0.5", "44.05 Hz"},
                 {"44,0.5", "44.05 Hz"}, {"44,1234567", "44.123456 Hz"}};
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.typed);
        field.showValue(440);
        type(row.typed);
        enter();
        EXPECT_EQ(field.text(), row.shown);
    }
}

TEST_F(NumberFieldTest, WhatIsTypedIsKeptToTheRange) {
    type("5");
    enter();
    EXPECT_EQ(field.value(), 440) << "too small: back to what it was";
    type("9999");
    enter();
    EXPECT_EQ(field.value(), 999) << "the last key made it too large";
}

TEST_F(NumberFieldTest, AStoredValueOutsideTheRangeIsShownUnannounced) {
    field.showValue(5.5);
    EXPECT_EQ(field.text(), "5.5 Hz");
    field.showValue(30000);
    EXPECT_EQ(field.text(), "30000 Hz");
    field.showValue(440);
    EXPECT_EQ(field.text(), "440 Hz");
    EXPECT_EQ(announced, Numbers{});
}

TEST_F(NumberFieldTest, AnUntouchedValueIsNotRoundedByGoingThroughTheField) {
    field.showValue(440.12345678);
    enter();
    field.clearFocus();
    EXPECT_EQ(announced, Numbers{});
}

} // namespace
} // namespace veltrano
