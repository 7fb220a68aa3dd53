// SPDX-License-Identifier: GPL-3.0-or-later
// Who speaks when.
#include "platform/desktop/SpeechTurns.h"

#include "platform/foundation/Clock.h"
#include "platform/foundation/Log.h"

namespace veltrano {

SpeechTurns::SpeechTurns(SpeechBackend& backend, Log& log, const Clock& clock)
    : mBackend(backend), mLog(log), mClock(clock) {}

bool SpeechTurns::isSpeaking() const { return mIsSpeaking && mClock.now() < mSpeakingUntil; }

void SpeechTurns::say(std::string_view utf8) {
    if (utf8.find_first_not_of(" \t\r\n") == std::string_view::npos) return;
    const double now = mClock.now();
    if (now < mRestsUntil) return;
    if (mIsSpeaking && now >= mSpeakingUntil) logOnce("the speech engine does not answer");
    if (mIsSpeaking) mBackend.fallSilent();
    mAwaitsStart = mIsSpeaking; // unless the backend has told the end just now
    mIsSpeaking = true;
    mSpeakingUntil = now + kLongestSeconds + kLongestSecondsPerByte * double(utf8.size());
    mBackend.speak(std::string(utf8));
}

void SpeechTurns::started() {
    mAwaitsStart = false;
    // A text that was replaced before it began may tell its beginning and its end yet.
    mIsSpeaking = true;
}

void SpeechTurns::finished() {
    if (!mAwaitsStart) mIsSpeaking = false;
}

void SpeechTurns::failed(const std::string& reason) {
    mIsSpeaking = false;
    mRestsUntil = mClock.now() + kRestSeconds;
    logOnce(reason);
}

void SpeechTurns::logOnce(const std::string& reason) {
    if (mHasLogged) return;
    mHasLogged = true;
    mLog.detail("Nothing is spoken: " + reason);
}

} // namespace veltrano
