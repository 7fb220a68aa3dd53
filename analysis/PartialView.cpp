// SPDX-License-Identifier: GPL-3.0-or-later
// The partials over the keyboard: what is shown and said.
#include "analysis/PartialView.h"

#include "analysis/MVCommon.h"
#include "analysis/PartialKeyboard.h"
#include "platform/desktop/SpeechPort.h"
#include "platform/foundation/NotificationNames.h"
#include "settings/Preferences.h"

#include <QTimer>
#include <algorithm>
#include <utility>

namespace veltrano {

PartialView::PartialView(const Ports& ports, QWidget* parent)
    : QWidget(parent), AccessibleReadout(*this, QAccessible::Graphic), mPorts(ports),
      mReferencePitch(ports.preferences.referencePitch()),
      mInTuneThreshold(static_cast<float>(ports.preferences.inTuneThreshold())),
      isDark(MVCommon::appearanceIsDark()) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setColors();
    observeSettings();
}

void PartialView::observeSettings() {
    const auto observe = [this](std::string_view name, auto handler) {
        mObservations.push_back(mPorts.notifications.observe(name, handler));
    };
    observe(notification::kPartialsChanged, [this](const std::any& partials) {
        const auto* const changed = std::any_cast<PartialsRef>(&partials);
        setPartials(changed ? *changed : nullptr);
    });
    observe(notification::kReferencePitch, [this](const std::any&) {
        mReferencePitch = mPorts.preferences.referencePitch();
        update();
    });
    observe(notification::kTemperamentChanged, [this](const std::any&) { update(); });
    observe(notification::kInTuneThresholdChanged, [this](const std::any&) {
        mInTuneThreshold = static_cast<float>(mPorts.preferences.inTuneThreshold());
        update();
    });
}

void PartialView::setColors() {
    const QColor text = isDark ? Qt::white : Qt::black;
    mCentNumberAttributes = text;
    mNoteNameAttributes = Qt::white;
    mBlackNoteNameAttributes = text;
    mBackgroundColor = isDark ? Qt::black : Qt::white;
    mOddOctaveColor = grey(isDark ? 0.15 : 0.85);
    mKeyColor = text;
    mBlackNoteNameBackgroundColor = grey(1.0, isDark ? 0.25 : 0.75);
    mPartialKeyColor = Qt::red;
    mCenterLineColor = grey(isDark ? 1.0 / 3 : 0.5);
    mOctaveLineColor = mCenterLineColor;
    mFlatColor = Qt::blue;
    mSharpColor = Qt::red;
    mInTuneColor = Qt::green;
}

void PartialView::setPartials(PartialsRef partials) {
    const bool isNothing = !partials || partials->empty();
    if (isNothing && mPorts.preferences.partialsHold()) return;
    if (partials == mPartials) return;
    mPartials = std::move(partials);
    update();
    if (isNothing) accessibleValueChanged();
}

PartialTargets PartialView::targets() const {
    const Preferences& prefs = mPorts.preferences;
    PartialTargets targets;
    targets.referencePitchHz = mReferencePitch;
    if (prefs.tuning() != 0) {
        targets.tempered.emplace();
        targets.tempered->tonic = prefs.tonic();
        std::ranges::copy(prefs.temperamentTable(), targets.tempered->cents.begin());
    }
    return targets;
}

QSize PartialView::sizeHint() const {
    return {static_cast<int>(partial_keyboard::kWidth),
            static_cast<int>(partial_keyboard::kHeight)};
}

std::string PartialView::partialsSpeech(bool details) const {
    return veltrano::partialsSpeech(mRecords.records(), mInTuneThreshold, details);
}

QString PartialView::accessibleValue() const {
    // The records outlive what is shown.
    const bool isNothing = !mPartials || mPartials->empty();
    return QString::fromStdString(veltrano::partialsSpeech(
        isNothing ? std::span<const PartialData>() : mRecords.records(), mInTuneThreshold, false));
}

void PartialView::iaSpeakStatus() {
    QTimer::singleShot(0, this, [this] { speak(false); });
}

void PartialView::iaSpeakDetails() {
    QTimer::singleShot(0, this, [this] { speak(true); });
}

void PartialView::speak(bool details) {
    if (mPorts.speech) mPorts.speech->say(partialsSpeech(details));
}

} // namespace veltrano
