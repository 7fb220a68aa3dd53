// SPDX-License-Identifier: GPL-3.0-or-later
// Settings that are shown in a panel, with calls and notifications in one list.
#pragma once

#include "settings/PreferencesActions.h"
#include "settings/PreferencesDisplay.h"
#include "tests/settings/PreferencesTestBase.h"
#include "tests/settings/RecordingPanel.h"

#include <memory>

namespace veltrano {

/// A notification stands in the list as "post " and its name.
class PanelTestBase : public PreferencesTestBase {
protected:
    PanelTestBase() {
        whenPosted = [this] { panel.calls.push_back("post " + posted.back()); };
    }

    /// The panel as it is once it was loaded, its menus filled; the list is empty.
    Preferences& open(bool withLibraries = true) {
        actions.reset();
        display.reset();
        Preferences& settings = start(withLibraries);
        const TemperamentLibrary* mine = withLibraries ? &temperaments : nullptr;
        const StretchLibrary* stretchesOfMine = withLibraries ? &stretches : nullptr;
        display =
            std::make_unique<PreferencesDisplay>(settings, mine, stretchesOfMine, panel.controls());
        actions = std::make_unique<PreferencesActions>(
            PreferencesActions::Ports{settings, *display, mine, stretchesOfMine});
        display->setupPopUpMenus();
        settings.setDisplay(display.get());
        panel.calls.clear();
        return settings;
    }
    ~PanelTestBase() override {
        if (preferences) preferences->setDisplay(nullptr);
    }

    RecordingPanel panel;
    std::unique_ptr<PreferencesDisplay> display;
    std::unique_ptr<PreferencesActions> actions;
};

} // namespace veltrano
