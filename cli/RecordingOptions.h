// SPDX-License-Identifier: GPL-3.0-or-later
// A recording as the input of a command.
#pragma once

#include "cli/HeadlessTuner.h"
#include "platform/audio/RecordingDevice.h"

#include <QCommandLineParser>
#include <optional>
#include <string>

namespace veltrano {

/// The recording that a command is to play and how.
struct RecordingOptions {
    std::string path;
    int framesPerBlock = RecordingDevice::kDefaultFramesPerBlock;

    /// Declares FILE and --block on @p parser.
    static void declare(QCommandLineParser& parser);
    /// On a wrong use returns nullopt and sets @p error to one line.
    static std::optional<RecordingOptions> read(const QCommandLineParser& parser, QString& error);
};

/// Plays a recording through a tuner as fast as it can, to its end or until the reader of the
/// output has gone. Thread: main.
/// @param setup its frameCapacity is set here
/// @param willPlay called when the tuner has started
/// @return the exit code; a refusal has been told
int playRecording(const RecordingOptions& recording, HeadlessTuner::Setup setup, Output& output,
                  const std::function<void(HeadlessTuner&)>& willPlay = {});

} // namespace veltrano
