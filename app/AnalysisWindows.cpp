// SPDX-License-Identifier: GPL-3.0-or-later
// The partials, the scope and the keyboard.
#include "app/AnalysisWindows.h"

#include "analysis/HilbertView.h"
#include "analysis/PianoView.h"

#include <utility>

namespace veltrano {

namespace {

// In the order of AnalysisWindowKind.
constexpr std::array<const char*, kAnalysisWindows> kInterfaceFiles{"PartialsWindow",
                                                                    "HilbertWindow", "PianoWindow"};

template <class View>
View* viewOf(const AnalysisWindow* window) {
    return window ? window->view<View>() : nullptr;
}

} // namespace

AnalysisWindows::AnalysisWindows(const ResourceFolder& resources, const PartialView::Ports& ports,
                                 Log& log) {
    const WidgetMakers makers = analysisWidgets(ports);
    for (std::size_t i = 0; i < mWindows.size(); ++i) {
        mWindows[i] =
            AnalysisWindow::create(QLatin1String(kInterfaceFiles[i]), resources, makers, log);
    }
}

TunerWindow::Neighbours AnalysisWindows::neighbours() {
    TunerWindow::Neighbours neighbours;
    if (auto* scope = viewOf<HilbertView>(window(AnalysisWindowKind::hilbert))) {
        neighbours.scopePeak = [scope](float amplitude) { scope->setPeak(amplitude); };
        neighbours.scopeData = [scope](FrameRef frame) { scope->setData(std::move(frame)); };
    }
    if (auto* piano = viewOf<PianoView>(window(AnalysisWindowKind::piano)))
        neighbours.pianoNote = [piano](int key) { piano->setMidiNote(key); };
    return neighbours;
}

AnalysisWindow* AnalysisWindows::window(AnalysisWindowKind kind) const {
    return mWindows[static_cast<std::size_t>(kind)].get();
}

void AnalysisWindows::forEach(const std::function<void(AnalysisWindow&)>& visit) const {
    for (const auto& window : mWindows) {
        if (window) visit(*window);
    }
}

bool AnalysisWindows::isVisible(AnalysisWindowKind kind) const {
    return window(kind) && window(kind)->isVisible() && !window(kind)->isMinimized();
}

void AnalysisWindows::orderFront(AnalysisWindowKind kind) {
    if (window(kind)) window(kind)->orderFront();
}

void AnalysisWindows::makeKeyAndOrderFront(AnalysisWindowKind kind) {
    if (window(kind)) window(kind)->makeKeyAndOrderFront();
}

void AnalysisWindows::orderOut(AnalysisWindowKind kind) {
    if (window(kind)) window(kind)->hide();
}

} // namespace veltrano
