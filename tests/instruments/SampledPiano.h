// SPDX-License-Identifier: GPL-3.0-or-later
// Single notes of a sampled piano, rendered by fluidsynth.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace veltrano {

/// All notes of one sound font's grand piano (its first program), struck with medium force.
///
/// Allocates: everything in render(), some 45 MB.
class SampledPiano {
public:
    static constexpr int kFirstKey = 9;        ///< A0
    static constexpr int kLastKey = 96;        ///< C8
    static constexpr unsigned kRateHz = 44100; ///< of note()
    static constexpr double kNoteSeconds = 2.2;

    /// The sound fonts of the distribution that are installed, the light one first.
    static std::vector<std::filesystem::path> installedFonts();

    /// Whether fluidsynth is installed.
    static bool canRender();
    /// Renders all keys in one run of fluidsynth, without reverberation or chorus.
    /// @param folder for the files on the way
    /// @return nullopt when fluidsynth fails
    static std::optional<SampledPiano> render(const std::filesystem::path& font,
                                              const std::filesystem::path& folder);

    /// Mono samples of a key from its stroke on, scaled to a peak of 0.9.
    std::vector<float> note(int key) const;

private:
    std::vector<float> mSamples; ///< mono, a note every kSpacingSeconds
};

} // namespace veltrano
