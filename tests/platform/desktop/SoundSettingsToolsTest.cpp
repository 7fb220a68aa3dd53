// SPDX-License-Identifier: GPL-3.0-or-later
// Which program for the sound settings is tried before which.
#include "platform/desktop/SoundSettingsTools.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Words = std::vector<std::string>;

Words programsOf(std::string_view desktop) {
    Words programs;
    for (const SoundSettingsTool& tool : soundSettingsTools(desktop))
        programs.push_back(tool.program);
    return programs;
}

TEST(SoundSettingsTools, TheDesktopsOwnComeFirst) {
    const Words kde = {"systemsettings", "systemsettings5", "kcmshell6", "kcmshell5"};
    const struct {
        const char* desktop;
        Words own;
    } kCases[] = {
        {"GNOME", {"gnome-control-center"}},
        {"ubuntu:GNOME", {"gnome-control-center"}},
        {"GNOME-Classic:GNOME", {"gnome-control-center"}},
        {"gnome", {"gnome-control-center"}},
        {"KDE", kde},
        {"XFCE", {"xfce4-mixer", "pavucontrol"}},
        {"MATE", {"mate-volume-control"}},
        {"X-Cinnamon", {"cinnamon-settings"}},
        {"LXQt", {"pavucontrol-qt"}},
        {"Unity:Unity7:ubuntu", {"unity-control-center"}},
        {"Budgie:GNOME", {"budgie-control-center", "gnome-control-center"}},
        {"GNOME:Budgie", {"gnome-control-center", "budgie-control-center"}},
        {"Deepin", {"dde-control-center"}},
        // None of those above: the mixers that run everywhere.
        {"", {"pavucontrol", "pavucontrol-qt", "pwvucontrol"}},
        {"sway", {"pavucontrol", "pavucontrol-qt", "pwvucontrol"}},
        {"GNOMELIKE:KD", {"pavucontrol", "pavucontrol-qt", "pwvucontrol"}},
        {":::", {"pavucontrol", "pavucontrol-qt", "pwvucontrol"}},
    };
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.desktop);
        Words programs = programsOf(c.desktop);
        programs.resize(c.own.size());
        EXPECT_EQ(programs, c.own);
    }
}

/// Those of other desktops may start and refuse to show anything.
TEST(SoundSettingsTools, MixersOfNoDesktopComeBeforeTheToolsOfOthers) {
    for (const char* desktop : {"GNOME", "KDE", "sway"}) {
        SCOPED_TRACE(desktop);
        const Words programs = programsOf(desktop);
        const auto mixer = std::ranges::find(programs, "pwvucontrol");
        const auto foreign = std::ranges::find(programs, "cinnamon-settings");
        ASSERT_NE(foreign, programs.end()) << "better than nothing";
        EXPECT_LT(mixer, foreign);
    }
}

TEST(SoundSettingsTools, TheyOpenAtTheirSoundPage) {
    const struct {
        const char* program;
        Words arguments;
    } kCases[] = {{"gnome-control-center", {"sound"}},
                  {"systemsettings", {"kcm_pulseaudio"}},
                  {"mate-volume-control", {"--page=input"}},
                  {"dde-control-center", {"-p", "sound"}},
                  {"pavucontrol", {"--tab=4"}}};
    const auto tools = soundSettingsTools("");
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.program);
        const auto tool = std::ranges::find(tools, c.program, &SoundSettingsTool::program);
        ASSERT_NE(tool, tools.end());
        EXPECT_EQ(tool->arguments, c.arguments);
    }
}

TEST(SoundSettingsTools, EveryDesktopKnowsTheSameTools) {
    Words all = programsOf("");
    std::ranges::sort(all);
    for (const char* desktop : {"GNOME", "KDE", "XFCE", "LXQt"}) {
        Words programs = programsOf(desktop);
        std::ranges::sort(programs);
        EXPECT_EQ(programs, all) << desktop;
    }
}

} // namespace
} // namespace veltrano
