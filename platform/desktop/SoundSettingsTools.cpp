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
        {"", {"pavucontrol", {"--tab=4"}}}, // the page of input devices
        {"", {"pavucontrol-qt", {"--tab=4"}}},
        {"", {"pwvucontrol", {}}},
        {"gnome", {"gnome-control-center", {"sound"}}},
        {"unity", {"unity-control-center", {"sound"}}},
        {"budgie", {"budgie-control-center", {"sound"}}},
        {"kde", {"systemsettings", {"kcm_pulseaudio"}}},
        {"kde", {"systemsettings5", {"kcm_pulseaudio"}}},
        {"kde", {"kcmshell6", {"kcm_pulseaudio"}}},
        {"kde", {"kcmshell5", {"kcm_pulseaudio"}}},
        {"xfce", {"xfce4-mixer", {}}},
        {"xfce", {"pavucontrol", {"--tab=4"}}},
        {"mate", {"mate-volume-control", {"--page=input"}}},
        {"x-cinnamon", {"cinnamon-settings", {"sound"}}},
        {"lxqt", {"pavucontrol-qt", {"--tab=4"}}},
        {"deepin", {"dde-control-center", {"-p", "sound"}}},
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

/// How soon a row's turn comes: with the desktop's names, which are in the order of their weight.
std::size_t turnOf(const Row& row, const std::string& current) {
    if (row.desktop.empty()) return current.size() + 2; // after the last name
    const std::size_t at = (':' + current + ':').find(':' + std::string(row.desktop) + ':');
    return at == std::string::npos ? current.size() + 3 : at;
}

} // namespace

std::vector<SoundSettingsTool> soundSettingsTools(std::string_view currentDesktop) {
    const std::string current = lowered(currentDesktop);
    std::vector<Row> sorted = rows();
    std::ranges::stable_sort(sorted, {}, [&](const Row& row) { return turnOf(row, current); });
    std::vector<SoundSettingsTool> tools;
    for (const Row& row : sorted)
        tools.push_back(row.tool);
    return tools;
}

} // namespace veltrano
