// SPDX-License-Identifier: GPL-3.0-or-later
// The controller with its real windows: settings changed in the panel, start, end, proportions.
#include "app/ProportionalStage.h"
#include "displays/AutoResizeTextField.h"
#include "displays/DotView.h"
#include "displays/TuningMeterView.h"
#include "settings/NumberField.h"
#include "tests/app/TunerDesk.h"
#include "tests/support/DrivenTimer.h"

#include <QCheckBox>
#include <QComboBox>
#include <QSlider>
#include <QTabWidget>

namespace veltrano {
namespace {

class ControllerChecklist : public testing::Test {
protected:
    void SetUp() override {
        desk.controller->updateUI(frameOf(toneSamples(99))); // 445.45 Hz, 21.3 cents sharp
        desk.choose(MenuCommand::preferences);
        ASSERT_TRUE(desk.panel->window());
        TunerDesk::activate(*desk.panel->window());
    }
    template <class Widget>
    Widget& control(const char* name) {
        auto* found = desk.panel->window()->findChild<Widget*>(QLatin1String(name));
        auto& tabs = *desk.panel->window()->findChild<QTabWidget*>("mTabView");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            if (tabs.widget(tab)->isAncestorOf(found)) tabs.setCurrentIndex(tab);
        }
        found->setFocus();
        return *found;
    }
    std::string text(TunerText field) { return tuner.text(field); }
    QString tip(TunerText field) { return tuner.outlets().text(field).tip(); }
    QString inTuneLight() { return tuner.outlets().light(TunerLight::inTune).image()->name(); }

    TunerDesk desk;
    TunerWindow& tuner = desk.windows->tuner();
};

TEST_F(ControllerChecklist, AReferencePitchIsShownAndTheReadingWithIt) {
    EXPECT_EQ(text(TunerText::referencePitch), "A4 = 440.000Hz");
    EXPECT_EQ(text(TunerText::cent), "+21.3");
    auto& field = control<NumberField>("mReferencePitchText");
    field.selectAll();
    QTest::keyClicks(&field, "442.5");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(text(TunerText::referencePitch), "A4 = 442.500Hz");
    EXPECT_EQ(text(TunerText::idealFrequency), "442.500");
    EXPECT_EQ(text(TunerText::cent), "+11.5");
}

TEST_F(ControllerChecklist, ANumberThatIsBeingTypedIsTakenOverBeforeACommand) {
    auto& field = control<NumberField>("mReferencePitchText");
    field.selectAll();
    QTest::keyClicks(&field, "442");
    EXPECT_EQ(desk.rig.preferences.referencePitch(), 440);
    QTest::keyClick(&field, Qt::Key_G, Qt::ControlModifier); // no command has it
    EXPECT_EQ(desk.rig.preferences.referencePitch(), 440);
    QTest::keyClick(&field, Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(desk.rig.preferences.referencePitch(), 442);
}

TEST_F(ControllerChecklist, ATemperamentIsNamedAndTheReadingIsByIt) {
    desk.rig.temperaments.entries[0].cents.fill(20);
    EXPECT_EQ(text(TunerText::tuningName), "Equal Tempered");
    EXPECT_TRUE(tip(TunerText::tuningName).startsWith("Equal Tempered.\ncents = (0.000, "));
    QTest::keyClick(&control<QComboBox>("mTuningPopUpButton"), Qt::Key_Down);
    EXPECT_EQ(text(TunerText::tuningName), "name of first");
    EXPECT_EQ(tip(TunerText::tuningName), "description of first");
    EXPECT_EQ(text(TunerText::cent), "+01.3");
}

TEST_F(ControllerChecklist, AStretchIsNamedAndTheReadingIsByIt) {
    desk.rig.stretches.entries[0].cents[57] = 10;
    EXPECT_EQ(text(TunerText::stretchName), "None");
    EXPECT_EQ(tip(TunerText::stretchName), "No Stretch.");
    QTest::keyClick(&control<QComboBox>("mStretchPopUpButton"), Qt::Key_Down);
    EXPECT_EQ(text(TunerText::stretchName), "name of first");
    EXPECT_EQ(tip(TunerText::stretchName), "description of first");
    EXPECT_EQ(text(TunerText::stretchOffset), "+10.000");
    EXPECT_EQ(text(TunerText::cent), "+11.3");
}

TEST_F(ControllerChecklist, AThresholdReachesLightAndMeter) {
    EXPECT_EQ(inTuneLight(), "blue28x28");
    const QImage needle = tuner.outlets().meter->grab().toImage();
    QTest::keyClick(&control<QSlider>("mInTuneThresholdSlider"), Qt::Key_End); // 50 cents
    EXPECT_EQ(inTuneLight(), "green28x28");
    EXPECT_NE(tuner.outlets().meter->grab().toImage(), needle) << "the needle of in tune";
}

TEST_F(ControllerChecklist, ManualModeTakesTheNeedleAndShowsTheTarget) {
    const QImage needle = tuner.outlets().meter->grab().toImage();
    QTest::keyClick(&control<QCheckBox>("mManualModeCheckbox"), Qt::Key_Space);
    EXPECT_NE(tuner.outlets().meter->grab().toImage(), needle);
    EXPECT_EQ(text(TunerText::cent), "--.-");
    EXPECT_EQ(text(TunerText::idealFrequency), "440.000");
    QTest::keyClick(&control<QComboBox>("mOctavePopUpButton"), Qt::Key_Up);
    EXPECT_EQ(text(TunerText::idealFrequency), "880.000");
    QTest::keyClick(&control<QCheckBox>("mManualModeCheckbox"), Qt::Key_Space);
    EXPECT_NE(text(TunerText::idealFrequency), "880.000");
}

TEST_F(ControllerChecklist, AnInputDeviceIsNamedAndItsRateTaken) {
    VirtualDevice line;
    line.manufacturer = "Other";
    line.name = "Line";
    line.input = VirtualDevice::side(48000, 1);
    desk.rig.hardware.addDevice(line);
    desk.rig.mainThread.runPending();
    EXPECT_EQ(text(TunerText::inputDevice), "ACME : Mic");
    QTest::keyClick(&control<QComboBox>("mInputDevicePopUpButton"), Qt::Key_Down);
    EXPECT_EQ(text(TunerText::inputDevice), "Other : Line");
    EXPECT_EQ(desk.controller->sampleRate(), 48000.0f);
    EXPECT_EQ(desk.controller->partialDetector().sampleRate(), 48000.0);
}

TEST_F(ControllerChecklist, HidingEveryWindowFreezesTheDisplaysAndShowingOneResumes) {
    const auto isListening = [this] { return desk.rig.hardware.isStarted(desk.rig.device); };
    std::vector<QWidget*> shown;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible()) shown.push_back(window);
    }
    ASSERT_GE(shown.size(), 5u) << "tuner, partials, scope, keyboard, preferences";
    for (QWidget* window : shown) {
        EXPECT_TRUE(isListening());
        window->showMinimized();
    }
    EXPECT_FALSE(isListening());
    const std::string before = text(TunerText::frequency);
    desk.rig.deliver(toneSamples(100));
    desk.controller->serveFrames();
    EXPECT_EQ(text(TunerText::frequency), before);

    tuner.showNormal();
    EXPECT_TRUE(isListening());
    desk.rig.deliver(toneSamples(100));
    desk.controller->serveFrames();
    EXPECT_EQ(text(TunerText::frequency), "441.000");
}

TEST(ControllerStartAndEnd, WindowsComeBackAsTheyWereAndTheTunerHasTheFocus) {
    using enum AnalysisWindowKind;
    UserDefaults stored = UserDefaults::inMemory();
    stored.setInteger("morvane.key.Tonic", 0);
    stored.setBool("morvane.key.HilbertScope", false);
    TunerDesk desk(std::move(stored));
    EXPECT_TRUE(desk.window(partials).isVisible());
    EXPECT_FALSE(desk.window(hilbert).isVisible());
    EXPECT_TRUE(desk.window(piano).isVisible());
    EXPECT_TRUE(desk.windows->tuner().isActiveWindow());
    EXPECT_EQ(desk.windows->help().window(), nullptr) << "not the first launch";

    desk.window(partials).close();
    desk.choose(MenuCommand::showHilbertScope);
    desk.window(piano).showMinimized();
    desk.controller->applicationWillTerminate();
    EXPECT_FALSE(desk.rig.defaults.boolForKey("morvane.key.Partials"));
    EXPECT_TRUE(desk.rig.defaults.boolForKey("morvane.key.HilbertScope"));
    EXPECT_FALSE(desk.rig.defaults.boolForKey("morvane.key.PianoKeyboard"));
    EXPECT_FALSE(desk.rig.hardware.isStarted(desk.rig.device));
}

TEST(ControllerStartAndEnd, TheFirstLaunchShowsEveryWindowAndTheHelp) {
    using enum AnalysisWindowKind;
    TunerDesk desk;
    for (const AnalysisWindowKind kind : {partials, hilbert, piano})
        EXPECT_TRUE(desk.window(kind).isVisible());
    ASSERT_TRUE(desk.windows->help().window());
    EXPECT_TRUE(desk.windows->help().window()->isVisible());
}

TEST(TunerWindowProportions, AreKeptAsTheKeysSay) {
    RecordingLog log;
    const ResourceFolder resources(QStringLiteral(VELTRANO_SOURCE_RESOURCES));
    ImageLibrary images(resources.images(), log);
    auto timer = std::make_unique<DrivenTimer>();
    DrivenTimer& settled = *timer;
    const auto window = TunerWindow::create(resources, images, log, std::move(timer));
    ResizeKeys keys;
    ProportionalStage& stage = window->stage();
    stage.setKeysSource([&keys] { return keys; });
    window->show();
    QApplication::processEvents();
    const QSize around = window->size() - stage.size(); // of whatever lies above the stage
    const QSizeF least(stage.minimum().width, stage.minimum().height);
    const struct {
        const char* name;
        ResizeKeys keys;
        QSizeF times, settled; ///< of the minimum size
    } kRows[] = {
        {"1.25 times", {}, {1.25, 1.25}, {1.25, 1.25}},
        {"the lesser ratio decides", {}, {1.4, 1.1}, {1.1, 1.1}},
        {"Option snaps 1.7 times to 1", {.alt = true}, {1.7, 1.7}, {1, 1}},
        {"Shift keeps the proposed size", {.shift = true}, {1.3, 1.1}, {1.3, 1.1}},
        {"Option goes before Shift", {.alt = true, .shift = true}, {1.7, 1.2}, {1, 1}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        const auto sized = [&](QSizeF times) {
            return QSizeF(least.width() * times.width(), least.height() * times.height()).toSize();
        };
        keys = row.keys;
        window->resize(sized(row.times) + around);
        QApplication::processEvents();
        settled.fire();
        QApplication::processEvents();
        const QSize off = stage.size() - sized(row.settled);
        EXPECT_LE(std::abs(off.width()), 1);
        EXPECT_LE(std::abs(off.height()), 1);
    }
}

} // namespace
} // namespace veltrano
