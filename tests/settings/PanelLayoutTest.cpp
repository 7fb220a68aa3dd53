// SPDX-License-Identifier: GPL-3.0-or-later
// The panel as its interface file lays it out: ranges, names, mnemonics, the keyboard's way round.
#include "tests/settings/PanelWindowTestBase.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSet>
#include <QSlider>
#include <QTabBar>

namespace veltrano {
namespace {

constexpr int kTabs = 4;

class PanelLayoutTest : public PanelWindowTestBase {
protected:
    void SetUp() override { show(); }

    QTabWidget& tabs() { return *panel->window()->findChild<QTabWidget*>("mTabView"); }

    /// The texts with mnemonics that are in reach while a tab is in front.
    QStringList textsWithMnemonics(int tab) {
        QStringList texts;
        for (int each = 0; each < tabs().count(); ++each)
            texts.append(tabs().tabText(each));
        for (const QLabel* label : tabs().widget(tab)->findChildren<QLabel*>()) {
            if (label->buddy()) texts.append(label->text());
        }
        for (const QAbstractButton* button : tabs().widget(tab)->findChildren<QAbstractButton*>())
            texts.append(button->text());
        return texts;
    }
    /// The controls of a tab that can have the focus.
    QList<QWidget*> controlsOf(int tab) {
        QList<QWidget*> controls;
        for (QWidget* widget : tabs().widget(tab)->findChildren<QWidget*>()) {
            if ((widget->focusPolicy() & Qt::TabFocus) && widget->isVisibleTo(tabs().widget(tab)) &&
                !widget->focusProxy() && widget->objectName().size() > 0 &&
                !widget->objectName().startsWith("qt_"))
                controls.append(widget);
        }
        return controls;
    }
};

TEST_F(PanelLayoutTest, NumbersHaveRangesThatCoverTheSettings) {
    const struct {
        const char* name;
        double least, most, step;
    } kFields[] = {{"mReferencePitchText", 20, 2000, 0.1}, {"mPitchText", 10, 20000, 0.1}};
    for (const auto& row : kFields) {
        SCOPED_TRACE(row.name);
        const auto& field = control<NumberField>(row.name);
        EXPECT_EQ(field.minimum(), row.least);
        EXPECT_EQ(field.maximum(), row.most);
        EXPECT_EQ(field.singleStep(), row.step);
        EXPECT_EQ(field.decimals(), 6);
    }
    const struct {
        const char* name;
        int least, most, step, page;
    } kSliders[] = {{"mInTuneThresholdSlider", 0, 50, 1, 5},     // cents
                    {"mSoundBackDurationSlider", 1, 100, 1, 10}, // tenths of a second
                    {"mSoundBackVolumeSlider", 0, 100, 1, 10},   // percent
                    {"mInputVolumeSlider", 0, 100, 1, 10}};
    for (const auto& row : kSliders) {
        SCOPED_TRACE(row.name);
        const auto& slider = control<QSlider>(row.name);
        EXPECT_EQ(slider.minimum(), row.least);
        EXPECT_EQ(slider.maximum(), row.most);
        EXPECT_EQ(slider.singleStep(), row.step);
        EXPECT_EQ(slider.pageStep(), row.page);
    }
}

TEST_F(PanelLayoutTest, EveryTenthOfASecondIsStoredAsItIsShown) {
    auto& slider = control<QSlider>("mSoundBackDurationSlider");
    for (int tenths = slider.minimum(); tenths <= slider.maximum(); ++tenths) {
        slider.setValue(tenths);
        const std::string shown =
            std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " sec";
        EXPECT_EQ(control<QLabel>("mSoundBackDurationText").text().toStdString(), shown);
        EXPECT_EQ(slider.value(), tenths);
    }
}

TEST_F(PanelLayoutTest, MnemonicsAreUniqueOnEachTab) {
    ASSERT_EQ(tabs().count(), kTabs);
    for (int tab = 0; tab < kTabs; ++tab) {
        SCOPED_TRACE(tab);
        QSet<QChar> letters;
        for (const QString& text : textsWithMnemonics(tab)) {
            const auto at = text.indexOf(u'&');
            ASSERT_GE(at, 0) << text.toStdString();
            const QChar letter = text.at(at + 1).toLower();
            EXPECT_FALSE(letters.contains(letter)) << text.toStdString();
            letters.insert(letter);
        }
    }
}

TEST_F(PanelLayoutTest, MnemonicsLeadToTheTabsAndToTheControlsOfTheirLabels) {
    for (int tab = 0; tab < kTabs; ++tab) {
        tabs().setCurrentIndex((tab + 1) % kTabs);
        const QString title = tabs().tabText(tab);
        const QChar letter = title.at(title.indexOf(u'&') + 1).toLower();
        QTest::keyClick(panel->window(), letter.toLatin1(), Qt::AltModifier);
        EXPECT_EQ(tabs().currentIndex(), tab) << title.toStdString();
    }
    preferences->setManualMode(true);
    for (int tab = 0; tab < kTabs; ++tab) {
        tabs().setCurrentIndex(tab);
        for (QLabel* label : tabs().widget(tab)->findChildren<QLabel*>()) {
            if (!label->buddy() || !label->buddy()->isEnabled()) continue;
            tabs().setFocus();
            const QChar letter = label->text().at(label->text().indexOf(u'&') + 1).toLower();
            QTest::keyClick(panel->window(), letter.toLatin1(), Qt::AltModifier);
            EXPECT_EQ(QApplication::focusWidget(), label->buddy()) << label->text().toStdString();
        }
    }
}

TEST_F(PanelLayoutTest, EveryControlHasANameOfItsOwnAndOneThatIsSpoken) {
    QSet<QString> objectNames;
    for (int tab = 0; tab < kTabs; ++tab) {
        QSet<QString> spoken;
        for (QWidget* widget : controlsOf(tab)) {
            SCOPED_TRACE(widget->objectName().toStdString());
            EXPECT_FALSE(objectNames.contains(widget->objectName()));
            objectNames.insert(widget->objectName());
            const QString name =
                QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty());
            // A radio button is named like the control that it chooses; its role tells them apart.
            if (qobject_cast<QRadioButton*>(widget)) continue;
            EXPECT_FALSE(spoken.contains(name)) << name.toStdString();
            spoken.insert(name);
        }
    }
    EXPECT_EQ(objectNames.size(), 19);
}

TEST_F(PanelLayoutTest, EveryEnabledControlIsReachedWithTheTabKey) {
    preferences->setManualMode(true);
    preferences->setManualType(1);
    preferences->setTuningForFileName("Young.temperament");
    center.post(notification::kTemperamentSaved);
    for (int tab = 0; tab < kTabs; ++tab) {
        tabs().setCurrentIndex(tab);
        tabs().tabBar()->setFocus();
        QSet<QWidget*> reached;
        for (int press = 0; press < 20; ++press) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            reached.insert(QApplication::focusWidget());
        }
        for (QWidget* widget : controlsOf(tab)) {
            // Of radio buttons the checked one takes the focus; the arrows lead to the others.
            const auto* radio = qobject_cast<QRadioButton*>(widget);
            if (radio && !radio->isChecked()) continue;
            EXPECT_TRUE(reached.contains(widget)) << widget->objectName().toStdString();
        }
    }
}

TEST_F(PanelLayoutTest, TheTabsAreChangedByKeys) {
    tabs().tabBar()->setFocus();
    for (const int tab : {1, 2, 3, 3}) {
        QTest::keyClick(tabs().tabBar(), Qt::Key_Right);
        EXPECT_EQ(tabs().currentIndex(), tab);
    }
    QTest::keyClick(&control("mSoundBackCheckbox"), Qt::Key_Tab,
                    Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(tabs().currentIndex(), 1);
}

TEST_F(PanelLayoutTest, TheFocusIsSeenFromTheStart) {
    struct Case {
        QWidget& control;
        const char* name;
    };
    const Case cases[] = {{*tabs().tabBar(), "tab bar"},
                          {control("mReferencePitchText"), "reference pitch"},
                          {control("mInTuneThresholdSlider"), "threshold"}};
    for (const Case& each : cases) {
        SCOPED_TRACE(each.name);
        control("mTuningPopUpButton").setFocus();
        const QImage without = each.control.grab().toImage();
        each.control.setFocus();
        EXPECT_NE(each.control.grab().toImage(), without);
    }
}

TEST_F(PanelLayoutTest, NothingIsCutOffOnAnyTab) {
    for (int tab = 0; tab < kTabs; ++tab) {
        tabs().setCurrentIndex(tab);
        QApplication::processEvents();
        QWidget* page = tabs().widget(tab);
        for (QWidget* widget : page->findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->parentWidget() != page) continue;
            SCOPED_TRACE(widget->objectName().toStdString());
            EXPECT_TRUE(page->rect().contains(widget->geometry()));
            EXPECT_GE(widget->height(), widget->minimumSizeHint().height());
            EXPECT_GE(widget->width(), widget->minimumSizeHint().width());
        }
    }
}

} // namespace
} // namespace veltrano
