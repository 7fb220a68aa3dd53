// SPDX-License-Identifier: GPL-3.0-or-later
// A machine on which no speech engine is installed.
#include "platform/desktop/SpeechEngine.h"
#include "platform/foundation/Clock.h"
#include "tests/support/RecordingLog.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

TEST(NoSpeechPlugin, IsOneLogLine) {
    int count = 1;
    char name[] = "platform_speech_plugin_tests";
    char* arguments[] = {name, nullptr};
    const QCoreApplication application(count, arguments);
    QCoreApplication::setLibraryPaths({});
    RecordingLog log;
    ManualClock clock;
    SpeechEngine engine(log, clock);
    for (const char* text : {"one", "two"}) {
        engine.say(text);
        const QDeadlineTimer deadline(10000);
        while (engine.isSpeaking() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        EXPECT_FALSE(engine.isSpeaking()) << text;
        clock.set(clock.now() + SpeechTurns::kRestSeconds);
    }
    EXPECT_EQ(log.details,
              std::vector<std::string>{"Nothing is spoken: no speech engine is installed"});
    EXPECT_TRUE(log.lines.empty());
}

} // namespace
} // namespace veltrano
