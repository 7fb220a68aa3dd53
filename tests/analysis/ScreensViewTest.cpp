// SPDX-License-Identifier: GPL-3.0-or-later
// Views that are moved to a finer screen.
#include "analysis/PianoView.h"
#include "tests/analysis/PartialsRig.h"
#include "tests/analysis/ScopeRig.h"

#include <QScreen>

namespace veltrano {
namespace {

/// To the middle of the screen with that many pixels per point.
void moveTo(QWidget& view, double ratio) {
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->devicePixelRatio() == ratio) view.move(screen->geometry().center());
    }
    QCoreApplication::processEvents();
    ASSERT_EQ(view.devicePixelRatioF(), ratio);
}

class ScreensViewTest : public PartialsTest {
protected:
    void SetUp() override {
        if (QGuiApplication::screens().size() < 2) GTEST_SKIP() << "there is one screen";
        mPreferences.setHilbertDecay(true);
    }

    /// What @p view looks like after the move, beside a new one made and shown there.
    template <class View>
    static void expectAsNew(View& view, View& fresh) {
        view.resize(300, 120);
        view.show();
        moveTo(view, 1);
        EXPECT_EQ(pictureOf(view, 1).width(), 300);
        moveTo(view, 2);
        fresh.resize(300, 120);
        fresh.show();
        moveTo(fresh, 2);
        EXPECT_TRUE(areSame(pictureOf(view, 2), pictureOf(fresh, 2)));
    }
};

TEST_F(ScreensViewTest, TheScopeBeginsANewPictureInTheNewPixels) {
    HilbertView view(mPreferences);
    HilbertView fresh(mPreferences);
    const FrameRef block = sine(40, 0.5);
    view.setData(block);
    fresh.setData(block);
    expectAsNew(view, fresh);
}

TEST_F(ScreensViewTest, TheKeyboardsAreDrawnInTheNewPixels) {
    PartialView fresh({mPreferences, mNotifications});
    mNotifications.post(notification::kPartialsChanged, published({partialAt(57, 10)}));
    expectAsNew(mView, fresh);
    PianoView piano;
    PianoView freshPiano;
    piano.setMidiNote(57);
    freshPiano.setMidiNote(57);
    expectAsNew(piano, freshPiano);
}

} // namespace
} // namespace veltrano
