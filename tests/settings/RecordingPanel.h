// SPDX-License-Identifier: GPL-3.0-or-later
// Every control of the preferences panel, without a widget.
#pragma once

#include "settings/PreferencesControls.h"
#include "tests/support/RecordingControls.h"

#include <string>
#include <utility>
#include <vector>

namespace veltrano {

/// Lists what its controls are told, in order: "mTuningPopUpButton select 3". Thread: main.
class RecordingPanel {
public:
    RecordingPanel() {
        visit([this](auto& control, const char* name) {
            control.heard = [this, name](const std::string& call) {
                calls.push_back(std::string(name) + ' ' + call);
            };
        });
    }
    RecordingPanel(const RecordingPanel&) = delete; // the controls know where they are
    RecordingPanel& operator=(const RecordingPanel&) = delete;

    PreferencesControls controls() {
        return {.mReferencePitchText = &mReferencePitchText,
                .mReferencePitchStepper = &mReferencePitchStepper,
                .mTuningPopUpButton = &mTuningPopUpButton,
                .mTonicPopUpButton = &mTonicPopUpButton,
                .mStretchPopUpButton = &mStretchPopUpButton,
                .mInTuneThresholdText = &mInTuneThresholdText,
                .mInTuneThresholdSlider = &mInTuneThresholdSlider,
                .mManualModeCheckbox = &mManualModeCheckbox,
                .mNotePitchRadioButton = &mNotePitchRadioButton,
                .mNotePopUpButton = &mNotePopUpButton,
                .mOctavePopUpButton = &mOctavePopUpButton,
                .mPitchText = &mPitchText,
                .mPitchTextStepper = &mPitchTextStepper,
                .mSoundBackCheckbox = &mSoundBackCheckbox,
                .mSoundBackDurationText = &mSoundBackDurationText,
                .mSoundBackDurationSlider = &mSoundBackDurationSlider,
                .mSoundBackVolumeText = &mSoundBackVolumeText,
                .mSoundBackVolumeSlider = &mSoundBackVolumeSlider,
                .mSoundBackWaveformPopUpButton = &mSoundBackWaveformPopUpButton,
                .mOutputDevicePopUpButton = &mOutputDevicePopUpButton,
                .mInputDevicePopUpButton = &mInputDevicePopUpButton,
                .mInputVolumeSlider = &mInputVolumeSlider,
                .mInputVolumeText = &mInputVolumeText};
    }

    std::vector<std::string> takeCalls() { return std::exchange(calls, {}); }

    RecordingValue mReferencePitchText, mReferencePitchStepper;
    RecordingPopUp mTuningPopUpButton, mTonicPopUpButton, mStretchPopUpButton;
    RecordingText mInTuneThresholdText;
    RecordingValue mInTuneThresholdSlider;
    RecordingValue mManualModeCheckbox, mNotePitchRadioButton;
    RecordingPopUp mNotePopUpButton, mOctavePopUpButton;
    RecordingValue mPitchText, mPitchTextStepper;
    RecordingValue mSoundBackCheckbox;
    RecordingText mSoundBackDurationText;
    RecordingValue mSoundBackDurationSlider, mSoundBackVolumeText, mSoundBackVolumeSlider;
    RecordingPopUp mSoundBackWaveformPopUpButton, mOutputDevicePopUpButton, mInputDevicePopUpButton;
    RecordingValue mInputVolumeSlider;
    RecordingText mInputVolumeText;
    std::vector<std::string> calls;

private:
    template <class Visit>
    void visit(Visit visit) {
        visit(mReferencePitchText, "mReferencePitchText");
        visit(mReferencePitchStepper, "mReferencePitchStepper");
        visit(mTuningPopUpButton, "mTuningPopUpButton");
        visit(mTonicPopUpButton, "mTonicPopUpButton");
        visit(mStretchPopUpButton, "mStretchPopUpButton");
        visit(mInTuneThresholdText, "mInTuneThresholdText");
        visit(mInTuneThresholdSlider, "mInTuneThresholdSlider");
        visit(mManualModeCheckbox, "mManualModeCheckbox");
        visit(mNotePitchRadioButton, "mNotePitchRadioButton");
        visit(mNotePopUpButton, "mNotePopUpButton");
        visit(mOctavePopUpButton, "mOctavePopUpButton");
        visit(mPitchText, "mPitchText");
        visit(mPitchTextStepper, "mPitchTextStepper");
        visit(mSoundBackCheckbox, "mSoundBackCheckbox");
        visit(mSoundBackDurationText, "mSoundBackDurationText");
        visit(mSoundBackDurationSlider, "mSoundBackDurationSlider");
        visit(mSoundBackVolumeText, "mSoundBackVolumeText");
        visit(mSoundBackVolumeSlider, "mSoundBackVolumeSlider");
        visit(mSoundBackWaveformPopUpButton, "mSoundBackWaveformPopUpButton");
        visit(mOutputDevicePopUpButton, "mOutputDevicePopUpButton");
        visit(mInputDevicePopUpButton, "mInputDevicePopUpButton");
        visit(mInputVolumeSlider, "mInputVolumeSlider");
        visit(mInputVolumeText, "mInputVolumeText");
    }
};

} // namespace veltrano
