// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences panel.
#pragma once

#include "platform/desktop/ResourceFolder.h"
#include "platform/foundation/Log.h"
#include "settings/PreferencesActions.h"
#include "settings/PreferencesControls.h"
#include "settings/PreferencesDisplay.h"

#include <QCoreApplication>
#include <QObject>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class QTabWidget;

namespace veltrano {

class PanelWidgets;

/// The window in which every setting can be changed. Its interface file "VeltranoPrefs" is loaded
/// when the panel is first shown; from then on the settings show every change in it.
///
/// Thread: main. Owns: the window. Goes before the units and the settings.
/// Errors: without the interface file, or when that lacks a control, each call logs one line, beeps
/// and shows nothing; the next call tries again.
class PreferencesPanel {
    Q_DECLARE_TR_FUNCTIONS(veltrano::PreferencesPanel)
public:
    struct Ports {
        Preferences& preferences;
        const TemperamentLibrary* temperaments = nullptr; ///< null: only equal temperament
        const StretchLibrary* stretches = nullptr;        ///< null: no stretch
        AUInputUnit* inputUnit = nullptr;
        AUOutputUnit* outputUnit = nullptr;
        ResourceFolder resources;
        Log& log;
        std::function<void()> openSoundSettings{}; ///< of the desktop; empty: nothing happens
        std::function<void(QWidget&)> didLoad{};   ///< called once with the window
        std::function<void()> beep{};              ///< the desktop's when empty
    };

    explicit PreferencesPanel(Ports ports);
    ~PreferencesPanel();

    void showPanel();

    QWidget* window() const { return mPrefsPanel.get(); } ///< null until it was loaded

private:
    bool load();
    void awakeFromNib();
    void connectTuning();
    void connectManualMode();
    void connectSoundBack();
    void connectDevices();

    const Ports mPorts;
    std::unique_ptr<QWidget> mPrefsPanel;
    std::unique_ptr<PanelWidgets> mWidgets; ///< null until the window was loaded
    std::unique_ptr<PreferencesDisplay> mDisplay;
    std::unique_ptr<PreferencesActions> mActions;
    /// Hears the controls. It goes first: a number that is being typed is announced by its field
    /// when the window goes.
    QObject mReceiver;
};

} // namespace veltrano
