// SPDX-License-Identifier: GPL-3.0-or-later
// The bare keys of the tuner window.
#include "engine/KeyDownTable.h"

namespace veltrano {

std::optional<KeyAction> actionOfKey(NamedKey key) {
    switch (key) {
    case NamedKey::rightArrow:
        return KeyAction::noteUp;
    case NamedKey::leftArrow:
        return KeyAction::noteDown;
    case NamedKey::upArrow:
        return KeyAction::octaveUp;
    case NamedKey::downArrow:
        return KeyAction::octaveDown;
    case NamedKey::tab:
    case NamedKey::keypadEnter:
        return KeyAction::playSoundBack;
    }
    return std::nullopt;
}

// The digits lie as the arrows do on a keypad; the space moves on from key to key.
std::optional<KeyAction> actionOfCharacter(char32_t character) {
    switch (character) {
    case U'6':
    case U' ':
        return KeyAction::noteUp;
    case U'4':
        return KeyAction::noteDown;
    case U'8':
        return KeyAction::octaveUp;
    case U'2':
        return KeyAction::octaveDown;
    case U'u':
        return KeyAction::autoManualToggle;
    case U'b':
        return KeyAction::soundBackToggle;
    case U'y':
        return KeyAction::playSoundBack;
    default:
        return std::nullopt;
    }
}

} // namespace veltrano
