// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of veltrano.
#include "app/LaunchOptions.h"

#include <QDir>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

Launch launch(const QStringList& arguments) {
    return readLaunch(QStringList{"veltrano"} + arguments);
}

TEST(LaunchOptions, NothingGivenStartsTheTuner) {
    const Launch plain = launch({});
    ASSERT_TRUE(plain.options);
    EXPECT_FALSE(plain.options->input);
    EXPECT_FALSE(plain.options->snapshotDir);
    EXPECT_FALSE(plain.options->settingsFile);
    EXPECT_EQ(plain.options->appearance, AppearanceChoice::system);
}

TEST(LaunchOptions, EverythingGiven) {
    const Launch full = launch({"--input", "a.wav", "--snapshot", "pictures", "--at", "1.5",
                                "--appearance", "dark", "--settings", "my.ini"});
    ASSERT_TRUE(full.options) << full.error;
    EXPECT_EQ(full.options->input, "a.wav");
    EXPECT_EQ(full.options->snapshotDir, "pictures");
    EXPECT_EQ(full.options->snapshotSeconds, 1.5);
    EXPECT_EQ(full.options->appearance, AppearanceChoice::dark);
    EXPECT_EQ(full.options->settingsFile, "my.ini");
}

TEST(LaunchOptions, DocumentsAreWholePaths) {
    const Launch opened =
        launch({"a.temperament", "/b/C.STRETCH", "--appearance", "dark", "d.scl"});
    ASSERT_TRUE(opened.options) << opened.error;
    const std::string here = QDir::currentPath().toStdString();
    EXPECT_EQ(opened.options->files,
              (std::vector<std::string>{here + "/a.temperament", "/b/C.STRETCH", here + "/d.scl"}));
}

TEST(LaunchOptions, WrongUsageIsOneLineAndExitCodeTwo) {
    const QStringList cases[] = {
        {"--loud"},
        {"file.txt"},
        {"a.temperament", "recording.wav"},
        {"temperament"},
        {"--input"},
        {"--appearance", "blue"},
        {"--at", "3"},
        {"--snapshot", "d"},
        {"--snapshot", "d", "--input", "a.wav"},
        {"--snapshot", "d", "--input", "a.wav", "--at", "soon"},
        {"--snapshot", "d", "--input", "a.wav", "--at", "1,5"},
        {"--snapshot", "d", "--input", "a.wav", "--at", "-1"},
    };
    for (const QStringList& arguments : cases) {
        SCOPED_TRACE(arguments.join(' ').toStdString());
        const Launch refused = launch(arguments);
        EXPECT_FALSE(refused.options);
        EXPECT_EQ(refused.exitCode, 2);
        EXPECT_EQ(refused.error.rfind("veltrano: ", 0), 0u) << refused.error;
        EXPECT_EQ(refused.error.find('\n'), std::string::npos);
        EXPECT_EQ(refused.output, "");
    }
}

TEST(LaunchOptions, WhatASessionManagerAddsIsLeftToQt) {
    const Launch again = launch({"--settings", "my.ini", "-session", "10af_1700_42", "a.scl"});
    ASSERT_TRUE(again.options) << again.error;
    EXPECT_EQ(again.options->settingsFile, "my.ini");
    EXPECT_EQ(again.options->files.size(), 1u);
    EXPECT_FALSE(launch({"-session"}).options);
}

TEST(LaunchOptions, HelpAndVersionAreAnswered) {
    EXPECT_EQ(launch({"--version"}).output.rfind("veltrano ", 0), 0u);
    for (const char* option : {"--help", "-h"}) {
        const std::string help = launch({option}).output;
        EXPECT_EQ(help.substr(0, help.find('\n')), "Usage: veltrano [options] [FILE...]");
        for (const char* word : {"--help", "--version", "--input <RECORDING>", "--snapshot <DIR>",
                                 "--at <SECONDS>", "--appearance <NAME>", "--settings <FILE>"})
            EXPECT_NE(help.find(word), std::string::npos) << word;
    }
    EXPECT_EQ(launch({"--help"}).exitCode, 0);
    EXPECT_FALSE(launch({"--help"}).options);
}

} // namespace
} // namespace veltrano
