// SPDX-License-Identifier: GPL-3.0-or-later
// The views of the tuner window, found by name in its interface file.
#pragma once

#include "engine/TunerDisplay.h"

#include <QString>
#include <array>

class QWidget;

namespace veltrano {

class AutoResizeTextField;
class DotView;
class StrobeView;
class TuningMeterView;

/// Not owned; they live as long as the widget in which they were found.
struct TunerOutlets {
    std::array<AutoResizeTextField*, kTunerTexts> texts{};
    std::array<DotView*, kTunerLights> lights{};
    TuningMeterView* meter = nullptr;
    StrobeView* strobe = nullptr;

    AutoResizeTextField& text(TunerText field) const {
        return *texts[static_cast<std::size_t>(field)];
    }
    DotView& light(TunerLight light) const { return *lights[static_cast<std::size_t>(light)]; }

    /// Fills every outlet from the descendants of @p root. False when one is missing or of another
    /// class; @p missing then names it.
    bool connect(const QWidget& root, QString* missing);
};

} // namespace veltrano
