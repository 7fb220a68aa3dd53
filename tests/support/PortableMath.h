// SPDX-License-Identifier: GPL-3.0-or-later
// Functions that give the same bits on every machine.
#pragma once

#include <cmath>
#include <cstdint>
#include <numbers>

namespace veltrano::portable {

/// The maths library may differ by a unit in the last place between machines; additions,
/// multiplications and square roots may not. These use nothing else, so that made sounds are the
/// same everywhere. Accuracy: about 1e-15, relative for exp and absolute for sine and cosine.

/// @param x any finite number within +-700
inline double exp(double x) {
    const double halvings = std::nearbyint(x / std::numbers::ln2);
    const double rest = x - halvings * std::numbers::ln2;
    double sum = 1, term = 1;
    for (int n = 1; n < 20; ++n) {
        term *= rest / n;
        sum += term;
    }
    return std::ldexp(sum, static_cast<int>(halvings));
}

inline double exp2(double x) { return exp(x * std::numbers::ln2); }

struct SineCosine {
    double sine, cosine;
};

/// @param turns any number of whole turns
inline SineCosine sineCosine(double turns) {
    const double quarters = std::nearbyint(turns * 4);
    const double x = (turns - quarters / 4) * 2 * std::numbers::pi; // within +-pi/4
    double sine = x, cosine = 1, sineTerm = x, cosineTerm = 1;
    for (int n = 1; n < 12; ++n) {
        cosineTerm *= -x * x / ((2 * n - 1) * (2 * n));
        sineTerm *= -x * x / ((2 * n) * (2 * n + 1));
        cosine += cosineTerm;
        sine += sineTerm;
    }
    switch (static_cast<std::int64_t>(quarters) & 3) {
    case 0:
        return {sine, cosine};
    case 1:
        return {cosine, -sine};
    case 2:
        return {-sine, -cosine};
    default:
        return {-cosine, sine};
    }
}

/// Evenly spread numbers from a seed (a 64-bit linear congruential step and a mix of its bits).
class Random {
public:
    explicit Random(std::uint64_t seed) : mState(seed) {}

    std::uint64_t next() {
        mState = mState * 6364136223846793005u + 1442695040888963407u;
        std::uint64_t x = mState;
        x ^= x >> 33;
        x *= 0xff51afd7ed558ccdu;
        x ^= x >> 33;
        return x;
    }
    /// In [-1, 1).
    double bipolar() { return double(next() >> 11) / double(std::uint64_t{1} << 52) - 1; }

private:
    std::uint64_t mState;
};

} // namespace veltrano::portable
