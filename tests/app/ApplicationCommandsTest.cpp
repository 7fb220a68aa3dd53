// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the application as a whole.
#include "app/ApplicationCommands.h"

#include "app/MenuItems.h"

#include <QApplication>
#include <QMainWindow>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

namespace veltrano {
namespace {

using Lines = std::vector<std::string>;
using enum MenuCommand;

class AnsweringTuner final : public CommandHandler {
public:
    std::optional<CommandState> commandState(MenuCommand command) const override {
        if (command != noteUp) return std::nullopt;
        return CommandState{.isEnabled = false, .title = QStringLiteral("the tuner's")};
    }
    void perform(MenuCommand command) override { performed.push_back(command); }

    std::vector<MenuCommand> performed;
};

class ApplicationCommandsTest : public testing::Test {
protected:
    ApplicationCommands::Operations operations() {
        const auto note = [this](const char* name) {
            return [this, name] { done.emplace_back(name); };
        };
        return {.help = note("help"),
                .shortcuts = note("shortcuts"),
                .copyDiagnostics = note("diagnostics"),
                .about = note("about"),
                .preferences = note("preferences"),
                .soundSettings = note("sound settings"),
                .quit = note("quit"),
                .reducesMotion = [this] { return reducesMotion; },
                .setReducesMotion = [this](bool reduces) { reducesMotion = reduces; }};
    }
    void activate(QWidget& window) {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    Lines done;
    bool reducesMotion = false;
    ApplicationCommands commands{operations()};
};

TEST_F(ApplicationCommandsTest, EachCallsItsOperation) {
    const struct {
        MenuCommand command;
        const char* operation;
    } kCases[] = {{help, "help"},   {shortcuts, "shortcuts"},     {copyDiagnostics, "diagnostics"},
                  {about, "about"}, {preferences, "preferences"}, {soundSettings, "sound settings"},
                  {quit, "quit"},   {closeWindow, "quit"}}; // the tuner window is the program's
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.operation);
        const auto state = commands.commandState(c.command);
        ASSERT_TRUE(state);
        EXPECT_TRUE(state->isEnabled);
        EXPECT_FALSE(state->isChecked);
        commands.perform(c.command);
        EXPECT_EQ(std::exchange(done, {}), Lines{c.operation});
    }
}

TEST_F(ApplicationCommandsTest, AnOperationThatIsNotThereIsNoCommand) {
    const ApplicationCommands none({});
    for (const MenuCommand command : {help, shortcuts, copyDiagnostics, about, preferences,
                                      soundSettings, quit, closeWindow, reduceMotion})
        EXPECT_FALSE(none.commandState(command)) << int(command);
}

TEST_F(ApplicationCommandsTest, ReduceMotionIsAMarkThatTurns) {
    for (const bool reduces : {true, false, true}) {
        EXPECT_EQ(commands.commandState(reduceMotion)->isChecked, !reduces);
        commands.perform(reduceMotion);
        EXPECT_EQ(reducesMotion, reduces);
    }
    EXPECT_TRUE(done.empty());
}

TEST_F(ApplicationCommandsTest, TheRestIsTheTuners) {
    EXPECT_FALSE(commands.commandState(noteUp)) << "there is no tuner yet";
    commands.perform(noteUp);
    AnsweringTuner tuner;
    commands.setTuner(&tuner);
    EXPECT_EQ(commands.commandState(noteUp)->title, "the tuner's");
    EXPECT_FALSE(commands.commandState(noteUp)->isEnabled);
    EXPECT_FALSE(commands.commandState(save));
    commands.perform(noteUp);
    EXPECT_EQ(tuner.performed, std::vector<MenuCommand>{noteUp});
    EXPECT_TRUE(done.empty());
}

TEST_F(ApplicationCommandsTest, FullScreenIsTheActiveWindows) {
    QMainWindow idle, active;
    idle.show();
    activate(active);
    EXPECT_TRUE(commands.commandState(fullScreen)->isEnabled);
    for (const bool isFull : {true, false}) {
        EXPECT_EQ(commands.commandState(fullScreen)->isChecked, !isFull);
        commands.perform(fullScreen);
        EXPECT_EQ(active.isFullScreen(), isFull);
        EXPECT_FALSE(idle.isFullScreen());
    }
}

TEST_F(ApplicationCommandsTest, AMaximisedWindowIsMaximisedAgainAfterFullScreen) {
    QMainWindow window;
    window.showMaximized();
    activate(window);
    commands.perform(fullScreen);
    commands.perform(fullScreen);
    EXPECT_TRUE(window.isMaximized());
    EXPECT_FALSE(window.isFullScreen());
}

TEST_F(ApplicationCommandsTest, MinimiseIsTheActiveWindows) {
    QMainWindow idle, active;
    idle.show();
    activate(active);
    EXPECT_TRUE(commands.commandState(minimise)->isEnabled);
    EXPECT_FALSE(commands.commandState(minimise)->isChecked);
    commands.perform(minimise);
    EXPECT_TRUE(active.isMinimized());
    EXPECT_FALSE(idle.isMinimized());
}

TEST_F(ApplicationCommandsTest, WithoutAnActiveWindowTheresNothingToMinimiseOrFill) {
    ASSERT_EQ(QApplication::activeWindow(), nullptr);
    for (const MenuCommand command : {minimise, fullScreen})
        EXPECT_FALSE(commands.commandState(command)->isEnabled);
}

TEST(PanelCommandsTest, AllAPanelKnowsIsToClose) {
    QWidget panel;
    panel.show();
    PanelCommands commands(panel);
    for (const MenuTable& table : menuTables()) {
        for (const MenuItem& item : table.items) {
            const bool isClose = item.command == closeWindow && item.text;
            if (item.text && item.list == MenuList::none) {
                EXPECT_EQ(commands.commandState(item.command).has_value(), isClose) << item.text;
            }
        }
    }
    commands.perform(closeWindow);
    EXPECT_FALSE(panel.isVisible());
}

} // namespace
} // namespace veltrano
