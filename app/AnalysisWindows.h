// SPDX-License-Identifier: GPL-3.0-or-later
// The partials, the scope and the keyboard.
#pragma once

#include "analysis/AnalysisWidgets.h"
#include "app/AnalysisWindow.h"
#include "app/TunerWindow.h"
#include "engine/ControllerPorts.h"

#include <array>
#include <functional>
#include <memory>

namespace veltrano {

/// The windows beside the tuner window. One whose interface file is missing is never visible; the
/// log has said so. Thread: main. Owns: the windows.
class AnalysisWindows {
public:
    AnalysisWindows(const ResourceFolder& resources, const PartialView::Ports& ports, Log& log);

    /// What the tuner window passes on to these.
    TunerWindow::Neighbours neighbours();

    bool isVisible(AnalysisWindowKind kind) const;
    void orderFront(AnalysisWindowKind kind);
    void makeKeyAndOrderFront(AnalysisWindowKind kind);
    void orderOut(AnalysisWindowKind kind);

    /// @return null when it could not be loaded
    AnalysisWindow* window(AnalysisWindowKind kind) const;
    void forEach(const std::function<void(AnalysisWindow&)>& visit) const;

private:
    std::array<std::unique_ptr<AnalysisWindow>, kAnalysisWindows> mWindows; ///< by kind
};

} // namespace veltrano
