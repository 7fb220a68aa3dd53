// SPDX-License-Identifier: GPL-3.0-or-later
// A tone generator with a scripted output unit of 8000 Hz and a driven timer.
#pragma once

#include "audio/SoundGen.h"
#include "tests/audio/AUOutputTestBase.h"
#include "tests/support/DrivenTimer.h"

#include <QCoreApplication>
#include <array>
#include <memory>
#include <vector>

namespace veltrano {

/// The base of the tests of SoundGen. Thread: main.
class SoundGenTest : public AUOutputUnitTestBase {
protected:
    void SetUp() override {
        device = hardware.addDevice(loudspeaker("A", kRate));
        auto made = std::make_unique<DrivenTimer>();
        timer = made.get();
        generator = std::make_unique<SoundGen>(std::move(made));
        generator->setAUOutputUnit(unit());
        unit().setOutputDeviceWithName("M : A");
        settle();
        script.takeCalls();
        render(1);
    }
    void TearDown() override { generator.reset(); }

    /// The first channel of one render cycle.
    std::vector<float> render(std::uint32_t frames) {
        std::vector<float> left(frames, -9), right(frames, -9);
        std::array<AudioBuffer, 2> buffers{bufferOf(left), bufferOf(right)};
        EXPECT_EQ(script.render(buffers, frames), 0);
        EXPECT_EQ(left, right);
        return left;
    }
    static AudioBuffer bufferOf(std::vector<float>& samples) {
        return {1, std::uint32_t(samples.size() * sizeof(float)), samples.data()};
    }
    /// Plays to the end of the fade-out, which the event loop then hears of.
    void renderToTheEnd() {
        const float last = render(20000).back();
        EXPECT_EQ(last, 0.0f);
        QCoreApplication::processEvents();
    }
    /// Square waves of 0 Hz show the envelope.
    void playEnvelope(float seconds) {
        generator->setWaveform(3);
        generator->setVolume(1);
        generator->playFreq(0, seconds);
    }

    static constexpr double kRate = 8000;
    static constexpr std::uint32_t kRamp = 800; ///< samples

    DeviceId device = 0;
    DrivenTimer* timer = nullptr;
    std::unique_ptr<SoundGen> generator;
};

} // namespace veltrano
