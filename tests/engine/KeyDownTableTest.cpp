// SPDX-License-Identifier: GPL-3.0-or-later
// The table of the tuner window's bare keys.
#include "engine/KeyDownTable.h"

#include <gtest/gtest.h>
#include <map>

namespace veltrano {
namespace {

TEST(KeyDownTable, NamedKeys) {
    EXPECT_EQ(actionOfKey(NamedKey::rightArrow), KeyAction::noteUp);
    EXPECT_EQ(actionOfKey(NamedKey::leftArrow), KeyAction::noteDown);
    EXPECT_EQ(actionOfKey(NamedKey::upArrow), KeyAction::octaveUp);
    EXPECT_EQ(actionOfKey(NamedKey::downArrow), KeyAction::octaveDown);
    EXPECT_EQ(actionOfKey(NamedKey::tab), KeyAction::playSoundBack);
    EXPECT_EQ(actionOfKey(NamedKey::keypadEnter), KeyAction::playSoundBack);
}

TEST(KeyDownTable, CharactersAndNoOthers) {
    const std::map<char32_t, KeyAction> known{
        {U'6', KeyAction::noteUp},          {U' ', KeyAction::noteUp},
        {U'4', KeyAction::noteDown},        {U'8', KeyAction::octaveUp},
        {U'2', KeyAction::octaveDown},      {U'u', KeyAction::autoManualToggle},
        {U'b', KeyAction::soundBackToggle}, {U'y', KeyAction::playSoundBack}};
    for (char32_t character = 0; character < 256; ++character) {
        const auto found = known.find(character);
        const auto expected = found == known.end() ? std::nullopt : std::optional(found->second);
        EXPECT_EQ(actionOfCharacter(character), expected) << unsigned(character);
    }
}

} // namespace
} // namespace veltrano
