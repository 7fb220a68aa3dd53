// SPDX-License-Identifier: GPL-3.0-or-later
// The programs with which desktops set up their sound.
#include "platform/desktop/SoundSettingsTools.h"

#include <algorithm>
#include <cctype>

namespace veltrano {

namespace {

struct Row {
    std::string_view desktop; ///< lower case; empty: of none
    SoundSettingsTool tool;
};

const std::vector<Row>& rows() {
    static const std::vector<Row> kRows{
        {"gnome", {"gnome-control-center", {"sound"}}},
        {"unity", {"unity-control-center", {"sound"}}},
        {"budgie", {"budgie-control-center", {"sound"}}},
        {"kde", {"systemsettings", {"kcm_pulseaudio"}}},
        {"kde", {"systemsettings5", {"kcm_pulseaudio"}}},
        {"kde", {"kcmshell6", {"kcm_pulseaudio"}}},
        {"kde", {"kcmshell5", {"kcm_pulseaudio"}}},
        {"xfce", {"xfce4-mixer", {}}},
        {"xfce", {"pavucontrol", {"--tab=4"}}}, // its page of input devices
        {"mate", {"mate-volume-control", {"--page=input"}}},
        {"x-cinnamon", {"cinnamon-settings", {"sound"}}},
        {"lxqt", {"pavucontrol-qt", {"--tab=4"}}},
        {"deepin", {"dde-control-center", {"-p", "sound"}}},
        {"", {"pavucontrol", {"--tab=4"}}},
        {"", {"pavucontrol-qt", {"--tab=4"}}},
        {"", {"pwvucontrol", {}}},
    };
    return kRows;
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    return lower;
}

bool isNamedIn(std::string_view desktop, const std::string& current) {
    if (desktop.empty()) return false;
    const std::string wanted = ':' + std::string(desktop) + ':';
    return (':' + current + ':').find(wanted) != std::string::npos;
}

} // namespace

std::vector<SoundSettingsTool> soundSettingsTools(std::string_view currentDesktop) {
    const std::string current = lowered(currentDesktop);
    std::vector<SoundSettingsTool> own, others;
    for (const Row& row : rows())
        (isNamedIn(row.desktop, current) ? own : others).push_back(row.tool);
    own.insert(own.end(), others.begin(), others.end());
    return own;
}

} // namespace veltrano
