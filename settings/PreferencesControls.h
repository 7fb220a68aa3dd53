// SPDX-License-Identifier: GPL-3.0-or-later
// The controls of the preferences panel, as the settings see them.
#pragma once

#include "platform/desktop/ControlPorts.h"

namespace veltrano {

/// None of it is owned. A null pointer stands for a control that is not there: nothing is sent to
/// it. A check box is a value, 0 off and 1 on; the radio buttons are one value, the row.
struct PreferencesControls {
    ValueControl* mReferencePitchText = nullptr; ///< [Hz]
    ValueControl* mReferencePitchStepper = nullptr;
    PopUpMenu* mTuningPopUpButton = nullptr;
    PopUpMenu* mTonicPopUpButton = nullptr;
    PopUpMenu* mStretchPopUpButton = nullptr;
    TextOutlet* mInTuneThresholdText = nullptr;
    ValueControl* mInTuneThresholdSlider = nullptr; ///< [cents]

    ValueControl* mManualModeCheckbox = nullptr;
    ValueControl* mNotePitchRadioButton = nullptr; ///< row 0 note, row 1 pitch
    PopUpMenu* mNotePopUpButton = nullptr;         ///< index: pitch class
    PopUpMenu* mOctavePopUpButton = nullptr;       ///< index: 8 less the octave
    ValueControl* mPitchText = nullptr;            ///< [Hz]
    ValueControl* mPitchTextStepper = nullptr;

    ValueControl* mSoundBackCheckbox = nullptr;
    TextOutlet* mSoundBackDurationText = nullptr;
    ValueControl* mSoundBackDurationSlider = nullptr; ///< [s]
    ValueControl* mSoundBackVolumeText = nullptr;     ///< [percent]
    ValueControl* mSoundBackVolumeSlider = nullptr;
    PopUpMenu* mSoundBackWaveformPopUpButton = nullptr;

    PopUpMenu* mOutputDevicePopUpButton = nullptr;
    PopUpMenu* mInputDevicePopUpButton = nullptr;
    ValueControl* mInputVolumeSlider = nullptr; ///< [percent]
    TextOutlet* mInputVolumeText = nullptr;
};

} // namespace veltrano
