// SPDX-License-Identifier: GPL-3.0-or-later
// The widgets of the preferences panel, found by name in its interface file.
#pragma once

#include "settings/PanelControls.h"
#include "settings/PreferencesControls.h"

#include <QButtonGroup>
#include <QString>
#include <optional>

class QPushButton;
class QRadioButton;
class QTabWidget;

namespace veltrano {

/// Thread: main. The widgets are not owned and outlive it; the ports are its own.
class PanelWidgets {
public:
    /// Steps of the slider for durations in a second.
    static constexpr int kDurationSteps = 10;

    /// Finds every widget below @p root. False when one is missing or of another class; @p missing
    /// then names it.
    bool connect(const QWidget& root, QString* missing);

    /// After connect().
    PreferencesControls controls();

    QTabWidget* mTabView = nullptr;
    NumberField* mReferencePitchText = nullptr;
    QComboBox* mTuningPopUpButton = nullptr;
    QComboBox* mTonicPopUpButton = nullptr;
    QComboBox* mStretchPopUpButton = nullptr;
    QLabel* mInTuneThresholdText = nullptr;
    QSlider* mInTuneThresholdSlider = nullptr;
    QCheckBox* mManualModeCheckbox = nullptr;
    QRadioButton* mNoteRadioButton = nullptr;
    QRadioButton* mPitchRadioButton = nullptr;
    QComboBox* mNotePopUpButton = nullptr;
    QComboBox* mOctavePopUpButton = nullptr;
    NumberField* mPitchText = nullptr;
    QCheckBox* mSoundBackCheckbox = nullptr;
    QLabel* mSoundBackDurationText = nullptr;
    QSlider* mSoundBackDurationSlider = nullptr;
    QLabel* mSoundBackVolumeText = nullptr;
    QSlider* mSoundBackVolumeSlider = nullptr;
    QComboBox* mSoundBackWaveformPopUpButton = nullptr;
    QComboBox* mOutputDevicePopUpButton = nullptr;
    QComboBox* mInputDevicePopUpButton = nullptr;
    QSlider* mInputVolumeSlider = nullptr;
    QLabel* mInputVolumeText = nullptr;
    QPushButton* soundSettingsButton = nullptr;
    QButtonGroup mNotePitchRadioButton; ///< ids: 0 note, 1 pitch

private:
    struct Ports {
        explicit Ports(PanelWidgets& widgets);
        PanelNumber referencePitch;
        PanelPopUp tuning, tonic, stretch;
        PanelText inTuneThresholdText;
        PanelSlider inTuneThreshold;
        PanelCheckBox manualMode;
        PanelRadioButtons notePitch;
        PanelPopUp note, octave;
        PanelNumber pitch;
        PanelCheckBox soundBack;
        PanelText durationText;
        PanelSlider duration;
        PanelNumberText volumeText;
        PanelSlider volume;
        PanelPopUp waveform, outputDevice, inputDevice;
        PanelSlider inputVolume;
        PanelText inputVolumeText;
    };

    std::optional<Ports> mPorts; ///< set by connect()
};

} // namespace veltrano
