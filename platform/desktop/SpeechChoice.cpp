// SPDX-License-Identifier: GPL-3.0-or-later
// Which engine and which language speak.
#include "platform/desktop/SpeechChoice.h"

namespace veltrano::speech_choice {

QString engine(QStringList installed) {
    installed.removeAll(QStringLiteral("flite"));
    const QString service = QStringLiteral("speechd");
    return installed.contains(service) ? service : installed.value(0);
}

QLocale language(const QLocale& inUse, const QList<QLocale>& available) {
    if (inUse.language() == QLocale::English) return inUse;
    QLocale choice = inUse;
    for (const QLocale& locale : available) {
        if (locale.language() != QLocale::English) continue;
        choice = locale;
        if (locale.territory() == QLocale::UnitedStates) break;
    }
    return choice;
}

} // namespace veltrano::speech_choice
