// SPDX-License-Identifier: GPL-3.0-or-later
// Light or dark.
#pragma once

#include <QColor>
#include <QPalette>
#include <QStringView>
#include <optional>

namespace veltrano {

enum class AppearanceChoice { system, light, dark };

/// Whether the application is shown in light or dark colours, decided by the lightness of its
/// window colour, so that it follows the desktop. Thread: main.
///
/// A change reaches every widget in the next turn of the event loop as an ordinary palette change,
/// upon which it paints itself again and asks anew.
class Appearance {
public:
    static bool isDark();                        ///< the application's palette
    static bool isDark(const QPalette& palette); ///< the window colour is darker than mid grey

    /// The palette of a choice; of the system's choice, the one that the desktop gives.
    static QPalette palette(AppearanceChoice choice);
    /// Puts the whole application into that palette.
    static void choose(AppearanceChoice choice);
    /// The same for a desktop that wants it light or dark; its own palette is taken when that is so
    /// already.
    static void chooseLike(AppearanceChoice wanted);
    /// "system", "light" or "dark".
    static std::optional<AppearanceChoice> choiceNamed(QStringView name);

    /// @p share of @p over laid on @p under. @param share 0 ... 1
    static QColor mixed(const QColor& over, const QColor& under, float share);
    /// For captions: less weight than the text, with a contrast of at least 4.5 : 1 on the palettes
    /// above.
    static QColor captionColor(const QPalette& palette);
    /// For the outlines of panels.
    static QColor hairlineColor(const QPalette& palette);
};

} // namespace veltrano
