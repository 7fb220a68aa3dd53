// SPDX-License-Identifier: GPL-3.0-or-later
// Whole sessions of a user, with keys and mouse, from the first start to the next one.
#include "tests/accessibility/AccessibleDesktop.h"
#include "tests/live/SessionRig.h"

#include <QCoreApplication>
#include <cstdio>

namespace veltrano {
namespace {

// C5 with A4 at 440 Hz.
constexpr const char* kEqualC5 = "523.251";
constexpr const char* kWerckmeisterOnEC5 = "521.481"; // E4 at 330 Hz, and 128/81 of it

class Session : public SessionRig {
public: // the test names them as values
    void firstLaunch();
    void tune();
    void chooseTemperamentAndRoot();
};

void Session::firstLaunch() {
    start({"--input", recording()});
    ASSERT_TRUE(becomesActive(titled("Help")));
    picture("first-launch");
    screen->press("ctrl+w");
    ASSERT_TRUE(becomesActive("Veltrano"));
    for (const char* title : {"Partials", "Hilbert Scope", "Piano Keyboard"})
        EXPECT_TRUE(screen->shows(title)) << title;
}

void Session::tune() {
    EXPECT_TRUE(nextTargetIs(kA4, "440.000"));
    EXPECT_TRUE(nextTargetIs(kC5, kEqualC5));
    EXPECT_TRUE(says("Key: C 5"));
    picture("tuning");
}

void Session::chooseTemperamentAndRoot() {
    screen->press("ctrl+comma");
    ASSERT_TRUE(becomesActive(titled("Preferences")));
    screen->press("alt+m");
    screen->type("Werck");
    EXPECT_TRUE(says("Temperament: Werckmeister III"));
    picture("temperament");
    click("C (", "combo box");
    picture("root-keys");
    click("E (", "list item");
    picture("root");
    screen->press("Escape");
    ASSERT_TRUE(becomesActive("Veltrano"));
    EXPECT_TRUE(nextTargetIs(kC5, kWerckmeisterOnEC5));
    EXPECT_TRUE(nextTargetIs(kA4, "440.000"));
}

TEST_F(Session, FromTheFirstStartToTheNext) {
    for (const auto step :
         {&Session::firstLaunch, &Session::tune, &Session::chooseTemperamentAndRoot}) {
        (this->*step)();
        if (HasFatalFailure()) {
            picture("failed");
            return;
        }
    }
    screen->press("ctrl+q");
    expectNormalEnd();
    EXPECT_EQ(stored("Tuning"), "Werckmeister III.temperament");
    EXPECT_EQ(stored("Tonic"), "4");
}

} // namespace
} // namespace veltrano

int main(int argc, char** argv) {
    using namespace veltrano;
    testing::InitGoogleTest(&argc, argv);
    constexpr int kSkipped = 77;
    for (const auto& reason : {TestScreen::missing(), AccessibleDesktop::missing()}) {
        if (!reason) continue;
        std::printf("Skipped: %s\n", reason->c_str());
        return kSkipped;
    }
    QCoreApplication application(argc, argv);
    QTemporaryDir folder;
    TestScreen screen;
    AccessibleDesktop desktop(folder.path().toStdString());
    if (screen.start()) {
        qputenv("DISPLAY", screen.display().toLocal8Bit());
        if (desktop.start()) {
            SessionRig::useScreen(screen);
            return RUN_ALL_TESTS();
        }
    }
    std::puts("The screen or the desktop does not start.");
    return 1;
}
