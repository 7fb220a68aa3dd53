// SPDX-License-Identifier: GPL-3.0-or-later
// What can be undone and redone.
#include "platform/desktop/EditHistory.h"

#include <utility>

namespace veltrano {

void EditHistory::push(EditStep step) {
    if (mIsReplaying) return;
    mSteps.resize(mDone);
    mSteps.push_back(std::move(step));
    ++mDone;
}

std::string EditHistory::undoName() const { return canUndo() ? mSteps[mDone - 1].name : ""; }

std::string EditHistory::redoName() const { return canRedo() ? mSteps[mDone].name : ""; }

int EditHistory::undo() {
    if (!canUndo()) return 0;
    const int run = mSteps[mDone - 1].run;
    int count = 0;
    mIsReplaying = true;
    do {
        --mDone;
        ++count;
        mSteps[mDone].undo();
    } while (run != 0 && canUndo() && mSteps[mDone - 1].run == run);
    mIsReplaying = false;
    return count;
}

int EditHistory::redo() {
    if (!canRedo()) return 0;
    const int run = mSteps[mDone].run;
    int count = 0;
    mIsReplaying = true;
    do {
        mSteps[mDone].redo();
        ++mDone;
        ++count;
    } while (run != 0 && canRedo() && mSteps[mDone].run == run);
    mIsReplaying = false;
    return count;
}

void EditHistory::clear() {
    mSteps.clear();
    mDone = 0;
}

} // namespace veltrano
