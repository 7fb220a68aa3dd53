// SPDX-License-Identifier: GPL-3.0-or-later
// What the main thread and the render thread share.
#include "audio/SoundGen.h"
#include "platform/audio/HardwareOutputUnit.h"
#include "platform/audio/SpeakerDevice.h"
#include "tests/audio/AUOutputTestBase.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <random>
#include <thread>

namespace veltrano {
namespace {

using Clock = std::chrono::steady_clock;

// --- a request crosses whole ---

/// Two kinds of tones whose frequency and length can both be told from one block of samples: at
/// 16 Hz a ramp is one sample, and at phases that are odd eighths no sample of a triangle is 0.
struct Kind {
    float hz;
    float seconds;
    int frames;
};
constexpr Kind kAlternating{8, 3.0f / 16, 3}; // + - + - ...
constexpr Kind kPairs{4, 7.0f / 16, 7};       // + + - - ...

class RequestReader {
public:
    explicit RequestReader(OutputUnitScript& script) : mScript(script) {}

    void run() {
        while (!isEnding)
            renderBlock();
        renderBlock();
    }

    std::atomic<bool> isEnding{false};
    std::atomic<int> alternating{0}, pairs{0}; ///< written by the reading thread
    int torn = 0;                              ///< that thread's; read when it has ended

private:
    void renderBlock() {
        std::array<float, 16> samples;
        AudioBuffer buffer{1, sizeof samples, samples.data()};
        mScript.render(AudioBufferList(&buffer, 1), 16);
        const auto isSilent = [](float x) { return x == 0; };
        const auto frames = std::ranges::find_if(samples, isSilent) - samples.begin();
        if (frames == 0) return; // nothing was asked since
        const bool isAlternating = samples[0] * samples[1] < 0 && samples[1] * samples[2] < 0;
        if (frames != (isAlternating ? kAlternating : kPairs).frames) ++torn;
        ++(isAlternating ? alternating : pairs);
    }

    OutputUnitScript& mScript;
};

class ToneThreads : public AUOutputUnitTestBase {};

TEST_F(ToneThreads, ARequestIsNeverHalfOldAndHalfNew) {
    hardware.addDevice(loudspeaker("A", 16));
    SoundGen generator;
    generator.setAUOutputUnit(unit());
    unit().setOutputDeviceAtIndex(0);
    generator.setWaveform(1);
    generator.setVolume(1);
    // To an odd eighth of the phase.
    generator.playFreq(2, 0);
    float first = 0;
    AudioBuffer buffer{1, sizeof first, &first};
    script.render(AudioBufferList(&buffer, 1), 1);

    RequestReader reader(script);
    std::thread rendering([&] { reader.run(); });
    const auto end = Clock::now() + std::chrono::seconds(60);
    const auto isEnough = [&] { return reader.alternating > 5000 && reader.pairs > 5000; };
    for (int i = 0; (i < 100'000 || !isEnough()) && Clock::now() < end; ++i) {
        const Kind& kind = i * 7 % 5 % 2 == 0 ? kAlternating : kPairs;
        generator.playFreq(kind.hz, kind.seconds);
    }
    reader.isEnding = true;
    rendering.join();
    EXPECT_TRUE(isEnough()) << reader.alternating << ' ' << reader.pairs;
    EXPECT_EQ(reader.torn, 0);
    EXPECT_FALSE(generator.isPlaying()) << "the last one was served";
}

// --- everything changes while it plays ---

/// The whole output side on two loudspeakers of the virtual hardware, in real time.
class PlayingThreads : public AudioUnitTestBase {
protected:
    PlayingThreads() {
        for (const char* name : {"Left", "Right"}) {
            SpeakerDevice::Parameters parameters;
            parameters.name = name;
            parameters.sampleRateHz = 96000;
            parameters.framesPerBlock = 64;
            parameters.mostSeconds = 30;
            speakers.push_back(std::make_unique<SpeakerDevice>(hardware, parameters));
        }
        hardware.setDefaultDevice(kOut, speakers[0]->id());
    }

    void settle() {
        mainThread.runAll();
        QCoreApplication::processEvents();
    }

    std::vector<std::unique_ptr<SpeakerDevice>> speakers;
    std::mt19937 random{20};
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(random); }
};

TEST_F(PlayingThreads, TheToneChangesAtRandomWhileItPlays) {
    HardwareOutputUnits units(hardware, [this](auto task) { mainThread.post(std::move(task)); });
    AUOutputUnit output(registry(), units);
    SoundGen generator;
    generator.setAUOutputUnit(output);
    output.setOutputDeviceWithName("Speaker : Left");
    settle();
    for (const auto& speaker : speakers)
        speaker->startRealTime();

    int tones = 0, ends = 0;
    bool wasPlaying = false;
    const auto begin = Clock::now();
    const auto isOver = [&](int seconds) {
        return Clock::now() > begin + std::chrono::seconds(seconds);
    };
    while (!isOver(2) || ((tones < 200 || ends < 20) && !isOver(60))) {
        switch (upTo(40)) {
        case 0:
            output.setOutputDeviceAtIndex(upTo(1));
            break;
        case 1:
            hardware.changeFormat(output.outputDevice(), kOut,
                                  VirtualDevice::format(upTo(1) == 0 ? 44100 : 96000, 2));
            break;
        case 2:
            generator.setLength(0);
            break;
        case 3:
            generator.stop();
            break;
        default:
            generator.setVolume(float(upTo(100)) / 100);
            generator.setWaveform(upTo(5) - 1);
            if (upTo(3) != 0) break;
            generator.playFreq(float(20 + upTo(10000)), float(upTo(40)) / 1000);
            ++tones;
        }
        const bool isPlaying = generator.isPlaying();
        ends += wasPlaying && !isPlaying;
        wasPlaying = isPlaying;
        settle();
        std::this_thread::sleep_for(std::chrono::microseconds(upTo(3000)));
    }
    for (const auto& speaker : speakers)
        speaker->stopRealTime();

    EXPECT_GE(tones, 200);
    EXPECT_GE(ends, 20);
    EXPECT_EQ(log.lines, Lines{});
    std::size_t sounding = 0;
    for (const auto& speaker : speakers) {
        for (const float x : speaker->played()) {
            ASSERT_LE(std::abs(x), 1.0f); // NaN is not, either
            sounding += x != 0;
        }
    }
    EXPECT_GT(sounding, std::size_t(96000 / 10));
}

} // namespace
} // namespace veltrano
