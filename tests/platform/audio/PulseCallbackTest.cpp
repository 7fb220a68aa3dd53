// SPDX-License-Identifier: GPL-3.0-or-later
// What happens between a block's arrival from the server and its release, and between the server's
// memory for a block of sound and its sending.
#include "platform/audio/HardwareOutputUnit.h"
#include "tests/platform/audio/PulseServerTest.h"
#include "tests/realtime/RealtimeWatch.h"

#include <dlfcn.h>

struct pa_stream;

namespace veltrano {
namespace {

std::atomic<long> watchedBlocks{0};
std::atomic<long> watchedWrites{0};

std::optional<RealtimeWatch>& watch() {
    thread_local std::optional<RealtimeWatch> ofThisThread;
    return ofThisThread;
}

} // namespace
} // namespace veltrano

// The library's own functions, replaced for this program: the layer holds a block from the one to
// the other.
extern "C" int pa_stream_peek(pa_stream* stream, const void** data, std::size_t* bytes) {
    using Peek = int (*)(pa_stream*, const void**, std::size_t*);
    static const auto original = reinterpret_cast<Peek>(::dlsym(RTLD_NEXT, "pa_stream_peek"));
    const int result = original(stream, data, bytes);
    if (result == 0 && *bytes > 0) veltrano::watch().emplace();
    return result;
}

extern "C" int pa_stream_drop(pa_stream* stream) {
    using Drop = int (*)(pa_stream*);
    static const auto original = reinterpret_cast<Drop>(::dlsym(RTLD_NEXT, "pa_stream_drop"));
    veltrano::watch().reset();
    ++veltrano::watchedBlocks;
    return original(stream);
}

extern "C" int pa_stream_begin_write(pa_stream* stream, void** data, std::size_t* bytes) {
    using Begin = int (*)(pa_stream*, void**, std::size_t*);
    static const auto original =
        reinterpret_cast<Begin>(::dlsym(RTLD_NEXT, "pa_stream_begin_write"));
    const int result = original(stream, data, bytes);
    if (result == 0) veltrano::watch().emplace();
    return result;
}

extern "C" int pa_stream_write(pa_stream* stream, const void* data, std::size_t bytes,
                               void (*release)(void*), std::int64_t offset, int mode) {
    using Write = int (*)(pa_stream*, const void*, std::size_t, void (*)(void*), std::int64_t, int);
    static const auto original = reinterpret_cast<Write>(::dlsym(RTLD_NEXT, "pa_stream_write"));
    veltrano::watch().reset();
    ++veltrano::watchedWrites;
    return original(stream, data, bytes, release, offset, mode);
}

namespace veltrano {
namespace {

class PulseCallbackTest : public PulseServerTest {};
VELTRANO_EVERY_SERVER(PulseCallbackTest);

TEST_P(PulseCallbackTest, ABlockIsHandedOverWithoutAllocationLockOrWait) {
    if (!RealtimeWatch::isCounting()) GTEST_SKIP() << "cannot be counted in a sanitized build";
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    ASSERT_TRUE(bench.listenTo("TestTone"));
    const RealtimeWatch::Counts before = RealtimeWatch::counts();
    const long blocks = watchedBlocks;
    bench.pass(3);
    EXPECT_GT(watchedBlocks - blocks, 100);
    EXPECT_EQ(RealtimeWatch::counts(), before);
    EXPECT_GT(bench.heard().soundFrames, 44100u);
}

/// A ramp from -1 to 1 on both client channels.
Status renderRamp(void*, const AudioTimeStamp*, std::uint32_t, std::uint32_t frames,
                  AudioBufferList* buffers) noexcept {
    for (const AudioBuffer& buffer : *buffers) {
        for (std::uint32_t i = 0; i < frames; ++i)
            buffer.data[i] = 2 * float(i) / float(frames) - 1;
    }
    return 0;
}

TEST_P(PulseCallbackTest, ABlockOfSoundIsRenderedWithoutAllocationLockOrWait) {
    if (!RealtimeWatch::isCounting()) GTEST_SKIP() << "cannot be counted in a sanitized build";
    SoundServer server(GetParam());
    ASSERT_TRUE(server.start()) << server.output();
    PulseBench bench(server.address());
    HardwareOutputUnit unit(bench.hardware(), [](auto) {});
    unit.setRenderCallback(renderRamp, nullptr);
    ASSERT_EQ(unit.setCurrentDevice(bench.find("TestSink", Direction::output)), 0);
    ASSERT_EQ(unit.start(), 0);
    const RealtimeWatch::Counts before = RealtimeWatch::counts();
    const long writes = watchedWrites;
    bench.waitFor([&] { return watchedWrites > writes + 100; }, 20);
    EXPECT_GT(watchedWrites - writes, 100);
    EXPECT_EQ(RealtimeWatch::counts(), before);
}

} // namespace
} // namespace veltrano
