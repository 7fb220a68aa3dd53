// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli scl
#include "cli/Commands.h"
#include "cli/FileCommand.h"
#include "cli/HeadlessDesk.h"
#include "cli/TuningJson.h"
#include "platform/desktop/AtomicFile.h"
#include "platform/foundation/StandardErrorLog.h"

namespace veltrano {

namespace {

void writeRefusedScale(Output& output, const ScalaScaleData& scale) {
    writeObject(output, {{"accepted", false},
                         {"error", textJson(scale.errorMessage())},
                         {"description", textJson(scale.description())},
                         {"ratios", QJsonValue()},
                         {"document", QJsonValue()},
                         {"settingsTable", QJsonValue()}});
}

/// Saves the imported scale, but never onto its own file.
/// @param isLoaded whether the document could take it
bool save(MVTemperamentDocument& document, bool isLoaded, const std::string& path,
          const std::string& scalePath) {
    if (!isLoaded) {
        complain(path + ": not written, because the scale does not fit a temperament.");
        return false;
    }
    if (FileStamp::of(path) == FileStamp::of(scalePath)) {
        complain(path + ": not written, because it is the Scala file itself.");
        return false;
    }
    return saveCopy(document, path);
}

} // namespace

int runScala(const QStringList& arguments) {
    FileCommand command(QStringLiteral("scl"),
                        QStringLiteral("Prints what a Scala file holds and what the tuner makes of "
                                       "it, as one JSON object."),
                        QStringLiteral("Scala file of 12 notes."));
    TunerOptions::declareTonic(command.parser());
    command.declareWrite(QStringLiteral("Saves it as that temperament file."),
                         QStringLiteral("OUT.temperament"));
    const auto request = command.read(arguments);
    if (!request) return command.exitCode();

    StandardErrorLog log;
    Output output;
    ScalaScaleData scale;
    const std::optional<std::string> bytes = readNamedFile(request->path);
    if (!bytes || !readScale(scale, request->path, *bytes)) {
        writeRefusedScale(output, scale);
        return kRefused;
    }
    TuningEntries entries;
    entries.temperament = entryOf(scale, request->path);
    HeadlessDesk desk(request->options, entries, log);
    MVTemperamentDocument document(desk.temperamentPorts());
    const bool isLoaded = document.loadDataRepresentation(*bytes, kScalaTypeName);
    if (isLoaded) document.setName(entries.temperament->name.value_or(""));
    writeObject(output, {{"accepted", true},
                         {"error", QJsonValue()},
                         {"description", textJson(scale.description())},
                         {"ratios", numbersJson(scale.scaleData())},
                         {"document", isLoaded ? documentJson(document.values()) : QJsonValue()},
                         {"settingsTable", numbersJson(desk.preferences().temperamentTable())}});
    if (!request->writePath) return kDone;
    const bool isSaved = save(document, isLoaded, *request->writePath, request->path);
    return isSaved ? kDone : kRefused;
}

} // namespace veltrano
