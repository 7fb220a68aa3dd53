// SPDX-License-Identifier: GPL-3.0-or-later
// The name and description fields of an editor.
#include "tuning/EditorFields.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <cmath>
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
    fitHeight();
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
        // Where nobody types, the beginning is what is seen.
        mLine->setCursorPosition(mLine->hasFocus() ? endOfChange(before, mShown) : 0);
        return;
    }
    {
        // Told of once what it shows is known.
        const QSignalBlocker quiet(mText);
        mText->setPlainText(text);
    }
    mShown = shownText();
    QTextCursor cursor = mText->textCursor();
    cursor.setPosition(mText->hasFocus() ? endOfChange(before, mShown) : 0);
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

/// The lines, and what lies around them.
void EditorField::fitHeight() {
    const double around = 2 * (mText->frameWidth() + mText->document()->documentMargin());
    const QFontMetricsF metrics(mText->font());
    const double line = std::ceil(metrics.ascent()) + std::ceil(metrics.descent());
    // It scrolls when there is exactly as much room as its lines take.
    const double lines = kLines * (line + metrics.leading()) + 1;
    mText->setFixedHeight(static_cast<int>(std::ceil(lines + around)));
}

/// Without the undo of a line field, which knows nothing of the document's.
void EditorField::runContextMenu(const QContextMenuEvent& event) {
    QMenu* menu = mLine->createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const QList<QAction*> actions = menu->actions();
    qsizetype cut = 0;
    while (cut < actions.size() && !actions[cut]->isSeparator())
        ++cut;
    for (qsizetype i = 0; i <= cut && i < actions.size(); ++i)
        menu->removeAction(actions[i]);
    menu->popup(event.globalPos());
}

bool EditorField::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (!key->matches(QKeySequence::Undo) && !key->matches(QKeySequence::Redo)) break;
        event->ignore(); // it goes on to the menu
        return true;
    }
    case QEvent::ContextMenu:
        if (!mLine) break;
        runContextMenu(*static_cast<QContextMenuEvent*>(event));
        return true;
    case QEvent::FontChange:
    case QEvent::StyleChange:
        if (mText) fitHeight();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace veltrano
