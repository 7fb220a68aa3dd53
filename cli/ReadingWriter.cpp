// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ReadingWriter.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace veltrano {

namespace {

QString nameOf(LightImage image) {
    switch (image) {
    case LightImage::green16x16:
    case LightImage::green28x28:
        return QStringLiteral("green");
    case LightImage::yellow16x16:
        return QStringLiteral("yellow");
    case LightImage::red16x16:
    case LightImage::red24x24:
        return QStringLiteral("red");
    case LightImage::blue28x28:
        return QStringLiteral("blue");
    case LightImage::gray16x16:
    case LightImage::gray28x28:
    case LightImage::gray24x24:
        return QStringLiteral("gray");
    }
    return {};
}

QString textOf(const HeadlessDisplay& display, TunerText field) {
    return QString::fromStdString(display.text(field));
}

QJsonValue octaveOf(const HeadlessDisplay& display) {
    bool isNumber = false;
    const int octave = textOf(display, TunerText::octave).toInt(&isNumber);
    return isNumber ? QJsonValue(octave) : QJsonValue();
}

QJsonArray levelLights(const HeadlessDisplay& display) {
    QJsonArray lights;
    for (int i = 0; i < kLevelLights; ++i)
        lights.append(nameOf(display.light(levelLight(i))));
    return lights;
}

/// QJsonValue writes NaN and infinities as null.
QJsonValue number(double value) { return QJsonValue(value); }

} // namespace

QJsonObject readingJson(const ReadingRecord& record, const HeadlessDisplay& display) {
    const auto& shown = record.shown;
    return {
        {"frame", static_cast<qint64>(record.frame)},
        {"time", number(record.seconds)},
        {"rawFrequency", number(double(record.rawFrequency))},
        {"rawPeak", number(double(record.rawPeak))},
        {"peak", record.peak},
        {"frequency", number(double(record.frequency))},
        {"key", shown ? QJsonValue(shown->key) : QJsonValue()},
        {"note", textOf(display, TunerText::note)},
        {"accidental", textOf(display, TunerText::accidental)},
        {"octave", octaveOf(display)},
        {"cents", textOf(display, TunerText::cent)},
        {"deviation", number(double(record.deviation))},
        {"ideal", shown ? number(shown->idealHz) : QJsonValue()},
        {"stretch", shown ? number(shown->stretchCents) : QJsonValue()},
        {"stretchText", textOf(display, TunerText::stretchOffset)},
        {"frequencyText", textOf(display, TunerText::frequency)},
        {"differenceText", textOf(display, TunerText::frequencyDiff)},
        {"idealText", textOf(display, TunerText::idealFrequency)},
        {"inTune", nameOf(display.light(TunerLight::inTune))},
        {"flat", display.light(TunerLight::flat) == LightImage::red24x24},
        {"sharp", display.light(TunerLight::sharp) == LightImage::red24x24},
        {"level", levelLights(display)},
        {"levelText", textOf(display, TunerText::level)},
        {"dropped", static_cast<qint64>(record.dropped)},
    };
}

ReadingWriter::ReadingWriter(ManualClock* clock, const HeadlessDisplay& display, Output& output,
                             bool isTable)
    : mClock(clock), mDisplay(display), mOutput(output) {
    if (isTable) mTable.emplace([this](const std::string& line) { mOutput.line(line); });
}

void ReadingWriter::willUpdate(double seconds) {
    if (mClock) mClock->set(seconds);
}

void ReadingWriter::didUpdate(const ReadingRecord& record) {
    if (mTable) {
        mTable->add(record, mDisplay);
    } else {
        const QJsonDocument document(readingJson(record, mDisplay));
        mOutput.line(document.toJson(QJsonDocument::Compact).toStdString());
    }
}

void ReadingWriter::finish() {
    if (mTable) mTable->finish();
}

} // namespace veltrano
