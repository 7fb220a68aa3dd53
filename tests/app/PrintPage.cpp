// SPDX-License-Identifier: GPL-3.0-or-later
// Prints a document as the application does: veltrano-print-page DOCUMENT OUT.pdf
#include "app/DocumentDesk.h"
#include "platform/desktop/UnattendedPanels.h"
#include "platform/foundation/StandardErrorLog.h"
#include "platform/foundation/UserDefaults.h"
#include "settings/Preferences.h"

#include <QApplication>

int main(int argc, char** argv) {
    using namespace veltrano;
    const QApplication application(argc, argv);
    if (argc != 3) return 2;
    StandardErrorLog log;
    UnattendedPanels panels([&log](std::string_view line) { log.line(line); });
    UserDefaults defaults = UserDefaults::inMemory();
    NotificationCenter notifications;
    const Preferences preferences({defaults, notifications});
    const LibrariesInUse noLibraries;
    const ResourceFolder resources{QStringLiteral(VELTRANO_SOURCE_RESOURCES)};
    DocumentDesk desk({resources, defaults, notifications, preferences, noLibraries, panels, log});
    desk.openFiles({argv[1]});
    if (desk.windows().empty()) return 1; // the log has said why
    return PagePrinter::writePdf({}, argv[2], desk.windows().front()->paintPage()) ? 0 : 1;
}
