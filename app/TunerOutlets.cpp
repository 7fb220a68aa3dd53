// SPDX-License-Identifier: GPL-3.0-or-later
// The views of the tuner window, found by name in its interface file.
#include "app/TunerOutlets.h"

#include "displays/AutoResizeTextField.h"
#include "displays/DotView.h"
#include "displays/StrobeView.h"
#include "displays/TuningMeterView.h"

#include <QWidget>

namespace veltrano {

namespace {

// In the order of TunerText.
constexpr std::array<const char*, kTunerTexts> kTextNames{
    "mInputDeviceText",    "mFrequencyText",      "mNoteText",          "mLevelText",
    "mReferencePitchText", "mAccidentalText",     "mOctaveText",        "mCentText",
    "mFrequencyDiffText",  "mIdealFrequencyText", "mStretchOffsetText", "mTuningName",
    "mStretchName"};

// In the order of TunerLight.
constexpr std::array<const char*, kTunerLights> kLightNames{
    "mLevel0", "mLevel1", "mLevel2",  "mLevel3",    "mLevel4",  "mLevel5",
    "mLevel6", "mLevel7", "mFlatDot", "mInTuneDot", "mSharpDot"};

template <class View>
bool find(const QWidget& root, const char* name, View*& outlet, QString* missing) {
    outlet = root.findChild<View*>(QLatin1String(name));
    if (outlet == nullptr) *missing = QLatin1String(name);
    return outlet != nullptr;
}

} // namespace

bool TunerOutlets::connect(const QWidget& root, QString* missing) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!find(root, kTextNames[i], texts[i], missing)) return false;
    }
    for (std::size_t i = 0; i < lights.size(); ++i) {
        if (!find(root, kLightNames[i], lights[i], missing)) return false;
    }
    return find(root, "mTuningMeterView", meter, missing) &&
           find(root, "mStrobeView", strobe, missing);
}

} // namespace veltrano
