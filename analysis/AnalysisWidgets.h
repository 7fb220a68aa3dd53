// SPDX-License-Identifier: GPL-3.0-or-later
// The views of this folder for interface files.
#pragma once

#include "analysis/PartialView.h"
#include "platform/desktop/InterfaceFile.h"

namespace veltrano {

/// PartialView, HilbertView and PianoView, which work with those ports.
WidgetMakers analysisWidgets(const PartialView::Ports& ports);

} // namespace veltrano
