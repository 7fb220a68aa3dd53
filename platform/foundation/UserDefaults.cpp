// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/foundation/UserDefaults.h"

#include "platform/foundation/LenientNumber.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

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

/// A text that is a number from its first to its last character, but for white space around it.
std::optional<double> wholeNumber(const QString& text) {
    const std::string trimmed = text.trimmed().toStdString();
    const char* first = trimmed.data();
    const char* last = first + trimmed.size();
    if (first != last && *first == '+') ++first;
    double number = 0;
    const auto result = std::from_chars(first, last, number);
    const bool isNumber = result.ec == std::errc() && result.ptr == last && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::optional<float> floatFrom(const QVariant& value) {
    if (value.userType() != QMetaType::QString) {
        return value.userType() == QMetaType::QStringList ? std::nullopt
                                                          : std::optional(value.toFloat());
    }
    const QString text = value.toString();
    if (!wholeNumber(text)) return {};
    const float number = lenientFloat(text.toStdString()); // rounded once, not from the double
    return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<int> integerFrom(const QVariant& value) {
    if (value.userType() != QMetaType::QString) {
        return value.userType() == QMetaType::QStringList ? std::nullopt
                                                          : std::optional(value.toInt());
    }
    const std::optional<double> number = wholeNumber(value.toString());
    constexpr double kMost = std::numeric_limits<int>::max();
    if (!number || *number > kMost || *number < -kMost - 1) return {};
    return static_cast<int>(*number);
}

std::optional<bool> boolFrom(const QVariant& value) {
    if (value.userType() == QMetaType::Bool) return value.toBool();
    const QString text = value.toString().trimmed().toLower();
    for (const char* yes : {"true", "yes", "1"}) {
        if (text == QLatin1String(yes)) return true;
    }
    for (const char* no : {"false", "no", "0"}) {
        if (text == QLatin1String(no)) return false;
    }
    return {};
}

/// What @p read makes of the stored value, else of the registered default.
template <class Reader>
auto firstReadable(const QVariant& value, const QVariant& registered, Reader read) {
    const auto found = value.isValid() ? read(value) : std::nullopt;
    if (found || !registered.isValid()) return found;
    return read(registered);
}

} // namespace

UserDefaults::UserDefaults()
    : mSettings(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                            QStringLiteral("veltrano"),
                                            QStringLiteral("veltrano"))) {
    mSettings->setFallbacksEnabled(false);
}

QString UserDefaults::usersFile() { return UserDefaults().mSettings->fileName(); }

UserDefaults::UserDefaults(const QString& path)
    : mSettings(std::make_unique<QSettings>(path, QSettings::IniFormat)) {}

void UserDefaults::registerDefault(std::string_view key, const QVariant& value) {
    mRegistered.insert(toQString(key), value);
}

bool UserDefaults::hasStored(std::string_view key) const {
    return stored(toQString(key)).isValid();
}

QVariant UserDefaults::stored(const QString& name) const {
    return mSettings ? mSettings->value(name) : mMemory.value(name);
}

void UserDefaults::store(std::string_view key, const QVariant& value) {
    if (mSettings) {
        mSettings->setValue(toQString(key), value);
    } else {
        mMemory.insert(toQString(key), value);
    }
}

QVariant UserDefaults::value(std::string_view key) const {
    const QString name = toQString(key);
    const QVariant found = stored(name);
    return found.isValid() ? found : mRegistered.value(name);
}

float UserDefaults::floatForKey(std::string_view key) const {
    return firstReadable(value(key), mRegistered.value(toQString(key)), floatFrom).value_or(0.0F);
}

int UserDefaults::integerForKey(std::string_view key) const {
    return firstReadable(value(key), mRegistered.value(toQString(key)), integerFrom).value_or(0);
}

bool UserDefaults::boolForKey(std::string_view key) const {
    return firstReadable(value(key), mRegistered.value(toQString(key)), boolFrom).value_or(false);
}

std::optional<std::string> UserDefaults::stringForKey(std::string_view key) const {
    const QVariant found = value(key);
    if (!found.isValid()) return std::nullopt;
    // A text with a comma comes back from a hand-edited file as a list.
    if (found.userType() == QMetaType::QStringList) {
        return found.toStringList().join(QStringLiteral(", ")).toStdString();
    }
    return found.toString().toStdString();
}

void UserDefaults::setFloat(std::string_view key, float value) { store(key, shortest(value)); }

void UserDefaults::setInteger(std::string_view key, int value) { store(key, value); }

void UserDefaults::setBool(std::string_view key, bool value) { store(key, value); }

void UserDefaults::setString(std::string_view key, std::string_view utf8) {
    store(key, toQString(utf8));
}

void UserDefaults::remove(std::string_view key) {
    if (mSettings) mSettings->remove(toQString(key));
    mMemory.remove(toQString(key));
}

bool UserDefaults::synchronize() {
    if (!mSettings) return true;
    mSettings->sync();
    return mSettings->status() == QSettings::NoError;
}

} // namespace veltrano
