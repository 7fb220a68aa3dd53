// SPDX-License-Identifier: GPL-3.0-or-later
// What a readout tells those who cannot see it.
#pragma once

#include <QAccessible>
#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <optional>
#include <vector>

class QWidget;

namespace veltrano {

/// A number within bounds, all in the unit that is shown.
struct AccessibleRange {
    double minimum = 0;
    double maximum = 0;
    double value = 0;
};

/// A widget that shows one value. Its accessible name is the name that the interface file gives and
/// the value; the value alone is its accessible value and text. Thread: main.
class AccessibleReadout {
public:
    /// Also installs the readouts: an assistive technology may look at a widget while its interface
    /// file is still being read, and would then never see more than a nameless container.
    /// @param widget the readout itself, which outlives this
    AccessibleReadout(QWidget& widget, QAccessible::Role role);
    virtual ~AccessibleReadout() = default;

    QAccessible::Role accessibleRole() const { return mRole; }
    virtual QString accessibleValue() const = 0;
    /// The number, for readouts that are a scale.
    virtual std::optional<AccessibleRange> accessibleRange() const { return std::nullopt; }
    /// @p follower, part of whose value this is, announces itself when this one changes.
    void addFollower(AccessibleReadout& follower);

    /// Makes assistive technologies see the readouts. Once is enough; more does no harm.
    static void install();

    /// Who is told of changes; the desktop's assistive technologies unless a test stands in.
    struct Listener {
        bool (*isActive)() = QAccessible::isActive;
        void (*hear)(QAccessibleEvent*) = QAccessible::updateAccessibility;
    };
    static void setListener(const Listener& listener) { sListener = listener; }

protected:
    /// To be called after each change; announced at most four times a second, the last one always,
    /// unless it reads as the one before.
    void accessibleValueChanged();

private:
    void announce();

    static Listener sListener;

    struct Follower {
        QPointer<QWidget> widget; ///< null: it is gone
        AccessibleReadout* readout;
    };

    QWidget& mWidget;
    const QAccessible::Role mRole;
    std::vector<Follower> mFollowers;
    QString mAnnounced; ///< last
    QElapsedTimer mSinceAnnounced;
    bool mIsWaiting = false;
};

} // namespace veltrano
