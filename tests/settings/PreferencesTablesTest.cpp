// SPDX-License-Identifier: GPL-3.0-or-later
// The temperament and the stretch in use.
#include "tests/settings/PreferencesTestBase.h"

namespace veltrano {
namespace {

class PreferencesTables : public PreferencesTestBase {
protected:
    std::vector<double> cents() const {
        const auto table = preferences->temperamentTable();
        return {table.begin(), table.end()};
    }
    std::vector<double> stretch() const {
        const auto table = preferences->stretchTable();
        return {table.begin(), table.end()};
    }
    /// The offsets first, first + 1, ...
    template <class Table>
    static std::vector<double> rising(double first) {
        const Table table = filled<Table>(first);
        return {table.begin(), table.end()};
    }
    void edit(const EditedTemperament& document) {
        center.post(notification::kTemperamentEdited, std::any(&document));
    }
    void edit(const EditedStretch& document) {
        center.post(notification::kStretchEdited, std::any(&document));
    }
};

const std::string kTemperament(notification::kTemperamentChanged);
const std::string kRootKey(notification::kRootKeyChanged);
const std::string kStretch(notification::kStretchChanged);

TEST_F(PreferencesTables, FileNameSelectsItsPositionPlusTwo) {
    struct Case {
        const char* name;
        const char* fileName;
        int index;
        const char* kept; ///< the file name afterwards, "Vallotti.temperament" before
    };
    constexpr Case kCases[] = {
        {"first entry", "Young.temperament", 2, "Young.temperament"},
        {"second entry", "Vallotti.temperament", 3, "Vallotti.temperament"},
        {"unknown name keeps the old one", "Gone.temperament", 0, "Vallotti.temperament"},
        {"empty name keeps the old one", "", 0, "Vallotti.temperament"},
    };
    for (const Case& test : kCases) {
        SCOPED_TRACE(test.name);
        Preferences& settings = start();
        settings.setTuningForFileName("Vallotti.temperament");
        settings.setTuningForFileName(test.fileName);
        EXPECT_EQ(settings.tuning(), test.index);
        EXPECT_EQ(settings.tuningFileName(), test.kept);
    }
}

TEST_F(PreferencesTables, StretchFileNameSelectsItsPositionPlusTwo) {
    Preferences& settings = start();
    settings.setStretchForFileName("Grand.stretch");
    EXPECT_EQ(settings.stretch(), 3);
    EXPECT_EQ(settings.stretchFileName(), "Grand.stretch");
    EXPECT_EQ(stretch(), rising<StretchTable>(-0.75));
    settings.setStretchForFileName("Gone.stretch");
    EXPECT_EQ(settings.stretch(), 0);
    EXPECT_EQ(settings.stretchFileName(), "Grand.stretch");
    EXPECT_EQ(stretch(), std::vector<double>(108, 0.0)) << "no stretch clears all of it";
    settings.setStretchForFileName("");
    EXPECT_EQ(settings.stretch(), 0);
}

TEST_F(PreferencesTables, StretchTableIsThereBeforeTheIndexIsAnnounced) {
    Preferences& settings = start();
    whenPosted = [&] { EXPECT_EQ(stretch(), rising<StretchTable>(0.25)); };
    settings.setStretchForFileName("Upright.stretch");
    EXPECT_EQ(takePosted(), Names{kStretch});
}

TEST_F(PreferencesTables, CentsAreNormalisedToTheTonic) {
    Preferences& settings = start();
    settings.setTonic(2);
    settings.setTuningForFileName("Young.temperament");
    EXPECT_EQ(cents(), rising<CentTable>(1.5 + 2));
    settings.setTonic(7);
    EXPECT_EQ(cents(), rising<CentTable>(1.5 + 7)) << "from the library again, not from itself";
}

TEST_F(PreferencesTables, EqualTemperamentClearsOnlyTheFirstOffset) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    settings.setTuning(0);
    std::vector<double> expected = rising<CentTable>(1.5);
    expected[0] = 0;
    EXPECT_EQ(cents(), expected);
}

TEST_F(PreferencesTables, SeparatorAndNegativeIndicesAreNeverSelected) {
    Preferences& settings = start();
    for (const int index : {1, -1}) {
        SCOPED_TRACE(index);
        settings.setTuning(index);
        settings.setStretch(index);
        EXPECT_EQ(settings.tuning(), 0);
        EXPECT_EQ(settings.stretch(), 0);
    }
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PreferencesTables, WithoutLibrariesOnlyNoneCanBeSelected) {
    Preferences& settings = start(false);
    settings.setTuningForFileName("Young.temperament");
    settings.setStretchForFileName("Grand.stretch");
    settings.setTuning(2);
    settings.setStretch(2);
    settings.setTonic(3);
    EXPECT_EQ(settings.tuning(), 0);
    EXPECT_EQ(settings.stretch(), 0);
    EXPECT_EQ(cents(), std::vector<double>(12, 0.0));
    EXPECT_EQ(stretch(), std::vector<double>(108, 0.0));
    EXPECT_EQ(settings.tuningNameString(), "Equal Tempered");
    EXPECT_EQ(settings.stretchNameString(), "None");
}

TEST_F(PreferencesTables, NamesAndToolTips) {
    Preferences& settings = start();
    EXPECT_EQ(settings.tuningNameString(), "Equal Tempered");
    EXPECT_EQ(settings.tuningToolTipString(),
              "Equal Tempered.\ncents = (0.000, 0.000, 0.000, 0.000, 0.000, 0.000, 0.000, 0.000, "
              "0.000, 0.000, 0.000, 0.000)");
    EXPECT_EQ(settings.stretchNameString(), "None");
    EXPECT_EQ(settings.stretchToolTipString(), "No Stretch.");
    settings.setTuningForFileName("Young.temperament");
    settings.setStretchForFileName("Grand.stretch");
    EXPECT_EQ(settings.tuningNameString(), "name of Young.temperament");
    EXPECT_EQ(settings.tuningToolTipString(), "description of Young.temperament");
    EXPECT_EQ(settings.stretchNameString(), "name of Grand.stretch");
    EXPECT_EQ(settings.stretchToolTipString(), "description of Grand.stretch");
}

TEST_F(PreferencesTables, EditingTheSelectedTemperamentTakesItsOffsets) {
    Preferences& settings = start();
    settings.setTonic(4);
    settings.setTuningForFileName("Young.temperament");
    posted.clear();
    ScriptedTemperament document;
    document.cents = filled<CentTable>(20);
    document.path = "/elsewhere/Young.temperament";
    edit(document);
    EXPECT_EQ(cents(), rising<CentTable>(1.5 + 4))
        << "a file of that name elsewhere is another one";
    EXPECT_EQ(takePosted(), Names{});

    document.path = "/library/Young.temperament";
    whenPosted = [&] { EXPECT_EQ(cents(), rising<CentTable>(20 + 4)); };
    edit(document);
    EXPECT_EQ(takePosted(), Names{kTemperament});

    whenPosted = nullptr;
    settings.setTuning(0);
    posted.clear();
    document.path = "/library/Young.temperament";
    document.cents = filled<CentTable>(30);
    edit(document);
    EXPECT_EQ(cents()[1], 21 + 4.0) << "nothing is selected, nothing is taken";
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PreferencesTables, EditingTheSelectedStretchTakesItsOffsets) {
    Preferences& settings = start();
    settings.setStretchForFileName("Upright.stretch");
    posted.clear();
    ScriptedStretch document;
    document.cents = filled<StretchTable>(-40);
    document.path = "/library/Grand.stretch";
    edit(document);
    EXPECT_EQ(stretch(), rising<StretchTable>(0.25));
    EXPECT_EQ(takePosted(), Names{});
    document.path = "/library/Upright.stretch";
    edit(document);
    EXPECT_EQ(stretch(), rising<StretchTable>(-40));
    EXPECT_EQ(takePosted(), Names{kStretch});
    settings.setStretch(0);
    posted.clear();
    edit(document);
    EXPECT_EQ(stretch(), std::vector<double>(108, 0.0));
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PreferencesTables, EditedNotificationWithoutADocumentIsIgnored) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    settings.setStretchForFileName("Grand.stretch");
    posted.clear();
    center.post(notification::kTemperamentEdited);
    center.post(notification::kStretchEdited, std::any(17));
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PreferencesTables, SavingTheSelectedTemperamentReloadsItAtTheSamePosition) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    posted.clear();
    temperaments.entries[0].cents = filled<CentTable>(-9);
    center.post(notification::kTemperamentSaved);
    EXPECT_EQ(settings.tuning(), 2);
    EXPECT_EQ(cents(), rising<CentTable>(-9));
    EXPECT_EQ(takePosted(), (Names{kTemperament, kTemperament}))
        << "once for the selection, once for the saving";
}

TEST_F(PreferencesTables, SavingFollowsTheSelectedTemperamentToItsNewPosition) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    temperaments.entries.insert(temperaments.entries.begin(), {"Bach.temperament", {}});
    center.post(notification::kTemperamentSaved);
    EXPECT_EQ(settings.tuning(), 3);
    EXPECT_EQ(settings.tuningFileName(), "Young.temperament");
}

TEST_F(PreferencesTables, SavingWithoutTheSelectedTemperamentSelectsNone) {
    Preferences& settings = start();
    settings.setTuningForFileName("Young.temperament");
    temperaments.entries.erase(temperaments.entries.begin());
    posted.clear();
    center.post(notification::kTemperamentSaved);
    EXPECT_EQ(settings.tuning(), 0);
    EXPECT_EQ(settings.tuningFileName(), "");
    EXPECT_EQ(takePosted(), (Names{kTemperament, kTemperament}));
}

TEST_F(PreferencesTables, SavingWhileNothingIsSelectedDoesNothing) {
    start();
    center.post(notification::kTemperamentSaved);
    center.post(notification::kStretchSaved);
    EXPECT_EQ(takePosted(), Names{});
}

TEST_F(PreferencesTables, SavingTheSelectedStretchReloadsItOrSelectsNone) {
    Preferences& settings = start();
    settings.setStretchForFileName("Grand.stretch");
    posted.clear();
    stretches.entries[1].cents = filled<StretchTable>(12);
    center.post(notification::kStretchSaved);
    EXPECT_EQ(settings.stretch(), 3);
    EXPECT_EQ(stretch(), rising<StretchTable>(12));
    EXPECT_EQ(takePosted(), (Names{kStretch, kStretch}));

    stretches.entries.clear();
    center.post(notification::kStretchSaved);
    EXPECT_EQ(settings.stretch(), 0);
    EXPECT_EQ(settings.stretchFileName(), "");
    EXPECT_EQ(stretch(), std::vector<double>(108, 0.0));
    EXPECT_EQ(takePosted(), (Names{kStretch, kStretch}));
}

TEST_F(PreferencesTables, NothingIsHeardAfterTheEnd) {
    start().setTuningForFileName("Young.temperament");
    preferences.reset();
    posted.clear();
    center.post(notification::kTemperamentSaved);
    EXPECT_EQ(takePosted(), Names{});
}

} // namespace
} // namespace veltrano
