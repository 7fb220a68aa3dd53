// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/HeadlessDesk.h"

namespace veltrano {

HeadlessDesk::HeadlessDesk(const TunerOptions& options, const TuningEntries& entries, Log& log)
    : mPanels(complain), mLibraries(entries, log),
      mPreferences({mDefaults, mNotifications, mLibraries.temperaments(), mLibraries.stretches()}),
      mServices{log, mPasteboard, mPanels} {
    options.applyTo(mPreferences);
    mLibraries.chooseIn(mPreferences);
}

} // namespace veltrano
