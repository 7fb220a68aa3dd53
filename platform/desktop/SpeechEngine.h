// SPDX-License-Identifier: GPL-3.0-or-later
// The voice of the desktop.
#pragma once

#include "platform/desktop/SpeechTurns.h"

#include <QObject>

class QThread;

namespace veltrano {

class SpeechWorker;

/// Speaks through Qt's text to speech, with an English voice where there is one. The engine is made
/// at the first text, in a thread of its own: reaching the speech service takes seconds. Without an
/// engine, or with one that fails, one log line says why and nothing is heard; later texts try
/// again after a rest, as a service may come back.
/// Thread: main, with an event loop. Owns: the engine and its thread.
class SpeechEngine final : public SpeechPort, private SpeechBackend {
public:
    /// So long the destructor waits for an engine that is just being made; one that hangs in the
    /// speech service is left to the end of the process.
    static constexpr int kPatienceMilliseconds = 3000;

    SpeechEngine(Log& log, const Clock& clock);
    ~SpeechEngine() override; ///< breaks off what is being spoken

    bool isSpeaking() const override { return mTurns.isSpeaking(); }
    void say(std::string_view utf8) override { mTurns.say(utf8); }

private:
    void speak(const std::string& utf8) override;
    void fallSilent() override;
    void startWorker();

    SpeechTurns mTurns;
    QObject mMainThread;             ///< gets what the worker tells
    QThread* mThread = nullptr;      ///< null before the first text
    SpeechWorker* mWorker = nullptr; ///< in that thread, which deletes it
};

} // namespace veltrano
