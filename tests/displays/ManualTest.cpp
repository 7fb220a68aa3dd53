// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the manual: links, anchors, pictures, both languages alike.
#include "displays/HelpPages.h"
#include "platform/desktop/ResourceFolder.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

QString helpFolder() { return ResourceFolder::find().path() + QStringLiteral("/help"); }
const QStringList kLanguages{QStringLiteral("en"), QStringLiteral("de")};

QStringList pagesIn(const QString& language) {
    return QDir(helpFolder() + u'/' + language)
        .entryList({QStringLiteral("*")}, QDir::Files, QDir::Name);
}

QString pageText(const QString& language, const QString& page) {
    QFile file(helpFolder() + u'/' + language + u'/' + page);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    return QString::fromUtf8(file.readAll());
}

/// What the first group of @p pattern takes, place after place.
QStringList taken(const QString& text, const char* pattern) {
    const QRegularExpression expression(QLatin1String{pattern});
    QStringList all;
    for (auto found = expression.globalMatch(text); found.hasNext();)
        all.append(found.next().captured(1));
    return all;
}

QStringList anchorsOf(const QString& html) { return taken(html, "<a name=\"([^\"]+)\">"); }

template <typename Check>
void forEachPage(Check&& check) {
    for (const QString& language : kLanguages) {
        for (const QString& page : pagesIn(language)) {
            SCOPED_TRACE((language + u'/' + page).toStdString());
            check(language, page, pageText(language, page));
        }
    }
}

TEST(Manual, EveryLinkLeadsToAPageAndItsAnchor) {
    int links = 0;
    forEachPage([&links](const QString& language, const QString& page, const QString& html) {
        for (const QString& link : linksOf(html)) {
            ++links;
            const QString target = link.section(u'#', 0, 0);
            const QString file = target.isEmpty() ? page : target;
            ASSERT_TRUE(pagesIn(language).contains(file)) << link.toStdString();
            if (!link.contains(u'#')) continue;
            EXPECT_TRUE(anchorsOf(pageText(language, file)).contains(link.section(u'#', 1)))
                << link.toStdString();
        }
    });
    EXPECT_GT(links, 100);
}

TEST(Manual, EveryPictureIsThereInAllItsVariantsAndIsDescribed) {
    int pictures = 0;
    forEachPage([&pictures](const QString& language, const QString&, const QString& html) {
        for (const QString& tag : taken(html, "(<img[^>]*>)")) {
            ++pictures;
            const QString source = taken(tag, "src=\"([^\"]+)\"").value(0);
            ASSERT_TRUE(source.endsWith(QLatin1String(".png"))) << tag.toStdString();
            const QString stem = helpFolder() + u'/' + language + u'/' + source.chopped(4);
            for (const char* variant : {".png", "-dark.png", "-2x.png", "-dark-2x.png"}) {
                EXPECT_TRUE(QFile::exists(stem + QLatin1String(variant)))
                    << source.toStdString() << variant;
            }
            EXPECT_GT(taken(tag, "alt=\"([^\"]+)\"").value(0).size(), 60) << tag.toStdString();
        }
    });
    EXPECT_GE(pictures, 12);
}

TEST(Manual, EveryPictureIsShownSomewhere) {
    QStringList shown;
    forEachPage([&shown](const QString&, const QString&, const QString& html) {
        shown += taken(html, "src=\"../pictures/([^\"]+)\\.png\"");
    });
    for (QString name : QDir(helpFolder() + QStringLiteral("/pictures")).entryList(QDir::Files)) {
        name.chop(4);
        for (const char* suffix : {"-2x", "-dark"}) {
            if (name.endsWith(QLatin1String(suffix))) name.chop(qsizetype(strlen(suffix)));
        }
        EXPECT_TRUE(shown.contains(name)) << name.toStdString();
    }
}

TEST(Manual, BothLanguagesHaveTheSamePagesAnchorsPicturesAndTables) {
    ASSERT_EQ(pagesIn("en"), pagesIn("de"));
    for (const QString& page : pagesIn("en")) {
        SCOPED_TRACE(page.toStdString());
        const QString english = pageText("en", page);
        const QString german = pageText("de", page);
        EXPECT_EQ(anchorsOf(english), anchorsOf(german));
        EXPECT_EQ(linksOf(english), linksOf(german));
        for (const char* tag : {"(<img )", "(<tr>)", "(<li>)", "(<p)", "(<h2>)", "(<pre>)"}) {
            EXPECT_EQ(taken(english, tag), taken(german, tag)) << tag;
        }
        EXPECT_EQ(taken(english, "src=\"([^\"]+)\""), taken(german, "src=\"([^\"]+)\""));
        EXPECT_NE(english, german);
        EXPECT_TRUE(german.contains(QLatin1String("<html lang=\"de\">")));
    }
}

TEST(Manual, TheFirstPageLinksToAllOthersInTheOrderThatTheyFollowEachOther) {
    for (const QString& language : kLanguages) {
        SCOPED_TRACE(language.toStdString());
        const HelpPages manual(helpFolder(), QLocale(language));
        QStringList order;
        for (const QUrl& page : manual.pages())
            order.append(page.fileName());
        QStringList sorted = order;
        sorted.sort();
        EXPECT_EQ(sorted, pagesIn(language));
        for (qsizetype number = 1; number < order.size(); ++number) {
            SCOPED_TRACE(order[number].toStdString());
            QStringList expected{QStringLiteral("index.html")};
            if (number > 1) expected.prepend(order[number - 1]);
            if (number + 1 < order.size()) expected.append(order[number + 1]);
            const QString html = pageText(language, order[number]);
            EXPECT_EQ(linksOf(html.mid(html.indexOf(QLatin1String("class=\"nav\"")))), expected);
        }
    }
}

TEST(Manual, EveryPageIsNamedAsItsHeadingAndSetsNoColorsOrFonts) {
    forEachPage([](const QString&, const QString&, const QString& html) {
        const QString title = taken(html, "<title>([^<]+)</title>").value(0);
        EXPECT_FALSE(title.isEmpty());
        EXPECT_EQ(taken(html, "<h1>([^<]+)</h1>"), QStringList{title});
        EXPECT_TRUE(taken(html, "(<font|<style|color|style=|font-size)").isEmpty());
    });
}

TEST(HelpPages, TheLanguageIsThatOfTheDesktopsTexts) {
    const struct {
        const char* locale;
        const char* language;
    } kCases[] = {{"de_DE", "de"}, {"de_AT", "de"}, {"de_CH", "de"}, {"en_GB", "en"},
                  {"fr_FR", "en"}, {"C", "en"},     {"da_DK", "en"}};
    for (const auto& c : kCases) {
        EXPECT_EQ(HelpPages::languageFor(QLocale(c.locale)), c.language) << c.locale;
    }
}

} // namespace
} // namespace veltrano
