// SPDX-License-Identifier: GPL-3.0-or-later
// A scope with settings of its own, and blocks for it.
#pragma once

#include "analysis/HilbertView.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"
#include "tests/analysis/ViewPictures.h"

#include <gtest/gtest.h>
#include <numbers>
#include <vector>

namespace veltrano {

inline constexpr std::size_t kBlock = 5393; ///< of the tuner at 44.1 kHz

inline FrameRef blockOf(std::vector<float> samples) {
    struct Held {
        std::vector<float> samples;
        Frame frame;
    };
    auto held = std::make_shared<Held>();
    held->samples = std::move(samples);
    held->frame.samples = held->samples;
    return {held, &held->frame};
}

/// @param turns in 4096 samples
/// @param phase of a turn; 0 is a sine, a quarter a cosine
inline std::vector<float> wave(double turns, double amplitude, double phase = 0) {
    std::vector<float> samples(kBlock);
    for (std::size_t i = 0; i < kBlock; ++i) {
        const double angle = turns * static_cast<double>(i) / 4096 + phase;
        samples[i] = static_cast<float>(amplitude * std::sin(2 * std::numbers::pi * angle));
    }
    return samples;
}

inline FrameRef sine(double turns, double amplitude) { return blockOf(wave(turns, amplitude)); }

/// One sample that is not zero.
inline FrameRef impulse(std::size_t place, float level, std::size_t length = kBlock) {
    std::vector<float> samples(length);
    samples[place] = level;
    return blockOf(std::move(samples));
}

/// What is sent while there is nothing to show.
inline FrameRef zeroBlock() { return blockOf({0.0f}); }

class ScopeTest : public testing::Test {
protected:
    ScopeTest() {
        mView.resize(360, 360);
        mPreferences.setHilbertLine(true);
        mPreferences.setHilbertDecay(false);
        mPreferences.setHilbertGrid(false);
    }

    double ratio() const { return mView.devicePixelRatioF(); }
    /// One drawing, with as many pixels as the screen has.
    Seen draw() { return Seen(mView, ratio()); }
    Seen draw(FrameRef block) {
        mView.setData(std::move(block));
        return draw();
    }

    UserDefaults mDefaults = UserDefaults::inMemory();
    NotificationCenter mNotifications;
    Preferences mPreferences{{mDefaults, mNotifications}};
    HilbertView mView{mPreferences};
};

/// How much of a pixel is black on white, 0 ... 1.
inline double inkOf(QRgb pixel) { return 1 - qGreen(pixel) / 255.0; }

/// The smallest rectangle with everything that is not of that colour. [pixels]
inline QRect extentBeside(QRgb background, const QImage& picture) {
    QRect extent;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != background) extent |= QRect(x, y, 1, 1);
        }
    }
    return extent;
}

} // namespace veltrano
