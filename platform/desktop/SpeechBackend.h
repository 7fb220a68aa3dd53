// SPDX-License-Identifier: GPL-3.0-or-later
// What makes the sound of a voice.
#pragma once

#include <string>

namespace veltrano {

/// Speaks what it is given; whoever gives it hears of it through SpeechTurns::started(), finished()
/// and failed(), during the call or any time later. Thread: main.
class SpeechBackend {
public:
    virtual ~SpeechBackend() = default;
    virtual void speak(const std::string& utf8) = 0;
    virtual void fallSilent() = 0; ///< ends what is being spoken
};

} // namespace veltrano
