// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences panel.
#include "settings/PreferencesPanel.h"

#include "audio/AUInputUnit.h"
#include "audio/AUOutputUnit.h"
#include "platform/desktop/InterfaceFile.h"
#include "platform/desktop/WindowPlacement.h"
#include "settings/NumberField.h"
#include "settings/PanelWidgets.h"
#include "settings/Preferences.h"
#include "tuning/PitchClass.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QSlider>
#include <QTabWidget>
#include <utility>

namespace veltrano {

namespace {

/// In the order of the waveforms' indices.
QStringList waveformTitles() {
    return {PreferencesPanel::tr("Sine"), PreferencesPanel::tr("Triangle"),
            PreferencesPanel::tr("Sawtooth"), PreferencesPanel::tr("Square")};
}

void fillFixedMenus(const PanelWidgets& widgets) {
    for (int k = 0; k < kPitchClasses; ++k)
        widgets.mNotePopUpButton->addItem(QString::fromStdString(rootKeyName(k)));
    for (int octave = kHighestOctave; octave >= 0; --octave)
        widgets.mOctavePopUpButton->addItem(QString::number(octave));
    widgets.mSoundBackWaveformPopUpButton->addItems(waveformTitles());
}

WidgetMakers makers() {
    return {{QStringLiteral("NumberField"),
             [](QWidget* parent) -> QWidget* { return new NumberField(parent); }}};
}

} // namespace

PreferencesPanel::PreferencesPanel(Ports ports) : mPorts(std::move(ports)) {}

PreferencesPanel::~PreferencesPanel() {
    if (!mPrefsPanel) return;
    mPorts.preferences.setDisplay(nullptr);
    if (mPorts.inputUnit) {
        mPorts.inputUnit->setupPopUpButton(nullptr);
        mPorts.inputUnit->setupVolumeSlider(nullptr, nullptr);
    }
    if (mPorts.outputUnit) mPorts.outputUnit->setupPopUpButton(nullptr);
}

void PreferencesPanel::showPanel() {
    if (!mPrefsPanel) {
        if (!load()) return;
        mDisplay->updateUI();
    }
    mPrefsPanel->setWindowState(mPrefsPanel->windowState() & ~Qt::WindowMinimized);
    mPrefsPanel->show();
    // The focus is seen from the start, not only after the first Tab.
    mPrefsPanel->setAttribute(Qt::WA_KeyboardFocusChange);
    mPrefsPanel->raise();
    mPrefsPanel->activateWindow();
}

bool PreferencesPanel::load() {
    const QString path = mPorts.resources.interfaceFile(QStringLiteral("VeltranoPrefs"));
    QString error;
    auto window = loadInterfaceFile(path, makers(), &error);
    auto widgets = std::make_unique<PanelWidgets>();
    if (window && !widgets->connect(*window, &error)) {
        error = path + QStringLiteral(": no control named ") + error;
        window.reset();
    }
    if (!window) {
        mPorts.log.line("Failed to load VeltranoPrefs.nib");
        mPorts.log.detail(error.toStdString());
        mPorts.beep ? mPorts.beep() : QApplication::beep();
        return false;
    }
    mPrefsPanel = std::move(window);
    mWidgets = std::move(widgets);
    mDisplay = std::make_unique<PreferencesDisplay>(mPorts.preferences, mPorts.temperaments,
                                                    mPorts.stretches, mWidgets->controls());
    mActions = std::make_unique<PreferencesActions>(
        PreferencesActions::Ports{mPorts.preferences, *mDisplay, mPorts.temperaments,
                                  mPorts.stretches, mPorts.inputUnit, mPorts.outputUnit});
    awakeFromNib();
    QObject::connect(new QShortcut(Qt::Key_Escape, mPrefsPanel.get()), &QShortcut::activated,
                     mPrefsPanel.get(), &QWidget::close);
    centreOnScreen(*mPrefsPanel);
    if (mPorts.didLoad) mPorts.didLoad(*mPrefsPanel);
    return true;
}

void PreferencesPanel::awakeFromNib() {
    mWidgets->mTabView->setCurrentIndex(0);
    fillFixedMenus(*mWidgets);
    mDisplay->setupPopUpMenus();
    const PreferencesControls& controls = mDisplay->controls();
    controls.mInputVolumeSlider->setValue(0);
    controls.mInputVolumeText->setText("0");
    if (mPorts.inputUnit) {
        mPorts.inputUnit->setupPopUpButton(controls.mInputDevicePopUpButton);
        mPorts.inputUnit->setupVolumeSlider(controls.mInputVolumeSlider, controls.mInputVolumeText);
    }
    if (mPorts.outputUnit) mPorts.outputUnit->setupPopUpButton(controls.mOutputDevicePopUpButton);
    mPorts.preferences.setDisplay(mDisplay.get());
    connectTuning();
    connectManualMode();
    connectSoundBack();
    connectDevices();
}

// What the user chooses in a menu is "activated", also when it was chosen before.

void PreferencesPanel::connectTuning() {
    PreferencesActions& actions = *mActions;
    QObject::connect(mWidgets->mReferencePitchText, &QDoubleSpinBox::valueChanged, &mReceiver,
                     [&actions](double hz) { actions.referencePitchChanged(hz); });
    QObject::connect(mWidgets->mTuningPopUpButton, &QComboBox::activated, &mReceiver,
                     [&actions](int index) { actions.tuningPopUpChanged(index); });
    QObject::connect(mWidgets->mTonicPopUpButton, &QComboBox::activated, &mReceiver,
                     [&actions](int index) { actions.tonicPopUpChanged(index); });
    QObject::connect(mWidgets->mStretchPopUpButton, &QComboBox::activated, &mReceiver,
                     [&actions](int index) { actions.stretchPopUpChanged(index); });
    QObject::connect(mWidgets->mInTuneThresholdSlider, &QSlider::valueChanged, &mReceiver,
                     [&actions](int cents) { actions.inTuneThresholdSliderChanged(cents); });
}

void PreferencesPanel::connectManualMode() {
    PreferencesActions& actions = *mActions;
    QObject::connect(mWidgets->mManualModeCheckbox, &QCheckBox::clicked, &mReceiver,
                     [&actions](bool on) { actions.manualModeCheckboxChanged(on); });
    QObject::connect(&mWidgets->mNotePitchRadioButton, &QButtonGroup::idClicked, &mReceiver,
                     [&actions](int row) { actions.notePitchRadioButtonChanged(row); });
    const auto noteOrOctave = [this](int) {
        mActions->noteOctavePopUpChanged(mWidgets->mNotePopUpButton->currentIndex(),
                                         mWidgets->mOctavePopUpButton->currentIndex());
    };
    QObject::connect(mWidgets->mNotePopUpButton, &QComboBox::activated, &mReceiver, noteOrOctave);
    QObject::connect(mWidgets->mOctavePopUpButton, &QComboBox::activated, &mReceiver, noteOrOctave);
    QObject::connect(mWidgets->mPitchText, &QDoubleSpinBox::valueChanged, &mReceiver,
                     [&actions](double hz) { actions.pitchTextChanged(hz); });
}

void PreferencesPanel::connectSoundBack() {
    PreferencesActions& actions = *mActions;
    QObject::connect(mWidgets->mSoundBackCheckbox, &QCheckBox::clicked, &mReceiver,
                     [&actions](bool on) { actions.soundBackCheckboxChanged(on); });
    QObject::connect(mWidgets->mSoundBackDurationSlider, &QSlider::valueChanged, &mReceiver,
                     [&actions](int steps) {
                         actions.soundBackDurationSliderChanged(static_cast<float>(steps) /
                                                                PanelWidgets::kDurationSteps);
                     });
    QObject::connect(mWidgets->mSoundBackVolumeSlider, &QSlider::valueChanged, &mReceiver,
                     [&actions](int percent) { actions.soundBackVolumeSliderChanged(percent); });
    QObject::connect(mWidgets->mSoundBackWaveformPopUpButton, &QComboBox::activated, &mReceiver,
                     [&actions](int index) { actions.soundBackWaveformPopUpChanged(index); });
}

void PreferencesPanel::connectDevices() {
    PreferencesActions& actions = *mActions;
    QObject::connect(mWidgets->mOutputDevicePopUpButton, &QComboBox::activated, &mReceiver,
                     [&actions](int index) { actions.outputDevicePopupChanged(index); });
    QObject::connect(mWidgets->mInputDevicePopUpButton, &QComboBox::activated, &mReceiver,
                     [&actions](int index) { actions.inputDevicePopupChanged(index); });
    QObject::connect(mWidgets->mInputVolumeSlider, &QSlider::valueChanged, &mReceiver,
                     [&actions](int percent) { actions.inputVolumeSliderChanged(percent); });
    QObject::connect(mWidgets->soundSettingsButton, &QPushButton::clicked, &mReceiver, [this] {
        if (mPorts.openSoundSettings) mPorts.openSoundSettings();
    });
}

} // namespace veltrano
