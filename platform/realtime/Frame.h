// SPDX-License-Identifier: GPL-3.0-or-later
// One analysis frame on its way through the main thread.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

namespace veltrano {

/// One analysis frame: mono 32-bit float samples in [-1, 1] (NaN may occur in a broken recording).
/// Immutable from the moment it is handed over. Thread: main.
struct Frame {
    std::span<const float> samples;
    /// Samples that the assembler had taken when this frame became full, since its last re-size:
    /// the recording's own clock is samplesSoFar / rate.
    std::uint64_t samplesSoFar = 0;
};

/// A counted reference. Whoever keeps one keeps the frame's storage; identity is the pointer's.
using FrameRef = std::shared_ptr<const Frame>;

} // namespace veltrano
