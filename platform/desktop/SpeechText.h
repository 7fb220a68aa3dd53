// SPDX-License-Identifier: GPL-3.0-or-later
// What is written, as it is said.
#pragma once

#include <string>
#include <string_view>

namespace veltrano {

/// Signs in words: "+3.2" is "plus 3.2", "-12" is "minus 12", "F#" is "F sharp". Speech services
/// leave such signs out unless the user has asked for all punctuation. A sign counts at the start
/// of a word and before a digit, a # after a letter at the end of a word.
std::string speechText(std::string_view utf8);

} // namespace veltrano
