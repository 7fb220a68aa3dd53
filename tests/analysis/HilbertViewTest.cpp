// SPDX-License-Identifier: GPL-3.0-or-later
// The phase scope: colours, decay, grid and redrawing.
#include "tests/analysis/ScopeRig.h"

#include <utility>

namespace veltrano {
namespace {

class HilbertViewTest : public ScopeTest {};

struct Colors {
    AppearanceChoice choice;
    QRgb background, trace, grid;
};
constexpr Colors kColors[] = {
    {AppearanceChoice::light, kWhite, kBlack, 0xffbfbfbf}, // a quarter of black
    {AppearanceChoice::dark, kBlack, kWhite, kDarkGrey},
};

TEST_F(HilbertViewTest, IsOpaqueAndTheBackgroundFillsTheView) {
    EXPECT_TRUE(mView.testAttribute(Qt::WA_OpaquePaintEvent));
    for (const QSize size : {QSize(360, 360), QSize(301, 201), QSize(123, 457)}) {
        mView.resize(size);
        const Seen seen = draw(zeroBlock());
        EXPECT_TRUE(seen.isAll(kWhite, 0, 0, size.width(), size.height() * 0.5 - 10));
        EXPECT_TRUE(seen.isAll(kWhite, 0, size.height() * 0.5 + 10, size.width(), 50));
        EXPECT_TRUE(extentOfColor(seen.picture(), 0).isEmpty()) << "nothing is left out";
    }
}

TEST_F(HilbertViewTest, TakesOtherColorsWithTheNextDrawing) {
    mView.setData(sine(40, 0.5));
    for (const Colors& colors : {kColors[0], kColors[1], kColors[0], kColors[1]}) {
        SCOPED_TRACE(nameOf(colors.choice));
        const InColors in(colors.choice);
        const Seen seen = draw();
        EXPECT_EQ(seen.at(270.5, 180.5), colors.trace);
        EXPECT_TRUE(seen.isAll(colors.background, 0, 0, 360, 80));
        EXPECT_TRUE(seen.isAll(colors.background, 120, 120, 120, 120));
    }
}

TEST_F(HilbertViewTest, IsMadeInTheColorsInForce) {
    for (const Colors& colors : kColors) {
        const InColors in(colors.choice);
        HilbertView view(mPreferences);
        view.resize(100, 100);
        mPreferences.setHilbertDecay(true); // washes over what was there at first
        const Seen seen(view, ratio());
        EXPECT_EQ(seen.at(20, 20), colors.background) << nameOf(colors.choice);
    }
}

TEST_F(HilbertViewTest, WithoutDecayOnlyTheNewestTraceShows) {
    const Seen fresh = draw(sine(40, 0.3));
    draw(sine(40, 0.9));
    EXPECT_TRUE(areSame(draw(sine(40, 0.3)).picture(), fresh.picture()));
}

TEST_F(HilbertViewTest, NothingIsLeftAtTheEdgesOfAnySize) {
    for (const QSize size : {QSize(301, 201), QSize(302, 203), QSize(299, 200)}) {
        mView.resize(size);
        mView.setPeak(0.2f);
        const Seen fresh = draw(zeroBlock());
        for (const double amplitude : {0.19, 0.2, 0.21, 0.3})
            draw(sine(40, amplitude));
        EXPECT_TRUE(areSame(draw(zeroBlock()).picture(), fresh.picture())) << size.width();
    }
}

TEST_F(HilbertViewTest, WithDecayATraceFadesByAQuarterPerDrawing) {
    mPreferences.setHilbertDecay(true);
    for (const Colors& colors : kColors) {
        SCOPED_TRACE(nameOf(colors.choice));
        const InColors in(colors.choice);
        mView.resize(359, 360);
        mView.resize(360, 360);
        EXPECT_EQ(draw(sine(40, 0.5)).at(270.5, 180.5), colors.trace);
        const double background = qRed(colors.background);
        double expected = qRed(colors.trace);
        for (int drawing = 1; drawing < 12; ++drawing) {
            expected += (background - expected) * 0.25;
            const QRgb seen = draw(zeroBlock()).at(270.5, 180.5);
            EXPECT_NEAR(qRed(seen), expected, drawing == 1 ? 1 : 4) << drawing;
            EXPECT_EQ(qRed(seen), qBlue(seen));
        }
        for (int drawing = 0; drawing < 20; ++drawing)
            draw(zeroBlock());
        EXPECT_NEAR(qRed(draw(zeroBlock()).at(270.5, 180.5)), background, 3);
    }
}

TEST_F(HilbertViewTest, DecayIsAskedAtEveryDrawing) {
    draw(sine(40, 0.5));
    mPreferences.setHilbertDecay(true);
    EXPECT_NE(draw(zeroBlock()).at(270.5, 180.5), kWhite);
    mPreferences.setHilbertDecay(false);
    EXPECT_EQ(draw(zeroBlock()).at(270.5, 180.5), kWhite);
}

TEST_F(HilbertViewTest, ResizingClearsWhatIsFading) {
    mPreferences.setHilbertDecay(true);
    for (const Colors& colors : kColors) {
        const InColors in(colors.choice);
        draw(sine(40, 0.5));
        for (const QSize size : {QSize(360, 300), QSize(420, 300), QSize(360, 360)}) {
            draw(sine(40, 0.5));
            draw(sine(40, 0.5));
            mView.resize(size);
            HilbertView fresh(mPreferences);
            fresh.resize(size);
            EXPECT_TRUE(areSame(draw(zeroBlock()).picture(), pictureOf(fresh, ratio())))
                << size.width() << ' ' << nameOf(colors.choice);
        }
    }
}

TEST_F(HilbertViewTest, TheGridCrossesInTheMiddle) {
    mPreferences.setHilbertGrid(true);
    for (const Colors& colors : kColors) {
        const InColors in(colors.choice);
        for (const QSize size : {QSize(360, 360), QSize(240, 400), QSize(400, 242)}) {
            SCOPED_TRACE(testing::Message() << nameOf(colors.choice) << ' ' << size.width());
            mView.resize(size);
            const int cx = size.width() / 2;
            const int cy = size.height() / 2;
            mView.setPeak(static_cast<float>(cy) / 100);
            const Seen seen = draw(sine(64, 0.5)); // 50 points around the middle
            const auto isOn = [&](int x, int y) {
                return (y == cy && x % 2 == 0) || (x == cx && y % 2 == 0);
            };
            const auto expectAt = [&](int x, int y) {
                // A dash of 1.5 pixels has 2: where it is in doubt is not looked at.
                EXPECT_EQ(seen.at(x + 0.6, y + 0.25), isOn(x, y) ? colors.grid : colors.background)
                    << x << ", " << y;
            };
            for (int i = 0; i < 40; ++i) {
                expectAt(i, cy);
                expectAt(cx, i);
                expectAt(cx - 20 + i, cy);
                expectAt(cx, cy - 20 + i);
            }
            const int right = (size.width() - 1) / 2 * 2;
            const int top = (size.height() - 1) / 2 * 2;
            EXPECT_EQ(seen.at(right + 0.25, cy + 0.25), colors.grid);
            EXPECT_EQ(seen.at(cx + 0.25, top + 0.25), colors.grid);
            for (int i = 0; i < 20; ++i) {
                for (const double side : {-1.0, 2.0}) {
                    EXPECT_EQ(seen.at(i + 0.25, cy + side + 0.25), colors.background);
                    EXPECT_EQ(seen.at(cx + side + 0.25, i + 0.25), colors.background);
                }
            }
        }
    }
}

TEST_F(HilbertViewTest, TheGridHasEvenDashesAtBrokenRatiosToo) {
    mPreferences.setHilbertGrid(true);
    const int line = std::max(1, static_cast<int>(std::round(ratio())));
    for (const QSize size : {QSize(360, 360), QSize(301, 201), QSize(303, 205)}) {
        mView.resize(size);
        const Seen seen = draw(sine(64, 0.5));
        const QImage left = seen.picture().copy(0, 0, 30, seen.picture().height());
        const QImage bottom =
            seen.picture().copy(0, seen.picture().height() - 30, seen.picture().width(), 30);
        EXPECT_EQ(extentOfColor(left, kColors[0].grid).height(), line);
        EXPECT_EQ(extentOfColor(bottom, kColors[0].grid).width(), line);
        EXPECT_EQ(extentBeside(kWhite, left), extentOfColor(left, kColors[0].grid)) << "sharp";
        EXPECT_EQ(extentBeside(kWhite, bottom), extentOfColor(bottom, kColors[0].grid));
    }
}

TEST_F(HilbertViewTest, TheGridLiesOverTheTraceAndDoesNotStay) {
    mPreferences.setHilbertDecay(true);
    const Seen without = draw(zeroBlock());
    mPreferences.setHilbertGrid(true);
    EXPECT_EQ(draw().at(20.25, 180.25), kColors[0].grid);
    EXPECT_EQ(draw().at(20.25, 180.25), kColors[0].grid);
    mPreferences.setHilbertGrid(false);
    EXPECT_TRUE(areSame(draw().picture(), without.picture()));

    const InColors in(AppearanceChoice::dark);
    mPreferences.setHilbertDecay(false);
    mPreferences.setHilbertGrid(true);
    EXPECT_EQ(draw(zeroBlock()).at(180.25, 180.25), kDarkGrey) << "over the point";
}

TEST_F(HilbertViewTest, RedrawsOnlyForAnotherBlock) {
    mView.show();
    PaintCounter paints(mView);
    paints.take();
    const FrameRef block = sine(40, 0.5);
    mView.setData(block);
    EXPECT_EQ(paints.take(), 1);
    mView.setData(block);
    EXPECT_EQ(paints.take(), 0) << "the same object";
    mView.setData(sine(40, 0.5));
    EXPECT_EQ(paints.take(), 1) << "another object with the same samples";
    mView.setPeak(0.25f);
    EXPECT_EQ(paints.take(), 0) << "a peak waits for the next drawing";
    mView.setData(nullptr);
    EXPECT_EQ(paints.take(), 1);
    mView.setData(nullptr);
    EXPECT_EQ(paints.take(), 0);
}

TEST_F(HilbertViewTest, APeakHoldsFromTheNextDrawing) {
    mView.setPeak(0.5f);
    const Seen small = draw(sine(40, 0.2));
    mView.setPeak(0.25f);
    EXPECT_NE(draw().picture(), small.picture()) << "a stale block simply scales with it";
    EXPECT_TRUE(areSame(draw(sine(40, 0.1)).picture(), small.picture()));
}

TEST_F(HilbertViewTest, KeepsTheBlockOnlyWhileItIsShown) {
    FrameRef block = sine(40, 0.5);
    const std::weak_ptr<const Frame> watch = block;
    mView.setData(std::move(block));
    EXPECT_FALSE(watch.expired());
    mView.setData(zeroBlock());
    EXPECT_TRUE(watch.expired());
}

TEST_F(HilbertViewTest, SaysWhetherThereIsASignal) {
    const HeardValues heard;
    PaintCounter loop(mView);
    const auto take = [&] {
        loop.take();
        return std::exchange(HeardValues::values, {});
    };
    EXPECT_EQ(mView.accessibleValue(), "no signal");
    EXPECT_EQ(mView.accessibleRole(), QAccessible::Graphic);
    mView.setData(zeroBlock());
    EXPECT_EQ(mView.accessibleValue(), "no signal");
    EXPECT_EQ(take(), std::vector<QString>());
    mView.setData(sine(40, 0.5));
    EXPECT_EQ(mView.accessibleValue(), "signal");
    EXPECT_EQ(take(), std::vector<QString>{"signal"});
    mView.setData(blockOf({0.1f, 0.1f}));
    EXPECT_EQ(mView.accessibleValue(), "signal");
    EXPECT_EQ(take(), std::vector<QString>()) << "still a signal";
    mView.setAccessibleName(QStringLiteral("Scope"));
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&mView);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->text(QAccessible::Name), "Scope: signal");
    EXPECT_EQ(seen->role(), QAccessible::Graphic);
}

} // namespace
} // namespace veltrano
