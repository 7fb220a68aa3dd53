// SPDX-License-Identifier: GPL-3.0-or-later
// The languages of the application.
#include "app/Translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

/// The translations are linked in with a static library.
static void initialiseResources() { Q_INIT_RESOURCE(translations); }

namespace veltrano {

bool installTranslations(const QLocale& locale) {
    initialiseResources();
    auto* own = new QTranslator(QCoreApplication::instance());
    const bool isTranslated = own->load(locale, QStringLiteral("veltrano"), QStringLiteral("_"),
                                        QStringLiteral(":/translations"));
    if (!isTranslated) { // Qt's dialogs in another language than ours would be a muddle
        delete own;
        return false;
    }
    QCoreApplication::installTranslator(own);
    auto* qt = new QTranslator(QCoreApplication::instance());
    if (qt->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                 QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(qt);
    }
    return true;
}

} // namespace veltrano
