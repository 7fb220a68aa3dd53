// SPDX-License-Identifier: GPL-3.0-or-later
// The settings with real libraries and real documents.
#include "platform/foundation/UserDefaults.h"
#include "settings/PreferenceKeys.h"
#include "settings/Preferences.h"
#include "tests/tuning/TuningTestBase.h"

#include <cmath>
#include <limits>

namespace veltrano {
namespace {

using Column = Temperament::Column;

class PreferencesLibrariesTest : public TuningTestBase {
protected:
    PreferencesLibrariesTest() {
        write("T/old.temperament", temperamentFile("Old", "C", 10));
        write("T/scale.scl", scalaFile("a scale", "3/2\n"));
        write("S/old.stretch", stretchFile("Old", 1.5));
        preferences = std::make_unique<Preferences>(ports());
        temperament = std::make_unique<MVTemperamentDocument>(
            MVTemperamentDocument::Ports{services, center, *preferences, &temperaments});
        for (const auto name : {notification::kTemperamentChanged, notification::kStretchChanged})
            mHeard.push_back(center.observe(
                name, [this, name](const std::any&) { changes.emplace_back(name); }));
    }

    PreferencesPorts ports() {
        return {.defaults = defaults,
                .notifications = center,
                .temperaments = &temperaments,
                .stretches = &stretches};
    }
    double cent(std::size_t row) const { return preferences->temperamentTable()[row]; }
    double offset(std::size_t key) const { return preferences->stretchTable()[key]; }
    Texts takeChanges() { return std::exchange(changes, {}); }

    UserDefaults defaults = UserDefaults::inMemory();
    MVTemperamentLibrary temperaments{path("T"), log};
    MVStretchLibrary stretches{path("S"), log};
    std::unique_ptr<Preferences> preferences;
    std::unique_ptr<MVTemperamentDocument> temperament;
    MVStretchDocument stretch{stretchPorts(&stretches)};
    RecordingPopUp menu;
    Texts changes;

private:
    std::vector<NotificationCenter::Observation> mHeard;
};

const std::string kTemperamentChanged(notification::kTemperamentChanged);
const std::string kStretchChanged(notification::kStretchChanged);

TEST_F(PreferencesLibrariesTest, DocumentSavedIntoTheFolderAppearsInTheMenuAndCanBeChosen) {
    temperament->setName("Brand new");
    temperament->setDescriptionString("its words");
    ASSERT_TRUE(
        temperament->saveToFile(path("T/new.temperament"), Document::SaveOperation::saveAs));
    temperaments.updatePopUpButton(menu);
    EXPECT_EQ(menu.titles, (Texts{"Equal Tempered", "-", "Brand new", "Old", "scale.scl"}));
    EXPECT_EQ(menu.tips[2], "its words");
    preferences->setTuningForFileName("new.temperament");
    EXPECT_EQ(preferences->tuning(), 2) << "the place in the menu";
    EXPECT_EQ(preferences->tuningNameString(), "Brand new");
    EXPECT_EQ(preferences->tuningToolTipString(), "its words");

    stretch.setName("Brand new");
    ASSERT_TRUE(stretch.saveToFile(path("S/new.stretch"), Document::SaveOperation::saveAs));
    stretches.updatePopUpButton(menu);
    EXPECT_EQ(menu.titles, (Texts{"None", "-", "Brand new", "Old"}));
    preferences->setStretchForFileName("new.stretch");
    EXPECT_EQ(preferences->stretch(), 2);
    EXPECT_EQ(preferences->stretchNameString(), "Brand new");
}

TEST_F(PreferencesLibrariesTest, SelectedTemperamentIsInUseAtOnceWhenItIsSaved) {
    preferences->setTuningForFileName("old.temperament");
    EXPECT_EQ(cent(0), 10);
    ASSERT_TRUE(temperament->readFromFile(path("T/old.temperament"), kTemperamentTypeName));
    temperament->setCell(Column::cent, 4, "-6");
    takeChanges();
    ASSERT_TRUE(temperament->saveDocument());
    EXPECT_EQ(takeChanges(), (Texts{kTemperamentChanged, kTemperamentChanged}));
    // What a save puts into the library are ratios, which the settings take for cents.
    const RatioTable& ratios = temperament->temperament();
    for (std::size_t row = 0; row < 12; ++row)
        EXPECT_EQ(cent(row), ratios[row] - ratios[9]);
    EXPECT_EQ(preferences->tuningFileName(), "old.temperament");
}

TEST_F(PreferencesLibrariesTest, SelectedStretchIsInUseAtOnceWhenItIsSaved) {
    preferences->setStretchForFileName("old.stretch");
    ASSERT_TRUE(stretch.readFromFile(path("S/old.stretch"), kStretchTypeName));
    stretch.setCell(9, 4, "-2.25");
    stretch.setName("A name that sorts first");
    takeChanges();
    ASSERT_TRUE(stretch.saveDocument());
    EXPECT_EQ(takeChanges(), (Texts{kStretchChanged, kStretchChanged}));
    EXPECT_EQ(offset(57), -2.25);
    EXPECT_EQ(preferences->stretchNameString(), "A name that sorts first");
}

TEST_F(PreferencesLibrariesTest, EditsOfTheSelectedFileAreHeardBeforeTheyAreSaved) {
    preferences->setTuningForFileName("old.temperament");
    ASSERT_TRUE(temperament->readFromFile(path("T/old.temperament"), kTemperamentTypeName));
    takeChanges();
    temperament->setCell(Column::cent, 4, "-6");
    EXPECT_EQ(cent(4), -6);
    temperament->undo();
    EXPECT_EQ(cent(4), 0);
    temperament->redo();
    EXPECT_EQ(cent(4), -6);
    panels.confirms = true;
    ASSERT_TRUE(temperament->revertDocumentToSaved());
    EXPECT_EQ(cent(4), 0);
    EXPECT_EQ(cent(0), 10);
    EXPECT_EQ(takeChanges(), Texts(4, kTemperamentChanged));

    preferences->setStretchForFileName("old.stretch");
    ASSERT_TRUE(stretch.readFromFile(path("S/old.stretch"), kStretchTypeName));
    stretch.setCell(9, 4, "7");
    EXPECT_EQ(offset(57), 7);
    panels.saveAnswer = DocumentPanels::SaveAnswer::discard;
    ASSERT_TRUE(stretch.mayClose());
    EXPECT_EQ(offset(57), 1.5) << "what was discarded is not heard on";
}

TEST_F(PreferencesLibrariesTest, NeedlessSlashesMakeNoOtherFile) {
    preferences->setTuningForFileName("old.temperament");
    preferences->setStretchForFileName("old.stretch");
    ASSERT_TRUE(temperament->readFromFile(path("T//old.temperament"), kTemperamentTypeName));
    ASSERT_TRUE(stretch.readFromFile(path("./S/old.stretch"), kStretchTypeName));
    temperament->setCell(Column::cent, 4, "-6");
    stretch.setCell(9, 4, "7");
    EXPECT_EQ(cent(4), -6);
    EXPECT_EQ(offset(57), 7);
}

TEST_F(PreferencesLibrariesTest, UntitledDocumentIsNotTheFileThatIsGone) {
    preferences->setTuningForFileName("old.temperament");
    preferences->setStretchForFileName("old.stretch");
    std::filesystem::remove(path("T/old.temperament"));
    std::filesystem::remove(path("S/old.stretch"));
    temperaments.loadTemperaments();
    stretches.loadStretches();
    takeChanges();
    temperament->setCell(Column::cent, 4, "-6");
    stretch.setCell(9, 4, "7");
    EXPECT_EQ(cent(4), 0);
    EXPECT_EQ(offset(57), 1.5);
    EXPECT_EQ(takeChanges(), Texts{});
}

TEST_F(PreferencesLibrariesTest, DocumentFollowsTheSettings) {
    preferences->setReferencePitch(443);
    EXPECT_EQ(temperament->cell(Column::hertz, 9), "443.000000");
    preferences->setTonic(9);
    EXPECT_EQ(temperament->cell(Column::label, 0), "A (PU)");
    EXPECT_EQ(temperament->cell(Column::hertz, 0), "443.000000");
}

TEST_F(PreferencesLibrariesTest, StoredFileNamesAreLookedUpAtTheStart) {
    defaults.setString(preference_key::kTuning, "old.temperament");
    defaults.setString(preference_key::kStretch, "old.stretch");
    defaults.setInteger(preference_key::kTonic, 2);
    temperament.reset(); // it follows the settings that go
    preferences = std::make_unique<Preferences>(ports());
    EXPECT_EQ(preferences->tuningNameString(), "Old");
    EXPECT_EQ(cent(0), 10) << "the tonic, D";
    EXPECT_EQ(offset(57), 1.5);
}

TEST_F(PreferencesLibrariesTest, ScaleOfTheLibraryIsTakenAsCents) {
    preferences->setTuningForFileName("scale.scl");
    EXPECT_NEAR(cent(1), 1.5 - 1.681792830507429, 1e-12) << "the ratio, less that of A";
    EXPECT_EQ(cent(9), 0);
}

TEST_F(PreferencesLibrariesTest, RefusedRowsKeepWhatTheLibraryHolds) {
    write("T/wide.scl", scalaFile("x", "1/1000000\n99999\n"));
    temperaments.loadTemperaments();
    log.lines.clear();
    preferences->setTuningForFileName("wide.scl");
    const double ofA = std::pow(2.0, 9 / 12.0);
    EXPECT_EQ(cent(0), 1 - ofA);
    EXPECT_EQ(cent(1), 1e-6 - ofA);
    EXPECT_EQ(cent(2), std::pow(2.0, 99999 / 1200.0)) << "the first that is out of range";
    EXPECT_EQ(cent(9), ofA) << "rows behind it are not shifted";
    EXPECT_EQ(log.lines, Texts{std::string(kEditedOutOfRange)});
}

TEST_F(PreferencesLibrariesTest, PitchesThatAreNoNumbersAreNotStored) {
    preferences->setManualMode(true);
    preferences->setManualPitch(441);
    for (const double hz :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        int announced = 0;
        const auto heard =
            center.observe(notification::kManualModeChanged, [&](const std::any&) { ++announced; });
        preferences->setManualPitch(hz);
        preferences->setReferencePitch(hz);
        EXPECT_EQ(announced, 0);
        EXPECT_EQ(preferences->manualPitch(), 441);
        EXPECT_EQ(preferences->referencePitch(), 440);
    }
}

} // namespace
} // namespace veltrano
