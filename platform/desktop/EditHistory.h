// SPDX-License-Identifier: GPL-3.0-or-later
// What can be undone and redone.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace veltrano {

/// One change of a document and its reverse.
struct EditStep {
    std::string name; ///< as a menu says it after "Undo", such as "Paste"
    std::function<void()> undo;
    std::function<void()> redo;
    /// Steps of one run (letters typed into one field) are undone and redone together; 0: alone.
    int run = 0;
};

/// The steps done and undone, in order. A new step drops those undone. Thread: main.
class EditHistory {
public:
    /// The change has been made already. What a step that is being undone or redone causes is part
    /// of it and dropped.
    void push(EditStep step);
    bool isReplaying() const { return mIsReplaying; } ///< a step is being undone or redone
    bool canUndo() const { return mDone > 0; }
    bool canRedo() const { return mDone < mSteps.size(); }
    std::string undoName() const; ///< empty: nothing to undo
    std::string redoName() const;
    /// Undoes the last step, or the whole run that it ends. @return the number of steps undone
    int undo();
    int redo();
    void clear();

private:
    std::vector<EditStep> mSteps;
    std::size_t mDone = 0;
    bool mIsReplaying = false;
};

} // namespace veltrano
