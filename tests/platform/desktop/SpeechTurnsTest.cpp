// SPDX-License-Identifier: GPL-3.0-or-later
// What is spoken and what is dropped, whatever the engine tells and when.
#include "platform/desktop/SpeechTurns.h"

#include "platform/foundation/Clock.h"
#include "tests/support/RecordingLog.h"

#include <gtest/gtest.h>
#include <memory>
#include <sstream>
#include <string>

namespace veltrano {
namespace {

/// Writes down what it is told, and may answer on the spot.
struct ScriptedBackend final : SpeechBackend {
    void speak(const std::string& utf8) override {
        told += "[" + utf8 + "]";
        if (refuses) turns->failed("refused");
        if (startsAtOnce) turns->started();
    }
    void fallSilent() override {
        told += "stop ";
        if (endsAtOnce) turns->finished();
    }

    SpeechTurns* turns = nullptr;
    bool startsAtOnce = false;
    bool endsAtOnce = false;
    bool refuses = false;
    std::string told;
};

struct Rig {
    /// Words: a text to be said, "<" its start, ">" its end, "!" a failure, "+s" seconds that pass,
    /// "?" writes down the flag. @returns what was told, the flag as '1' or '0'
    std::string play(const std::string& script) {
        std::istringstream words(script);
        for (std::string word; words >> word;)
            step(word);
        return backend.told;
    }
    void step(const std::string& word) {
        if (word == "<") {
            turns.started();
        } else if (word == ">") {
            turns.finished();
        } else if (word == "!") {
            turns.failed("reason " + std::to_string(++failures));
        } else if (word[0] == '+') {
            clock.set(clock.now() + std::stod(word.substr(1)));
        } else if (word == "?") {
            backend.told += turns.isSpeaking() ? '1' : '0';
        } else {
            turns.say(word);
        }
    }

    RecordingLog log;
    ManualClock clock;
    ScriptedBackend backend;
    SpeechTurns turns{backend, log, clock};
    int failures = 0;
};

struct Case {
    const char* name;
    const char* script;
    const char* told;
};

TEST(SpeechTurns, TheFlagIsItsOwnAndTheNewTextTakesTheTurn) {
    const Case cases[] = {
        {"nothing was said yet", "?", "0"},
        {"the flag is set before the engine knows", "A ?", "[A]1"},
        {"spoken to its end", "A < ? > ?", "[A]10"},
        {"an end without a start", "A > ?", "[A]0"},
        {"two ends", "A < > > ? B ?", "[A]0[B]1"},
        {"the next text after an end stops nothing", "A < > B ?", "[A][B]1"},
        {"a text that is replaced", "A < B ? > < ? > ?", "[A]stop [B]110"},
        {"its late end does not count", "A < B > ?", "[A]stop [B]1"},
        {"its end gets lost", "A < B < ? > ?", "[A]stop [B]10"},
        {"replaced before it began, and never told of", "A B < ? > ?", "[A]stop [B]10"},
        {"replaced before it began, but told of", "A B < > < ? > ?", "[A]stop [B]10"},
        {"replaced twice, one end for both", "A < B C > ? < > ?", "[A]stop [B]stop [C]10"},
        {"replaced twice, an end for each", "A < B C > > ? < > ?", "[A]stop [B]stop [C]10"},
        {"said anew, not replaced: any end counts", "A < B > < > C > ?", "[A]stop [B][C]0"},
    };
    for (const auto& c : cases) {
        Rig rig;
        rig.backend.turns = &rig.turns;
        EXPECT_EQ(rig.play(c.script), c.told) << c.name;
        EXPECT_TRUE(rig.log.details.empty()) << c.name;
    }
}

TEST(SpeechTurns, AFailureClearsTheFlagAndIsLoggedOnce) {
    const Case cases[] = {
        {"before the start", "A ! ?", "[A]0"},
        {"while it is heard", "A < ! ?", "[A]0"},
        {"the engine is ready again afterwards", "A < ! > ?", "[A]0"},
        {"of what has to go", "A < B ! ?", "[A]stop [B]0"},
        {"told twice", "A ! ! ?", "[A]0"},
        {"the rest", "A ! B ? +4.9 C ?", "[A]00"},
        {"tried again after it", "A ! +5 B ? < > ?", "[A][B]10"},
        {"its end counts at once then", "A < B ! +5 C > ?", "[A]stop [B][C]0"},
        {"every failure has its rest", "A ! +5 B ! +4.9 C +0.1 D ?", "[A][B][D]1"},
        {"nothing was said", "! ? A +5 B ?", "0[B]1"},
    };
    for (const auto& c : cases) {
        Rig rig;
        EXPECT_EQ(rig.play(c.script), c.told) << c.name;
        EXPECT_EQ(rig.log.details, std::vector<std::string>{"Nothing is spoken: reason 1"})
            << c.name;
        EXPECT_TRUE(rig.log.lines.empty()) << c.name;
    }
}

TEST(SpeechTurns, AnEngineThatHangsDoesNotMuteTheReports) {
    const std::string kHangs = "Nothing is spoken: the speech engine does not answer";
    const struct {
        const char* name;
        const char* script;
        const char* told;
        std::vector<std::string> details;
    } cases[] = {
        {"ten seconds and half a second for a byte", "four +11.9 ? +0.2 ?", "[four]10", {}},
        {"the same after a start", "four < +11.9 ? +0.2 ?", "[four]10", {}},
        {"in time", "four +11.9 four", "[four]stop [four]", {}},
        {"the next text has its own",
         "four +13 ? four ? +11.9 ? +0.2 ?",
         "[four]0stop [four]110",
         {kHangs}},
        {"logged once", "four +13 four +13 four ?", "[four]stop [four]stop [four]1", {kHangs}},
        {"a failure after it is not logged", "four +13 four ! ?", "[four]stop [four]0", {kHangs}},
        {"a clock that began in the past", "+-100 A ? +10.4 ? +0.2 ?", "[A]110", {}},
    };
    for (const auto& c : cases) {
        Rig rig;
        EXPECT_EQ(rig.play(c.script), c.told) << c.name;
        EXPECT_EQ(rig.log.details, c.details) << c.name;
    }
}

TEST(SpeechTurns, AnEngineThatAnswersOnTheSpot) {
    Rig rig;
    rig.backend.turns = &rig.turns;
    rig.backend.startsAtOnce = rig.backend.endsAtOnce = true;
    EXPECT_EQ(rig.play("A ? B ? > ?"), "[A]1stop [B]10");
    rig.backend.startsAtOnce = false;
    EXPECT_EQ(rig.play("C D > ?"), "[A]1stop [B]10[C]stop [D]0") << "the old end has been told";
    rig.backend.refuses = true;
    EXPECT_EQ(rig.play("E ?"), "[A]1stop [B]10[C]stop [D]0[E]0");
    EXPECT_EQ(rig.log.details, std::vector<std::string>{"Nothing is spoken: refused"});
}

TEST(SpeechTurns, ATextOfBlanksIsNoText) {
    for (const char* text : {"", " ", "\t\r\n "}) {
        Rig rig;
        rig.turns.say(text);
        EXPECT_EQ(rig.play("? A"), "0[A]") << '"' << text << '"';
        rig.turns.started();
        rig.turns.say(text);
        EXPECT_EQ(rig.play("?"), "0[A]1") << '"' << text << '"';
    }
}

TEST(SpeechTurns, TheTextArrivesAsItIs) {
    Rig rig;
    rig.turns.say("A\u266d, +3.2 cent.  440.000 hertz ");
    EXPECT_EQ(rig.backend.told, "[A\u266d, +3.2 cent.  440.000 hertz ]");
}

} // namespace
} // namespace veltrano
