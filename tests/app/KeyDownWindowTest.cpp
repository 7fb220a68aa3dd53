// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the tuner window and its copy command.
#include "app/KeyDownWindow.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImageReader>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

using Commands = std::vector<MenuCommand>;

/// Counts the keys that go the usual way.
class Window final : public KeyDownWindow {
public:
    int usual = 0;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        event->setAccepted(true);
        KeyDownWindow::keyPressEvent(event);
        if (!event->isAccepted()) ++usual; // QWidget's own answer to a key that nobody wants
    }
};

class KeyDownWindowTest : public testing::Test {
protected:
    KeyDownWindowTest() {
        auto* contents = new QWidget;
        contents->setStyleSheet(QStringLiteral("background: #204060"));
        contents->setAutoFillBackground(true);
        window.setCentralWidget(contents);
        window.resize(120, 80);
        window.setCommandSender([this](MenuCommand command) {
            if (!answers) return false;
            sent.push_back(command);
            return true;
        });
        window.show();
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&window, &event);
    }

    Window window;
    Commands sent;
    bool answers = true;
};

struct KeyCase {
    int key;
    Qt::KeyboardModifiers modifiers;
    MenuCommand command;
};

TEST_F(KeyDownWindowTest, EveryKeyOfTheTableSendsItsCommand) {
    const KeyCase kCases[] = {
        {Qt::Key_Right, {}, MenuCommand::noteUp},
        {Qt::Key_6, {}, MenuCommand::noteUp},
        {Qt::Key_6, Qt::KeypadModifier, MenuCommand::noteUp},
        {Qt::Key_Right, Qt::KeypadModifier, MenuCommand::noteUp},
        {Qt::Key_Space, {}, MenuCommand::noteUp},
        {Qt::Key_Left, {}, MenuCommand::noteDown},
        {Qt::Key_4, {}, MenuCommand::noteDown},
        {Qt::Key_Up, {}, MenuCommand::octaveUp},
        {Qt::Key_8, {}, MenuCommand::octaveUp},
        {Qt::Key_Down, {}, MenuCommand::octaveDown},
        {Qt::Key_2, {}, MenuCommand::octaveDown},
        {Qt::Key_U, {}, MenuCommand::autoManualToggle},
        {Qt::Key_B, {}, MenuCommand::soundBackToggle},
        {Qt::Key_Y, {}, MenuCommand::playSoundBack},
        {Qt::Key_Tab, {}, MenuCommand::playSoundBack},
        {Qt::Key_Enter, Qt::KeypadModifier, MenuCommand::playSoundBack},
    };
    for (const KeyCase& test : kCases) {
        SCOPED_TRACE(test.key);
        sent.clear();
        press(test.key, test.modifiers);
        EXPECT_EQ(sent, Commands{test.command});
    }
    EXPECT_EQ(window.usual, 0);
}

TEST_F(KeyDownWindowTest, WithAModifierAKeyGoesTheUsualWay) {
    for (const auto modifier :
         {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        window.usual = 0;
        press(Qt::Key_Space, modifier);
        press(Qt::Key_Right, modifier);
        press(Qt::Key_U, modifier);
        EXPECT_EQ(window.usual, 3);
    }
    EXPECT_TRUE(sent.empty());
}

TEST_F(KeyDownWindowTest, OtherKeysAndUnansweredOnesGoTheUsualWay) {
    press(Qt::Key_Return); // not the keypad's Enter
    press(Qt::Key_A);
    press(Qt::Key_5);
    EXPECT_TRUE(sent.empty());
    answers = false;
    press(Qt::Key_Space);
    EXPECT_EQ(window.usual, 4);
}

TEST_F(KeyDownWindowTest, TabPlaysUnlessATextFieldHasTheFocus) {
    auto* button = new QWidget(window.centralWidget());
    button->setFocusPolicy(Qt::StrongFocus);
    auto* text = new QLineEdit(window.centralWidget());
    button->show();
    text->show();
    QApplication::setActiveWindow(&window);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Tab);
    EXPECT_EQ(sent, Commands{MenuCommand::playSoundBack});
    EXPECT_TRUE(button->hasFocus());
    sent.clear();
    QTest::keyClick(button, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(sent.empty()) << "Shift+Tab moves the focus";
    text->setFocus();
    QTest::keyClick(text, Qt::Key_Tab);
    EXPECT_TRUE(sent.empty());
}

TEST_F(KeyDownWindowTest, CopyPutsThePictureOnTheClipboardAsPngAndTiffWithLzw) {
    ASSERT_TRUE(window.commandState(MenuCommand::copy));
    EXPECT_TRUE(window.commandState(MenuCommand::copy)->isEnabled);
    EXPECT_FALSE(window.commandState(MenuCommand::paste));
    window.perform(MenuCommand::copy);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    ASSERT_TRUE(data);
    EXPECT_EQ(data->formats().value(0), "Apple PNG pasteboard type");
    EXPECT_EQ(data->formats().last(), "image/tiff") << "after every kind of PNG";
    EXPECT_EQ(data->data("Apple PNG pasteboard type"), data->data("image/png"));
    const QImage expected = window.centralWidget()->grab().toImage();
    const auto picture = [&](const char* format) {
        return QImage::fromData(data->data(QLatin1String(format)))
            .convertToFormat(expected.format());
    };
    EXPECT_EQ(picture("image/png"), expected);
    ASSERT_FALSE(data->data("image/tiff").isEmpty()) << "qt6-image-formats-plugins is missing";
    EXPECT_EQ(picture("image/tiff").size(), expected.size());
    EXPECT_EQ(picture("image/tiff").pixel(5, 5), expected.pixel(5, 5));
    // Tag 259 of the directory is the compression; 5 is LZW.
    const QByteArray tiff = data->data("image/tiff");
    EXPECT_NE(tiff.indexOf(QByteArray("\x03\x01\x03\x00\x01\x00\x00\x00\x05\x00", 10)), -1);
}

} // namespace
} // namespace veltrano
