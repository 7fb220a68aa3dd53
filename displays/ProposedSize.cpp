// SPDX-License-Identifier: GPL-3.0-or-later
// The size that a window of fixed proportions takes.
#include "displays/ProposedSize.h"

#include <algorithm>
#include <cmath>

namespace veltrano {

Extent proposedSize(Extent minimum, Extent proposed, ResizeKeys keys) noexcept {
    if (!(minimum.width > 0 && minimum.height > 0)) return proposed;
    float k = std::min(static_cast<float>(proposed.width / minimum.width),
                       static_cast<float>(proposed.height / minimum.height));
    if (keys.alt) {
        k = std::max(std::trunc(k), 1.0f);
    } else if (keys.shift) {
        return proposed;
    }
    const double ratio = static_cast<double>(k);
    return {minimum.width * ratio, minimum.height * ratio};
}

} // namespace veltrano
