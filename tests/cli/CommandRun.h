// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli as a process of its own.
#pragma once

#include <QByteArray>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>

namespace veltrano {

struct CommandRun {
    int exitCode = -1;
    QByteArray output;
    QByteArray errors;

    /// The single object that was written.
    QJsonObject object() const {
        EXPECT_EQ(output.count('\n'), 1) << output.toStdString();
        return QJsonDocument::fromJson(output).object();
    }
    /// Lines on standard error without the further diagnoses.
    QList<QByteArray> reasons() const {
        QList<QByteArray> lines = errors.split('\n');
        lines.removeIf([](const QByteArray& line) {
            return line.isEmpty() || line.startsWith("veltrano.detail: ");
        });
        return lines;
    }
};

/// @param environment "NAME=value", in place of those of the same name
inline CommandRun runCommand(const QStringList& arguments, const QStringList& environment = {}) {
    QProcess process;
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(QStringLiteral(VELTRANO_CLI), arguments);
    EXPECT_TRUE(process.waitForFinished(60000));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace veltrano
