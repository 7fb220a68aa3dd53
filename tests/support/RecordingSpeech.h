// SPDX-License-Identifier: GPL-3.0-or-later
// A voice that says nothing and remembers everything.
#pragma once

#include "platform/desktop/SpeechPort.h"

#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

class RecordingSpeech final : public SpeechPort {
public:
    bool isSpeaking() const override { return speaking; }
    void say(std::string_view utf8) override { said.emplace_back(utf8); }

    bool speaking = false; ///< what isSpeaking() answers; a test sets it
    std::vector<std::string> said;
};

} // namespace veltrano
