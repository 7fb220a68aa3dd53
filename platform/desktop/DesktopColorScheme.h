// SPDX-License-Identifier: GPL-3.0-or-later
// What the desktop's settings say of light and dark.
#pragma once

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <functional>

namespace veltrano {

enum class ColorScheme { noPreference, dark, light };

/// Asks the desktop's portal and follows its changes. Where there is no portal nothing is heard,
/// and the palette that Qt found is all there is. Thread: main; no call waits.
class DesktopColorScheme final : public QObject {
    Q_OBJECT
public:
    /// @param changed called with the first answer and with each change
    /// @param bus the session's, but for tests
    explicit DesktopColorScheme(std::function<void(ColorScheme)> changed,
                                QDBusConnection bus = QDBusConnection::sessionBus());

private slots:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void ask();

    const std::function<void(ColorScheme)> mChanged;
    QDBusConnection mBus;
};

} // namespace veltrano
