// SPDX-License-Identifier: GPL-3.0-or-later
// A voice.
#pragma once

#include <string_view>

namespace veltrano {

/// Speaks one text at a time. Thread: main.
class SpeechPort {
public:
    virtual ~SpeechPort() = default;
    virtual bool isSpeaking() const = 0;
    virtual void say(std::string_view utf8) = 0; ///< returns at once
};

} // namespace veltrano
