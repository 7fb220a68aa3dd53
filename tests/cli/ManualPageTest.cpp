// SPDX-License-Identifier: GPL-3.0-or-later
// The manual page of veltrano-cli names the commands and options that the program has.
#include "tests/cli/CommandRun.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QStandardPaths>
#include <gtest/gtest.h>

namespace veltrano {
namespace {

const char* const kCommands[] = {"analyze", "listen",      "devices", "partials",
                                 "tone",    "temperament", "stretch", "scl"};

/// A manual page with its hyphens as they are printed.
QString manualPage(const char* name) {
    QFile file(QStringLiteral(VELTRANO_MANUAL_PAGES "/%1.1").arg(QLatin1String(name)));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return QString::fromUtf8(file.readAll()).replace(QLatin1String("\\-"), QLatin1String("-"));
}

/// The lines from the heading @p begin to the next one of its rank or above.
QString section(const QString& page, const QString& begin) {
    const auto from = page.indexOf(begin + u'\n');
    EXPECT_GE(from, 0) << begin.toStdString();
    static const QRegularExpression next(QStringLiteral("\n\\.S[HS] "));
    const auto to = page.indexOf(next, from + begin.size());
    return page.mid(from, to - from);
}

QSet<QString> optionsIn(const QString& text) {
    static const QRegularExpression option(QStringLiteral("--[a-z][a-z-]*"));
    QSet<QString> options;
    for (auto found = option.globalMatch(text); found.hasNext();)
        options.insert(found.next().captured());
    return options;
}

TEST(ManualPage, EachCommandHasExactlyItsOptions) {
    const QString page = manualPage("veltrano-cli");
    const QSet<QString> described = optionsIn(section(page, QStringLiteral(".SH OPTIONS")));
    const QSet<QString> ofAll{QStringLiteral("--help"), QStringLiteral("--version")};
    for (const char* command : kCommands) {
        SCOPED_TRACE(command);
        const CommandRun help = runCommand({QLatin1String(command), QStringLiteral("--help")});
        const QSet<QString> offered = optionsIn(QString::fromUtf8(help.output));
        EXPECT_TRUE(offered.contains(ofAll));
        const QSet<QString> named =
            optionsIn(section(page, QStringLiteral(".SS ") + QLatin1String(command)));
        EXPECT_EQ(named, offered - ofAll);
    }
    EXPECT_TRUE(described.contains(ofAll));
}

TEST(ManualPage, NamesEveryCommandOfTheHelpAndNoOther) {
    const QString help = QString::fromUtf8(runCommand({QStringLiteral("--help")}).output);
    static const QRegularExpression listed(QStringLiteral("^  ([a-z]+)( |$)"),
                                           QRegularExpression::MultilineOption);
    QSet<QString> offered;
    for (auto found = listed.globalMatch(help); found.hasNext();)
        offered.insert(found.next().captured(1));
    static const QRegularExpression heading(QStringLiteral("^\\.SS ([a-z]+)$"),
                                            QRegularExpression::MultilineOption);
    QSet<QString> named;
    for (auto found = heading.globalMatch(manualPage("veltrano-cli")); found.hasNext();)
        named.insert(found.next().captured(1));
    EXPECT_EQ(named, offered);
    EXPECT_EQ(named.size(), qsizetype(std::size(kCommands)));
}

TEST(ManualPage, BothPagesAreFormattedWithoutAWarning) {
    const QString groff = QStandardPaths::findExecutable(QStringLiteral("groff"));
    if (groff.isEmpty()) GTEST_SKIP() << "groff is not installed";
    for (const char* name : {"veltrano", "veltrano-cli"}) {
        QProcess process;
        process.start(groff,
                      {QStringLiteral("-man"), QStringLiteral("-ww"), QStringLiteral("-z"),
                       QStringLiteral("-Tutf8"),
                       QStringLiteral(VELTRANO_MANUAL_PAGES "/%1.1").arg(QLatin1String(name))});
        ASSERT_TRUE(process.waitForFinished(20000));
        EXPECT_EQ(process.readAllStandardError().toStdString(), "") << name;
        EXPECT_EQ(process.exitCode(), 0);
    }
}

} // namespace
} // namespace veltrano
