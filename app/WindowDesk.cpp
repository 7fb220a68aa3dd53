// SPDX-License-Identifier: GPL-3.0-or-later
// The windows of the application that are not documents.
#include "app/WindowDesk.h"

#include "platform/desktop/WindowPlacement.h"
#include "settings/Preferences.h"
#include "settings/PreferencesPanel.h"

#include <array>

namespace veltrano {

namespace {

struct NamedWindow {
    const char* name; ///< in the settings and of its picture
    AnalysisWindowKind kind;
};

constexpr std::array<NamedWindow, kAnalysisWindows> kNamedWindows{
    {{"partials", AnalysisWindowKind::partials},
     {"hilbert", AnalysisWindowKind::hilbert},
     {"piano", AnalysisWindowKind::piano}}};

constexpr const char* kTuner = "tuner";
constexpr const char* kHelp = "help";
constexpr const char* kPreferences = "preferences";

bool isOpenIn(const Preferences& preferences, AnalysisWindowKind kind) {
    switch (kind) {
    case AnalysisWindowKind::partials:
        return preferences.partials();
    case AnalysisWindowKind::hilbert:
        return preferences.hilbertScope();
    case AnalysisWindowKind::piano:
        return preferences.pianoKeyboard();
    }
    return false;
}

} // namespace

std::unique_ptr<WindowDesk> WindowDesk::create(const Ports& ports) {
    auto tuner = TunerWindow::create(ports.resources, ports.images, ports.log);
    if (!tuner) return nullptr;
    return std::unique_ptr<WindowDesk>(new WindowDesk(ports, std::move(tuner)));
}

WindowDesk::WindowDesk(const Ports& ports, std::unique_ptr<TunerWindow> tuner)
    : mPorts(ports), mMemory(ports.defaults), mTuner(std::move(tuner)),
      mAnalysis(std::make_unique<AnalysisWindows>(ports.resources, ports.partials, ports.log)),
      mHelp(ports.resources, ports.log) {
    mTuner->setNeighbours(mAnalysis->neighbours());
}

void WindowDesk::showPreferences() {
    if (mPanel) mPanel->showPanel();
}

void WindowDesk::didLoadPreferences(QWidget& window) {
    mMemory.restore(kPreferences, window);
    if (mDidMake) mDidMake(window);
}

void WindowDesk::showHelp() {
    mHelp.showHelpPanel();
    didShowHelp();
}

void WindowDesk::showShortcuts() {
    mHelp.showKeys();
    didShowHelp();
}

void WindowDesk::didShowHelp() {
    if (!mHelp.window() || std::exchange(mIsHelpKnown, true)) return;
    mMemory.restore(kHelp, *mHelp.window());
    if (mDidMake) mDidMake(*mHelp.window());
}

void WindowDesk::forEachNamed(
    const std::function<void(std::string_view name, QWidget& window)>& visit) {
    visit(kTuner, *mTuner);
    for (const NamedWindow& named : kNamedWindows) {
        if (AnalysisWindow* window = mAnalysis->window(named.kind)) visit(named.name, *window);
    }
    if (mHelp.window()) visit(kHelp, *mHelp.window());
    if (mPanel && mPanel->window()) visit(kPreferences, *mPanel->window());
}

void WindowDesk::restoreGeometry() {
    forEachNamed([this](std::string_view name, QWidget& window) { mMemory.restore(name, window); });
}

void WindowDesk::keepGeometry() {
    forEachNamed([this](std::string_view name, QWidget& window) { mMemory.keep(name, window); });
}

std::vector<QWidget*> WindowDesk::mainWindows() const {
    std::vector<QWidget*> windows{mTuner.get()};
    mAnalysis->forEach([&windows](AnalysisWindow& window) { windows.push_back(&window); });
    return windows;
}

WindowPictures WindowDesk::picturesOfOpenWindows(const Preferences& preferences) const {
    WindowPictures pictures;
    pictures.add(QLatin1String(kTuner), *mTuner);
    for (const NamedWindow& named : kNamedWindows) {
        AnalysisWindow* window = mAnalysis->window(named.kind);
        if (window && isOpenIn(preferences, named.kind))
            pictures.add(QLatin1String(named.name), *window);
    }
    return pictures;
}

bool WindowDesk::isVisible(AnalysisWindowKind window) const { return mAnalysis->isVisible(window); }

void WindowDesk::orderFront(AnalysisWindowKind window) { mAnalysis->orderFront(window); }

void WindowDesk::makeKeyAndOrderFront(AnalysisWindowKind window) {
    mAnalysis->makeKeyAndOrderFront(window);
}

void WindowDesk::orderOut(AnalysisWindowKind window) { mAnalysis->orderOut(window); }

void WindowDesk::centerWindows() {
    for (QWidget* window : mainWindows())
        centreOnScreen(*window);
}

void WindowDesk::showTunerWindow() {
    mTuner->setWindowState(mTuner->windowState() & ~Qt::WindowMinimized);
    mTuner->show();
    mTuner->raise();
    mTuner->activateWindow();
}

} // namespace veltrano
