// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli temperament and stretch as processes.
#include "tests/cli/TuningCommandsBase.h"

#include <QFileInfo>

namespace veltrano {
namespace {

/// Cents from C on, as a file says them.
QByteArray temperamentFile(const std::vector<QByteArray>& cents) {
    static const char* const kNames[] = {"C",  "C#", "D",  "Eb", "E",  "F",
                                         "F#", "G",  "G#", "A",  "Bb", "B"};
    QByteArray text = "\"Name\"=\"Trial\";\n\"Description\"=\"made up\";\n";
    for (std::size_t i = 0; i < cents.size(); ++i)
        text += QByteArray("\"") + kNames[i] + "\"=\"" + cents[i] + "\";\n";
    return text;
}

/// No value is 0 or like another, and A is not 0.
const std::vector<QByteArray> kCents{"11.5", "1.25", "3", "5", "-2",  "9",
                                     "-4",   "7",    "4", "2", "6.5", "-10"};

TEST_F(TuningCommands, ATemperamentInC) {
    const CommandRun result =
        runCommand({"temperament", write("t.temperament", temperamentFile(kCents))});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    const QJsonObject object = result.object();
    EXPECT_EQ(object.keys(), (QStringList{"accepted", "cents", "description", "document", "name",
                                          "settingsTable"}));
    EXPECT_EQ(object["accepted"], true);
    EXPECT_EQ(object["name"], "Trial");
    EXPECT_EQ(object["description"], "made up");
    const std::vector<double> shifted{9.5, -0.75, 1, 3, -4, 7, -6, 5, 2, 0, 4.5, -12};
    EXPECT_EQ(numbers(object["cents"]), shifted);
    EXPECT_EQ(numbers(object["settingsTable"]), shifted);

    const QJsonObject document = object["document"].toObject();
    EXPECT_EQ(document.keys(), (QStringList{"cents", "hertz", "ratios", "rows", "tonic"}));
    EXPECT_EQ(document["tonic"], 0);
    EXPECT_EQ(numbers(document["cents"]), shifted);
    const std::vector<double> ratios = numbers(document["ratios"]);
    const std::vector<double> hertz = numbers(document["hertz"]);
    ASSERT_EQ(ratios.size(), 12u);
    for (std::size_t row = 0; row < 12; ++row) {
        EXPECT_EQ(ratios[row], std::pow(2.0, ((double(row) - 9) * 100 + shifted[row]) / 1200.0));
        EXPECT_EQ(hertz[row], ratios[row] * 440);
    }
    EXPECT_EQ(document["rows"],
              (QJsonArray{"C (PU)", "C# (m2)", "D (M2)", "Eb (m3)", "E (M3)", "F (P4)", "F# (TT)",
                          "G (P5)", "G# (m6)", "A (M6)", "Bb (m7)", "B (M7)"}));
}

TEST_F(TuningCommands, ATemperamentOnAnotherTonicAndPitch) {
    const QString file = write("t.temperament", temperamentFile(kCents));
    const QJsonObject object =
        runCommand({"temperament", file, "--tonic", "7", "--reference-pitch", "415.3"}).object();
    // On G, A is the second degree; in the file that is D, which has 3.
    const std::vector<double> degrees{8.5, -1.75, 0, 2, -5, 6, -7, 4, 1, -1, 3.5, -13};
    EXPECT_EQ(numbers(object["cents"])[0], 9.5) << "as read, in key C";
    EXPECT_EQ(numbers(object["settingsTable"]), degrees);
    const QJsonObject document = object["document"].toObject();
    EXPECT_EQ(document["tonic"], 7);
    EXPECT_EQ(numbers(document["cents"]), degrees);
    EXPECT_EQ(numbers(document["hertz"])[2], 415.3);
    EXPECT_EQ(document["rows"].toArray().first(), "G (PU)");
    EXPECT_EQ(document["rows"].toArray().last(), "F# (M7)");
    EXPECT_NEAR(numbers(document["ratios"])[5], std::exp2((-900 + 6) / 1200.), 1e-15) << "C4";
}

TEST_F(TuningCommands, RatiosAndFrequenciesAreRecognised) {
    const std::vector<QByteArray> ratios{"1",   "1.0667", "1.125", "1.2", "1.25",   "1.3333",
                                         "1.4", "1.5",    "1.6",   "1.7", "1.7778", "1.875"};
    std::vector<double> expected;
    for (int note = 0; note < 12; ++note) {
        expected.push_back(1200 * std::log2(ratios[std::size_t(note)].toDouble() / 1.7) -
                           (note - 9) * 100);
    }
    const QString file = write("r.temperament", temperamentFile(ratios));
    expectNear(numbers(runCommand({"temperament", file}).object()["cents"]), expected, 1e-9);
}

TEST_F(TuningCommands, AbsentTextsAreNull) {
    const CommandRun result = runCommand({"temperament", write("empty.temperament", "")});
    EXPECT_EQ(result.exitCode, 0);
    const QJsonObject object = result.object();
    EXPECT_TRUE(object["name"].isNull());
    EXPECT_TRUE(object["description"].isNull());
    EXPECT_EQ(numbers(object["cents"]), std::vector<double>(12, 0));
    EXPECT_EQ(numbers(object["document"].toObject()["hertz"])[9], 440);
}

TEST_F(TuningCommands, AValueThatATonicShiftsOutOfRange) {
    // In C all is well: -40 against A's 0. On D sharp (3) A is the degree of F sharp, which has 30.
    const QString file =
        write("wide.temperament",
              temperamentFile({"1", "2", "3", "4", "5", "-40", "30", "7", "8", "0", "10", "11"}));
    const CommandRun result = runCommand({"temperament", file, "--tonic", "3"});
    EXPECT_EQ(result.exitCode, 0);
    ASSERT_FALSE(result.reasons().isEmpty());
    for (const QByteArray& line : result.reasons())
        EXPECT_EQ(line, kTemperamentOutOfRange);
    // The rows before the failing one are shifted, the others are not.
    const std::vector<double> table{-29, -28, -27, -26, -25, -40, 30, 7, 8, 0, 10, 11};
    const QJsonObject object = result.object();
    EXPECT_EQ(numbers(object["settingsTable"]), table);
    EXPECT_EQ(numbers(object["document"].toObject()["cents"]), table);
}

TEST_F(TuningCommands, ATemperamentIsWrittenAndExported) {
    const QString file = write("t.temperament", temperamentFile(kCents));
    const QString saved = at("saved.temperament"), exported = at("out.scl");
    const CommandRun result =
        runCommand({"temperament", file, "--write", saved, "--export", exported});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    const QByteArray bytes = read(saved);
    EXPECT_TRUE(bytes.startsWith("// Trial Temperament\n\n\"Name\"=\"Trial\";\n"
                                 "\"Description\"=\"made up\";\n\n// key: C, A4: 440Hz\n"
                                 "// \"note\" = \"cent\";\t// ratio : hertz\n"
                                 "\"C\" =\"9.500000000\";\t// "))
        << bytes.toStdString();
    EXPECT_EQ(runCommand({"temperament", saved}).output, runCommand({"temperament", file}).output);
    // Each row's distance from A; the first one is not written.
    EXPECT_EQ(read(exported),
              "! Trial\n!\n made up\n 12\n!\n-800.750000\n-699.000000\n-597.000000\n"
              "-504.000000\n-393.000000\n-306.000000\n-195.000000\n-98.000000\n0.000000\n"
              "104.500000\n188.000000\n2/1\n");
}

TEST_F(TuningCommands, WritingOntoItselfKeepsTheFileWhole) {
    const QString file = write("t.temperament", temperamentFile(kCents));
    const QByteArray before = runCommand({"temperament", file}).output;
    EXPECT_EQ(runCommand({"temperament", file, "--write", file}).output, before);
    EXPECT_EQ(runCommand({"temperament", file}).output, before);
    EXPECT_EQ(QDir(mFolder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList{"t.temperament"})
        << "nothing is left beside it";
}

TEST_F(TuningCommands, AnOutputThatCannotBeWrittenIsAFailure) {
    const QString file = write("t.temperament", temperamentFile(kCents));
    const QString nowhere = at("no such folder/out");
    const QStringList cases[] = {
        {"temperament", file, "--write", nowhere},
        {"temperament", file, "--export", nowhere},
        {"temperament", file, "--write", mFolder.path()},
        {"stretch", write("s.stretch", ""), "--write", nowhere},
        {"scl", scale(""), "--write", nowhere},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CommandRun result = runCommand(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.reasons().size(), 1) << result.errors.toStdString();
    }
}

TEST_F(TuningCommands, WhatWouldNotReadBackIsNotWritten) {
    // A carriage return ends the comment in a stretch table's first line.
    const QString broken = write("s.stretch", "\"Name\"=\"one\\rtwo\";");
    // On E flat, 30 is taken off each degree until the eleventh fails; the twelfth keeps its 25,
    // which is 55 above the tenth.
    const QString wide = write("w.temperament", "\"F#\"=\"30\";\"Bb\"=\"-40\";\"B\"=\"25\";");
    const QStringList cases[] = {
        {"stretch", broken, "--write", at("out")},
        {"temperament", wide, "--tonic", "3", "--write", at("out")},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CommandRun result = runCommand(arguments);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.object()["accepted"], true) << "it is the writing that failed";
        EXPECT_TRUE(result.reasons().last().contains("not written")) << result.errors.toStdString();
        EXPECT_FALSE(QFile::exists(at("out")));
    }
}

TEST_F(TuningCommands, FilesThatAreRefused) {
    QByteArray latin1 = temperamentFile(kCents);
    latin1.replace("Trial", "Tri\xE4l");
    const QString huge = write("huge", "");
    ASSERT_TRUE(QFile::resize(huge, (qint64{64} << 20) + 1));
    const struct {
        const char* name;
        const char* command;
        QString path;
        QByteArray reason; ///< of the one line on standard error
    } cases[] = {
        {"missing", "temperament", at("nothing"), "No such file"},
        {"a folder", "temperament", mFolder.path(), "no regular file"},
        {"a device", "temperament", "/dev/zero", "no regular file"},
        {"too large", "temperament", huge, "larger than 64 MB"},
        {"not UTF-8", "temperament", write("l", latin1), "Temperament data is invalid."},
        {"byte-order mark", "temperament", write("b", "\xEF\xBB\xBF" + temperamentFile(kCents)),
         "Temperament data is invalid."},
        {"no semicolon", "temperament", write("n", "\"C\"=\"1\""), "Temperament data is invalid."},
        {"out of range", "temperament", write("o", "\"C\"=\"50.5\";\"A\"=\"-0.5\";"),
         kTemperamentOutOfRange},
        {"stretch missing", "stretch", at("nothing"), "No such file"},
        {"stretch too large", "stretch", huge, "larger than 64 MB"},
        {"stretch is a text", "stretch", write("t", "C0 = 1"), "Stretch data is invalid."},
        {"stretch out of range", "stretch", write("u", "\"B8\"=\"50.001\";"),
         "Stretch offset is out of range. It has to be between -50 and +50 cents."},
        {"scale missing", "scl", at("nothing"), "No such file"},
        {"scale too large", "scl", huge, "larger than 64 MB"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const CommandRun result = runCommand({c.command, c.path});
        EXPECT_EQ(result.exitCode, 1);
        const QJsonObject object = result.object();
        EXPECT_EQ(object["accepted"], false);
        EXPECT_FALSE(object["document"].isObject());
        ASSERT_EQ(result.reasons().size(), 1) << result.errors.toStdString();
        EXPECT_TRUE(result.reasons().first().contains(c.reason)) << result.errors.toStdString();
    }
}

TEST_F(TuningCommands, ObjectsOfRefusedFilesHaveAllKeys) {
    const struct {
        const char* command;
        QStringList keys;
    } cases[] = {
        {"temperament", {"accepted", "cents", "description", "document", "name", "settingsTable"}},
        {"stretch", {"accepted", "description", "name", "stretch"}},
        {"scl", {"accepted", "description", "document", "error", "ratios", "settingsTable"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command);
        const QJsonObject object = runCommand({c.command, at("nothing")}).object();
        EXPECT_EQ(object.keys(), c.keys);
        for (const QString& key : c.keys)
            EXPECT_TRUE(key == "accepted" || object[key].isNull()) << key.toStdString();
    }
}

TEST_F(TuningCommands, WhatIsRefusedWritesNothing) {
    const QString bad = write("bad", "not a file of this kind\n\n");
    for (const char* command : {"temperament", "stretch", "scl"}) {
        SCOPED_TRACE(command);
        EXPECT_EQ(runCommand({command, bad, "--write", at("out")}).exitCode, 1);
        EXPECT_FALSE(QFile::exists(at("out")));
    }
}

TEST_F(TuningCommands, AStretchTable) {
    const QString file =
        write("s.stretch", "\"Name\"=\"Grand\";\n\"C0\"=\"-50\";\n\"C#0\"=\"-3.5\";"
                           "\n\"Db4\"=\"7\";\n\"A4\"=\"0.1\";\n\"B8\"=\"50\";\n");
    const QString saved = at("saved.stretch");
    const CommandRun result = runCommand({"stretch", file, "--write", saved});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    const QJsonObject object = result.object();
    EXPECT_EQ(object.keys(), (QStringList{"accepted", "description", "name", "stretch"}));
    EXPECT_EQ(object["name"], "Grand");
    EXPECT_TRUE(object["description"].isNull());
    std::vector<double> expected(108, 0);
    expected[0] = -50;
    expected[1] = -3.5;
    expected[57] = 0.1;
    expected[107] = 50;
    EXPECT_EQ(numbers(object["stretch"]), expected);
    const QByteArray bytes = read(saved);
    EXPECT_TRUE(bytes.startsWith("// Grand Stretch Table\n\n\"Name\"=\"Grand\";\n"
                                 "\"Description\"=\"\";\n\n\"C0\"=\"-50.000\";\n"));
    EXPECT_TRUE(bytes.endsWith("\"B8\"=\"+50.000\";\n\n"));
    EXPECT_EQ(numbers(runCommand({"stretch", saved}).object()["stretch"]), expected);
}

TEST_F(TuningCommands, WrongUsageExitsWithTwo) {
    const QString file = write("f", "");
    const QStringList cases[] = {
        {"temperament"},
        {"stretch"},
        {"scl"},
        {"temperament", file, file},
        {"temperament", file, "--tonic", "12"},
        {"temperament", file, "--tonic", "-1"},
        {"temperament", file, "--tonic", "C"},
        {"temperament", file, "--reference-pitch", "440,5"},
        {"temperament", file, "--reference-pitch", "0"},
        {"temperament", file, "--write"},
        {"temperament", file, "--loud"},
        {"stretch", file, "--tonic", "1"},
        {"stretch", file, "--export", "x"},
        {"scl", file, "--tonic", "12"},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const CommandRun result = runCommand(arguments);
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors.count('\n'), 1) << result.errors.toStdString();
    }
}

TEST_F(TuningCommands, HelpNamesTheOptions) {
    const struct {
        const char* command;
        QList<QByteArray> options;
    } cases[] = {
        {"temperament", {"--tonic", "--reference-pitch", "--write", "--export"}},
        {"stretch", {"--write"}},
        {"scl", {"--tonic", "--write"}},
        {"analyze", {"--temperament", "--stretch"}},
        {"listen", {"--temperament", "--stretch"}},
    };
    const QByteArray overview = runCommand({"--help"}).output;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.command);
        EXPECT_TRUE(overview.contains(c.command));
        const CommandRun help = runCommand({c.command, "--help"});
        EXPECT_EQ(help.exitCode, 0);
        for (const QByteArray& option : c.options)
            EXPECT_TRUE(help.output.contains(option)) << option.toStdString();
        EXPECT_TRUE(runCommand({c.command, "--version"}).output.startsWith("veltrano-cli "));
    }
}

TEST_F(TuningCommands, NothingDependsOnTheLocale) {
    const QString file = write("t.temperament", temperamentFile(kCents));
    const QStringList german{"LC_ALL=de_DE.UTF-8", "LANG=de_DE.UTF-8"};
    const QStringList arguments{"temperament", file,       "--write",
                                at("german"),  "--export", at("g.scl")};
    EXPECT_EQ(runCommand(arguments, german).output, runCommand({"temperament", file}).output);
    EXPECT_TRUE(read(at("german")).contains("\"9.500000000\""));
    EXPECT_TRUE(read(at("g.scl")).contains("-800.750000"));
}

TEST_F(TuningCommands, AClosedPipeEndsQuietly) {
    const QString file = write("t.temperament", temperamentFile(kCents));
    QProcess process;
    process.start("/bin/bash", {"-c",
                                QStringLiteral("(sleep 0.2; \"$0\" temperament \"$1\"; "
                                               "echo $? >&2) | true"),
                                QStringLiteral(VELTRANO_CLI), file});
    ASSERT_TRUE(process.waitForFinished(30000));
    EXPECT_EQ(process.readAllStandardError(), "0\n");
}

TEST_F(TuningCommands, TheUsersFilesAreLeftAlone) {
    const QString home = at("home");
    ASSERT_TRUE(QDir().mkdir(home));
    const QString file = write("t.temperament", temperamentFile(kCents));
    const QStringList environment{"HOME=" + home, "XDG_DATA_HOME=" + home + "/data",
                                  "XDG_CONFIG_HOME=" + home + "/config"};
    EXPECT_EQ(runCommand({"temperament", file, "--write", at("out")}, environment).exitCode, 0);
    EXPECT_EQ(runCommand({"scl", scale("")}, environment).exitCode, 0);
    EXPECT_EQ(runCommand({"stretch", write("s", "")}, environment).exitCode, 0);
    EXPECT_EQ(QDir(home).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{});
}

} // namespace
} // namespace veltrano
