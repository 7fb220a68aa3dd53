// SPDX-License-Identifier: GPL-3.0-or-later
// The way through the manual.
#pragma once

#include "displays/HelpPages.h"
#include "displays/HelpText.h"

#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <optional>

class QKeyEvent;

namespace veltrano {

/// Buttons, keys and the search of the help window. Thread: main. Owned by: the window, which
/// holds the widgets "contentsButton", "backButton", "forwardButton", "findField" and "findStatus"
/// in its interface file; those that it lacks are done without.
///
/// Keys: F1 contents, Alt+Left and Alt+Right back and forward, Ctrl+F search, F3 and Shift+F3 next
/// and previous place, F7 caret, Ctrl+W and Escape close (Escape leaves the search field first).
class HelpNavigation final : public QObject {
    Q_OBJECT

public:
    /// @param beep for a search that finds nothing
    HelpNavigation(QWidget& window, HelpText& text, HelpPages pages, std::function<void()> beep);

    void showContents();
    void showKeys();
    /// Looks for the text of the search field from the cursor on, page after page, and once around.
    void find(bool isBackward);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Key { contents, search, next, previous, caret, close };
    static std::optional<Key> keyOf(const QKeyEvent& event);

    void connectButtons();
    void carryOut(Key key);
    void findOnOtherPages(const QString& text, bool isBackward);
    bool findFromEnd(const QString& text, bool isBackward);
    void say(const QString& text);
    void updateTitle(const QUrl& shown); ///< of the page and the window

    QWidget& mWindow;
    HelpText& mText;
    const HelpPages mPages;
    const std::function<void()> mBeep;
    QLineEdit* mField;
    QLabel* mStatus;
    const QString mTitle; ///< the window's own
};

} // namespace veltrano
