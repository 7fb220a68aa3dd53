// SPDX-License-Identifier: GPL-3.0-or-later
#include "displays/HelpNavigation.h"

#include <QAbstractButton>
#include <QFile>
#include <QKeyEvent>
#include <QTextDocument>
#include <utility>

namespace veltrano {

namespace {

QTextDocument::FindFlags flagsFor(bool isBackward) {
    return isBackward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
}

bool holds(const QUrl& page, const QString& text) {
    QFile file(page.toLocalFile());
    if (!file.open(QIODevice::ReadOnly)) return false;
    QTextDocument document;
    document.setHtml(QString::fromUtf8(file.readAll()));
    return !document.find(text).isNull();
}

} // namespace

HelpNavigation::HelpNavigation(QWidget& window, HelpText& text, HelpPages pages,
                               std::function<void()> beep)
    : QObject(&window), mWindow(window), mText(text), mPages(std::move(pages)),
      mBeep(std::move(beep)), mField(window.findChild<QLineEdit*>(QStringLiteral("findField"))),
      mStatus(window.findChild<QLabel*>(QStringLiteral("findStatus"))),
      mTitle(window.windowTitle()) {
    window.installEventFilter(this);
    connectButtons();
    connect(&text, &QTextBrowser::sourceChanged, this, &HelpNavigation::updateTitle);
    if (!mField) return;
    connect(mField, &QLineEdit::returnPressed, this, [this] { find(false); });
    connect(mField, &QLineEdit::textEdited, this, [this] { say({}); });
}

void HelpNavigation::connectButtons() {
    const auto button = [this](const char* name) {
        return mWindow.findChild<QAbstractButton*>(QLatin1String(name));
    };
    if (auto* contents = button("contentsButton"))
        connect(contents, &QAbstractButton::clicked, this, &HelpNavigation::showContents);
    if (auto* back = button("backButton")) {
        connect(back, &QAbstractButton::clicked, &mText, &QTextBrowser::backward);
        connect(&mText, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
        back->setEnabled(mText.isBackwardAvailable());
    }
    if (auto* forward = button("forwardButton")) {
        connect(forward, &QAbstractButton::clicked, &mText, &QTextBrowser::forward);
        connect(&mText, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
        forward->setEnabled(mText.isForwardAvailable());
    }
}

void HelpNavigation::showContents() {
    mText.setSource(mPages.contents());
    mText.setFocus();
}

void HelpNavigation::showKeys() {
    mText.setSource(mPages.keys());
    mText.setFocus();
}

std::optional<HelpNavigation::Key> HelpNavigation::keyOf(const QKeyEvent& event) {
    const int key = event.key() | static_cast<int>(event.modifiers() & ~Qt::KeypadModifier);
    switch (key) {
    case Qt::Key_F1:
        return Key::contents;
    case int(Qt::ControlModifier) | Qt::Key_F:
        return Key::search;
    case Qt::Key_F3:
        return Key::next;
    case int(Qt::ShiftModifier) | Qt::Key_F3:
        return Key::previous;
    case Qt::Key_F7:
        return Key::caret;
    case Qt::Key_Escape:
    case int(Qt::ControlModifier) | Qt::Key_W:
        return Key::close;
    default:
        return std::nullopt;
    }
}

/// These keys mean something else in the menus, or the same; here they are the manual's.
bool HelpNavigation::eventFilter(QObject* watched, QEvent* event) {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (watched != &mWindow || (!isOverride && event->type() != QEvent::KeyPress)) return false;
    const auto key = keyOf(*static_cast<QKeyEvent*>(event));
    if (!key) return false;
    event->accept();
    if (isOverride) return true;
    const bool isEscape = static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
    if (isEscape && mField && mField->hasFocus()) {
        mText.setFocus();
    } else {
        carryOut(*key);
    }
    return true;
}

void HelpNavigation::carryOut(Key key) {
    switch (key) {
    case Key::contents:
        showContents();
        break;
    case Key::search:
        if (!mField) break;
        mField->setFocus(Qt::ShortcutFocusReason);
        mField->selectAll();
        break;
    case Key::next:
        find(false);
        break;
    case Key::previous:
        find(true);
        break;
    case Key::caret:
        mText.setCaretShown(!mText.isCaretShown());
        say(mText.isCaretShown() ? tr("Caret on") : tr("Caret off"));
        break;
    case Key::close:
        mWindow.close();
        break;
    }
}

void HelpNavigation::find(bool isBackward) {
    const QString text = mField ? mField->text() : QString();
    if (text.isEmpty()) return;
    say({});
    if (!mText.find(text, flagsFor(isBackward))) findOnOtherPages(text, isBackward);
}

void HelpNavigation::findOnOtherPages(const QString& text, bool isBackward) {
    const QList<QUrl> pages = mPages.pages();
    const auto count = pages.size();
    const QUrl here = mText.source().adjusted(QUrl::RemoveFragment);
    const auto start = std::max<qsizetype>(pages.indexOf(here), 0);
    for (qsizetype step = 1; step < count; ++step) {
        const QUrl& page = pages[(start + (isBackward ? count - step : step)) % count];
        if (!holds(page, text)) continue;
        mText.setSource(page);
        if (findFromEnd(text, isBackward)) return say(tr("On another page"));
    }
    if (findFromEnd(text, isBackward)) return say(tr("From the other end"));
    say(tr("Not found"));
    mBeep();
}

/// From where a search in that direction begins.
bool HelpNavigation::findFromEnd(const QString& text, bool isBackward) {
    const QTextCursor before = mText.textCursor();
    mText.moveCursor(isBackward ? QTextCursor::End : QTextCursor::Start);
    if (mText.find(text, flagsFor(isBackward))) return true;
    mText.setTextCursor(before);
    return false;
}

void HelpNavigation::say(const QString& text) {
    if (mStatus) mStatus->setText(text);
}

void HelpNavigation::updateTitle(const QUrl& shown) {
    const bool isFirst = shown.adjusted(QUrl::RemoveFragment) == mPages.contents();
    const QString page = isFirst ? QString() : mText.documentTitle();
    mWindow.setWindowTitle(page.isEmpty() ? mTitle : page + QStringLiteral(" – ") + mTitle);
}

} // namespace veltrano
