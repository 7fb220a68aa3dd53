// SPDX-License-Identifier: GPL-3.0-or-later
// The voice itself: what is heard of it, what is logged without it, how it ends.
#include "platform/desktop/SpeechEngine.h"

#include "platform/foundation/Clock.h"
#include "tests/support/RecordingLog.h"
#include "tests/support/SoundServer.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <memory>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

// libspeechd searches megabytes of voices from their start for every one of them, which takes
// minutes when each search is checked, and keeps the texts of its errors.
extern "C" const char* __asan_default_options() { return "intercept_strstr=0"; }
extern "C" const char* __lsan_default_suppressions() { return "leak:vasprintf\nleak:libspeechd"; }

namespace veltrano {
namespace {

constexpr char kLongText[] = "Reference Pitch: 440.000 hertz. Temperament: equal. Stretch: none. "
                             "Input Device: none. Input Peak Level: minus 12 dB. ";

int gArgumentCount = 1;
char gName[] = "platform_speech_tests";
char* gArguments[] = {gName, nullptr};

/// Serves events until the condition holds. @returns whether it does
template <class Condition>
bool await(Condition condition, int milliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > milliseconds) return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }
    return true;
}

/// Without a service, and without one that would be started in the user's name.
class SpeechEngineTest : public testing::Test {
protected:
    SpeechEngineTest() {
        QDir(folder.path()).mkpath("speech-dispatcher");
        QFile settings(folder.filePath("speech-dispatcher/speechd.conf"));
        EXPECT_TRUE(settings.open(QIODevice::WriteOnly));
        settings.write("DisableAutoSpawn\n");
        ::setenv("XDG_CONFIG_HOME", path("").c_str(), 1);
        ::setenv("SPEECHD_ADDRESS", ("unix_socket:" + path("/socket")).c_str(), 1);
    }
    std::string path(const char* name) const { return folder.path().toStdString() + name; }
    bool awaitEnd(int milliseconds = 30000) {
        return await([this] { return !engine->isSpeaking(); }, milliseconds);
    }
    void serve(int milliseconds) {
        await([] { return false; }, milliseconds);
    }

    const int isGerman = ::setenv("LC_ALL", "de_DE.UTF-8", 1); // read with the application's start
    QTemporaryDir folder;
    QCoreApplication application{gArgumentCount, gArguments};
    RecordingLog log;
    ManualClock clock;
    std::unique_ptr<SpeechEngine> engine = std::make_unique<SpeechEngine>(log, clock);
};

using NoSpeechTest = SpeechEngineTest;

TEST_F(NoSpeechTest, AServiceThatCannotBeReachedIsOneLogLine) {
    for (const char* text : {"one", "two"}) {
        engine->say(text);
        EXPECT_TRUE(awaitEnd()) << text;
        clock.set(clock.now() + SpeechTurns::kRestSeconds);
    }
    EXPECT_EQ(log.details, std::vector<std::string>{
                               "Nothing is spoken: Connection to speech-dispatcher failed"});
    EXPECT_TRUE(log.lines.empty());
}

TEST_F(NoSpeechTest, EndsAtAnyMoment) {
    engine->say("one");
    serve(300);
    engine.reset();
    engine = std::make_unique<SpeechEngine>(log, clock);
    engine->say("one");
    engine.reset(); // with the failure on its way
    serve(20);
    EXPECT_EQ(log.details.size(), 1u);
}

TEST_F(NoSpeechTest, AServiceThatHangsHoldsNothingUpForLong) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path("/socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int line = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(line, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(line, 1), 0); // and never answers
    engine->say("one");
    serve(200);
    EXPECT_TRUE(engine->isSpeaking());
    engine->say("two");
    QElapsedTimer timer;
    timer.start();
    engine.reset();
    EXPECT_LT(timer.elapsed(), SpeechEngine::kPatienceMilliseconds + 1000);
    ::close(line); // it comes to, after the end
    serve(300);
    EXPECT_TRUE(log.details.empty());
}

/// A private speech service that plays into a private sound server, and a recorder.
class SpokenTest : public SpeechEngineTest {
protected:
    void SetUp() override {
        if (const auto reason = SoundServer::missing(SoundServer::Kind::pulseAudio))
            GTEST_SKIP() << *reason;
        if (std::system("command -v speech-dispatcher >/dev/null") != 0)
            GTEST_SKIP() << "the program speech-dispatcher is not installed";
        ASSERT_TRUE(sound.start()) << sound.output();
        service = launched({"speech-dispatcher", "--run-single", "--timeout", "0", "--socket-path",
                            path("/socket"), "--pid-file", path("/pid"), "--log-dir", path(""),
                            "--log-level", "5"},
                           "/service");
        ASSERT_TRUE(await([this] { return QFile::exists(folder.filePath("socket")); }, 20000));
        recorder = launched({"pacat", "--record", "--raw", "--format=s16ne", "--channels=1",
                             "--rate=8000", "--latency-msec=20", "--device=test.monitor"},
                            "/recording");
        ASSERT_TRUE(await([this] { return !recorded().isEmpty(); }, 10000));
    }
    void TearDown() override {
        engine.reset();
        if (service) service->signal(SIGTERM); // so that it ends its modules
        if (service) service->await();
    }

    std::unique_ptr<TestProcess> launched(const std::vector<std::string>& command,
                                          const char* output) const {
        return std::make_unique<TestProcess>(
            command,
            std::vector<std::string>{"PULSE_SERVER=" + sound.address(), "HOME=" + path(""),
                                     "LC_ALL=C"},
            path(output));
    }
    QByteArray content(const char* name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    QByteArray recorded() const { return content("recording"); }
    /// The seconds that were loud since the last call; a tenth counts when it is.
    double heardSeconds() {
        const QByteArray all = recorded();
        const auto* samples = reinterpret_cast<const short*>(all.constData());
        const qsizetype end = all.size() / qsizetype(sizeof(short)) - kTenth;
        double seconds = 0;
        for (; heardSamples <= end; heardSamples += kTenth) {
            double power = 0;
            for (qsizetype index = 0; index < kTenth; ++index)
                power += std::pow(double(samples[heardSamples + index]), 2);
            if (std::sqrt(power / kTenth) > kLoud) seconds += 0.1;
        }
        return seconds;
    }
    bool awaitSound() {
        return await([this] { return heardSeconds() > 0; }, 20000);
    }

    static constexpr qsizetype kTenth = 800; ///< [samples]
    static constexpr double kLoud = 300;     ///< of 32768; a voice has thousands
    SoundServer sound{SoundServer::Kind::pulseAudio, SoundServer::Devices::sink};
    std::unique_ptr<TestProcess> service;
    std::unique_ptr<TestProcess> recorder;
    qsizetype heardSamples = 0;
};

TEST_F(SpokenTest, SaysTexts) {
    QElapsedTimer timer;
    timer.start();
    engine->say("A flat, +9.2 cent");
    EXPECT_LT(timer.elapsed(), 500) << "the engine takes its time, the caller does not wait";
    EXPECT_TRUE(engine->isSpeaking());
    ASSERT_TRUE(awaitEnd());
    serve(300); // the sound is on its way through the server
    EXPECT_GT(heardSeconds(), 0.5);
    EXPECT_TRUE(log.details.empty());
    // The service logs what it tells the voice.
    const QByteArray serviceLog = content("speech-dispatcher.log").toLower();
    EXPECT_TRUE(serviceLog.contains("plus 9"));
    EXPECT_TRUE(serviceLog.contains("\nlanguage=en"));
    EXPECT_FALSE(serviceLog.contains("\nlanguage=de")) << "the desktop is, the texts are not";
}

TEST_F(SpokenTest, TheNewTextReplacesTheOld) {
    const struct {
        const char* name;
        bool isHeard; ///< the old one, before the new one comes
    } cases[] = {{"while the engine is being made", false},
                 {"in the middle", true},
                 {"on the way to the engine", false}};
    for (const auto& c : cases) {
        engine->say(kLongText);
        ASSERT_TRUE(!c.isHeard || awaitSound()) << c.name;
        engine->say("two");
        serve(100);
        EXPECT_TRUE(engine->isSpeaking()) << c.name;
        ASSERT_TRUE(awaitEnd()) << c.name;
        serve(300);
        const double seconds = heardSeconds();
        EXPECT_GT(seconds, 0.1) << c.name;
        EXPECT_LT(seconds, 2) << c.name << ": the long text takes ten";
    }
    EXPECT_TRUE(log.details.empty());
}

TEST_F(SpokenTest, FallsSilentWhenItEnds) {
    engine->say(kLongText);
    ASSERT_TRUE(awaitSound());
    QElapsedTimer timer;
    timer.start();
    engine.reset();
    EXPECT_LT(timer.elapsed(), 1000);
    serve(500);
    heardSeconds();
    serve(1000);
    EXPECT_EQ(heardSeconds(), 0);

    // Just being made, and before that.
    for (const int milliseconds : {50, 0}) {
        engine = std::make_unique<SpeechEngine>(log, clock);
        engine->say("one");
        serve(milliseconds);
        engine.reset();
    }
}

TEST_F(SpokenTest, AServiceThatDiesIsAFailure) {
    engine->say(kLongText);
    ASSERT_TRUE(awaitSound());
    service->signal(SIGTERM);
    service->await();
    serve(100);
    engine->say("two");
    EXPECT_TRUE(awaitEnd());
    EXPECT_EQ(log.details.size(), 1u);
}

} // namespace
} // namespace veltrano
