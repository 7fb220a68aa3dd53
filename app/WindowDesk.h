// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the application that are not documents.
#pragma once

#include "app/AnalysisWindows.h"
#include "app/TunerWindow.h"
#include "app/WindowPictures.h"
#include "displays/HelpPanel.h"
#include "engine/ControllerPorts.h"
#include "platform/desktop/WindowMemory.h"

#include <functional>
#include <memory>
#include <vector>

namespace veltrano {

class PreferencesPanel;

/// The tuner window, those beside it, help and preferences: made, shown, kept in place.
/// Thread: main. Owns: the windows, but for the preferences, which work on the audio units.
class WindowDesk final : public ApplicationWindows {
public:
    /// All of it outlives the desk.
    struct Ports {
        const ResourceFolder& resources;
        ImageLibrary& images;
        UserDefaults& defaults;
        PartialView::Ports partials;
        Log& log;
    };

    /// Null, with one log line, when the tuner window cannot be loaded.
    static std::unique_ptr<WindowDesk> create(const Ports& ports);

    TunerWindow& tuner() { return *mTuner; }
    AnalysisWindows& analysis() { return *mAnalysis; }
    HelpPanel& help() { return mHelp; }
    /// Not owned; null while there is none.
    void setPreferencesPanel(PreferencesPanel* panel) { mPanel = panel; }
    void showPreferences();
    /// The page of the manual that lists the keys.
    void showShortcuts();
    /// Called with each window that is made later than the others.
    void setDidMakeWindow(std::function<void(QWidget&)> didMake) { mDidMake = std::move(didMake); }
    /// The preferences were loaded. @param window that of the panel
    void didLoadPreferences(QWidget& window);

    /// Puts the windows where they stood when the program ended.
    void restoreGeometry();
    void keepGeometry();

    /// The tuner window and those beside it.
    std::vector<QWidget*> mainWindows() const;
    /// Pictures of the tuner window and of those beside it that the settings have open.
    WindowPictures picturesOfOpenWindows(const Preferences& preferences) const;

    // ApplicationWindows
    bool isVisible(AnalysisWindowKind window) const override;
    void orderFront(AnalysisWindowKind window) override;
    void makeKeyAndOrderFront(AnalysisWindowKind window) override;
    void orderOut(AnalysisWindowKind window) override;
    void centerWindows() override;
    void showTunerWindow() override;
    void showHelp() override;

private:
    WindowDesk(const Ports& ports, std::unique_ptr<TunerWindow> tuner);
    void didShowHelp();
    void forEachNamed(const std::function<void(std::string_view name, QWidget& window)>& visit);

    const Ports mPorts;
    WindowMemory mMemory;
    std::unique_ptr<TunerWindow> mTuner;
    std::unique_ptr<AnalysisWindows> mAnalysis;
    HelpPanel mHelp;
    bool mIsHelpKnown = false;
    PreferencesPanel* mPanel = nullptr;
    std::function<void(QWidget&)> mDidMake; ///< empty: nobody is told
};

} // namespace veltrano
