// SPDX-License-Identifier: GPL-3.0-or-later
// The manual names every key of the menus, every bare key of the tuner window and every option, and
// calls the items of the menus as the menus do.
#include "app/ApplicationMenu.h"
#include "app/LaunchOptions.h"
#include "engine/KeyDownTable.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QMainWindow>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

/// The keys that the page "All keys" names, as keyboards of that language have them.
QStringList keysOfManual(const char* language) {
    QFile file(QStringLiteral(VELTRANO_SOURCE_RESOURCES "/help/%1/keys.html").arg(language));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(file.readAll());
    static const QRegularExpression key(QStringLiteral("<span class=\"key\">([^<]+)</span>"));
    QStringList keys;
    for (auto found = key.globalMatch(html); found.hasNext();)
        keys.append(found.next().captured(1));
    return keys;
}

QString inGerman(QString key) {
    const std::pair<const char*, const char*> kNames[] = {
        {"Ctrl", "Strg"},  {"Shift", "Umschalt"}, {"Space", "Leertaste"}, {"Right", "Rechts"},
        {"Left", "Links"}, {"Up", "Hoch"},        {"Down", "Runter"}};
    for (const auto& [english, german] : kNames) {
        const QRegularExpression word(QStringLiteral("\\b%1\\b").arg(QLatin1String(english)));
        key.replace(word, QLatin1String(german));
    }
    return key;
}

QStringList keysOfMenus() {
    QMainWindow window;
    new ApplicationMenu(window, {}, {});
    QStringList keys;
    for (const QAction* action : window.menuBar()->findChildren<QAction*>()) {
        for (const QKeySequence& key : action->shortcuts())
            keys.append(key.toString(QKeySequence::PortableText));
    }
    // The key of every Linux desktop for Close, where the tests run without a desktop.
    return keys;
}

QStringList bareKeys() {
    const std::pair<NamedKey, const char*> kNamed[] = {
        {NamedKey::rightArrow, "Right"}, {NamedKey::leftArrow, "Left"},
        {NamedKey::upArrow, "Up"},       {NamedKey::downArrow, "Down"},
        {NamedKey::tab, "Tab"},          {NamedKey::keypadEnter, "Enter"}};
    QStringList keys;
    for (const auto& [key, name] : kNamed) {
        if (actionOfKey(key)) keys.append(QLatin1String(name));
    }
    for (char32_t character = U' '; character <= U'~'; ++character) {
        if (!actionOfCharacter(character)) continue;
        const QString name{QChar(static_cast<char16_t>(character))};
        keys.append(name == u" " ? QStringLiteral("Space") : name.toUpper());
    }
    return keys;
}

TEST(ManualKeys, EveryKeyIsListedInBothLanguages) {
    const QStringList english = keysOfManual("en");
    const QStringList german = keysOfManual("de");
    const QStringList menus = keysOfMenus();
    const QStringList bare = bareKeys();
    EXPECT_GE(menus.size(), 20);
    EXPECT_GE(bare.size(), 14);
    for (const QString& key : menus + bare) {
        EXPECT_TRUE(english.contains(key)) << key.toStdString();
        EXPECT_TRUE(german.contains(inGerman(key))) << inGerman(key).toStdString();
    }
}

/// "View > Reduce Motion" and so on, in the order of pages and places.
QList<QStringList> itemsInManual(const char* language) {
    const QDir folder(QStringLiteral(VELTRANO_SOURCE_RESOURCES "/help/") + QLatin1String(language));
    static const QRegularExpression italic(QStringLiteral("<i>([^<]+)</i>"));
    QList<QStringList> items;
    for (const QString& page : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(page));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(file.readAll());
        for (auto found = italic.globalMatch(html); found.hasNext();)
            items.append(found.next().captured(1).split(QStringLiteral(" &gt; ")));
    }
    return items;
}

QString withoutMnemonic(QString text) { return text.remove(u'&'); }

TEST(ManualMenus, EveryItemThatIsNamedIsInItsMenu) {
    QMainWindow window;
    new ApplicationMenu(window, {}, {});
    QSet<QStringList> items;
    for (const QAction* title : window.menuBar()->actions()) {
        for (const QAction* action : title->menu()->actions())
            items.insert({withoutMnemonic(title->text()), withoutMnemonic(action->text())});
    }
    const QList<QStringList> named = itemsInManual("en");
    EXPECT_GE(named.size(), 20);
    for (const QStringList& item : named)
        EXPECT_TRUE(items.contains(item)) << item.join(u'>').toStdString();
}

/// The finished translations of the menus; empty without their file.
QHash<QString, QString> germanMenus() {
    QFile file(QStringLiteral(VELTRANO_SOURCE_RESOURCES "/translations/veltrano_de.ts"));
    QHash<QString, QString> texts;
    if (!file.open(QIODevice::ReadOnly)) return texts;
    QXmlStreamReader xml(&file);
    QString context, source;
    while (xml.readNextStartElement() || !xml.atEnd()) {
        if (!xml.isStartElement()) continue;
        if (xml.name() == u"name") context = xml.readElementText();
        if (xml.name() == u"source") source = withoutMnemonic(xml.readElementText());
        if (xml.name() != u"translation") continue;
        const QString text = withoutMnemonic(xml.readElementText());
        if (context == u"Menu" && !text.isEmpty()) texts.insert(source, text);
    }
    return texts;
}

TEST(ManualMenus, TheGermanPagesCallThemAsTheGermanMenusDo) {
    const QHash<QString, QString> german = germanMenus();
    if (german.isEmpty()) GTEST_SKIP() << "the menus are not translated yet";
    const QList<QStringList> english = itemsInManual("en");
    const QList<QStringList> named = itemsInManual("de");
    ASSERT_EQ(named.size(), english.size());
    for (qsizetype number = 0; number < named.size(); ++number) {
        QStringList expected = english[number];
        for (QString& part : expected)
            part = german.value(part, part);
        EXPECT_EQ(named[number], expected) << expected.join(u'>').toStdString();
    }
}

/// veltrano(1) with its hyphens as they are printed.
QString manualPage() {
    QFile file(QStringLiteral(VELTRANO_SOURCE_RESOURCES "/../packaging/man/veltrano.1"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll()).replace(QLatin1String("\\-"), QLatin1String("-"));
}

QSet<QString> optionsIn(const QString& text) {
    static const QRegularExpression option(QStringLiteral("(?<![a-z])--[a-z][a-z-]*"));
    QSet<QString> options;
    for (auto found = option.globalMatch(text); found.hasNext();)
        options.insert(found.next().captured());
    return options;
}

/// The words in bold at the head of an entry.
QStringList boldWords(const QString& page) {
    static const QRegularExpression between(QStringLiteral("\"[^\"]*\""));
    QStringList words;
    for (QString line : page.split(u'\n')) {
        if (line.startsWith(QLatin1String(".B"))) words += line.replace(between, " ").split(u' ');
    }
    return words;
}

TEST(ManualPage, NamesEveryKey) {
    const QStringList named = boldWords(manualPage());
    for (const QString& key : keysOfMenus() + bareKeys())
        EXPECT_TRUE(named.contains(key)) << key.toStdString();
}

TEST(ManualPage, NamesExactlyTheOptionsThatTheProgramHas) {
    const Launch launch = readLaunch({QStringLiteral("veltrano"), QStringLiteral("--help")});
    const QString page = manualPage();
    const auto from = page.indexOf(QLatin1String(".SH OPTIONS"));
    const QString options = page.mid(from, page.indexOf(QLatin1String("\n.SH "), from + 1) - from);
    EXPECT_EQ(optionsIn(options), optionsIn(QString::fromStdString(launch.output)));
    const QString html = [] {
        QFile file(QStringLiteral(VELTRANO_SOURCE_RESOURCES "/help/en/command-line.html"));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        return text.left(text.indexOf(QLatin1String("<a name=\"cli\">")));
    }();
    EXPECT_EQ(optionsIn(html), optionsIn(QString::fromStdString(launch.output)));
}

} // namespace
} // namespace veltrano
