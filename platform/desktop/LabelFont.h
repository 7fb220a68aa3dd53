// SPDX-License-Identifier: GPL-3.0-or-later
// The font of labels in drawings.
#pragma once

#include <QFont>

namespace veltrano {

/// "Lucida Grande" where the system has it, otherwise the system's own sans serif.
/// @param size in the units of the drawing
QFont labelFont(double size);

} // namespace veltrano
