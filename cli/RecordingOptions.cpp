// SPDX-License-Identifier: GPL-3.0-or-later
// A recording as the input of a command.
#include "cli/RecordingOptions.h"

#include "platform/audio/VirtualHardware.h"

#include <QFile>
#include <algorithm>

namespace veltrano {

namespace {

constexpr int kMaxFramesPerBlock = 1 << 20;

/// Room for the frames that one block can complete, so that none is ever dropped.
FrameRoad::Capacity capacityFor(int framesPerBlock, double sampleRate) {
    const std::uint32_t length = FrameAssembler::bufferFramesAt(static_cast<float>(sampleRate));
    const auto perBlock = static_cast<std::size_t>(framesPerBlock) / std::max(length, 1u) + 1;
    return {std::max(perBlock, FramePool::kDefaultSlots), length};
}

} // namespace

void RecordingOptions::declare(QCommandLineParser& parser) {
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("WAV, FLAC, Ogg or AIFF."));
    parser.addOption({QStringLiteral("block"),
                      QStringLiteral("Sample frames that the tuner gets at a time (512)."),
                      QStringLiteral("N")});
}

std::optional<RecordingOptions> RecordingOptions::read(const QCommandLineParser& parser,
                                                       QString& error) {
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1) {
        error = files.isEmpty() ? QStringLiteral("a FILE is needed")
                                : QStringLiteral("only one FILE is taken");
        return std::nullopt;
    }
    RecordingOptions options;
    options.path = QFile::encodeName(files.first()).toStdString();
    if (parser.isSet(QStringLiteral("block"))) {
        bool isNumber = false;
        options.framesPerBlock = parser.value(QStringLiteral("block")).toInt(&isNumber);
        if (!isNumber || options.framesPerBlock < 1 ||
            options.framesPerBlock > kMaxFramesPerBlock) {
            error =
                QStringLiteral("--block takes a whole number from 1 to %1").arg(kMaxFramesPerBlock);
            return std::nullopt;
        }
    }
    return options;
}

int playRecording(const RecordingOptions& options, HeadlessTuner::Setup setup, Output& output,
                  const std::function<void(HeadlessTuner&)>& willPlay) {
    VirtualHardware hardware;
    std::string error;
    const auto recording =
        RecordingDevice::open(hardware, options.path, error, options.framesPerBlock);
    if (!recording) {
        complain(error);
        return kRefused;
    }
    hardware.setDefaultDevice(Direction::input, recording->id());
    setup.hasRecordingClock = true;
    setup.frameCapacity = capacityFor(options.framesPerBlock, recording->sampleRate());
    HeadlessTuner tuner(hardware, output, setup);
    tuner.start(std::nullopt); // the recording is the only device
    if (willPlay) willPlay(tuner);
    while (!output.isClosed() && recording->playBlock())
        tuner.serveFrames();
    tuner.finish();
    return kDone;
}

} // namespace veltrano
