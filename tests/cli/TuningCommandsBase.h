// SPDX-License-Identifier: GPL-3.0-or-later
// A folder with files for the commands that show them.
#pragma once

#include "tests/cli/CommandRun.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cmath>
#include <vector>

namespace veltrano {

inline constexpr const char* kTemperamentOutOfRange =
    "Temperament value is out of range. It has to be between -50 and +50 cents.";

/// Null is not a number.
inline std::vector<double> numbers(const QJsonValue& value) {
    std::vector<double> result;
    for (const QJsonValue number : value.toArray())
        result.push_back(number.isDouble() ? number.toDouble() : std::nan(""));
    return result;
}

inline void expectNear(const std::vector<double>& actual, const std::vector<double>& expected,
                       double tolerance) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < actual.size(); ++i)
        EXPECT_NEAR(actual[i], expected[i], tolerance) << "number " << i;
}

class TuningCommands : public testing::Test {
protected:
    QString write(const char* name, const QByteArray& bytes) {
        const QString path = mFolder.filePath(QString::fromUtf8(name));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }
    QByteArray read(const QString& path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    }
    QString at(const char* name) const { return mFolder.filePath(QString::fromUtf8(name)); }
    QString scale(const QByteArray& pitches) {
        return write("trial.scl", "! trial.scl\n!\n a scale \n 12\n!\n" + pitches);
    }

    QTemporaryDir mFolder;
};

} // namespace veltrano
