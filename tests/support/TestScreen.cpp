// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestScreen.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>

namespace veltrano {

namespace {

bool awaitFor(int milliseconds, const std::function<bool()>& condition) {
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > milliseconds) return false;
        QThread::msleep(20);
    }
    return true;
}

} // namespace

std::optional<std::string> TestScreen::missing() {
    for (const char* program : {"Xvfb", "openbox", "xdotool"}) {
        if (QStandardPaths::findExecutable(QLatin1String(program)).isEmpty())
            return std::string("the program ") + program + " is not installed";
    }
    return std::nullopt;
}

bool TestScreen::start() {
    const QString number = mFolder.filePath(QStringLiteral("display"));
    // The server chooses a free number and writes it to its standard output.
    mServer = std::make_unique<TestProcess>(std::vector<std::string>{"Xvfb", "-displayfd", "1",
                                                                     "-screen", "0", "1400x1000x24",
                                                                     "-nolisten", "tcp"},
                                            std::vector<std::string>{}, number.toStdString());
    const bool isThere = awaitFor(10000, [&] {
        QFile file(number);
        if (!file.open(QIODevice::ReadOnly)) return false;
        // Its warnings may stand there as well.
        for (const QByteArray& line : file.readAll().split('\n')) {
            bool isNumber = false;
            const int display = line.toInt(&isNumber);
            if (isNumber) mDisplay = QStringLiteral(":%1").arg(display);
        }
        return !mDisplay.isEmpty();
    });
    if (!isThere) return false;
    mWindowManager = std::make_unique<TestProcess>(
        std::vector<std::string>{"openbox", "--sm-disable"},
        std::vector<std::string>{"DISPLAY=" + mDisplay.toStdString(),
                                 "HOME=" + mFolder.path().toStdString()},
        mFolder.filePath(QStringLiteral("openbox.log")).toStdString());
    return awaitFor(10000, [this] { return tool({QStringLiteral("get_desktop")}).has_value(); });
}

bool TestScreen::shows(const QString& title) const { return !windows(title).isEmpty(); }

QString TestScreen::active() const {
    return tool({QStringLiteral("getactivewindow"), QStringLiteral("getwindowname")})
        .value_or(QString());
}

void TestScreen::press(const QString& keys) const { tool({QStringLiteral("key"), keys}); }

void TestScreen::type(const QString& text) const {
    tool({QStringLiteral("type"), QStringLiteral("--"), text});
}

void TestScreen::click(QPoint at) const {
    tool({QStringLiteral("mousemove"), QString::number(at.x()), QString::number(at.y()),
          QStringLiteral("click"), QStringLiteral("1")});
}

QStringList TestScreen::windows(const QString& title) const {
    return tool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                 QStringLiteral("--name"), QStringLiteral("^") + title})
        .value_or(QString())
        .split(u'\n', Qt::SkipEmptyParts);
}

void TestScreen::minimize(const QString& window) const {
    tool({QStringLiteral("windowminimize"), window});
}

void TestScreen::activate(const QString& window) const {
    tool({QStringLiteral("windowactivate"), window});
}

void TestScreen::move(const QString& window, QPoint to) const {
    tool({QStringLiteral("windowmove"), window, QString::number(to.x()), QString::number(to.y())});
}

QRect TestScreen::place(const QString& window) const {
    const QString answer =
        tool({QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"), window})
            .value_or(QString());
    const auto number = [&](const char* name) {
        for (const QString& line : answer.split(u'\n')) {
            if (line.startsWith(QLatin1String(name) + u'=')) return line.section(u'=', 1).toInt();
        }
        return -1;
    };
    return {number("X"), number("Y"), number("WIDTH"), number("HEIGHT")};
}

bool TestScreen::hasPictures() {
    return !QStandardPaths::findExecutable(QStringLiteral("import")).isEmpty();
}

bool TestScreen::takePicture(const QString& path) const {
    return run(QStringLiteral("import"), {QStringLiteral("-window"), QStringLiteral("root"), path})
        .has_value();
}

void TestScreen::minimizeActive() const {
    tool({QStringLiteral("getactivewindow"), QStringLiteral("windowminimize")});
}

bool TestScreen::await(const std::function<bool()>& condition) {
    return awaitFor(10000, condition);
}

std::optional<QString> TestScreen::tool(const QStringList& arguments) const {
    return run(QStringLiteral("xdotool"), arguments);
}

std::optional<QString> TestScreen::run(const QString& program, const QStringList& arguments) const {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), mDisplay);
    process.setProcessEnvironment(environment);
    process.start(program, arguments);
    if (!process.waitForFinished(10000) || process.exitCode() != 0) return std::nullopt;
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace veltrano
