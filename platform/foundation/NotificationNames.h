// SPDX-License-Identifier: GPL-3.0-or-later
// The names of all notifications inside the program.
#pragma once

#include <string_view>

namespace veltrano::notification {

// The object is null unless stated.
inline constexpr std::string_view kReferencePitch = "morvane.ReferencePitchNotification";
inline constexpr std::string_view kTemperamentChanged = "morvane.TemperamentChangedNotification";
inline constexpr std::string_view kRootKeyChanged = "morvane.RootKeyChangedNotification";
inline constexpr std::string_view kStretchChanged = "morvane.StretchChangedNotification";
inline constexpr std::string_view kInTuneThresholdChanged =
    "morvane.InTuneThresholdChangedNotification";
inline constexpr std::string_view kManualModeChanged = "morvane.ManualModeChangedNotification";
inline constexpr std::string_view kTemperamentEdited =
    "morvane.TemperamentEditedNotification"; ///< object: the document
inline constexpr std::string_view kTemperamentSaved = "morvane.TemperamentSavedNotification";
inline constexpr std::string_view kStretchEdited =
    "morvane.StretchEditedNotification"; ///< object: the document
inline constexpr std::string_view kStretchSaved = "morvane.StretchSavedNotification";
inline constexpr std::string_view kPartialsChanged =
    "morvane.PartialsChangedNotification"; ///< object: the partials

} // namespace veltrano::notification
