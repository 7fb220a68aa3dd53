// SPDX-License-Identifier: GPL-3.0-or-later
// What each setter does, and what it announces.
#include "tests/settings/PreferencesTestBase.h"

#include <cmath>
#include <functional>

namespace veltrano {
namespace {

class PreferencesSetters : public PreferencesTestBase {};

const std::string kPitch(notification::kReferencePitch);
const std::string kTemperament(notification::kTemperamentChanged);
const std::string kRootKey(notification::kRootKeyChanged);
const std::string kStretch(notification::kStretchChanged);
const std::string kThreshold(notification::kInTuneThresholdChanged);
const std::string kManual(notification::kManualModeChanged);

struct SetterCase {
    const char* name;
    std::function<void(Preferences&)> prepare; ///< before the change, not counted
    std::function<void(Preferences&)> change;
    std::function<double(const Preferences&)> get;
    double expected;
    Names posted;
    Names generator; ///< what the tone generator is told
};

const SetterCase kSetters[] = {
    {"reference pitch",
     {},
     [](auto& p) { p.setReferencePitch(442.5); },
     [](auto& p) { return p.referencePitch(); },
     442.5,
     {kPitch},
     {}},
    {"temperament",
     [](auto& p) { p.setTuningFileName("Young.temperament"); },
     [](auto& p) { p.setTuning(2); },
     [](auto& p) { return double(p.tuning()); },
     2,
     {kTemperament},
     {}},
    {"tonic announces the temperament, then the root key",
     {},
     [](auto& p) { p.setTonic(11); },
     [](auto& p) { return double(p.tonic()); },
     11,
     {kTemperament, kRootKey},
     {}},
    {"stretch",
     [](auto& p) { p.setStretchFileName("Grand.stretch"); },
     [](auto& p) { p.setStretch(3); },
     [](auto& p) { return double(p.stretch()); },
     3,
     {kStretch},
     {}},
    {"threshold",
     {},
     [](auto& p) { p.setInTuneThreshold(5); },
     [](auto& p) { return double(p.inTuneThreshold()); },
     5,
     {kThreshold},
     {}},
    {"manual mode",
     {},
     [](auto& p) { p.setManualMode(true); },
     [](auto& p) { return double(p.manualMode()); },
     1,
     {kManual},
     {}},
    {"manual type is silent outside manual mode",
     {},
     [](auto& p) { p.setManualType(1); },
     [](auto& p) { return double(p.manualType()); },
     1,
     {},
     {}},
    {"manual type in manual mode",
     [](auto& p) { p.setManualMode(true); },
     [](auto& p) { p.setManualType(1); },
     [](auto& p) { return double(p.manualType()); },
     1,
     {kManual},
     {}},
    {"manual note is silent outside manual mode",
     {},
     [](auto& p) { p.setManualNote(107); },
     [](auto& p) { return double(p.manualNote()); },
     107,
     {},
     {}},
    {"manual note in manual mode",
     [](auto& p) { p.setManualMode(true); },
     [](auto& p) { p.setManualNote(0); },
     [](auto& p) { return double(p.manualNote()); },
     0,
     {kManual},
     {}},
    {"manual pitch is announced also outside manual mode",
     {},
     [](auto& p) { p.setManualPitch(261.6); },
     [](auto& p) { return p.manualPitch(); },
     261.6,
     {kManual},
     {}},
    {"sound-back on",
     {},
     [](auto& p) { p.setSoundBack(true); },
     [](auto& p) { return double(p.soundBack()); },
     1,
     {},
     {}},
    {"sound-back off ends the tone",
     [](auto& p) { p.setSoundBack(true); },
     [](auto& p) { p.setSoundBack(false); },
     [](auto& p) { return double(p.soundBack()); },
     0,
     {},
     {"length 0"}},
    {"duration",
     {},
     [](auto& p) { p.setSoundBackDuration(2.5F); },
     [](auto& p) { return double(p.soundBackDuration()); },
     2.5,
     {},
     {"length 2.5"}},
    {"duration 1.26 is 1.3",
     {},
     [](auto& p) { p.setSoundBackDuration(1.26F); },
     [](auto& p) { return double(p.soundBackDuration()); },
     double(1.3F),
     {},
     {"length 1.3"}},
    {"duration 1.24 is 1.2",
     {},
     [](auto& p) { p.setSoundBackDuration(1.24F); },
     [](auto& p) { return double(p.soundBackDuration()); },
     double(1.2F),
     {},
     {"length 1.2"}},
    {"duration 0.25 is 0.3, halves go up",
     {},
     [](auto& p) { p.setSoundBackDuration(0.25F); },
     [](auto& p) { return double(p.soundBackDuration()); },
     double(0.3F),
     {},
     {"length 0.3"}},
    {"duration 1.15 lies below the half as a float",
     {},
     [](auto& p) { p.setSoundBackDuration(1.15F); },
     [](auto& p) { return double(p.soundBackDuration()); },
     double(1.1F),
     {},
     {"length 1.1"}},
    {"volume",
     {},
     [](auto& p) { p.setSoundBackVolume(35); },
     [](auto& p) { return double(p.soundBackVolume()); },
     35,
     {},
     {"volume 0.35"}},
    {"waveform",
     {},
     [](auto& p) { p.setSoundBackWaveform(3); },
     [](auto& p) { return double(p.soundBackWaveform()); },
     3,
     {},
     {"waveform 3"}},
    {"partials hold only stores",
     {},
     [](auto& p) { p.setPartialsHold(false); },
     [](auto& p) { return double(p.partialsHold()); },
     0,
     {},
     {}},
    {"partials only stores",
     {},
     [](auto& p) { p.setPartials(false); },
     [](auto& p) { return double(p.partials()); },
     0,
     {},
     {}},
    {"keyboard only stores",
     {},
     [](auto& p) { p.setPianoKeyboard(false); },
     [](auto& p) { return double(p.pianoKeyboard()); },
     0,
     {},
     {}},
    {"scope only stores",
     {},
     [](auto& p) { p.setHilbertScope(false); },
     [](auto& p) { return double(p.hilbertScope()); },
     0,
     {},
     {}},
    {"scope line only stores",
     {},
     [](auto& p) { p.setHilbertLine(true); },
     [](auto& p) { return double(p.hilbertLine()); },
     1,
     {},
     {}},
    {"scope decay only stores",
     {},
     [](auto& p) { p.setHilbertDecay(true); },
     [](auto& p) { return double(p.hilbertDecay()); },
     1,
     {},
     {}},
    {"scope grid only stores",
     {},
     [](auto& p) { p.setHilbertGrid(false); },
     [](auto& p) { return double(p.hilbertGrid()); },
     0,
     {},
     {}},
    {"tune speech only stores",
     {},
     [](auto& p) { p.setTuneSpeech(true); },
     [](auto& p) { return double(p.tuneSpeech()); },
     1,
     {},
     {}},
    {"hertz speech only stores",
     {},
     [](auto& p) { p.setHertzSpeech(true); },
     [](auto& p) { return double(p.hertzSpeech()); },
     1,
     {},
     {}},
};

TEST_F(PreferencesSetters, StoreThenTakeEffectThenAnnounce) {
    for (const SetterCase& test : kSetters) {
        SCOPED_TRACE(test.name);
        whenPosted = nullptr;
        Preferences& settings = start();
        settings.setSoundGen(&generator);
        if (test.prepare) test.prepare(settings);
        posted.clear();
        generator.calls.clear();

        whenPosted = [&] { EXPECT_EQ(test.get(settings), test.expected) << "announced too early"; };
        test.change(settings);
        EXPECT_EQ(test.get(settings), test.expected);
        EXPECT_EQ(takePosted(), test.posted);
        EXPECT_EQ(generator.calls, test.generator);
    }
}

TEST_F(PreferencesSetters, DoNothingWhenTheValueIsUnchanged) {
    for (const SetterCase& test : kSetters) {
        SCOPED_TRACE(test.name);
        Preferences& settings = start();
        settings.setSoundGen(&generator);
        if (test.prepare) test.prepare(settings);
        test.change(settings);
        posted.clear();
        generator.calls.clear();

        test.change(settings);
        EXPECT_EQ(test.get(settings), test.expected);
        EXPECT_EQ(takePosted(), Names{});
        EXPECT_EQ(generator.calls, Names{});
    }
}

TEST_F(PreferencesSetters, WithoutAGeneratorOnlyStore) {
    Preferences& settings = start();
    settings.setSoundBack(true);
    settings.setSoundBack(false);
    settings.setSoundBackDuration(3);
    settings.setSoundBackVolume(20);
    settings.setSoundBackWaveform(2);
    EXPECT_FALSE(settings.soundBack());
    EXPECT_EQ(settings.soundBackDuration(), 3.0F);
    EXPECT_EQ(settings.soundBackVolume(), 20);
    EXPECT_EQ(settings.soundBackWaveform(), 2);
}

TEST_F(PreferencesSetters, RoundedDurationThatStaysTheSameDoesNothing) {
    Preferences& settings = start();
    settings.setSoundGen(&generator);
    generator.calls.clear();
    settings.setSoundBackDuration(1.26F);
    settings.setSoundBackDuration(1.31F);
    EXPECT_EQ(generator.calls, Names{"length 1.3"});
}

TEST_F(PreferencesSetters, AGeneratorIsToldTheStoredSoundOnce) {
    Preferences& settings = start();
    settings.setSoundGen(&generator);
    EXPECT_EQ(generator.calls, (Names{"length 1", "volume 0.7", "waveform 0"}));
    settings.setSoundGen(nullptr);
    EXPECT_EQ(generator.calls.size(), 3u);
}

TEST_F(PreferencesSetters, ManualNoteOutsideTheKeysIsIgnored) {
    for (const int key : {108, 109, 1000000, -1}) {
        SCOPED_TRACE(key);
        Preferences& settings = start();
        settings.setManualMode(true);
        posted.clear();
        settings.setManualNote(key);
        EXPECT_EQ(settings.manualNote(), 57);
        EXPECT_EQ(takePosted(), Names{});
    }
}

TEST_F(PreferencesSetters, TonicOutsideTheOctaveIsIgnored) {
    for (const int tonic : {12, -1}) {
        SCOPED_TRACE(tonic);
        Preferences& settings = start();
        settings.setTonic(tonic);
        EXPECT_EQ(settings.tonic(), 0);
        EXPECT_EQ(takePosted(), Names{});
    }
}

TEST_F(PreferencesSetters, PitchesAreComparedAndKeptAsDoubles) {
    Preferences& settings = start();
    const double beside = std::nextafter(440.0, 441.0); // the same 32-bit float
    settings.setReferencePitch(beside);
    settings.setManualPitch(beside);
    EXPECT_EQ(settings.referencePitch(), beside);
    EXPECT_EQ(settings.manualPitch(), beside);
    EXPECT_EQ(takePosted(), (Names{kPitch, kManual}));
    settings.setReferencePitch(beside);
    settings.setManualPitch(beside);
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PreferencesSetters, DeviceNamesOnlyStore) {
    Preferences& settings = start();
    settings.setInputDeviceName("Studio : Line");
    settings.setOutputDeviceName("Loudspeaker");
    settings.setInputVolume(42);
    EXPECT_EQ(settings.inputDeviceName(), "Studio : Line");
    EXPECT_EQ(settings.outputDeviceName(), "Loudspeaker");
    EXPECT_EQ(settings.inputVolume(), 42);
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PreferencesSetters, SharedInstanceIsTheFirstAndCanBeReplaced) {
    EXPECT_EQ(Preferences::sharedInstance(), nullptr);
    Preferences& first = start();
    EXPECT_EQ(Preferences::sharedInstance(), &first);
    {
        Preferences further({.defaults = *defaults, .notifications = center});
        EXPECT_EQ(Preferences::sharedInstance(), &first) << "a further object answers the first";
        Preferences::replaceSharedInstance(&further);
        EXPECT_EQ(Preferences::sharedInstance(), &further);
    }
    EXPECT_EQ(Preferences::sharedInstance(), nullptr) << "it ended";
}

} // namespace
} // namespace veltrano
