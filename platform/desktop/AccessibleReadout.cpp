// SPDX-License-Identifier: GPL-3.0-or-later
// What a readout tells those who cannot see it.
#include "platform/desktop/AccessibleReadout.h"

#include <QAccessibleWidget>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace veltrano {

namespace {

constexpr qint64 kShortestPause = 250; // [ms]

/// A readout as a text that cannot be edited and, if it is a scale, a number that cannot be set.
class ReadoutInterface final : public QAccessibleWidget,
                               public QAccessibleTextInterface,
                               public QAccessibleValueInterface {
public:
    ReadoutInterface(QWidget* widget, const AccessibleReadout& readout)
        : QAccessibleWidget(widget, readout.accessibleRole()), mReadout(readout) {}

    QString text(QAccessible::Text kind) const override {
        QString value = mReadout.accessibleValue();
        if (kind == QAccessible::Value) return value;
        if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
        const QString name = widget()->accessibleName();
        return name.isEmpty() || value.isEmpty() ? name + value
                                                 : name + QStringLiteral(": ") + value;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::ValueInterface && mReadout.accessibleRange())
            return static_cast<QAccessibleValueInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(int start, int end) const override {
        return mReadout.accessibleValue().mid(start, end - start);
    }
    int characterCount() const override {
        return static_cast<int>(mReadout.accessibleValue().size());
    }
    QString attributes(int, int* start, int* end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }
    QRect characterRect(int) const override { return rect(); }
    int offsetAtPoint(const QPoint& point) const override {
        return rect().contains(point) ? 0 : -1;
    }
    void scrollToSubstring(int, int) override {}
    int cursorPosition() const override { return 0; }
    void setCursorPosition(int) override {}
    int selectionCount() const override { return 0; }
    void selection(int, int* start, int* end) const override { *start = *end = 0; }
    void addSelection(int, int) override {}
    void removeSelection(int) override {}
    void setSelection(int, int, int) override {}

    QVariant currentValue() const override { return range().value; }
    void setCurrentValue(const QVariant&) override {}
    QVariant minimumValue() const override { return range().minimum; }
    QVariant maximumValue() const override { return range().maximum; }
    QVariant minimumStepSize() const override { return 0.0; }

private:
    AccessibleRange range() const { return mReadout.accessibleRange().value_or(AccessibleRange()); }

    const AccessibleReadout& mReadout;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    const auto* readout = dynamic_cast<const AccessibleReadout*>(object);
    if (readout == nullptr) return nullptr;
    return new ReadoutInterface(static_cast<QWidget*>(object), *readout);
}

} // namespace

AccessibleReadout::Listener AccessibleReadout::sListener;

AccessibleReadout::AccessibleReadout(QWidget& widget, QAccessible::Role role)
    : mWidget(widget), mRole(role) {
    install();
}

void AccessibleReadout::install() { QAccessible::installFactory(makeInterface); }

void AccessibleReadout::addFollower(AccessibleReadout& follower) {
    mFollowers.push_back({&follower.mWidget, &follower});
}

void AccessibleReadout::accessibleValueChanged() {
    for (const Follower& follower : mFollowers) {
        if (follower.widget) follower.readout->accessibleValueChanged();
    }
    if (mIsWaiting || !sListener.isActive()) return;
    mIsWaiting = true;
    const qint64 pause = mSinceAnnounced.isValid()
                             ? std::max(qint64{0}, kShortestPause - mSinceAnnounced.elapsed())
                             : 0;
    QTimer::singleShot(static_cast<int>(pause), &mWidget, [this] { announce(); });
}

void AccessibleReadout::announce() {
    mIsWaiting = false;
    const QString before = std::exchange(mAnnounced, accessibleValue());
    if (mAnnounced == before) return;
    mSinceAnnounced.start();
    if (accessibleRange()) {
        QAccessibleValueChangeEvent value(&mWidget, mAnnounced);
        sListener.hear(&value);
    }
    QAccessibleEvent name(&mWidget, QAccessible::NameChanged);
    sListener.hear(&name);
    QAccessibleTextUpdateEvent text(&mWidget, 0, before, mAnnounced);
    sListener.hear(&text);
}

} // namespace veltrano
