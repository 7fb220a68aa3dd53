// SPDX-License-Identifier: GPL-3.0-or-later
// A tuner display that lists the calls it gets and keeps what they show.
#pragma once

#include "engine/TunerDisplay.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

std::string_view nameOf(TunerText field);
std::string_view nameOf(TunerLight light);
std::string_view nameOf(LightImage image);

/// Each call is one line of calls(): the operation without its "set", then its arguments, such as
/// "text cent +12.3", "tip tuningName Equal Tempered.", "hidden accidental yes",
/// "light inTune green28x28", "meterCent 12.3", "meterThreshold 3", "meterEnabled no",
/// "strobeSampleRate 44100", "strobeFrequency 440", "strobePeak 0.5", "strobeData 5393" (samples),
/// "strobeData none", "scopePeak 0.5", "scopeData 1", "pianoNote 57". Numbers are the shortest
/// texts that read back the same, whatever the locale.
class RecordingTunerDisplay final : public TunerDisplay {
public:
    void setText(TunerText field, std::string_view text) override;
    std::string text(TunerText field) const override { return texts[std::size_t(field)]; }
    void setTip(TunerText field, std::string_view tip) override;
    void setHidden(TunerText field, bool hidden) override;
    void setLight(TunerLight light, LightImage image) override;
    void setMeterCent(float cents) override;
    void setMeterThreshold(long cents) override;
    void setMeterEnabled(bool enabled) override;
    void setStrobeSampleRate(float hz) override;
    void setStrobeFrequency(float hz) override;
    void setStrobePeak(float amplitude) override;
    void setStrobeData(FrameRef frame) override;
    void setScopePeak(float amplitude) override;
    void setScopeData(FrameRef frame) override;
    void setPianoNote(int key) override;

    LightImage light(TunerLight which) const { return lights[std::size_t(which)]; }
    /// The calls since the last takeCalls(), oldest first; the list is empty afterwards.
    std::vector<std::string> takeCalls();
    /// The calls that begin with @p operation, such as "text cent" or "light".
    std::vector<std::string> callsOf(std::string_view operation) const;

    std::vector<std::string> calls;
    // What is shown now, by number of the field or light.
    std::array<std::string, kTunerTexts> texts;
    std::array<std::string, kTunerTexts> tips;
    std::array<bool, kTunerTexts> hidden{};
    std::array<LightImage, kTunerLights> lights{}; ///< gray16x16 until set
    float meterCent = 0;
    long meterThreshold = 0;
    bool meterEnabled = true;
    float strobeSampleRate = 0;
    float strobeFrequency = 0;
    float strobePeak = 0;
    FrameRef strobeData;
    float scopePeak = 0;
    FrameRef scopeData;
    int pianoNote = -1;
};

} // namespace veltrano
