// SPDX-License-Identifier: GPL-3.0-or-later
// veltrano-cli stretch
#include "cli/Commands.h"
#include "cli/FileCommand.h"
#include "cli/HeadlessDesk.h"
#include "cli/TuningJson.h"
#include "platform/foundation/StandardErrorLog.h"

namespace veltrano {

int runStretch(const QStringList& arguments) {
    FileCommand command(QStringLiteral("stretch"),
                        QStringLiteral("Prints what a stretch table holds, as one JSON object."),
                        QStringLiteral("Stretch file."));
    command.declareWrite(QStringLiteral("Saves it as that stretch file."),
                         QStringLiteral("OUT.stretch"));
    const auto request = command.read(arguments);
    if (!request) return command.exitCode();

    StandardErrorLog log;
    Output output;
    TuningEntries entries;
    const std::optional<std::string> bytes = readNamedFile(request->path);
    if (bytes) entries.stretch = readStretch(request->path, *bytes, log);
    if (!entries.stretch) {
        writeRefused(output, {"name", "description", "stretch"});
        return kRefused;
    }
    writeObject(output, {{"accepted", true},
                         {"name", textJson(entries.stretch->name)},
                         {"description", textJson(entries.stretch->description)},
                         {"stretch", numbersJson(entries.stretch->stretch)}});
    if (!request->writePath) return kDone;
    HeadlessDesk desk(request->options, entries, log);
    MVStretchDocument document(desk.stretchPorts());
    const bool isSaved = document.loadDataRepresentation(*bytes, kStretchTypeName) &&
                         saveCopy(document, *request->writePath);
    return isSaved ? kDone : kRefused;
}

} // namespace veltrano
