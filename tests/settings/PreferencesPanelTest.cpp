// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences panel: loaded or not, shown, closed, gone.
#include "tests/settings/PanelWindowTestBase.h"

#include <QCheckBox>
#include <QLabel>
#include <QRadioButton>
#include <QSlider>

namespace veltrano {
namespace {

class PreferencesPanelTest : public PanelWindowTestBase {
protected:
    QByteArray shippedFile() const {
        QFile file(QDir(shipped).filePath("VeltranoPrefs.ui"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
    void write(const QByteArray& contents) {
        QFile file(QDir(folder.path()).filePath("VeltranoPrefs.ui"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(contents);
    }
    void expectOneFailure() {
        panel->showPanel();
        EXPECT_EQ(std::exchange(log.lines, {}), Lines{"Failed to load VeltranoPrefs.nib"});
        EXPECT_EQ(std::exchange(beeps, 0), 1);
        EXPECT_EQ(panel->window(), nullptr);
        EXPECT_TRUE(loaded.empty());
    }
    bool isChecked(const char* name) { return control<QAbstractButton>(name).isChecked(); }
    int selected(const char* name) { return control<QComboBox>(name).currentIndex(); }

    QTemporaryDir folder;
};

TEST_F(PreferencesPanelTest, IsLoadedWhenItIsFirstShownAndOnlyThen) {
    EXPECT_EQ(panel->window(), nullptr);
    panel->showPanel();
    QWidget* window = panel->window();
    ASSERT_TRUE(window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(loaded, std::vector<QWidget*>{window});
    window->close();
    EXPECT_FALSE(window->isVisible());
    panel->showPanel();
    EXPECT_EQ(panel->window(), window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(loaded.size(), 1u);
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(beeps, 0);
}

TEST_F(PreferencesPanelTest, ComesToTheFrontAlsoWhenItWasMinimised) {
    show();
    panel->window()->showMinimized();
    panel->showPanel();
    EXPECT_FALSE(panel->window()->isMinimized());
    EXPECT_TRUE(panel->window()->isVisible());
    EXPECT_TRUE(panel->window()->isActiveWindow());
}

TEST_F(PreferencesPanelTest, WithoutAGoodFileEachCallLogsBeepsAndTriesAgain) {
    makePanel(ResourceFolder(folder.path()));
    expectOneFailure();
    expectOneFailure();
    write("gone");
    expectOneFailure();
    write("");
    expectOneFailure();
    write(shippedFile());
    panel->showPanel();
    ASSERT_TRUE(panel->window());
    EXPECT_TRUE(panel->window()->isVisible());
    EXPECT_TRUE(log.lines.empty());
    EXPECT_EQ(beeps, 0);
}

constexpr const char* kControls[] = {"mTabView",
                                     "mReferencePitchText",
                                     "mTuningPopUpButton",
                                     "mTonicPopUpButton",
                                     "mStretchPopUpButton",
                                     "mInTuneThresholdText",
                                     "mManualModeCheckbox",
                                     "mInTuneThresholdSlider",
                                     "mNoteRadioButton",
                                     "mPitchRadioButton",
                                     "mNotePopUpButton",
                                     "mOctavePopUpButton",
                                     "mPitchText",
                                     "mSoundBackCheckbox",
                                     "mSoundBackDurationText",
                                     "mSoundBackVolumeText",
                                     "mSoundBackDurationSlider",
                                     "mSoundBackVolumeSlider",
                                     "mSoundBackWaveformPopUpButton",
                                     "mOutputDevicePopUpButton",
                                     "mInputDevicePopUpButton",
                                     "mInputVolumeSlider",
                                     "mInputVolumeText",
                                     "soundSettingsButton"};

TEST_F(PreferencesPanelTest, AFileThatLacksAControlIsRefusedAndTheControlNamed) {
    makePanel(ResourceFolder(folder.path()));
    for (const char* name : kControls) {
        SCOPED_TRACE(name);
        const QByteArray named = QByteArray("name=\"") + name + '"';
        QByteArray without = shippedFile();
        ASSERT_EQ(without.count(named), 1);
        write(without.replace(named, "name=\"other\""));
        log.details.clear();
        expectOneFailure();
        ASSERT_EQ(log.details.size(), 1u);
        EXPECT_TRUE(log.details[0].ends_with(std::string(": no control named ") + name))
            << log.details[0];
    }
}

TEST_F(PreferencesPanelTest, AControlOfAnotherClassIsNone) {
    QByteArray other = shippedFile();
    other.replace("class=\"QSlider\" name=\"mInputVolumeSlider\"",
                  "class=\"QProgressBar\" name=\"mInputVolumeSlider\"");
    makePanel(ResourceFolder(folder.path()));
    write(other);
    expectOneFailure();
}

TEST_F(PreferencesPanelTest, TheFirstTabIsInFrontWhateverTheFileSays) {
    QByteArray other = shippedFile();
    const QByteArray first = "<property name=\"currentIndex\"><number>0</number>";
    ASSERT_EQ(other.count(first), 1);
    write(other.replace(first, "<property name=\"currentIndex\"><number>2</number>"));
    makePanel(ResourceFolder(folder.path()));
    panel->showPanel();
    ASSERT_TRUE(panel->window());
    EXPECT_EQ(panel->window()->findChild<QTabWidget*>("mTabView")->currentIndex(), 0);
}

TEST_F(PreferencesPanelTest, ATabThatWasLeftInFrontIsSoTheNextTime) {
    show();
    control("mSoundBackCheckbox");
    panel->window()->close();
    panel->showPanel();
    EXPECT_EQ(panel->window()->findChild<QTabWidget*>("mTabView")->currentIndex(), 2);
}

TEST_F(PreferencesPanelTest, ShowsTheSettingsWhenItIsLoaded) {
    Preferences& settings = *preferences;
    settings.setReferencePitch(442.5);
    settings.setTuningForFileName("Vallotti.temperament");
    settings.setTonic(2);
    settings.setStretchForFileName("Upright.stretch");
    settings.setInTuneThreshold(1);
    settings.setManualMode(true);
    settings.setManualType(1);
    settings.setManualNote(40);
    settings.setManualPitch(466.25);
    settings.setSoundBack(true);
    settings.setSoundBackDuration(2.5F);
    settings.setSoundBackVolume(35);
    settings.setSoundBackWaveform(3);
    forget();
    panel->showPanel();
    ASSERT_TRUE(panel->window());
    mainThread.runAll();
    EXPECT_EQ(posted, Names{}) << "nothing is changed by being shown";
    EXPECT_EQ(generator.calls, Names{});
    EXPECT_EQ(heard, Names{});

    EXPECT_EQ(control<NumberField>("mReferencePitchText").text(), "442.5 Hz");
    EXPECT_EQ(selected("mTuningPopUpButton"), 3);
    EXPECT_EQ(control<QComboBox>("mTonicPopUpButton").currentText(), "D (295.248034Hz)");
    EXPECT_EQ(selected("mStretchPopUpButton"), 2);
    EXPECT_EQ(control<QLabel>("mInTuneThresholdText").text(), QString::fromUtf8("\u00B11 cent"));
    EXPECT_EQ(control<QSlider>("mInTuneThresholdSlider").value(), 1);
    EXPECT_TRUE(isChecked("mManualModeCheckbox"));
    EXPECT_TRUE(isChecked("mPitchRadioButton"));
    EXPECT_FALSE(isChecked("mNoteRadioButton"));
    EXPECT_EQ(control<QComboBox>("mNotePopUpButton").currentText(), "E");
    EXPECT_EQ(control<QComboBox>("mOctavePopUpButton").currentText(), "3");
    EXPECT_EQ(control<NumberField>("mPitchText").text(), "466.25 Hz");
    EXPECT_TRUE(isChecked("mSoundBackCheckbox"));
    EXPECT_EQ(control<QLabel>("mSoundBackDurationText").text(), "2.5 sec");
    EXPECT_EQ(control<QSlider>("mSoundBackDurationSlider").value(), 25);
    EXPECT_EQ(control<QLabel>("mSoundBackVolumeText").text(), "35");
    EXPECT_EQ(control<QSlider>("mSoundBackVolumeSlider").value(), 35);
    EXPECT_EQ(control<QComboBox>("mSoundBackWaveformPopUpButton").currentText(), "Square");
    EXPECT_EQ(control<QComboBox>("mInputDevicePopUpButton").currentText(), "M : A");
    EXPECT_EQ(control<QComboBox>("mOutputDevicePopUpButton").currentText(), "M : C");
    EXPECT_EQ(control<QSlider>("mInputVolumeSlider").value(), 50);
    EXPECT_EQ(control<QLabel>("mInputVolumeText").text(), "50");
}

TEST_F(PreferencesPanelTest, WithoutUnitsTheDeviceMenusAreEmptyAndTheInputVolumeIsZero) {
    input.reset();
    output.reset();
    makePanel(ResourceFolder(shipped));
    show();
    EXPECT_EQ(control<QComboBox>("mInputDevicePopUpButton").count(), 0);
    EXPECT_EQ(control<QComboBox>("mOutputDevicePopUpButton").count(), 0);
    EXPECT_EQ(control<QSlider>("mInputVolumeSlider").value(), 0);
    EXPECT_EQ(control<QLabel>("mInputVolumeText").text(), "0");
}

TEST_F(PreferencesPanelTest, ADeviceWithoutAWritableVolumeShowsADisabledSliderAtAHundred) {
    input->setInputDeviceWithName("M : B");
    show();
    EXPECT_FALSE(control<QSlider>("mInputVolumeSlider").isEnabled());
    EXPECT_EQ(control<QSlider>("mInputVolumeSlider").value(), 100);
    EXPECT_EQ(control<QLabel>("mInputVolumeText").text(), "n/a");
    EXPECT_EQ(control("mInputVolumeSlider").accessibleDescription(), "n/a");
}

TEST_F(PreferencesPanelTest, FixedMenusHoldNotesOctavesAndWaveforms) {
    show();
    const auto titles = [this](const char* name) {
        Names all;
        const auto& menu = control<QComboBox>(name);
        for (int index = 0; index < menu.count(); ++index)
            all.push_back(menu.itemText(index).toStdString());
        return all;
    };
    EXPECT_EQ(titles("mNotePopUpButton"), (Names{"C", "C#/Db", "D", "D#/Eb", "E", "F", "F#/Gb", "G",
                                                 "G#/Ab", "A", "A#/Bb", "B"}));
    EXPECT_EQ(titles("mOctavePopUpButton"), (Names{"8", "7", "6", "5", "4", "3", "2", "1", "0"}));
    EXPECT_EQ(titles("mSoundBackWaveformPopUpButton"),
              (Names{"Sine", "Triangle", "Sawtooth", "Square"}));
}

TEST_F(PreferencesPanelTest, EscapeClosesIt) {
    for (const char* name : {"mReferencePitchText", "mInTuneThresholdSlider", "mTuningPopUpButton",
                             "mManualModeCheckbox", "soundSettingsButton"}) {
        SCOPED_TRACE(name);
        show();
        press(name, {Qt::Key_Escape});
        EXPECT_FALSE(panel->window()->isVisible());
    }
}

TEST_F(PreferencesPanelTest, WhenItIsGoneNobodyTellsItAnything) {
    show();
    panel.reset();
    preferences->setReferencePitch(442);
    preferences->setManualMode(true);
    center.post(notification::kTemperamentSaved);
    hardware.addDevice(microphone("E"));
    hardware.addDevice(loudspeaker("F"));
    hardware.changeVolume(microphoneA, kIn, 1, {0.75f, true});
    mainThread.runAll();
    EXPECT_EQ(preferences->referencePitch(), 442);
    EXPECT_EQ(input->deviceList().size(), 3u);
}

TEST_F(PreferencesPanelTest, WhatIsToBeShownInItLaterIsDroppedWithIt) {
    show();
    hardware.changeVolume(microphoneA, kIn, 1, {0.75f, true}); // shown from the event loop
    panel.reset();
    mainThread.runAll();
    EXPECT_EQ(input->deviceName(), "M : A");
}

TEST_F(PreferencesPanelTest, GoesWithANumberThatIsBeingTyped) {
    show();
    type("mReferencePitchText", "442");
    panel.reset();
    EXPECT_EQ(preferences->referencePitch(), 440);
    EXPECT_EQ(posted, Names{});
}

TEST_F(PreferencesPanelTest, ThatWasNeverShownGoesQuietly) {
    panel.reset();
    preferences->setReferencePitch(442);
    mainThread.runAll();
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace veltrano
