// SPDX-License-Identifier: GPL-3.0-or-later
// What is read at the start and written at the end.
#include "tests/settings/PreferencesTestBase.h"

#include <QFile>
#include <algorithm>
#include <cmath>

namespace veltrano {
namespace {

namespace key = preference_key;

class PreferencesStore : public PreferencesTestBase {
protected:
    /// What the file holds: each line without its section.
    Names storedLines() const {
        QFile file(path());
        if (!file.open(QIODevice::ReadOnly)) return {};
        Names lines;
        for (const QByteArray& line : file.readAll().split('\n')) {
            if (!line.isEmpty() && !line.startsWith('[')) lines.push_back(line.toStdString());
        }
        std::ranges::sort(lines);
        return lines;
    }
    /// A settings file that somebody else wrote.
    void write(const char* text) {
        ++fileNumber;
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
};

TEST_F(PreferencesStore, FirstRun) {
    const Preferences& settings = start();
    EXPECT_TRUE(settings.firstLaunch());
    EXPECT_EQ(settings.referencePitch(), 440.0);
    EXPECT_EQ(settings.tuning(), 0);
    EXPECT_EQ(settings.tonic(), 0);
    EXPECT_EQ(settings.stretch(), 0);
    EXPECT_EQ(settings.inTuneThreshold(), 3);
    EXPECT_FALSE(settings.manualMode());
    EXPECT_EQ(settings.manualType(), 0);
    EXPECT_EQ(settings.manualNote(), 57);
    EXPECT_EQ(settings.manualPitch(), 440.0);
    EXPECT_TRUE(settings.pianoKeyboard());
    EXPECT_TRUE(settings.hilbertScope());
    EXPECT_FALSE(settings.hilbertLine());
    EXPECT_FALSE(settings.hilbertDecay());
    EXPECT_TRUE(settings.hilbertGrid());
    EXPECT_TRUE(settings.partials());
    EXPECT_TRUE(settings.partialsHold());
    EXPECT_FALSE(settings.soundBack());
    EXPECT_EQ(settings.soundBackDuration(), 1.0F);
    EXPECT_EQ(settings.soundBackVolume(), 70);
    EXPECT_EQ(settings.soundBackWaveform(), 0);
    EXPECT_FALSE(settings.tuneSpeech());
    EXPECT_FALSE(settings.hertzSpeech());
    EXPECT_EQ(settings.inputDeviceName(), std::nullopt);
    EXPECT_EQ(settings.outputDeviceName(), std::nullopt);
    EXPECT_EQ(storedLines(), Names{}) << "reading writes nothing";
}

TEST_F(PreferencesStore, FirstLaunchEndsWithTheFirstSave) {
    start().savePreferences();
    EXPECT_FALSE(start().firstLaunch());
}

TEST_F(PreferencesStore, EverythingComesBack) {
    Preferences& settings = start();
    ScriptedUnit input("Recorder : Line"), output("Loudspeaker");
    settings.setAUInputUnit(&input);
    settings.setAUOutputUnit(&output);
    settings.setReferencePitch(442.5);
    settings.setTonic(5);
    settings.setTuningForFileName("Vallotti.temperament");
    settings.setStretchForFileName("Grand.stretch");
    settings.setInTuneThreshold(7);
    settings.setManualMode(true);
    settings.setManualType(1);
    settings.setManualNote(21);
    settings.setManualPitch(220.25);
    settings.setPianoKeyboard(false);
    settings.setHilbertScope(false);
    settings.setHilbertLine(true);
    settings.setHilbertDecay(true);
    settings.setHilbertGrid(false);
    settings.setPartials(false);
    settings.setPartialsHold(false);
    settings.setSoundBack(true);
    settings.setSoundBackDuration(2.3F);
    settings.setSoundBackVolume(15);
    settings.setSoundBackWaveform(3);
    settings.setTuneSpeech(true);
    settings.setHertzSpeech(true);
    settings.savePreferences();

    EXPECT_EQ(storedLines(), (Names{
                                 "morvane.key.HertzSpeech=true",
                                 "morvane.key.HilbertDecay=true",
                                 "morvane.key.HilbertGrid=false",
                                 "morvane.key.HilbertLine=true",
                                 "morvane.key.HilbertScope=false",
                                 "morvane.key.InTuneThreshold=7",
                                 "morvane.key.InputDeviceKey=Recorder : Line",
                                 "morvane.key.ManualMode=true",
                                 "morvane.key.ManualNote=21",
                                 "morvane.key.ManualPitch=220.25",
                                 "morvane.key.ManualType=1",
                                 "morvane.key.OutputDeviceKey=Loudspeaker",
                                 "morvane.key.Partials=false",
                                 "morvane.key.PartialsHold=false",
                                 "morvane.key.PianoKeyboard=false",
                                 "morvane.key.ReferencePitch=442.5",
                                 "morvane.key.SoundBack=true",
                                 "morvane.key.SoundBackDuration=2.3",
                                 "morvane.key.SoundBackVolume=15",
                                 "morvane.key.SoundBackWaveform=3",
                                 "morvane.key.Stretch=Grand.stretch",
                                 "morvane.key.Tonic=5",
                                 "morvane.key.TuneSpeech=true",
                                 "morvane.key.Tuning=Vallotti.temperament",
                             }));

    const Preferences& again = start();
    EXPECT_EQ(again.referencePitch(), 442.5);
    EXPECT_EQ(again.tonic(), 5);
    EXPECT_EQ(again.tuning(), 3);
    EXPECT_EQ(again.temperamentTable()[0], -2.5 + 5) << "normalised to the tonic that was saved";
    EXPECT_EQ(again.stretch(), 3);
    EXPECT_EQ(again.stretchTable()[107], -0.75 + 107);
    EXPECT_EQ(again.inTuneThreshold(), 7);
    EXPECT_TRUE(again.manualMode());
    EXPECT_EQ(again.manualType(), 1);
    EXPECT_EQ(again.manualNote(), 21);
    EXPECT_EQ(again.manualPitch(), 220.25);
    EXPECT_FALSE(again.pianoKeyboard());
    EXPECT_FALSE(again.hilbertScope());
    EXPECT_TRUE(again.hilbertLine());
    EXPECT_TRUE(again.hilbertDecay());
    EXPECT_FALSE(again.hilbertGrid());
    EXPECT_FALSE(again.partials());
    EXPECT_FALSE(again.partialsHold());
    EXPECT_TRUE(again.soundBack());
    EXPECT_EQ(again.soundBackDuration(), 2.3F);
    EXPECT_EQ(again.soundBackVolume(), 15);
    EXPECT_EQ(again.soundBackWaveform(), 3);
    EXPECT_TRUE(again.tuneSpeech());
    EXPECT_TRUE(again.hertzSpeech());
    EXPECT_EQ(again.inputDeviceName(), "Recorder : Line");
    EXPECT_EQ(again.outputDeviceName(), "Loudspeaker");
}

TEST_F(PreferencesStore, PitchesPassThroughA32BitFloat) {
    for (const double pitch : {442.5, 440.123456, 440.0, 16.35159783, 1e-3}) {
        SCOPED_TRACE(pitch);
        Preferences& settings = start();
        settings.setReferencePitch(pitch);
        settings.setManualPitch(pitch);
        settings.savePreferences();
        EXPECT_EQ(settings.referencePitch(), pitch) << "saving changes no field";
        EXPECT_EQ(start().referencePitch(), double(float(pitch)));
        EXPECT_EQ(preferences->manualPitch(), double(float(pitch)));
    }
}

TEST_F(PreferencesStore, NoTemperamentAndNoStretchAreRemovedAtTheNextSave) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    settings.setStretchForFileName("Grand.stretch");
    settings.savePreferences();
    EXPECT_TRUE(defaults->hasStored(key::kTuning));
    settings.setTuning(0);
    settings.setStretch(0);
    EXPECT_TRUE(defaults->hasStored(key::kTuning)) << "a setter writes nothing";
    settings.savePreferences();
    EXPECT_FALSE(defaults->hasStored(key::kTuning));
    EXPECT_FALSE(defaults->hasStored(key::kStretch));
}

TEST_F(PreferencesStore, FileNamesThatTheLibrariesLostSelectNone) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    settings.setStretchForFileName("Grand.stretch");
    settings.savePreferences();
    temperaments.entries.clear();
    stretches.entries.clear();
    start();
    EXPECT_EQ(preferences->tuning(), 0);
    EXPECT_EQ(preferences->stretch(), 0);
}

TEST_F(PreferencesStore, FileNameFindsItsEntryInAChangedLibrary) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    settings.savePreferences();
    temperaments.entries.insert(temperaments.entries.begin(), {"Bach.temperament", {}});
    EXPECT_EQ(start().tuning(), 3);
}

TEST_F(PreferencesStore, DeviceNamesAreThoseOfTheUnits) {
    struct Case {
        const char* name;
        bool hasUnit;
        std::optional<std::string> unitName;
        std::optional<std::string> storedAfterwards; ///< "Old" before
    };
    const Case kCases[] = {
        {"no unit yet keeps the stored name", false, {}, "Old"},
        {"unit on another device", true, "New", "New"},
        {"unit that had no device removes the name", true, std::nullopt, std::nullopt},
    };
    for (const Case& test : kCases) {
        SCOPED_TRACE(test.name);
        write("[General]\nmorvane.key.InputDeviceKey=Old\nmorvane.key.OutputDeviceKey=Old\n");
        Preferences& settings = start();
        EXPECT_EQ(settings.inputDeviceName(), "Old");
        settings.setInputDeviceName("never written");
        settings.setOutputDeviceName("never written");
        const ScriptedUnit unit(test.unitName);
        if (test.hasUnit) settings.setAUInputUnit(&unit);
        if (test.hasUnit) settings.setAUOutputUnit(&unit);
        settings.savePreferences();
        EXPECT_EQ(defaults->stringForKey(key::kInputDevice), test.storedAfterwards);
        EXPECT_EQ(defaults->stringForKey(key::kOutputDevice), test.storedAfterwards);
    }
}

TEST_F(PreferencesStore, OneUnitLeavesTheOtherNameAlone) {
    write("[General]\nmorvane.key.InputDeviceKey=Old in\nmorvane.key.OutputDeviceKey=Old out\n");
    Preferences& settings = start();
    const ScriptedUnit input("New in");
    settings.setAUInputUnit(&input);
    settings.savePreferences();
    EXPECT_EQ(defaults->stringForKey(key::kInputDevice), "New in");
    EXPECT_EQ(defaults->stringForKey(key::kOutputDevice), "Old out");
}

TEST_F(PreferencesStore, SoundBackIsPushedIntoAGeneratorThatIsThereAtTheStart) {
    write("[General]\nmorvane.key.SoundBackDuration=2.5\nmorvane.key.SoundBackVolume=40\n"
          "morvane.key.SoundBackWaveform=2\n");
    soundGenAtStart = &generator;
    start();
    EXPECT_EQ(generator.calls, (Names{"length 2.5", "volume 0.4", "waveform 2"}));
}

TEST_F(PreferencesStore, IndicesThatAFileCannotMeanReadAsTheirDefaults) {
    struct Case {
        const char* text;
        int tonic;
        int manualNote;
    };
    constexpr Case kCases[] = {
        {"morvane.key.Tonic=11\nmorvane.key.ManualNote=107\n", 11, 107},
        {"morvane.key.Tonic=12\nmorvane.key.ManualNote=108\n", 0, 57},
        {"morvane.key.Tonic=-1\nmorvane.key.ManualNote=-1\n", 0, 57},
        {"morvane.key.Tonic=99999999999\nmorvane.key.ManualNote=99999999999\n", 0, 57},
    };
    for (const Case& test : kCases) {
        SCOPED_TRACE(test.text);
        write(test.text);
        const Preferences& settings = start();
        EXPECT_EQ(settings.tonic(), test.tonic);
        EXPECT_EQ(settings.manualNote(), test.manualNote);
        EXPECT_FALSE(settings.firstLaunch()) << "something is stored under the key";
    }
}

TEST_F(PreferencesStore, PitchesThatAreNoNumbersReadAsTheirDefaults) {
    for (const char* text : {"1e999", "-1e999", "nan", "inf"}) {
        SCOPED_TRACE(text);
        write(("morvane.key.ReferencePitch=" + std::string(text) +
               "\nmorvane.key.ManualPitch=" + text + "\n")
                  .c_str());
        const Preferences& settings = start();
        EXPECT_TRUE(std::isfinite(settings.referencePitch()));
        EXPECT_TRUE(std::isfinite(settings.manualPitch()));
    }
    write("morvane.key.ReferencePitch=1e999\nmorvane.key.ManualPitch=1e999\n");
    EXPECT_EQ(start().referencePitch(), 440.0);
    EXPECT_EQ(start().manualPitch(), 440.0);
}

TEST_F(PreferencesStore, NamesWithCommasAndAccentsComeBack) {
    for (const char* name :
         {"Zoom, Inc. : Mikrofon", "Würth \"A\" ; = \\", "音 : 入力", " blank "}) {
        SCOPED_TRACE(name);
        Preferences& settings = start();
        const ScriptedUnit unit(name);
        settings.setAUInputUnit(&unit);
        settings.savePreferences();
        EXPECT_EQ(start().inputDeviceName(), name);
    }
}

} // namespace
} // namespace veltrano
