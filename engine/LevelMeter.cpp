// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/LevelMeter.h"

#include <algorithm>

namespace veltrano::level_meter {

namespace {

constexpr int kLowestDb = 61; ///< below it nothing is lit

/// Lights reached at @p level: 64 dB is 1, 92 dB is 8, 96 dB is 9 (the last one turns red).
constexpr int litCount(int level) { return level < kLowestDb ? 0 : (9 * level - 540) / 36; }

} // namespace

std::array<LightImage, kLights> lights(int peak, int peakHold) {
    std::array<LightImage, kLights> images;
    images.fill(LightImage::gray16x16);
    const int lit = litCount(peak);
    std::fill_n(images.begin(), std::min(lit, kLights), LightImage::green16x16);
    if (lit > kLights) images.back() = LightImage::red16x16;

    if (peakHold >= kFullScaleDb) {
        images.back() = LightImage::red16x16;
    } else if (const int held = litCount(peakHold); held > 0) {
        images[static_cast<std::size_t>(held - 1)] = LightImage::yellow16x16;
    }
    return images;
}

std::string text(int peakHold) { return std::to_string(peakHold - kFullScaleDb) + "dB"; }

} // namespace veltrano::level_meter
