// SPDX-License-Identifier: GPL-3.0-or-later
// Every control of the preferences panel, worked by keys and mouse.
#include "tests/settings/PanelWindowTestBase.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>

namespace veltrano {
namespace {

const std::string kPitch(notification::kReferencePitch);
const std::string kTemperament(notification::kTemperamentChanged);
const std::string kRootKey(notification::kRootKeyChanged);
const std::string kStretch(notification::kStretchChanged);
const std::string kThreshold(notification::kInTuneThresholdChanged);
const std::string kManual(notification::kManualModeChanged);

class PanelControlsTest : public PanelWindowTestBase {
protected:
    void SetUp() override { show(); }

    QString text(const char* name) { return control<QLabel>(name).text(); }
    QString item(const char* name, int index) { return control<QComboBox>(name).itemText(index); }
    bool isEnabled(const char* name) { return control(name).isEnabled(); }
    /// Where the box of a check box or a radio button is.
    static QPoint box(const QWidget& button) { return {8, button.height() / 2}; }
    void click(const char* name) {
        QWidget& button = control(name);
        QTest::mouseClick(&button, Qt::LeftButton, {}, box(button));
    }
};

TEST_F(PanelControlsTest, ReferencePitchIsTypedOrStepped) {
    type("mReferencePitchText", "442,5");
    EXPECT_EQ(takePosted(), Names{}) << "not while it is typed";
    EXPECT_EQ(preferences->referencePitch(), 440);
    press("mReferencePitchText", {Qt::Key_Return});
    EXPECT_EQ(takePosted(), Names{kPitch});
    EXPECT_EQ(preferences->referencePitch(), 442.5);
    press("mReferencePitchText", {Qt::Key_Up});
    EXPECT_EQ(takePosted(), Names{kPitch});
    EXPECT_DOUBLE_EQ(preferences->referencePitch(), 442.6);

    type("mReferencePitchText", "441");
    control("mTuningPopUpButton").setFocus();
    EXPECT_EQ(preferences->referencePitch(), 441) << "the number is complete when it is left";
}

TEST_F(PanelControlsTest, ReferencePitchRetitlesAllTwelveRootKeys) {
    EXPECT_EQ(item("mTonicPopUpButton", 0), "C (261.625565Hz)");
    EXPECT_EQ(item("mTonicPopUpButton", 9), "A (440.000000Hz)");
    EXPECT_EQ(item("mTonicPopUpButton", 11), "B (493.883301Hz)");
    QStringList before;
    for (int k = 0; k < 12; ++k)
        before.append(item("mTonicPopUpButton", k));
    type("mReferencePitchText", "442");
    press("mReferencePitchText", {Qt::Key_Return});
    EXPECT_EQ(control<QComboBox>("mTonicPopUpButton").count(), 12);
    for (int k = 0; k < 12; ++k)
        EXPECT_NE(item("mTonicPopUpButton", k), before[k]);
    EXPECT_EQ(item("mTonicPopUpButton", 0), "C (262.814772Hz)");
    EXPECT_EQ(item("mTonicPopUpButton", 9), "A (442.000000Hz)");
}

TEST_F(PanelControlsTest, TemperamentIsChosenByKeysAndByMouse) {
    EXPECT_FALSE(isEnabled("mTonicPopUpButton"));
    press("mTuningPopUpButton", {Qt::Key_Down}); // over the separator
    EXPECT_EQ(takePosted(), Names{kTemperament});
    EXPECT_EQ(preferences->tuning(), 2);
    EXPECT_EQ(preferences->tuningNameString(), "name of Young.temperament");
    EXPECT_TRUE(isEnabled("mTonicPopUpButton"));
    EXPECT_EQ(item("mTonicPopUpButton", 0), "C (261.852345Hz)");

    choose("mTuningPopUpButton", 3);
    EXPECT_EQ(takePosted(), Names{kTemperament});
    EXPECT_EQ(preferences->tuningNameString(), "name of Vallotti.temperament");

    choose("mTuningPopUpButton", 1); // the separator
    EXPECT_EQ(takePosted(), Names{});
    control<QComboBox>("mTuningPopUpButton").hidePopup();

    press("mTuningPopUpButton", {Qt::Key_Home});
    EXPECT_EQ(takePosted(), Names{kTemperament});
    EXPECT_EQ(preferences->tuning(), 0);
    EXPECT_FALSE(isEnabled("mTonicPopUpButton"));
}

TEST_F(PanelControlsTest, RootKeyIsChosenByKeysAndByMouse) {
    preferences->setTuningForFileName("Young.temperament");
    center.post(notification::kTemperamentSaved);
    forget();
    press("mTonicPopUpButton", {Qt::Key_Down, Qt::Key_Down});
    EXPECT_EQ(takePosted(), (Names{kTemperament, kRootKey, kTemperament, kRootKey}));
    EXPECT_EQ(preferences->tonic(), 2);
    choose("mTonicPopUpButton", 9);
    EXPECT_EQ(takePosted(), (Names{kTemperament, kRootKey}));
    EXPECT_EQ(preferences->tonic(), 9);
    EXPECT_EQ(control<QComboBox>("mTonicPopUpButton").currentText(), "A (442.676726Hz)");
    press("mTonicPopUpButton", {Qt::Key_G});
    EXPECT_EQ(preferences->tonic(), 7) << "its letter";
}

TEST_F(PanelControlsTest, StretchIsChosenByKeysAndByMouse) {
    press("mStretchPopUpButton", {Qt::Key_Down});
    EXPECT_EQ(takePosted(), Names{kStretch});
    EXPECT_EQ(preferences->stretchNameString(), "name of Upright.stretch");
    choose("mStretchPopUpButton", 3);
    EXPECT_EQ(takePosted(), Names{kStretch});
    EXPECT_EQ(preferences->stretchNameString(), "name of Grand.stretch");
    choose("mStretchPopUpButton", 0);
    EXPECT_EQ(takePosted(), Names{kStretch});
    EXPECT_EQ(preferences->stretch(), 0);
}

TEST_F(PanelControlsTest, ThresholdFollowsItsSlider) {
    press("mInTuneThresholdSlider", {Qt::Key_Left, Qt::Key_Left});
    EXPECT_EQ(takePosted(), (Names{kThreshold, kThreshold}));
    EXPECT_EQ(preferences->inTuneThreshold(), 1);
    EXPECT_EQ(text("mInTuneThresholdText"), QString::fromUtf8("\u00B11 cent"));
    press("mInTuneThresholdSlider", {Qt::Key_Right});
    EXPECT_EQ(text("mInTuneThresholdText"), QString::fromUtf8("\u00B12 cents"));
    press("mInTuneThresholdSlider", {Qt::Key_Home});
    EXPECT_EQ(text("mInTuneThresholdText"), QString::fromUtf8("\u00B10 cent"));
    EXPECT_EQ(control("mInTuneThresholdSlider").accessibleDescription(),
              QString::fromUtf8("\u00B10 cent"));
    press("mInTuneThresholdSlider", {Qt::Key_PageUp});
    EXPECT_EQ(preferences->inTuneThreshold(), 5);
}

TEST_F(PanelControlsTest, ManualModeEnablesItsControls) {
    const auto enabled = [this] {
        std::string all;
        for (const char* name : {"mNoteRadioButton", "mPitchRadioButton", "mNotePopUpButton",
                                 "mOctavePopUpButton", "mPitchText"})
            all += isEnabled(name) ? '1' : '0';
        return all;
    };
    EXPECT_EQ(enabled(), "00000");
    click("mManualModeCheckbox");
    EXPECT_EQ(takePosted(), Names{kManual});
    EXPECT_TRUE(preferences->manualMode());
    EXPECT_EQ(enabled(), "11110");
    click("mPitchRadioButton");
    EXPECT_EQ(takePosted(), Names{kManual});
    EXPECT_EQ(preferences->manualType(), 1);
    EXPECT_EQ(enabled(), "11111");
    press("mManualModeCheckbox", {Qt::Key_Space});
    EXPECT_EQ(takePosted(), Names{kManual});
    EXPECT_FALSE(preferences->manualMode());
    EXPECT_EQ(enabled(), "00000");
}

TEST_F(PanelControlsTest, NoteOrPitchIsChosenByKeysAndByMouse) {
    preferences->setManualMode(true);
    forget();
    click("mPitchRadioButton");
    EXPECT_EQ(preferences->manualType(), 1);
    EXPECT_EQ(takePosted(), Names{kManual});
    click("mPitchRadioButton");
    EXPECT_EQ(takePosted(), Names{}) << "it is chosen already";
    click("mNoteRadioButton");
    EXPECT_EQ(preferences->manualType(), 0);
    forget();
    press("mNoteRadioButton", {Qt::Key_Down});
    EXPECT_EQ(preferences->manualType(), 1);
    EXPECT_EQ(takePosted(), Names{kManual});
    press("mPitchRadioButton", {Qt::Key_Up});
    EXPECT_EQ(preferences->manualType(), 0);
}

TEST_F(PanelControlsTest, NoteAndOctaveMakeTheKeyAndTheTargetANote) {
    preferences->setManualMode(true);
    preferences->setManualType(1);
    forget();
    press("mNotePopUpButton", {Qt::Key_Down});
    EXPECT_EQ(preferences->manualType(), 0);
    EXPECT_EQ(preferences->manualNote(), 58);
    EXPECT_EQ(takePosted(), (Names{kManual, kManual}));
    EXPECT_TRUE(control<QRadioButton>("mNoteRadioButton").isChecked());
    EXPECT_FALSE(isEnabled("mPitchText"));

    press("mOctavePopUpButton", {Qt::Key_Up});
    EXPECT_EQ(preferences->manualNote(), 70) << "upwards in the menu";
    choose("mOctavePopUpButton", 0);
    choose("mNotePopUpButton", 11);
    EXPECT_EQ(preferences->manualNote(), 107);
    choose("mOctavePopUpButton", 8);
    choose("mNotePopUpButton", 0);
    EXPECT_EQ(preferences->manualNote(), 0);
}

TEST_F(PanelControlsTest, APitchThatIsTypedOrSteppedIsTheTarget) {
    preferences->setManualMode(true);
    preferences->setManualType(1);
    forget();
    type("mPitchText", "27,5");
    EXPECT_EQ(takePosted(), Names{});
    press("mPitchText", {Qt::Key_Return});
    EXPECT_EQ(takePosted(), Names{kManual});
    EXPECT_EQ(preferences->manualPitch(), 27.5);
    press("mPitchText", {Qt::Key_Down});
    EXPECT_EQ(takePosted(), Names{kManual});
    EXPECT_DOUBLE_EQ(preferences->manualPitch(), 27.4);
    EXPECT_EQ(preferences->manualType(), 1);
}

TEST_F(PanelControlsTest, SoundBackIsSwitched) {
    click("mSoundBackCheckbox");
    EXPECT_TRUE(preferences->soundBack());
    EXPECT_EQ(generator.calls, Names{});
    press("mSoundBackCheckbox", {Qt::Key_Space});
    EXPECT_FALSE(preferences->soundBack());
    EXPECT_EQ(generator.calls, Names{"length 0"});
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PanelControlsTest, DurationVolumeAndWaveformReachTheTone) {
    press("mSoundBackDurationSlider", {Qt::Key_Right, Qt::Key_PageUp});
    EXPECT_EQ(preferences->soundBackDuration(), 2.1F);
    EXPECT_EQ(text("mSoundBackDurationText"), "2.1 sec");
    EXPECT_EQ(control("mSoundBackDurationSlider").accessibleDescription(), "2.1 sec");
    press("mSoundBackVolumeSlider", {Qt::Key_Left});
    EXPECT_EQ(preferences->soundBackVolume(), 69);
    EXPECT_EQ(text("mSoundBackVolumeText"), "69");
    press("mSoundBackWaveformPopUpButton", {Qt::Key_Down});
    EXPECT_EQ(preferences->soundBackWaveform(), 1);
    choose("mSoundBackWaveformPopUpButton", 3);
    EXPECT_EQ(preferences->soundBackWaveform(), 3);
    EXPECT_EQ(generator.calls,
              (Names{"length 1.1", "length 2.1", "volume 0.69", "waveform 1", "waveform 3"}));
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PanelControlsTest, DevicesAreSwitched) {
    choose("mInputDevicePopUpButton", 1);
    EXPECT_EQ(input->deviceName(), "M : B");
    EXPECT_EQ(heard, Names{"M : B"});
    mainThread.runAll();
    EXPECT_FALSE(isEnabled("mInputVolumeSlider"));
    EXPECT_EQ(text("mInputVolumeText"), "n/a");
    press("mInputDevicePopUpButton", {Qt::Key_Up});
    EXPECT_EQ(input->deviceName(), "M : A");
    mainThread.runAll();
    EXPECT_TRUE(isEnabled("mInputVolumeSlider"));
    EXPECT_EQ(text("mInputVolumeText"), "50");

    press("mOutputDevicePopUpButton", {Qt::Key_Down});
    EXPECT_EQ(output->deviceName(), "M : D");
    EXPECT_EQ(heard, (Names{"M : B", "M : A"}));
}

TEST_F(PanelControlsTest, InputVolumeReachesTheDevice) {
    press("mInputVolumeSlider", {Qt::Key_Right});
    EXPECT_EQ(hardware.volume(microphoneA, kIn, 1), 0.51f);
    EXPECT_EQ(text("mInputVolumeText"), "51");
    EXPECT_EQ(preferences->inputVolume(), 51);
    press("mInputVolumeSlider", {Qt::Key_End});
    EXPECT_EQ(hardware.volume(microphoneA, kIn, 1), 1.0f);
    EXPECT_EQ(text("mInputVolumeText"), "100");
}

TEST_F(PanelControlsTest, AVolumeThatOthersChangeIsShownAndNotWrittenBack) {
    hardware.changeVolume(microphoneA, kIn, 1, {0.75f, true});
    mainThread.runAll();
    EXPECT_EQ(control<QSlider>("mInputVolumeSlider").value(), 75);
    EXPECT_EQ(text("mInputVolumeText"), "75");
    EXPECT_EQ(preferences->inputVolume(), 0);
    EXPECT_EQ(hardware.volume(microphoneA, kIn, 1), 0.75f);
}

TEST_F(PanelControlsTest, ADeviceThatIsPluggedInIsInTheMenu) {
    hardware.addDevice(microphone("E"));
    mainThread.runAll();
    EXPECT_EQ(control<QComboBox>("mInputDevicePopUpButton").count(), 3);
    EXPECT_EQ(item("mInputDevicePopUpButton", 2), "M : E");
    EXPECT_EQ(heard, Names{});
}

TEST_F(PanelControlsTest, SoundSettingsAreOpened) {
    QTest::mouseClick(&control("soundSettingsButton"), Qt::LeftButton);
    EXPECT_EQ(soundSettingsOpened, 1);
    press("soundSettingsButton", {Qt::Key_Space});
    EXPECT_EQ(soundSettingsOpened, 2);
}

TEST_F(PanelControlsTest, WhatIsShownIsNotEchoedIntoTheSettings) {
    const struct {
        const char* name;
        std::function<void(Preferences&)> set;
        std::function<double(const Preferences&)> get;
        double value;
        Names posted;
    } kRows[] = {
        {"more decimals than the field has",
         [](auto& p) { p.setReferencePitch(440.12345678); },
         [](auto& p) { return p.referencePitch(); },
         440.12345678,
         {kPitch}},
        {"a reference pitch below the field's range",
         [](auto& p) { p.setReferencePitch(5); },
         [](auto& p) { return p.referencePitch(); },
         5,
         {kPitch}},
        {"a temperament",
         [](auto& p) { p.setTuningForFileName("Young.temperament"); },
         [](auto& p) { return double(p.tuning()); },
         2,
         {kTemperament}},
        {"a root key",
         [](auto& p) { p.setTonic(7); },
         [](auto& p) { return double(p.tonic()); },
         7,
         {kTemperament, kRootKey}},
        {"a stretch",
         [](auto& p) { p.setStretchForFileName("Grand.stretch"); },
         [](auto& p) { return double(p.stretch()); },
         3,
         {kStretch}},
        {"a threshold past the slider's end",
         [](auto& p) { p.setInTuneThreshold(99); },
         [](auto& p) { return double(p.inTuneThreshold()); },
         99,
         {kThreshold}},
        {"manual mode",
         [](auto& p) { p.setManualMode(true); },
         [](auto& p) { return double(p.manualMode()); },
         1,
         {kManual}},
        {"manual type",
         [](auto& p) { p.setManualType(1); },
         [](auto& p) { return double(p.manualType()); },
         1,
         {kManual}},
        {"a manual type without a button",
         [](auto& p) { p.setManualType(2); },
         [](auto& p) { return double(p.manualType()); },
         2,
         {kManual}},
        {"manual note",
         [](auto& p) { p.setManualNote(40); },
         [](auto& p) { return double(p.manualNote()); },
         40,
         {kManual}},
        {"a pitch past the field's range",
         [](auto& p) { p.setManualPitch(48000); },
         [](auto& p) { return p.manualPitch(); },
         48000,
         {kManual}},
        {"sound-back",
         [](auto& p) { p.setSoundBack(true); },
         [](auto& p) { return double(p.soundBack()); },
         1,
         {}},
        {"a duration past the slider's end",
         [](auto& p) { p.setSoundBackDuration(60); },
         [](auto& p) { return double(p.soundBackDuration()); },
         60,
         {}},
        {"a volume past the slider's end",
         [](auto& p) { p.setSoundBackVolume(150); },
         [](auto& p) { return double(p.soundBackVolume()); },
         150,
         {}},
        {"a waveform without a title",
         [](auto& p) { p.setSoundBackWaveform(9); },
         [](auto& p) { return double(p.soundBackWaveform()); },
         9,
         {}},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.name);
        row.set(*preferences);
        EXPECT_EQ(row.get(*preferences), row.value);
        EXPECT_EQ(takePosted(), row.posted);
    }
    EXPECT_EQ(text("mInTuneThresholdText"), QString::fromUtf8("\u00B199 cents"));
    EXPECT_EQ(control<NumberField>("mReferencePitchText").text(), "5 Hz");
    EXPECT_EQ(control<NumberField>("mPitchText").text(), "48000 Hz");
    EXPECT_EQ(text("mSoundBackDurationText"), "60.0 sec");
    EXPECT_EQ(text("mSoundBackVolumeText"), "150");
}

} // namespace
} // namespace veltrano
