// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-piano-recording OUT.wav KEY...: those keys of a sampled piano, struck together.
#include "tests/instruments/SampledPiano.h"
#include "tests/support/WavFile.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    using veltrano::SampledPiano;
    const auto fonts = SampledPiano::installedFonts();
    if (argc < 3 || fonts.empty()) {
        std::fprintf(stderr, "usage: %s OUT.wav KEY..., with a sound font installed\n", argv[0]);
        return 2;
    }
    const std::filesystem::path out = argv[1];
    const auto piano = SampledPiano::render(fonts.front(), out.parent_path());
    if (!piano) return 1;
    std::vector<float> sound;
    for (int i = 2; i < argc; ++i) {
        const std::vector<float> note = piano->note(std::atoi(argv[i]));
        sound.resize(std::max(sound.size(), note.size()));
        std::ranges::transform(note, sound, sound.begin(), [argc](float one, float all) {
            return all + one / static_cast<float>(argc - 2);
        });
    }
    return veltrano::writeWav(out, sound, SampledPiano::kRateHz) ? 0 : 1;
}
