// SPDX-License-Identifier: GPL-3.0-or-later
// A detector of partials with sounds for it and a record of what it tells.
#pragma once

#include "analysis/PartialDetector.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/NotificationNames.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>
#include <vector>

namespace veltrano::partials_test {

inline constexpr std::size_t kFrame = 4096;
inline constexpr double kRateHz = 44100;
inline constexpr double kBinHz = kRateHz / kFrame;
inline constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

/// The power in the seven bins of a cosine of amplitude 1 on a bin: of its own bin, its neighbours
/// and theirs, as the window spreads it.
inline constexpr double kOwn = 0.42 * 0.42, kNext = 0.25 * 0.25, kSecond = 0.04 * 0.04;
inline constexpr double kSeven = kOwn + 2 * kNext + 2 * kSecond;

struct Tone {
    double bin; ///< of 4096 samples
    double amplitude;
};

inline std::vector<float> tones(const std::vector<Tone>& parts, std::size_t frames = 1) {
    std::vector<float> samples(frames * kFrame);
    for (std::size_t n = 0; n < samples.size(); ++n) {
        double sum = 0;
        for (const Tone& tone : parts)
            sum += tone.amplitude *
                   std::cos(2 * std::numbers::pi * tone.bin * static_cast<double>(n) / kFrame);
        samples[n] = static_cast<float>(sum);
    }
    return samples;
}

inline std::vector<float> sine(double hz, std::size_t count, double rate = kRateHz) {
    std::vector<float> samples(count);
    for (std::size_t n = 0; n < count; ++n)
        samples[n] = static_cast<float>(
            0.8 * std::sin(2 * std::numbers::pi * hz * static_cast<double>(n) / rate));
    return samples;
}

inline const std::vector<float> kSilence(kFrame);

/// A detector and what it tells.
struct Heard {
    NotificationCenter notifications;
    PartialDetector detector{notifications};
    std::vector<PartialsRef> posts;
    int analyses = 0;
    NotificationCenter::Observation observation =
        notifications.observe(notification::kPartialsChanged, [this](const std::any& object) {
            posts.push_back(std::any_cast<PartialsRef>(object));
            EXPECT_EQ(posts.back(), detector.partials());
        });

    Heard() {
        detector.setAnalysisObserver([this] { ++analyses; });
    }
    void hear(const std::vector<float>& samples) { detector.setData(samples); }
    /// @return the published partials, none when there are none
    Partials partials() const { return detector.partials() ? *detector.partials() : Partials(); }
    std::vector<double> frequencies() const {
        std::vector<double> hz;
        for (const Partial& partial : partials())
            hz.push_back(static_cast<double>(partial.hz));
        return hz;
    }
};

inline void expectFrequencies(const Heard& heard, const std::vector<double>& bins) {
    const std::vector<double> hz = heard.frequencies();
    ASSERT_EQ(hz.size(), bins.size());
    for (std::size_t i = 0; i < bins.size(); ++i)
        EXPECT_NEAR(hz[i], bins[i] * kBinHz, 0.01) << "partial " << i;
}

} // namespace veltrano::partials_test
