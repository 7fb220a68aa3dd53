// SPDX-License-Identifier: GPL-3.0-or-later
// The bare keys of the tuner window.
#pragma once

#include <optional>

namespace veltrano {

/// What a key of the tuner window asks for.
enum class KeyAction {
    noteUp,
    noteDown,
    octaveUp,
    octaveDown,
    autoManualToggle,
    soundBackToggle,
    playSoundBack,
};

/// Keys that have no character.
enum class NamedKey { rightArrow, leftArrow, upArrow, downArrow, tab, keypadEnter };

/// The named key comes first, then the character.
std::optional<KeyAction> actionOfKey(NamedKey key);
/// @param character lower case
std::optional<KeyAction> actionOfCharacter(char32_t character);

} // namespace veltrano
