// SPDX-License-Identifier: GPL-3.0-or-later
// One running program: who is first, what it is given, what a dead or hanging one leaves.
#include "platform/desktop/SingleInstance.h"

#include "tests/platform/desktop/SessionRig.h"
#include "tests/support/TestProcess.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <algorithm>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>
#include <optional>

namespace veltrano {
namespace {

using Files = SingleInstance::Files;

constexpr QFile::Permissions kOthers = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                       QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;

/// Processes with a runtime folder of their own.
class SingleInstanceTest : public SessionTest {
protected:
    SingleInstanceTest() {
        setRuntimeFolder(folder.path());
        qputenv("TMPDIR", QFile::encodeName(folder.path()));
    }
    ~SingleInstanceTest() override {
        setRuntimeFolder({});
        qunsetenv("TMPDIR");
    }

    void setRuntimeFolder(const QString& path) {
        qunsetenv("XDG_RUNTIME_DIR");
        if (!path.isEmpty()) qputenv("XDG_RUNTIME_DIR", QFile::encodeName(path));
    }
    QString outputOf(const std::string& name) const {
        return folder.filePath(QString::fromStdString(name));
    }
    QStringList said(const std::string& name) const {
        QFile file(outputOf(name));
        if (!file.open(QIODevice::ReadOnly)) return {};
        return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    }
    /// What it says goes to a file of that name.
    std::unique_ptr<TestProcess> start(const std::string& name, const Files& files = {},
                                       const std::string& identity = "settings") {
        Files command{VELTRANO_INSTANCE_PROCESS, identity};
        command.insert(command.end(), files.begin(), files.end());
        return std::make_unique<TestProcess>(command, Files{}, outputOf(name).toStdString());
    }
    std::unique_ptr<TestProcess> startFirst(const std::string& name) {
        auto process = start(name);
        EXPECT_TRUE(await([&] { return said(name) == QStringList{"first"}; }));
        return process;
    }
    /// Notes what @p instance is given.
    void receive(SingleInstance& instance) {
        instance.setReceiver([this](const Files& files) { got.push_back(files); });
    }
    QString socket() const {
        const QStringList sockets =
            QDir(folder.path()).entryList({"veltrano-*"}, QDir::System | QDir::Files);
        for (const QString& name : sockets)
            if (!name.endsWith(".lock")) return folder.filePath(name);
        return {};
    }

    std::vector<Files> got;
};

TEST_F(SingleInstanceTest, ALaterOneHandsItsFilesOverAndEnds) {
    SingleInstance instance("settings");
    ASSERT_TRUE(instance.isFirst());
    receive(instance);
    const Files files = {"/a/Rock & Roll.temperament", "/b/Kl\u00e4nge \u266d.stretch",
                         "/c/two\nlines.scl", "/d/\xff not UTF-8.scl", "/e/ "};
    auto later = start("later", files);
    ASSERT_TRUE(await([&] { return !got.empty(); }));
    EXPECT_EQ(later->await(), 0);
    EXPECT_EQ(said("later"), QStringList{"handed over"});
    EXPECT_EQ(got, std::vector<Files>{files});
}

TEST_F(SingleInstanceTest, WithoutFilesTheFirstIsAskedToTheFront) {
    SingleInstance instance("settings");
    receive(instance);
    auto later = start("later");
    ASSERT_TRUE(await([&] { return !got.empty(); }));
    EXPECT_EQ(later->await(), 0);
    EXPECT_EQ(got, std::vector<Files>{Files{}});
}

TEST_F(SingleInstanceTest, FilesThatComeBeforeAReceiverWaitForIt) {
    SingleInstance instance("settings");
    for (const char* file : {"/1.scl", "/2.scl"}) {
        auto later = start("later", {file});
        ASSERT_TRUE(await([&] { return said("later").contains("handed over"); }));
        EXPECT_EQ(later->await(), 0);
        QFile::remove(outputOf("later"));
    }
    serve(20);
    receive(instance);
    EXPECT_EQ(got, (std::vector<Files>{{"/1.scl"}, {"/2.scl"}}));
    instance.setReceiver({});
    receive(instance);
    EXPECT_EQ(got.size(), 2u) << "handed out once";
}

TEST_F(SingleInstanceTest, ALongListArrivesWhole) {
    SingleInstance instance("settings");
    receive(instance);
    Files files;
    for (int i = 0; i < 9000; ++i)
        files.push_back("/a folder with quite a long name/and another/" + std::to_string(i) +
                        " of the temperaments that were collected.temperament");
    auto later = start("later", files);
    ASSERT_TRUE(await([&] { return !got.empty(); }));
    EXPECT_EQ(later->await(), 0);
    EXPECT_EQ(got, std::vector<Files>{files});
}

TEST_F(SingleInstanceTest, ManyAtOnceAllArrive) {
    SingleInstance instance("settings");
    receive(instance);
    std::vector<std::unique_ptr<TestProcess>> later;
    std::vector<Files> expected;
    for (int i = 10; i < 30; ++i) {
        expected.push_back({"/" + std::to_string(i) + ".scl"});
        later.push_back(start("later", expected.back()));
    }
    EXPECT_TRUE(await([&] { return got.size() == expected.size(); }));
    for (const auto& process : later)
        EXPECT_EQ(process->await(), 0);
    std::ranges::sort(got);
    EXPECT_EQ(got, expected);
}

TEST_F(SingleInstanceTest, OfThoseStartedTogetherOneIsFirst) {
    std::vector<std::unique_ptr<TestProcess>> processes;
    for (int i = 0; i < 8; ++i)
        processes.push_back(start("all", {"/" + std::to_string(i) + ".scl"}));
    EXPECT_TRUE(await([&] { return said("all").count("handed over") == 7; }));
    EXPECT_EQ(said("all").count("first"), 1);
    EXPECT_EQ(said("all").filter(".scl").size(), 7) << "all but the files of the first itself";
}

TEST_F(SingleInstanceTest, AReceiverMayRunAnEventLoop) {
    SingleInstance instance("settings");
    std::unique_ptr<TestProcess> second;
    bool isSecondHere = false;
    instance.setReceiver([&](const Files& files) {
        got.push_back(files);
        if (got.size() > 1) {
            isSecondHere = true;
            return;
        }
        second = start("second", {"/2.scl"}); // while the first file's alert is on the screen
        await([&] { return isSecondHere; });
        serve(20);
    });
    auto first = start("first", {"/1.scl"});
    EXPECT_TRUE(await([&] { return isSecondHere; }));
    EXPECT_EQ(first->await(), 0);
    EXPECT_EQ(second->await(), 0);
    EXPECT_EQ(got, (std::vector<Files>{{"/1.scl"}, {"/2.scl"}}));
}

TEST_F(SingleInstanceTest, AnotherIdentityIsIndependent) {
    SingleInstance instance("settings");
    const SingleInstance other("other settings");
    EXPECT_TRUE(instance.isFirst());
    EXPECT_TRUE(other.isFirst());
    receive(instance);
    auto process = start("third", {"/1.scl"}, "third settings");
    EXPECT_TRUE(await([&] { return said("third") == QStringList{"first"}; }));
    serve(20);
    EXPECT_TRUE(got.empty());
}

TEST_F(SingleInstanceTest, TheNextIsFirstWhenTheFirstHasEnded) {
    for (int i = 0; i < 3; ++i) {
        const SingleInstance instance("settings");
        EXPECT_TRUE(instance.isFirst());
    }
    EXPECT_EQ(socket(), "") << "left behind";
}

TEST_F(SingleInstanceTest, ACrashedFirstLeavesNothingInTheWay) {
    startFirst("crashed")->kill();
    ASSERT_NE(socket(), "") << "the crash left it";
    QElapsedTimer timer;
    timer.start();
    SingleInstance instance("settings");
    EXPECT_TRUE(instance.isFirst());
    EXPECT_LT(timer.elapsed(), 1000);
    receive(instance);
    auto later = start("later", {"/1.scl"});
    EXPECT_TRUE(await([&] { return got == std::vector<Files>{{"/1.scl"}}; }));
    EXPECT_EQ(later->await(), 0);
}

TEST_F(SingleInstanceTest, WhateverTheLocksFileHoldsIsNothing) {
    startFirst("first")->kill();
    QFile lock(socket() + ".lock");
    for (const char* text : {"", "1\nsystemd\nhost\n", "garbage"}) {
        ASSERT_TRUE(lock.open(QIODevice::WriteOnly | QIODevice::Truncate));
        lock.write(text);
        lock.close();
        EXPECT_TRUE(SingleInstance("settings").isFirst()) << text;
    }
}

TEST_F(SingleInstanceTest, AHangingFirstIsGivenUpAndGetsNothing) {
    auto first = startFirst("first");
    first->signal(SIGSTOP);
    QElapsedTimer timer;
    timer.start();
    SingleInstance instance("settings");
    EXPECT_FALSE(instance.isFirst());
    EXPECT_FALSE(instance.handOver({"/1.scl"}));
    EXPECT_FALSE(instance.isFirst()) << "the other still has the place";
    EXPECT_GE(timer.elapsed(), 3000) << "it may be busy";
    EXPECT_LE(timer.elapsed(), 7000);
    first->signal(SIGCONT);
    EXPECT_TRUE(instance.handOver({"/2.scl"}));
    EXPECT_TRUE(await([&] { return said("first").contains("/2.scl"); }));
    EXPECT_EQ(said("first"), (QStringList{"first", "/2.scl"}))
        << "the files of one that runs by itself are opened there";
}

TEST_F(SingleInstanceTest, OneThatWaitsForADyingFirstTakesItsPlace) {
    auto first = startFirst("first");
    first->signal(SIGSTOP);
    auto second = start("second", {"/1.scl"});
    serve(300);
    first->kill();
    EXPECT_EQ(second->await(), 1);
    EXPECT_EQ(said("second"), QStringList{"no answer, first"});
}

TEST_F(SingleInstanceTest, TheFirstHandsNothingToItself) {
    SingleInstance instance("settings");
    receive(instance);
    EXPECT_FALSE(instance.handOver({"/1.scl"}));
    EXPECT_TRUE(instance.isFirst());
    serve(20);
    EXPECT_TRUE(got.empty());
}

TEST_F(SingleInstanceTest, ItsFilesAreForTheUserAlone) {
    const SingleInstance instance("settings");
    ASSERT_NE(socket(), "");
    for (const QString& path : {socket(), socket() + ".lock"}) {
        EXPECT_TRUE(QFileInfo::exists(path));
        EXPECT_FALSE(QFile::permissions(path) & kOthers) << path.toStdString();
    }
}

TEST_F(SingleInstanceTest, WhereThereIsNoPlaceEveryProcessRunsByItselfAtOnce) {
    const QString longFolder = folder.filePath(QString(120, u'x')); // a socket's path has 107 bytes
    QDir().mkpath(longFolder);
    QFile::setPermissions(longFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString file = folder.filePath("file");
    EXPECT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    qputenv("TMPDIR", QFile::encodeName(file));
    for (const QString& path : {longFolder, file}) {
        SCOPED_TRACE(path.toStdString());
        setRuntimeFolder(path);
        QElapsedTimer timer;
        timer.start();
        std::vector<std::unique_ptr<SingleInstance>> instances;
        for (int i = 0; i < 2; ++i) {
            instances.push_back(std::make_unique<SingleInstance>("settings"));
            EXPECT_FALSE(instances.back()->isFirst());
            EXPECT_FALSE(instances.back()->handOver({"/1.scl"}));
        }
        EXPECT_LT(timer.elapsed(), 1000);
    }
}

TEST_F(SingleInstanceTest, WithoutAUsableRuntimeFolderAPrivateOneIsMade) {
    const QString file = folder.filePath("file");
    EXPECT_TRUE(QFile(file).open(QIODevice::WriteOnly));
    for (const QString& path : {QString(), file, folder.filePath("no/folder")}) {
        SCOPED_TRACE(path.toStdString());
        setRuntimeFolder(path);
        SingleInstance instance("settings");
        ASSERT_TRUE(instance.isFirst());
        receive(instance);
        got.clear();
        auto later = start("later", {"/1.scl"});
        EXPECT_TRUE(await([&] { return got == std::vector<Files>{{"/1.scl"}}; }));
        EXPECT_EQ(later->await(), 0);
        const QStringList made = QDir(folder.path()).entryList({"runtime-*"}, QDir::Dirs);
        ASSERT_EQ(made.size(), 1);
        EXPECT_FALSE(QFile::permissions(folder.filePath(made[0])) & kOthers);
    }
}

/// Whoever else finds the socket.
TEST_F(SingleInstanceTest, BadBytesOnTheSocketDoNothing) {
    using namespace std::string_literals;
    const struct {
        const char* name;
        std::string bytes;
        bool isRefused; ///< else it may still become a message
    } kCases[] = {
        {"nothing", "", false},
        {"a huge count", "\xff\xff\xff\xfe\xff\xff\xff\xfe"s, false},
        {"no end", "/a.scl", false},
        {"no path", "a.scl\0\0"s, true},
        {"a path and none", "/a.scl\0GET\0\0"s, true},
        {"no end ever", std::string(9 << 20, '/'), true},
    };
    SingleInstance instance("settings");
    receive(instance);
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        QLocalSocket stranger;
        stranger.connectToServer(socket());
        ASSERT_TRUE(stranger.waitForConnected(1000));
        stranger.write(c.bytes.data(), qint64(c.bytes.size()));
        const auto isGone = [&] { return stranger.state() == QLocalSocket::UnconnectedState; };
        if (c.isRefused) {
            EXPECT_TRUE(await(isGone));
        } else {
            serve(50);
            EXPECT_FALSE(isGone());
        }
        EXPECT_FALSE(stranger.readAll().contains('+'));
    }
    serve(20);
    EXPECT_TRUE(got.empty());
    auto later = start("later", {"/1.scl"});
    EXPECT_TRUE(await([&] { return got == std::vector<Files>{{"/1.scl"}}; })) << "still serves";
    EXPECT_EQ(later->await(), 0);
}

TEST_F(SingleInstanceTest, AMessageInPiecesIsOneMessage) {
    SingleInstance instance("settings");
    receive(instance);
    QLocalSocket slow;
    slow.connectToServer(socket());
    ASSERT_TRUE(slow.waitForConnected(1000));
    for (const char letter : {'/', 'a', '\0', '/', 'b', '\0', '\0'}) {
        EXPECT_TRUE(got.empty());
        slow.putChar(letter);
        slow.flush();
        serve(10);
    }
    EXPECT_TRUE(await([&] { return !got.empty(); }));
    EXPECT_EQ(got, (std::vector<Files>{{"/a", "/b"}}));
    EXPECT_EQ(slow.readAll(), "?+");
}

} // namespace
} // namespace veltrano
