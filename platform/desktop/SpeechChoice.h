// SPDX-License-Identifier: GPL-3.0-or-later
// Which engine and which language speak.
#pragma once

#include <QList>
#include <QLocale>
#include <QStringList>

namespace veltrano::speech_choice {

/// The service of the desktop where there is one, else the first that works. Flite's does not: in
/// Qt 6.4 it is silent for many a text, and crashes when it is stopped.
/// @param installed in any order
/// @returns an empty name when none is left
QString engine(QStringList installed);

/// All texts are English: the language in use when it is English already, else the American one,
/// else any English one, else the language in use.
/// @param available in any order
QLocale language(const QLocale& inUse, const QList<QLocale>& available);

} // namespace veltrano::speech_choice
