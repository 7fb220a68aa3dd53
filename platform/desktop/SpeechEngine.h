// SPDX-License-Identifier: GPL-3.0-or-later
// The voice of the desktop.
#pragma once

#include "platform/desktop/SpeechTurns.h"

#include <QObject>
#include <QThread>

class QTextToSpeech;

namespace veltrano {

/// Speaks through Qt's text to speech, with an English voice where there is one. The engine is made
/// at the first text, in a thread of its own: reaching the speech service takes seconds when it has
/// to be started. Without an engine, or with one that fails, one log line says why and nothing is
/// heard; later texts try again after a rest, as a service may come back.
/// Thread: main, with an event loop. Owns: the engine and its thread; the destructor breaks off
/// what is being spoken, and waits when the engine is just being made.
class SpeechEngine final : public SpeechPort, private SpeechBackend {
public:
    SpeechEngine(Log& log, const Clock& clock);
    ~SpeechEngine() override;

    bool isSpeaking() const override { return mTurns.isSpeaking(); }
    void say(std::string_view utf8) override { mTurns.say(utf8); }

private:
    void speak(const std::string& utf8) override;
    void fallSilent() override;

    // Thread: speech.
    QTextToSpeech* engine(); ///< made when there is none; null: there is none to be had
    template <class Function>
    void tell(Function function); ///< to mTurns

    SpeechTurns mTurns;
    QObject mMainThread; ///< gets what the engine tells
    QThread mThread;
    QObject* mSpeechThread = nullptr; ///< gets what the engine is told; the thread deletes it
    QTextToSpeech* mEngine = nullptr; ///< used by the speech thread alone; child of mSpeechThread
};

} // namespace veltrano
