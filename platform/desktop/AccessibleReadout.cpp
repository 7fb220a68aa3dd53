// SPDX-License-Identifier: GPL-3.0-or-later
// What a readout tells those who cannot see it.
#include "platform/desktop/AccessibleReadout.h"

#include <QAccessibleWidget>
#include <QTimer>
#include <QWidget>
#include <algorithm>

namespace veltrano {

namespace {

constexpr qint64 kShortestPause = 250; // [ms]

class ReadoutInterface final : public QAccessibleWidget {
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

private:
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
    : mWidget(widget), mRole(role) {}

void AccessibleReadout::install() { QAccessible::installFactory(makeInterface); }

void AccessibleReadout::accessibleValueChanged() {
    if (mIsWaiting || !sListener.isActive()) return;
    mIsWaiting = true;
    const qint64 pause = mSinceAnnounced.isValid()
                             ? std::max(qint64{0}, kShortestPause - mSinceAnnounced.elapsed())
                             : 0;
    QTimer::singleShot(static_cast<int>(pause), &mWidget, [this] { announce(); });
}

void AccessibleReadout::announce() {
    mIsWaiting = false;
    mSinceAnnounced.start();
    QAccessibleValueChangeEvent value(&mWidget, accessibleValue());
    sListener.hear(&value);
    QAccessibleEvent name(&mWidget, QAccessible::NameChanged);
    sListener.hear(&name);
}

} // namespace veltrano
