// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a hardware call as one line of text, such as "setVolume 1073741824 input 1 0.5".
#pragma once

#include "platform/audio/AudioTypes.h"
#include "platform/audio/FaultPlan.h"

#include <string>
#include <string_view>

namespace veltrano::call_text {

std::string_view nameOf(HardwareCall call);

/// The words of a call. The wildcard channel is "all", a property its four characters, a float the
/// shortest text that reads back as the same float.
std::string word(std::uint32_t number);
std::string word(float value);
std::string word(Direction direction);
std::string word(PropertyCode property);

template <class... Words>
std::string line(HardwareCall call, const Words&... words) {
    std::string text(nameOf(call));
    ((text += ' ', text += word(words)), ...);
    return text;
}

} // namespace veltrano::call_text
