// SPDX-License-Identifier: GPL-3.0-or-later
// The keyboard with the key that is being tuned.
#pragma once

#include "analysis/PianoKeys.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/FocusRing.h"

#include <QColor>
#include <QWidget>

namespace veltrano {

/// A keyboard of 88 keys as large as the view, one of them marked in red and named. The mouse does
/// nothing here. Thread: main.
class PianoView final : public QWidget, public AccessibleReadout {
    Q_OBJECT
public:
    explicit PianoView(QWidget* parent = nullptr);

    /// @param key number, 0 is C0; -1 for none. The same again does nothing.
    void setMidiNote(int key);
    int midiNote() const { return mMidiNote; }

    QString accessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void setColors();
    void drawKey(QPainter& painter, const piano_keys::Key& key) const;
    void drawLabel(QPainter& painter, const piano_keys::Label& label) const;

    int mMidiNote = -1;
    bool isDark;
    QColor mWhiteKeyColor;
    QColor mAlternatingWhiteKeyColor;
    QColor mBlackKeyColor; ///< also of all outlines
    QColor mBlackKeyNoteNameBackgroundColor;
    QColor mRedKeyAttributes;            ///< of a name on a marked white key
    QColor mHighlightBlackKeyAttributes; ///< of the name of a marked black key
    FocusRing mFocusRing{*this};
};

} // namespace veltrano
