// SPDX-License-Identifier: GPL-3.0-or-later
// Whole sessions of a user, with keys and mouse, from the first start to the next one.
#include "tests/accessibility/AccessibleDesktop.h"
#include "tests/live/ServerEar.h"
#include "tests/live/SessionRig.h"
#include "tests/support/SoundServer.h"

#include <QCoreApplication>
#include <QThread>
#include <cstdio>
#include <map>

namespace veltrano {
namespace {

// C5 with A4 at 440 Hz.
constexpr const char* kEqualC5 = "523.251";
constexpr const char* kWerckmeisterOnEC5 = "521.481"; // E4 at 330 Hz, and 128/81 of it

class Session : public SessionRig {
public: // the test names the steps as values
    static void useSoundServer(SoundServer& only, ServerEar& itsEar) {
        server = &only;
        ear = &itsEar;
    }

    void firstLaunch();
    void tune();
    void chooseTemperamentAndRoot();
    void tuneByHand();
    void playTheTarget();
    void editATemperament();
    void editAStretch();
    void openADocument();
    void importAScaleThatFails();
    void importAScaleThatWorks();
    void exportAndPrint();
    void hideAndShow();
    void openAndCloseWindows();
    void quit();
    void startAgain();
    void endOnSignal();

protected:
    static constexpr const char* kUntitled = "Untitled";
    static constexpr const char* kUntitledEdited = "Untitled*";

    static inline SoundServer* server = nullptr; ///< null: there is none here
    static inline ServerEar* ear = nullptr;      ///< of the server

    /// The key makes a tone of that pitch.
    static void expectTone(const char* key, double hz) {
        if (!ear) return;
        EXPECT_TRUE(TestScreen::await([] { return ear->heardHz() == 0; })) << "before " << key;
        screen->press(key);
        EXPECT_TRUE(TestScreen::await([&] { return std::abs(ear->heardHz() - hz) <= 5; })) << key;
    }
    /// Types into a file panel that is to come up, and waits until it is gone.
    static void answerPanel(const char* title, const QString& file, const QString& after) {
        ASSERT_TRUE(becomesActive(titled(title)));
        screen->type(file);
        screen->press("Return");
        ASSERT_TRUE(becomesActive(after));
    }
    void newDocumentWith(const char* keys, const char* value) {
        screen->press(keys);
        ASSERT_TRUE(becomesActive(titled(kUntitled)));
        screen->type(value);
        screen->press("Return");
        ASSERT_TRUE(becomesActive(titled(kUntitledEdited)));
    }
    void importFile(const char* name) {
        screen->press("ctrl+i");
        ASSERT_TRUE(becomesActive(titled("Import")));
        screen->type(path(name));
        screen->press("Return");
    }
    static QRect placeOf(const char* title) {
        return screen->place(screen->windows(title).value(0));
    }

    std::map<std::string, QRect> mPlaces; ///< where the user put the windows
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

void Session::tuneByHand() {
    screen->press("u");
    EXPECT_TRUE(says("Key: A 4"));
    const struct {
        const char *key, *note;
    } kKeys[] = {{"space", "Key: B flat 4"}, {"Right", "Key: B 4"},     {"Up", "Key: B 5"},
                 {"Down", "Key: B 4"},       {"Left", "Key: B flat 4"}, {"6", "Key: B 4"}};
    for (const auto& [key, note] : kKeys) {
        screen->press(key);
        EXPECT_TRUE(says(note)) << key;
    }
    picture("manual-mode");
}

void Session::playTheTarget() {
    expectTone("Tab", 493.326);
    expectTone("KP_Enter", 493.326);
    screen->press("b");
    expectTone("Up", 986.652); // a new target sounds by itself
    picture("sound-back");
    screen->press("u");
    EXPECT_TRUE(says("Key: C 5"));
}

void Session::editATemperament() {
    ASSERT_NO_FATAL_FAILURE(newDocumentWith("ctrl+n", "12.5"));
    picture("temperament-edited");
    screen->press("ctrl+z");
    EXPECT_TRUE(becomesActive(titled(kUntitled)));
    picture("temperament-undone");
    screen->press("ctrl+shift+z");
    EXPECT_TRUE(becomesActive(titled(kUntitledEdited)));
    screen->press("alt+n");
    screen->type("My Well");
    screen->press("ctrl+s");
    ASSERT_TRUE(becomesActive(titled("Save As")));
    picture("save-panel");
    ASSERT_NO_FATAL_FAILURE(answerPanel("Save As", "My Well", titled("My Well.temperament")));
    picture("temperament-saved");
    EXPECT_TRUE(becomesFile(temperaments() + "My Well.temperament", "My Well"));
    EXPECT_TRUE(becomesFile(temperaments() + "My Well.temperament", "12.5"));
}

void Session::editAStretch() {
    ASSERT_NO_FATAL_FAILURE(newDocumentWith("ctrl+shift+n", "3"));
    screen->type("-2"); // Return went on to the next cell
    screen->press("Return");
    screen->press("alt+n");
    screen->type("My Stretch");
    picture("stretch-edited");
    screen->press("ctrl+s");
    ASSERT_NO_FATAL_FAILURE(answerPanel("Save As", "My Stretch", titled("My Stretch.stretch")));
    EXPECT_TRUE(becomesFile(stretches() + "My Stretch.stretch", "My Stretch"));
    screen->press("ctrl+w");
    EXPECT_TRUE(disappears("My Stretch.stretch"));
}

void Session::openADocument() {
    screen->press("ctrl+1");
    ASSERT_TRUE(becomesActive("Veltrano"));
    screen->press("ctrl+o");
    ASSERT_NO_FATAL_FAILURE(answerPanel("Open", temperaments() + "Young II.temperament",
                                        titled("Young II.temperament")));
    picture("opened");
    screen->press("ctrl+w");
    EXPECT_TRUE(disappears("Young II.temperament"));
}

void Session::importAScaleThatFails() {
    write("seven.scl", "seven notes\n7\n");
    ASSERT_NO_FATAL_FAILURE(importFile("seven.scl"));
    const std::string message = "Veltrano failed to import the Scala Scale File (.scl): " +
                                path("seven.scl").toStdString() + ".";
    EXPECT_TRUE(accessible::await([&] { return bool(seen(message)); }));
    EXPECT_TRUE(seen("Unable to import the Scala Scale File (.scl)."));
    picture("import-failed");
    screen->press("Return");
    EXPECT_TRUE(accessible::await([&] { return !seen(message); }));
    EXPECT_FALSE(screen->shows(kUntitled));
}

void Session::importAScaleThatWorks() {
    write("just.scl", "above an octave\n12\n16/15\n9/8\n6/5\n5/4\n4/3\n45/32\n3/2\n8/5\n5/3\n9/5\n"
                      "15/8\n2/1\n");
    ASSERT_NO_FATAL_FAILURE(importFile("just.scl"));
    ASSERT_TRUE(TestScreen::await([] { return screen->active().startsWith(kUntitled); }));
    EXPECT_TRUE(showsText("just.scl"));
    picture("imported");
}

void Session::exportAndPrint() {
    const QString document = screen->active();
    screen->press("ctrl+shift+e");
    ASSERT_NO_FATAL_FAILURE(answerPanel("Export", path("again"), document));
    EXPECT_TRUE(becomesFile(path("again.scl"), "above an octave"));
    screen->press("ctrl+p");
    ASSERT_TRUE(becomesActive(titled("Print")));
    picture("print-dialog");
    screen->press("alt+f");
    screen->press("ctrl+a");
    ASSERT_NO_FATAL_FAILURE(answerPanel("Print", path("page.pdf"), document));
    EXPECT_TRUE(becomesFile(path("page.pdf"), "%%EOF"));
    EXPECT_EQ(contents(path("page.pdf")).count("/Type /Page\n"), 1);
    screen->press("ctrl+w");
    EXPECT_TRUE(TestScreen::await([&] { return screen->active() != document; }));
}

void Session::hideAndShow() {
    const auto count = [&] { return readings().size(); };
    const QString tuner = screen->windows("Veltrano$").value(0);
    for (const QString& window : screen->windows("."))
        screen->minimize(window);
    ASSERT_TRUE(TestScreen::await([] { return !screen->shows("."); }));
    picture("hidden");
    QThread::msleep(1000); // what was on its way
    const qsizetype before = count();
    QThread::msleep(4000); // several notes
    EXPECT_LE(count(), before) << "the input goes on";
    screen->activate(tuner);
    ASSERT_TRUE(becomesActive("Veltrano"));
    EXPECT_TRUE(TestScreen::await([&] { return count() > before + 2; })) << "the input stays away";
    picture("shown-again");
}

void Session::openAndCloseWindows() {
    const struct {
        const char *key, *title;
    } kWindows[] = {{"ctrl+2", "Partials"}, {"ctrl+3", "Hilbert Scope"}};
    for (const auto& [key, title] : kWindows) {
        // All were minimized.
        screen->press(key);
        ASSERT_TRUE(becomesActive(titled(title)));
        screen->press(key);
        EXPECT_TRUE(disappears(title));
    }
    screen->press("ctrl+2");
    ASSERT_TRUE(becomesActive(titled("Partials")));
    const struct {
        const char* title;
        QPoint to;
    } kPlaces[] = {{"Veltrano$", {20, 60}}, {"Partials", {420, 640}}};
    for (const auto& [title, to] : kPlaces) {
        screen->move(screen->windows(title).value(0), to);
        EXPECT_TRUE(TestScreen::await([&] { return placeOf(title).left() - to.x() < 10; }));
        mPlaces[title] = placeOf(title);
    }
    picture("arranged");
}

void Session::quit() {
    ASSERT_NO_FATAL_FAILURE(newDocumentWith("ctrl+n", "5"));
    screen->press("ctrl+q");
    EXPECT_TRUE(accessible::await([&] { return bool(seen("Do you want to save", "label")); }));
    picture("question");
    screen->press("Escape");
    EXPECT_TRUE(becomesActive(titled(kUntitledEdited)));
    EXPECT_TRUE(isRunning());
    screen->press("ctrl+q");
    ASSERT_NO_FATAL_FAILURE(click("Discard", "push button"));
    ASSERT_NO_FATAL_FAILURE(expectNormalEnd());
    const QPair<const char*, const char*> kStored[] = {{"Tuning", "Werckmeister III.temperament"},
                                                       {"Tonic", "4"},
                                                       {"ManualMode", "false"},
                                                       {"SoundBack", "true"},
                                                       {"Partials", "true"},
                                                       {"HilbertScope", "false"}};
    for (const auto& [key, value] : kStored)
        EXPECT_EQ(stored(key), value) << key;
}

void Session::startAgain() {
    ASSERT_NO_FATAL_FAILURE(start({"--input", path("notes.wav")}));
    ASSERT_TRUE(becomesActive("Veltrano"));
    EXPECT_TRUE(says("Temperament: Werckmeister III"));
    EXPECT_TRUE(nextTargetIs(kC5, kWerckmeisterOnEC5));
    EXPECT_FALSE(screen->shows("Hilbert Scope"));
    for (const auto& [title, place] : mPlaces)
        EXPECT_EQ(placeOf(title.c_str()), place) << title;
    picture("second-start");
}

void Session::endOnSignal() {
    screen->press("ctrl+3");
    ASSERT_TRUE(becomesActive(titled("Hilbert Scope")));
    ASSERT_NO_FATAL_FAILURE(newDocumentWith("ctrl+n", "5"));
    program().terminate();
    ASSERT_NO_FATAL_FAILURE(expectNormalEnd());
    EXPECT_EQ(stored("HilbertScope"), "true");
    EXPECT_EQ(stored("Tonic"), "4");
}

TEST_F(Session, FromTheFirstStartToTheNext) {
    if (server) setSoundServer(server->address());
    for (const auto step :
         {&Session::firstLaunch, &Session::tune, &Session::chooseTemperamentAndRoot,
          &Session::tuneByHand, &Session::playTheTarget, &Session::editATemperament,
          &Session::editAStretch, &Session::openADocument, &Session::importAScaleThatFails,
          &Session::importAScaleThatWorks, &Session::exportAndPrint, &Session::hideAndShow,
          &Session::openAndCloseWindows, &Session::quit, &Session::startAgain,
          &Session::endOnSignal}) {
        (this->*step)();
        if (HasFailure()) {
            picture("failed");
            return;
        }
    }
}

TEST_F(Session, ASecondStartHandsItsFilesOver) {
    ASSERT_NO_FATAL_FAILURE(start({}));
    ASSERT_TRUE(becomesActive(titled("Help")));
    QProcess second;
    launch(second, {temperaments() + "Young II.temperament"});
    ASSERT_TRUE(second.waitForFinished(kPatience));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_TRUE(becomesActive(titled("Young II.temperament")));
    picture("handed-over");
    QProcess third;
    launch(third, {});
    ASSERT_TRUE(third.waitForFinished(kPatience));
    EXPECT_EQ(third.exitCode(), 0);
    EXPECT_TRUE(becomesActive("Veltrano"));
    screen->press("ctrl+q");
    expectNormalEnd();
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
            SoundServer server(SoundServer::Kind::pulseAudio, SoundServer::Devices::sink);
            std::optional<ServerEar> ear;
            if (SoundServer::missing(SoundServer::Kind::pulseAudio) || !server.start()) {
                std::puts("Without a sound server: no tone is heard.");
            } else {
                Session::useSoundServer(server, ear.emplace(server));
            }
            return RUN_ALL_TESTS();
        }
    }
    std::puts("The screen or the desktop does not start.");
    return 1;
}
