// SPDX-License-Identifier: GPL-3.0-or-later
// What is undone and redone, and in which portions.
#include "platform/desktop/EditHistory.h"

#include <gtest/gtest.h>
#include <string>

namespace veltrano {
namespace {

/// A history that writes into a text: "-a" a was undone, "+a" it was redone.
class EditHistoryTest : public testing::Test {
protected:
    void push(const std::string& name, int run = 0) {
        history.push({name, [this, name] { written += "-" + name; },
                      [this, name] { written += "+" + name; }, run});
    }
    /// What the last calls wrote.
    std::string take() { return std::exchange(written, {}); }

    EditHistory history;
    std::string written;
};

TEST_F(EditHistoryTest, AnEmptyOneDoesNothing) {
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.undoName(), "");
    EXPECT_EQ(history.redoName(), "");
    EXPECT_EQ(history.undo(), 0);
    EXPECT_EQ(history.redo(), 0);
}

TEST_F(EditHistoryTest, GoesBackAndForthStepByStep) {
    push("a");
    push("b");
    EXPECT_EQ(take(), "") << "the change has been made already";
    EXPECT_EQ(history.undoName(), "b");
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(take(), "-b");
    EXPECT_EQ(history.undoName(), "a");
    EXPECT_EQ(history.redoName(), "b");
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(history.undo(), 0);
    EXPECT_EQ(take(), "-a");
    EXPECT_EQ(history.redoName(), "a");
    EXPECT_EQ(history.redo(), 1);
    EXPECT_EQ(history.redo(), 1);
    EXPECT_EQ(history.redo(), 0);
    EXPECT_EQ(take(), "+a+b");
}

TEST_F(EditHistoryTest, ANewStepDropsThoseUndone) {
    push("a");
    push("b");
    history.undo();
    push("c");
    EXPECT_FALSE(history.canRedo());
    take();
    history.undo();
    history.undo();
    EXPECT_EQ(take(), "-c-a");
    history.redo();
    history.redo();
    EXPECT_EQ(take(), "+a+c");
}

TEST_F(EditHistoryTest, ARunGoesTogether) {
    push("a");
    push("h", 1);
    push("i", 1);
    push("x", 2); // another run
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(take(), "-x");
    EXPECT_EQ(history.undo(), 2);
    EXPECT_EQ(take(), "-i-h");
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(take(), "-a");
    EXPECT_EQ(history.redo(), 1);
    EXPECT_EQ(history.redo(), 2);
    EXPECT_EQ(take(), "+a+h+i");
    EXPECT_EQ(history.redo(), 1);
    EXPECT_EQ(take(), "+x");
}

TEST_F(EditHistoryTest, StepsThatStandAloneAreNoRun) {
    push("a");
    push("b");
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(history.undo(), 1);
}

TEST_F(EditHistoryTest, ARunThatWasInterruptedIsTwo) {
    push("h", 1);
    push("cut");
    push("i", 1);
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(take(), "-i-cut-h");
}

TEST_F(EditHistoryTest, ClearingForgetsBothWays) {
    push("a");
    push("b");
    history.undo();
    history.clear();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(history.undo() + history.redo(), 0);
}

TEST(EditHistoryReplay, WhatAStepCausesIsPartOfIt) {
    EditHistory history;
    int undone = 0;
    const EditStep caused{"Caused", [] {}, [] {}, 0};
    history.push({"First",
                  [&] {
                      EXPECT_TRUE(history.isReplaying());
                      history.push(caused);
                      ++undone;
                  },
                  [&] { history.push(caused); }, 0});
    EXPECT_EQ(history.undo(), 1);
    EXPECT_EQ(undone, 1);
    EXPECT_EQ(history.redoName(), "First");
    EXPECT_EQ(history.redo(), 1);
    EXPECT_EQ(history.undoName(), "First");
    EXPECT_FALSE(history.canRedo());
    EXPECT_FALSE(history.isReplaying());
}

} // namespace
} // namespace veltrano
