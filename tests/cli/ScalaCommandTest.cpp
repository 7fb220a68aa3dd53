// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli scl as a process.
#include "tests/cli/TuningCommandsBase.h"

namespace veltrano {
namespace {

using ScalaCommand = TuningCommands;

TEST_F(ScalaCommand, AScale) {
    const CommandRun result = runCommand(
        {"scl", scale("16/15\n9/8\n6/5 minor third\n5/4\n4/3\n45/32\n3/2\n8/5\n5/3\n9/5\n15/8\n"
                      "2/1\n")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    const QJsonObject object = result.object();
    EXPECT_EQ(object.keys(), (QStringList{"accepted", "description", "document", "error", "ratios",
                                          "settingsTable"}));
    EXPECT_EQ(object["accepted"], true);
    EXPECT_TRUE(object["error"].isNull());
    EXPECT_EQ(object["description"], "a scale");
    const std::vector<double> ratios{1,        16. / 15, 9. / 8, 6. / 5, 5. / 4, 4. / 3,
                                     45. / 32, 3. / 2,   8. / 5, 5. / 3, 9. / 5, 15. / 8};
    EXPECT_EQ(numbers(object["ratios"]), ratios);

    // The tuner takes the ratios for cents.
    std::vector<double> table;
    for (const double ratio : ratios)
        table.push_back(ratio - 5. / 3);
    EXPECT_EQ(numbers(object["settingsTable"]), table);

    const std::vector<double> hertz = numbers(object["document"].toObject()["hertz"]);
    std::vector<double> expected;
    for (const double ratio : ratios)
        expected.push_back(ratio * 264);
    expectNear(hertz, expected, 1e-9);
}

TEST_F(ScalaCommand, AScaleOnAnotherTonic) {
    const QString file = scale("16/15\n9/8\n6/5\n5/4\n4/3\n45/32\n3/2\n8/5\n5/3\n9/5\n15/8\n2/1\n");
    const QJsonObject object = runCommand({"scl", file, "--tonic", "3"}).object();
    const QJsonObject document = object["document"].toObject();
    EXPECT_EQ(document["rows"].toArray().first(), "Eb (PU)");
    const std::vector<double> hertz = numbers(document["hertz"]);
    ASSERT_EQ(hertz.size(), 12u);
    const double tonicHz = 440 / (45. / 32);
    EXPECT_NEAR(hertz[0], tonicHz, 1e-9);
    EXPECT_NEAR(hertz[6], 440, 1e-9);
    EXPECT_NEAR(hertz[8], tonicHz * 8 / 5, 1e-9) << "B4";
    EXPECT_NEAR(hertz[9], tonicHz * 5 / 3 / 2, 1e-9) << "C4, an octave down";
    EXPECT_EQ(numbers(object["settingsTable"])[6], 0);
}

TEST_F(ScalaCommand, ScalesThatFitNoDocument) {
    const QString plain = scale("");
    for (const char* tonic : {"10", "11"}) { // kept: Bb and B never fit
        SCOPED_TRACE(tonic);
        const CommandRun result = runCommand({"scl", plain, "--tonic", tonic});
        EXPECT_EQ(result.exitCode, 0);
        const QJsonObject object = result.object();
        EXPECT_EQ(object["accepted"], true);
        EXPECT_TRUE(object["document"].isNull());
        EXPECT_EQ(numbers(object["settingsTable"]).size(), 12u);
        EXPECT_EQ(result.reasons(), QList<QByteArray>{kTemperamentOutOfRange});
    }
    EXPECT_TRUE(runCommand({"scl", plain, "--tonic", "9"}).object()["document"].isObject());

    const CommandRun wide = runCommand({"scl", scale("151\n"), "--write", at("out")});
    EXPECT_TRUE(wide.object()["document"].isNull());
    EXPECT_EQ(wide.exitCode, 1) << "there is nothing to write";
    EXPECT_FALSE(QFile::exists(at("out")));
}

TEST_F(ScalaCommand, OddLinesOfScales) {
    const auto firstRatio = [this](const QByteArray& pitches) {
        const auto ratios = numbers(runCommand({"scl", scale(pitches)}).object()["ratios"]);
        return ratios.size() == 12 ? ratios[1] : 0;
    };
    EXPECT_EQ(firstRatio("2\n"), std::pow(2.0, 2 / 1200.)) << "2 cents";
    EXPECT_EQ(firstRatio("100.0\n"), std::pow(2.0, 100 / 1200.));
    EXPECT_EQ(firstRatio("100.0 cents ! semitone\n"), std::pow(2.0, 100 / 1200.));
    EXPECT_EQ(firstRatio("3 above/2 below\n"), 1.5);
    EXPECT_EQ(firstRatio("16/15\r9/8\x85"
                         "6/5"),
              16. / 15);
}

TEST_F(ScalaCommand, ScalesThatAreRefused) {
    const struct {
        const char* name;
        QByteArray bytes;
        QJsonValue error;
    } cases[] = {
        {"seven notes", "x\n7\n", "Veltrano only supports 12-note scales."},
        {"no ratio", "x\n12\n3/0\n", "Invalid \"ratio\" value in Scala Scale file (.scl)."},
        {"a word above", "x\n12\na/2\n", "Invalid \"ratio\" value in Scala Scale file (.scl)."},
        {"no cents", "x\n12\n0.0\n", "Invalid \"cent\" value in Scala Scale file (.scl)."},
        {"an empty line", "x\n12\n\n100.0\n", QJsonValue()},
        {"an empty first line", "\nx\n12\n", QJsonValue()},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CommandRun result = runCommand({"scl", write("bad.scl", c.bytes)});
        EXPECT_EQ(result.exitCode, 1);
        const QJsonObject object = result.object();
        EXPECT_EQ(object["accepted"], false);
        EXPECT_TRUE(object.contains("error"));
        EXPECT_EQ(object["error"], c.error);
        EXPECT_EQ(result.reasons().size(), 1) << result.errors.toStdString();
    }
}

TEST_F(ScalaCommand, AScaleOfCommentsIsEqualTemperament) {
    const QJsonObject object = runCommand({"scl", write("c.scl", "! nothing\n!\n")}).object();
    EXPECT_EQ(object["accepted"], true);
    EXPECT_TRUE(object["description"].isNull());
    for (int degree = 0; degree < 12; ++degree) {
        EXPECT_EQ(numbers(object["ratios"])[std::size_t(degree)], std::pow(2.0, degree / 12.0));
    }
}

TEST_F(ScalaCommand, AScaleIsNeverWrittenOver) {
    const QString file = scale("90.225\n");
    const QByteArray before = read(file);
    ASSERT_TRUE(QFile::link(file, at("link")));
    for (const QString& out : {file, at("./trial.scl"), at("link")}) {
        SCOPED_TRACE(out.toStdString());
        const CommandRun result = runCommand({"scl", file, "--write", out});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.reasons().size(), 1) << result.errors.toStdString();
        EXPECT_EQ(read(file), before);
    }
}

TEST_F(ScalaCommand, AScaleIsWrittenAsImportNamesIt) {
    const QString saved = at("saved.temperament");
    EXPECT_EQ(runCommand({"scl", scale("90.225\n"), "--write", saved}).exitCode, 0);
    const QJsonObject object = runCommand({"temperament", saved}).object();
    EXPECT_EQ(object["name"], "trial.scl");
    EXPECT_EQ(object["description"], "a scale");
    EXPECT_NEAR(numbers(object["cents"])[1], -9.775, 1e-9);
}

} // namespace
} // namespace veltrano
