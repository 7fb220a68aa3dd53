// SPDX-License-Identifier: GPL-3.0-or-later
// Windows come back where the user left them.
#include "platform/desktop/WindowMemory.h"

#include "platform/foundation/UserDefaults.h"

#include <QApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

constexpr QRect kPlace(70, 90, 300, 200);
constexpr const char* kKey = "veltrano.window.tuner";

class WindowMemoryTest : public testing::Test {
protected:
    /// What is stored of a window that was left at @p place.
    std::string leftAt(const QRect& place) {
        QWidget left;
        left.setGeometry(place);
        left.show();
        memory.keep("tuner", left);
        return defaults.stringForKey(kKey).value_or("");
    }
    bool isOnScreen(const QWidget& window) {
        return window.screen()->availableGeometry().contains(window.frameGeometry());
    }

    UserDefaults defaults = UserDefaults::inMemory();
    WindowMemory memory{defaults};
    QWidget window;
};

TEST_F(WindowMemoryTest, PlaceAndSizeComeBackInTheNextRun) {
    const QTemporaryDir folder;
    const QString path = folder.filePath("settings.ini");
    {
        UserDefaults file(path);
        window.setGeometry(kPlace);
        WindowMemory(file).keep("tuner", window);
        EXPECT_TRUE(file.synchronize());
    }
    UserDefaults file(path);
    QWidget next;
    EXPECT_TRUE(WindowMemory(file).restore("tuner", next));
    next.show();
    EXPECT_EQ(next.geometry(), kPlace);
    EXPECT_FALSE(next.isMaximized());
}

TEST_F(WindowMemoryTest, EachWindowHasItsOwnPlace) {
    leftAt(kPlace);
    QWidget help;
    help.setGeometry(10, 20, 400, 300);
    memory.keep("help", help);
    EXPECT_TRUE(memory.restore("tuner", window));
    EXPECT_EQ(window.geometry(), kPlace);
    EXPECT_TRUE(memory.restore("help", window));
    EXPECT_EQ(window.geometry(), help.geometry());
}

TEST_F(WindowMemoryTest, AMaximisedWindowIsMaximisedOverTheSizeItHadBefore) {
    QWidget left;
    left.setGeometry(kPlace);
    left.showMaximized();
    QApplication::processEvents();
    memory.keep("tuner", left);
    EXPECT_TRUE(memory.restore("tuner", window));
    window.show();
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(window.normalGeometry().size(), kPlace.size());
}

TEST_F(WindowMemoryTest, OneThatWouldBeOffEveryScreenIsBroughtBack) {
    const QRect screen = window.screen()->availableGeometry();
    const struct {
        const char* name;
        QPoint place;
    } kCases[] = {{"a screen to the right is gone", {screen.right() + 500, 90}},
                  {"a screen to the left is gone", {screen.left() - 1800, 90}},
                  {"above", {70, screen.top() - 900}},
                  {"below", {70, screen.bottom() + 40}}};
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        leftAt({c.place, kPlace.size()});
        QWidget next;
        EXPECT_TRUE(memory.restore("tuner", next));
        EXPECT_TRUE(isOnScreen(next)) << next.x() << " " << next.y();
        EXPECT_EQ(next.size(), kPlace.size());
    }
}

TEST_F(WindowMemoryTest, OneThatIsLargerThanTheScreenFitsIt) {
    const QRect screen = window.screen()->availableGeometry();
    leftAt({screen.topLeft(), screen.size() * 3});
    EXPECT_TRUE(memory.restore("tuner", window));
    EXPECT_TRUE(isOnScreen(window));
    EXPECT_GT(window.width(), screen.width() / 2);
}

TEST_F(WindowMemoryTest, WhatIsNoPlaceIsIgnored) {
    const std::string good = leftAt(kPlace);
    ASSERT_GT(good.size(), 40u);
    const QByteArray bytes = QByteArray::fromBase64(QByteArray::fromStdString(good));
    const auto encoded = [](const QByteArray& text) { return text.toBase64().toStdString(); };
    QByteArray otherMagic = bytes, otherVersion = bytes;
    otherMagic[0] = char(otherMagic[0] + 1);
    otherVersion[5] = 99;
    const struct {
        const char* name;
        std::string stored;
    } kCases[] = {{"empty", ""},
                  {"words", "somewhere on the left"},
                  {"a number", "42"},
                  {"no place of Qt's", encoded(otherMagic)},
                  {"of a later version", encoded(otherVersion)},
                  {"cut behind the version", encoded(bytes.left(8))},
                  {"cut in the frame", encoded(bytes.left(20))},
                  {"cut in the geometry", encoded(bytes.left(36))},
                  {"one byte short", encoded(bytes.chopped(1))},
                  {"nothing but zeros behind the version",
                   encoded(bytes.left(8) + QByteArray(bytes.size() - 8, '\0'))},
                  {"nothing but ones behind the version",
                   encoded(bytes.left(8) + QByteArray(bytes.size() - 8, '\xff'))}};
    window.setGeometry(11, 22, 333, 144);
    for (const auto& c : kCases) {
        SCOPED_TRACE(c.name);
        defaults.setString(kKey, c.stored);
        EXPECT_FALSE(memory.restore("tuner", window));
        EXPECT_EQ(window.geometry(), QRect(11, 22, 333, 144));
    }
    defaults.remove(kKey);
    EXPECT_FALSE(memory.restore("tuner", window));
    EXPECT_EQ(window.windowState(), Qt::WindowNoState);
}

} // namespace
} // namespace veltrano
