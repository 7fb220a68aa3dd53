// SPDX-License-Identifier: GPL-3.0-or-later
// The name and description fields of an editor.
#include "tuning/EditorFields.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <limits>
#include <utility>

namespace veltrano {

namespace {

/// Where in @p now the part ends in which it differs from @p before.
int endOfChange(const QString& before, const QString& now) {
    const auto shorter = std::min(before.size(), now.size());
    qsizetype alike = 0;
    while (alike < shorter && before[before.size() - 1 - alike] == now[now.size() - 1 - alike])
        ++alike;
    return static_cast<int>(now.size() - alike);
}

} // namespace

EditorField::EditorField(QLineEdit& line, std::function<void(const TextOutlet&)> didType)
    : QObject(&line), mLine(&line), mText(nullptr) {
    line.setMaxLength(std::numeric_limits<int>::max());
    line.setAcceptDrops(false);
    line.installEventFilter(this);
    connect(&line, &QLineEdit::textEdited, this,
            [this, didType = std::move(didType)] { didType(*this); });
}

EditorField::EditorField(QPlainTextEdit& text, std::function<void(const TextOutlet&)> didType)
    : QObject(&text), mLine(nullptr), mText(&text) {
    text.setUndoRedoEnabled(false);
    text.setAcceptDrops(false);
    text.viewport()->setAcceptDrops(false);
    text.installEventFilter(this);
    connect(&text, &QPlainTextEdit::textChanged, this,
            [this, didType = std::move(didType)] { didType(*this); });
}

QWidget& EditorField::widget() const {
    if (mLine) return *mLine;
    return *mText;
}

void EditorField::setText(std::string_view utf8) {
    const QString before = shownText();
    const QString text = QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
    mFilled = utf8;
    if (mLine) {
        mLine->setText(text);
        mShown = shownText();
        mLine->setCursorPosition(endOfChange(before, mShown));
        return;
    }
    {
        // Told of once what it shows is known.
        const QSignalBlocker quiet(mText);
        mText->setPlainText(text);
    }
    mShown = shownText();
    QTextCursor cursor = mText->textCursor();
    cursor.setPosition(endOfChange(before, mShown));
    mText->setTextCursor(cursor);
}

QString EditorField::shownText() const {
    if (mLine) return mLine->text();
    // The plain text would make a space of a space that does not break.
    return mText->document()->toRawText().replace(QChar::ParagraphSeparator, u'\n');
}

std::string EditorField::text() const {
    const QString shown = shownText();
    return shown == mShown ? mFilled : shown.toStdString();
}

void EditorField::setTip(std::string_view tip) {
    widget().setToolTip(QString::fromUtf8(tip.data(), static_cast<qsizetype>(tip.size())));
}

void EditorField::setHidden(bool hidden) { widget().setHidden(hidden); }

bool EditorField::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore(); // it goes on to the menu
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace veltrano
