// SPDX-License-Identifier: GPL-3.0-or-later
// The views of this folder for interface files.
#include "analysis/AnalysisWidgets.h"

#include "analysis/HilbertView.h"
#include "analysis/PianoView.h"

namespace veltrano {

WidgetMakers analysisWidgets(const PartialView::Ports& ports) {
    return {
        {QStringLiteral("PartialView"),
         [ports](QWidget* parent) { return new PartialView(ports, parent); }},
        {QStringLiteral("HilbertView"),
         [ports](QWidget* parent) { return new HilbertView(ports.preferences, parent); }},
        {QStringLiteral("PianoView"), [](QWidget* parent) { return new PianoView(parent); }},
    };
}

} // namespace veltrano
