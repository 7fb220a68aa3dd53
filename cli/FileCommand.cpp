// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/FileCommand.h"

#include "cli/Output.h"

namespace veltrano {

namespace {

const QString kWrite = QStringLiteral("write");
const QString kExport = QStringLiteral("export");

} // namespace

FileCommand::FileCommand(const QString& name, const QString& purpose, const QString& file)
    : mName(name) {
    mParser.setApplicationDescription(purpose);
    mParser.addPositionalArgument(QStringLiteral("FILE"), file);
}

void FileCommand::declareWrite(const QString& meaning, const QString& file) {
    mParser.addOption({kWrite, meaning, file});
}

void FileCommand::declareExport(const QString& meaning, const QString& file) {
    mParser.addOption({kExport, meaning, file});
}

std::optional<FileCommand::Request> FileCommand::read(const QStringList& arguments) {
    if (const std::optional<int> done = parseCommand(mParser, arguments)) {
        mExitCode = *done;
        return std::nullopt;
    }
    const QStringList files = mParser.positionalArguments();
    if (files.isEmpty()) return fail(mName + QStringLiteral(" needs a FILE"));
    if (files.size() > 1) return fail(mName + QStringLiteral(" takes one FILE"));
    QString error;
    const std::optional<TunerOptions> options = TunerOptions::read(mParser, error);
    if (!options) return fail(error);
    return Request{wholePath(files.first()), *options, path(kWrite), path(kExport)};
}

std::optional<std::string> FileCommand::path(const QString& option) const {
    if (!mParser.optionNames().contains(option)) return std::nullopt;
    return wholePath(mParser.value(option));
}

std::optional<FileCommand::Request> FileCommand::fail(const QString& error) {
    mExitCode = wrongUsage(mName, error);
    return std::nullopt;
}

} // namespace veltrano
