// SPDX-License-Identifier: GPL-3.0-or-later
// The programs with which desktops set up their sound.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace veltrano {

/// A program and its arguments. The name is looked for in PATH.
struct SoundSettingsTool {
    std::string program;
    std::vector<std::string> arguments;
};

/// All that are known, those of the running desktop first, then mixers that belong to none, then
/// those of other desktops: some of them start and show nothing where they do not belong. Where a
/// program can, it opens at its sound page.
/// @param currentDesktop names separated by colons, as in XDG_CURRENT_DESKTOP, in any case
std::vector<SoundSettingsTool> soundSettingsTools(std::string_view currentDesktop);

} // namespace veltrano
