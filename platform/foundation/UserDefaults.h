// SPDX-License-Identifier: GPL-3.0-or-later
// The store of the user's settings between runs.
#pragma once

#include <QHash>
#include <QSettings>
#include <QString>
#include <QVariant>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace veltrano {

/// Settings by key, in a file of the user (INI text), read lazily and written by synchronize().
///
/// Numbers are stored as text with a point, whatever the locale. A value that cannot be read as the
/// wanted type reads as the registered default, or 0, false or nullopt without one.
/// Thread: main. Errors: an unreadable file reads as empty; synchronize() tells whether writing
/// worked.
class UserDefaults {
public:
    /// The user's own file, veltrano/veltrano.ini in the configuration folder.
    UserDefaults();
    static QString usersFile(); ///< its whole path
    /// Another file (tests, portable use); it need not exist.
    explicit UserDefaults(const QString& path);
    /// No file at all: what a first run would find, forgotten at the end.
    static UserDefaults inMemory() { return UserDefaults(InMemory{}); }

    /// What a missing value of @p key reads as.
    void registerDefault(std::string_view key, const QVariant& value);

    bool hasStored(std::string_view key) const; ///< registered defaults do not count
    float floatForKey(std::string_view key) const;
    int integerForKey(std::string_view key) const;
    bool boolForKey(std::string_view key) const;
    std::optional<std::string> stringForKey(std::string_view key) const; ///< UTF-8

    void setFloat(std::string_view key, float value);
    void setInteger(std::string_view key, int value);
    void setBool(std::string_view key, bool value);
    void setString(std::string_view key, std::string_view utf8);
    void remove(std::string_view key);
    /// Writes what changed to the file. False when the file could not be written.
    bool synchronize();

private:
    struct InMemory {};
    explicit UserDefaults(InMemory) {}
    QVariant value(std::string_view key) const;
    QVariant stored(const QString& name) const;
    void store(std::string_view key, const QVariant& value);

    std::unique_ptr<QSettings> mSettings; ///< null: mMemory is the store
    QHash<QString, QVariant> mMemory;
    QHash<QString, QVariant> mRegistered;
};

} // namespace veltrano
