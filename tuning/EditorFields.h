// SPDX-License-Identifier: GPL-3.0-or-later
// The name and description fields of an editor.
#pragma once

#include "platform/desktop/ControlPorts.h"

#include <QObject>
#include <QString>
#include <functional>
#include <string>

class QContextMenuEvent;
class QLineEdit;
class QPlainTextEdit;

namespace veltrano {

/// A field that its document fills and reads. What nobody typed into reads back as it was filled,
/// also where the widget shows a character as another one. Undo and redo while typing are the
/// document's: the field leaves their keys to the menus, and dropped files to its window. A field
/// of several lines is as high as kLines of them. Thread: main. Owned by whoever owns the widget.
class EditorField final : public QObject, public TextOutlet {
    Q_OBJECT
public:
    static constexpr int kLines = 3;

    /// @param didType told after each change by the user
    EditorField(QLineEdit& line, std::function<void(const TextOutlet&)> didType);
    EditorField(QPlainTextEdit& text, std::function<void(const TextOutlet&)> didType);

    void setText(std::string_view text) override;
    std::string text() const override;
    void setTip(std::string_view tip) override;
    void setHidden(bool hidden) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget& widget() const;
    QString shownText() const;
    void fitHeight();
    void runContextMenu(const QContextMenuEvent& event);

    QLineEdit* const mLine;
    QPlainTextEdit* const mText;
    std::string mFilled; ///< what the document wrote
    QString mShown;      ///< what the widget made of it
};

} // namespace veltrano
