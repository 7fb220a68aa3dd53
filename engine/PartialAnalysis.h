// SPDX-License-Identifier: GPL-3.0-or-later
// What the update cycle gives to the analysis of partials.
#pragma once

#include "platform/realtime/Frame.h"

namespace veltrano {

/// Thread: main.
class PartialAnalysis {
public:
    virtual ~PartialAnalysis() = default;
    virtual void setSampleRate(float hz) = 0;
    virtual void setData(FrameRef frame) = 0; ///< null: paused or silent
};

} // namespace veltrano
