// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's clipboard.
#pragma once

#include "platform/desktop/DocumentPorts.h"

namespace veltrano {

/// The general pasteboard as the desktop's clipboard, types by their names. Thread: main, with a
/// QGuiApplication. What was written outlives the window that wrote it, not always the program.
class QtPasteboard final : public Pasteboard {
public:
    void write(std::string_view type, std::string_view bytes) override;
    std::optional<std::string> read(std::string_view type) const override;
};

} // namespace veltrano
