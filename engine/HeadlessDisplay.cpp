// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/HeadlessDisplay.h"

namespace veltrano {

HeadlessDisplay::HeadlessDisplay() {
    mLights.fill(LightImage::gray16x16);
    setLight(TunerLight::inTune, LightImage::gray28x28);
    setLight(TunerLight::flat, LightImage::gray24x24);
    setLight(TunerLight::sharp, LightImage::gray24x24);
}

} // namespace veltrano
