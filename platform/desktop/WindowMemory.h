// SPDX-License-Identifier: GPL-3.0-or-later
// Where the user left the windows.
#pragma once

#include <string_view>

class QWidget;

namespace veltrano {

class UserDefaults;

/// Keeps place, size and state of windows in the user defaults, each under a name. Thread: main.
/// A window that would be off every screen is brought back onto one, and fits it. Wayland tells no
/// places, so there only sizes come back.
class WindowMemory {
public:
    /// @param defaults outlives this; written to the file with everything else in it
    explicit WindowMemory(UserDefaults& defaults) : mDefaults(defaults) {}

    /// False, and nothing is changed, when nothing useful is stored.
    bool restore(std::string_view name, QWidget& window) const;
    void keep(std::string_view name, const QWidget& window);

    /// The size alone, for one of several windows of a kind.
    void restoreSize(std::string_view name, QWidget& window) const;
    void keepSize(std::string_view name, const QWidget& window);

private:
    UserDefaults& mDefaults;
};

} // namespace veltrano
