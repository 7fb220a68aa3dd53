// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli temperament
#include "cli/Commands.h"
#include "cli/FileCommand.h"
#include "cli/HeadlessDesk.h"
#include "cli/TuningJson.h"
#include "platform/foundation/StandardErrorLog.h"

namespace veltrano {

namespace {

std::optional<FileCommand::Request> read(FileCommand& command, const QStringList& arguments) {
    TunerOptions::declareTonic(command.parser());
    TunerOptions::declareReferencePitch(command.parser());
    command.declareWrite(QStringLiteral("Saves it as that temperament file."),
                         QStringLiteral("OUT.temperament"));
    command.declareExport(QStringLiteral("Writes it as that Scala file."),
                          QStringLiteral("OUT.scl"));
    return command.read(arguments);
}

} // namespace

int runTemperament(const QStringList& arguments) {
    FileCommand command(QStringLiteral("temperament"),
                        QStringLiteral("Prints what a temperament file holds and what the tuner "
                                       "makes of it, as one JSON object."),
                        QStringLiteral("Temperament file."));
    const auto request = read(command, arguments);
    if (!request) return command.exitCode();

    StandardErrorLog log;
    Output output;
    TuningEntries entries;
    const std::optional<std::string> bytes = readNamedFile(request->path);
    if (bytes) entries.temperament = readTemperament(request->path, *bytes, log);
    if (!entries.temperament) {
        writeRefused(output, {"name", "description", "cents", "settingsTable", "document"});
        return kRefused;
    }
    const TemperamentEntry& entry = *entries.temperament;
    HeadlessDesk desk(request->options, entries, log);
    MVTemperamentDocument document(desk.temperamentPorts());
    const bool isLoaded = document.loadDataRepresentation(*bytes, kTemperamentTypeName);
    writeObject(output, {{"accepted", true},
                         {"name", textJson(entry.name)},
                         {"description", textJson(entry.description)},
                         {"cents", numbersJson(entry.temperament)},
                         {"settingsTable", numbersJson(desk.preferences().temperamentTable())},
                         {"document", isLoaded ? documentJson(document.values()) : QJsonValue()}});
    if (request->writePath && !saveCopy(document, *request->writePath)) return kRefused;
    if (request->exportPath && !document.exportTemperamentTo(*request->exportPath)) return kRefused;
    return kDone;
}

} // namespace veltrano
