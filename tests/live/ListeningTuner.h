// SPDX-License-Identifier: GPL-3.0-or-later
// The running program, listening to a server of the test's own.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStringList>
#include <functional>
#include <string>

namespace veltrano {

inline QProcessEnvironment clientOf(const std::string& server) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PULSE_SERVER", QString::fromStdString(server));
    return environment;
}

/// veltrano-cli with JSON lines on its standard output. Ended with this object. Thread: main.
class ListeningTuner {
public:
    ListeningTuner(const std::string& server, const QStringList& arguments) {
        mProcess.setProcessEnvironment(clientOf(server));
        mProcess.start(QStringLiteral(VELTRANO_CLI), arguments);
    }

    ~ListeningTuner() {
        mProcess.terminate();
        mProcess.waitForFinished(5000);
    }

    /// The next line that @p wanted takes, skipping the others.
    /// @return whether one came within @p seconds
    bool await(double seconds, const std::function<bool(const QJsonObject&)>& wanted) {
        QElapsedTimer timer;
        timer.start();
        for (;;) {
            while (mProcess.canReadLine()) {
                const QByteArray line = mProcess.readLine();
                if (wanted(QJsonDocument::fromJson(line).object())) return true;
            }
            const double left = seconds * 1000 - double(timer.elapsed());
            if (left <= 0 || mProcess.state() == QProcess::NotRunning) return false;
            mProcess.waitForReadyRead(int(left) + 1);
        }
    }

    /// Drops what was printed so far.
    void forget() {
        mProcess.waitForReadyRead(1);
        mProcess.readAllStandardOutput();
    }

    bool isRunning() const { return mProcess.state() == QProcess::Running; }
    qint64 id() const { return mProcess.processId(); }

private:
    QProcess mProcess;
};

} // namespace veltrano
