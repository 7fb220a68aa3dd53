// SPDX-License-Identifier: GPL-3.0-or-later
// The manual's list of keys names every key of the menus, and every bare key of the tuner window.
#include "app/ApplicationMenu.h"
#include "engine/KeyDownTable.h"

#include <QAction>
#include <QFile>
#include <QMainWindow>
#include <QMenuBar>
#include <QRegularExpression>
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
    keys.replaceInStrings(QStringLiteral("Ctrl+F4"), QStringLiteral("Ctrl+W"));
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

} // namespace
} // namespace veltrano
