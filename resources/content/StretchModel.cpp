// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/content/StretchModel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace veltrano::content {

namespace {

constexpr int kA0 = 9;
constexpr int kA4 = 57;
constexpr int kC8 = 96;
constexpr int kLast = 107;

// The octave's centre in key numbers: where one type has gone and the next one reigns.
constexpr double kBassUntil = 24, kMiddleFrom = 48;
constexpr double kMiddleUntil = 54, kTrebleFrom = 78;

constexpr double kKeysToFlat = 10; ///< beyond the keyboard the curve levels off over so many keys

/// 0 up to @p from, 1 from @p to on, a half period of a cosine between.
double ramp(double x, double from, double to) {
    const double part = std::clamp((x - from) / (to - from), 0.0, 1.0);
    return 0.5 - 0.5 * std::cos(std::numbers::pi * part);
}

/// [cents] from @p key to the next one.
double stepCents(const Inharmonicity& strings, int key) {
    const double centre = key + 0.5;
    const double inside = std::clamp(centre, kA0 + 0.5, kC8 - 0.5);
    const double left = std::max(0.0, 1 - std::abs(centre - inside) / kKeysToFlat);
    return blendedOctaveCents(strings, inside) / 12 * left * left;
}

} // namespace

double Inharmonicity::at(double key) const {
    return bassAtA0 * std::exp(-bassFall * (key - kA0)) +
           trebleAtA4 * std::exp(trebleRise * (key - kA4));
}

double octaveStretchCents(int partial, double lower, double upper) {
    const double squared = partial * partial;
    const double meeting = (1 + 4 * squared * lower) / (1 + squared * upper);
    const double firstPartials = (1 + upper) / (1 + lower);
    return 600 * std::log2(meeting * firstPartials);
}

double blendedOctaveCents(const Inharmonicity& strings, double centre) {
    const double lower = strings.at(centre - 6);
    const double upper = strings.at(centre + 6);
    const double bass = 1 - ramp(centre, kBassUntil, kMiddleFrom);
    const double treble = ramp(centre, kMiddleUntil, kTrebleFrom);
    return bass * octaveStretchCents(3, lower, upper) +
           (1 - bass - treble) * octaveStretchCents(2, lower, upper) +
           treble * octaveStretchCents(1, lower, upper);
}

std::array<double, 108> stretchTable(const Inharmonicity& strings) {
    std::array<double, 108> cents{};
    const auto at = [&cents](int key) -> double& { return cents[static_cast<std::size_t>(key)]; };
    for (int key = kA4; key < kLast; ++key)
        at(key + 1) = at(key) + stepCents(strings, key);
    for (int key = kA4 - 1; key >= 0; --key)
        at(key) = at(key + 1) - stepCents(strings, key);
    return cents;
}

std::vector<PianoSize> pianoSizes() {
    const std::string model =
        " Computed from typical string inharmonicity; octaves 6:3 in the bass, 4:2 in the middle, "
        "2:1 in the treble.";
    return {
        {"Concert Grand", "A grand of about 2.7 m." + model, {0.9e-4, 0.085, 6.0e-4, 0.090}},
        {"Parlour Grand", "A grand of about 2.0 m." + model, {2.2e-4, 0.085, 6.5e-4, 0.090}},
        {"Upright", "An upright of about 1.3 m." + model, {4.0e-4, 0.085, 7.0e-4, 0.090}},
        {"Console", "A console of about 1.05 m." + model, {5.5e-4, 0.085, 7.4e-4, 0.090}},
        {"Spinet", "A spinet piano of about 0.95 m." + model, {7.5e-4, 0.085, 7.8e-4, 0.090}},
    };
}

} // namespace veltrano::content
