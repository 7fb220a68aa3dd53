// SPDX-License-Identifier: GPL-3.0-or-later
// A window whose bare keys work the tuner.
#pragma once

#include "app/MenuCommands.h"

#include <QMainWindow>
#include <functional>

class QMimeData;

namespace veltrano {

/// Thread: main.
///
/// A key without a modifier that the table knows is sent as a command; what nobody answers, and any
/// other key, goes the usual way. Whether the key comes from the keypad, and Caps Lock, do not
/// matter. Tab is taken only while no text field has the focus; Shift+Tab
/// and F6 move the focus, backwards and forwards.
class KeyDownWindow : public QMainWindow, public CommandHandler {
    Q_OBJECT
public:
    explicit KeyDownWindow(QWidget* parent = nullptr);

    /// Whom a command is sent to; false: nobody answers it.
    void setCommandSender(std::function<bool(MenuCommand)> send) { mSend = std::move(send); }

    /// Copy: a picture of the contents for the clipboard.
    std::optional<CommandState> commandState(MenuCommand command) const override;
    void perform(MenuCommand command) override;

    /// The contents as PNG and as TIFF with LZW. The caller owns it.
    QMimeData* picture();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    bool send(MenuCommand command) { return mSend && mSend(command); }

    std::function<bool(MenuCommand)> mSend; ///< empty: nobody answers
};

} // namespace veltrano
