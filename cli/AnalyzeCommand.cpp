// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli analyze
#include "cli/Commands.h"
#include "cli/HeadlessTuner.h"
#include "platform/audio/RecordingDevice.h"
#include "platform/audio/VirtualHardware.h"

#include <QFile>
#include <algorithm>

namespace veltrano {

namespace {

constexpr int kMaxFramesPerBlock = 1 << 20;

struct AnalyzeOptions {
    std::string path;
    int framesPerBlock = RecordingDevice::kDefaultFramesPerBlock;
    HeadlessTuner::Setup setup;
};

void declare(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QStringLiteral("Plays a recording through the tuner and prints "
                       "the readings of every frame."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("WAV, FLAC, Ogg or AIFF."));
    TunerOptions::declare(parser);
    parser.addOption({QStringLiteral("block"),
                      QStringLiteral("Sample frames that the tuner gets at a time (512)."),
                      QStringLiteral("N")});
    declareFormat(parser);
}

/// nullopt and one line in @p error when an option is wrong.
std::optional<AnalyzeOptions> read(const QCommandLineParser& parser, QString& error) {
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1) {
        error = files.isEmpty() ? QStringLiteral("analyze needs a FILE")
                                : QStringLiteral("analyze takes one FILE");
        return std::nullopt;
    }
    AnalyzeOptions options;
    options.path = QFile::encodeName(files.first()).toStdString();
    const std::optional<TunerOptions> tuner = TunerOptions::read(parser, error);
    if (!tuner) return std::nullopt;
    options.setup.options = *tuner;
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
    options.setup.isTable = isTableWanted(parser);
    options.setup.hasRecordingClock = true;
    return options;
}

/// Room for the frames that one block can complete, so that none is ever dropped.
FrameRoad::Capacity capacityFor(int framesPerBlock, double sampleRate) {
    const std::uint32_t length = FrameAssembler::bufferFramesAt(static_cast<float>(sampleRate));
    const auto perBlock = static_cast<std::size_t>(framesPerBlock) / std::max(length, 1u) + 1;
    return {std::max(perBlock, FramePool::kDefaultSlots), length};
}

} // namespace

int runAnalyze(const QStringList& arguments) {
    QCommandLineParser parser;
    declare(parser);
    if (const std::optional<int> done = parseCommand(parser, arguments)) return *done;
    QString usageError;
    std::optional<AnalyzeOptions> options = read(parser, usageError);
    if (!options) {
        complain(usageError.toStdString() + ". See veltrano-cli analyze --help.");
        return kWrongUsage;
    }

    StandardErrorLog log;
    std::optional<TuningEntries> entries = readTuningEntries(options->setup.options.files, log);
    if (!entries) return kRefused;
    options->setup.entries = std::move(*entries);

    VirtualHardware hardware;
    std::string error;
    const auto recording =
        RecordingDevice::open(hardware, options->path, error, options->framesPerBlock);
    if (!recording) {
        complain(error);
        return kRefused;
    }
    hardware.setDefaultDevice(Direction::input, recording->id());
    options->setup.frameCapacity = capacityFor(options->framesPerBlock, recording->sampleRate());
    Output output;
    HeadlessTuner tuner(hardware, output, options->setup);
    tuner.start(std::nullopt); // the recording is the only device
    while (!output.isClosed() && recording->playBlock())
        tuner.serveFrames();
    tuner.finish();
    return kDone;
}

} // namespace veltrano
