// SPDX-License-Identifier: GPL-3.0-or-later
// Everything that the tuner shows, one call per outlet.
#pragma once

#include "platform/desktop/ControlPorts.h"
#include "platform/realtime/Frame.h"

#include <string>
#include <string_view>

namespace veltrano {

/// The text fields of the tuner window.
enum class TunerText {
    inputDevice,
    frequency,
    note,
    level,
    referencePitch,
    accidental,
    octave,
    cent,
    frequencyDiff,
    idealFrequency,
    stretchOffset,
    tuningName,
    stretchName,
};
constexpr int kTunerTexts = 13;

/// The lights of the tuner window; level0 is the lowest.
enum class TunerLight {
    level0,
    level1,
    level2,
    level3,
    level4,
    level5,
    level6,
    level7,
    flat,
    inTune,
    sharp,
};
constexpr int kTunerLights = 11;
constexpr int kLevelLights = 8;

constexpr TunerLight levelLight(int index) { return static_cast<TunerLight>(index); }

/// The port from the tuner to whatever shows its state: the window's views, the command line's
/// records, or a test's list of calls. Thread: main. Texts are UTF-8.
class TunerDisplay {
public:
    virtual ~TunerDisplay() = default;

    virtual void setText(TunerText field, std::string_view text) = 0;
    virtual std::string text(TunerText field) const = 0; ///< what the field shows, for speech
    virtual void setTip(TunerText field, std::string_view tip) = 0;
    virtual void setHidden(TunerText field, bool hidden) = 0;

    virtual void setLight(TunerLight light, LightImage image) = 0;

    virtual void setMeterCent(float cents) = 0;
    virtual void setMeterThreshold(long cents) = 0;
    virtual void setMeterEnabled(bool enabled) = 0;

    virtual void setStrobeSampleRate(float hz) = 0;
    virtual void setStrobeFrequency(float hz) = 0;
    virtual void setStrobePeak(float amplitude) = 0;
    virtual void setStrobeData(FrameRef frame) = 0; ///< null: only the background shows

    virtual void setScopePeak(float amplitude) = 0;
    virtual void setScopeData(FrameRef frame) = 0; ///< one silent sample when there is nothing

    virtual void setPianoNote(int key) = 0; ///< 0 ... 107, -1: no key is marked
};

} // namespace veltrano
