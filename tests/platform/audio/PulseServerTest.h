// SPDX-License-Identifier: GPL-3.0-or-later
// Tests that are run with every kind of sound server that is installed.
#pragma once

#include "tests/platform/audio/PulseBench.h"
#include "tests/support/SoundServer.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace veltrano {

/// Skipped, with the reason printed, where the server is not installed.
class PulseServerTest : public testing::TestWithParam<SoundServer::Kind> {
public:
    void SetUp() override {
        if (const auto reason = SoundServer::missing(GetParam())) GTEST_SKIP() << *reason;
    }
    bool isPipeWire() const { return GetParam() == SoundServer::Kind::pipeWire; }

    static std::string nameOf(const testing::TestParamInfo<SoundServer::Kind>& info) {
        return info.param == SoundServer::Kind::pulseAudio ? "PulseAudio" : "PipeWire";
    }
    /// Times are printed for people; only generous bounds are asserted.
    static void print(const char* what, double seconds) {
        std::printf("             %-48s %7.1f ms\n", what, seconds * 1e3);
    }
};

#define VELTRANO_EVERY_SERVER(Suite)                                                               \
    INSTANTIATE_TEST_SUITE_P(                                                                      \
        , Suite, testing::Values(SoundServer::Kind::pulseAudio, SoundServer::Kind::pipeWire),      \
        Suite::nameOf)

} // namespace veltrano
