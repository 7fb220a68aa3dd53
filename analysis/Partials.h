// SPDX-License-Identifier: GPL-3.0-or-later
// The partials of a sound.
#pragma once

#include <memory>
#include <vector>

namespace veltrano {

/// One peak of a power spectrum.
struct Partial {
    float hz = 0;
    float power = 0; ///< sum of the seven bins around the peak; a cosine of amplitude a on a bin
                     ///< has about 0.3 a^2, spread by the window
    bool operator==(const Partial&) const = default;
};

using Partials = std::vector<Partial>;

/// A published result; identity is the pointer's. Null: there are no partials.
using PartialsRef = std::shared_ptr<const Partials>;

} // namespace veltrano
