// SPDX-License-Identifier: GPL-3.0-or-later
// What the partials view hears, holds, smooths and says.
#include "tests/analysis/PartialsRig.h"

#include <any>
#include <optional>

namespace veltrano {

using namespace partial_pictures;

namespace {

class PartialStateViewTest : public PartialsTest {
protected:
    void post(const std::any& object) {
        mNotifications.post(notification::kPartialsChanged, object);
    }
    std::vector<std::string> takeSaid() { return std::exchange(mSpeech.said, {}); }
    /// Lets the event loop do what waits.
    static void turn() {
        for (int i = 0; i < 10; ++i)
            QCoreApplication::processEvents();
    }

    const QImage mNothing = drawing(kColors[0], {});
    const PartialsRef mSharpA = published({partialAt(57, 20)});
    const PartialsRef mFlatE = published({partialAt(64, -20)});
};

TEST_F(PartialStateViewTest, ShowsWhatTheNotificationCarries) {
    post(mSharpA);
    EXPECT_TRUE(
        areSame(pictureOf(mView), drawing(kColors[0], {{57, 20, "+20", kRed, true, 0, 20}}), 2));
    post(mFlatE);
    EXPECT_TRUE(
        areSame(pictureOf(mView), drawing(kColors[0], {{64, -20, "-20", kBlue, true, -20, 0}}), 2));
    for (const std::any& nothing :
         {std::any(), std::any(PartialsRef()), std::any(published({})), std::any(42)}) {
        post(mSharpA);
        ASSERT_NE(pictureOf(mView), mNothing);
        post(nothing);
        EXPECT_TRUE(areSame(pictureOf(mView), mNothing));
    }
}

TEST_F(PartialStateViewTest, HoldKeepsTheLastPartialsOnTheScreen) {
    post(mSharpA);
    const QImage shown = pictureOf(mView);
    mPreferences.setPartialsHold(true);
    for (const std::any& nothing : {std::any(), std::any(PartialsRef()), std::any(published({}))}) {
        post(nothing);
        EXPECT_TRUE(areSame(pictureOf(mView), shown));
    }
    post(mFlatE);
    EXPECT_NE(pictureOf(mView), shown) << "new ones are shown all the same";
    mPreferences.setPartialsHold(false);
    EXPECT_NE(pictureOf(mView), mNothing) << "what was held stays until the next result";
    post({});
    EXPECT_TRUE(areSame(pictureOf(mView), mNothing));
}

TEST_F(PartialStateViewTest, RedrawsForAnotherResultAndNotForTheSame) {
    mView.show();
    PaintCounter paints(mView);
    paints.take();
    post(mSharpA);
    EXPECT_EQ(paints.take(), 1);
    post(mSharpA);
    EXPECT_EQ(paints.take(), 0);
    post(published(*mSharpA));
    EXPECT_EQ(paints.take(), 1) << "equal, but another result";
    mPreferences.setPartialsHold(true);
    post({});
    EXPECT_EQ(paints.take(), 0) << "held";
    mPreferences.setPartialsHold(false);
    post({});
    EXPECT_EQ(paints.take(), 1);
    post({});
    EXPECT_EQ(paints.take(), 0);
}

TEST_F(PartialStateViewTest, EveryDrawingMovesTheSmoothingOn) {
    mView.setPartials(published({partialAt(57, 0), partialAt(69, 16)}));
    pictureOf(mView);
    mView.setPartials(published({partialAt(57, 16), partialAt(69, 0)}));
    double expected = 0;
    for (int pass = 0; pass < 5; ++pass) {
        expected = (expected + 16) / 2;
        const Seen seen(mView);
        ASSERT_EQ(cents().size(), 2u);
        EXPECT_NEAR(cents()[0], expected, 0.01) << pass;
        EXPECT_NEAR(cents()[1], 16 - expected, 0.01) << pass;
        const double x = middleOf(57);
        EXPECT_EQ(seen.at(x - 3, 139.5 + expected - 1), kRed);
        EXPECT_EQ(seen.at(x - 3, 139.5 + expected + 1.5), kWhite);
    }
}

TEST_F(PartialStateViewTest, AnotherRootIsNotSmoothed) {
    mView.setPartials(published({partialAt(57, 0), partialAt(69, 16)}));
    pictureOf(mView);
    mView.setPartials(published({partialAt(45, 10), partialAt(69, 0)}));
    pictureOf(mView);
    ASSERT_EQ(cents().size(), 2u);
    EXPECT_NEAR(cents()[1], 0, 0.01);
}

TEST_F(PartialStateViewTest, ReferencePitchAndThresholdAreReadWhenTheyAreAnnounced) {
    NotificationCenter elsewhere;
    PartialView view({mPreferences, elsewhere});
    view.resize(kSize);
    view.setPartials(published({partialAt(57, 2)}));
    const auto record = [&] {
        pictureOf(view); // several times, until the smoothing has settled
        for (int i = 0; i < 30; ++i)
            view.grab();
        return static_cast<double>(view.records()[0].cent);
    };
    EXPECT_NEAR(record(), 2, 0.01);
    mPreferences.setReferencePitch(440 * std::exp2(-8.0 / 1200));
    EXPECT_NEAR(record(), 2, 0.01) << "not announced yet";
    elsewhere.post(notification::kReferencePitch);
    EXPECT_NEAR(record(), 10, 0.01);

    const QImage sharp = pictureOf(view);
    mPreferences.setInTuneThreshold(11);
    EXPECT_TRUE(areSame(pictureOf(view), sharp)) << "not announced yet";
    EXPECT_EQ(view.partialsSpeech(false), "one partial: ay 4, +10. ");
    elsewhere.post(notification::kInTuneThresholdChanged);
    EXPECT_TRUE(areSame(pictureOf(view),
                        drawing(kColors[0], {{57, 10, "+10", kGreen, true, -2.5, 2.5}}), 2));
    EXPECT_EQ(view.partialsSpeech(false), "one partial: ay 4, in tune. ");
}

TEST_F(PartialStateViewTest, TakesReferencePitchAndThresholdWhenItIsMade) {
    mPreferences.setReferencePitch(430);
    mPreferences.setInTuneThreshold(45);
    const QImage picture = pictureOfPartials({partialAt(57)});
    // 440 Hz is 39.8 cents above 430 Hz.
    EXPECT_TRUE(
        areSame(picture, drawing(kColors[0], {{57, 0, "+40", kGreen, true, -2.5, 2.5}}), 2));
}

TEST_F(PartialStateViewTest, SettingsThatChangeItAskForADrawing) {
    mView.show();
    PaintCounter paints(mView);
    paints.take();
    mPreferences.setReferencePitch(442);
    EXPECT_EQ(paints.take(), 1);
    mPreferences.setInTuneThreshold(7);
    EXPECT_EQ(paints.take(), 1);
    mNotifications.post(notification::kTemperamentChanged);
    EXPECT_EQ(paints.take(), 1);
    mNotifications.post(notification::kStretchChanged);
    EXPECT_EQ(paints.take(), 0) << "a stretch is not applied here";
}

TEST_F(PartialStateViewTest, DeviationsAreFromTheTemperamentOnItsRootKey) {
    CentTable cents{};
    for (std::size_t row = 0; row < cents.size(); ++row)
        cents[row] = static_cast<double>(row);
    mTemperaments.entries = {{"Stairs.temperament", cents}};
    const auto centOf = [this](int key) {
        PartialView view({mPreferences, mNotifications});
        view.setPartials(published({partialAt(key)}));
        pictureOf(view);
        return static_cast<double>(view.records()[0].cent);
    };
    mPreferences.setTonic(2);
    EXPECT_NEAR(centOf(57), 0, 0.01) << "equal temperament";
    mPreferences.setTuningForFileName("Stairs.temperament");
    const std::span<const double, 12> table = mPreferences.temperamentTable();
    EXPECT_NEAR(centOf(50), -table[0], 0.01) << "D is the root";
    EXPECT_NEAR(centOf(57), -table[7], 0.01);
    EXPECT_NEAR(centOf(49), -table[11], 0.01) << "C sharp";
    EXPECT_NEAR(centOf(48), -table[10], 0.01);
    mPreferences.setTuning(0);
    EXPECT_NEAR(centOf(57), 0, 0.01);
}

TEST_F(PartialStateViewTest, EndsItsObservationsWithItself) {
    auto view =
        std::make_unique<PartialView>(PartialView::Ports{mPreferences, mNotifications, &mSpeech});
    const std::weak_ptr<const Partials> watch = [&] {
        PartialsRef partials = published({partialAt(57)});
        mNotifications.post(notification::kPartialsChanged, partials);
        return partials;
    }();
    EXPECT_FALSE(watch.expired()) << "kept while they are shown";
    view->iaSpeakStatus();
    view.reset();
    mView.setPartials(nullptr);
    EXPECT_TRUE(watch.expired());
    post(mSharpA);
    mNotifications.post(notification::kReferencePitch);
    mNotifications.post(notification::kInTuneThresholdChanged);
    mNotifications.post(notification::kTemperamentChanged);
    turn();
    EXPECT_EQ(takeSaid(), std::vector<std::string>());
}

TEST_F(PartialStateViewTest, SpeaksASummaryInTheNextTurnOfTheLoop) {
    struct Case {
        Partials partials;
        const char* status;
        const char* details;
    };
    const Case cases[] = {
        {{}, "no partials", "no partials"},
        {{partialAt(57, 12)},
         "one partial: ay 4, +12. ",
         "one partial: root note, ay 4, +12 cent. "},
        {{partialAt(48, -20), partialAt(61, 1)},
         "2 partials: C 4, -20. C sharp 5, in tune. ",
         "2 partials: root note, C 4, -20 cent. C sharp 5, in tune cent. "},
    };
    for (const Case& c : cases) {
        PartialView view({mPreferences, mNotifications, &mSpeech});
        view.setPartials(published(c.partials));
        pictureOf(view);
        view.iaSpeakStatus();
        EXPECT_EQ(takeSaid(), std::vector<std::string>()) << "not at once";
        turn();
        EXPECT_EQ(takeSaid(), std::vector<std::string>{c.status});
        view.iaSpeakDetails();
        EXPECT_EQ(takeSaid(), std::vector<std::string>()) << "not at once";
        turn();
        EXPECT_EQ(takeSaid(), std::vector<std::string>{c.details});
    }
}

TEST_F(PartialStateViewTest, SaysWhatTheLastDrawingShowed) {
    EXPECT_EQ(mView.partialsSpeech(true), "no partials") << "nothing was drawn yet";
    mView.setPartials(mSharpA);
    EXPECT_EQ(mView.partialsSpeech(false), "no partials") << "not drawn yet";
    pictureOf(mView);
    EXPECT_EQ(mView.partialsSpeech(false), "one partial: ay 4, +20. ");
    mView.setPartials(published({partialAt(57, 0)}));
    pictureOf(mView);
    EXPECT_EQ(mView.partialsSpeech(false), "one partial: ay 4, +10. ") << "smoothed";
    mView.setPartials(published({partialAt(5)}));
    pictureOf(mView);
    EXPECT_EQ(mView.partialsSpeech(false), "no partials");
}

TEST_F(PartialStateViewTest, AReportTakesThePlaceOfWhatIsBeingSpoken) {
    mSpeech.speaking = true;
    mView.iaSpeakStatus();
    mView.iaSpeakDetails();
    turn();
    EXPECT_EQ(takeSaid().size(), 2u);
}

TEST_F(PartialStateViewTest, WithoutAVoiceNothingIsSaid) {
    PartialView view({mPreferences, mNotifications});
    view.iaSpeakStatus();
    view.iaSpeakDetails();
    turn();
    EXPECT_EQ(takeSaid(), std::vector<std::string>());
}

TEST_F(PartialStateViewTest, IsReadableForThoseWhoCannotSeeIt) {
    AccessibleReadout::install();
    EXPECT_EQ(mView.accessibleRole(), QAccessible::Graphic);
    EXPECT_EQ(mView.accessibleValue(), "no partials");
    mView.setPartials(mSharpA);
    pictureOf(mView);
    mView.setAccessibleName(QStringLiteral("Partials"));
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&mView);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->text(QAccessible::Value), "one partial: ay 4, +20. ");
    EXPECT_EQ(seen->text(QAccessible::Name), "Partials: one partial: ay 4, +20. ");
    EXPECT_EQ(seen->role(), QAccessible::Graphic);
}

TEST_F(PartialStateViewTest, AnnouncesADrawingThatReadsDifferently) {
    const HeardValues heard;
    const auto takeHeard = [](PartialView& view) {
        pictureOf(view);
        turn();
        return std::exchange(HeardValues::values, {});
    };
    EXPECT_EQ(takeHeard(mView), std::vector<QString>());
    mView.setPartials(mSharpA);
    EXPECT_EQ(takeHeard(mView), std::vector<QString>{"one partial: ay 4, +20. "});
    EXPECT_EQ(takeHeard(mView), std::vector<QString>()) << "the same once more";
    mView.setPartials(published({partialAt(57, 20.2)}));
    EXPECT_EQ(takeHeard(mView), std::vector<QString>()) << "the same in words";
}

} // namespace
} // namespace veltrano
