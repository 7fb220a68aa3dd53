// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/UserDefaults.h"

#include "platform/foundation/LenientNumber.h"

#include <array>
#include <charconv>

namespace veltrano {

namespace {

QString toQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// The shortest text that reads back as the same float, always with a point.
QString shortest(float value) {
    std::array<char, 64> text;
    const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
    return QString::fromLatin1(text.data(), result.ptr - text.data());
}

} // namespace

UserDefaults::UserDefaults()
    : mSettings(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                            QStringLiteral("veltrano"),
                                            QStringLiteral("veltrano"))) {
    mSettings->setFallbacksEnabled(false);
}

UserDefaults::UserDefaults(const QString& path)
    : mSettings(std::make_unique<QSettings>(path, QSettings::IniFormat)) {}

void UserDefaults::registerDefault(std::string_view key, const QVariant& value) {
    mRegistered.insert(toQString(key), value);
}

bool UserDefaults::hasStored(std::string_view key) const {
    return mSettings->contains(toQString(key));
}

QVariant UserDefaults::value(std::string_view key) const {
    const QString name = toQString(key);
    const QVariant stored = mSettings->value(name);
    return stored.isValid() ? stored : mRegistered.value(name);
}

float UserDefaults::floatForKey(std::string_view key) const {
    const QVariant found = value(key);
    if (found.userType() != QMetaType::QString) return found.toFloat();
    return lenientFloat(found.toString().toStdString());
}

int UserDefaults::integerForKey(std::string_view key) const {
    const QVariant found = value(key);
    if (found.userType() != QMetaType::QString) return found.toInt();
    return lenientInt(found.toString().toStdString());
}

bool UserDefaults::boolForKey(std::string_view key) const { return value(key).toBool(); }

std::optional<std::string> UserDefaults::stringForKey(std::string_view key) const {
    const QVariant found = value(key);
    if (!found.isValid()) return std::nullopt;
    // A text with a comma comes back from a hand-edited file as a list.
    if (found.userType() == QMetaType::QStringList) {
        return found.toStringList().join(QStringLiteral(", ")).toStdString();
    }
    return found.toString().toStdString();
}

void UserDefaults::setFloat(std::string_view key, float value) {
    mSettings->setValue(toQString(key), shortest(value));
}

void UserDefaults::setInteger(std::string_view key, int value) {
    mSettings->setValue(toQString(key), value);
}

void UserDefaults::setBool(std::string_view key, bool value) {
    mSettings->setValue(toQString(key), value);
}

void UserDefaults::setString(std::string_view key, std::string_view utf8) {
    mSettings->setValue(toQString(key), toQString(utf8));
}

void UserDefaults::remove(std::string_view key) { mSettings->remove(toQString(key)); }

bool UserDefaults::synchronize() {
    mSettings->sync();
    return mSettings->status() == QSettings::NoError;
}

} // namespace veltrano
