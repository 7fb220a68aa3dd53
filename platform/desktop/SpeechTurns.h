// SPDX-License-Identifier: GPL-3.0-or-later
// Who speaks when: one text at a time over an engine that tells its state late.
#pragma once

#include "platform/desktop/SpeechBackend.h"
#include "platform/desktop/SpeechPort.h"

#include <limits>
#include <string>
#include <string_view>

namespace veltrano {

class Clock;
class Log;

/// Keeps its own speaking flag, because what the backend tells comes late, twice or never: the flag
/// is set by say() and by started(), and cleared by finished() and failed(). A text takes the place
/// of what is being spoken. Thread: main. Owns: nothing; all of it outlives this object.
class SpeechTurns final : public SpeechPort {
public:
    /// After a failure no text is given to the backend for this long, so that reports that come
    /// with every frame do not knock at a door that stays shut.
    static constexpr double kRestSeconds = 5;
    /// The flag falls by itself after these for a text, slower than any voice: an engine that hangs
    /// would mute the reports for good. The next text then logs that it hangs.
    static constexpr double kLongestSeconds = 10;
    static constexpr double kLongestSecondsPerByte = 0.5;

    SpeechTurns(SpeechBackend& backend, Log& log, const Clock& clock);

    bool isSpeaking() const override;
    /// A text of blanks alone is no text: nothing happens, no engine would tell its end.
    void say(std::string_view utf8) override;

    // What the backend tells.
    void started(); ///< it is heard
    /// It was spoken to its end, or ended by fallSilent(). After a replacement the end of the text
    /// that had to go is told late: it does not count until the new one has started.
    void finished();
    /// The first reason goes to the log, the others nowhere.
    void failed(const std::string& reason);

private:
    void logOnce(const std::string& reason);

    SpeechBackend& mBackend;
    Log& mLog;
    const Clock& mClock;
    bool mIsSpeaking = false;
    bool mAwaitsStart = false; ///< the next end is that of the replaced text
    bool mHasLogged = false;
    double mSpeakingUntil = 0;                                     ///< [s] of the clock
    double mRestsUntil = -std::numeric_limits<double>::infinity(); ///< [s] of the clock
};

} // namespace veltrano
