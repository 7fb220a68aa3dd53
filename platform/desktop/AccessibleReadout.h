// SPDX-License-Identifier: GPL-3.0-or-later
// What a readout tells those who cannot see it.
#pragma once

#include <QAccessible>
#include <QElapsedTimer>
#include <QString>

class QWidget;

namespace veltrano {

/// A widget that shows one value. Its accessible name is the name that the interface file gives and
/// the value; the value alone is its accessible value. Thread: main.
class AccessibleReadout {
public:
    /// @param widget the readout itself, which outlives this
    AccessibleReadout(QWidget& widget, QAccessible::Role role);
    virtual ~AccessibleReadout() = default;

    QAccessible::Role accessibleRole() const { return mRole; }
    virtual QString accessibleValue() const = 0;

    /// Makes assistive technologies see the readouts. Call once or more, before they are shown.
    static void install();

    /// Who is told of changes; the desktop's assistive technologies unless a test stands in.
    struct Listener {
        bool (*isActive)() = QAccessible::isActive;
        void (*hear)(QAccessibleEvent*) = QAccessible::updateAccessibility;
    };
    static void setListener(const Listener& listener) { sListener = listener; }

protected:
    /// To be called after each change; announced at most four times a second, the last one always.
    void accessibleValueChanged();

private:
    void announce();

    static Listener sListener;

    QWidget& mWidget;
    const QAccessible::Role mRole;
    QElapsedTimer mSinceAnnounced;
    bool mIsWaiting = false;
};

} // namespace veltrano
