// SPDX-License-Identifier: GPL-3.0-or-later
// The languages of the application.
#pragma once

class QLocale;

namespace veltrano {

/// From now on texts are shown in the first language of @p locale that there is a translation for,
/// Qt's own dialogs too; English otherwise. Numbers and the texts of the tuner stay as they are.
/// Thread: main, with a QCoreApplication, before any window is made.
/// @return whether there is a translation
bool installTranslations(const QLocale& locale);

} // namespace veltrano
