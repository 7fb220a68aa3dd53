// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/HelpPages.h"

#include <QFile>
#include <QRegularExpression>

namespace veltrano {

namespace {

const QString kFirstPage = QStringLiteral("/index.html");

QString textOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

bool isLanguage(const QString& tag, QLatin1String language) {
    return tag == language || tag.startsWith(language + QLatin1Char('-'));
}

} // namespace

HelpPages::HelpPages(const QString& folder, const QLocale& locale)
    : mFolder(folder + u'/' + languageFor(locale)) {}

QString HelpPages::languageFor(const QLocale& locale) {
    // The languages of the desktop's texts; that of its numbers may be another one.
    for (const QString& tag : locale.uiLanguages()) {
        if (isLanguage(tag, QLatin1String("de"))) return QStringLiteral("de");
        if (isLanguage(tag, QLatin1String("en"))) break;
    }
    return QStringLiteral("en");
}

bool HelpPages::isThere() const { return QFile::exists(mFolder + kFirstPage); }

QString HelpPages::folder() const { return mFolder; }

QUrl HelpPages::keys() const { return QUrl::fromLocalFile(mFolder + QStringLiteral("/keys.html")); }

QUrl HelpPages::contents() const { return QUrl::fromLocalFile(mFolder + kFirstPage); }

QList<QUrl> HelpPages::pages() const {
    QList<QUrl> pages{contents()};
    for (const QString& link : linksOf(textOf(mFolder + kFirstPage))) {
        const QUrl page = contents().resolved(QUrl(link)).adjusted(QUrl::RemoveFragment);
        if (page.isLocalFile() && !pages.contains(page)) pages.append(page);
    }
    return pages;
}

QStringList linksOf(const QString& html) {
    static const QRegularExpression link(QStringLiteral("<a\\s[^>]*href=\"([^\"]*)\""));
    QStringList links;
    for (auto found = link.globalMatch(html); found.hasNext();)
        links.append(found.next().captured(1));
    return links;
}

} // namespace veltrano
