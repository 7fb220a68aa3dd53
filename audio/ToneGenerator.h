// SPDX-License-Identifier: GPL-3.0-or-later
// What the tuner and the settings ask of the sound-back tone.
#pragma once

namespace veltrano {

/// Thread: main.
class ToneGenerator {
public:
    virtual ~ToneGenerator() = default;
    virtual void playFreq(float frequencyHz, float lengthSeconds) = 0;
    virtual void setLength(float seconds) = 0; ///< 0 ends a tone that is playing
    virtual void setVolume(float factor) = 0;  ///< linear amplitude, 1 = full scale
    virtual void setWaveform(int index) = 0;   ///< 0 sine, 1 triangle, 2 sawtooth, 3 square
};

} // namespace veltrano
