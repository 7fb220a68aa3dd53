// SPDX-License-Identifier: GPL-3.0-or-later
// The log on standard error.
#pragma once

#include "platform/foundation/Log.h"

namespace veltrano {

/// One write per line, so that lines of several threads do not mix. Thread: any.
class StandardErrorLog final : public Log {
public:
    void line(std::string_view text) override;
    void detail(std::string_view text) override; ///< with "veltrano.detail: " before the text
};

} // namespace veltrano
