// SPDX-License-Identifier: GPL-3.0-or-later
// A window whose bare keys work the tuner.
#include "app/KeyDownWindow.h"

#include "analysis/MVCommon.h"
#include "engine/KeyDownTable.h"

#include <QApplication>
#include <QBuffer>
#include <QClipboard>
#include <QImageWriter>
#include <QKeyEvent>
#include <QMimeData>

namespace veltrano {

namespace {

constexpr Qt::KeyboardModifiers kModifiers =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

std::optional<NamedKey> namedKey(int key) {
    switch (key) {
    case Qt::Key_Right:
        return NamedKey::rightArrow;
    case Qt::Key_Left:
        return NamedKey::leftArrow;
    case Qt::Key_Up:
        return NamedKey::upArrow;
    case Qt::Key_Down:
        return NamedKey::downArrow;
    case Qt::Key_Tab:
        return NamedKey::tab;
    case Qt::Key_Enter: // that of the keypad
        return NamedKey::keypadEnter;
    default:
        return std::nullopt;
    }
}

std::optional<KeyAction> actionOf(int key) {
    if (const auto named = namedKey(key)) return actionOfKey(*named);
    if (key < Qt::Key_Space || key > Qt::Key_AsciiTilde) return std::nullopt;
    const auto character = static_cast<char32_t>(key); // letters are upper case here
    const bool isLetter = character >= U'A' && character <= U'Z';
    return actionOfCharacter(isLetter ? character - U'A' + U'a' : character);
}

MenuCommand commandOf(KeyAction action) {
    switch (action) {
    case KeyAction::noteUp:
        return MenuCommand::noteUp;
    case KeyAction::noteDown:
        return MenuCommand::noteDown;
    case KeyAction::octaveUp:
        return MenuCommand::octaveUp;
    case KeyAction::octaveDown:
        return MenuCommand::octaveDown;
    case KeyAction::autoManualToggle:
        return MenuCommand::autoManualToggle;
    case KeyAction::soundBackToggle:
        return MenuCommand::soundBackToggle;
    case KeyAction::playSoundBack:
        return MenuCommand::playSoundBack;
    }
    return MenuCommand::playSoundBack;
}

QByteArray tiffWithLzw(const QImage& image) {
    constexpr int kLzw = 1;
    QByteArray tiff;
    QBuffer buffer(&tiff);
    QImageWriter writer(&buffer, "tiff");
    writer.setCompression(kLzw);
    return writer.write(withDensity(image)) ? tiff : QByteArray();
}

} // namespace

KeyDownWindow::KeyDownWindow(QWidget* parent) : QMainWindow(parent) {}

void KeyDownWindow::keyPressEvent(QKeyEvent* event) {
    if ((event->modifiers() & kModifiers) == Qt::NoModifier) {
        const std::optional<KeyAction> action = actionOf(event->key());
        if (action && send(commandOf(*action))) return;
    }
    if (event->key() == Qt::Key_F6 && (event->modifiers() & ~Qt::ShiftModifier) == 0) {
        QMainWindow::focusNextPrevChild(event->modifiers() == Qt::NoModifier);
        return;
    }
    QMainWindow::keyPressEvent(event);
}

/// Tab comes here from whatever child has the focus, before any key event does.
bool KeyDownWindow::focusNextPrevChild(bool next) {
    const QWidget* const focus = QApplication::focusWidget();
    const bool wantsText = focus && focus->testAttribute(Qt::WA_InputMethodEnabled);
    const bool isBare = (QApplication::keyboardModifiers() & kModifiers) == Qt::NoModifier;
    if (next && isBare && !wantsText && send(commandOf(*actionOfKey(NamedKey::tab)))) return true;
    return QMainWindow::focusNextPrevChild(next);
}

std::optional<CommandState> KeyDownWindow::commandState(MenuCommand command) const {
    if (command == MenuCommand::copy) return CommandState{};
    return std::nullopt;
}

void KeyDownWindow::perform(MenuCommand command) {
    if (command == MenuCommand::copy) QApplication::clipboard()->setMimeData(picture());
}

QMimeData* KeyDownWindow::picture() {
    const QImage image = centralWidget()->grab().toImage();
    auto* data = new QMimeData;
    const QByteArray png = pngRepresentation(image);
    data->setData(QStringLiteral("Apple PNG pasteboard type"), png);
    data->setData(QStringLiteral("image/png"), png);
    const QByteArray tiff = tiffWithLzw(image);
    if (!tiff.isEmpty()) data->setData(QStringLiteral("image/tiff"), tiff);
    return data;
}

} // namespace veltrano
