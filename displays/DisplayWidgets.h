// SPDX-License-Identifier: GPL-3.0-or-later
// The views of this folder for interface files.
#pragma once

#include "platform/desktop/ImageLibrary.h"
#include "platform/desktop/InterfaceFile.h"

namespace veltrano {

/// @param images must outlive the makers, not what they make
WidgetMakers displayWidgets(ImageLibrary& images);

} // namespace veltrano
