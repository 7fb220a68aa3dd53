// SPDX-License-Identifier: GPL-3.0-or-later
// The partials over the keyboard.
#pragma once

#include "analysis/PartialRecords.h"
#include "analysis/Partials.h"
#include "platform/desktop/AccessibleReadout.h"
#include "platform/desktop/FocusRing.h"
#include "platform/foundation/NotificationCenter.h"

#include <QColor>
#include <QImage>
#include <QWidget>
#include <any>
#include <vector>

class QPainter;

namespace veltrano {

class Preferences;
class SpeechPort;

/// Each partial on its key: a mark on the key, a bar as long as the deviation in cents and the
/// number above it. The drawing has a space of 781 x 207 units, which is stretched to any size.
///
/// What is shown comes with the notifications alone. Every drawing computes the records anew and so
/// moves their smoothing on by one step. Thread: main.
class PartialView final : public QWidget, public AccessibleReadout {
    Q_OBJECT
public:
    /// None of it is owned, all of it outlives the view.
    struct Ports {
        const Preferences& preferences;
        NotificationCenter& notifications;
        SpeechPort* speech = nullptr; ///< null: nothing is spoken
    };

    explicit PartialView(const Ports& ports, QWidget* parent = nullptr);

    /// Null or empty: there are none; while the settings hold the last ones, that is ignored.
    void setPartials(PartialsRef partials);

    // Spoken reports; they replace what is being spoken.
    void iaSpeakStatus();
    void iaSpeakDetails();
    std::string partialsSpeech(bool details) const;

    std::span<const PartialData> records() const { return mRecords.records(); } ///< drawn last

    QSize sizeHint() const override;
    QString accessibleValue() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void setColors();
    void observeSettings();
    void speak(bool details);
    PartialTargets targets() const;
    void drawRecords(QPainter& painter);
    void drawCentreLine(QPainter& painter) const;
    void drawPianoKeyboard(QPainter& painter);
    QImage pianoKeyboardImage(QSize pixels) const;
    void drawRecord(QPainter& painter, const PartialData& record, bool isRoot) const;
    void drawBar(QPainter& painter, const PartialData& record) const;
    void drawCentNumber(QPainter& painter, const PartialData& record) const;
    void drawKey(QPainter& painter, const PartialData& record) const;
    void drawNoteName(QPainter& painter, const PartialData& record) const;

    const Ports mPorts;
    std::vector<NotificationCenter::Observation> mObservations;
    double mReferencePitch;  ///< [Hz]
    float mInTuneThreshold;  ///< [cents]
    PartialsRef mPartials;   ///< accepted last
    PartialRecords mRecords; ///< of the last drawing
    bool isDark;
    QImage mPianoKeyboardImage; ///< null: to be drawn anew
    QColor mBackgroundColor;
    QColor mOddOctaveColor;
    QColor mKeyColor;
    QColor mCenterLineColor;
    QColor mOctaveLineColor;
    QColor mInTuneColor;
    QColor mFlatColor;
    QColor mSharpColor;
    QColor mPartialKeyColor;
    QColor mBlackNoteNameBackgroundColor;
    QColor mCentNumberAttributes; ///< the colour of that text; likewise the following ones
    QColor mNoteNameAttributes;
    QColor mBlackNoteNameAttributes;
    FocusRing mFocusRing{*this};
};

} // namespace veltrano
