// SPDX-License-Identifier: GPL-3.0-or-later
// The program for those who do not see it: its tree on the accessibility bus, and what it tells.
#include "tests/accessibility/AccessibleDesktop.h"
#include "tests/accessibility/ProgramRig.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstdio>
#include <map>
#include <set>

namespace veltrano {
namespace {

using Roles = std::set<std::string>;

// What holds other things and needs no name of its own.
const Roles kContainers{"filler",   "menu bar",      "popup menu",   "separator",  "scroll pane",
                        "tool tip", "page tab list", "layered pane", "split pane", "status bar"};
const Roles kNothingSaying{"unknown", "invalid", "invalid role", ""};
const Roles kNumbers{"dial", "slider", "spin button", "scroll bar", "progress bar"};
const Roles kReadouts{"label", "image", "dial", "chart"};

/// What is wrong with one object in sight; empty: nothing.
std::string complaintOf(const AccessibleNode& node) {
    const std::string role = node.role();
    if (kNothingSaying.contains(role)) return "does not say what it is";
    const bool isNamed = !node.name().empty();
    if (role == "filler") {
        if (node.parent().role() == "application") return "does not say that it is a window";
        const bool isViewport = node.parent().text().has_value();
        return isViewport || node.childCount() > 0 ? "" : "is an empty container";
    }
    if (kContainers.contains(role)) return "";
    // The corner between the headers of a table.
    if (role == "panel" && node.parent().role() == "table") return "";
    // A line for messages that has none.
    if (role == "label" && !isNamed && !node.text()) return "";
    if (!isNamed) return "has no name";
    if (kNumbers.contains(role) && !node.value()) return "has no value";
    if ((role == "text" || role == "image" || role == "dial" || role == "chart") && !node.text())
        return "has no text";
    if (role == "chart" && node.text()->empty()) return "says nothing";
    return "";
}

class AccessibleProgram : public ProgramRig {
protected:
    /// @return every name in sight
    static std::string expectAllNamed(const AccessibleNode& window) {
        std::string names;
        int objects = 0;
        window.walk([&](const AccessibleNode& node, const std::string& path) {
            const bool isMenu = node.role().find("menu") != std::string::npos;
            if (!isMenu && !node.is(NodeState::showing)) return false;
            ++objects;
            names += node.name() + '\n';
            const std::string complaint = complaintOf(node);
            EXPECT_EQ(complaint, "") << path;
            return true;
        });
        EXPECT_GT(objects, 2) << window.name();
        return names;
    }

    /// Moves the focus in the tuner window by @p key until it is where it was.
    std::vector<std::string> roundBy(const char* key) {
        const AccessibleNode tuner = window("Veltrano");
        std::vector<std::string> visited;
        constexpr int kMost = 30;
        while (visited.size() < kMost) {
            const std::string before = nameOnly(focusIn(tuner));
            screen->press(key);
            accessible::await([&] { return nameOnly(focusIn(tuner)) != before; });
            const std::string now = nameOnly(focusIn(tuner));
            if (!visited.empty() && now == visited.front()) break;
            visited.push_back(now);
        }
        return visited;
    }
    /// The name before the value.
    static std::string nameOnly(const AccessibleNode& node) {
        if (!node) return "nothing";
        const std::string name = node.name();
        return name.substr(0, name.find(": "));
    }
};

TEST_F(AccessibleProgram, EverythingInEveryWindowHasANameAndARole) {
    start({VELTRANO_RESOURCES "/Temperaments/Vallotti.temperament",
           VELTRANO_RESOURCES "/Stretches/Console.stretch"});
    for (const char* title : {"Veltrano", "Partials", "Hilbert Scope", "Piano Keyboard",
                              "Vallotti.temperament", "Console.stretch"}) {
        SCOPED_TRACE(title);
        ASSERT_TRUE(appears(title));
        expectAllNamed(window(title));
    }
    screen->press("F1");
    ASSERT_TRUE(appears("Help"));
    expectAllNamed(window("Help"));
}

TEST_F(AccessibleProgram, EverythingInThePreferencesHasANameAndARole) {
    start();
    screen->press("ctrl+comma");
    ASSERT_TRUE(appears("Preferences"));
    const AccessibleNode panel = window("Preferences");
    const AccessibleNode tabs =
        panel.find([](const AccessibleNode& it) { return it.role() == "page tab list"; });
    ASSERT_TRUE(tabs);
    std::vector<std::string> names;
    for (const AccessibleNode& tab : tabs.children()) {
        if (tab.role() == "page tab") names.push_back(tab.name());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Tuning", "Manual Mode", "Sound Back", "Devices"}));
    std::set<std::string> seen;
    for (const std::string& name : names) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(seen.insert(expectAllNamed(panel)).second) << "another tab";
        screen->press("ctrl+Tab");
    }
}

TEST_F(AccessibleProgram, NoteCentsAndLightsCanBeRead) {
    start();
    const AccessibleNode tuner = window("Veltrano");
    struct Heard {
        const char *key, *cents, *lights, *deviation;
    };
    for (const Heard& note : {Heard{"A 4", "+10.", "In tune: no, Sharp: on", "9."},
                              Heard{"C 5", "-20.", "Flat: on, In tune: no", "-20."}}) {
        SCOPED_TRACE(note.key);
        EXPECT_TRUE(says(tuner, std::string("Key: ") + note.key));
        EXPECT_TRUE(says(tuner, std::string("Cents: ") + note.cents));
        EXPECT_TRUE(says(tuner, std::string("Lights: ") + note.lights));
    }
    EXPECT_TRUE(says(tuner, "Level: 7 of 8 lights -7dB")) << tuner.findByName("Level: ").name();
    EXPECT_TRUE(says(tuner, "Level light 7: peak"));
    EXPECT_TRUE(says(tuner, "Strobe: signal"));
    const AccessibleNode meter = tuner.findByName("Deviation");
    EXPECT_EQ(meter.role(), "dial");
    EXPECT_TRUE(accessible::await([&] { return std::abs(*meter.value() - 10) < 1; }));
    EXPECT_TRUE(accessible::await([&] { return std::abs(*meter.value() + 20) < 1; }));
    EXPECT_TRUE(accessible::await([&] {
        const std::string heard = *tuner.findByName("Frequency: ").text();
        return heard.starts_with("442.5") && heard.ends_with(" Hz");
    }));
    EXPECT_TRUE(says(window("Piano Keyboard"), "Piano Keyboard: A4"));
    EXPECT_TRUE(says(window("Piano Keyboard"), "Piano Keyboard: C5"));
    EXPECT_TRUE(says(window("Partials"), "Partials: one partial: ay 4, +10."));
    EXPECT_TRUE(says(window("Hilbert Scope"), "Hilbert Scope: signal"));
}

TEST_F(AccessibleProgram, ChangesAreToldAtMostFourTimesASecond) {
    start();
    constexpr double kSeconds = 3 * kNoteSeconds;
    constexpr double kMostPerSecond = 4;
    const std::vector<std::string> types{"object:property-change:accessible-name",
                                         "object:property-change:accessible-value",
                                         "object:text-changed:insert"};
    const auto events = accessible::listen(types, kSeconds);
    std::map<std::pair<std::string, std::string>, int> counts; ///< by name and type
    for (const AccessibleEvent& event : events) {
        for (const std::string& type : types) {
            if (event.type.starts_with(type)) ++counts[{nameOnly(event.source), type}];
        }
    }
    for (const auto& [what, count] : counts)
        EXPECT_LE(count, kMostPerSecond * kSeconds + 1) << what.first << ' ' << what.second;
    for (const char* readout : {"Key", "Note", "Cents", "Lights", "Sharp", "Flat", "Deviation",
                                "Frequency", "Piano Keyboard"}) {
        EXPECT_GE((counts[{readout, types[0]}]), 2) << readout;
        EXPECT_GE((counts[{readout, types[2]}]), 2) << readout;
    }
    EXPECT_GE((counts[{"Deviation", types[1]}]), 2) << "a number that changes";
}

TEST_F(AccessibleProgram, TheFocusGoesRoundThePanesOfTheTunerWindow) {
    start();
    const std::vector<std::string> panes{
        "Key",    "Cents",      "Strobe",         "Lights", "Deviation", "Frequency",
        "Target", "Difference", "Stretch offset", "Tuning", "Input",     "Level"};
    const auto rotatedTo = [](std::vector<std::string> names, const std::string& first) {
        std::ranges::rotate(names, std::ranges::find(names, first));
        return names;
    };
    const std::vector<std::string> forward = roundBy("F6");
    ASSERT_EQ(std::ranges::count(forward, panes.front()), 1) << testing::PrintToString(forward);
    EXPECT_EQ(rotatedTo(forward, panes.front()), panes);
    for (const char* key : {"shift+Tab", "shift+F6"}) {
        SCOPED_TRACE(key);
        std::vector<std::string> back = roundBy(key);
        std::ranges::reverse(back);
        ASSERT_EQ(std::ranges::count(back, panes.front()), 1) << testing::PrintToString(back);
        EXPECT_EQ(rotatedTo(back, panes.front()), panes);
    }
}

TEST_F(AccessibleProgram, TheOtherWindowsHaveTheFocusOnTheirView) {
    start();
    for (const auto& [key, title] : {std::pair("ctrl+4", "Piano Keyboard")}) {
        screen->press(key);
        ASSERT_TRUE(becomesActive(title));
        const AccessibleNode view = window(title);
        EXPECT_TRUE(accessible::await([&] { return nameOnly(focusIn(view)) == title; }));
    }
}

TEST_F(AccessibleProgram, MenusAreReachedByKeysAndTellTheirCheckMarks) {
    start();
    const AccessibleNode tuner = window("Veltrano");
    const auto item = [&] { return tuner.findByName("Manual Mode"); };
    const auto isOpen = [&] { return item().is(NodeState::showing); };
    screen->press("alt+t");
    ASSERT_TRUE(accessible::await(isOpen));
    EXPECT_FALSE(item().is(NodeState::checked));
    screen->press("m");
    EXPECT_TRUE(accessible::await([&] { return !isOpen(); }));
    EXPECT_TRUE(says(tuner, "Deviation: off"));
    screen->press("F10");
    const auto first = [&] { return tuner.findByName("New Temperament"); };
    EXPECT_TRUE(accessible::await([&] { return first().is(NodeState::showing); }));
    screen->press("Escape");
    screen->press("Escape");
    screen->press("alt+t");
    ASSERT_TRUE(accessible::await(isOpen));
    EXPECT_TRUE(item().is(NodeState::checked));
    screen->press("Escape");
}

TEST_F(AccessibleProgram, TablesNameRowsColumnsAndWhatIsEdited) {
    start({VELTRANO_RESOURCES "/Stretches/Console.stretch"});
    ASSERT_TRUE(appears("Console.stretch"));
    const AccessibleNode editor = window("Console.stretch");
    const AccessibleNode table = editor.findByName("Stretch offsets");
    EXPECT_EQ(table.role(), "table");
    const AccessibleNode column = table.findByName("Octave 3");
    ASSERT_TRUE(column);
    EXPECT_EQ(column.role(), "table column header");
    const AccessibleNode row =
        table.find([](const AccessibleNode& it) { return it.role() == "table row header"; });
    ASSERT_TRUE(row);
    EXPECT_EQ(row.name(), "C");
    const AccessibleNode cell = table.findByName("C0: -31.048 cents");
    ASSERT_TRUE(cell);
    EXPECT_EQ(cell.role(), "table cell");
    EXPECT_EQ(cell.description(), "editable");
    EXPECT_EQ(editor.findByName("Stretch across").role(), "chart");
    EXPECT_TRUE(editor.findByName("Stretch across the keyboard: lowest C0 -31.0 cents, highest "));
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
            ProgramRig::useScreen(screen);
            return RUN_ALL_TESTS();
        }
    }
    std::puts("The screen or the desktop does not start.");
    return 1;
}
