// SPDX-License-Identifier: GPL-3.0-or-later
// An I/O procedure that keeps what it is given.
#pragma once

#include "platform/audio/AudioTypes.h"

#include <mutex>
#include <vector>

namespace veltrano {

/// Thread: any. Pass it as the client data of recordBlock.
class BlockRecorder {
public:
    struct Block {
        DeviceId device = 0;
        double sampleTime = 0;
        std::vector<std::uint32_t> channels; ///< of each buffer
        std::vector<float> samples;          ///< of all buffers, one after the other
    };

    std::vector<Block> blocks() const {
        const std::scoped_lock lock(mMutex);
        return mBlocks;
    }
    std::size_t count() const {
        const std::scoped_lock lock(mMutex);
        return mBlocks.size();
    }
    /// The samples of all blocks.
    std::vector<float> samples() const {
        std::vector<float> all;
        for (const Block& block : blocks()) {
            all.insert(all.end(), block.samples.begin(), block.samples.end());
        }
        return all;
    }

    static Status recordBlock(DeviceId device, const AudioTimeStamp*, const AudioBufferList* input,
                              const AudioTimeStamp* inputTime, AudioBufferList*,
                              const AudioTimeStamp*, void* refCon) noexcept {
        Block block{device, inputTime->sampleTime, {}, {}};
        for (const AudioBuffer& buffer : *input) {
            block.channels.push_back(buffer.channels);
            block.samples.insert(block.samples.end(), buffer.data,
                                 buffer.data + buffer.byteSize / sizeof(float));
        }
        auto& self = *static_cast<BlockRecorder*>(refCon);
        const std::scoped_lock lock(self.mMutex);
        self.mBlocks.push_back(std::move(block));
        return 0;
    }

private:
    mutable std::mutex mMutex;
    std::vector<Block> mBlocks;
};

} // namespace veltrano
