// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli tone
#include "audio/ToneSynthesis.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/TunerOptions.h"
#include "platform/audio/SoundFile.h"
#include "platform/desktop/AtomicFile.h"

#include <QDir>
#include <array>
#include <cmath>
#include <new>
#include <vector>

namespace veltrano {

namespace {

constexpr std::array<const char*, 4> kWaveforms{"sine", "triangle", "sawtooth", "square"};

/// An option that is a number within bounds.
struct NumberOption {
    const char* name;
    const char* meaning;
    double least;
    double most;
    double otherwise;
};
constexpr NumberOption kFrequency{"frequency", "Frequency [Hz].", 0.001, 192000, 440};
constexpr NumberOption kLength{"length", "Length without the fade-out [s].", 0, 3600, 1};
constexpr NumberOption kVolume{"volume", "Amplitude [percent].", 0, 100, 70};
constexpr NumberOption kRate{"rate", "Sample rate [Hz].", 1, 384000, 44100};

struct ToneOptions {
    std::string path;
    ToneSynthesis::Sound sound;
    float seconds = 0;
    int rateHz = 0;
};

QString textOf(double number) { return QLocale::c().toString(number, 'g', 6); }

void declare(QCommandLineParser& parser) {
    parser.setApplicationDescription(
        QStringLiteral("Writes a reference tone with its fade-out as a WAV file."));
    parser.addPositionalArgument(QStringLiteral("OUT.wav"), QStringLiteral("The file to write."));
    for (const NumberOption& option : {kFrequency, kLength, kVolume, kRate}) {
        parser.addOption(
            {QLatin1String(option.name),
             QStringLiteral("%1 (%2)").arg(QLatin1String(option.meaning), textOf(option.otherwise)),
             QStringLiteral("NUMBER")});
    }
    parser.addOption({QStringLiteral("waveform"),
                      QStringLiteral("sine, triangle, sawtooth or square. (sine)"),
                      QStringLiteral("NAME")});
}

bool read(const QCommandLineParser& parser, const NumberOption& option, double& value,
          QString& error) {
    value = option.otherwise;
    const QString name = QLatin1String(option.name);
    if (!parser.isSet(name)) return true;
    bool isNumber = false;
    value = QLocale::c().toDouble(parser.value(name), &isNumber);
    if (isNumber && value >= option.least && value <= option.most) return true;
    error = QStringLiteral("--%1 takes a number from %2 to %3")
                .arg(name, textOf(option.least), textOf(option.most));
    return false;
}

bool readWaveform(const QCommandLineParser& parser, int& waveform, QString& error) {
    const QString name = parser.value(QStringLiteral("waveform"));
    for (std::size_t i = 0; i < kWaveforms.size(); ++i) {
        if (name == QLatin1String(kWaveforms[i])) waveform = static_cast<int>(i);
        if (name == QLatin1String(kWaveforms[i]) || name.isEmpty()) return true;
    }
    error = QStringLiteral("--waveform takes sine, triangle, sawtooth or square");
    return false;
}

std::optional<ToneOptions> read(const QCommandLineParser& parser, QString& error) {
    const QStringList files = parser.positionalArguments();
    if (files.size() != 1) {
        error = QStringLiteral("tone needs one OUT.wav");
        return std::nullopt;
    }
    double frequency = 0, length = 0, volume = 0, rate = 0;
    ToneOptions options;
    if (!read(parser, kFrequency, frequency, error) || !read(parser, kLength, length, error) ||
        !read(parser, kVolume, volume, error) || !read(parser, kRate, rate, error) ||
        !readWaveform(parser, options.sound.waveform, error)) {
        return std::nullopt;
    }
    if (rate != std::floor(rate)) {
        error = QStringLiteral("--rate takes a whole number");
        return std::nullopt;
    }
    options.path = QDir().absoluteFilePath(files.first()).toStdString();
    options.sound.frequencyHz = static_cast<float>(frequency);
    options.sound.volume = static_cast<float>(volume / 100.0);
    options.seconds = static_cast<float>(length);
    options.rateHz = static_cast<int>(rate);
    return options;
}

/// @return bytes of the file; empty when a WAV file cannot hold that sound
std::string render(const ToneOptions& options) {
    const auto rate = static_cast<float>(options.rateHz);
    const std::int64_t frames = ToneSynthesis::framesOf(options.seconds, rate);
    ToneSynthesis tone;
    tone.setSampleRate(rate);
    tone.play(frames);
    const auto all = static_cast<std::size_t>(frames + tone.fadeFrames());
    if (all > kMostWaveSamples) return {};
    std::vector<float> samples(all);
    tone.render(samples, options.sound);
    return waveFileBytes(samples, options.rateHz, 1);
}

/// @return why there is no file now
std::optional<std::string> write(const ToneOptions& options) try {
    const std::string bytes = render(options);
    if (bytes.empty()) return "not a sound that a WAV file can hold";
    return writeFileAtomically(options.path, bytes);
} catch (const std::bad_alloc&) {
    return "not enough memory";
}

} // namespace

int runTone(const QStringList& arguments) {
    QCommandLineParser parser;
    declare(parser);
    if (const std::optional<int> done = parseCommand(parser, arguments)) return *done;
    QString usageError;
    const std::optional<ToneOptions> options = read(parser, usageError);
    if (!options) return wrongUsage(QStringLiteral("tone"), usageError);
    const std::optional<std::string> failure = write(*options);
    if (!failure) return kDone;
    complain(options->path + ": " + *failure);
    return kRefused;
}

} // namespace veltrano
