// SPDX-License-Identifier: GPL-3.0-or-later
// The widgets of the preferences panel, found by name in its interface file.
#include "settings/PanelWidgets.h"

#include "settings/NumberField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QTabWidget>

namespace veltrano {

namespace {

/// Finds widgets until one is missing.
class Finder {
public:
    explicit Finder(const QWidget& root) : mRoot(root) {}

    template <class Widget>
    Finder& operator()(Widget*& outlet, const char* name) {
        outlet = mRoot.findChild<Widget*>(QLatin1String(name));
        if (!outlet && mMissing.isEmpty()) mMissing = QLatin1String(name);
        return *this;
    }

    const QString& missing() const { return mMissing; }

private:
    const QWidget& mRoot;
    QString mMissing;
};

} // namespace

#define VELTRANO_FIND(outlet) (outlet, #outlet)

bool PanelWidgets::connect(const QWidget& root, QString* missing) {
    Finder find(root);
    find VELTRANO_FIND(mTabView) VELTRANO_FIND(mReferencePitchText)
        VELTRANO_FIND(mTuningPopUpButton) VELTRANO_FIND(mTonicPopUpButton)
            VELTRANO_FIND(mStretchPopUpButton) VELTRANO_FIND(mInTuneThresholdText)
                VELTRANO_FIND(mInTuneThresholdSlider);
    find VELTRANO_FIND(mManualModeCheckbox) VELTRANO_FIND(mNoteRadioButton)
        VELTRANO_FIND(mPitchRadioButton) VELTRANO_FIND(mNotePopUpButton)
            VELTRANO_FIND(mOctavePopUpButton) VELTRANO_FIND(mPitchText);
    find VELTRANO_FIND(mSoundBackCheckbox) VELTRANO_FIND(mSoundBackDurationText)
        VELTRANO_FIND(mSoundBackDurationSlider) VELTRANO_FIND(mSoundBackVolumeText)
            VELTRANO_FIND(mSoundBackVolumeSlider) VELTRANO_FIND(mSoundBackWaveformPopUpButton);
    find VELTRANO_FIND(mOutputDevicePopUpButton) VELTRANO_FIND(mInputDevicePopUpButton)
        VELTRANO_FIND(mInputVolumeSlider) VELTRANO_FIND(mInputVolumeText)
            VELTRANO_FIND(soundSettingsButton);
    if (!find.missing().isEmpty()) {
        *missing = find.missing();
        return false;
    }
    mNotePitchRadioButton.addButton(mNoteRadioButton, 0);
    mNotePitchRadioButton.addButton(mPitchRadioButton, 1);
    mPorts.emplace(*this);
    return true;
}

#undef VELTRANO_FIND

PanelWidgets::Ports::Ports(PanelWidgets& widgets)
    : referencePitch(*widgets.mReferencePitchText), tuning(*widgets.mTuningPopUpButton),
      tonic(*widgets.mTonicPopUpButton), stretch(*widgets.mStretchPopUpButton),
      inTuneThresholdText(*widgets.mInTuneThresholdText, *widgets.mInTuneThresholdSlider),
      inTuneThreshold(*widgets.mInTuneThresholdSlider), manualMode(*widgets.mManualModeCheckbox),
      notePitch(widgets.mNotePitchRadioButton), note(*widgets.mNotePopUpButton),
      octave(*widgets.mOctavePopUpButton), pitch(*widgets.mPitchText),
      soundBack(*widgets.mSoundBackCheckbox),
      durationText(*widgets.mSoundBackDurationText, *widgets.mSoundBackDurationSlider),
      duration(*widgets.mSoundBackDurationSlider, kDurationSteps),
      volumeText(*widgets.mSoundBackVolumeText, *widgets.mSoundBackVolumeSlider),
      volume(*widgets.mSoundBackVolumeSlider), waveform(*widgets.mSoundBackWaveformPopUpButton),
      outputDevice(*widgets.mOutputDevicePopUpButton),
      inputDevice(*widgets.mInputDevicePopUpButton), inputVolume(*widgets.mInputVolumeSlider),
      inputVolumeText(*widgets.mInputVolumeText, *widgets.mInputVolumeSlider) {}

/// A number field has its stepper in itself.
PreferencesControls PanelWidgets::controls() {
    Ports& ports = *mPorts;
    return {.mReferencePitchText = &ports.referencePitch,
            .mReferencePitchStepper = &ports.referencePitch,
            .mTuningPopUpButton = &ports.tuning,
            .mTonicPopUpButton = &ports.tonic,
            .mStretchPopUpButton = &ports.stretch,
            .mInTuneThresholdText = &ports.inTuneThresholdText,
            .mInTuneThresholdSlider = &ports.inTuneThreshold,
            .mManualModeCheckbox = &ports.manualMode,
            .mNotePitchRadioButton = &ports.notePitch,
            .mNotePopUpButton = &ports.note,
            .mOctavePopUpButton = &ports.octave,
            .mPitchText = &ports.pitch,
            .mPitchTextStepper = &ports.pitch,
            .mSoundBackCheckbox = &ports.soundBack,
            .mSoundBackDurationText = &ports.durationText,
            .mSoundBackDurationSlider = &ports.duration,
            .mSoundBackVolumeText = &ports.volumeText,
            .mSoundBackVolumeSlider = &ports.volume,
            .mSoundBackWaveformPopUpButton = &ports.waveform,
            .mOutputDevicePopUpButton = &ports.outputDevice,
            .mInputDevicePopUpButton = &ports.inputDevice,
            .mInputVolumeSlider = &ports.inputVolume,
            .mInputVolumeText = &ports.inputVolumeText};
}

} // namespace veltrano
