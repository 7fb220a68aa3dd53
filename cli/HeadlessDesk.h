// SPDX-License-Identifier: GPL-3.0-or-later
// What a document needs where there is no desktop.
#pragma once

#include "cli/Output.h"
#include "cli/SingleFileLibraries.h"
#include "cli/TunerOptions.h"
#include "platform/desktop/UnattendedPanels.h"
#include "platform/foundation/NotificationCenter.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"
#include "tuning/MVStretchDocument.h"
#include "tuning/MVTemperamentDocument.h"

#include <string>

namespace veltrano {

/// Settings of a first run with the files of a command line chosen; panels that answer as nobody
/// does and say on standard error what they would show. Nothing is stored. Thread: main.
class HeadlessDesk {
public:
    /// @param log outlives this
    HeadlessDesk(const TunerOptions& options, const TuningEntries& entries, Log& log);

    const Preferences& preferences() const { return mPreferences; }
    MVTemperamentDocument::Ports temperamentPorts() {
        return {mServices, mNotifications, mPreferences};
    }
    MVStretchDocument::Ports stretchPorts() { return {mServices, mNotifications}; }

private:
    /// Nobody pastes here.
    class NoPasteboard final : public Pasteboard {
    public:
        void write(std::string_view, std::string_view) override {}
        std::optional<std::string> read(std::string_view) const override { return std::nullopt; }
    };

    UserDefaults mDefaults = UserDefaults::inMemory();
    NotificationCenter mNotifications;
    NoPasteboard mPasteboard;
    UnattendedPanels mPanels;
    SingleFileLibraries mLibraries;
    Preferences mPreferences;
    const DocumentServices mServices;
};

/// Saves a copy of @p document by its own means. False: refused or failed, told on standard error.
/// @param path whole
template <class TuningKind>
bool saveCopy(TuningKind& document, const std::string& path) {
    if (!document.readsBack(document.data())) {
        complain(path + ": not written, because its values or texts would not read back.");
        return false;
    }
    return document.saveToFile(path, Document::SaveOperation::saveTo);
}

} // namespace veltrano
