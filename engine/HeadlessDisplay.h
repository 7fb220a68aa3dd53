// SPDX-License-Identifier: GPL-3.0-or-later
// The state of the tuner's displays without a window.
#pragma once

#include "engine/TunerDisplay.h"

#include <array>

namespace veltrano {

/// Keeps what the fields and lights show; the rest is not looked at. Thread: main.
class HeadlessDisplay final : public TunerDisplay {
public:
    HeadlessDisplay();

    void setText(TunerText field, std::string_view text) override { at(field) = text; }
    std::string text(TunerText field) const override {
        return mTexts[static_cast<std::size_t>(field)];
    }
    void setTip(TunerText, std::string_view) override {}
    void setHidden(TunerText, bool) override {}
    void setLight(TunerLight light, LightImage image) override {
        mLights[static_cast<std::size_t>(light)] = image;
    }
    LightImage light(TunerLight light) const { return mLights[static_cast<std::size_t>(light)]; }

    void setMeterCent(float) override {}
    void setMeterThreshold(long) override {}
    void setMeterEnabled(bool) override {}
    void setStrobeSampleRate(float) override {}
    void setStrobeFrequency(float) override {}
    void setStrobePeak(float) override {}
    void setStrobeData(FrameRef) override {}
    void setScopePeak(float) override {}
    void setScopeData(FrameRef) override {}
    void setPianoNote(int) override {}

private:
    std::string& at(TunerText field) { return mTexts[static_cast<std::size_t>(field)]; }

    std::array<std::string, kTunerTexts> mTexts;
    std::array<LightImage, kTunerLights> mLights; ///< grey until set
};

} // namespace veltrano
