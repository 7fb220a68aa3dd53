// SPDX-License-Identifier: GPL-3.0-or-later
// The records of frames as other programs read them.
#include "cli/ReadingWriter.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <gtest/gtest.h>
#include <limits>

namespace veltrano {
namespace {

QJsonObject roundTrip(const ReadingRecord& record, const HeadlessDisplay& display) {
    const QByteArray text =
        QJsonDocument(readingJson(record, display)).toJson(QJsonDocument::Compact);
    return QJsonDocument::fromJson(text).object();
}

TEST(ReadingJson, BeforeTheFirstNote) {
    const QJsonObject json = roundTrip({}, HeadlessDisplay());
    EXPECT_EQ(json.keys(),
              (QStringList{"accidental",    "cents",   "deviation",    "differenceText",
                           "dropped",       "flat",    "frame",        "frequency",
                           "frequencyText", "ideal",   "idealText",    "inTune",
                           "key",           "level",   "levelText",    "note",
                           "octave",        "peak",    "rawFrequency", "rawPeak",
                           "sharp",         "stretch", "stretchText",  "time"}));
    for (const char* key : {"key", "octave", "ideal", "stretch"}) {
        EXPECT_TRUE(json[key].isNull()) << key;
    }
    for (const char* key : {"note", "accidental", "cents", "stretchText", "frequencyText"}) {
        EXPECT_EQ(json[key], QJsonValue("")) << key;
    }
    EXPECT_EQ(json["frequency"], QJsonValue(0));
    EXPECT_EQ(json["inTune"], QJsonValue("gray"));
    EXPECT_EQ(json["flat"], QJsonValue(false));
    EXPECT_EQ(json["level"].toArray().size(), 8);
}

TEST(ReadingJson, ANoteAsShown) {
    HeadlessDisplay display;
    display.setText(TunerText::note, "E");
    display.setText(TunerText::accidental, "\u266D");
    display.setText(TunerText::octave, "5");
    display.setText(TunerText::cent, "+18.0");
    display.setLight(TunerLight::inTune, LightImage::blue28x28);
    display.setLight(TunerLight::sharp, LightImage::red24x24);
    display.setLight(TunerLight::level0, LightImage::green16x16);
    display.setLight(TunerLight::level6, LightImage::yellow16x16);
    display.setLight(TunerLight::level7, LightImage::red16x16);
    ReadingRecord record;
    record.frame = 7;
    record.seconds = 0.1;
    record.frequency = 622.2541f;
    record.deviation = 0.18f;
    record.shown = NoteReading{63, 5, 0.18, 615.8, -1.25};
    const QJsonObject json = roundTrip(record, display);
    EXPECT_EQ(json["octave"], QJsonValue(5));
    EXPECT_EQ(json["accidental"].toString(), QStringLiteral("\u266D"));
    EXPECT_EQ(json["key"], QJsonValue(63));
    EXPECT_EQ(json["inTune"], QJsonValue("blue"));
    EXPECT_EQ(json["sharp"], QJsonValue(true));
    EXPECT_EQ(json["level"].toArray(),
              (QJsonArray{"green", "gray", "gray", "gray", "gray", "gray", "yellow", "red"}));
    EXPECT_EQ(float(json["frequency"].toDouble()), 622.2541f) << "reads back the same float";
    EXPECT_EQ(json["time"].toDouble(), 0.1) << "reads back the same double";
    EXPECT_EQ(json["stretch"].toDouble(), -1.25);
}

TEST(ReadingJson, WhatIsNoNumberIsNull) {
    ReadingRecord record;
    record.rawPeak = std::numeric_limits<float>::quiet_NaN();
    record.rawFrequency = std::numeric_limits<float>::infinity();
    const QJsonObject json = roundTrip(record, HeadlessDisplay());
    EXPECT_TRUE(json["rawPeak"].isNull());
    EXPECT_TRUE(json["rawFrequency"].isNull());
}

} // namespace
} // namespace veltrano
