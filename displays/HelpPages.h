// SPDX-License-Identifier: GPL-3.0-or-later
// Where the pages of the manual are.
#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <QUrl>

namespace veltrano {

/// The manual as files: one folder of pages per language beside one folder of pictures. The first
/// page, index.html, links to all others in their order. Thread: any.
class HelpPages {
public:
    /// @param folder of the languages; need not exist
    HelpPages(const QString& folder, const QLocale& locale);

    /// "de" for a user who prefers German to English, otherwise "en".
    static QString languageFor(const QLocale& locale);

    bool isThere() const;      ///< whether the first page is
    QString folder() const;    ///< of the pages in that language
    QUrl contents() const;     ///< the first page
    QUrl keys() const;         ///< the page that lists all keys
    QList<QUrl> pages() const; ///< all, the first page first; read anew each time

private:
    const QString mFolder;
};

/// The pages and anchors that the links of an HTML page lead to, in their order.
QStringList linksOf(const QString& html);

} // namespace veltrano
