// SPDX-License-Identifier: GPL-3.0-or-later
// The keys under which the settings are stored.
#pragma once

#include <string_view>

namespace veltrano::preference_key {

inline constexpr std::string_view kReferencePitch = "morvane.key.ReferencePitch"; ///< float [Hz]
inline constexpr std::string_view kTuning = "morvane.key.Tuning";   ///< file name; absent: equal
inline constexpr std::string_view kTonic = "morvane.key.Tonic";     ///< 0 ... 11
inline constexpr std::string_view kStretch = "morvane.key.Stretch"; ///< file name; absent: none
inline constexpr std::string_view kInTuneThreshold = "morvane.key.InTuneThreshold"; ///< [cents]
inline constexpr std::string_view kManualMode = "morvane.key.ManualMode";
inline constexpr std::string_view kManualType = "morvane.key.ManualType";   ///< 0 note, 1 pitch
inline constexpr std::string_view kManualNote = "morvane.key.ManualNote";   ///< key number
inline constexpr std::string_view kManualPitch = "morvane.key.ManualPitch"; ///< float [Hz]
inline constexpr std::string_view kPianoKeyboard = "morvane.key.PianoKeyboard";
inline constexpr std::string_view kHilbertScope = "morvane.key.HilbertScope";
inline constexpr std::string_view kHilbertLine = "morvane.key.HilbertLine";
inline constexpr std::string_view kHilbertDecay = "morvane.key.HilbertDecay";
inline constexpr std::string_view kHilbertGrid = "morvane.key.HilbertGrid";
inline constexpr std::string_view kPartials = "morvane.key.Partials";
inline constexpr std::string_view kPartialsHold = "morvane.key.PartialsHold";
inline constexpr std::string_view kSoundBack = "morvane.key.SoundBack";
inline constexpr std::string_view kSoundBackDuration =
    "morvane.key.SoundBackDuration";                                                ///< float [s]
inline constexpr std::string_view kSoundBackVolume = "morvane.key.SoundBackVolume"; ///< [percent]
inline constexpr std::string_view kSoundBackWaveform = "morvane.key.SoundBackWaveform"; ///< index
inline constexpr std::string_view kTuneSpeech = "morvane.key.TuneSpeech";
inline constexpr std::string_view kHertzSpeech = "morvane.key.HertzSpeech";
inline constexpr std::string_view kInputDevice = "morvane.key.InputDeviceKey";
inline constexpr std::string_view kOutputDevice = "morvane.key.OutputDeviceKey";

} // namespace veltrano::preference_key
